#include "personnel/personnel_test.h"

namespace zel::personnel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PersonnelAdd : public PersonnelTest {
protected:
    std::vector<std::string> pay() {
        return rows("select FedCode, InitEmployYN, ReturnTravelYN, PointOfHire, Area, Class, Rate from Persons where "
                    "LastName = 'DOE'");
    }
    void fillPay(const std::string& classText) {
        type(screen().cboAD(0), "a");
        payPage(addSide);
        EXPECT_EQ(program.user.check(screen().ckPayInfo(0), true).refusal, "");
        type(screen().mskPayInfo(1), "salem");
        pick(screen().dbcAreas(0), "CONUS");
        pick(screen().dbcClass(0), classText);
    }
};
ZEL_ON_BOTH_ENGINES(PersonnelAdd);

TEST_P(PersonnelAdd, WritesThePairAndClearsThePageWithoutAMessage) {
    open();
    fillAdd();
    pick(screen().dbcAgency(0), screen().dbcAgency(0).listText(0));
    const std::string agency = screen().dbcAgency(0).Text();
    type(screen().mskRemarks(0), "night shift");
    type(screen().mskPersAddress(0), "1 main st");
    type(screen().mskPersAddress(2), "salem");
    pick(screen().dbcState(0), "OR");
    type(screen().mskPersAddress(3), "973010012");
    type(screen().mskPersAddress(4), "5035551234");
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select ResourceID, IncidentID, RequestNumber, NumberPersonnel, AgencyCode, Name, KindCode, "
                     "Status, AccountingID, ContractedResource from Resources"),
                ElementsAre("1|7|O-12|1|" + agency + "|DOE,JANE|SAFE|C|31|False"));
    EXPECT_THAT(rows("select PersonID, ResourceID, OverheadID, FirstName, LastName, SSN, PStatus, AgencyCode, "
                     "KindCode, FedCode, Remarks, AccountingID, RequestNumber from Persons"),
                ElementsAre("1|1|1|JANE|DOE|999999999|C|" + agency + "|SAFE|FED|NIGHT SHIFT|31|O-12"));
    EXPECT_THAT(rows("select MailAddr1, MailAddr2, City, State, ZipCode, Phone, FaxPhone from Persons"),
                ElementsAre("1 MAIN ST||SALEM|OR|97301-0012|(503) 555-1234|"));
    EXPECT_EQ(screen().mskPersonnel(2).Text(), "");
    EXPECT_EQ(screen().cboAD(0).Text(), "");
    EXPECT_TRUE(screen().mskCrew(0).hasFocus());
    EXPECT_EQ(ado::toText(session.gLastSaved), "7/4/2005 1:30:00 PM");
}

TEST_P(PersonnelAdd, SendsTheseStatements) {
    open();
    fillAdd();
    leave(screen().cboAD(0));
    program.statements.clear();
    save(addSide);
    EXPECT_THAT(
        program.statements,
        ElementsAre(
            "SELECT * FROM qrySelectPersonnel WHERE  [status]='C' And [SSN]='' AND IncidentID=7 ",
            "select * from Resources", "usp_getNextNumber 'Resources', ''", "select * from Persons",
            "usp_getNextNumber 'Persons', ''",
            "SELECT qrySelectPersonnel.* FROM (qrySelectPersonnel INNER JOIN L_Kind ON qrySelectPersonnel.KindCode = "
            "L_Kind.KindCode) LEFT JOIN L_Status ON qrySelectPersonnel.PStatus = L_Status.Code WHERE "
            "((qrySelectPersonnel.PStatus Is Null or ((L_Status.ZEL)=1) AND "
            "((L_Kind.RequestCat)='O'))) AND IncidentID=7 ORDER BY qrySelectPersonnel.LnFn"));
}

TEST_P(PersonnelAdd, AnAdPersonKeepsThePayBlock) {
    open();
    fillAdd();
    fillPay("AD-2");
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(pay(), ElementsAre("AD|True|False|SALEM|CONUS|AD-2|13.68"));
}

TEST_P(PersonnelAdd, TheHandRatedClassKeepsTheTypedRate) {
    open();
    fillAdd();
    fillPay("AD-5");
    type(screen().mskPayInfo(2), "41.25");
    save(addSide);
    EXPECT_THAT(pay(), ElementsAre("AD|True|False|SALEM|CONUS|AD-5|41.25"));
    EXPECT_EQ(screen().tabPersDetail(0).CurrTab(), 0) << "the pay page is closed to the next person until AD is chosen";
}

TEST_P(PersonnelAdd, AnOtherPersonHasTheRateAlone) {
    open();
    fillAdd();
    fillPay("AD-2");
    type(screen().cboAD(0), "o");
    type(screen().mskOtherRate(0), "18.5");
    save(addSide);
    EXPECT_THAT(pay(), ElementsAre("OTHER|False|False||||18.5"));
}

TEST_P(PersonnelAdd, AFederalPersonLeavesThePayBlockBehind) {
    open();
    fillAdd();
    fillPay("AD-2");
    type(screen().cboAD(0), "f");
    save(addSide);
    EXPECT_THAT(pay(), ElementsAre("FED|False|False||||0"));
}

TEST_P(PersonnelAdd, AContractedResourceIsMarked) {
    open();
    fillAdd();
    type(screen().cboAD(0), "o");
    EXPECT_EQ(program.user.check(screen().chkContract(0), true).refusal, "");
    program.dialogs.answer("Yes");
    save(addSide);
    EXPECT_THAT(rows("select ContractedResource from Resources"), ElementsAre("True"));
}

TEST_P(PersonnelAdd, TheNameOfTheOrderIsTrimmedPartByPart) {
    open();
    fillAdd(" de la cruz ");
    type(screen().mskPersonnel(0), " ann ");
    save(addSide);
    EXPECT_THAT(rows("select Name from Resources"), ElementsAre("DE LA CRUZ,ANN"));
}

TEST_P(PersonnelAdd, OtherCategoriesHaveNoOverhead) {
    open();
    fillAdd();
    type(screen().mskCrew(0), "s-4");
    save(addSide);
    EXPECT_THAT(rows("select OverheadID from Persons where OverheadID is null or OverheadID = 0").size(), 1U);
}

TEST_P(PersonnelAdd, AnOrderWhosePersonCannotBeWrittenIsTakenBack) {
    open();
    fillAdd();
    program.execute("create unique index OnePersonOnly on Persons (LastName)");
    addRows(5, "DOE");
    save(addSide);
    const auto boxes = program.dialogs.take();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "ZEL:Error Saving");
    EXPECT_THAT(rows("select ResourceID from Resources"), ElementsAre("5"));
    EXPECT_EQ(screen().mskPersonnel(2).Text(), "DOE");
}

TEST_P(PersonnelAdd, TheChosenAccountIsThatOfThePage) {
    open();
    fillAdd();
    pick(screen().dbcAcct(0), "P6ZZ99");
    EXPECT_EQ(session.gAccountingID, otherAccount);
    save(addSide);
    EXPECT_THAT(rows("select AccountingID from Persons"), ElementsAre("32"));
    EXPECT_EQ(screen().dbcAcct(0).Text(), "P6AB12");
}

TEST_P(PersonnelAdd, UnderAllIncidentsThePersonGoesToTheChosenOne) {
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    program.addAccount(40, 9, "ELK1");
    open();
    click(program.shell().chkManageAll);
    program.dialogs.take();
    fillAdd();
    pick(screen().dbcIncidentMulti(0), "ELK RIDGE");
    EXPECT_EQ(screen().dbcAcct(0).Text(), "ELK1");
    save(addSide);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("select IncidentID, AccountingID from Resources"), ElementsAre("9|40"));
}

TEST_P(PersonnelAdd, ClearEmptiesThePageButForTheDefaultAccount) {
    open();
    fillAdd();
    click(screen().cmdClear(1));
    EXPECT_EQ(screen().mskCrew(0).Text(), "");
    EXPECT_EQ(screen().dbcKind(0).Text(), "");
    EXPECT_EQ(screen().dbcStatus(1).Text(), "");
    EXPECT_EQ(screen().dbcAcct(0).Text(), "P6AB12");
}

} // namespace
} // namespace zel::personnel
