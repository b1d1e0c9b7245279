#include "printing/layout.h"

#include <gtest/gtest.h>

namespace zel::printing {
namespace {

TEST(LayoutTest, BandsAndItemsAreRead) {
    const Layout layout = parseLayout("page 11 8.5 0.25 # across\r\n"
                                      "sheet PersonID\n"
                                      "columns 4 2.5 12 Column288\n"
                                      "band details 0.2\n"
                                      "  text 0.1 0 1 0.2 \"say \"\"{Name}\"\"\" size 8.5 bold right wrap if ?Final\n"
                                      "  line 0 0.2 2.5 0 thick 0.02\n"
                                      "band group-footer Name 0.4\n"
                                      "  box 0 0 1 0.4");
    EXPECT_EQ(layout.pageWidth, 11);
    EXPECT_EQ(layout.margin, 0.25);
    EXPECT_EQ(layout.sheet, "PersonID");
    EXPECT_EQ(layout.columns.count, 4);
    EXPECT_EQ(layout.columns.rows, 12);
    EXPECT_EQ(layout.columns.key, "Column288");
    const Band* details = layout.band(BandKind::Details);
    ASSERT_NE(details, nullptr);
    ASSERT_EQ(details->items.size(), 2U);
    const Item& text = details->items[0];
    EXPECT_EQ(text.text, "say \"{Name}\"");
    EXPECT_EQ(text.size, 8.5);
    EXPECT_TRUE(text.bold);
    EXPECT_EQ(text.align, Align::Right);
    EXPECT_EQ(text.fit, Fit::Wrap);
    EXPECT_EQ(text.condition, "?Final");
    EXPECT_EQ(details->items[1].thickness, 0.02);
    EXPECT_EQ(layout.band(BandKind::GroupFooter, "name")->items[0].kind, Item::Kind::Box);
}

struct Broken {
    const char* text;
    const char* error;
};

void PrintTo(const Broken& broken, std::ostream* stream) {
    *stream << broken.text;
}

class BrokenLayoutTest : public ::testing::TestWithParam<Broken> {};

TEST_P(BrokenLayoutTest, IsToldWithLineAndColumn) {
    try {
        (void)parseLayout(GetParam().text);
        FAIL() << "it was taken";
    } catch (const LayoutError& error) {
        EXPECT_STREQ(error.what(), GetParam().error);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, BrokenLayoutTest,
    ::testing::Values(
        Broken{"band details 0.2\n  txt 0 0 1 1 \"a\"", "line 2, column 3: 'txt' is not known"},
        Broken{"band details 0.2\n  text 0 0 wide 1 \"a\"", "line 2, column 12: 'wide' is not the width"},
        Broken{"band details 0.2\n  text 0 0 1 1 \"a", "line 2, column 16: the text has no closing quote"},
        Broken{"band details 0.2\n  text 0 0 1 1 a", "line 2, column 16: here the text in quotes is missing"},
        Broken{"band details 0.2\n  text 0 0 1 1 \"a\" bald", "line 2, column 20: 'bald' is no style"},
        Broken{"band details", "line 1, column 13: here the band's height is missing"},
        Broken{"band detail 0.2", "line 1, column 6: there is no band 'detail'"},
        Broken{"band details 0.2\nband details 0.2", "line 2, column 6: there is such a band already"},
        Broken{"box 0 0 1 1", "line 1, column 1: it stands in no band"},
        Broken{"page 8.5 11 5", "line 1, column 13: the margin leaves no room on the page"},
        Broken{"page 8.5 11 0.5 0.5", "line 1, column 17: nothing more may stand here"},
        Broken{"columns 1.5 2 3 x",
               "line 1, column 9: here the number of columns has to be a whole number from 1 to 1000"},
        Broken{"page 8.5 11 0.5\n", "line 1, column 1: there is no band 'details'"},
        Broken{"columns 2 3 60 x\nband details 0.2", "line 2, column 1: the bands together are higher than the page"},
        Broken{"band details 10.5", "line 1, column 1: the bands together are higher than the page"}));

} // namespace
} // namespace zel::printing
