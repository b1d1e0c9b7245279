#pragma once

#include "printing/pages.h"
#include "tablon/columns.h"

#include <map>
#include <string>
#include <vector>

namespace zel::tablon {

/// What the layout of the time report shows beside the columns of its statement, one value for each row:
/// `PostKind`, the kind that was worked; `Amount`, what the posting adds to the amount of its column; `Position`, the
/// person's own kind in words.
///
/// An amount is hours times rate, rounded to cents for the column as a whole: the amounts of its postings are such that
/// they add up to it, so that every printed sum is the sum of the printed amounts.
void addTimeReportFields(printing::Rows& rows, const std::vector<Posting>& postings,
                         const std::map<std::string, std::string>& kinds);

/// Whether the rows show these postings as they are: each in the column, place, account, class and at the rate that the
/// posting has. Somebody may have written between the two readings.
[[nodiscard]] bool showsAsTheyAre(const printing::Rows& rows, const std::vector<Posting>& postings);

/// Hours times rate in cents, half a cent up.
[[nodiscard]] ado::Currency amountOf(double hours, ado::Currency rate);

} // namespace zel::tablon
