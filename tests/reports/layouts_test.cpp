#include "ado/convert.h"
#include "reports/frmViewRpt.h"
#include "reports/report_forms.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace zel::reports {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

/// The layouts that the program shows itself, on the rows that their statements read.
class LayoutsTest : public test::SessionTest {
protected:
    LayoutsTest() : engine(session()) {
        session().gIncidentID = 1;
        addReportForms(session());
        program().files.makeFolder((program().folder / "Reports").string());
        for (const std::string name : {"CommissaryCharges", "CrewRoster", "EquipMgmt"})
            program().files.write((program().folder / "Reports" / (name + ".rpt")).string(),
                                  program().files.read(ZEL_REPORTS "/" + name + ".rpt").value());
        execute("insert into Incidents (IncidentID,IncidentName,IncidentNumber) values (1,'BEAR CREEK','OR-ABC-1')");
        execute("insert into Incidents (IncidentID,IncidentName,IncidentNumber) values (2,'ASH HILL','OR-ABC-2')");
    }
    void addCrew(int id, int incident, const std::string& number, const std::string& name) {
        execute("insert into Resources (ResourceID,IncidentID,RequestNumber,Name,KindCode,AssignDate) values (" +
                std::to_string(id) + "," + std::to_string(incident) + ",'" + number + "','" + name +
                "','DOZ1','7/1/2005')");
    }
    void addPerson(int id, int crew, const std::string& last, const std::string& first) {
        execute("insert into Persons (PersonID,ResourceID,LastName,FirstName,SSN,PStatus,FedCode,KindCode) values (" +
                std::to_string(id) + "," + std::to_string(crew) + ",'" + last + "','" + first +
                "','900110001','C','AD','FFT1')");
    }
    void addCharge(int id, int person, const std::string& date, double amount) {
        execute("insert into PersonsDebit (PersonsDebitID,PersonID,ActivityDT,Amt) values (" + std::to_string(id) +
                "," + std::to_string(person) + ",'" + date + "'," + ado::toText(ado::Value(amount)) + ")");
    }
    void addEquipment(int id, const std::string& number, const std::string& kind) {
        const std::string key = std::to_string(id);
        execute("insert into Resources (ResourceID,IncidentID,RequestNumber,Name,KindCode,AssignDate) values (" + key +
                ",1,'" + number + "','OWNER " + key + "','" + kind + "','7/1/2005 07:00')");
        execute("insert into Equipment (EquipmentID,ResourceID,UniqueEquipmentName) values (" + key + "," + key +
                ",'UNIT " + key + "')");
    }
    /// All texts of the report, in the order they stand on its pages.
    std::vector<std::string> texts(int number) {
        EXPECT_TRUE(engine.GetSQLRS(number));
        auto* viewer = session().forms.get<frmViewRpt>("frmViewRpt");
        viewer->ShowReport(engine, engine.title, false);
        std::vector<std::string> all;
        for (const printing::Page& page : viewer->CRViewer91.pages()) {
            for (const printing::Mark& mark : page) {
                if (!mark.item.text.empty())
                    all.push_back(mark.item.text);
            }
        }
        return all;
    }
    modRpt engine;
};
ZEL_ON_BOTH_ENGINES(LayoutsTest);

TEST_P(LayoutsTest, ARosterNamesItsMembersInOrder) {
    addCrew(5, 1, "C-1", "GRAYLING BEND");
    addPerson(1, 5, "O''BRIEN", "PAT");
    addPerson(2, 5, "ASHBY", "LEE");
    session().gCurrentResourceID = 5;
    EXPECT_THAT(texts(12),
                ElementsAre("Crew Roster", "C-1  GRAYLING BEND", "OR-ABC-1  BEAR CREEK", "Name", "SSN", "Kind",
                            "Employed as", "Status", "ASHBY, LEE", "900-11-0001", "FFT1", "AD", "C", "O'BRIEN, PAT",
                            "900-11-0001", "FFT1", "AD", "C", "C-1  GRAYLING BEND", "Page 1 of 1"));
}

TEST_P(LayoutsTest, ARosterWithoutMembersSaysSo) {
    addCrew(5, 1, "C-1", "GRAYLING BEND");
    session().gCurrentResourceID = 5;
    const auto shown = texts(12);
    EXPECT_THAT(shown, IsSupersetOf({"C-1  GRAYLING BEND", "No members"}));
    EXPECT_THAT(shown, Not(Contains(", ")));
}

TEST_P(LayoutsTest, ARosterOfManyGoesOnOnTheNextPageUnderTheSameHeads) {
    addCrew(5, 1, "C-1", "GRAYLING BEND");
    for (int i = 1; i <= 60; ++i)
        addPerson(i, 5, "MEMBER" + std::to_string(100 + i), "A");
    session().gCurrentResourceID = 5;
    const auto shown = texts(12);
    EXPECT_THAT(shown, IsSupersetOf({"MEMBER101, A", "MEMBER160, A", "Page 1 of 2", "Page 2 of 2"}));
    EXPECT_EQ(std::count(shown.begin(), shown.end(), "Employed as"), 2);
}

TEST_P(LayoutsTest, EquipmentStandsUnderItsKind) {
    addEquipment(1, "E-8", "FUEL");
    addEquipment(2, "E-7", "DOZ1");
    addEquipment(3, "E-6", "FUEL");
    EXPECT_THAT(texts(11), ElementsAre("Equipment Management", "Request No.", "Equipment", "Name", "Assigned",
                                       "OR-ABC-1  BEAR CREEK", "DOZ1  Dozer, Heavy", "E-7", "UNIT 2", "OWNER 2",
                                       "07/01/2005", "FUEL  Fuel Tender", "E-6", "UNIT 3", "OWNER 3", "07/01/2005",
                                       "E-8", "UNIT 1", "OWNER 1", "07/01/2005", "Page 1 of 1"));
}

TEST_P(LayoutsTest, ChargesAreSummedByDayAndIncident) {
    addCrew(5, 1, "C-1", "GRAYLING BEND");
    addPerson(1, 5, "SMITH", "PAT");
    addPerson(2, 5, "ASHBY", "LEE");
    addCharge(1, 1, "7/5/2005", 12.5);
    addCharge(2, 1, "7/4/2005", 1000.25);
    addCharge(3, 2, "7/4/2005", 2);
    EXPECT_THAT(texts(2), ElementsAre("Commissary Charges By Date", "Date", "Request No.", "Name", "Amount",
                                      "OR-ABC-1  BEAR CREEK", "07/04/2005", "C-1", "ASHBY, LEE", "$2.00", "07/04/2005",
                                      "C-1", "SMITH, PAT", "$1,000.25", "Total of 07/04/2005", "$1,002.25",
                                      "07/05/2005", "C-1", "SMITH, PAT", "$12.50", "Total of 07/05/2005", "$12.50",
                                      "Total of OR-ABC-1  BEAR CREEK", "$1,014.75", "Total of all charges", "$1,014.75",
                                      "Total of this page $1,014.75", "Page 1 of 1"));
}

TEST_P(LayoutsTest, ChargesOfAllIncidentsStandUnderTheirOwn) {
    addCrew(5, 1, "C-1", "GRAYLING BEND");
    addCrew(6, 2, "C-1", "ASH CREW");
    addPerson(1, 5, "SMITH", "PAT");
    addPerson(2, 6, "ASHBY", "LEE");
    addCharge(1, 1, "7/4/2005", 1);
    addCharge(2, 2, "7/5/2005", 2);
    addCharge(3, 1, "7/6/2005", 4);
    session().gManageAll = true;
    const auto shown = texts(2);
    const auto at = [&shown](const char* text) { return std::find(shown.begin(), shown.end(), text) - shown.begin(); };
    EXPECT_LT(at("OR-ABC-2  ASH HILL"), at("ASHBY, LEE"));
    EXPECT_LT(at("ASHBY, LEE"), at("OR-ABC-1  BEAR CREEK"));
    EXPECT_LT(at("OR-ABC-1  BEAR CREEK"), at("SMITH, PAT"));
    EXPECT_EQ(shown[static_cast<std::size_t>(at("Total of OR-ABC-1  BEAR CREEK")) + 1], "$5.00");
    EXPECT_EQ(shown[static_cast<std::size_t>(at("Total of all charges")) + 1], "$7.00");
}

TEST_P(LayoutsTest, AReportWithoutRowsIsAPageWithItsHeads) {
    EXPECT_THAT(texts(2), IsSupersetOf({"Commissary Charges By Date", "Amount", "$0.00", "Page 1 of 1"}));
    EXPECT_THAT(texts(11),
                ElementsAre("Equipment Management", "Request No.", "Equipment", "Name", "Assigned", "Page 1 of 1"));
    EXPECT_THAT(boxes(), IsEmpty());
}

} // namespace
} // namespace zel::reports
