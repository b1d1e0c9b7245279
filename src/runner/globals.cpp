#include "runner/globals.h"

#include "ado/convert.h"
#include "core/session.h"
#include "runner/command_error.h"
#include "runner/lists.h"

#include <fmt/format.h>

#include <functional>

namespace zel::runner {

namespace {

using core::Session;

struct Global {
    std::string_view name;
    std::function<Json(const Session&)> value;
};

template <typename T>
Json toJson(const T& member) {
    if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::string> || std::is_same_v<T, ado::Value>)
        return Json(member);
    else if constexpr (std::is_same_v<T, forms::ValueArray>)
        return listRows(member);
    else
        return Json(std::int64_t{member});
}

template <typename T>
Global global(std::string_view name, T Session::*member) {
    return {name, [member](const Session& session) { return toJson(session.*member); }};
}

const std::vector<Global>& globalTable() {
    static const std::vector<Global> table = {
        global("gServerDialect", &Session::gServerDialect),
        {"gConnection",
         [](const Session& s) { return Json(s.gConnection ? s.gConnection->State() : ado::stateClosed); }},
        global("gDBPath", &Session::gDBPath),
        global("gIniPath", &Session::gIniPath),
        global("gServerName", &Session::gServerName),
        global("gCatalogName", &Session::gCatalogName),
        global("gConnectResult", &Session::gConnectResult),
        global("gAppVersion", &Session::gAppVersion),
        global("gDBVersion", &Session::gDBVersion),
        global("gBuildVersion", &Session::gBuildVersion),
        global("gMinDBVersion", &Session::gMinDBVersion),
        global("gIncidentID", &Session::gIncidentID),
        global("gIncidentIndex", &Session::gIncidentIndex),
        global("gAccountingID", &Session::gAccountingID),
        global("gIncidentStart", &Session::gIncidentStart),
        global("gCurrentPersonID", &Session::gCurrentPersonID),
        global("gCurrentResourceID", &Session::gCurrentResourceID),
        global("gCurrentContractorID", &Session::gCurrentContractorID),
        global("gCurrentAgreementID", &Session::gCurrentAgreementID),
        global("gLastSaved", &Session::gLastSaved),
        global("gRefreshing", &Session::gRefreshing),
        global("gManageAll", &Session::gManageAll),
        global("gFirstOpen", &Session::gFirstOpen),
        global("gPickCancelled", &Session::gPickCancelled),
        global("gRequestCats", &Session::gRequestCats),
        global("PreLoad", &Session::PreLoad),
        global("Loading", &Session::Loading),
        global("Working", &Session::Working),
        global("Reloading", &Session::Reloading),
        global("Unloading", &Session::Unloading),
        global("Validating", &Session::Validating),
        {"TimeChanged",
         [](const Session& s) {
             return Json(Json::Array{s.TimeChanged[0], s.TimeChanged[1]});
         }},
        global("KillT", &Session::KillT),
        global("vYNMS", &Session::vYNMS),
        global("vYNMSa", &Session::vYNMSa),
        global("vYNMSc", &Session::vYNMSc),
        global("gInvoiceDate", &Session::gInvoiceDate),
        global("gHireDate", &Session::gHireDate),
        global("gSplitDone", &Session::gSplitDone),
        global("gCrewPosting", &Session::gCrewPosting),
        global("gEquipTabOpen", &Session::gEquipTabOpen),
        global("gContractType", &Session::gContractType),
        global("gScanPort", &Session::gScanPort),
        global("gScanBuffer", &Session::gScanBuffer),
        global("gLogFolder", &Session::gLogFolder),
        global("mvarUserID", &Session::mvarUserID),
        global("ErrMsg", &Session::ErrMsg),
        global("UpdFlag", &Session::UpdFlag),
        global("UpdIndex", &Session::UpdIndex),
        global("lMergeID", &Session::lMergeID),
        global("IsOnTimer", &Session::IsOnTimer),
        global("gAccountList", &Session::gAccountList),
        global("gKindList", &Session::gKindList),
        global("gStateList", &Session::gStateList),
        global("gIncidentList", &Session::gIncidentList),
        global("gStatusList", &Session::gStatusList),
        global("gAgencyList", &Session::gAgencyList),
        global("gAreaList", &Session::gAreaList),
        global("gClassList", &Session::gClassList),
        global("gRateTypeList", &Session::gRateTypeList),
        global("gPostableList", &Session::gPostableList),
    };
    return table;
}

} // namespace

Json allGlobals(const Session& session) {
    Json all(Json::Object{});
    for (const auto& one : globalTable())
        all.set(std::string(one.name), one.value(session));
    return all;
}

Json globalValue(const Session& session, std::string_view name) {
    for (const auto& one : globalTable()) {
        if (ado::equalIgnoringCase(one.name, name))
            return one.value(session);
    }
    throw CommandError(fmt::format("there is no global {}", name));
}

} // namespace zel::runner
