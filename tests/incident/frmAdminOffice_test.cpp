#include "incident/frmAdminOffice.h"
#include "incident/frmOfficePopup.h"

#include "incident/incident_test.h"

namespace zel::incident {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class AdminOfficeTest : public IncidentDataTest {
protected:
    AdminOfficeTest() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.execute("insert into AdminOffice (AdminOfficeID, Name, Addr1, City, State, Zip) values "
                        "(1, 'NORTH OFFICE', 'BOX 1', 'SALEM', 'OR', '97301-____')");
        start();
        openScreen("AdminOffice");
        program.statements.clear();
    }
    frmAdminOffice& screen() { return *program.forms.get<frmAdminOffice>("frmAdminOffice"); }
    std::vector<std::string> offices() {
        return rows("Select Name, Addr1, Addr2, City, State, Zip from AdminOffice order by AdminOfficeID");
    }
    void deleteOffice() { EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Delete").refusal, ""); }
};
ZEL_ON_BOTH_ENGINES(AdminOfficeTest);

TEST_P(AdminOfficeTest, CloseEndsTheEntryFirstAndThenTheScreen) {
    click(screen().cmdAE(0));
    click(screen().cmdClose);
    EXPECT_FALSE(screen().fraAE.Visible());
    ASSERT_NE(program.forms.loaded("frmAdminOffice"), nullptr);
    click(screen().cmdClose);
    EXPECT_EQ(program.forms.loaded("frmAdminOffice"), nullptr);
}

TEST_P(AdminOfficeTest, ANewOfficeIsWrittenAsDisplayed) {
    click(screen().cmdAE(0));
    EXPECT_EQ(screen().lblAE.Caption(), "  Add Office Information");
    EXPECT_TRUE(screen().mskOffice(0).hasFocus());
    type(screen().mskOffice(0), "south office");
    type(screen().mskOffice(1), "box 2");
    type(screen().mskOffice(3), "bend");
    EXPECT_EQ(program.user.pick(screen().dbcState, "OR").refusal, "");
    type(screen().mskOffice(4), "977010000");
    click(screen().cmdSave);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(program.statements,
                Contains("Insert into AdminOffice (AdminOfficeID,Name,Addr1,Addr2,City,State,Zip) values "
                         "(2,'SOUTH OFFICE','BOX 2','','BEND','OR','97701-0000')"));
    EXPECT_EQ(offices().size(), 2U);
    EXPECT_EQ(screen().dbgOffice.Columns("Office Name").Text(), "SOUTH OFFICE");
    EXPECT_EQ(screen().mskOffice(0).Text(), "");
    EXPECT_TRUE(screen().mskOffice(0).hasFocus()) << "ready for the next office";
}

TEST_P(AdminOfficeTest, AnEditTakesTheRowOfTheGridAndWritesItBack) {
    click(screen().cmdAE(1));
    EXPECT_EQ(screen().lblAE.Caption(), "  Edit Office Information");
    EXPECT_EQ(screen().mskOffice(0).Text(), "NORTH OFFICE");
    EXPECT_EQ(screen().mskOffice(4).Text(), "97301-____");
    EXPECT_EQ(screen().dbcState.Text(), "OR");
    type(screen().mskOffice(2), "room 4");
    click(screen().cmdSave);
    EXPECT_THAT(program.statements,
                Contains("Update AdminOffice set Name = 'NORTH OFFICE', Addr1 = 'BOX 1', Addr2 = 'ROOM 4', City = "
                         "'SALEM', State = 'OR', Zip = '97301-____' Where AdminOfficeID = 1"));
    EXPECT_THAT(offices(), ElementsAre("NORTH OFFICE|BOX 1|ROOM 4|SALEM|OR|97301-____"));
}

TEST_P(AdminOfficeTest, AllFieldsBlankWriteARowOfEmptyTexts) {
    click(screen().cmdAE(0));
    click(screen().cmdSave);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(program.statements,
                Contains("Insert into AdminOffice (AdminOfficeID,Name,Addr1,Addr2,City,State,Zip) values "
                         "(2,'','','','','','_____-____')"));
}

TEST_P(AdminOfficeTest, AnApostropheMakesTheStatementFailAndChangesNothing) {
    click(screen().cmdAE(0));
    type(screen().mskOffice(0), "O'BRIEN");
    click(screen().cmdSave);
    const auto box = program.box();
    EXPECT_EQ(box.title, "ZEL: Error");
    EXPECT_THAT(box.text, testing::StartsWith("Error: -2147217900 Desc: "));
    EXPECT_EQ(offices().size(), 1U);
    EXPECT_EQ(screen().mskOffice(0).Text(), "O'BRIEN");
}

TEST_P(AdminOfficeTest, AnOfficeOfAnAgreementStays) {
    program.execute("insert into Agreement (AgreementID, AdminOfficeID) values (5, 1)");
    deleteOffice();
    const auto box = program.box();
    EXPECT_EQ(box.text, "Selected Admin Office is assigned to agreements.");
    EXPECT_EQ(box.title, "ZEL: Cannot Delete Admin Office");
    EXPECT_EQ(offices().size(), 1U);
}

TEST_P(AdminOfficeTest, AFreeOfficeGoes) {
    deleteOffice();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(program.statements, Contains("delete from AdminOffice where AdminOfficeID = 1"));
    EXPECT_THAT(offices(), IsEmpty());
    EXPECT_EQ(screen().dbgOffice.rowCount(), 0);
}

TEST_P(AdminOfficeTest, AnOfficeThatIsGoneIsNotFound) {
    program.execute("delete from AdminOffice");
    deleteOffice();
    const auto box = program.box();
    EXPECT_EQ(box.text, "Could not find selected Admin Office.  Try again.");
    EXPECT_EQ(box.title, "Admin Office Not Found");
}

class OfficePopupTest : public IncidentDataTest {
protected:
    OfficePopupTest() {
        start();
        program.run([this] {
            list_.setConnection(session.connection());
            list_.setRecordSource("Select * from AdminOffice order by Name");
            list_.Refresh();
            popup().serve(list_);
        });
    }
    frmOfficePopup& popup() { return *program.forms.get<frmOfficePopup>("frmOfficePopup"); }
    forms::Form asking_{program.forms, "frmAsking"};
    forms::Adodc list_{asking_, "adoCAdminOffice"};
};
ZEL_ON_BOTH_ENGINES(OfficePopupTest);

TEST_P(OfficePopupTest, SavesTheOfficeAndLeavesTheListOnIt) {
    program.execute("insert into AdminOffice (AdminOfficeID, Name) values (8, 'ALPHA')");
    program.run([this] { popup().Show(); });
    type(popup().mskOffice(0), "west office");
    click(popup().cmdSave(1));
    EXPECT_EQ(program.forms.loaded("frmOfficePopup"), nullptr);
    EXPECT_EQ(list_.Recordset().RecordCount(), 2);
    EXPECT_EQ(list_.Recordset().value("Name"), ado::Value("WEST OFFICE"));
    EXPECT_EQ(list_.Recordset().value("AdminOfficeID"), ado::Value(9));
}

TEST_P(OfficePopupTest, WithoutANameNothingIsSavedAndItCloses) {
    program.run([this] { popup().Show(); });
    click(popup().cmdSave(1));
    EXPECT_EQ(program.forms.loaded("frmOfficePopup"), nullptr);
    EXPECT_THAT(rows("Select * from AdminOffice"), IsEmpty());
}

TEST_P(OfficePopupTest, CancelSavesNothing) {
    program.run([this] { popup().Show(); });
    type(popup().mskOffice(0), "west office");
    click(popup().cmdSave(0));
    EXPECT_THAT(rows("Select * from AdminOffice"), IsEmpty());
}

} // namespace
} // namespace zel::incident
