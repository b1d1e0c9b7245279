#include "posting/post_keys.h"

#include "ado/convert.h"

#include <gtest/gtest.h>

namespace zel::posting {
namespace {

const ado::DateTime now = ado::toDateTime("7/4/2005 1:38:00 PM");

TEST(SteppedDate, MovesByADayAndTakesToday) {
    EXPECT_EQ(steppedDate("07/31/2005", '+', now), "08/01/2005");
    EXPECT_EQ(steppedDate("01/01/2005", '-', now), "12/31/2004");
    EXPECT_EQ(steppedDate("01/01/2005", '=', now), "07/04/2005");
    EXPECT_EQ(steppedDate("__/__/____", '+', now), "07/05/2005");
    EXPECT_EQ(steppedDate("__/__/____", '-', now), "07/03/2005");
    EXPECT_EQ(steppedDate("07/04/2005", '7', now), std::nullopt);
}

TEST(SteppedTime, WalksTheQuarterHoursAndRoundMidnight) {
    EXPECT_EQ(steppedTime("08:00", '+', now), "08:15");
    EXPECT_EQ(steppedTime("08:00", '-', now), "07:45");
    EXPECT_EQ(steppedTime("23:45", '+', now), "24:00");
    EXPECT_EQ(steppedTime("24:00", '+', now), "00:01");
    EXPECT_EQ(steppedTime("00:01", '+', now), "00:15");
    EXPECT_EQ(steppedTime("00:01", '-', now), "24:00");
    EXPECT_EQ(steppedTime("24:00", '-', now), "23:45");
    EXPECT_EQ(steppedTime("00:15", '-', now), "00:01");
}

TEST(SteppedTime, ReadsWhatIsTypedWithoutAColon) {
    EXPECT_EQ(steppedTime("0800", '+', now), "08:15");
    EXPECT_EQ(steppedTime("2400", '-', now), "23:45");
}

TEST(SteppedTime, TakesThePresentTimeOnTheQuarterHour) {
    EXPECT_EQ(steppedTime("08:00", '=', now), "13:45");
    EXPECT_EQ(steppedTime("", '+', now), "13:45");
    EXPECT_EQ(steppedTime("08:00", '8', now), std::nullopt);
}

} // namespace
} // namespace zel::posting
