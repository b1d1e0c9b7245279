#include "tablon/columns.h"

#include <gmock/gmock.h>

namespace zel::tablon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string textOf(const Placing& placing) {
    return std::to_string(placing.id) + ":" + std::to_string(placing.column) + "." + std::to_string(placing.order);
}

/// The placings of all postings, as "id:column.order".
std::vector<std::string> placed(const std::vector<Posting>& postings) {
    std::vector<std::string> texts;
    for (const Placing& placing : misplaced(postings))
        texts.push_back(textOf(placing));
    return texts;
}

/// A posting of person 1 at incident 1 on a day, from 8:00 to 12:00.
Posting posting(std::int32_t id, double day, std::int32_t account = 1, const char* kind = "FFT2",
                const char* personsClass = "AD-B", const char* rate = "18.20") {
    Posting made;
    made.id = id;
    made.person = made.incident = 1;
    made.account = account;
    made.kind = kind;
    made.personsClass = personsClass;
    made.rate = ado::Currency::fromDecimal(rate);
    made.day = day;
    made.start = 8 / 24.0;
    made.stop = 12 / 24.0;
    return made;
}

TEST(ColumnsTest, EachAccountKindClassAndRateHasAColumnInTheOrderOfFirstWork) {
    EXPECT_THAT(placed({posting(1, 10), posting(2, 11, 2), posting(3, 12, 1, "CRWB"), posting(4, 13, 1, "FFT2", "AD-C"),
                        posting(5, 14, 1, "FFT2", "AD-B", "19"), posting(6, 15, 2), posting(7, 9, 2)}),
                ElementsAre("1:2.1", "2:1.2", "3:3.1", "4:4.1", "5:5.1", "6:1.3", "7:1.1"));
}

TEST(ColumnsTest, LettersOfKindAndClassDoNotMakeAColumn) {
    EXPECT_THAT(placed({posting(1, 10, 1, "fft2", "ad-b"), posting(2, 11)}), ElementsAre("1:1.1", "2:1.2"));
}

TEST(ColumnsTest, APersonsColumnsAreCountedByThemselves) {
    Posting other = posting(2, 11, 2);
    other.person = 2;
    EXPECT_THAT(placed({posting(1, 10), other}), ElementsAre("1:1.1", "2:1.1"));
}

TEST(ColumnsTest, ColumnsOfOneIncidentStandSideBySide) {
    Posting elsewhere = posting(2, 11, 7);
    elsewhere.incident = 2;
    EXPECT_THAT(placed({posting(1, 10), elsewhere, posting(3, 12, 2)}), ElementsAre("1:1.1", "2:3.1", "3:2.1"));
}

TEST(ColumnsTest, RowsFollowTheirTimeAndMidnightIsTheEndOfTheDay) {
    Posting night = posting(1, 10), early = posting(2, 10), evening = posting(3, 10);
    night.start = early.start = 20 / 24.0;
    night.stop = 0.0;
    early.stop = 22 / 24.0;
    evening.start = 18 / 24.0;
    Posting travel = posting(4, 10);
    travel.start = 20 / 24.0;
    travel.stop.reset();
    EXPECT_THAT(placed({night, early, evening, travel}), ElementsAre("1:1.4", "2:1.3", "3:1.1", "4:1.2"));
}

TEST(ColumnsTest, OnlyWhatDiffersIsToBeWritten) {
    std::vector<Posting> postings{posting(1, 10), posting(2, 11), posting(3, 12)};
    for (Posting& each : postings) {
        each.column = 1;
        each.order = each.id;
    }
    EXPECT_THAT(placed(postings), IsEmpty());
    postings[1].order.reset();
    postings[2].column = 2;
    EXPECT_THAT(placed(postings), ElementsAre("2:1.2", "3:1.3"));
}

} // namespace
} // namespace zel::tablon
