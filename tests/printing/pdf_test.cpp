#include "printing/pdf.h"

#include "platform/files.h"
#include "reports/modRpt.h"
#include "support/test_session.h"

#include <QGuiApplication>

#include <array>
#include <cstdio>
#include <gmock/gmock.h>

namespace zel::printing {
namespace {

using testing::HasSubstr;

/// What a program prints.
std::string outputOf(const std::string& command) {
    std::string text;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> part{};
    for (std::size_t read = 0; pipe != nullptr && (read = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
        text.append(part.data(), read);
    if (pipe != nullptr)
        ::pclose(pipe);
    return text;
}

class PdfTest : public test::SessionTest {
protected:
    PdfTest() {
        if (QGuiApplication::instance() == nullptr) {
            ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
            static int count = 1;
            static char name[] = "test";
            static char* arguments[] = {name, nullptr};
            static QGuiApplication application(count, arguments);
        }
    }
    [[nodiscard]] std::string file() { return (program().folder / "report.pdf").string(); }
};
ZEL_ON_BOTH_ENGINES(PdfTest);

TEST_P(PdfTest, CommissaryChargesShowTheRowsAndTheirSums) {
    execute("insert into Incidents (IncidentID,IncidentName,IncidentNumber) values (1,'BEAR CREEK','OR-ABC-000123')");
    execute("insert into Resources (ResourceID,IncidentID,RequestNumber) values (5,1,'O-12')");
    execute("insert into Persons (PersonID,ResourceID,LastName,FirstName) values (9,5,'O''BRIEN','PAT')");
    execute("insert into PersonsDebit (PersonsDebitID,PersonID,ActivityDT,Amt) values (1,9,'7/5/2005',12.5)");
    execute("insert into PersonsDebit (PersonsDebitID,PersonID,ActivityDT,Amt) values (2,9,'7/4/2005',1000.25)");
    program().files.makeFolder((program().folder / "Reports").string());
    program().files.write((program().folder / "Reports/CommissaryCharges.rpt").string(),
                          program().files.read(ZEL_REPORTS "/CommissaryCharges.rpt").value());
    session().gIncidentID = 1;
    reports::modRpt engine(session());
    ASSERT_TRUE(engine.GetSQLRS(2));
    const Layout layout = parseLayout(engine.crxReport->text);
    writePdf(file(), "report", layout, makePages(layout, {Rows::of(*engine.rsRpt), {}, {}}));
    const std::string text = outputOf("pdftotext -layout '" + file() + "' -");
    for (const char* part : {"Commissary Charges By Date", "OR-ABC-000123 BEAR CREEK", "O'BRIEN, PAT", "07/04/2005",
                             "$1,000.25", "$12.50", "$1,012.75", "Page 1 of 1"})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_LT(text.find("07/04/2005"), text.find("07/05/2005"));
    EXPECT_THAT(outputOf("pdffonts '" + file() + "'"), testing::ContainsRegex("DejaVuSans .*Identity-H +yes"));
}

TEST_P(PdfTest, ATextThatIsTooLongIsPrintedWhole) {
    const Layout layout =
        parseLayout("band details 0.5\n text 0 0 1 0.2 \"a name that is much too long for its place\"\n"
                    " text 2 0 1 0.4 \"words that go on in the lines below\" wrap");
    ReportData data;
    data.main.rows.emplace_back();
    writePdf(file(), "report", layout, makePages(layout, data));
    const std::string text = outputOf("pdftotext -raw '" + file() + "' -");
    EXPECT_THAT(text, HasSubstr("a name that is much too long for its place"));
    EXPECT_THAT(text, HasSubstr("below"));
}

TEST_P(PdfTest, AFolderThatIsNotThereIsAnError) {
    EXPECT_THROW(writePdf("/nowhere/report.pdf", "report", Layout(), {Page()}), platform::FileError);
}

} // namespace
} // namespace zel::printing
