#pragma once

#include "ado/currency.h"
#include "ado/sql.h"

#include <cstdint>
#include <string>

namespace zel::ado {
class Connection;
}

namespace zel::suite {

/// Which rows a delete is about, as conditions on the keys.
struct Scope {
    /// For columns `PersonID`, `ResourceID`, `EquipmentID` behind "in ": a bracketed list or select.
    ado::Sql persons, resources, equipment;
    /// Nothing but the persons goes.
    bool personsOnly = false;
};

/// What hangs on the persons and equipment of a scope.
struct Dependents {
    std::int64_t postings = 0, invoicedPostings = 0;
    double hours = 0;
    std::int64_t debits = 0;
    ado::Currency debitSum;
    std::int64_t usePostings = 0, invoicedUsePostings = 0;
    std::int64_t adjustments = 0;
    ado::Currency adjustmentSum;
    std::int64_t rateLines = 0;
};

[[nodiscard]] Dependents dependentsOf(ado::Connection& connection, const Scope& scope);

/// One line for each kind that there is, each with a line end; a sentence when there is nothing.
[[nodiscard]] std::string inWords(const Dependents& dependents);

} // namespace zel::suite
