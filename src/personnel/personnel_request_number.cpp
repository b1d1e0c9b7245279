#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/failure.h"
#include "core/lists.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/user.h"
#include "personnel/frmPersonnel.h"
#include "services/request_number.h"
#include "services/text_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

/// The request number of an individual: which keys it takes, how it is written, whether it is in use already.
namespace zel::personnel {

using ado::Sql;

namespace {

std::string categories(core::Session& session) {
    if (session.gRequestCats.isEmpty())
        core::LoadRequestCats(session);
    return ado::upperCase(ado::toText(session.gRequestCats));
}

bool isBlankMask(const std::string& text) {
    return text.empty() || text == "_-____" || text == " -    ";
}

/// What the clerk is told of the resources of the incident that have the number, empty when it is free.
std::string usersOf(core::Session& session, const std::string& number) {
    ado::Recordset resources;
    resources.Open("select name, requestnumber, kindcode from resources where requestnumber = '" + Sql::of(number) +
                       "' and incidentid = " + Sql::of(session.gIncidentID),
                   session.connection(), ado::CursorType::Static, ado::LockType::ReadOnly);
    std::string text;
    for (; !resources.EOF_(); resources.MoveNext()) {
        text += fmt::format("{}{} already in use: \r\n\tRequest#: {}\r\n\tName:       {}\r\n\tKindCode: {}",
                            text.empty() ? "" : "\r\n", number, ado::toText(resources.value("requestnumber")),
                            ado::toText(resources.value("name")), ado::toText(resources.value("kindcode")));
    }
    return text;
}

} // namespace

void frmPersonnel::showRequestNumberTip() {
    std::string tip = "Request Number must start with ";
    const std::string codes = categories(session);
    for (std::string_view rest = codes; !rest.empty();) {
        const std::string_view code = rest.substr(0, rest.find(','));
        if (!code.empty() && code != "C" && code != "E")
            tip.append(code).append(" ");
        rest.remove_prefix(std::min(code.size() + 1, rest.size()));
    }
    mskCrew.each([&](forms::MaskEdBox& box) { box.setToolTipText(tip); });
}

void frmPersonnel::requestNumberKeyPress(const Side& side, int& keyAscii) {
    if (session.Working || saving_ || (keyAscii < forms::keys::space && keyAscii != forms::keys::backspace))
        return;
    core::guarded(session, [&] {
        const int typed = keyAscii;
        keyAscii = 0; // nothing is taken when the categories cannot be read
        const std::string known = categories(session);
        const int taken = services::requestNumberKey(typed, mskCrew(side.page).SelStart() == 0, known);
        const bool sign = taken > forms::keys::space && taken < 0x80 && std::isalnum(taken) == 0;
        const bool foreign = taken == forms::keys::space || taken >= 0x80 || (sign && taken != '-' && taken != '.');
        keyAscii = foreign ? 0 : taken;
    });
}

void frmPersonnel::normalise(const Side& side) {
    forms::MaskEdBox& box = mskCrew(side.page);
    const std::string number = services::FormatByType(session, box.Text(), services::fieldType::requestNumber);
    // A number that was refused stays for the clerk to mend.
    if (!number.empty())
        box.setText(number);
}

void frmPersonnel::leaveRequestNumber(const Side& side) {
    forms::MaskEdBox& box = mskCrew(side.page);
    box.setText(ado::upperCase(box.Text()));
    if (isBlankMask(box.Text()))
        return;
    normalise(side);
    const bool editing = side.page == editSide.page;
    const std::string own = editing && hasPerson() ? dbcPersonnel.Columns("Req. #").Text() : std::string();
    if (editing && box.Text() == own)
        return;
    const std::string inUse = usersOf(session, box.Text());
    if (!inUse.empty() && session.dialogs.message(inUse, session.title(": WARNING"), forms::Buttons::OKCancel,
                                                  forms::Icon::Exclamation) == forms::Answer::Cancel)
        box.setText(own);
}

} // namespace zel::personnel
