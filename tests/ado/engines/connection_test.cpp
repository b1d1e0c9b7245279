#include "engine_fixture.h"

#include "ado/command.h"

namespace zel::ado {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ConnectionTest : public zel::test::DatabaseTest {
protected:
    /// Collects the statements as observed.
    void observe() {
        connection().setObserver([this](const std::string& statement) { observed_.push_back(statement); });
    }
    [[nodiscard]] const std::vector<std::string>& observed() const noexcept { return observed_; }
    Value one(std::string_view text) { return ado::one(connection().engine(), text); }
    void addOffice(int id, std::string_view name) {
        run(connection().engine(), "INSERT INTO AdminOffice (AdminOfficeID, Name) VALUES (?, ?)", {id, name});
    }

private:
    std::vector<std::string> observed_;
};
ZEL_ON_BOTH_ENGINES(ConnectionTest);

Parameter input(std::string name, Value value) {
    return {std::move(name), DataType::VarChar, ParameterDirection::Input, 40, std::move(value)};
}

Command nextNumberCommand(Connection& connection, const std::string& table) {
    Command command;
    command.ActiveConnection = &connection;
    command.CommandText = "usp_getNextNumber";
    command.Type = CommandType::StoredProcedure;
    command.Parameters = {input("tablename", table),
                          input("fieldname", ""),
                          {"nextnumber", DataType::Integer, ParameterDirection::Output, 0, {}}};
    return command;
}

TEST_P(ConnectionTest, ExecuteTellsTheRowsWritten) {
    EXPECT_EQ(connection().Execute("Insert into AdminOffice (AdminOfficeID, Name) Values (1, 'NORTH OFFICE')"), 1);
    EXPECT_EQ(connection().Execute("delete * from AdminOffice"), 1);
    EXPECT_EQ(connection().Execute("delete from AdminOffice"), 0);
}

TEST_P(ConnectionTest, ObserversSeeTheStatementAsComposed) {
    observe();
    connection().Execute("UPDATE AdminOffice SET Name = 'A;B' WHERE [AdminOfficeID] = 1");
    EXPECT_THROW(connection().Execute("DELETE * FROM Nowhere"), Error);
    EXPECT_THAT(observed(),
                ElementsAre("UPDATE AdminOffice SET Name = 'A;B' WHERE [AdminOfficeID] = 1", "DELETE * FROM Nowhere"));
}

TEST_P(ConnectionTest, AFailureNamesTheStatementAsComposed) {
    const Error error = errorFrom([&] { connection().Execute("DELETE * FROM Nowhere WHERE [A] = 1"); });
    EXPECT_EQ(error.statement(), "DELETE * FROM Nowhere WHERE [A] = 1");
    EXPECT_EQ(error.number(), errors::noSuchTable);
}

TEST_P(ConnectionTest, ANameWithAQuoteIsASyntaxErrorAndNothingIsSent) {
    addOffice(1, "A");
    const Sql statement = "delete from AdminOffice where Name = '" + Sql::of("x' or 'a'='a") + "'";
    const Error error = errorFrom([&] { connection().Execute(statement); });
    EXPECT_EQ(error.number(), errors::errorsInCommand);
    EXPECT_EQ(one("SELECT count(*) FROM AdminOffice"), Value(1));
    EXPECT_THROW(connection().Execute("delete from AdminOffice where Name = '" + Sql::of("O'BRIEN") + "'"), Error);
    EXPECT_THROW(connection().Execute("delete from AdminOffice where Name = '" + Sql::of("A' --") + "'"), Error);
    EXPECT_EQ(one("SELECT count(*) FROM AdminOffice"), Value(1));
}

TEST_P(ConnectionTest, TextThatMustNotBeSentIsRefused) {
    using namespace std::string_view_literals;
    addOffice(1, "A");
    for (const std::string_view text :
         {"delete from AdminOffice; delete from AdminOffice"sv, "delete from AdminOffice\0"sv,
          "delete from AdminOffice where Name <> '\xFF'"sv})
        EXPECT_EQ(errorFrom([&] { connection().Execute(text); }).number(), errors::errorsInCommand);
    EXPECT_EQ(one("SELECT count(*) FROM AdminOffice"), Value(1));
}

TEST_P(ConnectionTest, StatementsOfOneShapeArePreparedOnce) {
    const auto prepare = [&](int id) {
        return connection().prepare("select Name from AdminOffice where AdminOfficeID = " + Sql::of(id));
    };
    const Connection::Prepared first = prepare(1), second = prepare(2);
    EXPECT_EQ(first.statement, second.statement);
    EXPECT_THAT(first.parameters, ElementsAre(Value(1)));
    EXPECT_THAT(second.parameters, ElementsAre(Value(2)));
}

TEST_P(ConnectionTest, StatementsOfManyShapesStillRun) {
    addOffice(1, "A");
    for (int i = 0; i < 600; ++i) {
        const std::string text = "UPDATE AdminOffice SET Name = Name" + std::string(static_cast<std::size_t>(i), ' ') +
                                 " WHERE AdminOfficeID = 1";
        ASSERT_EQ(connection().Execute(text), 1) << i;
    }
}

TEST_P(ConnectionTest, ATableMadeThroughItCanBeUsedAtOnce) {
    connection().Execute("CREATE TABLE Spare (SpareID INTEGER PRIMARY KEY)");
    EXPECT_EQ(connection().Execute("Insert into Spare (SpareID) Values (7)"), 1);
    EXPECT_EQ(connection().nextNumber("Spare", ""), 8);
}

TEST_P(ConnectionTest, AClosedConnectionSaysSo) {
    Connection closed;
    EXPECT_EQ(closed.State(), stateClosed);
    EXPECT_THAT(closed.ConnectionString(), IsEmpty());
    EXPECT_EQ(errorFrom([&] { closed.Execute("delete from AdminOffice"); }).number(), errors::objectClosed);
    EXPECT_EQ(errorFrom([&] { static_cast<void>(closed.nextNumber("Persons", "")); }).number(), errors::objectClosed);
    closed.Close();
}

TEST_P(ConnectionTest, OpeningTwiceIsRefused) {
    Connection own(database().open());
    EXPECT_EQ(own.State(), stateOpen);
    EXPECT_EQ(errorFrom([&] { own.Open(database().open()); }).number(), errors::objectOpen);
    own.Close();
    own.Open(database().open());
    EXPECT_EQ(own.State(), stateOpen);
}

TEST_P(ConnectionTest, TheProcedureGivesKeysInItsThirdParameter) {
    observe();
    Command command = nextNumberCommand(connection(), "Persons");
    command.Execute();
    EXPECT_EQ(command.Parameters[2].value, Value(1));
    command.Execute();
    EXPECT_EQ(command.Parameters[2].value, Value(2));
    EXPECT_THAT(observed(), ElementsAre("usp_getNextNumber 'Persons', ''", "usp_getNextNumber 'Persons', ''"));
}

TEST_P(ConnectionTest, TheProcedureTakesItsNameInAnyLetters) {
    Command command = nextNumberCommand(connection(), "resources");
    command.CommandText = "USP_GETNEXTNUMBER";
    command.Execute();
    EXPECT_EQ(command.Parameters[2].value, Value(1));
}

TEST_P(ConnectionTest, ALongerInputIsCutToItsSize) {
    Command command = nextNumberCommand(connection(), "Persons and what stands behind");
    command.Parameters[0].size = 7;
    command.Execute();
    EXPECT_EQ(command.Parameters[2].value, Value(1));
}

TEST_P(ConnectionTest, OtherProceduresAreNotFound) {
    Command command = nextNumberCommand(connection(), "Persons");
    command.CommandText = "usp_getLastNumber";
    EXPECT_EQ(errorFrom([&] { command.Execute(); }).description(),
              "Could not find stored procedure 'usp_getLastNumber'.");
    command.CommandText = "usp_getNextNumber";
    command.Parameters.pop_back();
    EXPECT_EQ(errorFrom([&] { command.Execute(); }).number(), errors::errorsInCommand);
}

TEST_P(ConnectionTest, ACommandWithoutAConnectionIsClosed) {
    Command command = nextNumberCommand(connection(), "Persons");
    command.ActiveConnection = nullptr;
    EXPECT_EQ(errorFrom([&] { command.Execute(); }).number(), errors::objectClosed);
}

TEST_P(ConnectionTest, ATextCommandRunsItsStatement) {
    Command command;
    command.ActiveConnection = &connection();
    command.CommandText = "Insert into AdminOffice (AdminOfficeID) Values (3)";
    command.Execute();
    EXPECT_EQ(one("SELECT AdminOfficeID FROM AdminOffice"), Value(3));
}

} // namespace
} // namespace zel::ado
