#include "ado/convert.h"

#include <gtest/gtest.h>

namespace zel::ado {
namespace {

TEST(UpperCase, TakesNamesWithMarks) {
    EXPECT_EQ(upperCase("o'brien 7"), "O'BRIEN 7");
    EXPECT_EQ(upperCase("peña müller łódź ÿ"), "PEÑA MÜLLER ŁÓDŹ Ÿ");
    EXPECT_EQ(upperCase("ß 中 😀 ÷ ı"), "ß 中 😀 ÷ ı");
}

TEST(LowerCase, TakesThemBack) {
    EXPECT_EQ(lowerCase("PEÑA MÜLLER ŁÓDŹ Ÿ × İ"), "peña müller łódź ÿ × İ");
    EXPECT_EQ(lowerCase("SELECT"), "select");
}

TEST(LetterCase, NeverChangesTheLengthOfAText) {
    for (unsigned code = 0x80; code < 0x800; ++code) {
        const std::string text{static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
        ASSERT_EQ(upperCase(text).size(), 2U);
        ASSERT_EQ(lowerCase(text).size(), 2U);
        ASSERT_EQ(lowerCase(upperCase(lowerCase(text))), lowerCase(text)) << code;
    }
    EXPECT_EQ(upperCase("\xC3"), "\xC3");
}

TEST(Trim, TakesBlanksOffBothEnds) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim("\ta "), "\ta");
}

TEST(EqualIgnoringCase, LooksAtPlainLettersOnly) {
    EXPECT_TRUE(equalIgnoringCase("RequestNumber", "requestnumber"));
    EXPECT_FALSE(equalIgnoringCase("Request", "RequestNumber"));
    EXPECT_FALSE(equalIgnoringCase("[", "{"));
    EXPECT_FALSE(equalIgnoringCase("É", "é"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
}

} // namespace
} // namespace zel::ado
