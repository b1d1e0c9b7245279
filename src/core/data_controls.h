#pragma once

#include "ado/sql.h"

#include <string>
#include <string_view>

namespace zel::ado {
class Connection;
}
namespace zel::forms {
class Adodc;
class Form;
class TDBGrid;
} // namespace zel::forms

namespace zel::core {

/// Points the data controls of a screen at the open connection when it opens: those that still show another database,
/// or all with `gRefreshing`. The password goes with the connection text.
void RebindDataControls(forms::Form& form, ado::Connection& connection, const std::string& password, bool gRefreshing);

/// Opens the statement of the control anew in ascending order of `sort`, and the grid on it.
void RequeryDataControl(forms::Adodc& dataControl, forms::TDBGrid& grid, std::string_view sort);

/// Opens the statement of the control anew in that order (-1 ascending) with only the rows that meet the filter.
void ApplyFilterSort(forms::Adodc& dataControl, const ado::Sql& filter, std::string_view sort, int direction);

/// Whether there is an open record set, and with bTestEof a row one stands on or before.
[[nodiscard]] bool HasRows(const forms::Adodc& dataControl, bool bTestEof);

} // namespace zel::core
