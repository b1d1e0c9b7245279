#include "tablon/time_report.h"

#include "ado/convert.h"
#include "ado/error.h"

#include <gmock/gmock.h>

namespace zel::tablon {
namespace {

using testing::ElementsAre;

TEST(TimeReportTest, AnAmountIsHoursTimesRateWithHalfACentUp) {
    EXPECT_EQ(amountOf(10, ado::Currency::fromDecimal("18.20")), ado::Currency::fromDecimal("182"));
    EXPECT_EQ(amountOf(0.25, ado::Currency::fromDecimal("18.18")), ado::Currency::fromDecimal("4.55")); // 4.545
    EXPECT_EQ(amountOf(0.25, ado::Currency::fromDecimal("18.17")), ado::Currency::fromDecimal("4.54")); // 4.5425
    EXPECT_EQ(amountOf(8, {}), ado::Currency());
}

/// Rows of the statement as far as amounts are concerned: person, column, hours, rate.
printing::Rows rowsOf(std::initializer_list<std::tuple<int, int, double, const char*>> given) {
    printing::Rows rows;
    rows.fields = {"KindCode", "PersonID", "KindCode", "PersonsPostID", "Column288", "Hours", "Rate"};
    int id = 0;
    for (const auto& [person, column, hours, rate] : given)
        rows.rows.push_back({"CREW", person, "FFT2", ++id, column, hours, ado::Currency::fromDecimal(rate)});
    return rows;
}

std::vector<std::string> valuesOf(const printing::Rows& rows, const char* field) {
    std::vector<std::string> values;
    for (std::size_t row = 0; row < rows.rows.size(); ++row)
        values.push_back(ado::toText(rows.value(row, field)));
    return values;
}

TEST(TimeReportTest, AmountsOfAColumnAddUpToItsHoursTimesItsRate) {
    // Each alone would be 4.545, so three rounded for themselves would be 13.65 instead of 13.635, that is 13.64.
    printing::Rows rows = rowsOf({{1, 1, 0.25, "18.18"}, {1, 1, 0.25, "18.18"}, {1, 1, 0.25, "18.18"}});
    addTimeReportFields(rows, {}, {});
    EXPECT_THAT(valuesOf(rows, "Amount"), ElementsAre("4.55", "4.54", "4.55"));
}

TEST(TimeReportTest, AnotherColumnOrPersonBeginsAtNothing) {
    printing::Rows rows = rowsOf({{1, 1, 0.25, "18.18"}, {1, 2, 0.25, "18.18"}, {2, 2, 0.25, "18.18"}});
    addTimeReportFields(rows, {}, {});
    EXPECT_THAT(valuesOf(rows, "Amount"), ElementsAre("4.55", "4.55", "4.55"));
}

TEST(TimeReportTest, KindsAreThoseOfThePostingAndOfThePersonNotOfTheCrew) {
    printing::Rows rows = rowsOf({{1, 1, 8, "18"}, {1, 1, 8, "18"}});
    Posting first;
    first.id = 1;
    first.kind = "CRWB";
    addTimeReportFields(rows, {first}, {{"FFT2", "Firefighter Type 2"}});
    EXPECT_THAT(valuesOf(rows, "PostKind"), ElementsAre("CRWB", ""));
    EXPECT_THAT(valuesOf(rows, "Position"), ElementsAre("FFT2 Firefighter Type 2", "FFT2 Firefighter Type 2"));
}

TEST(TimeReportTest, RowsReadBeforeAPostingWasPlacedOrMendedAreOld) {
    Posting posting;
    posting.id = 1;
    posting.account = 7;
    posting.personsClass = "AD-3";
    posting.rate = ado::Currency::fromDecimal("18.20");
    posting.column = 2;
    posting.order = 5;
    using Row = std::vector<ado::Value>;
    const auto fresh = [&posting](Row row) {
        return showsAsTheyAre(
            {{"PersonsPostID", "Column288", "RptOrder", "AccountingID", "Class", "Rate"}, {std::move(row)}}, {posting});
    };
    const auto rate = ado::Currency::fromDecimal("18.20");
    EXPECT_TRUE(fresh({1, 2, 5, 7, "AD-3", rate}));
    for (const Row& old : {Row{2, 2, 5, 7, "AD-3", rate}, Row{1, 1, 5, 7, "AD-3", rate}, Row{1, 2, 4, 7, "AD-3", rate},
                           Row{1, 2, 5, 8, "AD-3", rate}, Row{1, 2, 5, 7, "AD-4", rate}, Row{1, 2, 5, 7, "AD-3", {}},
                           Row{1, {}, 5, 7, "AD-3", rate}, Row{1, 2, {}, 7, "AD-3", rate}})
        EXPECT_FALSE(fresh(old));
}

TEST(TimeReportTest, AStatementWithoutAFieldIsAnError) {
    printing::Rows rows;
    EXPECT_THROW(addTimeReportFields(rows, {}, {}), ado::Error);
}

} // namespace
} // namespace zel::tablon
