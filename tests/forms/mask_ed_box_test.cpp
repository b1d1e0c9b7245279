#include "forms/mask_ed_box.h"

#include "ado/error.h"
#include "forms/screen_test.h"

namespace zel::forms {

namespace {

class MaskEdBoxTest : public ScreenTest {
protected:
    MaskEdBoxTest() { form.Show(); }

    /// Text of a box with the mask after the clerk typed the keys.
    std::string typed(const std::string& mask, const std::string& keys) {
        box.setMask(mask);
        EXPECT_TRUE(done(desk.user.type(box, "")));
        EXPECT_TRUE(done(desk.user.keys(box, keys)));
        return box.Text();
    }

    Form form{desk.forms, "frmMasks"};
    MaskEdBox box{form, "mskPost", 0};
};

} // namespace

TEST_F(MaskEdBoxTest, DateMaskTakesDigitsAndSkipsSlashes) {
    EXPECT_EQ(typed("99/99/9999", "07042005"), "07/04/2005");
    EXPECT_EQ(box.ClipText(), "07042005");
}

TEST_F(MaskEdBoxTest, DateMaskTakesTypedSlashesToo) {
    EXPECT_EQ(typed("99/99/9999", "07/04/2005"), "07/04/2005");
}

TEST_F(MaskEdBoxTest, SlashInTheMiddleOfAGroupEndsTheGroup) {
    EXPECT_EQ(typed("99/99/9999", "7/4/2005"), "7_/4_/2005");
}

TEST_F(MaskEdBoxTest, EmptyMaskedBoxShowsLiteralsAndPrompts) {
    box.setMask("99/99/9999");
    EXPECT_EQ(box.Text(), "__/__/____");
    EXPECT_EQ(box.ClipText(), "");
}

TEST_F(MaskEdBoxTest, LettersAreRefusedInADate) {
    box.ValidationError = note("refused");
    EXPECT_EQ(typed("99/99/9999", "0x7"), "07/__/____");
    EXPECT_EQ(takeEvents(), std::vector<std::string>{"refused"});
}

TEST_F(MaskEdBoxTest, IncidentNumberIsUpperCased) {
    EXPECT_EQ(typed(">aa-aaa-aaaaaa", "orabc000123"), "OR-ABC-000123");
}

TEST_F(MaskEdBoxTest, IncidentNumberRefusesSigns) {
    EXPECT_EQ(typed(">aa-aaa-aaaaaa", "o.r"), "OR-___-______");
}

TEST_F(MaskEdBoxTest, SocialSecurityNumber) {
    EXPECT_EQ(typed("###-##-####", "123456789"), "123-45-6789");
}

TEST_F(MaskEdBoxTest, RequestNumberTakesOneLetterAndDigits) {
    EXPECT_EQ(typed(">?-9999", "e72"), "E-72__");
    EXPECT_EQ(typed(">?-9999", "7e-1"), "E-1___");
}

TEST_F(MaskEdBoxTest, ZipPlusFour) {
    EXPECT_EQ(typed("99999-9999", "970011234"), "97001-1234");
}

TEST_F(MaskEdBoxTest, PhoneNumberBeginsBehindTheBracket) {
    EXPECT_EQ(typed("(999) 999-9999", "5035550100"), "(503) 555-0100");
}

TEST_F(MaskEdBoxTest, EscapedMaskCharacterIsALiteral) {
    EXPECT_EQ(typed("\\A-##", "12"), "A-12");
}

TEST_F(MaskEdBoxTest, AnyCharacterMaskTakesSignsAndLowerCaseMaskLowers) {
    EXPECT_EQ(typed("&&<AA", "%.XY"), "%.xy");
}

TEST_F(MaskEdBoxTest, CaseChangesOnlyWhatFollows) {
    EXPECT_EQ(typed("aa>aa<aa", "xYxYxY"), "xYXYxy");
}

TEST_F(MaskEdBoxTest, WithoutAMaskItIsAPlainBox) {
    EXPECT_EQ(typed("", "Anything goes: ___"), "Anything goes: ___");
    EXPECT_EQ(box.ClipText(), "Anything goes: ___");
}

TEST_F(MaskEdBoxTest, MaxLengthHoldsWithoutAMask) {
    box.setMaxLength(5);
    EXPECT_EQ(typed("", "1234567"), "12345");
}

TEST_F(MaskEdBoxTest, TypingBeyondTheMaskIsRefused) {
    box.ValidationError = note("refused");
    EXPECT_EQ(typed("##:##", "08305"), "08:30");
    EXPECT_EQ(takeEvents(), std::vector<std::string>{"refused"});
}

TEST_F(MaskEdBoxTest, BackspaceStepsBackOverLiterals) {
    EXPECT_EQ(typed("99/99/9999", "0704{Backspace}{Backspace}{Backspace}"), "0_/__/____");
    EXPECT_EQ(box.SelStart(), 1);
}

TEST_F(MaskEdBoxTest, DeleteClearsTheNextPlace) {
    typed("99/99/9999", "07042005");
    EXPECT_TRUE(done(desk.user.keys(box, "{Home}{Right}{Right}{Delete}")));
    EXPECT_EQ(box.Text(), "07/_4/2005");
}

TEST_F(MaskEdBoxTest, TypingOverEverythingBeginsAnew) {
    typed("99/99/9999", "07042005");
    EXPECT_TRUE(done(desk.user.type(box, "12")));
    EXPECT_EQ(box.Text(), "12/__/____");
}

TEST_F(MaskEdBoxTest, PasteFitsWithAndWithoutLiterals) {
    box.setMask("###-##-####");
    EXPECT_TRUE(done(desk.user.paste(box, "123-45-6789")));
    EXPECT_EQ(box.Text(), "123-45-6789");
    box.selectAll();
    EXPECT_TRUE(done(desk.user.paste(box, "987654321")));
    EXPECT_EQ(box.Text(), "987-65-4321");
}

TEST_F(MaskEdBoxTest, WithoutPromptIncludeTextIsWhatWasTyped) {
    typed("(999) 999-9999", "5035550100");
    box.setPromptInclude(false);
    EXPECT_EQ(box.Text(), "5035550100");
    EXPECT_EQ(box.shownText(), "(503) 555-0100");
}

TEST_F(MaskEdBoxTest, OtherPromptCharacterReplacesTheOldOne) {
    typed("##:##", "08");
    box.setPromptChar(" ");
    EXPECT_EQ(box.Text(), "08:  ");
    EXPECT_EQ(box.ClipText(), "08");
}

TEST_F(MaskEdBoxTest, PromptCharacterIsInputOnlyWhereAllowed) {
    EXPECT_EQ(typed("&&", "_x"), "x_");
    box.setAllowPrompt(true);
    EXPECT_EQ(typed("&&", "_x"), "_x");
}

TEST_F(MaskEdBoxTest, TextSetByProgramIsLaidOverTheMask) {
    box.setMask("99/99/9999");
    box.setText("07/04/2005");
    EXPECT_EQ(box.Text(), "07/04/2005");
    box.setText("12312005");
    EXPECT_EQ(box.Text(), "12/31/2005");
    box.setText("");
    EXPECT_EQ(box.Text(), "__/__/____");
}

TEST_F(MaskEdBoxTest, TextThatDoesNotFitIsRefusedAndTheBoxKeepsItsText) {
    box.setMask("99/99/9999");
    box.setText("07/04/2005");
    try {
        box.setText("tomorrow");
        FAIL() << "the text was taken";
    } catch (const ado::Error& error) {
        EXPECT_EQ(error.number(), 380);
    }
    EXPECT_EQ(box.Text(), "07/04/2005");
}

TEST_F(MaskEdBoxTest, TakingTheMaskAwayKeepsTheTextAndSettingItEmptiesTheBox) {
    typed("99/99/9999", "07042005");
    box.setMask("");
    EXPECT_EQ(box.Text(), "07/04/2005");
    box.setMask("99/99/9999");
    EXPECT_EQ(box.Text(), "__/__/____");
}

TEST_F(MaskEdBoxTest, FormattedTextFollowsTheFormatOnceThereIsContent) {
    box.setFormat("mm/dd/yyyy");
    EXPECT_EQ(box.FormattedText(), "");
    box.setText("7/4/2005");
    EXPECT_EQ(box.FormattedText(), "07/04/2005");
    box.setFormat("0.00");
    box.setText("12.5");
    EXPECT_EQ(box.FormattedText(), "12.50");
}

TEST_F(MaskEdBoxTest, FormattedTextOfAnEmptyMaskedBoxIsItsPrompts) {
    box.setMask("99/99/9999");
    box.setFormat("mm/dd/yyyy");
    EXPECT_EQ(box.FormattedText(), "__/__/____");
}

TEST_F(MaskEdBoxTest, ChangeComesOncePerKeyAndNotForARefusedOne) {
    box.setMask("##");
    box.Change = note("change");
    EXPECT_TRUE(done(desk.user.keys(box, "1x2")));
    EXPECT_EQ(takeEvents(), (std::vector<std::string>{"change", "change"}));
}

TEST_F(MaskEdBoxTest, StateDumpReadsMaskTextAndFormattedText) {
    typed("99/99/9999", "07042005");
    EXPECT_EQ(box.property("Mask"), Value("99/99/9999"));
    EXPECT_EQ(box.property("text"), Value("07/04/2005"));
    EXPECT_EQ(box.property("FormattedText"), Value("07/04/2005"));
    EXPECT_EQ(box.property("nothing of the kind"), std::nullopt);
}

} // namespace zel::forms
