#include "suite/resource_deleter.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/failure.h"
#include "core/session.h"
#include "core/tools.h"
#include "forms/form_registry.h"
#include "suite/dependents.h"

#include <fmt/format.h>

#include <vector>

namespace zel::suite {

using ado::Sql;

namespace {

/// All or nothing: what was not committed is taken back.
class OneStep {
public:
    explicit OneStep(ado::Engine& engine) : engine_(engine) { engine_.begin(); }
    ~OneStep() {
        if (!done_)
            engine_.rollback();
    }
    OneStep(const OneStep&) = delete;
    OneStep& operator=(const OneStep&) = delete;
    void commit() {
        engine_.commit();
        done_ = true;
    }

private:
    ado::Engine& engine_;
    bool done_ = false;
};

// "12,13" as a bracketed list; empty when no key is in it.
Sql keyList(std::string_view keys, std::string_view separator) {
    Sql list;
    while (!keys.empty()) {
        const std::size_t end = separator.empty() ? std::string_view::npos : keys.find(separator);
        const auto key = static_cast<std::int32_t>(ado::numberAtHead(keys.substr(0, end)));
        if (key > 0)
            list += (list.empty() ? Sql("(") : Sql(",")) + Sql::of(key);
        keys.remove_prefix(end == std::string_view::npos ? keys.size() : end + separator.size());
    }
    return list.empty() ? list : list + ")";
}

Scope scopeOf(const Sql& resources, const Sql& persons) {
    Scope scope;
    scope.resources = resources;
    scope.equipment = "(select EquipmentID from Equipment where ResourceID in " + resources + ")";
    scope.personsOnly = !persons.empty();
    scope.persons =
        scope.personsOnly ? persons : "(select PersonID from Persons where ResourceID in " + resources + ")";
    return scope;
}

std::string names(core::Session& session, const Sql& statement) {
    constexpr std::int64_t shownNames = 10;
    ado::Recordset rows;
    rows.Open(statement, session.connection(), ado::CursorType::Static, ado::LockType::ReadOnly);
    std::string text;
    for (std::int64_t row = 1; row <= std::min(rows.RecordCount(), shownNames); ++row) {
        const std::string second = ado::toText(rows.valueAt(row, 1));
        text += "\t" + ado::toText(rows.valueAt(row, 0)) + (second.empty() ? "" : ", " + second) + "\r\n";
    }
    if (rows.RecordCount() > shownNames)
        text += fmt::format("\tand {} more\r\n", rows.RecordCount() - shownNames);
    return text;
}

bool ask(core::Session& session, const std::string& text, const std::string& titleTail) {
    forms::MessageBox box;
    box.text =
        text + "\r\nAll of it is deleted in one step and cannot be brought back.\r\n\r\nDo you want to continue?";
    box.title = session.title(titleTail);
    box.buttons = forms::Buttons::YesNo;
    box.icon = forms::Icon::Exclamation;
    box.defaultButton = 2;
    return session.dialogs.message(box) == forms::Answer::Yes;
}

using Statements = std::vector<Sql>;

void addPersons(Statements& statements, const Scope& scope) {
    for (const char* table : {"PersonsPost", "PersonsDebit", "PersonsInvoices", "Persons"})
        statements.push_back(Sql::words(fmt::format("delete from {} where PersonID in ", table)) + scope.persons);
}

void addResources(Statements& statements, const Scope& scope) {
    const Sql either = "(ResourceID in " + scope.resources + " or EquipmentID in " + scope.equipment + ")";
    for (const char* table : {"ContractorPost", "ContractorAdjustments", "UnitOfMeasure"})
        statements.push_back(Sql::words(fmt::format("delete from {} where ", table)) + either);
    statements.push_back("delete from EquipInvoices where EquipmentID in " + scope.equipment);
    for (const char* table : {"Equipment", "Resources"})
        statements.push_back(Sql::words(fmt::format("delete from {} where ResourceID in ", table)) + scope.resources);
}

// What is left behind by persons that went: an individual's own row goes too, a crew and a piece of equipment stay with
// one person less.
void addLeftovers(Statements& statements, const Scope& scope) {
    statements.push_back("delete from Resources where ResourceID in " + scope.resources +
                         " and (Collection is null or Collection <> 1) and not exists (select PersonID from Persons "
                         "where Persons.ResourceID = Resources.ResourceID) and not exists (select EquipmentID from "
                         "Equipment where Equipment.ResourceID = Resources.ResourceID)");
    statements.push_back("update Resources set NumberPersonnel = (select count(*) from Persons where "
                         "Persons.ResourceID = Resources.ResourceID) where ResourceID in " +
                         scope.resources);
}

// The cascade of the shell knows the tables of the whole suite, but not those that came with contracts and accounts.
void addIncidentsOwn(Statements& statements, const Scope& scope, const Sql& incident) {
    const Sql contractors = "(select ContractorID from Contractor where IncidentID = " + incident + ")";
    addPersons(statements, scope);
    const Sql either = "(ResourceID in " + scope.resources + " or EquipmentID in " + scope.equipment + ")";
    statements.push_back("delete from ContractorPost where " + either);
    statements.push_back("delete from ContractorAdjustments where " + either + " or ContractorID in " + contractors);
    statements.push_back("delete from UnitOfMeasure where " + either);
    statements.push_back("delete from EquipInvoices where EquipmentID in " + scope.equipment);
    statements.push_back("delete from Agreement where ContractorID in " + contractors);
    statements.push_back("delete from ReportRecords where IncidentID = " + incident);
    statements.push_back("delete from AccountingCodes where IncidentID = " + incident);
}

bool runAll(core::Session& session, const Statements& statements, const std::string& titleTail) {
    session.forms.setHourglass(true);
    const bool done = core::guarded(
        session,
        [&] {
            OneStep step(session.connection().engine());
            for (const Sql& statement : statements)
                session.connection().Execute(statement);
            step.commit();
        },
        titleTail);
    session.forms.setHourglass(false);
    return done;
}

} // namespace

bool ResourceDeleter::DeleteResources(core::Session& session, const std::string& resourceKeys,
                                      const std::string& personKeys, const std::string& separator) {
    static constexpr const char* title = ": Delete Resource";
    const Sql resources = keyList(resourceKeys, separator);
    const Sql persons = keyList(personKeys, separator);
    if (resources.empty())
        return false;
    bool deleted = false;
    core::guarded(
        session,
        [&] {
            const Scope scope = scopeOf(resources, persons);
            const std::string who =
                scope.personsOnly
                    ? names(session, "select LastName, FirstName from Persons where PersonID in " + persons)
                    : names(session, "select Name, RequestNumber from Resources where ResourceID in " + resources);
            const std::string what = inWords(dependentsOf(session.connection(), scope));
            if (who.empty() ||
                !ask(session, "This will be deleted:\r\n" + who + "\r\nwith all that hangs on it:\r\n" + what, title))
                return;
            Statements statements;
            addPersons(statements, scope);
            if (scope.personsOnly)
                addLeftovers(statements, scope);
            else
                addResources(statements, scope);
            deleted = runAll(session, statements, title);
        },
        title);
    return deleted;
}

void ResourceDeleter::DeleteIncident(core::Session& session, std::int32_t incident, bool& success) {
    static constexpr const char* title = ": Delete Incident";
    success = false;
    core::guarded(
        session,
        [&] {
            const Sql id = Sql::of(incident);
            const std::string who =
                incident < 1
                    ? std::string()
                    : names(session, "select IncidentName, IncidentNumber from Incidents where IncidentID = " + id);
            if (who.empty()) {
                session.dialogs.message("There is no incident to delete.", session.title(title), forms::Buttons::OK,
                                        forms::Icon::Information);
                return;
            }
            const Scope scope = scopeOf("(select ResourceID from Resources where IncidentID = " + id + ")", {});
            const std::string what = inWords(dependentsOf(session.connection(), scope));
            if (!ask(session,
                     "This incident will be deleted with all its people, crews, contracts and accounts:\r\n" + who +
                         "\r\nOn them hang:\r\n" + what,
                     title))
                return;
            Statements statements;
            addIncidentsOwn(statements, scope, id);
            for (const Sql& statement : core::deleteIncidentStatements(incident))
                statements.push_back(statement);
            success = runAll(session, statements, title);
        },
        title);
}

} // namespace zel::suite
