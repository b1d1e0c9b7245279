#include "services/text_rules.h"

#include "services_test.h"

#include "ado/convert.h"

namespace zel::services {
namespace {

class FormatByTypeTest : public ServicesTest {
protected:
    std::string formatted(const std::string& text, int type) { return FormatByType(session, text, type); }
};

TEST_F(FormatByTypeTest, NineDigitsAreASocialSecurityNumber) {
    EXPECT_EQ(formatted("123456789", 0), "123-45-6789");
    EXPECT_EQ(formatted("001234567", 0), "001-23-4567");
    for (const char* other : {"12345678", "1234567890", "123-45-6789", "12345678X", "-12345678", "1234.5678", ""})
        EXPECT_EQ(formatted(other, 0), other);
}

TEST_F(FormatByTypeTest, TypedTimes) {
    EXPECT_EQ(formatted("930", 1), "9:30");
    EXPECT_EQ(formatted("123", 1), "12:3");
    EXPECT_EQ(formatted("2430", 1), "");
    EXPECT_EQ(formatted("0000", 1), "");
    EXPECT_EQ(formatted("00:00", 1), "00:00");
}

TEST_F(FormatByTypeTest, RequestNumbersAreNormalised) {
    EXPECT_EQ(formatted("E007.02", 3), "E-7.2");
    EXPECT_EQ(formatted("", 3), "");
    expectNoBox();
}

TEST_F(FormatByTypeTest, ABadRequestNumberIsToldAndBecomesEmpty) {
    EXPECT_EQ(formatted("E-7X", 3), "");
    const auto shown = box();
    EXPECT_EQ(shown.text, "Characters entered after the hypen must be a number or a decimal.");
    EXPECT_EQ(shown.title, "ZEL");
    EXPECT_EQ(shown.buttons, "OK");
}

TEST_F(FormatByTypeTest, DatesGetTheirZeros) {
    EXPECT_EQ(formatted("7/4/2005", 7), "07/04/2005");
    EXPECT_EQ(formatted("July 4, 2005", 7), "07/04/2005");
    EXPECT_EQ(formatted("soon", 7), "soon");
}

TEST_F(FormatByTypeTest, TypeTenIsUpperCase) {
    EXPECT_EQ(formatted("o'brien", 10), "O'BRIEN");
}

TEST_F(FormatByTypeTest, OtherTypesGiveAnEmptyText) {
    for (const int type : {-1, 2, 4, 5, 6, 8, 9, 11})
        EXPECT_EQ(formatted("12345", type), "") << type;
}

TEST(StripChars, TakesEachOfTheCharactersOut) {
    EXPECT_EQ(StripChars("(555) 123-4567", "()- "), ado::Value("5551234567"));
    EXPECT_EQ(StripChars("Peña Ñ", "ñ"), ado::Value("Pea Ñ"));
    EXPECT_EQ(StripChars("---", "-"), ado::Value(""));
    EXPECT_EQ(StripChars(1234.5, "."), ado::Value("12345"));
}

TEST(StripChars, WithoutCharactersOnlyThoseFromZeroToZStay) {
    EXPECT_EQ(StripChars("a-b/c.d é 09:;<=>?@AZ[\\]^_`az{|}"), ado::Value("abcd09:;<=>?@AZ[\\]^_`az"));
}

TEST(StripChars, NullAndEmptyComeBackAsTheyAre) {
    EXPECT_EQ(StripChars(ado::Value(), "x"), ado::Value());
    EXPECT_EQ(StripChars("", "x"), ado::Value(""));
}

TEST(PadText, MakesTheLengthInFront) {
    EXPECT_EQ(PadText("7", true, '0', 3), "007");
    EXPECT_EQ(PadText("12345", true, '0', 3), "345");
    EXPECT_EQ(PadText("123", true, '0', 3), "123");
    EXPECT_EQ(PadText("", true, ' ', 2), "  ");
}

TEST(PadText, MakesTheLengthBehind) {
    EXPECT_EQ(PadText("ab", false, '.', 4), "ab..");
    EXPECT_EQ(PadText("abcdef", false, '.', 4), "abcd");
    EXPECT_EQ(PadText("abc", false, '.', 0), "");
    EXPECT_EQ(PadText("abc", false, '.', -1), "");
}

TEST(PadText, CountsCharactersAndNotBytes) {
    EXPECT_EQ(PadText("ñandú", false, '.', 7), "ñandú..");
    EXPECT_EQ(PadText("ñandú", true, '.', 2), "dú");
}

TEST(BlankIfEmpty, NullAndEmptyBecomeZeroOrBlank) {
    EXPECT_EQ(BlankIfEmpty(ado::Value(), true), ado::Value(0));
    EXPECT_EQ(BlankIfEmpty("", true), ado::Value(0));
    EXPECT_EQ(BlankIfEmpty(ado::Value()), ado::Value(""));
    EXPECT_EQ(BlankIfEmpty(" ", true), ado::Value(" "));
    EXPECT_EQ(BlankIfEmpty(5, true), ado::Value(5));
}

TEST(FormatMaskValue, TimesForATimeMask) {
    EXPECT_EQ(FormatMaskValue("9:30", true), ado::Value("09:30"));
    EXPECT_EQ(FormatMaskValue("1:30:00 PM", true), ado::Value("13:30"));
    EXPECT_EQ(FormatMaskValue(ado::DateTime::fromTime(13, 30), true), ado::Value("13:30"));
    EXPECT_EQ(FormatMaskValue("12:00:00 AM", true), ado::Value("00:00"));
    EXPECT_EQ(FormatMaskValue("0930", true), ado::Value("09:30"));
    EXPECT_EQ(FormatMaskValue("09:3_", true), ado::Value("09:03"));
}

TEST(FormatMaskValue, TheEndOfTheDayIsTheTimeValueZero) {
    EXPECT_EQ(FormatMaskValue("24:00", true), ado::Value(ado::DateTime(0)));
    EXPECT_EQ(FormatMaskValue("24:00", false), ado::Value());
}

TEST(FormatMaskValue, FiveCharactersThatAreNoTimeStandAsTheyAre) {
    EXPECT_EQ(FormatMaskValue("25:00", true), ado::Value("25:00"));
    EXPECT_EQ(FormatMaskValue(" 99:99 ", true), ado::Value("99:99"));
}

TEST(FormatMaskValue, AllElseIsNull) {
    for (const char* text : {"", "__:__", "930", "abcd", "-930", "13:300"})
        EXPECT_EQ(FormatMaskValue(text, true), ado::Value()) << text;
    for (const char* text : {"", "__/__/____", "soon", "0930", "12345", "07/04/____"})
        EXPECT_EQ(FormatMaskValue(text), ado::Value()) << text;
    EXPECT_EQ(FormatMaskValue(ado::Value(), true), ado::Value());
}

TEST(FormatMaskValue, DatesForADateMask) {
    EXPECT_EQ(FormatMaskValue("7/4/2005"), ado::Value("07/04/2005"));
    EXPECT_EQ(FormatMaskValue("7/4/2005 1:30 PM"), ado::Value("07/04/2005"));
    EXPECT_EQ(FormatMaskValue("07/04/05__"), ado::Value("07/04/2005"));
    EXPECT_EQ(FormatMaskValue(ado::DateTime(38'537)), ado::Value("07/04/2005"));
}

} // namespace
} // namespace zel::services
