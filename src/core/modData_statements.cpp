#include "ado/convert.h"
#include "core/modData.h"

namespace zel::core {

using ado::Sql;

namespace {

constexpr std::string_view orderClause = " order by ";

bool holds(const Sql& statement, std::string_view lowerCaseText) {
    return statement.find(lowerCaseText) != std::string::npos;
}

/// A column of a list or grid as it is named in an ORDER BY.
std::string_view sortItems(std::string_view sort, const Sql& statement) {
    static constexpr std::string_view byNumber = "Left(RequestNumber, 1), dbo.f_SortRequestNumber(RequestNumber)";
    if (ado::equalIgnoringCase(sort, "RequestNumber"))
        return holds(statement, "resources.")
                   ? "Left(Resources.RequestNumber, 1), dbo.f_SortRequestNumber(Resources.RequestNumber)"
                   : byNumber;
    if (ado::equalIgnoringCase(sort, "PRequestNumber"))
        return byNumber;
    if (ado::equalIgnoringCase(sort, "KindCode")) {
        if (holds(statement, "qryselectpersonnel."))
            return "qrySelectPersonnel.KindCode";
        if (holds(statement, "persons."))
            return "Persons.KindCode";
    }
    if (ado::equalIgnoringCase(sort, "AgencyCode") && holds(statement, "resources."))
        return "Resources.AgencyCode";
    return sort;
}

} // namespace

Sql AddSelect(Sql source) {
    if ((" " + ado::lowerCase(source.text())).find(" select ") != std::string::npos)
        return source;
    return "SELECT * FROM  " + source;
}

Sql AddWhere(const Sql& condition, const Sql& statement) {
    if (ado::trim(condition.text()).empty())
        return statement;
    const bool conditional = holds(statement, " where ");
    const std::size_t order = statement.find(orderClause);
    if (order == std::string::npos)
        return statement + (conditional ? Sql(" AND  ") : Sql(" WHERE  ")) + condition;
    return statement.slice(0, order) + (conditional ? Sql(" AND ") : Sql(" WHERE ")) + condition +
           statement.slice(order);
}

Sql AddIncidentFilter(const Sql& statement, std::int32_t gIncidentID) {
    const Sql condition =
        (holds(statement, " where ") ? Sql(" AND IncidentID=") : Sql(" WHERE IncidentID=")) + Sql::of(gIncidentID);
    const std::size_t order = statement.find(orderClause);
    if (order == std::string::npos)
        return statement + condition + " ";
    return statement.slice(0, order) + condition + statement.slice(order);
}

Sql AddOrderBy(std::string_view sort, const Sql& statement, int direction) {
    const std::size_t order = statement.find(orderClause);
    const Sql unordered = order == std::string::npos ? statement : statement.slice(0, order);
    return unordered + " ORDER BY " + Sql::words(sortItems(sort, statement)) +
           (direction == -1 ? Sql(" ASC") : Sql(" DESC"));
}

} // namespace zel::core
