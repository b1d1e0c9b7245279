#include "ado/sql/lexer.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace zel::ado::sql {
namespace {

using testing::ElementsAre;

std::vector<std::string> spellings(std::string_view text) {
    Tokens tokens;
    EXPECT_EQ(lex(text, tokens), LexFault::None) << text;
    std::vector<std::string> all;
    for (std::size_t index = 0; index < tokens.size(); ++index)
        all.emplace_back(tokens.spelled(index));
    return all;
}

LexFault faultOf(std::string_view text) {
    Tokens tokens;
    return lex(text, tokens);
}

TEST(Lexer, PartsANumberFromTheWordGrownOntoIt) {
    EXPECT_THAT(spellings("ContractorPostID<>5AND UOM='Each'"),
                ElementsAre("ContractorPostID", "<>", "5", "AND", "UOM", "=", "'Each'"));
}

TEST(Lexer, TakesOperatorsOfTwoCharactersTogether) {
    EXPECT_THAT(
        spellings("a<=1 b>=2 c<>3 d!=4 e||f g::h"),
        ElementsAre("a", "<=", "1", "b", ">=", "2", "c", "<>", "3", "d", "!=", "4", "e", "||", "f", "g", "::", "h"));
}

TEST(Lexer, ReadsNumbersWithFractionAndExponent) {
    EXPECT_THAT(spellings("1 1.5 .5 5. 1E-05 2e3 3ex"), ElementsAre("1", "1.5", ".5", "5.", "1E-05", "2e3", "3", "ex"));
}

TEST(Lexer, CallsAWholeNumberOfTenDigitsADecimal) {
    Tokens tokens;
    ASSERT_EQ(lex("999999999 1000000000", tokens), LexFault::None);
    EXPECT_EQ(tokens[0].kind, TokenKind::Integer);
    EXPECT_EQ(tokens[1].kind, TokenKind::Decimal);
}

TEST(Lexer, KnowsKeywordsInAnyLettersAndNamesFromThem) {
    Tokens tokens;
    ASSERT_EQ(lex("SeLeCt selected [Select] like", tokens), LexFault::None);
    EXPECT_EQ(tokens[0].keyword, Keyword::Select);
    EXPECT_TRUE(tokens[1].isName());
    EXPECT_TRUE(tokens[2].isName());
    EXPECT_EQ(tokens.name(2), "Select");
    EXPECT_EQ(tokens[3].keyword, Keyword::Like);
}

TEST(Lexer, GivesWhatALiteralSays) {
    Tokens tokens;
    ASSERT_EQ(lex(R"('O''BRIEN' "say ""hi""" #7/4/2005# '' 12.50)", tokens), LexFault::None);
    EXPECT_EQ(tokens.literal(0), "O'BRIEN");
    EXPECT_EQ(tokens.literal(1), "say \"hi\"");
    EXPECT_EQ(tokens.literal(2), "7/4/2005");
    EXPECT_EQ(tokens.literal(3), "");
    EXPECT_EQ(tokens.literal(4), "12.50");
}

TEST(Lexer, LeavesBackslashesAndOtherQuotesInsideATextAlone) {
    EXPECT_THAT(spellings(R"('a\' 'b"c' "d'e" 'f#g[h')"), ElementsAre(R"('a\')", R"('b"c')", R"("d'e")", "'f#g[h'"));
}

TEST(Lexer, SkipsCommentsOfBothKinds) {
    EXPECT_THAT(spellings("a -- b\nc /* d ; ' */ e --"), ElementsAre("a", "c", "e"));
}

TEST(Lexer, KeepsLettersOutsideAsciiInNames) {
    EXPECT_THAT(spellings("Größe = 'ü'"), ElementsAre("Größe", "=", "'ü'"));
}

TEST(Lexer, RefusesWhatIsNotClosed) {
    EXPECT_EQ(faultOf("a = 'b"), LexFault::OpenText);
    EXPECT_EQ(faultOf("a = \"b"), LexFault::OpenText);
    EXPECT_EQ(faultOf("a = 'b''"), LexFault::OpenText);
    EXPECT_EQ(faultOf("[a"), LexFault::OpenName);
    EXPECT_EQ(faultOf("a = #1/1/2005"), LexFault::OpenDate);
    EXPECT_EQ(faultOf("a /* b"), LexFault::OpenComment);
}

TEST(Lexer, RefusesNulWhereverItStands) {
    EXPECT_EQ(faultOf(std::string_view("a\0b", 3)), LexFault::Nul);
    EXPECT_EQ(faultOf(std::string_view("select 'abcdefghij\0k'", 21)), LexFault::Nul);
    EXPECT_EQ(faultOf(std::string_view("12345678\0", 9)), LexFault::Nul);
}

TEST(Lexer, RefusesBytesThatAreNotUtf8) {
    EXPECT_EQ(faultOf("'\xFF'"), LexFault::NotUtf8);
    EXPECT_EQ(faultOf("'\xC0\x80'"), LexFault::NotUtf8) << "overlong NUL";
    EXPECT_EQ(faultOf("'\xED\xA0\x80'"), LexFault::NotUtf8) << "surrogate";
    EXPECT_EQ(faultOf("'\xF4\x90\x80\x80'"), LexFault::NotUtf8) << "beyond the last character";
    EXPECT_EQ(faultOf("'abcdefghijkl\xE2\x82"), LexFault::NotUtf8) << "cut short";
    EXPECT_EQ(faultOf("'\xE2\x82\xAC \xF0\x9F\x98\x80'"), LexFault::None);
}

TEST(Lexer, TakesAMillionCharactersInOneText) {
    Tokens tokens;
    const std::string text = "a = '" + std::string(1'000'000, 'x') + "'";
    ASSERT_EQ(lex(text, tokens), LexFault::None);
    EXPECT_EQ(tokens.literal(2).size(), 1'000'000U);
}

} // namespace
} // namespace zel::ado::sql
