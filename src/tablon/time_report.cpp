#include "tablon/time_report.h"

#include "ado/convert.h"
#include "ado/error.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace zel::tablon {

namespace {

constexpr std::int64_t ticksPerCent = ado::Currency::ticksPerUnit / 100;

/// Where a field of the statement stands. The kind is there twice: that of the resource, then that of the person.
std::size_t indexOf(const printing::Rows& rows, std::string_view field, int occurrence = 1) {
    for (std::size_t column = 0; column < rows.fields.size(); ++column) {
        if (ado::equalIgnoringCase(rows.fields[column], field) && --occurrence == 0)
            return column;
    }
    throw ado::Error(ado::ErrorKind::State, ado::errors::itemNotFound,
                     "The report does not read the field '" + std::string(field) + "'.");
}

/// The amounts of the postings of one column after the other, each what the column's amount grows by.
class ColumnAmounts {
public:
    ado::Currency next(const std::string& column, double hours, ado::Currency rate) {
        if (column != column_)
            *this = ColumnAmounts(column);
        hours_ += hours;
        const ado::Currency before = amount_;
        amount_ = amountOf(hours_, rate);
        return amount_ - before;
    }
    ColumnAmounts() = default;

private:
    explicit ColumnAmounts(std::string column) : column_(std::move(column)) {}
    std::string column_;
    double hours_ = 0;
    ado::Currency amount_;
};

std::string inWords(const std::string& kind, const std::map<std::string, std::string>& kinds) {
    const auto known = kinds.find(ado::upperCase(kind));
    return known == kinds.end() ? kind : kind + " " + known->second;
}

} // namespace

bool showsAsTheyAre(const printing::Rows& rows, const std::vector<Posting>& postings) {
    std::unordered_map<std::int32_t, const Posting*> byId;
    for (const Posting& posting : postings)
        byId.emplace(posting.id, &posting);
    const std::size_t id = indexOf(rows, "PersonsPostID"), column = indexOf(rows, "Column288"),
                      order = indexOf(rows, "RptOrder"), account = indexOf(rows, "AccountingID"),
                      personsClass = indexOf(rows, "Class"), rate = indexOf(rows, "Rate");
    return std::ranges::all_of(rows.rows, [&](const std::vector<ado::Value>& row) {
        const auto found = byId.find(ado::toLong(row[id]));
        if (found == byId.end() || row[column].isEmpty() || row[order].isEmpty())
            return false;
        const Posting& posting = *found->second;
        return posting.column == ado::toLong(row[column]) && posting.order == ado::toLong(row[order]) &&
               posting.account == ado::toLong(row[account]) &&
               posting.personsClass == ado::trim(ado::toText(row[personsClass])) &&
               posting.rate == (row[rate].isEmpty() ? ado::Currency() : ado::toCurrency(row[rate]));
    });
}

ado::Currency amountOf(double hours, ado::Currency rate) {
    const double cents = hours * static_cast<double>(rate.ticks()) / ticksPerCent;
    // Half a cent that the binary fraction of the hours hides is still half a cent.
    constexpr double hidden = 1e-6;
    return ado::Currency::fromTicks(static_cast<std::int64_t>(std::floor(cents + 0.5 + hidden)) * ticksPerCent);
}

void addTimeReportFields(printing::Rows& rows, const std::vector<Posting>& postings,
                         const std::map<std::string, std::string>& kinds) {
    std::unordered_map<std::int32_t, const std::string*> kindOf;
    for (const Posting& posting : postings)
        kindOf.emplace(posting.id, &posting.kind);
    const std::size_t id = indexOf(rows, "PersonsPostID"), person = indexOf(rows, "PersonID"),
                      column = indexOf(rows, "Column288"), hours = indexOf(rows, "Hours"), rate = indexOf(rows, "Rate"),
                      position = indexOf(rows, "KindCode", 2);
    rows.fields.insert(rows.fields.end(), {"PostKind", "Amount", "Position"});
    ColumnAmounts amounts;
    for (std::vector<ado::Value>& row : rows.rows) {
        const auto kind = kindOf.find(ado::toLong(row[id]));
        row.emplace_back(kind == kindOf.end() ? std::string() : *kind->second);
        row.emplace_back(amounts.next(ado::toText(row[person]) + "/" + ado::toText(row[column]),
                                      row[hours].isEmpty() ? 0 : ado::toDouble(row[hours]),
                                      row[rate].isEmpty() ? ado::Currency() : ado::toCurrency(row[rate])));
        row.emplace_back(inWords(ado::toText(row[position]), kinds));
    }
}

} // namespace zel::tablon
