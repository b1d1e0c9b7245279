#pragma once

#include "core/test_program.h"
#include "posting/frmPost.h"
#include "posting/posting_forms.h"
#include "support/rows.h"

#include <string>
#include <vector>

namespace zel::posting {

/// The posting screen on an incident with one AD person, one FED person and one without an employment code.
class PostScreenTest : public core::ProgramTest {
protected:
    PostScreenTest() {
        addPostingForms(session);
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123"); // starts 7/1/2005
        program.addAccount(31, 7, "P6AB12");
        person(1, "DOE", "AD", "AD-3", "18.20", "31");
        person(2, "ROE", "FED", "", "0", "0");
        person(3, "NOCODE", "", "", "0", "31");
        program.start(GetParam() == ado::EngineKind::Sqlite ? "False" : "");
        program.run([this] { program.shell().OpenScreen("Post Time", true, 0); });
        program.dialogs.take();
        program.statements.clear();
    }
    void person(int id, const std::string& name, const std::string& code, const std::string& Class,
                const std::string& rate, const std::string& account) {
        const std::string key = std::to_string(id);
        program.execute("insert into Resources (ResourceID,IncidentID,RequestNumber,Name,KindCode,Status) values (" +
                        key + ",7,'O-" + key + "','" + name + "','SITL','C')");
        program.execute("insert into Persons (PersonID,ResourceID,FirstName,LastName,SSN,PStatus,FedCode,KindCode,Area,"
                        "Class,Rate,AccountingID) values (" +
                        key + "," + key + ",'JOHN','" + name + "','123456789','C','" + code + "','FFT1','CONUS','" +
                        Class + "'," + rate + "," + account + ")");
    }
    frmPost& screen() { return *program.forms.get<frmPost>("frmPost"); }
    void choose(const std::string& name) {
        forms::TDBCombo& list = screen().dbcPersonnel;
        const auto row = list.findPrefix(name);
        ASSERT_GE(row, 0) << name;
        EXPECT_EQ(program.user.pickRow(list, row).refusal, "");
    }
    void type(forms::Control& box, const std::string& text) { EXPECT_EQ(program.user.type(box, text).refusal, ""); }
    void ticket(const std::string& date, const std::string& start, const std::string& stop) {
        type(screen().mskPost(0), date);
        type(screen().cboTime(0), start);
        type(screen().cboTime(1), stop);
        EXPECT_EQ(program.user.leave(screen().cboTime(1)).refusal, "");
    }
    void save() { EXPECT_EQ(program.user.click(screen().cmdSave(0)).refusal, ""); }
    std::vector<std::string> rows(const std::string& statement) {
        return test::rowsOf(program.database.connection(), statement);
    }
    std::vector<std::string> posts() {
        return rows("Select PersonID,ActivityDT,StartTime,StopTime,KindCode,PremiumCode,Hours,AccountingID from "
                    "PersonsPost order by PersonsPostID");
    }
    void invoice(const std::string& lastDate) {
        program.execute("insert into PersonsInvoices (InvoiceID,PersonID,LastDate,Del) values (1,1,'" + lastDate +
                        "',0)");
    }
};

/// The same with two posts of DOE in the grid: the first is invoiced, the second is free.
class PostGridScreenTest : public PostScreenTest {
protected:
    PostGridScreenTest() {
        program.execute(
            "insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,KindCode,Class,Rate,"
            "PremiumCode,Hours,Amt,AccountingID,InvoiceID,FinalCol) values (50,1,'7/3/2005','1899-12-30 "
            "08:00:00','1899-12-30 12:00:00','FFT1','AD-3',20,' ',4,0,31,9,0)");
        program.execute(
            "insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,KindCode,Class,Rate,"
            "PremiumCode,Hours,Amt,AccountingID,FinalCol) values (51,1,'7/4/2005','1899-12-30 "
            "08:00:00','1899-12-30 12:00:00','FFT1','AD-3',20,' ',4,0,31,0)");
        choose("DOE");
    }
    forms::TDBGrid& grid() { return screen().dbgPersonnelPost; }
    void edit(const std::string& column, const std::string& text) {
        EXPECT_EQ(program.user.editCell(grid(), 1, column, text).refusal, "");
        EXPECT_EQ(program.user.commitRow(grid()).refusal, "");
    }
    /// The database lets no post be deleted.
    void keepRows() {
        const auto direct = [this](const std::string& statement) {
            (void)program.database.connection().engine().prepare(statement, true)->execute({});
        };
        const std::string head = "create trigger kept before delete on PersonsPost ";
        if (GetParam() == ado::EngineKind::Sqlite) {
            direct(head + "begin select raise(abort, 'kept'); end");
            return;
        }
        direct("create function refuse() returns trigger language plpgsql as 'begin raise exception ''kept''; end'");
        direct(head + "for each row execute function refuse()");
    }
    void deleteRow(std::int64_t row) {
        EXPECT_EQ(program.user.row(grid(), row).refusal, "");
        EXPECT_EQ(program.user.click(screen().cmdDelete(0)).refusal, "");
    }
};

} // namespace zel::posting
