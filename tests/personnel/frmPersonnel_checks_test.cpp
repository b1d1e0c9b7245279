#include "personnel/personnel_test.h"

namespace zel::personnel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* duplicateTitle = "Possible duplicate Personnel:";

class PersonnelChecks : public PersonnelTest {
protected:
    /// Saves, and expects that nothing was written.
    std::vector<forms::ShownBox> refuse() {
        save(addSide);
        EXPECT_THAT(rows("select PersonID from Persons where LastName = 'DOE'"), IsEmpty());
        EXPECT_THAT(rows("select ResourceID from Resources where Name like 'DOE%'"), IsEmpty());
        return program.dialogs.take();
    }
};
ZEL_ON_BOTH_ENGINES(PersonnelChecks);

TEST_P(PersonnelChecks, EmptyFieldsAreListedInOrderInOneBox) {
    open();
    screen().dbcAcct(0).setText("");
    const auto boxes = refuse();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Please enter a Request Number.  If unknown, enter the request category and zero "
                             "(example: C-0,O-0).\r\nAccount Code is required.\r\nFirst Name is required.\r\nLast Name "
                             "is required.\r\nKind/Position is required.\r\nCrew Status is required.\r\nAD/Fed/Other "
                             "is required.\r\n");
    EXPECT_EQ(boxes[0].title, "ZEL: Error Adding Individual");
    EXPECT_EQ(boxes[0].buttons, "OK");
    EXPECT_EQ(screen().mskPersonnel(3).ClipText(), "999999999");
}

TEST_P(PersonnelChecks, AnAdPersonNeedsAreaClassAndRate) {
    open();
    fillAdd();
    type(screen().cboAD(0), "a");
    const auto boxes = refuse();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Area is required for AD employees.\r\nClass is required for AD employees.\r\nRate is "
                             "required for AD employees.\r\n");
}

TEST_P(PersonnelChecks, AnSsnInUseIsAskedAboutWithNoAsDefault) {
    addRows(5, "SMITH", ", SSN", ", '123456789'");
    open();
    fillAdd();
    type(screen().mskPersonnel(3), "123456789");
    program.statements.clear();
    const auto boxes = refuse();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, duplicateTitle);
    EXPECT_EQ(boxes[0].text, "For this Incident, this SSN is actively in use by \r\n\tSMITH, JOHN" +
                                 std::string(63, ' ') + "5,\r\n\t\r\nwould you like to use this SSN anyway?");
    EXPECT_EQ(boxes[0].buttons, "YesNo");
    EXPECT_EQ(boxes[0].defaultAnswer, "No");
    EXPECT_THAT(program.statements, ElementsAre("SELECT * FROM qrySelectPersonnel WHERE  [status]='C' And "
                                                "[SSN]='123456789' AND IncidentID=7 "));
}

TEST_P(PersonnelChecks, AnSsnInUseMayBeUsedAnyway) {
    addRows(5, "SMITH", ", SSN", ", '123456789'");
    open();
    fillAdd();
    type(screen().mskPersonnel(3), "123456789");
    program.dialogs.answer("Yes");
    save(addSide);
    EXPECT_THAT(rows("select SSN from Persons where LastName = 'DOE'"), ElementsAre("123456789"));
}

TEST_P(PersonnelChecks, AnSsnOfAPersonInAnotherStatusIsFree) {
    addRows(5, "SMITH", ", SSN", ", '123456789'");
    program.execute("update Resources set Status = 'D' where ResourceID = 5");
    open();
    fillAdd();
    type(screen().mskPersonnel(3), "123456789");
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select SSN from Persons where LastName = 'DOE'"), ElementsAre("123456789"));
}

TEST_P(PersonnelChecks, TheUnknownSsnIsNeverADuplicate) {
    addRows(5, "SMITH", ", SSN", ", '999999999'");
    open();
    fillAdd();
    type(screen().mskPersonnel(3), "999999999");
    program.statements.clear();
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select SSN from Persons where LastName = 'DOE'"), ElementsAre("999999999"));
}

TEST_P(PersonnelChecks, ARateOfAHundredIsNotAskedAbout) {
    open();
    fillAdd();
    type(screen().cboAD(0), "o");
    type(screen().mskOtherRate(0), "100.00");
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select Rate from Persons where LastName = 'DOE'"), ElementsAre("100"));
}

TEST_P(PersonnelChecks, ARefusedRateEndsTheSaveAndEmptiesBothRates) {
    open();
    fillAdd();
    type(screen().cboAD(0), "o");
    type(screen().mskOtherRate(0), "100.01");
    program.dialogs.answer("No");
    const auto boxes = refuse();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Excess Rate");
    EXPECT_EQ(boxes[0].text, "The Rate entered was $100.01 which is greater then $100. \r\nIs this rate correct?");
    EXPECT_EQ(boxes[0].icon, "exclamation");
    EXPECT_EQ(screen().mskOtherRate(0).Text(), "0");
    EXPECT_EQ(screen().mskPayInfo(2).Text(), "0");
}

TEST_P(PersonnelChecks, AConfirmedRateIsSaved) {
    open();
    fillAdd();
    type(screen().cboAD(0), "o");
    type(screen().mskOtherRate(0), "250");
    program.dialogs.answer("Yes");
    save(addSide);
    EXPECT_THAT(rows("select Rate from Persons where LastName = 'DOE'"), ElementsAre("250"));
}

TEST_P(PersonnelChecks, ARateThatIsNoNumberIsToldAndNothingIsWritten) {
    open();
    fillAdd();
    type(screen().cboAD(0), "o");
    type(screen().mskOtherRate(0), "12x");
    const auto boxes = refuse();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "ZEL:Error Saving");
    EXPECT_THAT(boxes[0].text, testing::StartsWith("Error: 13 "));
}

TEST_P(PersonnelChecks, AContractedResourceIsConfirmed) {
    open();
    fillAdd();
    type(screen().cboAD(0), "o");
    EXPECT_EQ(program.user.check(screen().chkContract(0), true).refusal, "");
    program.dialogs.answer("No");
    const auto boxes = refuse();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Warning - Contracted Resource");
    EXPECT_EQ(boxes[0].text, "Contracted Resource is selected!  You MUST also go to the Contracts screen to input the "
                             "required information for a Contracted Resource.\r\n\r\nContinue to save as a Contracted "
                             "Resource?");
    EXPECT_EQ(boxes[0].icon, "question");
    EXPECT_EQ(boxes[0].buttons, "YesNo");
}

TEST_P(PersonnelChecks, ABadRequestNumberIsToldAndSavedAsItStands) {
    open();
    fillAdd();
    // Put there by another program: the box itself does not take such a letter.
    program.run([this] { screen().mskCrew(0).setText("O-1A"); });
    save(addSide);
    EXPECT_EQ(program.box().text, "Characters entered after the hypen must be a number or a decimal.");
    EXPECT_THAT(rows("select RequestNumber from Persons"), ElementsAre("O-1A"));
}

TEST_P(PersonnelChecks, TheCategoryAndZeroPassTheCheck) {
    open();
    fillAdd();
    type(screen().mskCrew(0), "o-0");
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select RequestNumber from Resources"), ElementsAre("O-"));
}

} // namespace
} // namespace zel::personnel
