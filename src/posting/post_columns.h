#pragma once

namespace zel::forms {
class TDBGrid;
}

namespace zel::posting {

/// Columns of the grids of postings of persons, which the person and the crew page share.
namespace post_column {
inline constexpr int PersonsPostID = 0, CollectionPostID = 1, PersonID = 2, Date = 3, Start = 4, Stop = 5, KindCode = 6,
                     Class = 7, Rate = 8, Special = 9, Hours = 10, Amt = 11, Remarks = 12, Column288 = 13,
                     RptOrder = 14, AccountingID = 15, InvoiceID = 16;
}

/// Gives a grid these columns with their formats.
void addPersonPostColumns(forms::TDBGrid& grid);
/// Columns of the grid of postings of equipment: one row has a primary and a special part.
void addEquipmentPostColumns(forms::TDBGrid& grid);

} // namespace zel::posting
