#include "printing/pages.h"

#include "ado/error.h"

#include <gmock/gmock.h>

namespace zel::printing {
namespace {

using testing::ElementsAre;

std::vector<std::string> texts(const Page& page) {
    std::vector<std::string> all;
    for (const Mark& mark : page)
        all.push_back(mark.item.text);
    return all;
}

ReportData hours(std::initializer_list<std::pair<const char*, double>> rows) {
    ReportData data;
    data.main.fields = {"Name", "Hours"};
    for (const auto& [name, number] : rows)
        data.main.rows.push_back({name, number});
    return data;
}

// A page of 4 inches has room for 3 inches of bands, 0.5 of them the footer.
constexpr const char* flowing = "page 4 4 0.5\n"
                                "band group-header Name 0.5\n text 0 0 1 0.2 \"{Name}\"\n"
                                "band details 0.5\n text 0 0 1 0.2 \"{Hours} {running Hours}\"\n"
                                "band group-footer name 0.5\n text 0 0 1 0.2 \"sum {sum Hours:0.00}\"\n"
                                "band report-footer 0.5\n text 0 0 1 0.2 \"all {sum Hours}\"\n"
                                "band page-footer 0.5\n text 0 0 1 0.2 \"{page} of {pages}: {sum Hours}\"";

TEST(PagesTest, GroupsSumsAndPagesFollowTheRows) {
    const auto pages = makePages(parseLayout(flowing), hours({{"A", 1}, {"A", 2.5}, {"B", 4}}));
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_THAT(texts(pages[0]), ElementsAre("A", "1 1", "2.5 3.5", "sum 3.50", "1 of 2: 3.5"));
    EXPECT_THAT(texts(pages[1]), ElementsAre("B", "4 7.5", "sum 4.00", "all 7.5", "2 of 2: 4"));
}

TEST(PagesTest, AFooterThatFindsNoRoomTakesNoRowWithIt) {
    const auto pages = makePages(parseLayout(flowing), hours({{"A", 1}, {"A", 1}, {"A", 1}, {"A", 1}}));
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_THAT(texts(pages[0]), ElementsAre("A", "1 1", "1 2", "1 3", "1 4", "1 of 2: 4"));
    EXPECT_THAT(texts(pages[1]), ElementsAre("sum 4.00", "all 4", "2 of 2: 0"));
}

TEST(PagesTest, ItemsStandToAHundredthOfAnInch) {
    const auto pages =
        makePages(parseLayout("page 4 4 0.5\nband page-header 0.33\nband details 0.21\n box 0.07 0.01 1 0.2"),
                  hours({{"A", 1}, {"B", 1}}));
    ASSERT_EQ(pages[0].size(), 2U);
    EXPECT_DOUBLE_EQ(pages[0][1].x, 0.57);
    EXPECT_DOUBLE_EQ(pages[0][1].y, 0.5 + 0.33 + 0.21 + 0.01);
}

TEST(PagesTest, WithoutRowsThereIsOnePageWithItsFooters) {
    const auto pages = makePages(parseLayout(flowing), hours({}));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_THAT(texts(pages[0]), ElementsAre("all 0", "1 of 1: 0"));
}

TEST(PagesTest, MoneyIsSummedToTheLastDecimal) {
    ReportData data;
    data.main.fields = {"Amt"};
    for (int i = 0; i < 3; ++i)
        data.main.rows.push_back({ado::Currency::fromDecimal("0.1")});
    data.main.rows.push_back({ado::Value()});
    const auto pages =
        makePages(parseLayout("band details 0.1\nband report-footer 0.2\n text 0 0 1 1 \"{sum Amt}\""), data);
    EXPECT_THAT(texts(pages[0]), ElementsAre("0.3"));
}

TEST(PagesTest, ParametersConditionsAndTheSubReportAreFilledIn) {
    ReportData data = hours({{"A", 1}, {"B", 2}});
    data.parameters["Final"] = true;
    data.subreport.fields = {"NAME", "Debit"};
    data.subreport.rows = {{"B", ado::Currency::fromDecimal("12.5")}};
    const auto pages = makePages(parseLayout("subreport Name\nband details 0.2\n"
                                             " text 0 0 1 1 \"{Name} {sub Debit:0.00} {?Final}\" if ?Final\n"
                                             " text 0 0 1 1 \"draft\" unless ?Final"),
                                 data);
    EXPECT_THAT(texts(pages[0]), ElementsAre("A  True", "B 12.50 True"));
}

TEST(PagesTest, AFieldThatIsNotReadIsAnErrorThatNamesIt) {
    try {
        (void)makePages(parseLayout("band details 0.2\n text 0 0 1 1 \"{Nmae}\""), hours({{"A", 1}}));
        FAIL() << "it was printed";
    } catch (const ado::Error& error) {
        EXPECT_THAT(error.description(), testing::HasSubstr("'Nmae'"));
    }
}

constexpr const char* sideBySide = "page 8.5 11 0.5\nsheet Person\ncolumns 2 3 2 Column\n"
                                   "band page-header 1\n text 0 0 1 1 \"{Person}\"\n"
                                   "band column-header 0.2\n text 0 0 1 1 \"c{Column}\"\n"
                                   "band details 0.2\n text 0 0 1 1 \"{Hours}\"\n"
                                   "band column-footer 0.2\n text 0 0 1 1 \"={sum Hours}\"\n"
                                   "band page-footer 0.2\n text 0 0 1 1 \"{page}/{pages} {total Hours}\"";

TEST(PagesTest, ColumnsStandSideBySideAndPagesAreCountedBySheet) {
    ReportData data;
    data.main.fields = {"Person", "Column", "Hours"};
    data.main.rows = {{"P", 1, 1.0}, {"P", 1, 2.0}, {"P", 1, 3.0}, {"P", 2, 4.0}, {"Q", 2, 5.0}};
    const auto pages = makePages(parseLayout(sideBySide), data);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_THAT(texts(pages[0]), ElementsAre("P", "c1", "1", "2", "=3", "c1", "3", "=3", "1/2 6"));
    EXPECT_THAT(texts(pages[1]), ElementsAre("P", "c2", "4", "=4", "2/2 10"));
    EXPECT_THAT(texts(pages[2]), ElementsAre("Q", "c2", "5", "=5", "1/1 5"));
    EXPECT_DOUBLE_EQ(pages[0][5].x, 3.5);
    EXPECT_DOUBLE_EQ(pages[0][7].y, 0.5 + 1 + 0.2 + 2 * 0.2);
}

} // namespace
} // namespace zel::printing
