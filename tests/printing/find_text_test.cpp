#include "printing/find_text.h"

#include <gmock/gmock.h>

namespace zel::printing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Page page(std::initializer_list<const char*> texts) {
    Page made;
    for (const char* text : texts) {
        Mark mark;
        mark.item.text = text;
        made.push_back(mark);
    }
    return made;
}

const std::vector<Page>& report() {
    static const std::vector<Page> pages{page({"Bear Creek", "O'BRIEN, PAT"}), page({"no", "obrien"}),
                                         page({"creek creek", "M\u00dcLLER"})};
    return pages;
}

TEST(FindTextTest, EveryPlaceOfAPageIsFoundWhateverTheLetters) {
    EXPECT_THAT(textsOnPage(report(), 2, "CREEK"), ElementsAre(FoundText{2, 0, 0, 5}, FoundText{2, 0, 6, 5}));
    EXPECT_THAT(textsOnPage(report(), 2, "m\u00fcll"), ElementsAre(FoundText{2, 1, 0, 5}));
    EXPECT_THAT(textsOnPage(report(), 1, "creek"), IsEmpty());
    EXPECT_THAT(textsOnPage(report(), 1, ""), IsEmpty());
}

TEST(FindTextTest, TheSearchGoesOnWithTheNextPagesAndAroundTheEnd) {
    const FoundText first = findText(report(), "creek", {0, 0, 0, 0}).value();
    EXPECT_EQ(first, (FoundText{0, 0, 5, 5}));
    const FoundText second = findText(report(), "creek", first).value();
    EXPECT_EQ(second, (FoundText{2, 0, 0, 5}));
    const FoundText third = findText(report(), "creek", second).value();
    EXPECT_EQ(third, (FoundText{2, 0, 6, 5}));
    EXPECT_EQ(findText(report(), "creek", third), first);
}

TEST(FindTextTest, BackwardsComesTheLastPlaceBefore) {
    const FoundText first{0, 0, 5, 5};
    const FoundText last = findText(report(), "creek", first, true).value();
    EXPECT_EQ(last, (FoundText{2, 0, 6, 5}));
    EXPECT_EQ(findText(report(), "creek", last, true), (FoundText{2, 0, 0, 5}));
    EXPECT_EQ(findText(report(), "creek", {2, 0, 0, 5}, true), first);
}

TEST(FindTextTest, TheOnlyPlaceIsFoundAgain) {
    const FoundText only{1, 1, 0, 6};
    EXPECT_EQ(findText(report(), "OBRIEN", only), only);
    EXPECT_EQ(findText(report(), "obrien", only, true), only);
}

TEST(FindTextTest, WhatIsNowhereIsNotFound) {
    EXPECT_EQ(findText(report(), "smith", {1, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(findText(report(), "", {0, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(findText({}, "smith", {0, 0, 0, 0}), std::nullopt);
}

} // namespace
} // namespace zel::printing
