#include "ado/convert.h"
#include "ado/error.h"
#include "recordset_fixture.h"

namespace zel::ado {
namespace {

/// The record sets that screens write through, with their own statements.
class RecordsetOfScreens : public RecordsetTest {
protected:
    static constexpr const char* contractResources =
        "SELECT Resources.RequestNumber, Resources.IncidentID, Resources.Name, Resources.KindCode, "
        "Resources.Collection, Resources.Status, Resources.AssignDate, Resources.ReleaseDate, Resources.ReleaseTime, "
        "Resources.Remarks, Equipment.*, Resources.AgreementID AS RAgreementID, Resources.ResourceID AS RResourceID, "
        "Resources.AgencyCode, Contractor.ContractorNum, Agreement.AgreementNum, Contractor.ContractorName, "
        "AccountingCodes.AccountingCode, Contractor.ContractorID, Resources.ContractedResource, "
        "Resources.RemarksOF286, Resources.AccountingID AS RAccountingID FROM ((((Resources INNER JOIN Equipment ON "
        "Resources.ResourceID = Equipment.ResourceID) LEFT JOIN Agreement ON Equipment.AgreementID = "
        "Agreement.AgreementID) LEFT JOIN Contractor ON Agreement.ContractorID = Contractor.ContractorID) LEFT JOIN "
        "AccountingCodes ON Equipment.AccountingID = AccountingCodes.AccountingID) LEFT JOIN L_Status ON "
        "Resources.Status = L_Status.Code WHERE (((((Resources.ParentID)<>-1) AND ((L_Status.ZEL)=1) OR "
        "((Resources.Status Is Null) or (Resources.Status = '') or Resources.ContractedResource = 1))) and "
        "left(RequestNumber, 1)='E' or (RequestNumber Is NULL))";

    void addEquipment(Recordset& rows, std::int32_t resource, std::int32_t equipment, const std::string& name) {
        rows.AddNew();
        rows.setValue("EquipmentID", equipment);
        rows.setValue("Make", "FORD");
        rows.setValue("GovtOperatorYN", 0);
        rows.setValue("uniqueequipmentname", name);
        rows.setValue("RResourceID", resource);
        rows.setValue("RAccountingID", 9);
        rows.setValue("RAgreementID", 3);
        rows.setValue("Name", "ENG3-SMITH");
        rows.setValue("contractedresource", true);
        rows.setValue("ResourceID", resource);
        rows.setValue("AccountingID", 9);
        rows.setValue("GovtSuppliesYN", 1);
        rows.setValue("IncidentID", 5);
        rows.setValue("AgencyCode", "PVT");
        rows.setValue("AgreementID", 3);
        rows.setValue("RequestNumber", "E-7");
        rows.setValue("AssignDate", "07/04/2005 06:30");
        rows.setValue("ReleaseDate", Value());
        rows.setValue("Collection", true);
        rows.Update();
    }
};

TEST_P(RecordsetOfScreens, ANewContractResourceWritesItsResourceAndItsEquipment) {
    Recordset rows;
    rows.Open(Sql::words(contractResources), connection);
    addEquipment(rows, 40, 50, "ENGINE 5");
    EXPECT_EQ(lookUp("select Name from Resources where ResourceID = 40 and AccountingID = 9 and AgreementID = 3 and "
                     "ContractedResource = 1 and Collection = 1 and IncidentID = 5"),
              "ENG3-SMITH");
    EXPECT_EQ(lookUp("select AssignDate from Resources"), "7/4/2005 6:30:00 AM");
    EXPECT_EQ(lookUp("select UniqueEquipmentName from Equipment where EquipmentID = 50 and ResourceID = 40 and "
                     "AccountingID = 9 and AgreementID = 3 and GovtSuppliesYN = 1"),
              "ENGINE 5");
    EXPECT_EQ(lookUp("select count(*) from Agreement"), "0");
    EXPECT_EQ(rows.value("ReleaseDate"), Value());
    EXPECT_EQ(rows.value("UniqueEquipmentName"), Value("ENGINE 5"));
}

TEST_P(RecordsetOfScreens, AnEditOfAContractResourceWritesBothOrNeither) {
    Recordset rows;
    rows.Open(Sql::words(contractResources), connection);
    addEquipment(rows, 40, 50, "ENGINE 5");
    rows.Requery();
    rows.Find("EquipmentID = 50");
    rows.setValue("Make", "GMC");
    rows.setValue("Withdrawn", true);
    rows.setValue("KindCode", "ENG6");
    rows.Update();
    EXPECT_EQ(lookUp("select KindCode from Resources"), "ENG6");
    EXPECT_EQ(lookUp("select Make from Equipment where Withdrawn = 1"), "GMC");
    run("update Equipment set Make = 'DODGE'");
    rows.setValue("KindCode", "ENG1");
    rows.setValue("Make", "FORD");
    EXPECT_THROW(rows.Update(), Error);
    rows.CancelUpdate();
    EXPECT_EQ(lookUp("select KindCode from Resources"), "ENG6");
    EXPECT_EQ(lookUp("select Make from Equipment"), "DODGE");
}

TEST_P(RecordsetOfScreens, ASortByUniqueNameAndAFindWorkOnTheJoin) {
    Recordset rows;
    rows.Open(Sql::words(contractResources), connection);
    addEquipment(rows, 40, 50, "TENDER");
    addEquipment(rows, 41, 51, "engine");
    rows.Requery();
    rows.setSort("UniqueEquipmentName");
    EXPECT_EQ(rows.value("EquipmentID"), Value(51));
    rows.Find("EquipmentID = 50");
    EXPECT_EQ(rows.value("UniqueEquipmentName"), Value("TENDER"));
}

TEST_P(RecordsetOfScreens, APostingSplitAtMidnightIsTwoRowsOfTheTable) {
    run("insert into PersonsPost (PersonsPostID, PersonID) values (1, 1)");
    Recordset posts;
    posts.Open("PersonsPost", connection, CursorType::Keyset, LockType::Optimistic);
    for (const int half : {0, 1}) {
        posts.AddNew();
        posts.setValue("PersonsPostID", 2 + half);
        posts.setValue("PersonID", 7);
        posts.setValue("ActivityDT", DateTime::fromDate(2005, 7, 4 + half));
        posts.setValue("StartTime", half == 0 ? Value(DateTime::fromTime(22, 0)) : Value("12:01:00 AM"));
        posts.setValue("StopTime", half == 0 ? Value("12:00:00 AM") : Value(DateTime::fromTime(6, 0)));
        posts.setValue("Hours", half == 0 ? 2.0F : 6.0F);
        posts.setValue("Rate", "0" + toText(Currency::fromTicks(182'000)));
        posts.setValue("amt", 36.4F);
        posts.Update();
    }
    posts.Close();
    EXPECT_EQ(lookUp("select StopTime from PersonsPost where PersonsPostID = 2"), "12:00:00 AM");
    EXPECT_EQ(lookUp("select StartTime from PersonsPost where PersonsPostID = 3"), "12:01:00 AM");
    EXPECT_EQ(lookUp("select ActivityDT from PersonsPost where PersonsPostID = 3"), "7/5/2005");
    EXPECT_EQ(lookUp("select Rate from PersonsPost where PersonsPostID = 3"), "18.2");
    EXPECT_EQ(lookUp("select Amt from PersonsPost where PersonsPostID = 3"), "36.4");
    EXPECT_EQ(lookUp("select FinalCol from PersonsPost where PersonsPostID = 3"), "0");
}

TEST_P(RecordsetOfScreens, ThePostingsOfOnePersonAreReadWithoutTheOthers) {
    for (const char* row :
         {"1, 7, '2005-07-05', 0", "2, 7, '2005-07-04', 0", "3, 7, '2005-07-04', 1", "4, 8, '2005-07-04', 0"})
        run("insert into PersonsPost (PersonsPostID, PersonID, ActivityDT, FinalCol) values (" + std::string(row) +
            ")");
    Recordset posts;
    posts.Open("Select * from PersonsPost order by ActivityDt, StartTime, StopTime", connection);
    posts.setFilter("PersonID=" + Sql::of(7) + " and FinalCol = 0");
    posts.setSort("ActivityDT, StartTime, StopTime");
    EXPECT_EQ(posts.RecordCount(), 2);
    EXPECT_EQ(posts.value("PersonsPostID"), Value(2));
    EXPECT_EQ(posts.Clone().RecordCount(), 2) << "rows of other persons were read";
    posts.setFilter("PersonID=0");
    EXPECT_TRUE(posts.EOF_());
}

TEST_P(RecordsetOfScreens, DatesAndTimesAreFoundByFilterAndFind) {
    run("insert into PersonsPost (PersonsPostID, ActivityDT, StartTime) values (1, '2005-07-04', '1899-12-30 00:01')");
    run("insert into PersonsPost (PersonsPostID, ActivityDT, StartTime) values (2, '2005-07-05', '1899-12-30 08:15')");
    for (const bool held : {false, true}) {
        Recordset posts;
        posts.Open("select * from PersonsPost order by PersonsPostID", connection);
        if (held)
            posts.MoveLast();
        posts.setFilter("ActivityDT > #7/4/2005#");
        EXPECT_EQ(posts.value("PersonsPostID"), Value(2));
        posts.setFilter("StartTime = '12:01:00 AM' and ActivityDT = '07/04/2005'");
        EXPECT_EQ(posts.value("PersonsPostID"), Value(1));
        posts.setFilter("");
        posts.Find("StartTime = #8:15:00 AM#");
        EXPECT_EQ(posts.value("PersonsPostID"), Value(2));
    }
}

TEST_P(RecordsetOfScreens, TheMembersOfACrewAreFilteredThroughTheView) {
    run("insert into Resources (ResourceID, Name, Collection) values (10, 'CREW', 1)");
    run("insert into Resources (ResourceID, Name, Collection) values (11, 'OTHER', 1)");
    run("insert into Persons (PersonID, ResourceID, LastName, FirstName) values (1, 10, 'BROWN', 'ANN')");
    run("insert into Persons (PersonID, ResourceID, LastName, FirstName) values (2, 10, 'ADAMS', 'BOB')");
    run("insert into Persons (PersonID, ResourceID, LastName, FirstName) values (3, 11, 'CLARK', 'CY')");
    Recordset members;
    members.Open("SELECT * FROM qryCrewMembers LEFT JOIN L_Status ON qryCrewMembers.PStatus = L_Status.Code WHERE "
                 "(((L_Status.ZEL)=1) or ((qryCrewMembers.PStatus Is Null)or (qryCrewMembers.PStatus = '')))",
                 connection);
    members.setFilter("[ResourceID]=10");
    members.setSort("LastName,FirstName");
    EXPECT_EQ(members.RecordCount(), 2);
    EXPECT_EQ(members.value("Info"), Value("ADAMS, BOB  (--)  "));
    members.setValue("FedCode", "AD");
    members.Update();
    EXPECT_EQ(lookUp("select FedCode from Persons where PersonID = 2"), "AD");
    members.setFilter("[ResourceID]=0");
    EXPECT_EQ(members.RecordCount(), 0);
}

ZEL_ON_BOTH_ENGINES(RecordsetOfScreens);

} // namespace
} // namespace zel::ado
