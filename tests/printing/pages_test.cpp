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

/// What a text of a details band makes of one row.
std::string filled(const std::string& text, const ReportData& data) {
    return texts(
        makePages(parseLayout("subreport Name\nband details 0.2\n text 0 0 1 1 \"" + text + "\""), data)[0])[0];
}

TEST(PagesTest, WhatStandsInBracketsGoesWhenAFieldInItIsEmpty) {
    ReportData data;
    data.main.fields = {"Name", "City", "State", "Zip"};
    data.main.rows = {{"A", "SISTERS", "OR", ado::Value()}};
    EXPECT_EQ(filled("{City}[, {State}][ {Zip}]", data), "SISTERS, OR");
    data.main.rows = {{"A", "SISTERS", "", "97759"}};
    EXPECT_EQ(filled("{City}[, {State}][ {Zip}]", data), "SISTERS 97759");
    EXPECT_EQ(filled("[{City}, {State}][ and no more]", data), " and no more");
}

TEST(PagesTest, ATimeThatEndsSomethingShowsMidnightAsTheEndOfTheDay) {
    ReportData data;
    data.main.fields = {"Name", "Stop"};
    data.main.rows = {{"A", ado::DateTime(0)}};
    EXPECT_EQ(filled("{Stop:24:00} {Stop:hh:nn}", data), "24:00 00:00");
    data.main.rows = {{"A", ado::DateTime(0.25)}};
    EXPECT_EQ(filled("{Stop:24:00}", data), "06:00");
    data.main.rows = {{"A", ado::Value()}};
    EXPECT_EQ(filled("{Stop:24:00}", data), "");
}

TEST(PagesTest, ADifferenceOfMoneyIsExactAndNothingIsNought) {
    ReportData data;
    data.main.fields = {"Name", "Amount"};
    data.main.rows = {{"A", ado::Currency::fromDecimal("0.3")}};
    data.subreport.fields = {"Name", "Debit"};
    EXPECT_EQ(filled("{total Amount - sub Debit:$0.00;($0.00)}", data), "$0.30");
    data.subreport.rows = {{"A", ado::Currency::fromDecimal("0.4")}};
    EXPECT_EQ(filled("{total Amount - sub Debit:$0.00;($0.00)}", data), "($0.10)");
}

TEST(PagesTest, AColumnsSheetIsRuledToItsEnd) {
    const auto pages =
        makePages(parseLayout("columns 2 1 2 Name\nband column-header 0.2\n text 0 0 1 1 \"head {Name}\"\n"
                              " text 0 0 1 1 \"Date\"\nband details 0.2\n text 0 0 1 1 \"{Hours}\"\n"
                              " box 0 0 1 0.2\nband column-footer 0.2\n text 0 0 1 1 \"{sum Hours}\"\n"
                              " text 0 0 1 1 \"Hours\""),
                  hours({{"A", 1}}));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_THAT(texts(pages[0]), ElementsAre("head A", "Date", "1", "", "", "1", "Hours", "", "", "Date", "Hours"));
    EXPECT_DOUBLE_EQ(pages[0][4].y, 0.5 + 0.2 + 0.2); // the box of the row that stays empty
    EXPECT_DOUBLE_EQ(pages[0][8].x, 1.5);             // and that of the second column's last row
}

TEST(PagesTest, SomeThingsStandOnTheLastPageOfASheetOnly) {
    const auto pages = makePages(
        parseLayout("sheet Name\ncolumns 1 1 1 Hours\nband details 0.2\nband page-footer 0.2\n"
                    " text 0 0 1 1 \"all {total Hours}\" last-page\n text 0 0 1 1 \"continued\" not-last-page"),
        hours({{"A", 1}, {"A", 2}, {"B", 4}}));
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_THAT(texts(pages[0]), ElementsAre("continued"));
    EXPECT_THAT(texts(pages[1]), ElementsAre("all 3"));
    EXPECT_THAT(texts(pages[2]), ElementsAre("all 4"));
}

TEST(PagesTest, ANewValueCanBeginAPageOfTheSameSheet) {
    ReportData data;
    data.main.fields = {"Name", "Place"};
    data.main.rows = {{"A", "X"}, {"A", "Y"}, {"B", "Y"}};
    const char* bands = "band page-header 0.2\n text 0 0 1 1 \"{Name} {Place} {page} of {pages}\"\nband details 0.2\n";
    for (const std::string columns : {"", "columns 2 1 5 Name\n"}) {
        const auto pages = makePages(parseLayout("sheet Name\nnew-page Place\n" + columns + bands), data);
        ASSERT_EQ(pages.size(), 3U);
        EXPECT_THAT(texts(pages[0]), ElementsAre("A X 1 of 2"));
        EXPECT_THAT(texts(pages[1]), ElementsAre("A Y 2 of 2"));
        EXPECT_THAT(texts(pages[2]), ElementsAre("B Y 1 of 1"));
    }
}

} // namespace
} // namespace zel::printing
