#include "ado/convert.h"
#include "ado/error.h"
#include "recordset_fixture.h"

namespace zel::ado {
namespace {

/// The values of a column over all rows in view, joined by blanks.
std::string column(Recordset& rows, std::string_view field) {
    std::string joined;
    for (std::int64_t position = 1; position <= rows.RecordCount(); ++position)
        joined += (joined.empty() ? "" : " ") + toText(rows.valueAt(position, rows.fieldIndex(field)));
    return joined;
}

std::int32_t numberOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

class FivePersons : public RecordsetTest {
protected:
    FivePersons() {
        run("insert into Persons (PersonID, LastName, FirstName, ResourceID) values (1, 'BROWN', 'ANN', 10)");
        run("insert into Persons (PersonID, LastName, FirstName, ResourceID) values (2, 'adams', 'CARL', 10)");
        run("insert into Persons (PersonID, LastName, FirstName, ResourceID) values (3, 'Clark', 'BOB', 11)");
        run("insert into Persons (PersonID, LastName, FirstName, ResourceID) values (4, NULL, 'DAN', 11)");
        run("insert into Persons (PersonID, LastName, FirstName, ResourceID) values (5, 'ADAMS', 'ZOE', 12)");
        persons.Open("select PersonID, LastName, FirstName, ResourceID from Persons order by PersonID", connection);
    }
    Recordset persons;
};

TEST_P(FivePersons, AFreshSetStandsOnTheFirstRow) {
    EXPECT_EQ(persons.RecordCount(), 5);
    EXPECT_EQ(persons.AbsolutePosition(), 1);
    EXPECT_EQ(persons.value("lastname"), Value("BROWN"));
    EXPECT_FALSE(persons.BOF());
    EXPECT_FALSE(persons.EOF_());
}

TEST_P(FivePersons, MovingPastTheLastRowIsEofAndOnceMoreAnError) {
    persons.MoveLast();
    EXPECT_EQ(persons.AbsolutePosition(), 5);
    persons.MoveNext();
    EXPECT_TRUE(persons.EOF_());
    EXPECT_EQ(persons.AbsolutePosition(), Recordset::positionEof);
    EXPECT_EQ(numberOf([&] { persons.MoveNext(); }), errors::bofOrEof);
    EXPECT_EQ(numberOf([&] { (void)persons.value("LastName"); }), errors::bofOrEof);
    persons.MovePrevious();
    EXPECT_EQ(persons.value("PersonID"), Value(5));
}

TEST_P(FivePersons, MovingBeforeTheFirstRowIsBofAndOnceMoreAnError) {
    persons.MovePrevious();
    EXPECT_TRUE(persons.BOF());
    EXPECT_EQ(persons.AbsolutePosition(), Recordset::positionBof);
    EXPECT_EQ(numberOf([&] { persons.MovePrevious(); }), errors::bofOrEof);
    persons.Move(3);
    EXPECT_EQ(persons.value("PersonID"), Value(3));
    persons.Move(-100);
    EXPECT_TRUE(persons.BOF());
}

TEST_P(FivePersons, AnEmptySetIsAtBothEndsAndHasNoPosition) {
    Recordset none;
    none.Open("select * from Persons where PersonID = 0", connection);
    EXPECT_TRUE(none.BOF());
    EXPECT_TRUE(none.EOF_());
    EXPECT_EQ(none.AbsolutePosition(), Recordset::positionUnknown);
    EXPECT_EQ(none.RecordCount(), 0);
    EXPECT_EQ(numberOf([&] { none.MoveFirst(); }), errors::bofOrEof);
    EXPECT_EQ(numberOf([&] { none.MoveLast(); }), errors::bofOrEof);
    EXPECT_EQ(numberOf([&] { none.Find("PersonID = 1"); }), errors::bofOrEof);
    EXPECT_TRUE(none.hasField("FedCode"));
}

TEST_P(FivePersons, ClosedAndOpenSetsRefuseWhatTheyCannotDo) {
    Recordset closed;
    EXPECT_EQ(closed.State(), stateClosed);
    EXPECT_EQ(numberOf([&] { closed.MoveFirst(); }), errors::objectClosed);
    EXPECT_EQ(numberOf([&] { closed.Close(); }), errors::objectClosed);
    EXPECT_EQ(numberOf([&] { persons.Open("Persons", connection); }), errors::objectOpen);
    persons.Close();
    EXPECT_EQ(persons.State(), stateClosed);
    persons.Open("Persons", connection);
    EXPECT_EQ(persons.RecordCount(), 5);
}

TEST_P(FivePersons, AWrongStatementFailsOnOpening) {
    Recordset wrong;
    EXPECT_NE(numberOf([&] { wrong.Open("select * from NoSuchTable where 1 = 1", connection); }), 0);
    EXPECT_EQ(wrong.State(), stateClosed);
}

TEST_P(FivePersons, FindBeginsWithTheCurrentRowAndStandsAtEofWithoutAHit) {
    persons.Find("LastName = 'adams'");
    EXPECT_EQ(persons.value("PersonID"), Value(2));
    persons.Find("LastName = 'adams'");
    EXPECT_EQ(persons.value("PersonID"), Value(2));
    persons.Find("LastName = 'adams'", 1);
    EXPECT_EQ(persons.value("PersonID"), Value(5));
    persons.Find("PersonID = 1");
    EXPECT_TRUE(persons.EOF_());
    persons.MoveLast();
    persons.Find("PersonID < 4", 0, SearchDirection::Backward);
    EXPECT_EQ(persons.value("PersonID"), Value(3));
    persons.Find("PersonID = 77", 0, SearchDirection::Backward);
    EXPECT_TRUE(persons.BOF());
}

TEST_P(FivePersons, FindBeginsWithAGivenRow) {
    const Bookmark first = persons.bookmark();
    persons.MoveLast();
    persons.Find("ResourceID >= 11", 0, SearchDirection::Forward, first);
    EXPECT_EQ(persons.value("PersonID"), Value(3));
}

TEST_P(FivePersons, FindTakesOneTermOnly) {
    EXPECT_EQ(numberOf([&] { persons.Find("PersonID = 1 or PersonID = 2"); }), errors::invalidArgument);
    EXPECT_EQ(numberOf([&] { persons.Find("LastName = 'O'BRIEN'"); }), errors::invalidArgument);
    EXPECT_EQ(numberOf([&] { persons.Find("Nothing = 1"); }), errors::itemNotFound);
    EXPECT_EQ(persons.AbsolutePosition(), 1);
}

TEST_P(FivePersons, AFilterOnRowsHeldShowsWhatMeetsItAndStandsOnTheFirst) {
    persons.MoveLast();
    persons.setFilter("LastName like 'ADAM*'");
    EXPECT_EQ(column(persons, "PersonID"), "2 5");
    EXPECT_EQ(persons.AbsolutePosition(), 1);
    persons.setFilter("Not LastName = 'adams'");
    EXPECT_EQ(column(persons, "PersonID"), "1 3");
    persons.setFilter("");
    EXPECT_EQ(column(persons, "PersonID"), "1 2 3 4 5");
}

TEST_P(FivePersons, AWrongFilterIsRefusedAndTheOldOneStays) {
    persons.setFilter("PersonID > 3");
    EXPECT_EQ(numberOf([&] { persons.setFilter("PersonID >"); }), errors::invalidArgument);
    EXPECT_EQ(numberOf([&] { persons.setFilter("LastName = " + Sql("'") + Sql::of("x' or PersonID > '0") + "'"); }),
              errors::invalidArgument);
    EXPECT_EQ(column(persons, "PersonID"), "4 5");
    EXPECT_EQ(persons.Filter().text(), "PersonID > 3");
}

TEST_P(FivePersons, SortingPutsNullFirstIgnoresCaseAndKeepsTheOrderOfEquals) {
    persons.setSort("LastName");
    EXPECT_EQ(column(persons, "PersonID"), "4 2 5 1 3");
    persons.setSort("LastName DESC");
    EXPECT_EQ(column(persons, "PersonID"), "3 1 2 5 4");
    persons.setSort("[LastName] asc, FirstName desc");
    EXPECT_EQ(column(persons, "PersonID"), "4 5 2 1 3");
    persons.setSort("");
    EXPECT_EQ(column(persons, "PersonID"), "1 2 3 4 5");
    EXPECT_EQ(numberOf([&] { persons.setSort("Nothing"); }), errors::itemNotFound);
}

TEST_P(FivePersons, SortingKeepsTheCurrentRow) {
    persons.Find("PersonID = 3");
    persons.setSort("LastName");
    EXPECT_EQ(persons.value("PersonID"), Value(3));
    EXPECT_EQ(persons.AbsolutePosition(), 5);
}

TEST_P(FivePersons, BookmarksNameTheirRowUnderAnySortAndFilter) {
    persons.Find("PersonID = 5");
    const Bookmark five = persons.bookmark();
    persons.setSort("FirstName DESC");
    persons.setFilter("LastName = 'adams'");
    persons.setBookmark(five);
    EXPECT_EQ(persons.value("FirstName"), Value("ZOE"));
    persons.setFilter("PersonID = 1");
    EXPECT_EQ(numberOf([&] { persons.setBookmark(five); }), errors::invalidArgument);
    EXPECT_EQ(numberOf([&] { persons.setBookmark(0); }), errors::invalidArgument);
}

TEST_P(FivePersons, AFilterBeforeTheFirstRowLeavesTheOthersInTheDatabase) {
    Recordset lazy;
    lazy.Open("select PersonID, LastName from Persons", connection);
    lazy.setFilter("LastName = 'Adams' and PersonID > 2");
    EXPECT_EQ(column(lazy, "PersonID"), "5");
    EXPECT_EQ(lazy.Clone().RecordCount(), 1) << "rows that nobody asked for were fetched";
}

TEST_P(FivePersons, AnotherFilterOnANarrowedSetReadsItsOwnRows) {
    Recordset lazy;
    lazy.Open("select * from Persons order by PersonID", connection);
    lazy.setFilter("PersonID = 2");
    const Bookmark two = lazy.bookmark();
    run("update Persons set FirstName = 'CARLA' where PersonID = 2");
    lazy.setFilter("ResourceID = 10");
    EXPECT_EQ(column(lazy, "PersonID"), "1 2");
    lazy.setBookmark(two);
    EXPECT_EQ(lazy.value("FirstName"), Value("CARLA"));
    lazy.setFilter("");
    EXPECT_EQ(column(lazy, "PersonID"), "1 2 3 4 5");
    lazy.setBookmark(two);
    EXPECT_EQ(lazy.value("PersonID"), Value(2));
}

TEST_P(FivePersons, ASortSetBeforeTheFirstRowHolds) {
    Recordset lazy;
    lazy.Open("select * from Persons", connection);
    lazy.setSort("FirstName DESC");
    lazy.setFilter("PersonID <> 3");
    EXPECT_EQ(column(lazy, "FirstName"), "ZOE DAN CARL ANN");
}

TEST_P(FivePersons, NarrowingAndFilteringInMemoryAgreeOnEveryKindOfTerm) {
    run("update Persons set InitEmployYN = 1, Rate = 18.2 where PersonID in (1, 3)");
    run("update Persons set InitEmployYN = 0, Rate = 9 where PersonID = 2");
    persons.Close();
    persons.Open("select * from Persons order by PersonID", connection);
    persons.MoveFirst();
    for (const char* text : {"PersonID = 3",
                             "PersonID <> 3",
                             "PersonID >= '4'",
                             "PersonID < 2.5",
                             "LastName = 'ADAMS'",
                             "LastName <> 'adams'",
                             "LastName > 'b'",
                             "LastName like 'a%'",
                             "LastName like '*AR*'",
                             "LastName is null",
                             "LastName is not null",
                             "LastName = null",
                             "Not (LastName = 'ADAMS' or PersonID = 1)",
                             "(PersonID = 1 or PersonID = 4) and [ResourceID] = 11",
                             "LastName like 'a_ams'",
                             "ResourceID = True",
                             "not lastname like 'A*'",
                             "Persons.PersonID <= 2",
                             "InitEmployYN = 1",
                             "InitEmployYN = -1",
                             "InitEmployYN = True",
                             "InitEmployYN <> 1",
                             "InitEmployYN = False and PersonID < 9",
                             "Rate = 18.2",
                             "Rate > 9 and ResourceID = 10",
                             "Rate is null",
                             "LastName = 5",
                             "PersonID = 99999999999",
                             "ResourceID = 10 or Rate > 10"}) {
        Recordset lazy;
        lazy.Open("select * from Persons order by PersonID", connection);
        lazy.setFilter(Sql::words(text));
        persons.setFilter("");
        persons.setFilter(Sql::words(text));
        EXPECT_EQ(column(lazy, "PersonID"), column(persons, "PersonID")) << text;
    }
}

TEST_P(FivePersons, AClonePositionsItselfAndSharesTheRows) {
    persons.MoveLast();
    persons.setFilter("ResourceID = 11");
    Recordset clone = persons.Clone();
    EXPECT_EQ(column(clone, "PersonID"), "1 2 3 4 5");
    clone.Find("PersonID = 4");
    persons.setBookmark(clone.bookmark());
    EXPECT_EQ(persons.value("PersonID"), Value(4));
    clone.setValue("LastName", "DAVIS");
    clone.Update();
    EXPECT_EQ(persons.value("LastName"), Value("DAVIS"));
}

TEST_P(FivePersons, RequeryReadsAgainAndKeepsFilterAndSort) {
    persons.setFilter("ResourceID = 10");
    persons.setSort("FirstName DESC");
    persons.MoveLast();
    run("insert into Persons (PersonID, FirstName, ResourceID) values (6, 'MAX', 10)");
    EXPECT_EQ(column(persons, "PersonID"), "2 1");
    persons.Requery();
    EXPECT_EQ(column(persons, "PersonID"), "6 2 1");
    EXPECT_EQ(persons.AbsolutePosition(), 1);
}

TEST_P(FivePersons, OfTwoColumnsWithOneNameTheFirstIsMeant) {
    run("insert into Resources (ResourceID, Name, RequestNumber) values (10, 'CREW', 'C-1')");
    run("update Persons set RequestNumber = 'C-1.1' where PersonID = 1");
    Recordset joined;
    joined.Open("select Persons.PersonID, Persons.RequestNumber, Resources.RequestNumber from Persons inner join "
                "Resources on Persons.ResourceID = Resources.ResourceID where Persons.PersonID = 1",
                connection);
    EXPECT_EQ(joined.value("RequestNumber"), Value("C-1.1"));
    EXPECT_EQ(joined.value(2), Value("C-1"));
    EXPECT_EQ(joined.fieldCount(), 3U);
}

TEST_P(FivePersons, TheObserverSeesTheStatementOnceAsItIsWorded) {
    std::vector<std::string> seen;
    connection.setObserver([&](const std::string& statement) { seen.push_back(statement); });
    Recordset lazy;
    lazy.Open("select FirstName from Persons", connection);
    lazy.setFilter("FirstName = 'ANN'");
    EXPECT_EQ(lazy.RecordCount(), 1);
    lazy.setValue("FirstName", "ANNA");
    lazy.Update();
    connection.setObserver({});
    EXPECT_EQ(seen, std::vector<std::string>{"select FirstName from Persons"});
}

ZEL_ON_BOTH_ENGINES(FivePersons);

} // namespace
} // namespace zel::ado
