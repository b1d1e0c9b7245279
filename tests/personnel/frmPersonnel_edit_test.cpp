#include "personnel/personnel_test.h"

namespace zel::personnel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PersonnelEdit : public PersonnelTest {
protected:
    static constexpr const char* adPay = ", FedCode, Area, Class, Rate, PointOfHire, InitEmployYN, ReturnTravelYN";

    void openOn(const std::string& more, const std::string& values, const std::string& request = "O-") {
        addRows(5, "SMITH", ", SSN" + more, ", '123456789'" + values, request);
        open();
        choose("SMITH");
        program.statements.clear();
    }
    void openAd() { openOn(adPay, ", 'AD', 'CONUS', 'AD-2', 13.68, 'SALEM', 1, 0"); }
    void openFed() { openOn(", FedCode", ", 'FED'"); }
    void expectSaved() {
        save(editSide);
        const auto boxes = program.dialogs.take();
        ASSERT_EQ(boxes.size(), 1U) << boxes[0].text;
        EXPECT_EQ(boxes[0].text, "Data Saved");
        EXPECT_EQ(boxes[0].title, "ZEL Message");
        EXPECT_TRUE(screen().dbcPersonnel.hasFocus());
    }
    void addPost(const char* invoice) {
        program.execute(std::string("insert into PersonsPost (PersonsPostID, PersonID, Class, Rate, InvoiceID) values "
                                    "(") +
                        (std::string(invoice) == "null" ? "1" : "2") + ", 5, 'AD-2', 13.68, " + invoice + ")");
    }
    std::vector<std::string> pay() {
        return rows("select FedCode, InitEmployYN, ReturnTravelYN, PointOfHire, Area, Class, Rate from Persons");
    }
    std::vector<std::string> posts() { return rows("select Class, Rate from PersonsPost order by PersonsPostID"); }
};
ZEL_ON_BOTH_ENGINES(PersonnelEdit);

TEST_P(PersonnelEdit, ShowsAnAdPersonWithThePayBlock) {
    openAd();
    frmPersonnel& form = screen();
    EXPECT_EQ(form.mskCrew(1).Text(), "O-5");
    EXPECT_TRUE(form.mskCrew(1).Enabled());
    EXPECT_EQ(form.mskPersonnel(4).Text(), "JOHN");
    EXPECT_EQ(form.mskPersonnel(7).Text(), "123-45-6789");
    EXPECT_EQ(form.dbcAcct(1).Text(), "P6AB12");
    EXPECT_EQ(session.gAccountingID, account);
    EXPECT_EQ(form.dbcStatus(3).Text(), "Checked In");
    EXPECT_EQ(form.cboAD(1).Text(), "AD");
    EXPECT_TRUE(form.ckPayInfo(4).isChecked());
    EXPECT_FALSE(form.ckPayInfo(5).isChecked());
    EXPECT_EQ(form.mskPayInfo(4).Text(), "SALEM");
    EXPECT_EQ(form.dbcAreas(1).Text(), "CONUS");
    EXPECT_EQ(form.dbcClass(1).Text(), "AD-2");
    EXPECT_EQ(form.mskPayInfo(5).Text(), "13.68");
    EXPECT_FALSE(form.mskPayInfo(5).Enabled());
    EXPECT_FALSE(form.mskOtherRate(1).Visible());
}

TEST_P(PersonnelEdit, TheHandRatedClassCanBeRatedAnew) {
    openOn(adPay, ", 'AD', 'CONUS', 'AD-5', 40, '', 0, 0");
    payPage(editSide);
    type(screen().mskPayInfo(5), "41.5");
    expectSaved();
    EXPECT_THAT(pay(), ElementsAre("AD|False|False||CONUS|AD-5|41.5"));
}

TEST_P(PersonnelEdit, WritesBothRowsOfThePair) {
    openFed();
    type(screen().mskCrew(1), "o-099");
    type(screen().mskPersonnel(6), "smythe");
    pick(screen().dbcAcct(1), "P6ZZ99");
    pick(screen().dbcKind(2), "DRIV");
    pick(screen().dbcStatus(3), "Assigned");
    pick(screen().dbcAgency(1), screen().dbcAgency(1).listText(0));
    const std::string agency = screen().dbcAgency(1).Text();
    type(screen().mskPersAddress(9), "973010012");
    pick(screen().dbcState(2), "OR");
    expectSaved();
    EXPECT_THAT(rows("select Name, RequestNumber, AgencyCode, KindCode, Status, ContractedResource from Resources"),
                ElementsAre("SMYTHE, JOHN|O-99|" + agency + "|DRIV|A|False"));
    EXPECT_THAT(rows("select LastName, RequestNumber, SSN, AccountingID, OverheadID, KindCode, PStatus, AgencyCode, "
                     "FedCode, ZipCode, State from Persons"),
                ElementsAre("SMYTHE|O-99|123456789|32|5|DRIV|A|" + agency + "|FED|97301-0012|OR"));
}

TEST_P(PersonnelEdit, SendsTheseStatements) {
    openFed();
    save(editSide);
    EXPECT_THAT(
        program.statements,
        ElementsAre(
            "SELECT * FROM qrySelectPersonnel WHERE  [Status]='C' And [SSN]='123456789' and (Not personid = 5) AND "
            "IncidentID=7 ",
            "Update PersonsPost set class = '', rate = 0 where personid = 5",
            "SELECT qrySelectPersonnel.* FROM (qrySelectPersonnel INNER JOIN L_Kind ON qrySelectPersonnel.KindCode = "
            "L_Kind.KindCode) LEFT JOIN L_Status ON qrySelectPersonnel.PStatus = L_Status.Code WHERE "
            "((qrySelectPersonnel.PStatus Is Null or ((L_Status.ZEL)=1) AND "
            "((L_Kind.RequestCat)='O'))) AND IncidentID=7 ORDER BY qrySelectPersonnel.LnFn"));
}

TEST_P(PersonnelEdit, LeavingAdStripsClassAndRateFromAllPostingsInvoicedOrNot) {
    addPost("null");
    addPost("77");
    openAd();
    type(screen().cboAD(1), "f");
    expectSaved();
    EXPECT_THAT(pay(), ElementsAre("FED|False|False|SALEM|||0"));
    EXPECT_THAT(posts(), ElementsAre("|0", "|0"));
}

TEST_P(PersonnelEdit, AnOtherPersonWithARateKeepsThePostings) {
    addPost("null");
    openAd();
    type(screen().cboAD(1), "o");
    type(screen().mskOtherRate(1), "22");
    expectSaved();
    EXPECT_THAT(pay(), ElementsAre("OTHER|False|False||||22"));
    EXPECT_THAT(posts(), ElementsAre("AD-2|13.68"));
}

TEST_P(PersonnelEdit, AnOtherPersonWithoutARateLosesThoseOfThePostings) {
    addPost("null");
    openOn(", FedCode, Rate", ", 'OTHER', 22");
    EXPECT_EQ(screen().mskOtherRate(1).Text(), "22");
    EXPECT_TRUE(screen().mskOtherRate(1).Visible());
    type(screen().mskOtherRate(1), "");
    EXPECT_EQ(program.user.keys(screen().mskOtherRate(1), "{Backspace}").refusal, "");
    expectSaved();
    EXPECT_THAT(pay(), ElementsAre("OTHER|False|False||||0"));
    EXPECT_THAT(posts(), ElementsAre("|0"));
}

TEST_P(PersonnelEdit, TheDuplicateTestLeavesOutThePersonEdited) {
    openFed();
    expectSaved();
    addRows(6, "TWIN", ", SSN", ", '123456789'");
    program.statements.clear();
    save(editSide);
    const auto box = program.box();
    EXPECT_EQ(box.title, "Possible duplicate Personnel:");
    EXPECT_THAT(box.text, testing::HasSubstr("TWIN, JOHN"));
    EXPECT_EQ(box.defaultAnswer, "No");
    EXPECT_THAT(program.statements,
                ElementsAre("SELECT * FROM qrySelectPersonnel WHERE  [Status]='C' And [SSN]='123456789' and (Not "
                            "personid = 5) AND IncidentID=7 "));
}

TEST_P(PersonnelEdit, AnUnknownAccountIsNoAccount) {
    openFed();
    program.execute("update Persons set AccountingID = 0");
    program.run([this] { screen().tbRefresh(); });
    EXPECT_EQ(screen().dbcAcct(1).Text(), "");
    EXPECT_EQ(session.gAccountingID, -1);
    type(screen().dbcAcct(1), "NO SUCH");
    save(editSide);
    const auto box = program.box();
    EXPECT_EQ(box.text, "Account Code is required.\r\n");
    EXPECT_EQ(box.title, "ZEL: Error Adding Individual");
}

TEST_P(PersonnelEdit, TheNumberOfACrewPersonIsLockedAndTheCrewKeepsItsName) {
    addRows(5, "SMITH", ", FedCode", ", 'FED'", "C-12");
    program.execute("update Resources set Name = 'RIDGE CREW', Collection = 1, AgencyCode = 'STATE'");
    open();
    choose("SMITH");
    EXPECT_FALSE(screen().mskCrew(1).Enabled());
    EXPECT_EQ(screen().mskCrew(1).BackColor(), 0xC0C0C0);
    expectSaved();
    EXPECT_THAT(rows("select Name, AgencyCode, RequestNumber from Resources"), ElementsAre("RIDGE CREW|STATE|C-12"));
    program.run([this] { screen().fClearPersonUpdate(); });
    EXPECT_TRUE(screen().mskCrew(1).Enabled());
}

TEST_P(PersonnelEdit, AStatusMissingFromTheListIsShownFromTheOrderAndStays) {
    openFed();
    program.execute("update Persons set PStatus = null");
    program.execute("update Resources set Status = 'U'");
    program.run([this] { screen().tbRefresh(); });
    EXPECT_EQ(screen().dbcStatus(3).Text(), "U");
    expectSaved();
    EXPECT_THAT(rows("select Status from Resources"), ElementsAre("U"));
}

TEST_P(PersonnelEdit, AnotherNumberInUseIsAskedAboutAndCancelBringsTheOldOneBack) {
    addRows(6, "ADAMS", "", "", "O-77");
    openFed();
    type(screen().mskCrew(1), "o-77");
    program.dialogs.answer("Cancel");
    leave(screen().mskCrew(1));
    EXPECT_THAT(program.box().text, testing::StartsWith("O-77 already in use: \r\n\tRequest#: O-77"));
    EXPECT_EQ(screen().mskCrew(1).Text(), "O-5");
    program.statements.clear();
    type(screen().mskCrew(1), "o-5");
    leave(screen().mskCrew(1));
    EXPECT_THAT(program.statements, IsEmpty());
}

TEST_P(PersonnelEdit, ARowThatAnotherClerkChangedIsNotOverwritten) {
    openFed();
    program.execute("update Persons set LastName = 'OTHERS', Remarks = 'THEIRS'");
    type(screen().mskPersonnel(6), "mine");
    save(editSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select LastName, Remarks from Persons"), ElementsAre("OTHERS|THEIRS"));
    EXPECT_EQ(screen().adoCPersonnel.Recordset().EditMode(), ado::EditModeEnum::None);
}

TEST_P(PersonnelEdit, AFailureIsShownAndThePersonStaysAsItWas) {
    addRows(4, "ADAMS");
    openFed();
    program.execute("create unique index OneNameOnly on Persons (LastName)");
    addRows(6, "TAKEN");
    type(screen().mskPersonnel(6), "taken");
    save(editSide);
    const auto box = program.box();
    EXPECT_EQ(box.title, "ZEL:Error Saving");
    EXPECT_THAT(box.text, testing::StartsWith("Error: -2147467259 "));
    EXPECT_THAT(rows("select LastName from Persons where PersonID = 5"), ElementsAre("SMITH"));
    choose("ADAMS");
    EXPECT_EQ(screen().mskPersonnel(6).Text(), "ADAMS");
    EXPECT_THAT(rows("select LastName from Persons where PersonID = 5"), ElementsAre("SMITH"));
}

TEST_P(PersonnelEdit, TheOtherPageKeepsItsOwnAccount) {
    openFed();
    pick(screen().dbcAcct(1), "P6ZZ99");
    EXPECT_EQ(session.gAccountingID, otherAccount);
    page(0);
    EXPECT_EQ(session.gAccountingID, account);
    page(1);
    EXPECT_EQ(session.gAccountingID, otherAccount);
}

TEST_P(PersonnelEdit, TheToolbarSavesThePageInFront) {
    openFed();
    type(screen().mskRemarks(1), "by toolbar");
    leave(screen().mskRemarks(1));
    program.run([this] { screen().tbSave(); });
    EXPECT_EQ(program.box().text, "Data Saved");
    EXPECT_THAT(rows("select Remarks from Persons"), ElementsAre("BY TOOLBAR"));
}

} // namespace
} // namespace zel::personnel
