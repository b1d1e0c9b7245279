#pragma once

#include "core/test_program.h"
#include "personnel/frmPersonnel.h"
#include "personnel/personnel_forms.h"

#include "support/rows.h"

namespace zel::personnel {

/// A whole program with the person screen open on an incident that has two account codes, on both engines.
class PersonnelTest : public core::ProgramTest {
protected:
    static constexpr int incident = 7, account = 31, otherAccount = 32;

    PersonnelTest() {
        addPersonnelForms(session);
        program.addIncident(incident, "BEAR CREEK", "OR-ABC-000123");
        program.addAccount(account, incident, "P6AB12");
        program.execute("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode, IncidentDefault) "
                        "values (32, 7, 'P6ZZ99', 0)");
    }

    frmPersonnel& open() {
        program.start(GetParam() == ado::EngineKind::Sqlite ? "False" : "");
        program.run([this] { program.shell().OpenScreen("Personnel", true, 0); });
        program.statements.clear();
        return screen();
    }
    frmPersonnel& screen() { return *program.forms.get<frmPersonnel>("frmPersonnel"); }

    /// A person past the program: the pair of rows with PersonID and ResourceID `id`.
    void addRows(int id, const std::string& lastName, const std::string& more = "", const std::string& values = "",
                 const std::string& request = "O-", int inIncident = incident) {
        const std::string key = std::to_string(id);
        const std::string number = request.size() > 2 ? request : request + key;
        program.execute("insert into Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode, Status, "
                        "AccountingID, NumberPersonnel, ContractedResource, ParentID) values (" +
                        key + ", " + std::to_string(inIncident) + ", '" + lastName + "', '" + number +
                        "', 'SAFE', 'C', 31, 1, 0, 0)");
        program.execute("insert into Persons (PersonID, ResourceID, FirstName, LastName, RequestNumber, KindCode, "
                        "PStatus, AccountingID" +
                        more + ") values (" + key + ", " + key + ", 'JOHN', '" + lastName + "', '" + number +
                        "', 'SAFE', 'C', 31" + values + ")");
    }

    void type(forms::Control& box, const std::string& text) { EXPECT_EQ(program.user.type(box, text).refusal, ""); }
    void pick(forms::Control& box, const std::string& text) { EXPECT_EQ(program.user.pick(box, text).refusal, ""); }
    void click(forms::Control& button) { EXPECT_EQ(program.user.click(button).refusal, ""); }
    void leave(forms::Control& box) { EXPECT_EQ(program.user.leave(box).refusal, ""); }
    void page(int number) { EXPECT_EQ(program.user.selectTab(screen().tabAE, number).refusal, ""); }
    void payPage(const Side& side) {
        EXPECT_EQ(program.user.selectTab(screen().tabPersDetail(side.page), 1).refusal, "");
    }
    void choose(const std::string& nameBegins) {
        page(1);
        forms::TDBCombo& list = screen().dbcPersonnel;
        const auto row = list.findPrefix(nameBegins);
        ASSERT_GE(row, 0);
        EXPECT_EQ(program.user.pickRow(list, row).refusal, "");
    }
    /// All that a save asks for, but for employment type FED.
    void fillAdd(const std::string& lastName = "DOE") {
        frmPersonnel& form = screen();
        type(form.mskCrew(0), "O-12");
        type(form.mskPersonnel(0), "jane");
        type(form.mskPersonnel(2), lastName);
        pick(form.dbcKind(0), "SAFE");
        pick(form.dbcStatus(1), "Checked In");
        type(form.cboAD(0), "f");
    }
    void save(const Side& side) { click(screen().cmdSave(side.save)); }

    /// Past the program, see rowsOf.
    std::vector<std::string> rows(const std::string& statement) {
        return test::rowsOf(program.database.connection(), statement);
    }
};

} // namespace zel::personnel
