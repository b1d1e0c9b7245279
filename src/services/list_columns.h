#pragma once

#include "forms/value_array.h"

#include <string>

namespace zel::forms {
class RowList;
class TDBCombo;
class TextEdit;
} // namespace zel::forms

namespace zel::services {

/// Gives the control the columns of a list by its number (1 to 11; any other leaves it without), binds the list and
/// chooses no row. `bForIncident` leaves the incident's name out of list 1.
void SetListColumns(forms::RowList& control, forms::ValueArray& list, int listNumber, bool bForIncident);

/// Shows the list anew.
void RebindList(forms::RowList& control);
/// The same with the chosen row kept by its bound value; the text is empty when that row is gone or none was chosen.
void RebindKeepSelection(forms::TDBCombo& control);
/// The bound value of the chosen row, "" without one.
[[nodiscard]] std::string SelectedValue(const forms::RowList& control);

/// Type-ahead, called with each key: the first row whose column begins with the typed text is put into the box, the
/// part not typed marked and the list opened. A key after which no row would match is taken back.
void AutoCompleteCombo(forms::TDBCombo& control, int& keyAscii, const forms::ValueArray& list, int column);

/// a to z become upper case.
void UpperKey(int& keyAscii) noexcept;

void SelectAllText(forms::TextEdit& box);
/// Locks the box in the look of a disabled field.
void SetReadOnlyStyle(forms::TextEdit& box, bool bOn);

} // namespace zel::services
