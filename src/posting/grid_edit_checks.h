#pragma once

#include "ado/date_time.h"

#include <functional>
#include <string>
#include <string_view>

namespace zel::core {
class Session;
}
namespace zel::forms {
class TDBGrid;
}

namespace zel::posting {

/// Whether an edited start or stop may stand in a grid of persons' postings. Rounds both times, refuses what clashes
/// with other rows, offers to split what crosses midnight (which leaves gSplitDone for the grid's after-update), and
/// else works out hours and amount, hours over eight at one and a half.
[[nodiscard]] bool CheckPersonPostEdit(core::Session& session, forms::TDBGrid& grid);

/// What the split of an edited equipment row gets.
struct EquipSplit {
    ado::DateTime ActivityDT, Start, Stop;
    double Rate = 0;
    std::string Mode;
    std::string Guarantee;
};
using EquipSplitter = std::function<bool(const EquipSplit&)>;

/// The same for a row of the equipment grid, on its primary times or on the special ones for any other Mode. Units are
/// the hours; the amount has no threshold.
[[nodiscard]] bool CheckEquipPostEdit(core::Session& session, forms::TDBGrid& grid, std::string_view Mode,
                                      const EquipSplitter& split);

/// Whether a special code may stand in the row; works out hours and amount by it.
[[nodiscard]] bool checkSpecialCode(core::Session& session, forms::TDBGrid& grid, const std::string& code);

/// Whether a new class may stand in the row, and its rate: by hand for AD-5, else from the pay plan of the person's
/// area.
[[nodiscard]] bool fClassChanged(core::Session& session, forms::TDBGrid& grid, std::string_view area);

} // namespace zel::posting
