#include "suite/dependents.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "ado/recordset.h"

#include <fmt/format.h>

namespace zel::suite {

using ado::Sql;

namespace {

struct Total {
    std::int64_t rows = 0;
    ado::Value sum;
};

Total total(ado::Connection& connection, const Sql& what, const Sql& from) {
    ado::Recordset row;
    row.Open("select count(*) as HowMany, " + what + " as Total from " + from, connection, ado::CursorType::Static,
             ado::LockType::ReadOnly);
    return {ado::toLong(row.value("HowMany")), row.value("Total")};
}

std::int64_t count(ado::Connection& connection, const Sql& from) {
    return total(connection, "max(0)", from).rows;
}

ado::Currency moneyOf(const Total& total) {
    return total.sum.isEmpty() ? ado::Currency() : ado::toCurrency(total.sum);
}

std::string money(ado::Currency amount) {
    return ado::format(ado::Value(amount), "$#,##0.00;($#,##0.00)");
}

std::string posted(std::int64_t postings, std::int64_t invoiced, const std::string& what) {
    return fmt::format("\t{}: {}, {} of them invoiced\r\n", what, postings, invoiced);
}

} // namespace

Dependents dependentsOf(ado::Connection& connection, const Scope& scope) {
    const Sql posts = "PersonsPost where PersonID in " + scope.persons;
    const Sql invoiced(" and InvoiceID is not null");
    const Total hours = total(connection, "sum(Hours)", posts);
    const Total debits = total(connection, "sum(Amt)", "PersonsDebit where PersonID in " + scope.persons);
    Dependents found;
    found.postings = hours.rows;
    found.hours = hours.sum.isEmpty() ? 0 : ado::toDouble(hours.sum);
    found.invoicedPostings = count(connection, posts + invoiced);
    found.debits = debits.rows;
    found.debitSum = moneyOf(debits);
    if (scope.personsOnly)
        return found;
    const Sql either = "(ResourceID in " + scope.resources + " or EquipmentID in " + scope.equipment + ")";
    const Total adjustments = total(connection, "sum(Amt)", "ContractorAdjustments where " + either);
    found.usePostings = count(connection, "ContractorPost where " + either);
    found.invoicedUsePostings = count(connection, "ContractorPost where " + either + invoiced);
    found.adjustments = adjustments.rows;
    found.adjustmentSum = moneyOf(adjustments);
    found.rateLines = count(connection, "UnitOfMeasure where " + either);
    return found;
}

std::string inWords(const Dependents& dependents) {
    std::string text;
    if (dependents.postings > 0) {
        text += fmt::format("\tPostings: {} with {} hours, {} of them invoiced\r\n", dependents.postings,
                            ado::format(ado::Value(dependents.hours), "#,##0.00"), dependents.invoicedPostings);
    }
    if (dependents.debits > 0)
        text += fmt::format("\tDebits: {}, together {}\r\n", dependents.debits, money(dependents.debitSum));
    if (dependents.usePostings > 0)
        text += posted(dependents.usePostings, dependents.invoicedUsePostings, "Equipment postings");
    if (dependents.adjustments > 0) {
        text +=
            fmt::format("\tAdjustments: {}, together {}\r\n", dependents.adjustments, money(dependents.adjustmentSum));
    }
    if (dependents.rateLines > 0)
        text += fmt::format("\tRate lines: {}\r\n", dependents.rateLines);
    return text.empty() ? "\tNo postings and no debits\r\n" : text;
}

} // namespace zel::suite
