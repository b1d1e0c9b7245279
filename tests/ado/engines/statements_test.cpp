#include "engine_fixture.h"

namespace zel::ado {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class StatementsTest : public EngineFixture {};
ZEL_ON_BOTH_ENGINES(StatementsTest);

TEST_P(StatementsTest, WritingTellsTheNumberOfRows) {
    EXPECT_EQ(run(engine(), "INSERT INTO AdminOffice (AdminOfficeID, Name) VALUES (1, 'NORTH'), (2, 'SOUTH')"), 2);
    EXPECT_EQ(run(engine(), "UPDATE AdminOffice SET City = 'BOISE'"), 2);
    EXPECT_EQ(run(engine(), "UPDATE AdminOffice SET City = 'BOISE' WHERE AdminOfficeID = 9"), 0);
    EXPECT_EQ(run(engine(), "DELETE FROM AdminOffice WHERE AdminOfficeID = 1"), 1);
    EXPECT_EQ(run(engine(), "CREATE TABLE Spare (A INTEGER)"), 0);
    EXPECT_EQ(run(engine(), "SELECT * FROM AdminOffice"), 0);
}

TEST_P(StatementsTest, AStatementRunsAgainWithOtherValues) {
    const auto insert =
        engine().prepare(marked(GetParam(), "INSERT INTO AdminOffice (AdminOfficeID, Name) VALUES (?, ?)"), true);
    for (int i = 1; i <= 5; ++i)
        insert->execute(std::vector<Value>{i, "OFFICE " + std::to_string(i)});
    const auto select =
        engine().prepare(marked(GetParam(), "SELECT Name FROM AdminOffice WHERE AdminOfficeID = ?"), false);
    RowStore rows(1);
    for (int i = 5; i >= 1; --i)
        select->query(std::vector<Value>{i}, rows);
    ASSERT_EQ(rows.rows(), 5U);
    EXPECT_EQ(rows.textAt(0, 0), "OFFICE 5");
    EXPECT_EQ(rows.textAt(4, 0), "OFFICE 1");
}

TEST_P(StatementsTest, AStatementSurvivesItsOwnFailure) {
    const auto insert =
        engine().prepare(marked(GetParam(), "INSERT INTO AdminOffice (AdminOfficeID) VALUES (?)"), true);
    insert->execute(std::vector<Value>{1});
    EXPECT_EQ(errorFrom([&] { insert->execute(std::vector<Value>{1}); }).kind(), ErrorKind::Constraint);
    EXPECT_EQ(insert->execute(std::vector<Value>{2}), 1);
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM AdminOffice"), Value(2));
}

TEST_P(StatementsTest, AStatementSeesAColumnThatWasAddedSince) {
    const auto select = engine().prepare("SELECT * FROM NextNumbers", false);
    const std::size_t before = select->columns().size();
    RowStore rows(before);
    select->query({}, rows);
    select->query({}, rows);
    run(engine(), "ALTER TABLE NextNumbers ADD COLUMN Extra INTEGER");
    run(engine(), "INSERT INTO NextNumbers (TableName, NextNumber, Extra) VALUES ('Spare', 5, 6)");
    RowStore wider(before + 1);
    try {
        select->query({}, wider);
    } catch (const Error& error) { // an engine may ask for a refresh instead, but never mixes the cells up
        EXPECT_EQ(error.kind(), ErrorKind::State);
        EXPECT_EQ(select->columns().size(), before + 1);
        select->query({}, wider);
    }
    EXPECT_EQ(wider.at(wider.rows() - 1, before), Value(6));
}

TEST_P(StatementsTest, OneTextIsOneStatement) {
    const auto both = [&] { run(engine(), "DELETE FROM L_State; DELETE FROM L_Kind"); };
    EXPECT_EQ(errorFrom(both).kind(), ErrorKind::Statement);
    EXPECT_EQ(errorFrom(both).number(), errors::errorsInCommand);
    EXPECT_NE(one(engine(), "SELECT count(*) FROM L_State"), Value(0));
    EXPECT_NO_THROW(run(engine(), "DELETE FROM L_State ; "));
}

TEST_P(StatementsTest, ANulInTheTextIsRefused) {
    using namespace std::string_view_literals;
    const Error error = errorFrom([&] { run(engine(), "DELETE FROM L_State\0 WHERE Code = 'ID'"sv); });
    EXPECT_EQ(error.kind(), ErrorKind::Statement);
    EXPECT_NE(one(engine(), "SELECT count(*) FROM L_State"), Value(0));
}

TEST_P(StatementsTest, AnUnknownTableHasItsOwnNumber) {
    const Error error = errorFrom([&] { run(engine(), "SELECT * FROM Nowhere"); });
    EXPECT_EQ(error.kind(), ErrorKind::Statement);
    EXPECT_EQ(error.number(), errors::noSuchTable);
    EXPECT_THAT(error.description(), HasSubstr("owhere"));
    EXPECT_EQ(error.statement(), "SELECT * FROM Nowhere");
}

TEST_P(StatementsTest, UnknownColumnsAndBadGrammarCannotRun) {
    for (const char* text : {"SELECT Nothing FROM Persons", "SELEC * FROM Persons", "SELECT * FROM Persons WHERE (",
                             "SELECT \"no such text\" FROM Persons"}) {
        const Error error = errorFrom([&] { run(engine(), text); });
        EXPECT_EQ(error.kind(), ErrorKind::Statement) << text;
        EXPECT_EQ(error.number(), errors::errorsInCommand) << text;
    }
}

TEST_P(StatementsTest, AskingForTheColumnsOfABadStatementFails) {
    const Error error =
        errorFrom([&] { static_cast<void>(engine().prepare("SELECT * FROM Nowhere", false)->columns()); });
    EXPECT_EQ(error.number(), errors::noSuchTable);
}

TEST_P(StatementsTest, ASecondRowOfAKeyIsRefused) {
    run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)");
    const Error error = errorFrom([&] { run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)"); });
    EXPECT_EQ(error.kind(), ErrorKind::Constraint);
    EXPECT_EQ(error.number(), errors::failed);
}

TEST_P(StatementsTest, MissingValuesForParametersAreRefused) {
    EXPECT_EQ(errorFrom([&] { run(engine(), "DELETE FROM Persons WHERE PersonID = ?"); }).kind(), ErrorKind::Statement);
}

TEST_P(StatementsTest, AFailedStatementDoesNotBlockTheNext) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(errorFrom([&] { run(engine(), "SELECT * FROM Nowhere"); }).kind(), ErrorKind::Statement);
    EXPECT_EQ(run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)"), 1);
}

TEST_P(StatementsTest, StatementsHeldPastTheEndOfTheConnectionFail) {
    const auto select = engine().prepare("SELECT count(*) FROM Persons", false);
    RowStore rows(1);
    select->query({}, rows);
    closeEngine();
    EXPECT_EQ(errorFrom([&] { select->query({}, rows); }).number(), errors::objectClosed);
}

TEST_P(StatementsTest, WhatIsCommittedIsSeenByOthers) {
    const auto other = database().open();
    engine().begin();
    run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)");
    EXPECT_EQ(one(*other, "SELECT count(*) FROM Incidents"), Value(0));
    engine().commit();
    EXPECT_EQ(one(*other, "SELECT count(*) FROM Incidents"), Value(1));
}

TEST_P(StatementsTest, WhatIsRolledBackWasNever) {
    engine().begin();
    run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)");
    engine().rollback();
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM Incidents"), Value(0));
    engine().rollback();
    EXPECT_EQ(run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)"), 1);
}

TEST_P(StatementsTest, ATransactionAfterAFailureInsideItWritesNothing) {
    engine().begin();
    run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)");
    EXPECT_THROW(run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (1)"), Error);
    engine().rollback();
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM Incidents"), Value(0));
}

TEST_P(StatementsTest, ConnectionTextNamesTheDatabase) {
    EXPECT_THAT(engine().connectionText(), HasSubstr(onSqlite() ? database().file().string() : database().catalog()));
}

} // namespace
} // namespace zel::ado
