#include "core/lists.h"
#include "core/test_program.h"

namespace zel::core {

struct StatementCase {
    int number;
    bool bForIncident;
    const char* server;
    const char* desktop; // null when both dialects have one form
};

class ListStatementTest : public ::testing::TestWithParam<StatementCase> {};

#define RATE_COLUMNS ",RateType,Rate,GuaranteeAmt,UnitOfMeasureID,EquipmentID,ResourceID from UnitOfMeasure "
#define SPECIAL_COLUMNS ",RateType,Rate,Description,UnitOfMeasureID,EquipmentID,ResourceID from UnitOfMeasure "
#define INCIDENTS                                                                                                      \
    "Select Incidents.IncidentID as IncidentID, IncidentName, IncidentNumber, IncidentLocation, EndDate, "             \
    "ParentIncident, IncidentState, AdminName, AdminAddr1, AdminAddr2, AdminCity, AdminState, AdminZip, "              \
    "AccountingID, AccountingCode, AccountingCodes.IncidentID as aIncidentID, IncidentDefault, AgencyCode, StartDate " \
    "FROM Incidents LEFT JOIN AccountingCodes ON Incidents.IncidentID = AccountingCodes.IncidentID WHERE "             \
    "accountingcodes.incidentid is null or "

INSTANTIATE_TEST_SUITE_P(
    Numbers, ListStatementTest,
    ::testing::Values(
        StatementCase{1, true,
                      "SELECT AccountingCode,AccountingID,IncidentID,AgencyCode,IncidentDefault from AccountingCodes "
                      "where IncidentID = 7 order by IncidentDefault,AccountingCode",
                      nullptr},
        StatementCase{1, false,
                      "SELECT IncidentName,AccountingCode,AccountingID,AccountingCodes.IncidentID,AgencyCode,"
                      "IncidentDefault from AccountingCodes INNER JOIN Incidents ON AccountingCodes.IncidentID = "
                      "Incidents.IncidentID order by IncidentName,IncidentDefault,AccountingCode",
                      nullptr},
        StatementCase{2, true,
                      "SELECT KindCode,KindDesc,RequestCat FROM L_Kind where KindCode is not Null ORDER BY Kindcode",
                      nullptr},
        StatementCase{4, true, "SELECT Code,Description FROM L_State order by code", nullptr},
        StatementCase{5, true, INCIDENTS "accountingcodes.incidentdefault=1 order by IncidentName",
                      INCIDENTS "accountingcodes.incidentdefault=true order by IncidentName"},
        StatementCase{6, true, "Select Description, Postable, Code from L_Status where ZEL = 1 order by description",
                      "Select Description, Postable, Code from L_Status where ZEL = True order by description"},
        StatementCase{7, true,
                      "Select AgencyCode, AgencyDesc from qryAgency where AgencyCode is not Null order by AgencyCode",
                      nullptr},
        StatementCase{8, true, "Select distinct area from L_ClassRates order by area", nullptr},
        StatementCase{9, true, "Select distinct class from L_ClassRates order by class", nullptr},
        StatementCase{10, true, "Select EquipDescription from L_RateType where EquipRate = 1 order by EquipDescription",
                      "Select EquipDescription from L_RateType where EquipRate = True order by EquipDescription"},
        StatementCase{11, true,
                      "Select [Primary],RateType,Rate,GuaranteeAmt,UnitOfMeasureID,EquipmentID,ResourceID,Description "
                      "from UnitOfMeasure where EquipmentID = 12",
                      nullptr},
        StatementCase{12, true,
                      "Select Convert(nvarchar,RateType) + '  |  $' + Convert(nvarchar,Rate) + '  |  $' + "
                      "Convert(nvarchar,GuaranteeAmt) as Info" RATE_COLUMNS "where [Primary] = 1 and EquipmentID = 12",
                      "Select RateType & '  |  ' & Format(Rate,'Standard') & '  |  ' & Format(GuaranteeAmt,"
                      "'Standard') as Info" RATE_COLUMNS "where [Primary] = True and EquipmentID = 12"},
        StatementCase{13, true,
                      "Select Convert(nvarchar,RateType) + '  |  $' + Convert(nvarchar,Rate) + '  |  ' + Description "
                      "as Info" SPECIAL_COLUMNS "where [Primary] = 0 and EquipmentID = 12",
                      "Select RateType & '  |  ' & Format(Rate,'Standard') & '  |  ' & Description as "
                      "Info" SPECIAL_COLUMNS "where [Primary] = False and EquipmentID = 12"},
        StatementCase{14, true,
                      "SELECT L_Status.Code, L_Status.Description From L_Status WHERE (((L_Status.Postable)=1))",
                      "SELECT L_Status.Code, L_Status.Description From L_Status WHERE (((L_Status.Postable)=True))"},
        StatementCase{15, true,
                      "SELECT AccountingID,AccountingCodes.IncidentID,IncidentName,AccountingCode,AgencyCode,"
                      "IncidentDefault from AccountingCodes INNER JOIN Incidents ON AccountingCodes.IncidentID = "
                      "Incidents.IncidentID order by IncidentName,IncidentDefault,AccountingCode",
                      nullptr},
        StatementCase{0, true, "", nullptr}, StatementCase{3, true, "", nullptr},
        StatementCase{16, true, "", nullptr}));

TEST_P(ListStatementTest, TheStatementIsWordedInBothDialects) {
    TestProgram program(ado::EngineKind::Sqlite);
    const StatementCase& wanted = GetParam();
    program.session.gIncidentID = 7;
    const RateLinesOf equipment{RateLinesOf::Key::EquipmentID, 12};
    program.session.gServerDialect = true;
    EXPECT_EQ(listStatement(program.session, wanted.bForIncident, wanted.number, equipment).text(), wanted.server);
    program.session.gServerDialect = false;
    EXPECT_EQ(listStatement(program.session, wanted.bForIncident, wanted.number, equipment).text(),
              wanted.desktop == nullptr ? wanted.server : wanted.desktop);
}

class ListsTest : public ProgramTest {
protected:
    ListsTest() { session.gConnection = std::make_shared<ado::Connection>(program.database.open()); }
    forms::ValueArray list;
};
ZEL_ON_BOTH_ENGINES(ListsTest);

TEST_P(ListsTest, EveryListLoadsInBothDialects) {
    program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
    program.addAccount(31, 7, "P6AB12");
    program.execute("insert into UnitOfMeasure (UnitOfMeasureID, EquipmentID, ResourceID, [Primary], Rate, RateType, "
                    "GuaranteeAmt, Description) values (1, 12, 0, 1, 1250.5, 'Daily', 100, '')");
    program.execute("insert into UnitOfMeasure (UnitOfMeasureID, EquipmentID, ResourceID, [Primary], Rate, RateType, "
                    "GuaranteeAmt, Description) values (2, 12, 0, 0, 3, 'Mileage', 0, 'per mile')");
    session.gIncidentID = 7;
    for (const bool server : {true, false}) {
        session.gServerDialect = server;
        for (const int number : {1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}) {
            LoadList(session, true, list, number, {RateLinesOf::Key::EquipmentID, 12});
            EXPECT_GT(session.gListRows, 0) << "list " << number << (server ? " server" : " desktop");
            EXPECT_EQ(list.rows(), session.gListRows);
            EXPECT_EQ(list.columns(), session.gListColumns);
        }
    }
}

TEST_P(ListsTest, TheInfoOfRateLinesReadsByDialect) {
    program.execute("insert into UnitOfMeasure (UnitOfMeasureID, EquipmentID, ResourceID, [Primary], Rate, RateType, "
                    "GuaranteeAmt, Description) values (1, 0, 5, 1, 1250.5, 'Daily', 100, '')");
    session.gServerDialect = true;
    LoadList(session, true, list, 12, {RateLinesOf::Key::ResourceID, 5});
    EXPECT_EQ(list(0, "Info"), ado::Value("Daily  |  $1250.50  |  $100.00"));
    session.gServerDialect = false;
    LoadList(session, true, list, 12, {RateLinesOf::Key::ResourceID, 5});
    EXPECT_EQ(list(0, "Info"), ado::Value("Daily  |  1,250.50  |  100.00"));
}

TEST_P(ListsTest, AnEmptyResultLeavesOneEmptyRow) {
    LoadList(session, true, list, 1);
    EXPECT_EQ(session.gListRows, 0);
    EXPECT_EQ(list.rows(), 1);
    EXPECT_EQ(list.columns(), 5);
    EXPECT_TRUE(list(0, 0).isNull());
    LoadList(session, true, list, 11);
    EXPECT_EQ(list.rows(), 1);
    EXPECT_EQ(list.columns(), 7);
}

TEST_P(ListsTest, ANumberWithoutAStatementLeavesTheListAlone) {
    LoadList(session, true, list, 4);
    const int rows = list.rows();
    for (const int number : {-1, 0, 3, 16})
        LoadList(session, true, list, number);
    EXPECT_EQ(list.rows(), rows);
}

TEST_P(ListsTest, TheSavedIncidentIsSelected) {
    program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    program.addAccount(31, 9, "P6AB12");
    program.putIni("[ZEL]\nIncident=9\n");
    EXPECT_EQ(SelectIncident(session, -1), 9);
    EXPECT_EQ(session.gIncidentIndex, 1);
    EXPECT_EQ(session.gAccountingID, 31);
    EXPECT_EQ(session.gIncidentStart, "7/1/2005");
}

TEST_P(ListsTest, ASavedIncidentThatIsGoneFallsBackToTheFirst) {
    program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    program.putIni("[ZEL]\nIncident=4711\n");
    EXPECT_EQ(SelectIncident(session, -1), 7);
    EXPECT_EQ(session.gIncidentIndex, 0);
    EXPECT_EQ(session.gAccountingID, -1);
    EXPECT_EQ(program.ini(), "[ZEL]\nIncident=7\n");
}

TEST_P(ListsTest, AWantedIncidentThatIsGoneFallsBackToTheSavedOne) {
    program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    program.putIni("[ZEL]\nIncident=9\n");
    EXPECT_EQ(SelectIncident(session, 4711), 9);
    EXPECT_EQ(session.gIncidentIndex, 1);
}

TEST_P(ListsTest, WithoutASavedIncidentTheFirstIsTaken) {
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
    EXPECT_EQ(SelectIncident(session, -1), 7);
}

TEST_P(ListsTest, WithoutIncidentsThereIsNone) {
    session.gIncidentID = 7;
    session.gIncidentIndex = 3;
    session.gIncidentStart = "7/1/2005";
    program.putIni("[ZEL]\nIncident=7\n");
    EXPECT_EQ(SelectIncident(session, -1), -1);
    EXPECT_EQ(session.gIncidentID, -1);
    EXPECT_EQ(session.gIncidentIndex, -1);
    EXPECT_EQ(session.gIncidentStart, "");
    EXPECT_EQ(program.ini(), "[ZEL]\nIncident=7\n");
}

TEST_P(ListsTest, TheRequestCategoriesAreReadWithACommaBehindEach) {
    program.execute("delete from L_RequestCat where Code <> 'O' and Code <> 'E'");
    LoadRequestCats(session);
    EXPECT_THAT(session.gRequestCats.as<std::string>(), testing::AnyOf("O,E,", "E,O,"));
    program.execute("delete from L_RequestCat");
    LoadRequestCats(session);
    EXPECT_TRUE(session.gRequestCats.isNull());
}

} // namespace zel::core
