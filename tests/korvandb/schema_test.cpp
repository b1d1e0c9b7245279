#include "korvandb/ddl.h"
#include "korvandb/schema.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace zel::korvandb {
namespace {

using ado::EngineKind;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* smallSchema = R"(# a comment
table Pay
    PayID     key
    Who       text 20
    Rate      money
    Hours     double
    Day       datetime
    Paid      flag
    Parent    integer required default 0
    unique Who, Day
    wide Who, Rate
    refers Parent Pay
table L_Word
    Primary   text 5 primary
view qryPay
    SELECT {Who || blanks(3)} AS Info, Pay.Paid
    FROM Pay
view qryPaid like qryPay where Paid = 1
)";

TEST(Schema, A_column_has_its_type_width_and_options) {
    const Schema schema = parseSchema(smallSchema);
    const Table& pay = *schema.table("PAY");
    EXPECT_TRUE(pay.column("payid")->isKey());
    EXPECT_EQ(pay.column("Who")->width, 20);
    EXPECT_EQ(pay.column("Rate")->type, ado::ColumnType::Currency);
    EXPECT_EQ(pay.column("Parent")->defaultValue, "0");
    EXPECT_TRUE(pay.column("Parent")->required);
    EXPECT_TRUE(pay.column("Paid")->required);
    EXPECT_EQ(pay.column("Paid")->defaultValue, "0");
    EXPECT_FALSE(schema.table("L_Word")->column("Primary")->isKey());
    EXPECT_EQ(schema.table("L_Word")->primary()->name, "Primary");
    EXPECT_EQ(pay.column("Nothing"), nullptr);
}

TEST(Schema, An_unknown_type_column_or_option_names_its_line) {
    const auto messageOf = [](const char* text) -> std::string {
        try {
            (void)parseSchema(text);
        } catch (const std::invalid_argument& failure) {
            return failure.what();
        }
        return "accepted";
    };
    EXPECT_EQ(messageOf("table A\n    B number"), "schema, line 2: unknown type number");
    EXPECT_EQ(messageOf("table A\n    B integer maybe"), "schema, line 2: unknown option maybe");
    EXPECT_EQ(messageOf("table A\n    B text"), "schema, line 2: a number is missing");
    EXPECT_EQ(messageOf("table A\n    B integer\n    index C"), "schema, line 3: no column C");
    EXPECT_EQ(messageOf("view A like B where C = 1"), "schema, line 1: like an unknown view");
    EXPECT_EQ(messageOf("    B integer"), "schema, line 1: a line of no table or view");
}

TEST(Ddl, Sqlite_types_tell_the_data_layer_what_a_column_holds) {
    const Schema schema = parseSchema(smallSchema);
    const auto words = sqliteWords();
    EXPECT_EQ(createTable(schema.tables[0], *words), "CREATE TABLE [Pay] (\n"
                                                     "    [PayID] INTEGER PRIMARY KEY,\n"
                                                     "    [Who] CITEXT COLLATE NOCASE,\n"
                                                     "    [Rate] MONEYTEXT COLLATE ZMONEY,\n"
                                                     "    [Hours] REAL,\n"
                                                     "    [Day] DATETEXT,\n"
                                                     "    [Paid] FLAGINT NOT NULL DEFAULT 0,\n"
                                                     "    [Parent] INTEGER NOT NULL DEFAULT 0)");
    EXPECT_EQ(createTable(schema.tables[1], *words),
              "CREATE TABLE [L_Word] (\n    [Primary] CITEXT COLLATE NOCASE NOT NULL PRIMARY KEY)");
}

TEST(Ddl, Postgres_types_and_lower_case_names) {
    const Schema schema = parseSchema(smallSchema);
    const auto words = postgresWords();
    EXPECT_EQ(createTable(schema.tables[0], *words), "CREATE TABLE dbo.\"pay\" (\n"
                                                     "    \"payid\" integer PRIMARY KEY,\n"
                                                     "    \"who\" citext,\n"
                                                     "    \"rate\" numeric(19,4),\n"
                                                     "    \"hours\" double precision,\n"
                                                     "    \"day\" timestamp,\n"
                                                     "    \"paid\" smallint NOT NULL DEFAULT 0,\n"
                                                     "    \"parent\" integer NOT NULL DEFAULT 0)");
}

TEST(Ddl, A_wide_index_keeps_every_other_column) {
    const Schema schema = parseSchema(smallSchema);
    const Table& pay = schema.tables[0];
    EXPECT_EQ(createIndex(pay, pay.indexes[0], *sqliteWords()),
              "CREATE UNIQUE INDEX [ix_Pay_Who_Day] ON [Pay] ([Who], [Day])");
    EXPECT_EQ(createIndex(pay, pay.indexes[1], *sqliteWords()),
              "CREATE INDEX [ix_Pay_Who_Rate] ON [Pay] ([Who], [Rate], [Hours], [Day], [Paid], [Parent])");
    EXPECT_EQ(createIndex(pay, pay.indexes[1], *postgresWords()),
              "CREATE INDEX \"ix_pay_who_rate\" ON dbo.\"pay\" (\"who\", \"rate\") INCLUDE (\"payid\", \"hours\", "
              "\"day\", \"paid\", "
              "\"parent\")");
    EXPECT_EQ(dropIndex(pay, pay.indexes[1], *postgresWords()), "DROP INDEX dbo.\"ix_pay_who_rate\"");
}

TEST(Ddl, A_view_is_worded_for_each_engine_and_a_like_view_adds_its_condition) {
    const Schema schema = parseSchema(smallSchema);
    EXPECT_EQ(createView(*schema.view("qrypay"), *sqliteWords()),
              "CREATE VIEW [qryPay] AS\n    SELECT (Who || '   ') COLLATE NOCASE AS Info, Pay.Paid\n    FROM Pay");
    EXPECT_EQ(createView(*schema.view("qryPaid"), *postgresWords()),
              "CREATE VIEW dbo.\"qrypaid\" AS\n    SELECT (Who || '   ')::citext AS Info, Pay.Paid\n    FROM Pay\n"
              "    WHERE Paid = 1");
}

TEST(Ddl, The_server_keeps_in_a_comment_how_names_are_spelled) {
    const Schema schema = parseSchema(smallSchema);
    EXPECT_EQ(spellingOf(schema.tables[0], *postgresWords()),
              "COMMENT ON TABLE dbo.\"pay\" IS 'Pay: PayID, Who, Rate, Hours, Day, Paid, Parent'");
    EXPECT_EQ(spellingOf(*schema.view("qryPay"), *postgresWords()),
              "COMMENT ON VIEW dbo.\"qrypay\" IS 'qryPay: Info, Paid'");
    EXPECT_EQ(spellingOf(schema.tables[0], *sqliteWords()), "");
}

TEST(Schema, Every_reference_is_to_the_key_of_a_table_that_is_there) {
    for (const Table& table : theSchema().tables)
        for (const Reference& reference : table.references) {
            const Table* parent = theSchema().table(reference.table);
            ASSERT_NE(parent, nullptr) << table.name << "." << reference.column;
            EXPECT_TRUE(parent->primary()->isKey()) << reference.table;
            EXPECT_EQ(table.column(reference.column)->type, ado::ColumnType::Integer);
        }
}

} // namespace
} // namespace zel::korvandb
