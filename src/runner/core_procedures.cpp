#include "ado/convert.h"
#include "core/database_version.h"
#include "core/lists.h"
#include "core/open_database.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "runner/command_error.h"
#include "runner/lists.h"
#include "runner/procedures.h"
#include "runner/spelling.h"
#include "services/list_rows.h"
#include "services/text_file.h"

namespace zel::runner {

namespace {

core::RateLinesOf rateLinesOf(const Call& call, std::size_t index) {
    core::RateLinesOf of;
    if (call.arguments.size() <= index)
        return of;
    if (ado::equalIgnoringCase(call.text(index), "ResourceID"))
        of.key = core::RateLinesOf::Key::ResourceID;
    else if (!ado::equalIgnoringCase(call.text(index), "EquipmentID"))
        throw CommandError("rate lines belong to an EquipmentID or a ResourceID");
    of.id = call.number(index + 1);
    return of;
}

forms::ValueArray loadedList(const Call& call, std::size_t first) {
    forms::ValueArray list;
    core::LoadList(call.session, call.flagOr(first + 1, false), list, call.number(first), rateLinesOf(call, first + 2));
    return list;
}

void loadList(Call& call) {
    const auto list = loadedList(call, 0);
    Json columns(Json::Array{});
    for (const auto& name : list.columnNames())
        columns.append(spelledName(name));
    call.result = listRows(list);
    call.byref.set("columns", std::move(columns));
    call.byref.set("gListColumns", call.session.gListColumns);
    call.byref.set("gListRows", call.session.gListRows);
}

void findListRow(Call& call) {
    auto list = loadedList(call, 2);
    call.result = services::FindListRow(list, call.number(1), call.text(0));
}

void selectIncident(Call& call) {
    call.result = std::int64_t{core::SelectIncident(call.session, call.numberOr(0, -1))};
    call.byref.set("gIncidentID", std::int64_t{call.session.gIncidentID});
    call.byref.set("gIncidentIndex", std::int64_t{call.session.gIncidentIndex});
    call.byref.set("gAccountingID", std::int64_t{call.session.gAccountingID});
}

void loadRequestCats(Call& call) {
    core::LoadRequestCats(call.session);
    call.result = call.session.gRequestCats;
}

void getVersion(Call& call) {
    core::GetVersion(call.session);
    call.result = call.session.gDBVersion;
}

void getBuildVersion(Call& call) {
    core::GetBuildVersion(call.session);
    call.result = call.session.gBuildVersion;
}

/// With a version, that of the open database is left out of account.
void isOldDatabase(Call& call) {
    const auto present = call.session.gDBVersion;
    call.session.gDBVersion = call.textOr(0, present);
    call.result = core::IsOldDatabase(call.session);
    call.session.gDBVersion = present;
}

void isDbError(Call& call) {
    call.result = core::IsDbError(call.number(0));
}

void fixPath(Call& call) {
    call.result = core::FixPath(call.text(0));
}

void iniGet(Call& call) {
    call.result = core::IniGet(call.session.files, call.text(0), call.text(1), call.text(2), call.textOr(3, ""));
}

void iniPut(Call& call) {
    call.result = core::IniPut(call.session.files, call.text(0), call.text(1), call.text(2), call.text(3));
}

void getSetting(Call& call) {
    call.result = core::GetSetting(call.session, call.text(0));
}

void saveSetting(Call& call) {
    core::SaveSetting(call.session, call.text(0), call.text(1));
}

void readTextFile(Call& call) {
    call.result = services::ReadTextFile(call.session.files, call.text(0));
}

void setWorking(Call& call) {
    core::SetWorking(call.session, call.arguments.empty() ? std::optional<bool>() : call.flag(0));
    call.result = call.session.Working;
}

void isFormLoaded(Call& call) {
    call.result = core::IsFormLoaded(call.session, call.text(0));
}

} // namespace

void addCoreProcedures(Procedures& table) {
    table.push_back({"LoadList", "number [forIncident] [EquipmentID|ResourceID id]", 1, 4, loadList});
    table.push_back(
        {"FindListRow", "value column number [forIncident] [EquipmentID|ResourceID id]", 3, 6, findListRow});
    table.push_back({"SelectIncident", "[incident]", 0, 1, selectIncident});
    table.push_back({"LoadRequestCats", "", 0, 0, loadRequestCats});
    table.push_back({"GetVersion", "", 0, 0, getVersion});
    table.push_back({"GetBuildVersion", "", 0, 0, getBuildVersion});
    table.push_back({"IsOldDatabase", "[version]", 0, 1, isOldDatabase});
    table.push_back({"IsDbError", "number", 1, 1, isDbError});
    table.push_back({"FixPath", "folder", 1, 1, fixPath});
    table.push_back({"IniGet", "file section key [default]", 3, 4, iniGet});
    table.push_back({"IniPut", "file section key value", 4, 4, iniPut});
    table.push_back({"GetSetting", "key", 1, 1, getSetting});
    table.push_back({"SaveSetting", "key value", 2, 2, saveSetting});
    table.push_back({"ReadTextFile", "file", 1, 1, readTextFile});
    table.push_back({"SetWorking", "[on]", 0, 1, setWorking});
    table.push_back({"IsFormLoaded", "name", 1, 1, isFormLoaded});
}

} // namespace zel::runner
