#pragma once

#include "ado/currency.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zel::ado {
class Connection;
}

namespace zel::tablon {

struct Request;

/// A posting as far as the columns of the time report are concerned. Times are parts of a day; a stop of 0 is midnight.
struct Posting {
    std::int32_t id = 0, person = 0, incident = 0, account = 0;
    std::string kind, personsClass;
    ado::Currency rate;
    double day = 0, start = 0;
    std::optional<double> stop;
    std::optional<std::int32_t> column, order;
};

/// Where a posting has to go.
struct Placing {
    std::int32_t id = 0, column = 0, order = 0;
};

/// The postings that do not stand where they belong. A person's columns are counted from 1: one for each incident,
/// account, kind, class and rate, in the order in which they were first worked, those of one incident side by side.
/// Rows of a column are counted in the order of their time.
[[nodiscard]] std::vector<Placing> misplaced(std::vector<Posting> postings);

/// All postings of everyone whom the report would show, those on other incidents' accounts too, so that a posting's
/// column does not depend on what is printed.
[[nodiscard]] std::vector<Posting> readPostings(ado::Connection& connection, const Request& request);

/// Brings the columns and the order of these people's postings up to date, all or none. Only what differs is written.
void arrangeColumns(ado::Connection& connection, const Request& request);

/// "LAST, FIRST: 2" for everyone with postings whose account code is not there any more, or was never set.
[[nodiscard]] std::vector<std::string> peopleWithoutAccount(ado::Connection& connection, const Request& request);

} // namespace zel::tablon
