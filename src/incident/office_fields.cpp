#include "incident/office_fields.h"

#include "ado/convert.h"
#include "core/modData.h"
#include "core/session.h"
#include "services/control_groups.h"
#include "services/list_columns.h"

namespace zel::incident {

using ado::Sql;

namespace {

constexpr int zipBox = 4;
constexpr int textWidth = 30;

} // namespace

void OfficeFields::prepare(core::Session& session) {
    mskOffice_.each([](forms::MaskEdBox& box) {
        if (box.Index() == zipBox)
            box.setMask("99999-9999");
        else
            box.setMaxLength(textWidth);
        box.LostFocus = [&box] { box.setText(ado::upperCase(box.Text())); };
    });
    services::SetListColumns(dbcState_, session.gStateList, 4, false);
}

void OfficeFields::clear() {
    mskOffice_.each([](forms::MaskEdBox& box) { services::ClearMaskedBox(box); });
    dbcState_.setBoundText("");
    dbcState_.setText("");
}

Sql OfficeFields::text(int box) const {
    return Sql::of(mskOffice_(box).Text());
}

std::int32_t OfficeFields::insert(ado::Connection& connection) const {
    const std::int32_t key = core::NextNumber(connection, "AdminOffice");
    connection.Execute("Insert into AdminOffice (AdminOfficeID,Name,Addr1,Addr2,City,State,Zip) values (" +
                       Sql::of(key) + ",'" + text(0) + "','" + text(1) + "','" + text(2) + "','" + text(3) + "','" +
                       Sql::of(dbcState_.Text()) + "','" + text(zipBox) + "')");
    return key;
}

void OfficeFields::update(ado::Connection& connection, std::int32_t office) const {
    connection.Execute("Update AdminOffice set Name = '" + text(0) + "', Addr1 = '" + text(1) + "', Addr2 = '" +
                       text(2) + "', City = '" + text(3) + "', State = '" + Sql::of(dbcState_.Text()) + "', Zip = '" +
                       text(zipBox) + "' Where AdminOfficeID = " + Sql::of(office));
}

} // namespace zel::incident
