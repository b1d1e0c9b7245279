#pragma once

#include "ado/catalog.h"

#include <string_view>
#include <vector>

namespace zel::ado::sql {

/// What the text of a worked-out column can be besides text.
struct ComputedKind {
    bool money = false, moment = false;

    ComputedKind& operator|=(const ComputedKind& other) noexcept {
        money = money || other.money;
        moment = moment || other.moment;
        return *this;
    }
};

inline constexpr ComputedKind anyKind{true, true};

/// Of each column of a SELECT, by the columns that its expression names, through views and subqueries: sum(Amt) may be
/// money, max(Remarks) is not, whatever somebody wrote there. Needed where an engine keeps money and moments as text
/// and does not say of an expression what it is made of. A name that cannot be traced may be anything; empty when the
/// columns cannot be counted off.
///
/// Takes text in the engine's words, where "Name" is a column.
[[nodiscard]] std::vector<ComputedKind> computedKinds(std::string_view select, const Catalog& catalog);

} // namespace zel::ado::sql
