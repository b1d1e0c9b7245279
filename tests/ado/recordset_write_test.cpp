#include "ado/convert.h"
#include "ado/error.h"
#include "recordset_fixture.h"

#include <gmock/gmock.h>

#include <chrono>

namespace zel::ado {
namespace {

using testing::HasSubstr;

constexpr const char* incidentJoin =
    "Select Incidents.IncidentID as IncidentID, IncidentNumber, IncidentName, StartDate, AccountingID, AccountingCode, "
    "AccountingCodes.IncidentID as aIncidentID, IncidentDefault FROM Incidents LEFT JOIN AccountingCodes ON "
    "Incidents.IncidentID = AccountingCodes.IncidentID";

class RecordsetWrite : public RecordsetTest {
protected:
    void open(Recordset& rows, std::string_view text) { rows.Open(Sql::words(text), connection); }

    /// An error with that number, and the row still in its edit.
    void expectRefused(Recordset& rows, std::int32_t number) {
        try {
            rows.Update();
            ADD_FAILURE() << "the update went through";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), number) << error.what();
        }
        EXPECT_NE(rows.EditMode(), EditModeEnum::None);
    }
};

TEST_P(RecordsetWrite, AnEditIsWrittenOnUpdateAndShownInTheRow) {
    run("insert into Persons (PersonID, LastName, Rate) values (1, 'BROWN', 18.2)");
    Recordset rows;
    open(rows, "select * from Persons where PersonID = 1");
    EXPECT_EQ(rows.EditMode(), EditModeEnum::None);
    rows.setValue("lastname", "BLACK");
    EXPECT_EQ(rows.EditMode(), EditModeEnum::InProgress);
    EXPECT_EQ(rows.value("LastName"), Value("BLACK"));
    EXPECT_EQ(rows.originalValue("LastName"), Value("BROWN"));
    EXPECT_EQ(lookUp("select LastName from Persons"), "BROWN");
    rows.Update();
    EXPECT_EQ(rows.EditMode(), EditModeEnum::None);
    EXPECT_EQ(rows.value("LastName"), Value("BLACK"));
    EXPECT_EQ(lookUp("select LastName from Persons"), "BLACK");
    EXPECT_EQ(lookUp("select Rate from Persons"), "18.2");
}

TEST_P(RecordsetWrite, CancelUpdateForgetsTheEdit) {
    run("insert into Persons (PersonID, LastName) values (1, 'BROWN')");
    Recordset rows;
    open(rows, "select * from Persons where PersonID = 1");
    rows.setValue("LastName", "BLACK");
    rows.CancelUpdate();
    EXPECT_EQ(rows.EditMode(), EditModeEnum::None);
    EXPECT_EQ(rows.value("LastName"), Value("BROWN"));
    rows.Update();
    EXPECT_EQ(lookUp("select LastName from Persons"), "BROWN");
}

TEST_P(RecordsetWrite, AMoveWritesThePendingEditAndCloseRefusesIt) {
    run("insert into Persons (PersonID, LastName) values (1, 'BROWN')");
    run("insert into Persons (PersonID, LastName) values (2, 'GREEN')");
    Recordset rows;
    open(rows, "select * from Persons order by PersonID");
    rows.setValue("LastName", "BLACK");
    EXPECT_THROW(rows.Close(), Error);
    EXPECT_THROW(rows.Requery(), Error);
    rows.MoveNext();
    EXPECT_EQ(rows.value("LastName"), Value("GREEN"));
    EXPECT_EQ(lookUp("select LastName from Persons where PersonID = 1"), "BLACK");
}

TEST_P(RecordsetWrite, OfTwoClerksEditingOneColumnTheSecondIsToldAndNothingIsWritten) {
    run("insert into Persons (PersonID, LastName, City) values (1, 'BROWN', 'ELY')");
    Recordset mine, theirs;
    open(mine, "select * from Persons where PersonID = 1");
    theirs.Open("select * from Persons where PersonID = 1", other);
    mine.MoveFirst();
    theirs.setValue("LastName", "GREEN");
    theirs.Update();
    mine.setValue("LastName", "BLACK");
    mine.setValue("City", "RENO");
    expectRefused(mine, errors::rowNotLocated);
    EXPECT_EQ(lookUp("select LastName from Persons"), "GREEN");
    EXPECT_EQ(lookUp("select City from Persons"), "ELY");
    mine.CancelUpdate();
    EXPECT_EQ(mine.value("LastName"), Value("BROWN"));
}

TEST_P(RecordsetWrite, AChangeOfCaseAloneIsAChangeByTheOtherClerk) {
    run("insert into Persons (PersonID, LastName) values (1, 'BROWN')");
    Recordset mine;
    open(mine, "select * from Persons where PersonID = 1");
    mine.MoveFirst();
    run("update Persons set LastName = 'Brown'");
    mine.setValue("LastName", "BLACK");
    expectRefused(mine, errors::rowNotLocated);
    EXPECT_EQ(lookUp("select LastName from Persons"), "Brown");
}

TEST_P(RecordsetWrite, ClerksWhoChangeDifferentColumnsBothSucceed) {
    run("insert into Persons (PersonID, LastName) values (1, 'BROWN')");
    Recordset mine, theirs;
    open(mine, "select * from Persons where PersonID = 1");
    theirs.Open("select * from Persons where PersonID = 1", other);
    mine.MoveFirst();
    theirs.setValue("City", "ELY");
    theirs.Update();
    mine.setValue("LastName", "BLACK");
    mine.setValue("City", Value()); // as it was read: nothing to write
    mine.Update();
    EXPECT_EQ(lookUp("select LastName from Persons"), "BLACK");
    EXPECT_EQ(lookUp("select City from Persons"), "ELY");
}

TEST_P(RecordsetWrite, ARowThatAnotherClerkDeletedIsNotLocated) {
    run("insert into Persons (PersonID, LastName) values (1, 'BROWN')");
    Recordset mine;
    open(mine, "select * from Persons where PersonID = 1");
    mine.MoveFirst();
    run("delete from Persons where PersonID = 1");
    mine.setValue("LastName", "BLACK");
    expectRefused(mine, errors::rowNotLocated);
    mine.CancelUpdate();
    EXPECT_THROW(mine.Delete(), Error);
    EXPECT_EQ(mine.RecordCount(), 1);
}

TEST_P(RecordsetWrite, EveryTypeIsComparedNullSafelyAndExactly) {
    run("insert into PersonsPost (PersonsPostID, Hours, Rate, ActivityDT, StartTime, Remarks, InvoiceID) values "
        "(1, 7.1, 18.2, '7/4/2005', '1899-12-30 08:15', NULL, NULL)");
    Recordset rows;
    open(rows, "select * from PersonsPost where PersonsPostID = 1");
    rows.setValue("Hours", 8.25);
    rows.setValue("Rate", Currency::fromTicks(193'500));
    rows.setValue("ActivityDT", DateTime::fromDate(2005, 7, 5));
    rows.setValue("StartTime", "12:01:00 AM");
    rows.setValue("Remarks", "NIGHT");
    rows.setValue("InvoiceID", 7);
    rows.Update();
    rows.setValue("Remarks", Value());
    rows.setValue("StartTime", "12:00:00 AM");
    rows.setValue("Hours", 0.1);
    rows.Update();
    EXPECT_EQ(lookUp("select Hours from PersonsPost"), "0.1");
    EXPECT_EQ(lookUp("select Rate from PersonsPost"), "19.35");
    EXPECT_EQ(lookUp("select ActivityDT from PersonsPost"), "7/5/2005");
    EXPECT_EQ(lookUp("select StartTime from PersonsPost"), "12:00:00 AM");
    EXPECT_EQ(lookUp("select Remarks from PersonsPost"), "NULL");
    EXPECT_EQ(lookUp("select InvoiceID from PersonsPost"), "7");
}

TEST_P(RecordsetWrite, AssignedValuesTakeTheTypeOfTheirColumn) {
    Recordset rows;
    open(rows, "PersonsPost");
    rows.AddNew();
    rows.setValue("PersonsPostID", "12");
    rows.setValue("StopTime", "12:00:00 AM");
    rows.setValue("ActivityDT", "07/04/2005");
    rows.setValue("Hours", "024.50");
    rows.setValue("Rate", "018.20005");
    rows.setValue("Amt", 0.00015);
    rows.setValue("Class", 5);
    EXPECT_EQ(rows.value("PersonsPostID"), Value(12));
    EXPECT_EQ(rows.value("StopTime"), Value(DateTime(0.0)));
    EXPECT_EQ(rows.value("ActivityDT"), Value(DateTime::fromDate(2005, 7, 4)));
    EXPECT_EQ(rows.value("Hours"), Value(24.5));
    EXPECT_EQ(rows.value("Rate"), Value(Currency::fromTicks(182'000))) << "half to even";
    EXPECT_EQ(rows.value("Amt"), Value(Currency::fromTicks(2)));
    EXPECT_EQ(rows.value("Class"), Value("5"));
    rows.CancelUpdate();
}

TEST_P(RecordsetWrite, AnyNumberButZeroSetsAFlag) {
    run("insert into AccountingCodes (AccountingID, IncidentDefault) values (1, 0)");
    Recordset rows;
    open(rows, "select * from AccountingCodes");
    for (const Value& set : {Value(-1), Value(1), Value(true), Value("True"), Value(2)}) {
        rows.setValue("IncidentDefault", false);
        rows.Update();
        rows.setValue("IncidentDefault", set);
        EXPECT_EQ(rows.value("IncidentDefault"), Value(true));
        rows.Update();
        EXPECT_EQ(lookUp("select AccountingID from AccountingCodes where IncidentDefault = 1"), "1") << toText(set);
    }
}

TEST_P(RecordsetWrite, AnImpossibleTextIsRefusedAndTheFieldKeepsItsValue) {
    run("insert into PersonsPost (PersonsPostID, Hours) values (1, 8)");
    Recordset rows;
    open(rows, "select * from PersonsPost");
    for (const auto& [field, text] : std::vector<std::pair<const char*, const char*>>{{"Hours", "eight"},
                                                                                      {"Hours", ""},
                                                                                      {"ActivityDT", "13/45/2005"},
                                                                                      {"Rate", "$"},
                                                                                      {"PersonID", "99999999999"}})
        try {
            rows.setValue(field, text);
            ADD_FAILURE() << field << " took " << text;
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::errorsOccurred);
        }
    EXPECT_EQ(rows.EditMode(), EditModeEnum::None);
    EXPECT_EQ(rows.value("Hours"), Value(8.0));
}

TEST_P(RecordsetWrite, ANewRowIsWrittenOnUpdateAndStoodOn) {
    run("insert into Resources (ResourceID, Name) values (1, 'OLD')");
    Recordset rows;
    open(rows, "Resources");
    rows.AddNew();
    EXPECT_EQ(rows.EditMode(), EditModeEnum::Add);
    EXPECT_EQ(rows.value("Name"), Value());
    rows.setValue("ResourceID", 2);
    rows.setValue("Name", "NEW");
    rows.setValue("Collection", true);
    rows.Update();
    EXPECT_EQ(rows.value("Name"), Value("NEW"));
    EXPECT_EQ(rows.value("ParentID"), Value(0)) << "what the database filled in by itself is shown";
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.value("ResourceID"), Value(2)) << "the new row is still the current one";
    EXPECT_EQ(lookUp("select Name from Resources where ResourceID = 2 and Collection = 1"), "NEW");
    rows.setValue("ParentID", 5);
    rows.Update();
    EXPECT_EQ(lookUp("select ParentID from Resources where ResourceID = 2"), "5");
}

TEST_P(RecordsetWrite, TwoNewRowsInARowAreBothWritten) {
    Recordset rows;
    open(rows, "PersonsPost");
    rows.AddNew();
    rows.setValue("PersonsPostID", 1);
    rows.AddNew(); // writes the first
    rows.setValue("PersonsPostID", 2);
    rows.Update();
    EXPECT_EQ(lookUp("select count(*) from PersonsPost"), "2");
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.MoveFirst();
    EXPECT_EQ(rows.value("PersonsPostID"), Value(1));
}

TEST_P(RecordsetWrite, ANewRowGoneWrongWritesNothingAndCanBeCancelled) {
    run("insert into Resources (ResourceID, Name) values (1, 'OLD')");
    Recordset rows;
    open(rows, "select * from Resources");
    rows.MoveFirst();
    rows.AddNew();
    rows.setValue("ResourceID", 1);
    expectRefused(rows, errors::failed);
    rows.CancelUpdate();
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.value("Name"), Value("OLD"));
}

TEST_P(RecordsetWrite, OneNewRowOfAJoinWritesEachTableThatGotAValue) {
    Recordset rows;
    open(rows,
         "Select Incidents.IncidentID as IncidentID, IncidentNumber, IncidentName, AccountingID, AccountingCode, "
         "AccountingCodes.IncidentID as aIncidentID, IncidentDefault FROM Incidents INNER JOIN AccountingCodes ON "
         "Incidents.IncidentID = AccountingCodes.IncidentID");
    rows.AddNew();
    rows.setValue("IncidentID", 5);
    rows.setValue("IncidentName", "BIG FIRE");
    rows.setValue("aIncidentID", 5);
    rows.setValue("AccountingID", 9);
    rows.setValue("AccountingCode", "");
    rows.setValue("IncidentDefault", -1);
    rows.Update();
    EXPECT_EQ(lookUp("select IncidentName from Incidents where IncidentID = 5"), "BIG FIRE");
    EXPECT_EQ(lookUp("select AccountingID from AccountingCodes where IncidentID = 5 and IncidentDefault = 1 and "
                     "AccountingCode = ''"),
              "9");
    EXPECT_EQ(rows.value("aIncidentID"), Value(5));
}

TEST_P(RecordsetWrite, ANewRowOfAJoinIsWrittenWholeOrNotAtAll) {
    run("insert into AccountingCodes (AccountingID, IncidentID) values (9, 4)");
    Recordset rows;
    open(rows, incidentJoin);
    rows.AddNew();
    rows.setValue("IncidentID", 5);
    rows.setValue("IncidentName", "BIG FIRE");
    rows.setValue("AccountingID", 9); // taken already
    rows.setValue("aIncidentID", 5);
    expectRefused(rows, errors::failed);
    EXPECT_EQ(lookUp("select count(*) from Incidents"), "0");
}

TEST_P(RecordsetWrite, AnEditOfAJoinWritesOnlyTheTablesTouched) {
    run("insert into Incidents (IncidentID, IncidentName) values (5, 'BIG FIRE')");
    run("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode) values (9, 5, 'A1')");
    Recordset rows;
    open(rows, incidentJoin);
    rows.setValue("AccountingCode", "B2");
    run("update Incidents set IncidentName = 'SMALL FIRE'");
    rows.Update();
    EXPECT_EQ(lookUp("select AccountingCode from AccountingCodes"), "B2");
    EXPECT_EQ(lookUp("select IncidentName from Incidents"), "SMALL FIRE");
}

TEST_P(RecordsetWrite, AnEditOfTwoTablesIsWrittenWholeOrNotAtAll) {
    run("insert into Incidents (IncidentID, IncidentName) values (5, 'BIG FIRE')");
    run("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode) values (9, 5, 'A1')");
    Recordset rows;
    open(rows, incidentJoin);
    rows.setValue("IncidentName", "HUGE FIRE");
    rows.setValue("AccountingCode", "B2");
    run("update AccountingCodes set AccountingCode = 'C3'");
    expectRefused(rows, errors::rowNotLocated);
    EXPECT_EQ(lookUp("select IncidentName from Incidents"), "BIG FIRE");
    EXPECT_EQ(lookUp("select AccountingCode from AccountingCodes"), "C3");
}

/// Only in a file does a reader stop a commit.
class RecordsetWriteToAFile : public RecordsetWrite {};

TEST_P(RecordsetWriteToAFile, AnEditOfTwoTablesThatCannotBeCommittedLeavesNothingOpen) {
    run("insert into Incidents (IncidentID, IncidentName) values (5, 'BIG FIRE')");
    run("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode) values (9, 5, 'A1')");
    Connection hasty(database().open(std::chrono::milliseconds(50)));
    Recordset rows;
    rows.Open(Sql::words(incidentJoin), hasty);
    rows.setValue("IncidentName", "HUGE FIRE");
    rows.setValue("AccountingCode", "B2");
    other.engine().prepare("BEGIN", false)->execute({});
    EXPECT_EQ(lookUp("select IncidentName from Incidents"), "BIG FIRE"); // reads, and goes on holding the file
    EXPECT_THROW(rows.Update(), Error);
    other.engine().prepare("COMMIT", false)->execute({});
    run("update Incidents set IncidentNumber = 'ID-BOF-000001'");
    rows.Update();
    EXPECT_EQ(lookUp("select IncidentName from Incidents"), "HUGE FIRE");
    EXPECT_EQ(lookUp("select AccountingCode from AccountingCodes"), "B2");
}

TEST_P(RecordsetWrite, ANewRowIsWrittenWithoutReadingTheTable) {
    Recordset rows;
    open(rows, "PersonsPost");
    rows.AddNew();
    rows.setValue("PersonsPostID", 1);
    rows.Update();
    // What came after the write is there too, so that nothing was read before.
    run("insert into PersonsPost (PersonsPostID) values (2)");
    EXPECT_EQ(rows.RecordCount(), 2);
}

TEST_P(RecordsetWrite, TheNullSideOfAJoinCannotBeEditedButTakesNothing) {
    run("insert into Incidents (IncidentID, IncidentName) values (5, 'BIG FIRE')");
    Recordset rows;
    open(rows, incidentJoin);
    try {
        rows.setValue("AccountingCode", "B2");
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::errorsOccurred);
        EXPECT_THAT(error.what(), HasSubstr("this row has no "));
    }
    rows.setValue("IncidentName", "SMALL FIRE");
    rows.setValue("AccountingCode", "");
    rows.Update();
    EXPECT_EQ(lookUp("select IncidentName from Incidents"), "SMALL FIRE");
    EXPECT_EQ(lookUp("select count(*) from AccountingCodes"), "0");
}

TEST_P(RecordsetWrite, AViewIsEditedThroughIntoItsTables) {
    run("insert into Resources (ResourceID, Name, RequestNumber, KindCode, AgencyCode) values (10, 'BROWN,ANN', 'O-1', "
        "'FIRE', 'BLM')");
    run("insert into Persons (PersonID, ResourceID, LastName, FirstName, RequestNumber, KindCode, AgencyCode, Rate) "
        "values "
        "(1, 10, 'BROWN', 'ANN', 'O-1', 'FIRE', 'BLM', 12.5)");
    Recordset rows;
    open(rows, "SELECT qrySelectPersonnel.* FROM qrySelectPersonnel WHERE PersonID = 1 ORDER BY LnFn");
    rows.setValue("Name", "BROWN, ANNA");
    rows.setValue("FirstName", "ANNA");
    rows.setValue("RequestNumber", "O-2");
    rows.setValue("PRequestNumber", "O-3");
    rows.setValue("KindCode", "HELI");
    rows.setValue("RKindCode", "CREW");
    rows.setValue("RAgencyCode", "NPS");
    rows.setValue("Rate", "13.75");
    rows.setValue("ContractedResource", false);
    rows.Update();
    EXPECT_EQ(lookUp("select Name from Resources"), "BROWN, ANNA");
    EXPECT_EQ(lookUp("select RequestNumber from Resources"), "O-2");
    EXPECT_EQ(lookUp("select KindCode from Resources"), "CREW");
    EXPECT_EQ(lookUp("select AgencyCode from Resources"), "NPS");
    EXPECT_EQ(lookUp("select FirstName from Persons"), "ANNA");
    EXPECT_EQ(lookUp("select RequestNumber from Persons"), "O-3");
    EXPECT_EQ(lookUp("select KindCode from Persons"), "HELI");
    EXPECT_EQ(lookUp("select AgencyCode from Persons"), "BLM");
    EXPECT_EQ(lookUp("select Rate from Persons"), "13.75");
}

TEST_P(RecordsetWrite, AWorkedOutColumnCannotBeWritten) {
    run("insert into Resources (ResourceID) values (10)");
    run("insert into Persons (PersonID, ResourceID, LastName) values (1, 10, 'BROWN')");
    Recordset rows;
    open(rows, "select * from qrySelectPersonnel");
    EXPECT_THROW(rows.setValue("LnFn", "X"), Error);
    EXPECT_EQ(rows.EditMode(), EditModeEnum::None);
}

TEST_P(RecordsetWrite, ASelectWithoutItsKeyIsEditedThroughAHiddenOne) {
    run("insert into Persons (PersonID, LastName, FedCode) values (1, 'BROWN', 'AD')");
    run("insert into Persons (PersonID, LastName, FedCode) values (2, 'BROWN', 'AD')");
    Recordset rows;
    open(rows, "Select FedCode from Persons where LastName = 'BROWN' order by PersonID desc");
    EXPECT_EQ(rows.fieldCount(), 1U);
    EXPECT_FALSE(rows.hasField("PersonID"));
    rows.setValue("FedCode", "FED");
    rows.Update();
    EXPECT_EQ(lookUp("select FedCode from Persons where PersonID = 2"), "FED");
    EXPECT_EQ(lookUp("select FedCode from Persons where PersonID = 1"), "AD");
}

TEST_P(RecordsetWrite, AReadOnlySetRefusesEveryWrite) {
    run("insert into Persons (PersonID) values (1)");
    Recordset rows;
    rows.Open("Persons", connection, CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_THROW(rows.setValue("City", "ELY"), Error);
    EXPECT_THROW(rows.AddNew(), Error);
    EXPECT_THROW(rows.Delete(), Error);
    EXPECT_EQ(lookUp("select count(*) from Persons"), "1");
}

TEST_P(RecordsetWrite, ADeletedRowStaysThePlaceUntilTheNextMove) {
    for (const char* key : {"1", "2", "3"})
        run("insert into Persons (PersonID) values (" + std::string(key) + ")");
    Recordset rows;
    open(rows, "select * from Persons order by PersonID");
    rows.MoveNext();
    rows.Delete();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_FALSE(rows.EOF_());
    EXPECT_THROW((void)rows.value("PersonID"), Error);
    rows.MoveNext();
    EXPECT_EQ(rows.value("PersonID"), Value(3));
    rows.Delete();
    rows.MovePrevious();
    EXPECT_EQ(rows.value("PersonID"), Value(1));
    rows.Delete();
    EXPECT_TRUE(rows.EOF_());
    EXPECT_EQ(lookUp("select count(*) from Persons"), "0");
}

TEST_P(RecordsetWrite, ADeleteOfAJoinTakesTheRowOfItsFirstTable) {
    run("insert into Incidents (IncidentID, IncidentName) values (5, 'BIG FIRE')");
    run("insert into AccountingCodes (AccountingID, IncidentID) values (9, 5)");
    Recordset rows;
    open(rows, "select AccountingID, AccountingCode, Incidents.IncidentID from AccountingCodes inner join Incidents on "
               "AccountingCodes.IncidentID = Incidents.IncidentID");
    rows.Delete();
    EXPECT_EQ(lookUp("select count(*) from AccountingCodes"), "0");
    EXPECT_EQ(lookUp("select count(*) from Incidents"), "1");
}

TEST_P(RecordsetWrite, ClonesSeeRowsAddedAndDeleted) {
    run("insert into Persons (PersonID) values (1)");
    Recordset rows;
    open(rows, "select * from Persons");
    Recordset clone = rows.Clone();
    rows.AddNew();
    rows.setValue("PersonID", 2);
    rows.Update();
    EXPECT_EQ(clone.RecordCount(), 2);
    clone.MoveFirst();
    clone.Delete();
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.value("PersonID"), Value(2));
}

TEST_P(RecordsetWrite, BookmarksOfNewRowsHoldWhenTheOthersAreFetchedLater) {
    run("insert into Persons (PersonID, LastName) values (1, 'BROWN')");
    Recordset rows;
    open(rows, "Persons");
    rows.AddNew();
    rows.setValue("PersonID", 2);
    rows.setValue("LastName", "ADAMS");
    rows.Update();
    const Bookmark added = rows.bookmark();
    rows.setSort("LastName DESC");
    rows.MoveFirst();
    EXPECT_EQ(rows.value("PersonID"), Value(1));
    rows.setBookmark(added);
    EXPECT_EQ(rows.value("PersonID"), Value(2));
    EXPECT_EQ(rows.RecordCount(), 2) << "the new row is there once";
}

TEST_P(RecordsetWrite, AnyTextIsStoredAndReadBackUnchanged) {
    std::string large(1'000'000, 'x');
    large += "'\";--\xF0\x9F\x94\xA5";
    std::int64_t key = 0;
    Recordset rows;
    open(rows, "Persons");
    for (const std::string& text : {std::string("O'BRIEN"), std::string("say \"yes\"; drop table Persons --"),
                                    std::string("' or 'a'='a"), std::string("\xF0\x9F\x94\xA5 \xC3\xA9\xE2\x82\xAC"),
                                    std::string("a\\b%_*[]#\r\n\t"), std::string("a\0b", 3), std::string(), large}) {
        rows.AddNew();
        rows.setValue("PersonID", ++key);
        rows.setValue("Remarks", text);
        rows.Update();
        Recordset again;
        again.Open("select Remarks from Persons where PersonID = " + Sql::of(key), other);
        EXPECT_EQ(again.value("Remarks"), Value(text));
        again.setValue("Remarks", text + "!");
        again.Update();
    }
    EXPECT_EQ(lookUp("select count(*) from Persons"), "8");
}

ZEL_ON_BOTH_ENGINES(RecordsetWrite);
INSTANTIATE_TEST_SUITE_P(Engines, RecordsetWriteToAFile, ::testing::Values(EngineKind::Sqlite), test::engineName);

} // namespace
} // namespace zel::ado
