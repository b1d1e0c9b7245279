#include "personnel/personnel_test.h"

#include <chrono>

namespace zel::personnel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PersonnelList : public PersonnelTest {
protected:
    std::vector<std::string> listed() {
        std::vector<std::string> names;
        for (std::int64_t row = 0; row < screen().dbcPersonnel.rowCount(); ++row)
            names.push_back(ado::toText(screen().dbcPersonnel.fieldValue(row, "LastName")));
        return names;
    }
};
ZEL_ON_BOTH_ENGINES(PersonnelList);

TEST_P(PersonnelList, ShowsTheIndividualsOfTheIncidentByName) {
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    addRows(5, "SMITH");
    addRows(6, "ADAMS");
    addRows(8, "ELSEWHERE", "", "", "O-1", 9);
    addRows(10, "CREWMAN");
    program.execute("update Persons set KindCode = 'CAMP' where PersonID = 10");
    addRows(11, "ORDERED");
    program.execute("update Persons set PStatus = 'O' where PersonID = 11");
    addRows(12, "NOSTATUS");
    program.execute("update Persons set PStatus = null, KindCode = 'CAMP' where PersonID = 12");
    open();
    EXPECT_THAT(listed(), ElementsAre("ADAMS", "NOSTATUS", "SMITH"));
}

TEST_P(PersonnelList, ShowsAllIncidentsUnderManageAll) {
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    addRows(5, "SMITH");
    addRows(8, "ELSEWHERE", "", "", "O-1", 9);
    open();
    EXPECT_FALSE(screen().dbcIncidentMulti(0).Visible());
    click(program.shell().chkManageAll);
    EXPECT_THAT(listed(), ElementsAre("ELSEWHERE", "SMITH"));
    for (const int page : {0, 1}) {
        EXPECT_TRUE(screen().dbcIncidentMulti(page).Visible());
        EXPECT_TRUE(screen().lblIncidentMulti(page).Visible());
    }
    EXPECT_EQ(screen().adoCPersonnel.RecordSource().text(),
              "SELECT qrySelectPersonnel.* FROM (qrySelectPersonnel INNER JOIN L_Kind ON qrySelectPersonnel.KindCode = "
              "L_Kind.KindCode) LEFT JOIN L_Status ON qrySelectPersonnel.PStatus = L_Status.Code WHERE "
              "((qrySelectPersonnel.PStatus Is Null or ((L_Status.ZEL)=1) AND ((L_Kind.RequestCat)='O'))) ORDER BY "
              "qrySelectPersonnel.LnFn");
    choose("ELSEWHERE");
    EXPECT_EQ(session.gIncidentID, 9);
    EXPECT_EQ(screen().dbcIncidentMulti(1).Text(), "ELK RIDGE");
}

TEST_P(PersonnelList, TheStatusReadsAsItsDescription) {
    addRows(5, "SMITH");
    open();
    EXPECT_EQ(screen().dbcPersonnel.Columns("Status").cellText(0), "Checked In");
}

TEST_P(PersonnelList, NobodyIsShownUntilOneIsChosen) {
    addRows(5, "SMITH");
    open();
    EXPECT_EQ(screen().dbcPersonnel.Text(), "");
    EXPECT_EQ(screen().mskPersonnel(6).Text(), "");
    page(1);
    save(editSide);
    EXPECT_THAT(rows("select LastName from Persons"), ElementsAre("SMITH"));
}

TEST_P(PersonnelList, TypingFindsAName) {
    addRows(5, "SMITH");
    addRows(6, "ADAMS");
    open();
    page(1);
    type(screen().dbcPersonnel, "smi");
    leave(screen().dbcPersonnel);
    EXPECT_EQ(screen().mskPersonnel(6).Text(), "SMITH");
    EXPECT_EQ(session.gCurrentPersonID, 5);
}

TEST_P(PersonnelList, ThePersonIsRememberedFromScreenToScreen) {
    addRows(5, "SMITH");
    addRows(6, "ADAMS");
    open();
    choose("SMITH");
    program.run([this] { screen().Unload(); });
    EXPECT_EQ(session.gCurrentPersonID, 5);
    EXPECT_EQ(session.gCurrentResourceID, 5);
    program.run([this] { program.shell().OpenScreen("Personnel", true, 1); });
    EXPECT_EQ(screen().mskPersonnel(6).Text(), "SMITH");
}

TEST_P(PersonnelList, AnotherIncidentShowsItsOwnPeople) {
    program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    program.addAccount(40, 9, "ELK1");
    addRows(5, "SMITH");
    addRows(8, "ELSEWHERE", "", "", "O-1", 9);
    open();
    choose("SMITH");
    pick(program.shell().dbcIncident(0), "ELK RIDGE");
    EXPECT_THAT(listed(), ElementsAre("ELSEWHERE"));
    EXPECT_EQ(screen().mskPersonnel(6).Text(), "");
    EXPECT_EQ(screen().dbcAcct(0).Text(), "ELK1");
}

TEST_P(PersonnelList, DeletingAsksTheSuiteAndOnlyClearsTheAddPage) {
    addRows(5, "SMITH");
    open();
    fillAdd();
    program.run([this] { screen().tbDelete(); });
    EXPECT_EQ(screen().mskPersonnel(2).Text(), "");
    choose("SMITH");
    EXPECT_TRUE(screen().lblMergeNotify(1).Visible());
    program.run([this] { screen().tbDelete(); });
    EXPECT_FALSE(screen().lblMergeNotify(1).Visible());
    EXPECT_EQ(screen().mskPersonnel(6).Text(), "SMITH");
    EXPECT_THAT(rows("select PersonID from Persons"), ElementsAre("5"));
}

TEST_P(PersonnelList, AnOldResourceGoesOnlyWithoutPersonsAndEquipment) {
    addRows(5, "SMITH");
    program.execute("insert into Resources (ResourceID, IncidentID, Name) values (6, 7, 'LEFT OVER')");
    program.execute("insert into Resources (ResourceID, IncidentID, Name) values (8, 7, 'ENGINE')");
    program.execute("insert into Equipment (EquipmentID, ResourceID) values (1, 8)");
    open();
    EXPECT_FALSE(screen().fDeleteOldResource(5));
    EXPECT_TRUE(screen().fDeleteOldResource(6));
    EXPECT_FALSE(screen().fDeleteOldResource(8));
    EXPECT_THAT(rows("select ResourceID from Resources order by ResourceID"), ElementsAre("5", "8"));
}

TEST_P(PersonnelList, FiftyThousandPersonsOpenAtOnceAndAreFoundByTyping) {
    const std::string numbers =
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 50000) select i";
    program.execute("insert into Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode, Status, ParentID) " +
                    numbers + ", 7, 'PERSON', 'O-1', 'SAFE', 'C', 0 from n");
    program.execute("insert into Persons (PersonID, ResourceID, FirstName, LastName, KindCode, PStatus) " + numbers +
                    ", i, 'JOHN', 'N' || (100000 + i), 'SAFE', 'C' from n");
    const auto seconds = [](const std::function<void()>& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    };
    open();
    EXPECT_LT(seconds([this] { program.run([this] { screen().tbFormOpen(); }); }), 0.5);
    page(1);
    EXPECT_EQ(screen().dbcPersonnel.rowCount(), 50'000);
    EXPECT_LT(seconds([this] { type(screen().dbcPersonnel, "N149"); }), 10);
    EXPECT_THAT(screen().dbcPersonnel.Text(), testing::StartsWith("N149000"));
}

} // namespace
} // namespace zel::personnel
