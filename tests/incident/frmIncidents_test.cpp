#include "incident/frmIncidents.h"

#include "incident/incident_test.h"

namespace zel::incident {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class IncidentsTest : public IncidentDataTest {
protected:
    frmIncidents& open() {
        openScreen("Incidents");
        return screen();
    }
    frmIncidents& screen() { return *program.forms.get<frmIncidents>("frmIncidents"); }
    void type(int index, const std::string& text) { IncidentDataTest::type(screen().mskIncident(index), text); }
    void pickState(int index, const std::string& code) {
        EXPECT_EQ(program.user.pick(screen().dbcState(index), code).refusal, "");
    }
    void save(int page) { click(screen().cmdSave(page)); }
    std::vector<std::string> incidents() {
        return rows("Select IncidentName, IncidentNumber, IncidentLocation, IncidentState, StartDate, EndDate, "
                    "AdminName, AdminCity, AdminState, AdminZip from Incidents order by IncidentID");
    }
};
ZEL_ON_BOTH_ENGINES(IncidentsTest);

TEST_P(IncidentsTest, AddingTheFirstIncidentWritesBothRowsAndMovesTheShellToIt) {
    start();
    open();
    type(0, "bear creek");
    type(1, "orabc000123");
    type(2, "p6ab12");
    type(3, "ridge camp");
    pickState(0, "OR");
    type(20, "07012005");
    type(4, "07312005");
    type(5, "payment center");
    type(8, "salem");
    pickState(1, "WA");
    type(9, "973010000");
    save(0);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(incidents(), ElementsAre("BEAR CREEK|OR-ABC-000123|RIDGE CAMP|OR|7/1/2005|7/31/2005|PAYMENT "
                                         "CENTER|SALEM|WA|97301-0000"));
    EXPECT_THAT(accounts(), ElementsAre("1|P6AB12|True"));
    EXPECT_EQ(session.gIncidentID, 1);
    EXPECT_EQ(session.gIncidentStart, "7/1/2005");
    EXPECT_EQ(program.shell().dbcIncident(0).Text(), "BEAR CREEK");
    EXPECT_EQ(program.shell().dbcIncident(1).Text(), "OR-ABC-000123");
    EXPECT_EQ(session.gIncidentList.rows(), 1);
    EXPECT_EQ(screen().mskIncident(0).Text(), "");
    EXPECT_TRUE(screen().mskIncident(0).hasFocus()) << "ready for the next incident";
}

TEST_P(IncidentsTest, AddWithNothingListsBothRequiredFieldsInOrder) {
    start();
    open();
    save(0);
    const forms::ShownBox box = program.box();
    EXPECT_EQ(box.text,
              "Incident Name is required.\r\nIncident Number is required.\r\n\r\nPlease check your values and "
              "save again.");
    EXPECT_EQ(box.title, "ZEL: Missing or Duplicate Information");
    EXPECT_EQ(box.icon, "information");
    EXPECT_EQ(box.buttons, "OK");
    EXPECT_THAT(incidents(), IsEmpty());
    EXPECT_THAT(accounts(), IsEmpty());
}

TEST_P(IncidentsTest, AddWithoutAnAccountCodeWritesARowWithAnEmptyCode) {
    start();
    open();
    type(0, "ELK RIDGE");
    type(1, "ORABC000124");
    save(0);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(accounts(), ElementsAre("1||True"));
}

TEST_P(IncidentsTest, ADateThatIsNoneIsStoredAsNull) {
    start();
    open();
    type(0, "ELK RIDGE");
    type(1, "ORABC000124");
    type(4, "02302005");
    save(0);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select IncidentID from Incidents where EndDate is null and StartDate is null"), ElementsAre("1"));
}

class ExistingIncidents : public IncidentsTest {
protected:
    ExistingIncidents() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.addAccount(31, 7, "P6AB12");
        program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
        program.addAccount(32, 9, "P6AB13");
        start();
        open();
    }
    void expectEdit(const std::string& name, const std::string& expected) {
        type(10, name);
        save(1);
        const auto shown = program.dialogs.take();
        ASSERT_EQ(shown.size(), expected.empty() ? 0U : 1U) << shown[0].text;
        if (!expected.empty()) {
            EXPECT_EQ(shown[0].text, expected + "\r\n\r\nPlease check your values and save again.");
        }
    }
};
ZEL_ON_BOTH_ENGINES(ExistingIncidents);

TEST_P(ExistingIncidents, TheEditPageShowsTheIncidentOfTheShell) {
    EXPECT_EQ(screen().tabAE.CurrTab(), 1);
    EXPECT_EQ(screen().mskIncident(10).Text(), "BEAR CREEK");
    EXPECT_EQ(screen().mskIncident(11).Text(), "OR-ABC-000123");
    EXPECT_EQ(screen().mskIncident(12).Text(), "P6AB12");
    EXPECT_EQ(screen().mskIncident(21).Text(), "07/01/2005");
    EXPECT_EQ(screen().mskIncident(14).Text(), "__/__/____");
}

TEST_P(ExistingIncidents, AnotherIncidentInTheShellIsShown) {
    EXPECT_EQ(program.user.pick(program.shell().dbcIncident(0), "ELK RIDGE").refusal, "");
    EXPECT_EQ(screen().mskIncident(10).Text(), "ELK RIDGE");
}

TEST_P(ExistingIncidents, WithoutAnIncidentInTheShellTheAddPageComesToTheFront) {
    program.run([this] {
        program.shell().dbcIncident(1).setText("");
        screen().fRebindIncident();
    });
    EXPECT_EQ(screen().tabAE.CurrTab(), 0);
    EXPECT_EQ(program.shell().dbcIncident(0).Text(), "");
    EXPECT_EQ(screen().mskIncident(10).Text(), "");
}

TEST_P(ExistingIncidents, EditingWritesTheIncidentAndRenamesItsDefaultCode) {
    type(10, "bear creek north");
    type(12, "P6ZZ99");
    type(14, "08012005");
    save(1);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select IncidentName, EndDate from Incidents where IncidentID = 7"),
                ElementsAre("BEAR CREEK NORTH|8/1/2005"));
    EXPECT_THAT(accounts(), ElementsAre("7|P6ZZ99|True", "9|P6AB13|True"));
    EXPECT_EQ(program.shell().dbcIncident(0).Text(), "BEAR CREEK NORTH");
    EXPECT_EQ(session.gAccountList(0, "AccountingCode"), ado::Value("P6ZZ99"));
}

TEST_P(ExistingIncidents, AnEmptyCodeIsAcceptedOnTheEditPage) {
    type(12, "");
    save(1);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(accounts(), ElementsAre("7||True", "9|P6AB13|True"));
}

TEST_P(ExistingIncidents, TheNameOfOneOtherIncidentIsAcceptedAndOfTwoOthersIsNot) {
    expectEdit("ELK RIDGE", "");
    expectEdit("BEAR CREEK", "");
    program.addIncident(11, "ELK RIDGE", "OR-ABC-000125");
    expectEdit("elk ridge", "Duplicate entry in Incident Name.");
    EXPECT_THAT(rows("Select IncidentName from Incidents where IncidentID = 7"), ElementsAre("BEAR CREEK"));
}

TEST_P(ExistingIncidents, TheAddPageRefusesANameAndANumberThatAreTaken) {
    EXPECT_EQ(program.user.selectTab(screen().tabAE, 0).refusal, "");
    type(0, "bear creek");
    type(1, "orabc000124");
    save(0);
    EXPECT_EQ(program.box().text, "Duplicate entry in Incident Name.\r\nDuplicate entry in Incident "
                                  "Number.\r\n\r\nPlease check your values and save again.");
}

TEST_P(ExistingIncidents, TheDuplicateTestIsWordedInTheDialect) {
    program.statements.clear();
    save(1);
    const bool server = session.gServerDialect;
    EXPECT_EQ(program.statements.at(0), server ? "SELECT * FROM  Incidents WHERE  IncidentName='BEAR CREEK'"
                                               : "SELECT * FROM  Incidents WHERE  IncidentName=\"BEAR CREEK\"");
    EXPECT_EQ(program.statements.at(1), server ? "SELECT * FROM  Incidents WHERE  IncidentNumber='OR-ABC-000123'"
                                               : "SELECT * FROM  Incidents WHERE  IncidentNumber=\"OR-ABC-000123\"");
    EXPECT_EQ(
        program.statements.at(2),
        "Select Incidents.IncidentID as IncidentID, IncidentNumber, IncidentName, IncidentLocation, StartDate, "
        "EndDate, ParentIncident, IncidentState, AdminName, AdminAddr1, AdminAddr2, AdminCity, AdminState, "
        "AdminZip, AccountingID, AccountingCode, AccountingCodes.IncidentID as aIncidentID FROM Incidents LEFT "
        "JOIN AccountingCodes ON Incidents.IncidentID = AccountingCodes.IncidentID WHERE Incidents.IncidentID = 7 "
        "and IncidentDefault = 1");
}

TEST_P(ExistingIncidents, ASignThatEndsTheLiteralFailsWithItsMessageAndChangesNothing) {
    // The desktop dialect writes the name between double quotes.
    type(10, session.gServerDialect ? "O'BRIEN" : "O\"BRIEN");
    save(1);
    const forms::ShownBox box = program.box();
    EXPECT_THAT(box.text, testing::HasSubstr("Error: "));
    EXPECT_THAT(rows("Select IncidentName from Incidents where IncidentID = 7"), ElementsAre("BEAR CREEK"));
}

TEST_P(ExistingIncidents, ACodeThatTheIncidentHasAlreadyIsADuplicateIdInTheWordsOfTheSave) {
    program.execute("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode, IncidentDefault) values "
                    "(33, 7, 'P6TWICE', 0)");
    type(12, "P6TWICE");
    save(1);
    const forms::ShownBox box = program.box();
    EXPECT_EQ(box.text, "Duplicate ID...Have computer tech check ID columns");
    EXPECT_EQ(box.title, "Error Saving");
    EXPECT_THAT(accounts(), ElementsAre("7|P6AB12|True", "9|P6AB13|True", "7|P6TWICE|False"));
}

TEST_P(ExistingIncidents, AnyOtherFailureOfASaveTellsNumberAndDescription) {
    program.execute("delete from Incidents where IncidentID = 7");
    save(1);
    const forms::ShownBox box = program.box();
    EXPECT_THAT(box.text, testing::StartsWith("Err Number: 3021\r\nErr Desc: "));
    EXPECT_EQ(box.title, "Error Saving");
}

TEST_P(ExistingIncidents, NeitherDeleteDeletesAndTheirWordingsDiffer) {
    EXPECT_EQ(program.user.click(screen().cmdDelete).refusal, "");
    EXPECT_EQ(program.box().text, "Incidents must be deleted by using 'Tools'>'Delete Incident'.");
    EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Delete").refusal, "");
    EXPECT_EQ(program.box().text, "To Delete an Incident you must use \"Tools\">\"Delete Incident\".");
    EXPECT_EQ(incidents().size(), 2U);
}

TEST_P(ExistingIncidents, TheNotesSayWhereFurtherCodesAndOfficesAreKept) {
    for (const int page : {0, 1}) {
        EXPECT_EQ(screen().lblNote(page).Caption(),
                  "Note:  If additional account codes are needed, they can be added under Manage Incident Accounts.");
        EXPECT_EQ(screen().lblAdminInfo(page).Caption(),
                  "Administrative Office for Payment is connected with each agreement.  You can add the address "
                  "information on the 'Contracts' screen when you add or edit an agreement.  You can also add or edit "
                  "addresses from the menu bar under 'Incident Data' then 'Admin Office for Payment.'");
    }
}

TEST_P(ExistingIncidents, ClearEmptiesThePage) {
    EXPECT_EQ(program.user.click(screen().cmdClear(1)).refusal, "");
    EXPECT_EQ(screen().mskIncident(10).Text(), "");
    EXPECT_EQ(screen().mskIncident(21).Text(), "__/__/____");
    EXPECT_EQ(screen().mskIncident(11).Text(), "__-___-______");
}

class IncidentWithoutCode : public IncidentsTest {
protected:
    IncidentWithoutCode() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        start();
        open();
    }
};
ZEL_ON_BOTH_ENGINES(IncidentWithoutCode);

TEST_P(IncidentWithoutCode, GetsItsFirstCodeAsDefaultFromAnEdit) {
    program.statements.clear();
    type(12, "P6AB12");
    save(1);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(accounts(), ElementsAre("7|P6AB12|True"));
    EXPECT_THAT(program.statements,
                testing::Contains("Insert Into AccountingCodes(AccountingID, IncidentID, AccountingCode, "
                                  "IncidentDefault) values (1, 7, 'P6AB12', 1)"));
}

TEST_P(IncidentWithoutCode, StaysWithoutOneWhenTheBoxIsEmpty) {
    type(13, "camp");
    save(1);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(accounts(), IsEmpty());
    EXPECT_THAT(rows("Select IncidentLocation from Incidents"), ElementsAre("CAMP"));
}

} // namespace
} // namespace zel::incident
