#include "core/database_version.h"
#include "core/open_database.h"
#include "core/test_program.h"

namespace zel::core {

struct VersionCase {
    const char* version;
    bool old;
};

class OldDatabaseTest : public ::testing::TestWithParam<VersionCase> {};
INSTANTIATE_TEST_SUITE_P(Versions, OldDatabaseTest,
                         ::testing::Values(VersionCase{"5.00.05", true}, VersionCase{"5.00.06", false},
                                           VersionCase{"5.01.00", false}, VersionCase{"5.1", false},
                                           VersionCase{"5.0", true}, VersionCase{"5", true},
                                           VersionCase{"6.00.00", true}, VersionCase{"6.00.06", false},
                                           VersionCase{"4.99.99", true}, VersionCase{"5.-1.09", true},
                                           VersionCase{"6.-1.09", false}, VersionCase{"", true},
                                           VersionCase{"version", true}));

TEST_P(OldDatabaseTest, TheTestKeepsItsOrder) {
    TestProgram program(ado::EngineKind::Sqlite);
    program.session.gDBVersion = GetParam().version;
    EXPECT_EQ(IsOldDatabase(program.session), GetParam().old);
    EXPECT_EQ(program.session.gMinDBVersion, "5.00.06");
}

TEST(AppVersionTest, MinorAndRevisionHaveTheirLastTwoDigits) {
    TestProgram program(ado::EngineKind::Sqlite);
    program.session.app.Major = 5;
    program.session.app.Minor = 1;
    program.session.app.Revision = 123;
    BuildAppVersion(program.session);
    EXPECT_EQ(program.session.gAppVersion, "5.01.23");
}

TEST(IsDbErrorTest, TheProvidersNumbersAndTheirFullFormsAreMeant) {
    for (const std::int32_t number : {3639, 3661, 3604, 16389})
        EXPECT_TRUE(IsDbError(number)) << number;
    EXPECT_TRUE(IsDbError(ado::errors::failed));
    EXPECT_TRUE(IsDbError(ado::errors::noSuchTable));
    EXPECT_TRUE(IsDbError(ado::errors::errorsInCommand));
    EXPECT_TRUE(IsDbError(ado::errors::loginFailed));
    EXPECT_FALSE(IsDbError(ado::errors::rowNotLocated));
    EXPECT_FALSE(IsDbError(ado::errors::bofOrEof));
    EXPECT_FALSE(IsDbError(13));
    EXPECT_FALSE(IsDbError(0));
}

} // namespace zel::core
