#include "posting/overlap_check.h"

#include "ado/convert.h"
#include "posting/modMath.h"
#include "support/test_session.h"

namespace zel::posting {
namespace {

using ado::DateTime;

const DateTime day = DateTime::fromDate(2005, 7, 4);
DateTime at(int hour, int minute = 0) {
    return DateTime::fromTime(hour, minute);
}

class OverlapCheckTest : public test::SessionTest {
protected:
    void post(int key, int person, const std::string& date, const std::string& start, const std::string& stop) {
        execute("Insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime) Values (" +
                std::to_string(key) + "," + std::to_string(person) + ",'" + date + "','1899-12-30 " + start +
                "','1899-12-30 " + stop + "')");
    }
    void postEquipment(int key, int equipment, int resource, const std::string& date, const std::string& start,
                       const std::string& stop, const std::string& specialStart, const std::string& specialStop) {
        execute("Insert into ContractorPost (ContractorPostID,EquipmentID,ResourceID,ActivityDT,StartTime,StopTime,"
                "SStartTime,SStopTime) Values (" +
                std::to_string(key) + "," + std::to_string(equipment) + "," + std::to_string(resource) + ",'" + date +
                "','1899-12-30 " + start + "','1899-12-30 " + stop + "','1899-12-30 " + specialStart +
                "','1899-12-30 " + specialStop + "')");
    }
    std::string check(DateTime start, DateTime stop, int ownKey = 999) {
        return CheckPersonOverlap(session(), day, 1, ownKey, start, stop);
    }
    static std::string line(const std::string& from, const std::string& to) {
        return "\tOverlapping hours from " + from + " to " + to + "\r\n";
    }
};
ZEL_ON_BOTH_ENGINES(OverlapCheckTest);

TEST_P(OverlapCheckTest, SendsTheSameDayQueryInTheDialect) {
    const auto sent = statementsOf([this] { (void)check(at(8), at(13, 30), 7); });
    const std::string server =
        "SELECT * FROM PersonsPost WHERE PersonsPostID<>7 AND PersonID=1 AND ActivityDT='7/4/2005' AND "
        "((StartTime>='1899-12-30 8:00:00 AM' AND StartTime<'1899-12-30 1:30:00 PM') OR "
        "(StopTime>'1899-12-30 8:00:00 AM' AND StopTime<='1899-12-30 1:30:00 PM') OR "
        "(StartTime<='1899-12-30 8:00:00 AM' AND StopTime>='1899-12-30 1:30:00 PM')) ORDER BY ActivityDT,StartTime ASC";
    const std::string desktop =
        "SELECT * FROM PersonsPost WHERE PersonsPostID<>7 AND PersonID=1 AND ActivityDT=#7/4/2005# AND "
        "((StartTime>=#8:00:00 AM# AND StartTime<#1:30:00 PM#) OR "
        "(StopTime>#8:00:00 AM# AND StopTime<=#1:30:00 PM#) OR "
        "(StartTime<=#8:00:00 AM# AND StopTime>=#1:30:00 PM#)) ORDER BY ActivityDT,StartTime ASC";
    EXPECT_EQ(sent, std::vector<std::string>{session().gServerDialect ? server : desktop});
}

TEST_P(OverlapCheckTest, SendsTheQueryToTheEndOfTheDay) {
    const auto sent = statementsOf([this] { (void)check(at(20), endOfDay, 7); });
    const std::string server =
        "SELECT * FROM PersonsPost WHERE PersonsPostID<>7 AND PersonID=1 AND ActivityDT='7/4/2005' AND "
        "((StartTime>='1899-12-30 8:00:00 PM') OR (StopTime>'1899-12-30 8:00:00 PM') OR "
        "(StopTime='1899-12-30 12:00:00 AM')) ORDER BY ActivityDT,StartTime ASC";
    const std::string desktop =
        "SELECT * FROM PersonsPost WHERE PersonsPostID<>7 AND PersonID=1 AND ActivityDT=#7/4/2005# AND "
        "((StartTime>=#8:00:00 PM#) OR (StopTime>#8:00:00 PM#) OR (StopTime=#12:00:00 AM#)) "
        "ORDER BY ActivityDT,StartTime ASC";
    EXPECT_EQ(sent, std::vector<std::string>{session().gServerDialect ? server : desktop});
}

TEST_P(OverlapCheckTest, SendsBothQueriesAcrossMidnightWithTheBareConstants) {
    const auto sent = statementsOf([this] { (void)check(at(22), at(6), 7); });
    const std::string head = "SELECT * FROM PersonsPost WHERE PersonsPostID<>7 AND PersonID=1 AND ActivityDT=";
    const std::string tail = " ORDER BY ActivityDT,StartTime ASC";
    const std::vector<std::string> server{
        head +
            "'7/4/2005' AND ((StartTime>='1899-12-30 10:00:00 PM') OR (StopTime>'1899-12-30 10:00:00 PM') OR "
            "(StartTime<='1899-12-30 10:00:00 PM' AND StopTime='12:00:00 AM'))" +
            tail,
        head +
            "'7/5/2005' AND ((StartTime<'1899-12-30 6:00:00 AM') OR (StopTime<='1899-12-30 6:00:00 AM') OR "
            "(StartTime='12:01:00 AM' AND StopTime>='1899-12-30 6:00:00 AM'))" +
            tail};
    const std::vector<std::string> desktop{
        head +
            "#7/4/2005# AND ((StartTime>=#10:00:00 PM#) OR (StopTime>#10:00:00 PM#) OR "
            "(StartTime<=#10:00:00 PM# AND StopTime=#12:00:00 AM#))" +
            tail,
        head +
            "#7/5/2005# AND ((StartTime<#6:00:00 AM#) OR (StopTime<=#6:00:00 AM#) OR "
            "(StartTime=#12:01:00 AM# AND StopTime>=#6:00:00 AM#))" +
            tail};
    EXPECT_EQ(sent, session().gServerDialect ? server : desktop);
}

TEST_P(OverlapCheckTest, NeighboursThatOnlyTouchDoNotClash) {
    post(1, 1, "7/4/2005", "12:00:00 PM", "4:00:00 PM");
    post(2, 1, "7/4/2005", "4:00:00 AM", "8:00:00 AM");
    EXPECT_EQ(check(at(8), at(12)), "");
    EXPECT_EQ(session().vYNMSa, "");
}

TEST_P(OverlapCheckTest, ARowDoesNotClashWithItself) {
    post(5, 1, "7/4/2005", "8:00:00 AM", "4:00:00 PM");
    EXPECT_EQ(check(at(9), at(12), 5), "");
    EXPECT_EQ(check(at(9), at(12), 6), line("9:00:00 AM", "12:00:00 PM"));
}

TEST_P(OverlapCheckTest, OthersAndOtherDaysDoNotClash) {
    post(1, 2, "7/4/2005", "8:00:00 AM", "4:00:00 PM");
    post(2, 1, "7/3/2005", "8:00:00 AM", "4:00:00 PM");
    EXPECT_EQ(check(at(9), at(12)), "");
}

TEST_P(OverlapCheckTest, SameDayLinesAreWordedByTheFirstRuleThatFits) {
    post(1, 1, "7/4/2005", "9:00:00 AM", "10:00:00 AM");  // inside
    post(2, 1, "7/4/2005", "11:00:00 AM", "2:00:00 PM");  // begins inside, ends later
    post(3, 1, "7/4/2005", "6:00:00 AM", "8:30:00 AM");   // begins earlier, ends inside
    post(4, 1, "7/4/2005", "7:00:00 AM", "1:00:00 PM");   // around
    post(5, 1, "7/4/2005", "11:30:00 AM", "12:00:00 AM"); // begins inside, to the end of the day
    post(6, 1, "7/4/2005", "7:30:00 AM", "12:00:00 PM");  // begins earlier, ends with it
    EXPECT_EQ(check(at(8), at(12)), line("8:00:00 AM", "8:30:00 AM") + line("8:00:00 AM", "12:00:00 PM") +
                                        line("7:30:00 AM", "12:00:00 PM") + line("9:00:00 AM", "10:00:00 AM") +
                                        line("11:00:00 AM", "12:00:00 PM") + line("11:30:00 AM", "12:00:00 PM"));
    EXPECT_EQ(session().vYNMSa, ",3,4,6,1,2,5");
}

TEST_P(OverlapCheckTest, ARowToTheEndOfTheDayHidesAPeriodInsideIt) {
    post(1, 1, "7/4/2005", "10:00:00 AM", "12:00:00 AM");
    EXPECT_EQ(check(at(12), at(14)), "");
}

TEST_P(OverlapCheckTest, LinesToTheEndOfTheDay) {
    post(1, 1, "7/4/2005", "6:00:00 AM", "12:00:00 AM");
    post(2, 1, "7/4/2005", "7:00:00 AM", "9:00:00 PM");
    post(3, 1, "7/4/2005", "9:00:00 PM", "12:00:00 AM");
    post(4, 1, "7/4/2005", "10:00:00 PM", "11:00:00 PM");
    EXPECT_EQ(check(at(20), endOfDay), line("8:00:00 PM", "24:00") + line("8:00:00 PM", "9:00:00 PM") +
                                           line("9:00:00 PM", "24:00") + line("10:00:00 PM", "11:00:00 PM"));
    EXPECT_EQ(session().vYNMSa, ",1,2,3,4");
}

TEST_P(OverlapCheckTest, AcrossMidnightBothDaysAreListedUnderTheirDates) {
    post(1, 1, "7/4/2005", "6:00:00 AM", "8:00:00 PM");
    post(2, 1, "7/4/2005", "7:00:00 PM", "12:00:00 AM");
    post(3, 1, "7/4/2005", "11:00:00 PM", "11:30:00 PM");
    post(4, 1, "7/5/2005", "12:01:00 AM", "8:00:00 AM");
    post(5, 1, "7/5/2005", "1:00:00 AM", "2:00:00 AM");
    EXPECT_EQ(check(at(18), at(2)), "     For 07/04/2005\r\n" + line("6:00:00 PM", "24:00") +
                                        line("7:00:00 PM", "24:00") + line("11:00:00 PM", "23:30") +
                                        "     For 07/05/2005\r\n" + line("12:01:00 AM", "2:00:00 AM") +
                                        line("1:00:00 AM", "2:00:00 AM"));
    EXPECT_EQ(session().vYNMSa, ",1,2,3,4,5");
}

TEST_P(OverlapCheckTest, ARowFromBeforeThatEndsAtMidnightIsListedFromItsOwnStart) {
    post(1, 1, "7/4/2005", "6:00:00 AM", "12:00:00 AM");
    EXPECT_EQ(check(at(18), at(2)), "     For 07/04/2005\r\n" + line("6:00:00 AM", "24:00"));
}

TEST_P(OverlapCheckTest, NextDayRowFromOneMinutePastMidnightReadsToTheStop) {
    post(1, 1, "7/5/2005", "12:01:00 AM", "8:00:00 AM");
    EXPECT_EQ(check(at(22), at(6)), "     For 07/05/2005\r\n" + line("12:01:00 AM", "6:00:00 AM"));
}

TEST_P(OverlapCheckTest, NextDayRowFromMidnightItselfIsWordedFromOneMinutePast) {
    post(1, 1, "7/5/2005", "12:00:00 AM", "8:00:00 AM");
    EXPECT_EQ(check(at(22), at(6)), "     For 07/05/2005\r\n" + line("00:01", "6:00:00 AM"));
}

TEST_P(OverlapCheckTest, WithoutRowsOnEitherDayNothingIsSaid) {
    session().vYNMSa = ",77";
    EXPECT_EQ(check(at(22), at(6)), "");
    EXPECT_EQ(session().vYNMSa, "");
}

TEST_P(OverlapCheckTest, ARowWithoutAStopEndsTheScanQuietly) {
    post(1, 1, "7/4/2005", "9:00:00 AM", "10:00:00 AM");
    execute("Insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime) Values "
            "(2,1,'7/4/2005','1899-12-30 10:00:00 AM')");
    post(3, 1, "7/4/2005", "11:00:00 AM", "12:00:00 PM");
    EXPECT_EQ(check(at(8), at(13)), line("9:00:00 AM", "10:00:00 AM"));
    EXPECT_EQ(session().vYNMSa, ",1");
}

TEST_P(OverlapCheckTest, ALostDatabaseGivesNoClashAndNoBox) {
    session().gConnection->Close();
    EXPECT_EQ(check(at(8), at(13)), "");
    EXPECT_TRUE(boxes().empty());
}

TEST_P(OverlapCheckTest, EquipmentIsToldByResourceOnTheDesktopUntilItsTabWasOpen) {
    const auto identity = [this] {
        const auto sent =
            statementsOf([this] { (void)CheckEquipOverlap(session(), day, 10, 20, 7, at(8), at(12), "Primary"); });
        return sent.at(0).substr(0, sent.at(0).find(" AND ActivityDT"));
    };
    const std::string head = "SELECT * FROM ContractorPost WHERE ContractorPostID<>7 AND ";
    EXPECT_EQ(identity(), head + (session().gServerDialect ? "EquipmentID=10" : "ResourceID=20"));
    session().gEquipTabOpen = true;
    EXPECT_EQ(identity(), head + "EquipmentID=10");
}

TEST_P(OverlapCheckTest, EquipmentModeChoosesTheTimesAndWordsThemIn24Hours) {
    session().gEquipTabOpen = true;
    postEquipment(1, 10, 20, "7/4/2005", "8:00:00 AM", "2:00:00 PM", "4:00:00 PM", "6:00:00 PM");
    const auto in = [this](DateTime from, DateTime to, const char* mode) {
        return CheckEquipOverlap(session(), day, 10, 20, 7, from, to, mode);
    };
    EXPECT_EQ(in(at(13), at(15), "Primary"), line("13:00", "14:00"));
    EXPECT_EQ(in(at(13), at(15), "Both"), line("13:00", "14:00"));
    EXPECT_EQ(in(at(13), at(15), "anything"), line("13:00", "14:00"));
    EXPECT_EQ(in(at(13), at(15), "Special"), "");
    EXPECT_EQ(in(at(17), at(19), "Special"), line("17:00", "18:00"));
    EXPECT_EQ(in(at(17), at(19), "Both"), "");
}

TEST_P(OverlapCheckTest, EquipmentAcrossMidnightIsListedUnderBothDatesIn24Hours) {
    session().gEquipTabOpen = true;
    postEquipment(1, 10, 20, "7/4/2005", "6:00:00 AM", "8:00:00 PM", "1:00:00 AM", "2:00:00 AM");
    postEquipment(2, 10, 20, "7/4/2005", "7:00:00 PM", "12:00:00 AM", "1:00:00 AM", "2:00:00 AM");
    postEquipment(3, 10, 20, "7/5/2005", "12:00:00 AM", "8:00:00 AM", "1:00:00 AM", "2:00:00 AM");
    EXPECT_EQ(CheckEquipOverlap(session(), day, 10, 20, 7, at(18), at(2), "Primary"),
              "     For 07/04/2005\r\n" + line("18:00", "24:00") + line("19:00", "24:00") + "     For 07/05/2005\r\n" +
                  line("00:01", "02:00"));
    EXPECT_EQ(session().vYNMSa, ",1,2,3");
}

TEST_P(OverlapCheckTest, EquipmentSpecialQueriesNameAndSortBySpecialColumns) {
    session().gEquipTabOpen = true;
    const auto sent =
        statementsOf([this] { (void)CheckEquipOverlap(session(), day, 10, 20, 7, at(20), endOfDay, "Special"); });
    const std::string head =
        "SELECT * FROM ContractorPost WHERE ContractorPostID<>7 AND EquipmentID=10 AND ActivityDT=";
    const std::string server = head + "'7/4/2005' AND ((SStartTime>='1899-12-30 8:00:00 PM') OR "
                                      "(SStopTime>'1899-12-30 8:00:00 PM') OR (SStopTime='1899-12-30 12:00:00 AM')) "
                                      "ORDER BY ActivityDT,SStartTime ASC";
    const std::string desktop = head + "#7/4/2005# AND ((SStartTime>=#8:00:00 PM#) OR (SStopTime>#8:00:00 PM#) OR "
                                       "(SStopTime=#12:00:00 AM#)) ORDER BY ActivityDT,SStartTime ASC";
    EXPECT_EQ(sent, std::vector<std::string>{session().gServerDialect ? server : desktop});
}

} // namespace
} // namespace zel::posting
