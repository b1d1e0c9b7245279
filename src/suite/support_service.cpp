#include "suite/support_service.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "ado/recordset.h"
#include "core/session.h"
#include "forms/dialogs.h"

#include <algorithm>
#include <optional>

namespace zel::suite {

using ado::Sql;

namespace {

std::optional<ado::DateTime> lastDay(core::Session& session, const Sql& statement) {
    ado::Recordset rows;
    rows.Open(statement, session.connection(), ado::CursorType::Static, ado::LockType::ReadOnly);
    const ado::Value day = rows.RecordCount() == 0 ? ado::Value() : rows.value(std::size_t{0});
    if (day.isEmpty() || !ado::isDate(day))
        return std::nullopt;
    return ado::toDateTime(day).date();
}

std::optional<ado::DateTime> lastPosting(core::Session& session, std::int32_t resource) {
    const Sql id = Sql::of(resource);
    const auto ofPersons = lastDay(session, "select max(ActivityDT) as LastDay from PersonsPost where PersonID in "
                                            "(select PersonID from Persons where ResourceID = " +
                                                id + ")");
    const auto ofResource =
        lastDay(session, "select max(ActivityDT) as LastDay from ContractorPost where ResourceID = " + id +
                             " or EquipmentID in (select EquipmentID from Equipment where "
                             "ResourceID = " +
                             id + ")");
    return std::max(ofPersons, ofResource);
}

std::string dayText(ado::DateTime day) {
    return ado::format(ado::Value(day), "mm/dd/yyyy");
}

} // namespace

bool SupportService::CheckReleaseDate(core::Session& session, std::int32_t resource, const std::string& releaseDate) {
    const auto released = ado::parseDateTime(releaseDate);
    const auto last = lastPosting(session, resource);
    if (!released || !last || released->date() >= *last)
        return true;
    session.dialogs.message("The release date " + dayText(*released) +
                                " lies before the last posting of this resource on " + dayText(*last) +
                                ".\r\nCorrect the date, or delete the postings first.",
                            session.title(": Release Date"), forms::Buttons::OK, forms::Icon::Exclamation);
    return false;
}

void SupportService::ShowSupport(core::Session& session) {
    session.dialogs.message("Please tell the person who looks after your database what you did and what you saw.\r\n"
                            "\r\nProgram version:\t" +
                                session.gAppVersion + "\r\nDatabase version:\t" + session.gDBVersion +
                                "\r\nKorvan build:\t" + session.gBuildVersion + "\r\nDatabase:\t" + session.gDBPath,
                            session.title(": Support"), forms::Buttons::OK, forms::Icon::Information);
}

} // namespace zel::suite
