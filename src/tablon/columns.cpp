#include "tablon/columns.h"

#include "ado/connection.h"
#include "ado/convert.h"
#include "ado/recordset.h"
#include "tablon/request.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace zel::tablon {

namespace {

using ado::Sql;

/// The key of a column within a person's postings.
using ColumnKey = std::tuple<std::int32_t, std::int32_t, std::string, std::string, ado::Currency>;

ColumnKey keyOf(const Posting& posting) {
    return {posting.incident, posting.account, ado::upperCase(posting.kind), ado::upperCase(posting.personsClass),
            posting.rate};
}

/// Earlier work first. A posting that runs to midnight ends after every other; one without a stop comes first.
auto timeOf(const Posting& posting) {
    const double stop = posting.stop ? (*posting.stop == 0 ? 1.0 : *posting.stop) : 0.0;
    return std::tuple(posting.day, posting.start, stop, posting.id);
}

/// Places the postings of one person, which come in the order of their time.
void place(const Posting* first, const Posting* last, std::vector<Placing>& wrong) {
    // A column comes when it was first worked, but not before the others of an incident that came earlier.
    std::map<std::int32_t, std::vector<ColumnKey>> columnsOf;
    std::vector<std::int32_t> incidents;
    for (const Posting* posting = first; posting != last; ++posting) {
        auto& columns = columnsOf[posting->incident];
        if (columns.empty())
            incidents.push_back(posting->incident);
        if (std::ranges::find(columns, keyOf(*posting)) == columns.end())
            columns.push_back(keyOf(*posting));
    }
    std::map<ColumnKey, std::pair<std::int32_t, std::int32_t>> places; // column, rows in it
    for (const std::int32_t incident : incidents) {
        for (const ColumnKey& key : columnsOf[incident])
            places.emplace(key, std::pair(static_cast<std::int32_t>(places.size()) + 1, 0));
    }
    for (const Posting* posting = first; posting != last; ++posting) {
        auto& [column, rows] = places.at(keyOf(*posting));
        const Placing right{posting->id, column, ++rows};
        if (posting->column != right.column || posting->order != right.order)
            wrong.push_back(right);
    }
}

Sql peopleOf(const Request& request) {
    Sql people =
        "SELECT PersonsPost.PersonID FROM (PersonsPost INNER JOIN AccountingCodes ON "
        "PersonsPost.AccountingID = AccountingCodes.AccountingID) INNER JOIN Persons ON PersonsPost.PersonID = "
        "Persons.PersonID WHERE PersonsPost.PersonID > 0";
    if (request.whose == Whose::Person)
        people += " AND Persons.PersonID = " + Sql::of(request.key);
    if (request.whose == Whose::Resource)
        people += " AND Persons.ResourceID = " + Sql::of(request.key);
    if (!request.manageAll)
        people += " AND AccountingCodes.IncidentID = " + Sql::of(request.incident);
    return people;
}

std::optional<double> timeOfDay(const ado::Value& value) {
    if (value.isEmpty())
        return std::nullopt;
    return ado::toDateTime(value).time().serial();
}

std::optional<std::int32_t> whole(const ado::Value& value) {
    return value.isEmpty() ? std::nullopt : std::optional(ado::toLong(value));
}

Posting postingAt(const ado::Recordset& rows, std::int64_t position) {
    const auto value = [&](std::size_t field) { return rows.valueAt(position, field); };
    Posting posting;
    posting.id = ado::toLong(value(0));
    posting.person = ado::toLong(value(1));
    posting.incident = whole(value(2)).value_or(0);
    posting.account = ado::toLong(value(3));
    posting.kind = ado::trim(ado::toText(value(4)));
    posting.personsClass = ado::trim(ado::toText(value(5)));
    posting.rate = value(6).isEmpty() ? ado::Currency() : ado::toCurrency(value(6));
    posting.day = value(7).isEmpty() ? 0 : ado::toDateTime(value(7)).date().serial();
    posting.start = timeOfDay(value(8)).value_or(0);
    posting.stop = timeOfDay(value(9));
    posting.column = whole(value(10));
    posting.order = whole(value(11));
    return posting;
}

} // namespace

std::vector<Placing> misplaced(std::vector<Posting> postings) {
    std::ranges::sort(postings, [](const Posting& left, const Posting& right) {
        return std::tuple(left.person, timeOf(left)) < std::tuple(right.person, timeOf(right));
    });
    std::vector<Placing> wrong;
    const Posting* const end = postings.data() + postings.size();
    for (const Posting* first = postings.data(); first != end;) {
        const Posting* last =
            std::find_if(first, end, [first](const Posting& posting) { return posting.person != first->person; });
        place(first, last, wrong);
        first = last;
    }
    // Two runs that write at the same time take the rows in one order, so that neither waits for the other for ever.
    std::ranges::sort(wrong, {}, &Placing::id);
    return wrong;
}

std::vector<Posting> readPostings(ado::Connection& connection, const Request& request) {
    ado::Recordset rows;
    rows.Open("SELECT PersonsPost.PersonsPostID, PersonsPost.PersonID, AccountingCodes.IncidentID, "
              "PersonsPost.AccountingID, PersonsPost.KindCode, PersonsPost.Class, PersonsPost.Rate, "
              "PersonsPost.ActivityDT, PersonsPost.StartTime, PersonsPost.StopTime, PersonsPost.Column288, "
              "PersonsPost.RptOrder FROM PersonsPost INNER JOIN AccountingCodes ON PersonsPost.AccountingID = "
              "AccountingCodes.AccountingID WHERE PersonsPost.PersonID IN (" +
                  peopleOf(request) + ")",
              connection);
    std::vector<Posting> postings;
    for (std::int64_t position = 1; position <= rows.RecordCount(); ++position)
        postings.push_back(postingAt(rows, position));
    return postings;
}

std::vector<std::string> peopleWithoutAccount(ado::Connection& connection, const Request& request) {
    Sql statement = "SELECT Persons.LastName, Persons.FirstName, Count(*) AS HowMany FROM ((PersonsPost INNER JOIN "
                    "Persons ON PersonsPost.PersonID = Persons.PersonID) INNER JOIN Resources ON Persons.ResourceID = "
                    "Resources.ResourceID) LEFT JOIN AccountingCodes ON PersonsPost.AccountingID = "
                    "AccountingCodes.AccountingID WHERE AccountingCodes.AccountingID IS NULL";
    if (request.whose == Whose::Person)
        statement += " AND Persons.PersonID = " + Sql::of(request.key);
    if (request.whose == Whose::Resource)
        statement += " AND Persons.ResourceID = " + Sql::of(request.key);
    if (!request.manageAll)
        statement += " AND Resources.IncidentID = " + Sql::of(request.incident);
    statement += " GROUP BY Persons.PersonID, Persons.LastName, Persons.FirstName ORDER BY Persons.LastName, "
                 "Persons.FirstName, Persons.PersonID";
    ado::Recordset rows;
    rows.Open(statement, connection);
    std::vector<std::string> people;
    for (std::int64_t position = 1; position <= rows.RecordCount(); ++position)
        people.push_back(ado::toText(rows.valueAt(position, 0)) + ", " + ado::toText(rows.valueAt(position, 1)) + ": " +
                         ado::toText(rows.valueAt(position, 2)));
    return people;
}

void arrangeColumns(ado::Connection& connection, const Request& request) {
    ado::Engine& engine = connection.engine();
    engine.begin();
    try {
        for (const Placing& right : misplaced(readPostings(connection, request)))
            connection.Execute("UPDATE PersonsPost SET Column288 = " + Sql::of(right.column) +
                               ", RptOrder = " + Sql::of(right.order) + " WHERE PersonsPostID = " + Sql::of(right.id));
        engine.commit();
    } catch (...) {
        engine.rollback();
        throw;
    }
}

} // namespace zel::tablon
