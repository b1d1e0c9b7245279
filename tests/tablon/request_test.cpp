#include "tablon/request.h"

#include <gmock/gmock.h>

namespace zel::tablon {
namespace {

TEST(RequestTest, TheNineValuesOfTheProgramAreUnderstood) {
    const Request request = parseRequest("7,6,P12,FIRE1/Korvan,clerk,secret,True,False,True");
    EXPECT_EQ(request.incident, 7);
    EXPECT_EQ(request.report, 6);
    EXPECT_EQ(request.whose, Whose::Person);
    EXPECT_EQ(request.key, 12);
    EXPECT_EQ(request.server, "FIRE1");
    EXPECT_EQ(request.catalog, "Korvan");
    EXPECT_EQ(request.user, "clerk");
    EXPECT_EQ(request.password, "secret");
    EXPECT_TRUE(request.serverDialect);
    EXPECT_FALSE(request.manageAll);
    EXPECT_TRUE(request.flag);
}

TEST(RequestTest, TheOptionNamesAResourceOrEverybody) {
    const Request crew = parseRequest("7,6,R5,/,,,False,True,False");
    EXPECT_EQ(crew.whose, Whose::Resource);
    EXPECT_EQ(crew.key, 5);
    EXPECT_TRUE(crew.manageAll);
    EXPECT_EQ(parseRequest("-1,6,0,/,,,False,True,False").whose, Whose::All);
    EXPECT_EQ(parseRequest("-1,6,0,/,,,False,True,False").incident, -1);
    EXPECT_EQ(parseRequest("7,6,,/,,,False,True,False").whose, Whose::All);
}

TEST(RequestTest, AServerMayBeASocketsFolderAndAFileMayHaveCommasInItsPath) {
    const Request socket = parseRequest("7,6,0,/run/postgresql:5433/Korvan,clerk,,True,False,False");
    EXPECT_EQ(socket.server, "/run/postgresql:5433");
    EXPECT_EQ(socket.catalog, "Korvan");
    const Request file = parseRequest("7,6,0,Database file//data/a,b/Korvan.mdb,,,True,False,False");
    EXPECT_EQ(file.server, "Database file");
    EXPECT_EQ(file.catalog, "/data/a,b/Korvan.mdb");
    EXPECT_EQ(file.user, "");
    EXPECT_EQ(file.password, "");
}

TEST(RequestTest, APasswordMayHoldCommas) {
    const Request request = parseRequest("7,6,0,FIRE1/Korvan,clerk,a,b,,c,True,False,False");
    EXPECT_EQ(request.user, "clerk");
    EXPECT_EQ(request.password, "a,b,,c");
}

struct Bad {
    const char* argument;
    const char* why;
};

void PrintTo(const Bad& bad, std::ostream* stream) {
    *stream << bad.argument;
}

class BadRequestTest : public testing::TestWithParam<Bad> {};

TEST_P(BadRequestTest, IsRefusedWithTheReason) {
    try {
        (void)parseRequest(GetParam().argument);
        FAIL() << "it was taken";
    } catch (const RequestError& error) {
        EXPECT_STREQ(error.what(), GetParam().why);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, BadRequestTest,
    testing::Values(
        Bad{"", "The argument has 1 values instead of 9."},
        Bad{"7,6,P1,a/b,,,True,False", "The argument has 8 values instead of 9."},
        Bad{"x,6,P1,a/b,,,True,False,False", "The incident 'x' is not a number."},
        Bad{"7,,P1,a/b,,,True,False,False", "The report '' is not a number."},
        Bad{"7,6,P1,a/b,,,Perhaps,False,False", "The dialect 'Perhaps' is neither True nor False."},
        Bad{"7,6,P1,a/b,,,True,,False", "The sign for all incidents '' is neither True nor False."},
        Bad{"7,6,P1,a/b,,,True,False,3x", "The flag '3x' is neither True nor False."},
        Bad{"7,6,P1,ab,,,True,False,False", "'ab' does not name a server and a catalog, parted by '/'."},
        Bad{"7,6,X1,a/b,,,True,False,False",
            "The option 'X1' names neither a person (P12) nor a resource (R12), nor all of the incident (0)."},
        Bad{"7,6,P0,a/b,,,True,False,False",
            "The option 'P0' names neither a person (P12) nor a resource (R12), nor all of the incident (0)."},
        Bad{"7,6,P1 or 1=1,a/b,,,True,False,False",
            "The option 'P1 or 1=1' names neither a person (P12) nor a resource (R12), nor all of the incident (0)."}));

} // namespace
} // namespace zel::tablon
