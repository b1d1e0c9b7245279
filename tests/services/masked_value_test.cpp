#include "services/masked_value.h"

#include "services_test.h"

#include "ado/error.h"
#include "forms/mask_ed_box.h"

namespace zel::services {
namespace {

class SetMaskedValueTest : public ServicesTest {
protected:
    forms::Form form{program.forms, "frmTest"};
    forms::MaskEdBox box_{form, "mskTest"};

    std::string shown(const std::string& mask, const ado::Value& value) {
        box_.setMask(mask);
        SetMaskedValue(session, box_, value);
        return box_.Text();
    }
};

TEST_F(SetMaskedValueTest, DatesGetTheirZerosAndSlashes) {
    for (const char* mask : {"99/99/9999", "##/##/####"}) {
        EXPECT_EQ(shown(mask, "07042005"), "07/04/2005");
        EXPECT_EQ(shown(mask, "7/14/2005"), "07/14/2005");
        EXPECT_EQ(shown(mask, "12/4/2005"), "12/04/2005");
        EXPECT_EQ(shown(mask, "07/04/2005"), "07/04/2005");
        EXPECT_EQ(shown(mask, ado::DateTime(38'537)), "07/04/2005");
        EXPECT_EQ(shown(mask, ado::Value()), "__/__/____");
    }
}

TEST_F(SetMaskedValueTest, TimesAreHoursAndMinutes) {
    EXPECT_EQ(shown("99:99", ado::DateTime::fromTime(13, 30)), "13:30");
    EXPECT_EQ(shown("99:99", "0930"), "09:30");
    EXPECT_EQ(shown("99:99", "24:00"), "00:00");
    EXPECT_EQ(shown("99:99", "soon"), "__:__");
    EXPECT_EQ(shown("99:99", ""), "__:__");
}

TEST_F(SetMaskedValueTest, RequestNumbersAreTrimmed) {
    EXPECT_EQ(shown(">?-9999", "e-0012"), "E-12__");
    EXPECT_EQ(shown(">?-9999", ""), "_-____");
    expectNoBox();
    EXPECT_EQ(shown(">?-9999", "E-1X"), "_-____");
    EXPECT_EQ(box().text, "Characters entered after the hypen must be a number or a decimal.");
}

TEST_F(SetMaskedValueTest, NumbersAndCodesStandAsTheyAre) {
    EXPECT_EQ(shown("###-##-####", "123-45-6789"), "123-45-6789");
    EXPECT_EQ(shown("###-##-####", "123456789"), "123-45-6789");
    EXPECT_EQ(shown(">aa-aaa-aaaaaa", "AB-123-XYZ789"), "AB-123-XYZ789");
}

TEST_F(SetMaskedValueTest, TheAccountMaskStaysEmpty) {
    EXPECT_EQ(shown("P-aaaaaa", "P-123456"), "P-______");
}

TEST_F(SetMaskedValueTest, UnderAnyOtherMaskPromptsGo) {
    EXPECT_EQ(shown("#####", "97_20"), "9720_");
    EXPECT_EQ(shown("", "A_B"), "AB");
}

TEST_F(SetMaskedValueTest, AHalfFilledBoxComesBackAsItWasKept) {
    EXPECT_EQ(shown("99999-9999", "97301-____"), "97301-____");
    EXPECT_EQ(shown("99999-9999", "_____-____"), "_____-____");
    EXPECT_EQ(shown("(999) 999-9999", "(503) ___-____"), "(503) ___-____");
}

TEST_F(SetMaskedValueTest, WithoutAMaskAnEmptyValueClearsTheBox) {
    EXPECT_EQ(shown("", "before"), "before");
    EXPECT_EQ(shown("", ado::Value()), "");
}

TEST_F(SetMaskedValueTest, TheOldTextIsGoneAndPromptsShow) {
    box_.setMask("99:99");
    box_.setPromptInclude(false);
    box_.setText("1234");
    SetMaskedValue(session, box_, "");
    EXPECT_TRUE(box_.PromptInclude());
    EXPECT_EQ(box_.Text(), "__:__");
}

TEST_F(SetMaskedValueTest, ATextThatDoesNotFitIsAnError) {
    EXPECT_THROW((void)shown("###-##-####", "none"), ado::Error);
}

TEST(DateForMask, LeavesOtherTextsAlone) {
    EXPECT_EQ(dateForMask("7/4/2005"), "07/04/2005");
    EXPECT_EQ(dateForMask("7/4/20x5"), "7/4/20x5");
    EXPECT_EQ(dateForMask("x"), "x");
    EXPECT_EQ(dateForMask(""), "");
    EXPECT_EQ(dateForMask("abcdefgh"), "ab/cd/efgh");
}

} // namespace
} // namespace zel::services
