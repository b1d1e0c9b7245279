#include "korvandb/text_blocks.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace zel::korvandb {
namespace {

using testing::ElementsAre;
using Cell = TextBlock::Cell;

TEST(TextBlocks, Rows_are_lines_or_end_at_a_semicolon) {
    const auto blocks =
        parseBlocks("# words\nL_A: Code, Name\n    a | first; b | second\n\n    c | the third\nL_B: X\n    1; 2\n");
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].name, "L_A");
    EXPECT_THAT(blocks[0].columns, ElementsAre("Code", "Name"));
    EXPECT_THAT(blocks[0].rows,
                ElementsAre(ElementsAre("a", "first"), ElementsAre("b", "second"), ElementsAre("c", "the third")));
    EXPECT_THAT(blocks[1].rows, ElementsAre(ElementsAre("1"), ElementsAre("2")));
}

TEST(TextBlocks, An_empty_cell_is_null_and_two_quotes_are_the_empty_text) {
    const auto blocks = parseBlocks("A: B, C\n    | x; \"\" |\n");
    EXPECT_THAT(blocks[0].rows, ElementsAre(ElementsAre(Cell(), Cell("x")), ElementsAre(Cell(""), Cell())));
}

TEST(TextBlocks, A_row_with_too_few_cells_names_its_line) {
    try {
        (void)parseBlocks("A: B, C\n    x | y\n    z\n");
        FAIL();
    } catch (const std::invalid_argument& failure) {
        EXPECT_STREQ(failure.what(), "line 3: a row with 1 cells");
    }
}

} // namespace
} // namespace zel::korvandb
