#include "core/data_controls.h"

#include "ado/convert.h"
#include "core/modData.h"
#include "forms/adodc.h"
#include "forms/form.h"
#include "forms/tdb_grid.h"

namespace zel::core {

namespace {

void orderSource(forms::Adodc& dataControl, std::string_view sort, int direction) {
    if (!ado::trim(sort).empty())
        dataControl.setRecordSource(AddOrderBy(sort, dataControl.RecordSource(), direction));
}

} // namespace

void RebindDataControls(forms::Form& form, ado::Connection& connection, const std::string& password, bool gRefreshing) {
    const std::string text = connection.ConnectionString();
    for (forms::Control* control : form.controls()) {
        auto* const dataControl = dynamic_cast<forms::Adodc*>(control);
        if (dataControl == nullptr)
            continue;
        const bool elsewhere = dataControl->ConnectionString() != text || dataControl->connection() != &connection;
        if (!elsewhere && !gRefreshing)
            continue;
        dataControl->setConnection(connection);
        dataControl->setConnectionString(text);
        dataControl->setPassword(password);
        if (!dataControl->RecordSource().empty())
            dataControl->Refresh();
    }
}

void RequeryDataControl(forms::Adodc& dataControl, forms::TDBGrid& grid, std::string_view sort) {
    dataControl.Close();
    orderSource(dataControl, sort, -1);
    dataControl.Refresh();
    grid.ReBind();
    grid.Refresh();
}

void ApplyFilterSort(forms::Adodc& dataControl, const ado::Sql& filter, std::string_view sort, int direction) {
    orderSource(dataControl, sort, direction);
    if (dataControl.connection() == nullptr)
        return dataControl.Refresh();
    ado::Recordset records;
    records.Open(dataControl.RecordSource(), *dataControl.connection());
    records.setFilter(filter); // before a grid asks for the first row, so that no other rows are read
    dataControl.setRecordset(std::move(records));
}

bool HasRows(const forms::Adodc& dataControl, bool bTestEof) {
    return dataControl.isOpen() && !(bTestEof && dataControl.Recordset().EOF_());
}

} // namespace zel::core
