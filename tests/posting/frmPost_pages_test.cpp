// The posting screen as a whole: its pages, the commands of the shell, and what outlives them.
#include "posting/post_columns.h"
#include "posting/post_screen_test.h"

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PostPagesTest : public PostScreenTest {
protected:
    void page(int number) { EXPECT_EQ(program.user.selectTab(screen().tabPosting, number).refusal, ""); }
    void toolbar(const std::string& key) { EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, key).refusal, ""); }
    std::vector<std::string> sent() { return std::exchange(program.statements, {}); }
    /// What the print button hands to the reports: "6 P1".
    std::string printed() {
        std::string order;
        session.extensions.PrintReport = [&order](int report, const std::string& option) {
            order = std::to_string(report) + " " + option;
        };
        EXPECT_EQ(program.user.click(screen().cmdPrint286).refusal, "");
        return order;
    }
};
ZEL_ON_BOTH_ENGINES(PostPagesTest);

const char* const crewsOfTheIncident =
    "SELECT DISTINCT qryCrews.CrewInfo, qryCrews.*, Left(qryCrews.RequestNumber, 1) as Letter, "
    "dbo.f_SortRequestNumber(qryCrews.RequestNumber) as Req FROM qryCrews LEFT JOIN L_Status ON qryCrews.Status = "
    "L_Status.Code WHERE (((((qryCrews.ParentID)<>-1) AND ((L_Status.ZEL)=1)) OR (((qryCrews.Status) Is Null) or "
    "qryCrews.Status = '') AND (qryCrews.ParentID<>-1)) AND (qrycrews.incidentid = 7)) ORDER BY Letter, Req ASC";
const char* const crewsOfAll =
    "SELECT DISTINCT qryCrews.CrewInfo, qryCrews.*, Left(qryCrews.RequestNumber, 1) as Letter, "
    "dbo.f_SortRequestNumber(qryCrews.RequestNumber) as Req FROM qryCrews LEFT JOIN L_Status ON qryCrews.Status = "
    "L_Status.Code WHERE ((((qryCrews.ParentID)<>-1) AND ((L_Status.ZEL)=1)) OR (((qryCrews.Status) Is Null) or "
    "qryCrews.Status = '') AND (qryCrews.ParentID<>-1)) ORDER BY Letter, Req ASC";
const char* const members =
    "Select Lnfn,Info,PersonID,FirstName,LastName,fSSN,PStatus,Class,Rate,FedCode,Collection,RResourceID,RKindCode,"
    "KindCode,AccountingCode,AccountingID,Area from qrySelectPersonnel";
const std::string personsOfAll =
    "SELECT Persons.LastName + ', ' + Persons.FirstName + '" + std::string(63, ' ') +
    "' + cast(Persons.PersonID as nvarchar) AS LnFn, Persons.LastName + ', ' + Persons.FirstName + '  (' + "
    "SUBSTRING(Persons.SSN, 1, 3) + '-' + SUBSTRING(Persons.SSN, 4, 2) + '-' + SUBSTRING(Persons.SSN, 6, 4) + ')  ' "
    "+ Resources.RequestNumber AS Info, Persons.PersonID, Persons.FirstName, Persons.LastName, Persons.SSN, "
    "Persons.AgencyCode, Persons.LeaderID, Persons.OverheadID, Persons.PStatus, Persons.MailAddr1, "
    "Persons.MailAddr2, Persons.City, Persons.State, Persons.ZipCode, Persons.Phone, Persons.FaxPhone, Persons.Area, "
    "Persons.Class, Persons.Rate, Persons.InitEmployYN, Persons.PointOfHire, Persons.ReturnTravelYN, "
    "Persons.FedCode, Persons.Remarks, Persons.KindCode, Resources.RequestNumber, Resources.Collection, "
    "Persons.ResourceID AS RResourceID, Resources.IncidentID, Resources.Status, Resources.KindCode AS RKindCode, "
    "Resources.Name, Persons.SSN AS fSSN, Resources.ResourceID, Resources.AgencyCode AS RAgencyCode, "
    "AccountingCodes.AccountingCode, Persons.AccountingID, Resources.mobDate, Resources.ContractedResource, "
    "Persons.PersonID FROM (AccountingCodes RIGHT OUTER JOIN Resources INNER JOIN Persons ON Resources.ResourceID = "
    "Persons.ResourceID ON AccountingCodes.AccountingID = Persons.AccountingID) LEFT JOIN L_Status ON "
    "Persons.PStatus = L_Status.Code WHERE ";
const char* const personStatus =
    "(((L_Status.ZEL)=1) OR ((Persons.PStatus Is Null) OR (Persons.PStatus = ''))) ORDER BY LnFn";

TEST_P(PostPagesTest, ThePageOfCrewsAsksForCrewsMembersAndPosts) {
    page(1);
    const auto statements = sent();
    ASSERT_GE(statements.size(), 4U);
    EXPECT_EQ(statements[0], crewsOfTheIncident);
    EXPECT_EQ(statements[1], members);
    EXPECT_EQ(statements.back(), "Select * from PersonsPost order by ActivityDt, StartTime, StopTime");
}

TEST_P(PostPagesTest, ThePageOfPersonsAsksForPersonsAndNobodysPosts) {
    page(1);
    program.statements.clear();
    page(0);
    EXPECT_THAT(sent(), ElementsAre(personsOfAll + "(Resources.IncidentID = 7) AND " + personStatus,
                                    "Select * from persons where personid = 0",
                                    "Select * from PersonsPost where PersonsPostID = 0", "Select * from PersonsPost"));
}

TEST_P(PostPagesTest, WithAllIncidentsAsOneTheConditionOnTheIncidentFallsAway) {
    session.gManageAll = true;
    page(1);
    EXPECT_EQ(sent().at(0), crewsOfAll);
    page(0);
    EXPECT_EQ(sent().at(0), personsOfAll + personStatus);
    page(2);
    EXPECT_EQ(sent().at(0), "SELECT distinct Contractor.ContractorName, Contractor.ContractorID, "
                            "Contractor.ContractorNum, Contractor.Addr, Contractor.City , Contractor.State, "
                            "Contractor.Zip, Contractor.Phone, Contractor.IncidentID FROM Contractor ");
}

TEST_P(PostPagesTest, ThePageOfEquipmentStandsOnEquipmentEachTime) {
    for (const int visit : {1, 2}) {
        page(2);
        const auto statements = sent();
        ASSERT_GE(statements.size(), 4U) << visit;
        EXPECT_TRUE(statements[0].ends_with("FROM Contractor WHERE Contractor.IncidentID = 7"));
        EXPECT_TRUE(statements[1].ends_with("AND RequestNumber = '-100'"));
        EXPECT_EQ(statements[2], "Select * from ContractorPost Where ContractorPostID=0");
        EXPECT_EQ(statements[3], statements[0]); // the click of the type
        EXPECT_TRUE(screen().optType(0).value());
        EXPECT_EQ(screen().lblCurrentPost.Caption(), "Posting Equipment");
        page(0);
        program.statements.clear();
    }
}

TEST_P(PostPagesTest, TheTypeOfContractNamesThePosting) {
    page(2);
    EXPECT_EQ(program.user.click(screen().optType(1)).refusal, "");
    EXPECT_EQ(screen().lblCurrentPost.Caption(), "Posting Contract Crew");
    EXPECT_EQ(session.gContractType, 1);
    EXPECT_EQ(program.user.click(screen().optType(2)).refusal, "");
    EXPECT_EQ(screen().lblCurrentPost.Caption(), "Posting Other Contracts");
    EXPECT_EQ(session.gContractType, 2);
}

TEST_P(PostPagesTest, ThePersonInFrontIsStillThereBackFromAnotherPage) {
    choose("ROE");
    ticket("07042005", "0800", "2000");
    page(1);
    page(2);
    page(0);
    EXPECT_EQ(screen().dbcPersonnel.BoundText(), "2");
    EXPECT_TRUE(screen().dbcPersonnel.Text().starts_with("ROE, JOHN"));
    EXPECT_EQ(screen().cboTime(1).Text(), "20:00");
}

TEST_P(PostPagesTest, TheAccountInForceStandsOnThePageInFront) {
    choose("DOE");
    page(1);
    EXPECT_EQ(screen().dbcAcct(1).Text(), "P6AB12");
    session.gAccountingID = -1;
    page(0);
    EXPECT_EQ(screen().dbcAcct(0).Text(), "");
}

TEST_P(PostPagesTest, RefreshKeepsThePersonTheAccountAndTheTicket) {
    program.addAccount(32, 7, "P6ZZ99");
    program.execute("Update AccountingCodes set IncidentDefault = 0 where AccountingID = 32");
    program.execute("Update Persons set AccountingID = 32 where PersonID = 1");
    toolbar("Refresh");
    choose("DOE");
    ticket("07042005", "0800", "2000");
    type(screen().cboTime(1), "18"); // not left yet
    toolbar("Refresh");
    EXPECT_EQ(session.gAccountingID, 32);
    EXPECT_EQ(screen().dbcAcct(0).Text(), "P6ZZ99");
    EXPECT_EQ(screen().dbcPersonnel.BoundText(), "1");
    EXPECT_EQ(screen().cboTime(0).Text() + " " + screen().cboTime(1).Text(), "08:00 18");
}

TEST_P(PostPagesTest, AnotherIncidentDropsThePersonAndBringsItsAccount) {
    program.addIncident(8, "ELK RIDGE", "OR-ABC-000124");
    program.addAccount(41, 8, "P8CD34");
    toolbar("Refresh");
    choose("NOCODE");
    EXPECT_EQ(program.user.moveFocus(screen().mskPost(0)).refusal, ""); // grey now
    EXPECT_EQ(program.user.pick(program.shell().dbcIncident(0), "ELK RIDGE").refusal, "");
    EXPECT_EQ(screen().dbcPersonnel.Text(), "");
    EXPECT_EQ(screen().dbcPersonnel.rowCount(), 0);
    EXPECT_EQ(screen().dbgPersonnelPost.rowCount(), 0);
    EXPECT_EQ(session.gAccountingID, 41);
    EXPECT_EQ(screen().dbcAcct(0).Text(), "P8CD34");
    EXPECT_TRUE(screen().cmdSave(0).Enabled());
}

TEST_P(PostPagesTest, WithAllIncidentsAsOneTheAccountsOfAllCanBeChosen) {
    program.addIncident(8, "ELK RIDGE", "OR-ABC-000124");
    program.addAccount(41, 8, "P8CD34");
    EXPECT_EQ(program.user.check(program.shell().chkManageAll, true).refusal, "");
    EXPECT_EQ(screen().dbcAcct(0).Columns(0).Caption(), "Incident");
    choose("DOE");
    EXPECT_EQ(program.user.pick(screen().dbcAcct(0), "P8CD34").refusal, "");
    ticket("07042005", "0800", "2000");
    save();
    EXPECT_THAT(rows("Select AccountingID from PersonsPost"), ElementsAre("41"));
    EXPECT_EQ(program.user.check(program.shell().chkManageAll, false).refusal, "");
    EXPECT_EQ(screen().dbcAcct(0).rowCount(), 1);
    EXPECT_EQ(screen().dbcAcct(0).Columns(0).Caption(), "AcctCode");
}

TEST_P(PostPagesTest, WithoutAnIncidentTheScreenSaysSo) {
    session.gIncidentID = -1;
    program.run([this] { screen().tbFormOpen(); });
    const auto box = program.box();
    EXPECT_EQ(box.text, "Incident not identified.  Exit ZEL and try again.");
    EXPECT_EQ(box.title, "ZEL: Incident Not Found");
}

TEST_P(PostPagesTest, AMissingTableIsToldOnce) {
    program.execute("Drop table L_Time");
    program.run([this] { screen().tbFormOpen(); });
    EXPECT_EQ(program.box().title, "ZEL: Error");
}

TEST_P(PostPagesTest, NewGoesToTheDateOfThePageInFront) {
    program.run([this] { screen().tbNew(); });
    EXPECT_TRUE(screen().mskPost(0).hasFocus());
    page(1);
    program.run([this] { screen().tbNew(); });
    EXPECT_TRUE(screen().mskPost(2).hasFocus());
    page(2);
    screen().mskPostEquipPost(0).setEnabled(true); // as soon as equipment is posted
    program.run([this] { screen().tbNew(); });
    EXPECT_TRUE(screen().mskPostEquipPost(0).hasFocus());
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
}

TEST_P(PostPagesTest, TheKeyOfThePrintNamesThePersonOrTheResource) {
    EXPECT_EQ(printed(), "6 ");
    choose("ROE");
    EXPECT_EQ(printed(), "6 P2");
    page(1);
    EXPECT_EQ(printed(), "6 ");
    page(2);
    EXPECT_EQ(printed(), "7 ");
    page(0);
    EXPECT_EQ(printed(), "6 P2");
}

TEST_P(PostPagesTest, OnThePageOfCrewsTheKeyIsTheResourceOfTheCrewInFront) {
    program.execute(
        "insert into Resources (ResourceID,IncidentID,RequestNumber,Name,Collection,Status,ParentID) values "
        "(90,7,'C-4','BEAR',1,'C',0)");
    page(1);
    EXPECT_EQ(printed(), "6 R90");
}

TEST_P(PostPagesTest, ACrewChosenByNameOrNumberBringsItsMembersAndAccount) {
    for (const char* crew : {"90,7,'C-4','BEAR',1,'C',0,31", "91,7,'C-5','ELK',1,'C',0,null"})
        program.execute("insert into Resources (ResourceID,IncidentID,RequestNumber,Name,Collection,Status,ParentID,"
                        "AccountingID) values (" +
                        std::string(crew) + ")");
    program.execute("Update Persons set ResourceID = 91 where PersonID in (1, 2)");
    page(1);
    EXPECT_EQ(program.user.pick(screen().dbcCrew(1), "C-5").refusal, "");
    EXPECT_TRUE(screen().dbcCrew(0).Text().starts_with("ELK")) << screen().dbcCrew(0).Text();
    EXPECT_EQ(screen().dblCrewMembers.rowCount(), 2);
    EXPECT_EQ(screen().dbcAcct(1).Text(), "");
    EXPECT_EQ(session.gAccountingID, -1);
    EXPECT_EQ(printed(), "6 R91");
    EXPECT_EQ(program.user.pickRow(screen().dbcCrew(0), 0).refusal, "");
    EXPECT_EQ(screen().dbcCrew(1).Text(), "C-4");
    EXPECT_EQ(screen().dblCrewMembers.rowCount(), 0);
    EXPECT_EQ(screen().dbcAcct(1).Text(), "P6AB12");
}

TEST_P(PostPagesTest, AContractorBringsTheirEquipmentOfTheType) {
    program.execute("insert into Contractor (ContractorID,IncidentID,ContractorName) values (5,7,'LOWER FALLS')");
    program.execute("insert into Agreement (AgreementID,ContractorID) values (6,5)");
    for (const char* item : {"90,'E-4'", "91,'C-9'"})
        program.execute("insert into Resources (ResourceID,RequestNumber,IncidentID,Name,Status,ParentID) values (" +
                        std::string(item) + ",7,'ENGINE','C',0)");
    for (const char* item : {"70,90,6", "71,91,6"})
        program.execute("insert into Equipment (EquipmentID,ResourceID,AgreementID) values (" + std::string(item) +
                        ")");
    page(2);
    EXPECT_EQ(screen().dbcEquipment.rowCount(), 0);
    EXPECT_EQ(program.user.pick(screen().dbcContractor, "LOWER FALLS").refusal, "");
    ASSERT_EQ(screen().dbcEquipment.rowCount(), 1);
    EXPECT_EQ(program.user.pick(screen().dbcEquipment, "E-4").refusal, "");
    EXPECT_EQ(printed(), "7 R90");
}

TEST_P(PostPagesTest, WhatCannotBeDoneOnAPageYetIsOutOfReach) {
    page(1);
    EXPECT_FALSE(screen().cmdSave(1).Enabled());
    EXPECT_FALSE(screen().cmdDelete(1).Enabled());
    EXPECT_FALSE(screen().dbgPostCrews.AllowUpdate);
    screen().cmdCrew.each([](forms::CommandButton& button) { EXPECT_FALSE(button.Enabled()); });
    toolbar("Save");
    toolbar("Delete");
    page(2);
    EXPECT_FALSE(screen().cmdSave(2).Enabled());
    EXPECT_FALSE(screen().mskPostEquipPost(0).Enabled());
    EXPECT_FALSE(screen().dbgPostEquipment.AllowUpdate);
    toolbar("Save");
    toolbar("Delete");
    program.run([this] { screen().tbNew(); });
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
}

TEST_P(PostPagesTest, ReturnTravelOfCrewsTakesTheirOwnSpecialCodeAndLabel) {
    page(1);
    EXPECT_GE(forms::findItem(screen().cbPost(1).items(), "HP"), 0);
    EXPECT_EQ(program.user.pick(screen().cbPost(1), "GUAR").refusal, "");
    EXPECT_EQ(program.user.check(screen().chkCrewLastDay, true).refusal, "");
    EXPECT_EQ(screen().cbPost(1).ListIndex(), screen().cbPost(1).ListCount() - 1);
    EXPECT_EQ(screen().lblPost(7).Caption(), "Stop Time");
    EXPECT_EQ(screen().lblPost(3).Caption(), "* Stop Time");
    EXPECT_EQ(program.user.check(screen().chkCrewLastDay, false).refusal, "");
    EXPECT_EQ(screen().lblPost(7).Caption(), "* Stop Time");
}

TEST_P(PostPagesTest, TheEntryFieldsOfCrewsAreCheckedLikeThoseOfPersons) {
    page(1);
    type(screen().mskPost(2), "06302005");
    EXPECT_NE(program.user.moveFocus(screen().cboTime(2)).refusal, "");
    EXPECT_EQ(program.box().title, "ZEL: Invalid Date vs Incident Start Date");
    EXPECT_EQ(program.user.keys(screen().mskPost(2), "=").refusal, "");
    EXPECT_EQ(screen().mskPost(2).Text(), "07/04/2005");
    type(screen().cboTime(2), "2200");
    type(screen().cboTime(3), "0607");
    EXPECT_EQ(program.user.leave(screen().cboTime(3)).refusal, "");
    EXPECT_EQ(program.box().text, "Invalid Time..Must be in 15 minute interval.");
    type(screen().cboTime(3), "0600");
    EXPECT_EQ(program.user.leave(screen().cboTime(3)).refusal, "");
    EXPECT_EQ(screen().mskPost(3).Text(), "8");
    EXPECT_EQ(screen().mskPost(1).Text(), "");
    EXPECT_EQ(program.user.click(screen().cmdClear(1)).refusal, "");
    EXPECT_EQ(screen().mskPost(2).Text() + screen().cboTime(3).Text() + screen().mskPost(3).Text(), "__/__/____");
}

TEST_P(PostPagesTest, TheMemberInFrontIsTheCurrentPersonOfTheNextScreen) {
    program.execute(
        "insert into Resources (ResourceID,IncidentID,RequestNumber,Name,Collection,Status,ParentID) values "
        "(90,7,'C-4','BEAR',1,'C',0)");
    program.execute("Update Persons set ResourceID = 90 where PersonID in (1, 2)");
    page(1);
    EXPECT_EQ(program.user.pickRow(screen().dbcCrew(0), 0).refusal, "");
    EXPECT_EQ(screen().lblCrewMembers.Caption(), "Crew Members:  (0 selected)");
    EXPECT_EQ(program.user.selectRows(screen().dblCrewMembers, {0, 1}).refusal, "");
    EXPECT_EQ(screen().lblCrewMembers.Caption(), "Crew Members:  (2 selected)");
    EXPECT_EQ(program.user.pickRow(screen().dblCrewMembers, 1).refusal, "");
    program.run([this] { program.shell().OpenScreen("Settings", true, 0); });
    EXPECT_EQ(session.gCurrentPersonID, 2);
    EXPECT_EQ(session.gCurrentResourceID, 90);
}

TEST_P(PostPagesTest, TheColumnsOfBothGridsStandWhereTheRulesLookForThem) {
    for (forms::TDBGrid* grid : {&screen().dbgPersonnelPost, &screen().dbgPostCrews}) {
        std::string captions;
        for (int column = 0; column < grid->columnCount(); ++column)
            captions += grid->Columns(column).Visible() ? grid->Columns(column).Caption() + " " : "- ";
        EXPECT_EQ(captions, "- - - Date Start Stop KindCode Class Rate Special Hours Amt Remarks - - AccountingID - ");
        EXPECT_EQ(grid->Columns(15).DataField(), "AccountingID");
        EXPECT_EQ(grid->Columns(9).DataField(), "PremiumCode");
    }
}

TEST_P(PostPagesTest, OneOfFiftyThousandPersonsIsFoundAndPosted) {
    program.execute("with recursive n(i) as (select 1000 union all select i + 1 from n where i < 50999) insert into "
                    "Persons (PersonID,ResourceID,FirstName,LastName,SSN,PStatus,FedCode,AccountingID) select i, 1, "
                    "'PAT', 'N' || i, '987654321', 'C', 'FED', 31 from n");
    toolbar("Refresh");
    EXPECT_EQ(screen().dbcPersonnel.rowCount(), 50'003);
    choose("N50999");
    ticket("07042005", "0800", "2000");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(posts(), ElementsAre("50999|7/4/2005|8:00:00 AM|8:00:00 PM|SITL| |12|31"));
    EXPECT_EQ(screen().dbcPersonnel.BoundText(), "50999");
}

} // namespace
} // namespace zel::posting
