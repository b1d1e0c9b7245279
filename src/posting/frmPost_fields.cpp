// The entry fields of the posting screen: what is checked as a box is left, and the keys that step dates and times.
#include "posting/frmPost.h"

#include "ado/convert.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/user.h"
#include "platform/clock.h"
#include "posting/modMath.h"
#include "posting/post_keys.h"
#include "services/control_groups.h"
#include "services/text_rules.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zel::posting {

using ado::DateTime;
using ado::Value;
using forms::Buttons;
using forms::Icon;

namespace {

constexpr std::size_t shortestTime = 4;

/// A typed time as it is written back: "0800" is 08:00.
std::string timeText(std::string_view typed) {
    if (typed.find(':') != std::string_view::npos)
        return std::string(typed.substr(0, 5));
    return std::string(typed.substr(0, 2)).append(":").append(typed.size() > 2 ? typed.substr(2, 2) : "");
}

/// On the quarter hour, or the minute past midnight with which a second half begins.
bool isQuarterHour(const std::string& time) {
    static constexpr std::array<std::string_view, 5> minutes{"00", "15", "01", "30", "45"};
    const std::string_view minute = std::string_view(time).substr(time.size() < 2 ? 0 : time.size() - 2);
    return std::find(minutes.begin(), minutes.end(), minute) != minutes.end() && (time == "24:00" || ado::isDate(time));
}

} // namespace

frmPost::FieldResult frmPost::fCheckPostField(FieldKind kind, int index) {
    return kind == FieldKind::cboTime ? checkTime(index) : checkDate(index);
}

void frmPost::refuseTime(int index) {
    session.dialogs.message("Invalid Time..Must be in 15 minute interval.", session.title(": Post Error"), Buttons::OK,
                            Icon::Exclamation);
    cboTime(index).setText("");
}

frmPost::FieldResult frmPost::checkTime(int index) {
    forms::ComboBox& box = cboTime(index);
    if (box.Text().empty())
        return FieldResult::Missing;
    if (box.Text().size() < shortestTime) {
        refuseTime(index);
        return FieldResult::Good;
    }
    box.setText(timeText(box.Text()));
    // The other box counts too: the clerk may still be in it.
    const int start = index - index % 2;
    const int stop = start + 1;
    for (const int each : {start, stop}) {
        const std::string text = cboTime(each).Text();
        if (!text.empty() && !isQuarterHour(timeText(text))) {
            refuseTime(each);
            return FieldResult::Good;
        }
    }
    if (cboTime(start).Text().empty() || cboTime(stop).Text().empty())
        return FieldResult::Good;
    const float hours = CalcHours(boxTime(start), boxTime(stop));
    mskPost(stop).setText(ado::toText(Value(hours)));
    return hours == 0.0F ? FieldResult::NoHours : FieldResult::Good;
}

frmPost::FieldResult frmPost::checkDate(int index) {
    forms::MaskEdBox& box = mskPost(index);
    if (box.ClipText().empty())
        return FieldResult::Missing;
    if (ado::isDate(box.Text()))
        return FieldResult::Good;
    const Value date = services::FormatMaskValue(box.Text());
    if (date.isNull()) {
        services::ClearMaskedBox(box);
        return FieldResult::Missing;
    }
    box.setText(ado::toText(date));
    return FieldResult::Good;
}

bool frmPost::validDate(int index) {
    if (session.Working || checkDate(index) != FieldResult::Good)
        return true;
    return business_.CompareIncStartDate(ado::toDateTime(mskPost(index).Text()));
}

DateTime frmPost::boxTime(int index) const {
    return ado::toDateTime(services::FormatMaskValue(timeText(cboTime(index).Text()), true));
}

bool frmPost::isZeroTime(int index) const {
    const Value time = services::BlankIfEmpty(services::FormatMaskValue(timeText(cboTime(index).Text()), true), true);
    return !ado::isDate(time) ? ado::isNumeric(time) && ado::toDouble(time) == 0.0 : ado::toDateTime(time) == endOfDay;
}

void frmPost::stepByKey(int& key) {
    auto* active = dynamic_cast<forms::TextEdit*>(ActiveControl());
    if (active == nullptr || active->Locked() || session.Working)
        return;
    if (auto* box = dynamic_cast<forms::MaskEdBox*>(active); box != nullptr && box->Mask() == dateMask) {
        if (const auto date = steppedDate(box->Text(), key, session.clock.Today())) {
            box->setText(*date);
            key = 0;
        }
    } else if (active->Name() == cboTime.Name()) {
        if (const auto stepped = steppedTime(active->Text(), key, session.clock.Now())) {
            active->setText(*stepped);
            key = 0;
        } else if (key == forms::keys::enter && CkKeyPadEnterTab.isChecked()) {
            key = 0;
            if (forms::Control* next = tabStop(active))
                next->SetFocus();
        }
    }
}

} // namespace zel::posting
