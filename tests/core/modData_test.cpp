#include "core/modData.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "forms/scripted_dialogs.h"
#include "support/database_test.h"

#include <gtest/gtest.h>

namespace zel::core {
namespace {

using ado::Recordset;
using ado::Sql;
using ado::Value;

class ModData : public test::DatabaseTest {
protected:
    ModData() {
        connection().setObserver([this](const std::string& statement) { statements.push_back(statement); });
    }

    void run(const std::string& statement) { connection().Execute(statement); }
    std::string lookUp(const std::string& select) {
        Recordset rows;
        rows.Open(Sql::words(select), connection());
        return rows.EOF_() ? "none" : ado::toText(rows.value(0));
    }
    void threePersons() {
        run("insert into Persons (PersonID, LastName, Rate, ResourceID) values (1, 'BROWN', 12.5, 10)");
        run("insert into Persons (PersonID, LastName, Rate, ResourceID) values (2, 'GREEN', 20, 10)");
        run("insert into Persons (PersonID, LastName, Rate, ResourceID) values (3, 'O''BRIEN', NULL, 11)");
        statements.clear();
    }

    std::vector<std::string> statements;
    forms::ScriptedDialogs dialogs;
};

TEST_P(ModData, CountRowsCountsTheRowsThatMeetTheCondition) {
    threePersons();
    EXPECT_EQ(CountRows(connection(), "Persons"), 3);
    EXPECT_EQ(CountRows(connection(), "Persons", "ResourceID = 10"), 2);
    EXPECT_EQ(CountRows(connection(), "select * from Persons", "ResourceID = 77"), 0);
    EXPECT_EQ(statements,
              (std::vector<std::string>{"SELECT * FROM  Persons", "SELECT * FROM  Persons WHERE  ResourceID = 10",
                                        "select * from Persons WHERE  ResourceID = 77"}));
}

TEST_P(ModData, FieldLookupGivesTheFirstRowsFieldAndNullWithoutARow) {
    threePersons();
    EXPECT_EQ(FieldLookup(connection(), "LastName", "Persons", "PersonID=2"), Value("GREEN"));
    EXPECT_EQ(FieldLookup(connection(), "LastName", "Persons", "PersonID=9"), Value());
    EXPECT_EQ(FieldLookup(connection(), "LastName", "Persons order by PersonID desc"), Value("O'BRIEN"));
}

TEST_P(ModData, FieldLookupOfOneIncidentAddsItsFilter) {
    run("insert into Resources (ResourceID, IncidentID, Name) values (10, 1, 'ONE')");
    run("insert into Resources (ResourceID, IncidentID, Name) values (11, 2, 'TWO')");
    statements.clear();
    EXPECT_EQ(FieldLookup(connection(), "Name", "Resources", "ResourceID > 0", 2), Value("TWO"));
    EXPECT_EQ(statements.back(), "SELECT * FROM  Resources WHERE  ResourceID > 0 AND IncidentID=2 ");
}

TEST_P(ModData, FieldLookupWithANewValueWritesItAndReadsItBack) {
    threePersons();
    EXPECT_EQ(FieldLookup(connection(), "Rate", "Persons", "PersonID=2", {}, Value("21.75")),
              Value(ado::Currency::fromTicks(217'500)));
    EXPECT_EQ(lookUp("select Rate from Persons where PersonID = 2"), "21.75");
    EXPECT_EQ(FieldLookup(connection(), "Rate", "Persons", "PersonID=9", {}, Value(1)), Value());
    EXPECT_EQ(lookUp("select count(*) from Persons where Rate = 1"), "0");
}

TEST_P(ModData, FieldListPutsTheDelimiterBehindEachRow) {
    threePersons();
    EXPECT_EQ(FieldList(connection(), "LastName", "Persons", "ResourceID = 10 order by PersonID", {}, ","),
              Value("BROWN,GREEN,"));
    EXPECT_EQ(FieldList(connection(), "LastName", "Persons", "ResourceID = 77", {}, ","), Value());
    EXPECT_EQ(FieldList(connection(), "Rate", "Persons", "PersonID = 3", {}, ";"), Value(";"));
}

TEST_P(ModData, SumColumnIsTheNumberOfTheFirstRow) {
    threePersons();
    EXPECT_EQ(SumColumn(connection(), "Select * from Persons order by PersonID", "Rate"), 12.5);
    EXPECT_EQ(SumColumn(connection(), "Persons", "Rate", "PersonID = 2"), 20.0);
    EXPECT_EQ(SumColumn(connection(), "Persons", "Rate", "PersonID = 3"), 0.0);
    EXPECT_EQ(SumColumn(connection(), "Persons", "Rate", "PersonID = 77"), 0.0);
}

TEST_P(ModData, FindRowMovesToANumberOrATextAndStaysWithoutAHit) {
    threePersons();
    Recordset rows;
    rows.Open("select * from Persons order by PersonID", connection());
    EXPECT_TRUE(FindRow(rows, "PersonID", 2));
    EXPECT_EQ(rows.value("LastName"), Value("GREEN"));
    EXPECT_TRUE(FindRow(rows, "PersonID", "3"));
    EXPECT_TRUE(FindRow(rows, "LastName", "brown"));
    EXPECT_EQ(rows.AbsolutePosition(), 1);
    rows.MoveNext();
    EXPECT_FALSE(FindRow(rows, "PersonID", 9));
    EXPECT_FALSE(FindRow(rows, "LastName", "O'BRIEN")) << "the quotation mark ends the text";
    EXPECT_FALSE(FindRow(rows, "Nothing", 1));
    EXPECT_FALSE(FindRow(rows, "PersonID", Value()));
    EXPECT_EQ(rows.value("PersonID"), Value(2));
    Recordset closed;
    EXPECT_FALSE(FindRow(closed, "PersonID", 1));
}

TEST_P(ModData, FindRowOnNoRowsIsFalse) {
    Recordset none;
    none.Open("Persons", connection());
    EXPECT_FALSE(FindRow(none, "PersonID", 1));
    EXPECT_TRUE(none.EOF_());
}

TEST_P(ModData, RSCloseWritesAPendingEditAndCloses) {
    threePersons();
    Recordset rows;
    rows.Open("select * from Persons where PersonID = 1", connection());
    rows.setValue("City", "ELY");
    RSClose(rows, dialogs, "ZEL");
    EXPECT_EQ(rows.State(), ado::stateClosed);
    EXPECT_EQ(lookUp("select City from Persons where PersonID = 1"), "ELY");
    rows.Open("Persons", connection());
    rows.AddNew();
    rows.setValue("PersonID", 4);
    RSClose(rows, dialogs, "ZEL");
    EXPECT_EQ(lookUp("select count(*) from Persons"), "4");
    RSClose(rows, dialogs, "ZEL");
    EXPECT_TRUE(dialogs.shown().empty());
}

TEST_P(ModData, RSCloseTellsAFailureAndClosesAllTheSame) {
    threePersons();
    Recordset rows;
    rows.Open("select * from Persons where PersonID = 1", connection());
    rows.setValue("City", "ELY");
    run("update Persons set City = 'RENO' where PersonID = 1");
    RSClose(rows, dialogs, "ZEL");
    ASSERT_EQ(dialogs.shown().size(), 1U);
    EXPECT_EQ(dialogs.shown()[0].title, "ZEL: RSClose Error");
    EXPECT_EQ(dialogs.shown()[0].text,
              "Error Number: -2147217864\r\nDescription: Row cannot be located for updating. Some values may have been "
              "changed since it was last read.");
    EXPECT_EQ(rows.State(), ado::stateClosed);
    EXPECT_EQ(lookUp("select City from Persons where PersonID = 1"), "RENO");
}

TEST_P(ModData, RSCloseMakesARecordSetWhereThereIsNone) {
    std::unique_ptr<Recordset> rows;
    RSClose(rows, dialogs, "ZEL");
    ASSERT_TRUE(rows);
    rows->Open("Persons", connection());
    RSClose(rows, dialogs, "ZEL");
    EXPECT_EQ(rows->State(), ado::stateClosed);
}

TEST_P(ModData, DeleteByKeyTakesTheRowAndNoOther) {
    threePersons();
    EXPECT_TRUE(DeleteByKey(connection(), "Persons", "PersonID", 2));
    EXPECT_EQ(FieldList(connection(), "PersonID", "select * from Persons order by PersonID", {}, {}, ","),
              Value("1,3,"));
    EXPECT_FALSE(DeleteByKey(connection(), "Persons", "PersonID", 2));
    EXPECT_EQ(statements.front(), "SELECT * FROM  Persons");
}

TEST_P(ModData, ADependentRowKeepsTheRowAndLaterTablesAreNotLookedAt) {
    threePersons();
    run("insert into PersonsDebit (PersonsDebitID, PersonID) values (1, 2)");
    statements.clear();
    EXPECT_FALSE(DeleteByKey(connection(), "Persons", "PersonID", 2, {"PersonsPost", "PersonsDebit", "Equipment"}));
    EXPECT_EQ(statements, (std::vector<std::string>{"SELECT * FROM  PersonsPost WHERE  PersonID=2",
                                                    "SELECT * FROM  PersonsDebit WHERE  PersonID=2"}));
    EXPECT_EQ(lookUp("select count(*) from Persons"), "3");
    EXPECT_TRUE(DeleteByKey(connection(), "Persons", "PersonID", 1, {"PersonsPost", "PersonsDebit"}));
}

TEST_P(ModData, DeleteByFindStandsOnTheRowBeforeOrTheNewFirst) {
    threePersons();
    Recordset rows;
    rows.Open("select * from Persons order by PersonID", connection());
    EXPECT_TRUE(DeleteByFind(rows, "PersonID", 3, {}));
    EXPECT_EQ(rows.value("PersonID"), Value(2));
    EXPECT_TRUE(DeleteByFind(rows, "PersonID", 1, {}));
    EXPECT_EQ(rows.value("PersonID"), Value(2));
    EXPECT_FALSE(DeleteByFind(rows, "PersonID", 1, {}));
    EXPECT_TRUE(DeleteByFind(rows, "PersonID", 2, {})) << "the last row went, and there is none to stand on";
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(lookUp("select count(*) from Persons"), "0");
}

TEST_P(ModData, DeleteByFindLeavesARowOthersHangOn) {
    threePersons();
    run("insert into PersonsPost (PersonsPostID, PersonID) values (1, 2)");
    Recordset rows;
    rows.Open("select * from Persons order by PersonID", connection());
    EXPECT_FALSE(DeleteByFind(rows, "PersonID", 2, {"PersonsPost"}));
    EXPECT_FALSE(DeleteByFind(rows, "PersonID", 1, {"NoSuchTable"}));
    EXPECT_EQ(rows.RecordCount(), 3);
    Recordset closed;
    EXPECT_FALSE(DeleteByFind(closed, "PersonID", 1, {}));
}

TEST_P(ModData, DeleteFirstTakesOneRow) {
    threePersons();
    EXPECT_TRUE(DeleteFirst(connection(), "Persons", "ResourceID", 10));
    EXPECT_EQ(statements.front(), "Select * From Persons Where ResourceID = 10");
    EXPECT_EQ(lookUp("select count(*) from Persons where ResourceID = 10"), "1");
    EXPECT_FALSE(DeleteFirst(connection(), "Persons", "ResourceID", 77));
}

TEST_P(ModData, DeleteByKeyPasswordRunsOnAConnectionOfItsOwn) {
    threePersons();
    std::vector<std::string> opened, second;
    const OpenConnection open = [&](const std::string& text) {
        opened.push_back(text);
        auto other = std::make_unique<ado::Connection>(database().open());
        other->setObserver([&](const std::string& statement) { second.push_back(statement); });
        return other;
    };
    DeleteByKeyPassword(connection(), "Persons", 2, "PersonID", "secret", open);
    EXPECT_EQ(opened, std::vector<std::string>{connection().ConnectionString() + ";PWD=secret"});
    EXPECT_EQ(second, std::vector<std::string>{"Delete From Persons Where PersonID = 2"});
    EXPECT_EQ(lookUp("select count(*) from Persons"), "2");
    DeleteByKeyPassword(connection(), "Persons", 0, "PersonID", "secret", open);
    DeleteByKeyPassword(connection(), "", 1, "PersonID", "secret", open);
    DeleteByKeyPassword(connection(), "Persons", 1, "", "secret", open);
    EXPECT_EQ(opened.size(), 1U);
}

TEST_P(ModData, NextNumberStartsAboveTheHighestKeyAndNeverRepeats) {
    threePersons();
    EXPECT_EQ(NextNumber(connection(), "Persons"), 4);
    EXPECT_EQ(NextNumber(connection(), "persons"), 5);
    EXPECT_EQ(NextNumber(connection(), "AccountingCodes", "AccountingID"), 1);
}

TEST_P(ModData, EnsureEquipmentRowAddsTheRowOnce) {
    EnsureEquipmentRow(connection(), 10, 3, "CREW ONE");
    EXPECT_EQ(statements.front(), "Select ResourceID from Equipment where ResourceID = 10");
    EXPECT_EQ(statements.back(), "Insert into Equipment (EquipmentID,ResourceID,UniqueEquipmentName,AccountingID) "
                                 "Values (1,10,'CREW ONE',3)");
    EnsureEquipmentRow(connection(), 10, 3, "CREW ONE");
    EXPECT_EQ(lookUp("select count(*) from Equipment"), "1");
    EnsureEquipmentRow(connection(), 0, 3, "NO ID");
    EXPECT_EQ(lookUp("select UniqueEquipmentName from Equipment where ResourceID = 0"), "NO ID");
}

TEST_P(ModData, LastInvoiceDateReadsTheLatestThatStands) {
    run("insert into EquipInvoices (InvoiceID, EquipmentID, LastDate, Del) values (1, 5, '2005-07-04', 0)");
    run("insert into EquipInvoices (InvoiceID, EquipmentID, LastDate, Del) values (2, 5, '2005-07-09', 1)");
    statements.clear();
    EXPECT_EQ(LastInvoiceDate(connection(), 5, "person"), "7/4/2005");
    EXPECT_EQ(statements.front(),
              "Select MAX(LastDate) as InvDate from EquipInvoices WHERE EquipmentID = 5 and Del = 0");
    EXPECT_EQ(LastInvoiceDate(connection(), 6, ""), "");
}

TEST_P(ModData, ARequestNumberInUseIsToldWithEveryResourceThatHasIt) {
    run("insert into Resources (ResourceID, IncidentID, Name, RequestNumber, KindCode) values (10, 1, 'ENGINE 5', "
        "'E-7', 'ENG3')");
    statements.clear();
    dialogs.answer("Cancel");
    EXPECT_EQ(CheckRequestNumber(connection(), dialogs, "ZEL", 1, "E-7"), 2);
    EXPECT_EQ(statements.front(), "select name, requestnumber, kindcode from resources where requestnumber = 'E-7' and "
                                  "incidentid = 1");
    ASSERT_EQ(dialogs.shown().size(), 1U);
    EXPECT_EQ(dialogs.shown()[0].title, "ZEL: WARNING");
    EXPECT_EQ(dialogs.shown()[0].icon, "exclamation");
    EXPECT_EQ(dialogs.shown()[0].buttons, "OKCancel");
    EXPECT_EQ(dialogs.shown()[0].text, "Request#: E-7 already in use: \r\n\tRequest#: E-7\r\n\tName:       ENGINE "
                                       "5\r\n\tKindCode: ENG3");
    dialogs.answer("OK");
    EXPECT_EQ(CheckRequestNumber(connection(), dialogs, "ZEL", 1, "e-7"), 1);
}

TEST_P(ModData, ABlankOrFreeRequestNumberShowsNoWarning) {
    run("insert into Resources (ResourceID, IncidentID, Name, RequestNumber) values (10, 1, 'X', '_-____')");
    for (const char* blank : {"", "_-____", " -    "})
        EXPECT_EQ(CheckRequestNumber(connection(), dialogs, "ZEL", 1, blank), 0);
    EXPECT_EQ(CheckRequestNumber(connection(), dialogs, "ZEL", 1, "E-8"), 1);
    EXPECT_EQ(CheckRequestNumber(connection(), dialogs, "ZEL", 2, "_-___"), 1);
    EXPECT_TRUE(dialogs.shown().empty());
}

ZEL_ON_BOTH_ENGINES(ModData);

} // namespace
} // namespace zel::core
