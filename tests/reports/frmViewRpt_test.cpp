#include "reports/frmViewRpt.h"

#include "ado/convert.h"
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
    ReportViewer& pages() { return viewer()->CRViewer91; }
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
    EXPECT_EQ(viewer()->CRViewer91.Zoom(), 100);
    EXPECT_FALSE(viewer()->flag());
    EXPECT_THAT(pages().pages(), SizeIs(2));
    EXPECT_EQ(pages().currentPage(), 0U);
    EXPECT_TRUE(pages().Find("$1,830.00"));
}

TEST_P(ViewRptTest, ATextIsFoundPlaceByPlaceAroundTheEnd) {
    addCharges(60);
    session().extensions.PrintReport(2, "");
    ASSERT_NE(viewer(), nullptr);
    ASSERT_TRUE(pages().Find("page 2 OF 2"));
    EXPECT_EQ(pages().currentPage(), 1U);
    const auto there = *pages().found();
    EXPECT_EQ(pages().pages()[1][there.mark].item.text.substr(there.first, there.length), "Page 2 of 2");
    ASSERT_TRUE(pages().Find("total of this page"));
    EXPECT_EQ(pages().currentPage(), 0U);
    ASSERT_TRUE(pages().Find("total of this page"));
    EXPECT_EQ(pages().currentPage(), 1U);
    ASSERT_TRUE(pages().Find("total of this page", true));
    EXPECT_EQ(pages().currentPage(), 0U);
    ASSERT_TRUE(pages().Find("total of this page", true));
    EXPECT_EQ(pages().currentPage(), 1U);
    EXPECT_FALSE(pages().Find("nobody"));
    EXPECT_EQ(pages().found(), std::nullopt);
    EXPECT_EQ(pages().currentPage(), 1U);
}

TEST_P(ViewRptTest, AWordThatIsBeingTypedStaysAtItsBeginning) {
    addCharges(3);
    session().extensions.PrintReport(2, "");
    ASSERT_NE(viewer(), nullptr);
    ASSERT_TRUE(pages().Find("s"));
    ASSERT_TRUE(pages().Find("sm"));
    const auto first = *pages().found();
    ASSERT_TRUE(pages().Find("smith"));
    EXPECT_EQ(pages().found()->mark, first.mark);
    ASSERT_TRUE(pages().Find("SMITH"));
    EXPECT_GT(pages().found()->mark, first.mark);
}

TEST_P(ViewRptTest, PagesAndSizesThatAreNotThereAreNotGoneTo) {
    addCharges(60);
    session().extensions.PrintReport(2, "");
    ASSERT_NE(viewer(), nullptr);
    pages().goTo(1);
    EXPECT_EQ(pages().currentPage(), 1U);
    pages().goTo(2);
    EXPECT_EQ(pages().currentPage(), 1U);
    pages().setZoom(5000);
    EXPECT_EQ(pages().Zoom(), 400);
    pages().setZoom(1);
    EXPECT_EQ(pages().Zoom(), 25);
    EXPECT_EQ(ado::toText(*pages().property("page")), "2");
    EXPECT_EQ(ado::toText(*pages().property("Pages")), "2");
    EXPECT_EQ(ado::toText(*pages().property("Zoom")), "25");
}

TEST_P(ViewRptTest, ANewReportBeginsAtItsFirstPageAtFullSize) {
    addCharges(60);
    session().extensions.PrintReport(2, "");
    ASSERT_NE(viewer(), nullptr);
    pages().setZoom(200);
    ASSERT_TRUE(pages().Find("page 2"));
    session().extensions.PrintReport(2, "");
    EXPECT_EQ(pages().currentPage(), 0U);
    EXPECT_EQ(pages().Zoom(), 100);
    EXPECT_EQ(pages().found(), std::nullopt);
}

TEST_P(ViewRptTest, ABrokenLayoutIsToldWithLineAndColumn) {
    put("Reports", "CommissaryCharges.rpt", "band details 0.2\n  txt");
    session().extensions.PrintReport(2, "");
    const auto shown = boxes();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_EQ(shown[0].text,
              "Error: 321 Desc: The layout CommissaryCharges.rpt has an error in line 2, column 3: 'txt' "
              "is not known.");
    EXPECT_TRUE(viewer() == nullptr || !viewer()->Visible());
}

TEST_P(ViewRptTest, AReportWithABrokenLayoutLeavesTheEarlierOneOpen) {
    addCharges(60);
    session().extensions.PrintReport(2, "");
    put("Reports", "CommissaryCharges.rpt", "page 8.5");
    session().extensions.PrintReport(2, "");
    EXPECT_THAT(boxes(), SizeIs(1));
    EXPECT_THAT(pages().pages(), SizeIs(2));
    EXPECT_TRUE(viewer()->Visible());
}

} // namespace
} // namespace zel::reports
