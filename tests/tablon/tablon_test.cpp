#include "tablon/tablon.h"

#include "tablon_fixture.h"

namespace zel::tablon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The reporting program without Qt: its pages are looked at as they are.
class TablonTest : public TablonFixture {
protected:
    Outcome run(const std::string& words) {
        pages.clear();
        Tablon tablon({(folder / "zel").string(), onSqlite() ? database().file().string() : "",
                       [this](const auto& name, const auto&, const auto&, const auto& made) {
                           names.push_back(name);
                           pages = made;
                       }},
                      dialogs);
        return tablon.run(words);
    }
    /// What the pages say.
    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const printing::Page& page : pages) {
            for (const printing::Mark& mark : page)
                all.push_back(mark.item.text);
        }
        return all;
    }
    [[nodiscard]] std::size_t count(const std::string& text) const {
        const auto all = texts();
        return static_cast<std::size_t>(std::ranges::count(all, text));
    }
    std::vector<std::string> columns() {
        return rows("select PersonsPostID, Column288, RptOrder from PersonsPost order by PersonsPostID");
    }
    void postings() {
        post(101, 11, 4, "08:00", "16:00", 8);
        post(102, 11, 5, "08:00", "12:00", 4, "2,'FFT2','AD-B',18.20");
        post(103, 12, 4, "08:00", "18:00", 10, "1,'FFT1','AD-C',21.16");
        post(104, 13, 4, "07:00", "19:00", 12, "1,'PTRC','',0");
    }
    std::vector<std::string> names;
    std::vector<printing::Page> pages;
};
ZEL_ON_BOTH_ENGINES(TablonTest);

TEST_P(TablonTest, APersonACrewOrEverybodyIsPrinted) {
    postings();
    EXPECT_EQ(run(argument("P11")), Outcome::Printed);
    EXPECT_THAT(pages, SizeIs(1));
    EXPECT_EQ(count("SMITH, PAT"), 1U);
    EXPECT_THAT(columns(), ElementsAre("101|1|1", "102|2|1", "103||", "104||"));
    EXPECT_EQ(run(argument("R5")), Outcome::Printed);
    EXPECT_THAT(pages, SizeIs(2));
    EXPECT_EQ(count("MILLER, KIM"), 0U);
    EXPECT_EQ(run(argument("0")), Outcome::Printed);
    EXPECT_THAT(pages, SizeIs(3));
    EXPECT_EQ(count("MILLER, KIM"), 1U);
    EXPECT_THAT(columns(), ElementsAre("101|1|1", "102|2|1", "103|1|1", "104|1|1"));
    EXPECT_THAT(names, ElementsAre("OF-288 P11", "OF-288 R5", "OF-288 all"));
    EXPECT_THAT(dialogs.take(), IsEmpty());
}

TEST_P(TablonTest, TheFlagMakesItAnOriginal) {
    postings();
    ASSERT_EQ(run(argument("P11", 6, "True")), Outcome::Printed);
    EXPECT_EQ(count("ORIGINAL"), 1U);
    ASSERT_EQ(run(argument("P11", 6, "False")), Outcome::Printed);
    EXPECT_EQ(count("ORIGINAL"), 0U);
}

TEST_P(TablonTest, NothingIsWrittenWhereNothingChanged) {
    postings();
    ASSERT_EQ(run(argument("0")), Outcome::Printed);
    execute("update PersonsPost set Column288 = 9 where PersonsPostID = 104");
    const Request request = parseRequest(argument("0"));
    std::vector<std::string> sent;
    connection().setObserver([&sent](const std::string& statement) { sent.push_back(statement); });
    arrangeColumns(connection(), request);
    ASSERT_THAT(sent, SizeIs(2));
    EXPECT_EQ(sent[1], "UPDATE PersonsPost SET Column288 = 1, RptOrder = 1 WHERE PersonsPostID = 104");
    sent.clear();
    arrangeColumns(connection(), request);
    EXPECT_THAT(sent, SizeIs(1));
}

TEST_P(TablonTest, AColumnDoesNotDependOnWhatIsPrinted) {
    execute("insert into Incidents (IncidentID,IncidentName) values (2,'COLD CREEK')");
    execute("insert into AccountingCodes (AccountingID,IncidentID,AccountingCode) values (3,2,'P6QQQ3')");
    post(101, 11, 4, "08:00", "16:00", 8);
    post(102, 11, 3, "08:00", "16:00", 8, "3,'FFT2','AD-B',18.20");
    ASSERT_EQ(run(argument("P11")), Outcome::Printed);
    EXPECT_THAT(columns(), ElementsAre("101|2|1", "102|1|1"));
    EXPECT_EQ(count("P6QQQ3"), 0U);
    ASSERT_EQ(run(argument("P11", 6, "False", "-1", "True")), Outcome::Printed);
    EXPECT_THAT(columns(), ElementsAre("101|2|1", "102|1|1"));
    EXPECT_EQ(count("P6QQQ3"), 1U);
    // An incident begins a page, and the pages are those of one person.
    EXPECT_THAT(pages, SizeIs(2));
    EXPECT_EQ(count("1 of 2") + count("2 of 2"), 2U);
    EXPECT_EQ(count("COLD CREEK") + count("BEAR CREEK"), 2U);
    EXPECT_EQ(count("$291.20"), 2U); // the whole amount and the net, on the last page
}

TEST_P(TablonTest, NobodysHoursAreNotPrintedAndNothingIsChanged) {
    postings();
    EXPECT_EQ(run(argument("P99")), Outcome::NothingToPrint);
    EXPECT_EQ(run(argument("R99")), Outcome::NothingToPrint);
    EXPECT_EQ(run(argument("0", 6, "False", "77")), Outcome::NothingToPrint);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(3));
    EXPECT_EQ(shown[0].title, "Tablon: Report");
    EXPECT_EQ(shown[0].text, "Person 99 has no posted hours to print.");
    EXPECT_EQ(shown[0].icon, "information");
    EXPECT_EQ(shown[1].text, "Resource 99 has no posted hours to print.");
    EXPECT_EQ(shown[2].text, "There are no posted hours to print.");
    EXPECT_THAT(names, IsEmpty());
    EXPECT_THAT(columns(), ElementsAre("101||", "102||", "103||", "104||"));
}

TEST_P(TablonTest, AnAuthorizationIsForSomebody) {
    EXPECT_EQ(run(argument("0", 9)), Outcome::Printed);
    EXPECT_THAT(pages, SizeIs(3));
    EXPECT_EQ(run(argument("P13", 9)), Outcome::Printed);
    EXPECT_THAT(pages, SizeIs(1));
    EXPECT_EQ(run(argument("P99", 9)), Outcome::NothingToPrint);
    EXPECT_EQ(run(argument("R99", 9)), Outcome::NothingToPrint);
    EXPECT_EQ(run(argument("0", 9, "False", "77")), Outcome::NothingToPrint);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(3));
    EXPECT_EQ(shown[0].text, "There is no person 99 to print.");
    EXPECT_EQ(shown[1].text, "Resource 99 has nobody to print.");
    EXPECT_EQ(shown[2].text, "There is nobody to print.");
}

TEST_P(TablonTest, ARosterIsThatOfOneCrew) {
    EXPECT_EQ(run(argument("R5", 12)), Outcome::Printed);
    EXPECT_THAT(names, ElementsAre("Crew Roster R5"));
    EXPECT_EQ(run(argument("R99", 12)), Outcome::NothingToPrint);
    EXPECT_EQ(run(argument("0", 12)), Outcome::Failed);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(2));
    EXPECT_EQ(shown[0].text, "Resource 99 has nobody to print.");
    EXPECT_EQ(shown[1].text, "No Crew Selected");
    EXPECT_EQ(shown[1].icon, "information");
}

TEST_P(TablonTest, WhatItCannotDoItTellsInABox) {
    postings();
    EXPECT_EQ(run("nonsense"), Outcome::BadArgument);
    EXPECT_EQ(run(argument("P11", 7)), Outcome::NotInThisBuild);
    EXPECT_EQ(run(argument("P11", 6, "False", "0")), Outcome::Failed);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(3));
    EXPECT_EQ(shown[0].text, "The argument has 1 values instead of 9.");
    EXPECT_EQ(shown[0].icon, "critical");
    EXPECT_EQ(shown[1].text, "Report 7 is not part of this build of the reporting program.");
    EXPECT_EQ(shown[2].text, "Cannot find current incident.");
    EXPECT_EQ(shown[2].title, "Tablon: Cannot Print Selection");
    EXPECT_THAT(columns(), ElementsAre("101||", "102||", "103||", "104||"));
    EXPECT_THAT(names, IsEmpty());
}

TEST_P(TablonTest, ADatabaseThatIsNotThereIsToldAndNoOtherIsTaken) {
    postings();
    Tablon tablon({(folder / "zel").string(), "/nowhere/Korvan.mdb",
                   [this](const auto& name, const auto&, const auto&, const auto&) { names.push_back(name); }},
                  dialogs);
    const std::string words = onSqlite() ? argument("P11") : "1,6,P11,/nowhere/Korvan,zel,,True,False,False";
    EXPECT_EQ(tablon.run(words), Outcome::Failed);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_EQ(shown[0].icon, "critical");
    EXPECT_THAT(shown[0].text, testing::StartsWith("Error: "));
    EXPECT_THAT(shown[0].text, HasSubstr("/nowhere"));
    EXPECT_THAT(names, IsEmpty());
}

TEST_P(TablonTest, PostingsThatTheFormLeavesOutAreNamed) {
    post(101, 11, 4, "08:00", "16:00", 8);
    post(102, 11, 5, "08:00", "16:00", 8, "null,'FFT2','AD-B',18.20");
    post(103, 12, 5, "08:00", "16:00", 8, "99,'FFT2','AD-B',18.20");
    EXPECT_EQ(run(argument("R5")), Outcome::Printed);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_EQ(shown[0].text,
              "Postings without an account code are not on the form:\r\nO'BRIEN, LEE: 1\r\nSMITH, PAT: 1");
    EXPECT_THAT(pages, SizeIs(1));
}

TEST_P(TablonTest, ARowThatCannotBeWrittenLeavesAllAsTheyWere) {
    postings();
    const char* refusal = onSqlite()
                              ? "CREATE TRIGGER refusal BEFORE UPDATE ON PersonsPost WHEN NEW.PersonsPostID = 103 "
                                "BEGIN SELECT RAISE(ABORT, 'not this one'); END"
                              : "ALTER TABLE PersonsPost ADD CONSTRAINT refusal CHECK (NOT (PersonsPostID = 103 "
                                "AND Column288 IS NOT NULL))";
    connection().engine().prepare(refusal, true)->execute({});
    EXPECT_EQ(run(argument("0")), Outcome::Failed);
    const auto shown = dialogs.take();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_THAT(shown[0].text, testing::StartsWith("Error: "));
    EXPECT_THAT(columns(), ElementsAre("101||", "102||", "103||", "104||"));
    EXPECT_THAT(names, IsEmpty());
}

} // namespace
} // namespace zel::tablon
