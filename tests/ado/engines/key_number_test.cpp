#include "engine_fixture.h"

#include "support/processes.h"

#include <algorithm>
#include <set>

namespace zel::ado {
namespace {

class KeyNumberTest : public EngineFixture {};
ZEL_ON_BOTH_ENGINES(KeyNumberTest);

TEST_P(KeyNumberTest, TheFirstKeyOfATableIsAboveTheHighestThere) {
    run(engine(), "INSERT INTO Persons (PersonID) VALUES (41)");
    EXPECT_EQ(engine().nextNumber("Persons", ""), 42);
    EXPECT_EQ(engine().nextNumber("PERSONS", "PersonID"), 43);
}

TEST_P(KeyNumberTest, AnEmptyTableBeginsWithOne) {
    EXPECT_EQ(engine().nextNumber("Incidents", ""), 1);
    EXPECT_EQ(engine().nextNumber("Incidents", "IncidentID"), 2);
}

TEST_P(KeyNumberTest, KeysBelowZeroDoNotCount) {
    run(engine(), "INSERT INTO Persons (PersonID) VALUES (-7)");
    EXPECT_EQ(engine().nextNumber("Persons", ""), 1);
}

TEST_P(KeyNumberTest, EachTableHasItsOwnNumbers) {
    EXPECT_EQ(engine().nextNumber("Persons", ""), 1);
    EXPECT_EQ(engine().nextNumber("Resources", ""), 1);
    EXPECT_EQ(engine().nextNumber("Persons", ""), 2);
}

TEST_P(KeyNumberTest, AKeyThatWasGivenIsNotGivenAgain) {
    EXPECT_EQ(engine().nextNumber("Persons", ""), 1);
    EXPECT_EQ(database().open()->nextNumber("Persons", ""), 2);
}

TEST_P(KeyNumberTest, UnknownTablesColumnsAndViewsAreErrors) {
    EXPECT_EQ(errorFrom([&] { static_cast<void>(engine().nextNumber("Nowhere", "")); }).number(), errors::noSuchTable);
    EXPECT_EQ(errorFrom([&] { static_cast<void>(engine().nextNumber("qryCrews", "")); }).number(), errors::noSuchTable);
    EXPECT_EQ(errorFrom([&] { static_cast<void>(engine().nextNumber("Persons", "Nothing")); }).number(),
              errors::errorsInCommand);
    EXPECT_EQ(
        errorFrom([&] { static_cast<void>(engine().nextNumber("Persons'; drop table Persons; --", "")); }).number(),
        errors::noSuchTable);
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM NextNumbers"), Value(0));
}

TEST_P(KeyNumberTest, KeysThatAreUsedUpAreAnError) {
    run(engine(), "INSERT INTO Persons (PersonID) VALUES (2147483647)");
    EXPECT_THROW(static_cast<void>(engine().nextNumber("Persons", "")), Error);
}

TEST_P(KeyNumberTest, ClerksAtOnceNeverGetTheSameKey) {
    run(engine(), "INSERT INTO Persons (PersonID) VALUES (1000)");
    constexpr int clerks = 8, keysOfEach = 100;
    const std::vector<int> keys = test::inProcesses(clerks, [&](int /*clerk*/, const test::Report& report) {
        const auto own = database().open(std::chrono::seconds(60));
        for (int i = 0; i < keysOfEach; ++i)
            report(own->nextNumber("Persons", ""));
    });
    const std::set<int> different(keys.begin(), keys.end());
    EXPECT_EQ(keys.size(), static_cast<std::size_t>(clerks * keysOfEach));
    EXPECT_EQ(different.size(), keys.size());
    EXPECT_EQ(*different.begin(), 1001);
    EXPECT_EQ(*different.rbegin(), 1000 + clerks * keysOfEach);
}

} // namespace
} // namespace zel::ado
