#include "runner/words.h"

#include "runner/command_error.h"

#include <gmock/gmock.h>

namespace zel::runner {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Words, Blanks_part_words_and_do_not_make_any) {
    EXPECT_THAT(splitWords("  press \t cmdSave(0)  "), ElementsAre("press", "cmdSave(0)"));
    EXPECT_THAT(splitWords(""), IsEmpty());
    EXPECT_THAT(splitWords(" \t\r\n"), IsEmpty());
}

TEST(Words, Single_quotes_keep_everything) {
    EXPECT_THAT(splitWords(R"(type txtName 'O"BRIEN \ # ; x')"), ElementsAre("type", "txtName", R"(O"BRIEN \ # ; x)"));
}

TEST(Words, Double_quotes_keep_all_but_an_escaped_quote_or_backslash) {
    EXPECT_THAT(splitWords(R"(sql "select 'a\b' \"c\" \\")"), ElementsAre("sql", R"(select 'a\b' "c" \)"));
}

TEST(Words, Pieces_that_touch_are_one_word) {
    EXPECT_THAT(splitWords(R"(a'b c'"d e"f)"), ElementsAre("ab cd ef"));
    EXPECT_THAT(splitWords(R"('O'\''BRIEN')"), ElementsAre("O'BRIEN"));
}

TEST(Words, Empty_quotes_are_an_empty_word) {
    EXPECT_THAT(splitWords("type x ''"), ElementsAre("type", "x", ""));
}

TEST(Words, A_backslash_outside_quotes_keeps_the_next_character) {
    EXPECT_THAT(splitWords(R"(a\ b \# \\ \')"), ElementsAre("a b", "#", "\\", "'"));
}

TEST(Words, A_hash_begins_a_comment_only_where_a_word_begins) {
    EXPECT_THAT(splitWords("get x # the person's name"), ElementsAre("get", "x"));
    EXPECT_THAT(splitWords("get x#1"), ElementsAre("get", "x#1"));
    EXPECT_THAT(splitWords("# 'open"), IsEmpty());
}

TEST(Words, An_open_quote_is_an_error) {
    EXPECT_THROW((void)splitWords("type x 'abc"), CommandError);
    EXPECT_THROW((void)splitWords("type x \"abc"), CommandError);
    EXPECT_THROW((void)splitWords("type x \"abc\\\""), CommandError);
    EXPECT_THROW((void)splitWords("type x abc\\"), CommandError);
}

TEST(Words, A_semicolon_parts_commands_only_where_several_are_expected) {
    EXPECT_THAT(splitWords("answer text:a;b"), ElementsAre("answer", "text:a;b"));
    EXPECT_THAT(splitCommands("type mskOffice(0) 'NORTH; OFFICE'; press cmdSave(1);"),
                ElementsAre(ElementsAre("type", "mskOffice(0)", "NORTH; OFFICE"), ElementsAre("press", "cmdSave(1)")));
    EXPECT_THAT(splitCommands(" ; ;"), IsEmpty());
}

TEST(Words, A_quoted_word_comes_back_as_it_was) {
    for (const std::string word : {"", "O'BRIEN", "''", "a b", "\\", "#", "x\ty\r\nz", "\"q\";"})
        EXPECT_THAT(splitWords(quoteWord(word)), ElementsAre(word));
}

} // namespace
} // namespace zel::runner
