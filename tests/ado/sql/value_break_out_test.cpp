#include "ado/sql.h"

#include "ado/sql/lexer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

namespace zel::ado {
namespace {

bool breaksOutOfText(std::string_view value) {
    return valueBreaksOut("select * from Persons where LastName = '" + Sql::of(value) + "' and PersonID = 1");
}

bool breaksOutOfNumber(std::string_view value) {
    return valueBreaksOut("select * from Persons where PersonID = " + Sql::of(value) + " and FedCode = 'AD'");
}

TEST(ValueBreakOut, PlainValuesStayInside) {
    for (const char* value : {"SMITH", "", " ", "O BRIEN", "a\"b", "100%", "x*", "7/4/2005", "-- no", "/* no */", ";",
                              "back\\slash\\", "it\xE2\x80\x99s", "\xF0\x9F\x98\x80", "[x]", "#1#", "(", "Null"})
        EXPECT_FALSE(breaksOutOfText(value)) << value;
}

TEST(ValueBreakOut, AnApostropheBreaksOut) {
    for (const char* value :
         {"O'BRIEN", "'", "x' --", "' or 'a'='a", "'; delete from Persons; --", "a'' b'", "'''", "x\\'", "'x", "x'"})
        EXPECT_TRUE(breaksOutOfText(value)) << value;
}

TEST(ValueBreakOut, DoubledApostrophesStayInside) {
    for (const char* value : {"O''BRIEN", "''", "''''", "''x''"})
        EXPECT_FALSE(breaksOutOfText(value)) << value;
}

TEST(ValueBreakOut, HalfOfAPairMayNotJoinWithTheNextValue) {
    EXPECT_TRUE(valueBreaksOut("a = '" + Sql::of("x'") + Sql::of("'y") + "'"));
    EXPECT_FALSE(valueBreaksOut("a = '" + Sql::of("x") + Sql::of("y") + "'"));
}

TEST(ValueBreakOut, DoubleQuotesBoundTheDesktopText) {
    const auto breaks = [](std::string_view value) {
        return valueBreaksOut("Status = \"" + Sql::of(value) + "\" and (a = 1)");
    };
    EXPECT_FALSE(breaks("O'BRIEN"));
    EXPECT_FALSE(breaks("say \"\"hi\"\""));
    EXPECT_TRUE(breaks("\");"));
    EXPECT_TRUE(breaks("\""));
    EXPECT_TRUE(breaks("x\" or \"a\"=\"a"));
}

TEST(ValueBreakOut, NumbersStandOnTheirOwn) {
    for (const char* value : {"5", "-5", "+5", "0.25", ".5", "1E-05", " 7 ", "", "  ", "True", "false", "NULL", "'AD'",
                              "#7/4/2005#", "\"x\"", "'O''BRIEN'"})
        EXPECT_FALSE(breaksOutOfNumber(value)) << value;
}

TEST(ValueBreakOut, AnythingMoreThanOneLiteralBreaksOut) {
    for (const char* value :
         {"5 or 1=1", "5--",      "5 -- x",    "--5", "5/**/",    "/**/5",    "-/**/5",  "- -5",    "5;", ";",
          "(5)",      "PersonID", "abc",       "5,6", "1,234.50", "7/4/2005", "'a' 'b'", "'a'+'b'", "5)", "*",
          "-",        "True or",  "Null Null", "'x",  "#x",       "[x]",      "5 5",     "x'",      "$$", "?"})
        EXPECT_TRUE(breaksOutOfNumber(value)) << value;
}

TEST(ValueBreakOut, AMinusMayNotMakeACommentWithTheOneInFront) {
    EXPECT_TRUE(valueBreaksOut("select 1 -" + Sql::of("-1") + " from L_Time"));
}

TEST(ValueBreakOut, ANumberMayBeMadeOfPieces) {
    EXPECT_FALSE(valueBreaksOut("PersonID = 0" + Sql::of("12")));
    EXPECT_FALSE(valueBreaksOut("PersonID = " + Sql::of("12") + "AND a = 1"));
    EXPECT_TRUE(valueBreaksOut("PersonID = 0" + Sql::of("12 or 1")));
    EXPECT_TRUE(valueBreaksOut("PersonID = x" + Sql::of("12")));
}

TEST(ValueBreakOut, DatesStayBetweenTheirSigns) {
    EXPECT_FALSE(valueBreaksOut("ActivityDT=#" + Sql::of("7/4/2005") + "#"));
    EXPECT_TRUE(valueBreaksOut("ActivityDT=#" + Sql::of("7/4/2005# or #1/1/2005") + "#"));
    EXPECT_TRUE(valueBreaksOut("ActivityDT=#" + Sql::of("#") + "#"));
}

TEST(ValueBreakOut, AValueIsNeverPartOfANameOrAComment) {
    EXPECT_TRUE(valueBreaksOut("select [" + Sql::of("x") + "] from Persons"));
    EXPECT_TRUE(valueBreaksOut("select " + Sql::of("x") + " from Persons"));
    EXPECT_TRUE(valueBreaksOut("select 1 /* " + Sql::of("x") + " */"));
}

TEST(ValueBreakOut, ATextThatTheProgramLeftOpenBreaksOut) {
    EXPECT_TRUE(valueBreaksOut("a = '" + Sql::of("x")));
    EXPECT_FALSE(valueBreaksOut(Sql::words("a = 'x")));
}

/// The kinds of a statement's tokens.
std::string kindsOf(std::string_view statement) {
    sql::Tokens tokens;
    EXPECT_EQ(sql::lex(statement, tokens), sql::LexFault::None) << statement;
    std::string kinds;
    for (const sql::Token& token : tokens.list)
        kinds += static_cast<char>('a' + static_cast<int>(token.kind));
    return kinds;
}

TEST(ValueBreakOut, NoValueThatStaysInsideChangesWhatTheStatementSays) {
    static const char* const pieces[] = {"'",  "''",   "\"", "#", "--", "/*", "*/", ";",
                                         "\\", " or ", "=",  "a", "1",  " ",  "\n", "("};
    std::mt19937 random(20050704); // NOLINT(bugprone-random-generator-seed): the same values in every run
    std::uniform_int_distribution<std::size_t> pick(0, std::size(pieces) - 1);
    int inside = 0;
    for (int round = 0; round < 50000; ++round) {
        std::string value;
        for (std::size_t count = 1 + pick(random) % 6; count > 0; --count)
            value += pieces[pick(random)];
        for (const auto& [before, behind] : {std::pair("a = '", "' and b = 1"), std::pair("a = \"", "\" and b = 1"),
                                             std::pair("a = #", "# and b = 1")}) {
            const Sql statement = Sql::words(before) + Sql::of(value) + Sql::words(behind);
            if (valueBreaksOut(statement))
                continue;
            ++inside;
            ASSERT_EQ(kindsOf(statement.text()), kindsOf(before + std::string("x") + behind)) << statement.text();
        }
    }
    EXPECT_GT(inside, 10000);
}

TEST(SqlText, JoinsWordsAndValuesAndRemembersWhichIsWhich) {
    const Sql statement = "a = '" + Sql::of("x") + "' and b = " + Sql::of(-7);
    EXPECT_EQ(statement.text(), "a = 'x' and b = -7");
    ASSERT_EQ(statement.values().size(), 2U);
    EXPECT_EQ(statement.values()[0].begin, 5U);
    EXPECT_EQ(statement.values()[1].begin, 16U);
    EXPECT_EQ(statement.values()[1].end, 18U);
}

TEST(SqlText, SlicesKeepTheirValues) {
    const Sql statement = "a = '" + Sql::of("x") + "' and b = " + Sql::of(7);
    const Sql tail = statement.slice(8);
    EXPECT_EQ(tail.text(), "and b = 7");
    ASSERT_EQ(tail.values().size(), 1U);
    EXPECT_EQ(tail.values()[0].begin, 8U);
    EXPECT_TRUE(statement.slice(0, 5).values().empty());
    EXPECT_EQ(statement.slice(100).text(), "");
}

TEST(SqlText, FindsWordsWithoutRegardToCase) {
    const Sql statement("Select * From Persons ORDER BY LastName");
    EXPECT_EQ(statement.find(" order by "), 21U);
    EXPECT_EQ(statement.find(" where "), std::string::npos);
}

TEST(SqlText, PutsValuesInTheirDefaultText) {
    EXPECT_EQ(Sql::of(Value(18.5)).text(), "18.5");
    EXPECT_EQ(Sql::of(Value()).text(), "");
    EXPECT_EQ(Sql::of(Value(DateTime::fromDate(2005, 7, 4))).text(), "7/4/2005");
}

TEST(SqlText, JoinsAPieceToItself) {
    Sql piece = Sql::of("x") + ",";
    piece += piece;
    EXPECT_EQ(piece.text(), "x,x,");
    EXPECT_EQ(piece.values().size(), 2U);
}

} // namespace
} // namespace zel::ado
