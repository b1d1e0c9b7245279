#include "core/tools.h"

#include "ado/format.h"
#include "core/failure.h"
#include "core/lists.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "forms/label.h"
#include "platform/clock.h"

#include <fmt/format.h>

namespace zel::core {

using ado::Sql;

namespace {

constexpr int questions = 3;

bool sureToErase(Session& session) {
    for (int counter = 1; counter <= questions; ++counter) {
        forms::MessageBox box;
        box.text = "All Incident, Personnel, Crew, Contract and Debit data\r\n"
                   "and all Posting information will be completely erased.\r\n\r\n"
                   "This action *Cannot* be undone.\r\n\r\n"
                   "Are you sure you want to continue?  " +
                   fmt::format("   ({})", counter);
        box.title = session.title(": WARNING!");
        box.buttons = forms::Buttons::YesNo;
        box.icon = forms::Icon::Critical;
        box.defaultButton = 2;
        if (session.dialogs.message(box) != forms::Answer::Yes)
            return false;
    }
    return true;
}

struct Removal {
    const char* status; // null leaves the text of the one before
    const char* statement;
};

// Written for the desktop dialect, whatever the database.
constexpr Removal removals[] = {
    {"Removing Incident Records.", "DELETE * FROM Incidents;"},
    {"Removing Contractor Records.", "DELETE * FROM Contractor;"},
    {"Removing Contractor Debit Records.", "DELETE * FROM ContractorDebit;"},
    {"Removing Agreement Records.", "DELETE * FROM Agreement;"},
    {"Removing Equipment Records.", "DELETE * FROM Equipment;"},
    {"Removing Equipment Post Records.", "DELETE * FROM EquipmentPost;"},
    {"Removing Equipment UOM Records.", "DELETE * FROM EquipmentUOM;"},
    {"Removing Personnel Debit Records.", "DELETE * FROM PersonsDebit;"},
    {"Removing Personnel Post Records.", "DELETE * FROM PersonsPost;"},
    {"Removing Personnel Records.", "DELETE * FROM Persons;"},
    {"Removing Resource Records.", "DELETE * FROM Resources;"},
    {nullptr, "DELETE * FROM ReportRecords;"},
};

// "delete from <table> where <key> in (select <key> from <owner> where resourceid in (...))"
Sql ofOwner(const char* table, const char* key, const char* owner, const Sql& resources) {
    return Sql::words(fmt::format("delete from {} where {} in (select {} from {} where resourceid in ", table, key, key,
                                  owner)) +
           resources + Sql(")");
}

Sql ofResources(const char* table, const char* key, const Sql& resources) {
    return Sql::words(fmt::format("delete from {} where {} in ", table, key)) + resources;
}

Sql ofIncident(const char* words, const Sql& id) {
    return Sql::words(words) + id;
}

Sql ofGroup(const char* table, const char* key, const char* group, const Sql& id) {
    return Sql::words(fmt::format("delete from {} where {} in (select {} from {} where incidentid = ", table, key, key,
                                  group)) +
           id + Sql(")");
}

} // namespace

void BackupDatabase(Session& session) {
    // The pseudo path of a server names no file: there the backup is the server's own affair.
    const std::string target =
        folderOf(session.gDBPath) + ado::format(ado::Value(session.clock.Now()), "yyyy-mm-dd.hh.nn.ss") + ".mdb";
    try {
        session.suite.copyDatabase(session.gDBPath, target);
    } catch (const std::exception& failure) {
        writeLog(session, std::string("Backup failed: ") + failure.what());
    }
}

void EraseDatabase(Session& session, forms::Label& status) {
    if (!sureToErase(session))
        return;
    for (const Removal& removal : removals) {
        if (removal.status != nullptr)
            status.setCaption(removal.status);
        session.DoEvents();
        session.connection().Execute(removal.statement);
    }
    status.setCaption("Reloading database.");
    session.gIncidentID = 0;
    SelectIncident(session, -1);
}

std::vector<Sql> deleteIncidentStatements(std::int32_t incident) {
    const Sql id = Sql::of(incident);
    const Sql resources = "(select resourceid from resources where incidentid = " + id + ")";
    return {
        ofOwner("personsdebit", "personid", "persons", resources),
        ofOwner("personspost", "personid", "persons", resources),
        ofResources("persons", "resourceid", resources),
        ofOwner("equipmentpost", "equipmentid", "equipment", resources),
        ofOwner("contractordebit", "equipmentid", "equipment", resources),
        ofOwner("equipmentuom", "equipmentid", "equipment", resources),
        ofResources("equipment", "resourceid", resources),
        ofResources("agreement", "contractorid", resources),
        ofIncident("delete * from contractor where incidentid = ", id),
        ofResources("quals", "resourceid", resources),
        ofResources("daily", "resourceid", resources),
        ofResources("airday", "resourceid", resources),
        ofGroup("ics204_resources", "ics204_id", "ics204", id),
        ofIncident("delete from ics204 where incidentid = ", id),
        ofGroup("projection", "projectiongroupid", "projectiongroup", id),
        ofIncident("delete from projectiongroup where incidentid = ", id),
        ofIncident("delete from acres where incidentid = ", id),
        ofIncident("delete from division where incidentid = ", id),
        ofIncident("delete * from resources where incidentid = ", id),
        ofIncident("delete * from incidents where incidentid = ", id),
    };
}

bool DeleteIncident(Session& session, std::int32_t incident) {
    session.forms.setHourglass(true);
    bool deleted = true;
    try {
        for (const Sql& statement : deleteIncidentStatements(incident))
            session.connection().Execute(statement);
    } catch (const std::exception&) {
        const Failure failure = currentFailure();
        session.dialogs.message(fmt::format("Num: {} Desc: {}", failure.number, failure.description),
                                session.title(": Error"));
        deleted = false;
    }
    session.forms.setHourglass(false);
    return deleted;
}

} // namespace zel::core
