#pragma once

#include "ado/sql.h"

#include <string>

namespace zel::core {
class Session;
}

namespace zel::forms {
class ComboBox;
class Form;
class TDBGrid;
using Bookmark = std::int64_t;
} // namespace zel::forms

namespace zel::services {

/// Sets how a column is typed and shown by the type of its field (see text_rules.h); a type of its own takes mask and
/// format as given. In a time column the end of the day is typed and shown as "24:00".
void SetColumnFormat(forms::TDBGrid& grid, int column, int type, const std::string& mask = {},
                     const std::string& format = {});

/// Shows status codes as their descriptions; `bPostable` leaves only those in which time may be posted.
void FillStatusCombo(core::Session& session, forms::TDBGrid& grid, int column, bool bPostable);
/// Offers the first column of a statement, the second beside it; `bBlank` adds a blank row in front of a list that is
/// not empty.
void FillValueColumn(core::Session& session, const ado::Sql& statement, forms::TDBGrid& grid, int column, bool bBlank);
/// Shows the first column of a statement as the second.
void FillTranslateColumn(core::Session& session, const ado::Sql& statement, forms::TDBGrid& grid, int column);

/// What the list of special codes is for: hazard pay ("HP") is not for individuals of employment type AD.
enum class PremiumKind { Persons = 0, Crews = 1 };
/// Fills the list with the special codes, a blank row at its end. `FedCode` is that of the selected row.
void FillPremiumList(core::Session& session, forms::ComboBox& list, PremiumKind kind, const std::string& FedCode);

/// Heads that can be pressed and columns that can be sized, in every list and grid of the form.
void SetGridStyle(forms::Form& form);

/// The place of a row among the selected ones, -1 when it is not.
[[nodiscard]] int SelectedRow(const forms::TDBGrid& grid, forms::Bookmark row);

} // namespace zel::services
