#pragma once

#include <array>

namespace zel::personnel {

/// The numbers that the controls of one page of the person screen have in their arrays. Add and edit page show the same
/// fields; what else differs between them stands in functions that ask for the page.
struct Side {
    int page;   ///< of tabAE; also the number of tabPersDetail, mskCrew, cboAD and all arrays that just count the pages
    int status; ///< dbcStatus
    int kind;   ///< dbcKind
    int state;  ///< dbcState
    int firstName, lastName, ssn;            ///< mskPersonnel
    int initialEmployment, returnTravel;     ///< ckPayInfo
    int pointOfHire, currentRate;            ///< mskPayInfo
    int addr1, addr2, city, zip, phone, fax; ///< mskPersAddress
    int save;                                ///< cmdSave
};

inline constexpr std::array<Side, 2> sides{{
    {0, 1, 0, 0, 0, 2, 3, 0, 1, 1, 2, 0, 1, 2, 3, 4, 5, 1},
    {1, 3, 2, 2, 4, 6, 7, 4, 5, 4, 5, 6, 7, 8, 9, 10, 11, 3},
}};
inline constexpr const Side& addSide = sides[0];
inline constexpr const Side& editSide = sides[1];

/// A box that is written to its column as it stands.
struct PlainField {
    int Side::*index;
    const char* column;
};
/// Address boxes in the order they are written; the state stands between city and zip.
inline constexpr std::array<PlainField, 3> addressBeforeState{
    {{&Side::addr1, "MailAddr1"}, {&Side::addr2, "MailAddr2"}, {&Side::city, "City"}}};
inline constexpr std::array<PlainField, 3> addressBehindState{
    {{&Side::zip, "ZipCode"}, {&Side::phone, "Phone"}, {&Side::fax, "FaxPhone"}}};

} // namespace zel::personnel
