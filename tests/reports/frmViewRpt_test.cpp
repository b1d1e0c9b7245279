#include "reports/frmViewRpt.h"

#include "reports/report_forms.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

namespace zel::reports {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class ViewRptTest : public test::SessionTest {
protected:
    ViewRptTest() {
        session().gIncidentID = 1;
        addReportForms(session());
        put("reports", "Tablon.exe", "");
        put("Reports", "CommissaryCharges.rpt",
            program().files.read(ZEL_REPORTS "/CommissaryCharges.rpt").value_or("no layout"));
        execute("insert into Incidents (IncidentID,IncidentName) values (1,'BEAR CREEK')");
        execute("insert into Resources (ResourceID,IncidentID,RequestNumber) values (5,1,'O-12')");
        execute("insert into Persons (PersonID,ResourceID,LastName,FirstName) values (9,5,'SMITH','PAT')");
    }
    void put(const std::string& folder, const std::string& name, const std::string& text) {
        program().files.makeFolder((program().folder / folder).string());
        program().files.write((program().folder / folder / name).string(), text);
    }
    void addCharges(int count) {
        for (int i = 1; i <= count; ++i)
            execute("insert into PersonsDebit (PersonsDebitID,PersonID,ActivityDT,Amt) values (" + std::to_string(i) +
                    ",9,'7/4/2005'," + std::to_string(i) + ")");
    }
    frmViewRpt* viewer() { return dynamic_cast<frmViewRpt*>(session().forms.loaded("frmViewRpt")); }
};
ZEL_ON_BOTH_ENGINES(ViewRptTest);

TEST_P(ViewRptTest, CommissaryChargesComeUpInTheViewer) {
    addCharges(60);
    session().extensions.PrintReport(2, "");
    EXPECT_THAT(boxes(), IsEmpty());
    ASSERT_NE(viewer(), nullptr);
    EXPECT_TRUE(viewer()->Visible());
    EXPECT_EQ(viewer()->Caption(), "Commissary Charges By Date Report");
    EXPECT_EQ(viewer()->Zoom(), 100);
    EXPECT_FALSE(viewer()->flag());
    EXPECT_THAT(viewer()->pages(), SizeIs(2));
    EXPECT_TRUE(viewer()->find("$1,830.00").has_value());
}

TEST_P(ViewRptTest, ATextIsFoundOnItsPageAndPagesThatAreNotThereAreNotGoneTo) {
    addCharges(60);
    session().extensions.PrintReport(2, "");
    ASSERT_NE(viewer(), nullptr);
    EXPECT_EQ(viewer()->find("smith, pat"), 0U);
    EXPECT_EQ(viewer()->find("smith, pat", 1), 1U);
    EXPECT_EQ(viewer()->find("PAGE 2 OF 2"), 1U);
    EXPECT_EQ(viewer()->find("nobody"), std::nullopt);
    viewer()->goTo(1);
    EXPECT_EQ(viewer()->page(), 1U);
    viewer()->goTo(2);
    EXPECT_EQ(viewer()->page(), 1U);
}

TEST_P(ViewRptTest, ABrokenLayoutIsToldWithLineAndColumn) {
    put("Reports", "CommissaryCharges.rpt", "band details 0.2\n  txt");
    session().extensions.PrintReport(2, "");
    const auto shown = boxes();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_THAT(shown[0].text, testing::HasSubstr("line 2, column 3: 'txt' is not known"));
    EXPECT_TRUE(viewer() == nullptr || !viewer()->Visible());
}

} // namespace
} // namespace zel::reports
