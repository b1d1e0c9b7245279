#include "incident/frmAccounts.h"

#include "incident/incident_test.h"

namespace zel::incident {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class AccountsTest : public IncidentDataTest {
protected:
    AccountsTest() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
        program.addAccount(31, 9, "OTHER");
    }
    void open() {
        start();
        openScreen("Accounts");
        program.statements.clear();
    }
    /// One default code and one other on the current incident.
    void openWithTwoCodes() {
        program.addAccount(40, 7, "P6AB12");
        program.execute("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode, AgencyCode, "
                        "IncidentDefault) values (41, 7, 'P6AB13', 'FORS', 0)");
        open();
    }
    frmAccounts& screen() { return *program.forms.get<frmAccounts>("frmAccounts"); }
    void enter(int button, const std::string& code) {
        click(screen().cmdAE(button));
        type(screen().mskAcctCode, code);
    }
    void goTo(const std::string& code) {
        forms::TDBGrid& grid = screen().dbgAccounts;
        std::int64_t row = 0;
        while (row < grid.rowCount() && grid.cellText(row, grid.columnIndex("Accounting Code")) != code)
            ++row;
        EXPECT_EQ(program.user.row(screen().dbgAccounts, row).refusal, "");
    }
    void deleteCode() { EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Delete").refusal, ""); }
    std::vector<std::string> ofIncident() {
        return rows(
            "Select AccountingCode, AgencyCode, IncidentDefault from AccountingCodes where IncidentID = 7 order "
            "by AccountingID");
    }
};
ZEL_ON_BOTH_ENGINES(AccountsTest);

TEST_P(AccountsTest, CloseEndsTheEntryFirstAndThenTheScreen) {
    openWithTwoCodes();
    click(screen().cmdAE(0));
    click(screen().cmdClose);
    EXPECT_FALSE(screen().fraAE.Visible());
    ASSERT_NE(program.forms.loaded("frmAccounts"), nullptr);
    click(screen().cmdClose);
    EXPECT_EQ(program.forms.loaded("frmAccounts"), nullptr);
}

TEST_P(AccountsTest, TheFirstCodeIsTheDefaultAndTheBoxCannotBeCleared) {
    open();
    click(screen().cmdAE(0));
    EXPECT_EQ(screen().lblAE.Caption(), "  Add Account");
    EXPECT_TRUE(screen().chkDefault.isChecked());
    EXPECT_FALSE(screen().chkDefault.Enabled());
    EXPECT_FALSE(screen().dbcIncident.Enabled());
    type(screen().mskAcctCode, "p6ab12");
    click(screen().cmdSave);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True"));
    EXPECT_EQ(session.gAccountList.rows(), 1);
    EXPECT_THAT(program.statements,
                Contains(session.gServerDialect
                             ? "Insert into AccountingCodes (AccountingID,IncidentID,AccountingCode,AgencyCode,"
                               "IncidentDefault) values (32,7,'P6AB12','',1)"
                             : "Insert into AccountingCodes values (32,7,'P6AB12','',True)"));
}

TEST_P(AccountsTest, AnEmptyEntryListsWhatIsWrong) {
    open();
    click(screen().cmdAE(0));
    type(screen().dbcAgency, "NOWHERE");
    click(screen().cmdSave);
    const auto box = program.box();
    EXPECT_EQ(box.text,
              "You MUST input an Accounting Code.\r\nInvalid Agency Code.\r\n\r\nCorrect any problems and save again!");
    EXPECT_EQ(box.title, "Save Errors");
    EXPECT_EQ(box.icon, "exclamation");
    EXPECT_THAT(ofIncident(), IsEmpty());
}

TEST_P(AccountsTest, UnderManageAllTheIncidentIsTyped) {
    start();
    session.gManageAll = true;
    openScreen("Accounts");
    click(screen().cmdAE(0));
    type(screen().dbcIncident, "NO SUCH");
    type(screen().mskAcctCode, "P6AB12");
    click(screen().cmdSave);
    EXPECT_EQ(program.box().text, "Cannot find selected Incident.\r\n\r\nCorrect any problems and save again!");
    type(screen().dbcIncident, "OR-ABC-000123");
    click(screen().cmdSave);
    EXPECT_EQ(program.box().title, "No Default Accounting Code");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True"));
}

TEST_P(AccountsTest, ASecondCodeWithoutTheBoxIsNoDefault) {
    openWithTwoCodes();
    enter(0, "P6AB14");
    click(screen().cmdSave);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False", "P6AB14||False"));
    EXPECT_TRUE(screen().mskAcctCode.hasFocus()) << "ready for the next code";
}

TEST_P(AccountsTest, ANewDefaultTakesTheOldOnesPlaceOnYes) {
    openWithTwoCodes();
    enter(0, "P6AB14");
    EXPECT_EQ(program.user.check(screen().chkDefault, true).refusal, "");
    program.dialogs.answer("Yes");
    click(screen().cmdSave);
    const auto box = program.box();
    EXPECT_EQ(box.text, "Accounting Code P6AB12 is set as the default for this incident!\r\nDo you want to make P6AB14 "
                        "the new default for this incident?");
    EXPECT_EQ(box.title, "Default Account Code Already Set");
    EXPECT_EQ(box.buttons, "YesNo");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||False", "P6AB13|FORS|False", "P6AB14||True"));
}

TEST_P(AccountsTest, ANewDefaultIsSavedAsAnOrdinaryCodeOnNo) {
    openWithTwoCodes();
    enter(0, "P6AB14");
    EXPECT_EQ(program.user.check(screen().chkDefault, true).refusal, "");
    program.dialogs.answer("No");
    click(screen().cmdSave);
    EXPECT_EQ(program.dialogs.take().size(), 1U);
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False", "P6AB14||False"));
}

TEST_P(AccountsTest, TheDefaultCannotBeUntickedNotEvenUnderAnotherName) {
    openWithTwoCodes();
    goTo("P6AB12");
    enter(1, "P6ZZ99");
    EXPECT_EQ(screen().lblAE.Caption(), "  Edit Account");
    EXPECT_EQ(program.user.check(screen().chkDefault, false).refusal, "");
    click(screen().cmdSave);
    const auto box = program.box();
    EXPECT_EQ(box.text, "You Must have a default accounting code. If you want to change it then\r\nselect the account "
                        "you wish to be the default and set it as default. ");
    EXPECT_EQ(box.title, "Default account error");
    EXPECT_THAT(ofIncident(), ElementsAre("P6ZZ99||True", "P6AB13|FORS|False"));
}

TEST_P(AccountsTest, EditingTheDefaultItselfStillAsks) {
    openWithTwoCodes();
    goTo("P6AB12");
    click(screen().cmdAE(1));
    program.dialogs.answer("Yes");
    click(screen().cmdSave);
    EXPECT_EQ(program.box().title, "Default Account Code Already Set");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False"));
}

TEST_P(AccountsTest, AnEditSendsTheUpdateInTheDialect) {
    openWithTwoCodes();
    goTo("P6AB13");
    enter(1, "P6AB15");
    click(screen().cmdSave);
    EXPECT_THAT(program.statements,
                Contains(std::string("Update AccountingCodes set AccountingCode = 'P6AB15', AgencyCode = 'FORS', "
                                     "IncidentDefault = ") +
                         (session.gServerDialect ? "0" : "False") + " Where IncidentID = 7 and AccountingID = 41"));
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB15|FORS|False"));
}

TEST_P(AccountsTest, ACodeTwiceOnOneIncidentIsRefusedAndTheDefaultStays) {
    openWithTwoCodes();
    enter(0, "P6AB13");
    EXPECT_EQ(program.user.check(screen().chkDefault, true).refusal, "");
    program.dialogs.answer("Yes");
    click(screen().cmdSave);
    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].text, "You cannot have duplicate Accounting Codes on the same Incident.");
    EXPECT_EQ(shown[1].title, "ZEL: Unique Accounting Code Required");
    EXPECT_EQ(shown[1].icon, "information");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False"));
}

TEST_P(AccountsTest, AnOrdinaryCodeGoesWithoutAQuestion) {
    openWithTwoCodes();
    goTo("P6AB13");
    deleteCode();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True"));
    EXPECT_THAT(program.statements, Contains("delete from AccountingCodes where AccountingID = 41"));
}

TEST_P(AccountsTest, TheDefaultGoesOnlyWhenAnotherCodeTakesItsPlace) {
    openWithTwoCodes();
    goTo("P6AB12");
    program.dialogs.answer("No");
    deleteCode();
    const auto box = program.box();
    EXPECT_EQ(box.text,
              "The selected Account Code is the default for that incident.\r\nIf you continue, the new default Account "
              "Code will be...\tP6AB13\tFORS\r\n\r\nDo you want to delete the selected Account Code and make the "
              "above Account Code the new default?\r\nNote:  You can change the default after deleting this Account "
              "Code.");
    EXPECT_EQ(box.title, "ZEL:Delete Account Code?");
    EXPECT_EQ(ofIncident().size(), 2U);
    program.dialogs.answer("Yes");
    deleteCode();
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB13|FORS|True"));
}

TEST_P(AccountsTest, TheOnlyCodeCannotBeDeleted) {
    program.addAccount(40, 7, "P6AB12");
    open();
    deleteCode();
    const auto box = program.box();
    EXPECT_EQ(box.text,
              "The selected Account Code is the only Account Code for that incident!\r\nYou cannot delete it.  "
              "Try to edit it or delete the incident.");
    EXPECT_EQ(box.title, "ZEL: Warning");
    EXPECT_EQ(ofIncident().size(), 1U);
}

TEST_P(AccountsTest, DeletingInTheGridGoesByTheSameRules) {
    program.addAccount(40, 7, "P6AB12");
    open();
    EXPECT_EQ(program.user.row(screen().dbgAccounts, 0).refusal, "");
    (void)program.user.deleteRow(screen().dbgAccounts);
    EXPECT_EQ(program.box().title, "ZEL: Warning");
    EXPECT_EQ(ofIncident().size(), 1U);
}

TEST_P(AccountsTest, ACodeInUseNamesEveryTableItStandsIn) {
    openWithTwoCodes();
    int key = 0;
    for (const char* table : {"PersonsPost", "PersonsDebit", "Persons", "Equipment", "ContractorAdjustments",
                              "ContractorPost", "Resources"}) {
        const std::string name = table;
        program.execute("insert into " + name + " (" +
                        (name == "ContractorAdjustments"            ? std::string("ContractorAdjustmentID")
                         : name == "Persons" || name == "Resources" ? name.substr(0, name.size() - 1) + "ID"
                                                                    : name + "ID") +
                        ", AccountingID) values (" + std::to_string(++key) + ", 41)");
    }
    goTo("P6AB13");
    deleteCode();
    const auto box = program.box();
    EXPECT_EQ(box.text, "Selected Accounting Code in use in... \r\nPersonsPost PersonsDebit Persons Equpment "
                        "ContractorAdjustments ContractorPost Resources ");
    EXPECT_EQ(box.title, "ZEL: Cannot Delete Accounting Code");
    EXPECT_EQ(box.icon, "critical");
    EXPECT_EQ(ofIncident().size(), 2U);
}

TEST_P(AccountsTest, WithoutARowThereIsNothingToDelete) {
    open();
    deleteCode();
    const auto box = program.box();
    EXPECT_EQ(box.text, "Cannot find a valid Account Code.");
    EXPECT_EQ(box.title, "ZEL: Delete Error");
}

TEST_P(AccountsTest, ACodeThatAnotherClerkDeletedIsNotFound) {
    openWithTwoCodes();
    goTo("P6AB13");
    program.execute("delete from AccountingCodes where AccountingID = 41");
    deleteCode();
    const auto box = program.box();
    EXPECT_EQ(box.text, "Could not find selected Account Code.  Try again.");
    EXPECT_EQ(box.title, "Account Code Not Found");
}

TEST_P(AccountsTest, TickingTheDefaultInTheGridTakesItFromTheOther) {
    openWithTwoCodes();
    goTo("P6AB13");
    const auto row = screen().dbgAccounts.row();
    EXPECT_EQ(program.user.editCell(screen().dbgAccounts, row, "Incident Default", "1").refusal, "");
    EXPECT_EQ(program.user.commitRow(screen().dbgAccounts).refusal, "");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||False", "P6AB13|FORS|True"));
}

TEST_P(AccountsTest, UntickingTheDefaultInTheGridPutsItBack) {
    openWithTwoCodes();
    goTo("P6AB12");
    EXPECT_EQ(program.user.editCell(screen().dbgAccounts, screen().dbgAccounts.row(), "Incident Default", "0").refusal,
              "");
    EXPECT_EQ(program.user.commitRow(screen().dbgAccounts).refusal, "");
    EXPECT_EQ(program.box().title, "No Default Accounting Code");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False"));
}

TEST_P(AccountsTest, AGridRowWithoutACodeIsNotSaved) {
    openWithTwoCodes();
    goTo("P6AB13");
    EXPECT_EQ(program.user.editCell(screen().dbgAccounts, screen().dbgAccounts.row(), "Accounting Code", "").refusal,
              "");
    (void)program.user.commitRow(screen().dbgAccounts);
    const auto box = program.box();
    EXPECT_EQ(box.text, "Accounting Code is required.\r\nAdd required data...item not saved");
    EXPECT_EQ(box.title, "ZEL:Data Missing");
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False"));
}

TEST_P(AccountsTest, ANewGridRowGetsItsKeyAndIncident) {
    openWithTwoCodes();
    EXPECT_EQ(program.user.editCell(screen().dbgAccounts, forms::TDBGrid::newRow, "Accounting Code", "P6AB16").refusal,
              "");
    EXPECT_EQ(program.user.commitRow(screen().dbgAccounts).refusal, "");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(ofIncident(), ElementsAre("P6AB12||True", "P6AB13|FORS|False", "P6AB16||False"));
    EXPECT_EQ(rows("Select IncidentID from Incidents").size(), 2U);
}

} // namespace
} // namespace zel::incident
