#include "forms/text_box.h"

#include "forms/screen_test.h"

namespace zel::forms {

namespace {

class TextBoxTest : public ScreenTest {
protected:
    TextBoxTest() { form.Show(); }
    Form form{desk.forms, "frmText"};
    TextBox box{form, "txtUser"};
};

} // namespace

TEST_F(TextBoxTest, TypingReplacesAllAndKeysGoToTheCaret) {
    box.setText("old");
    EXPECT_TRUE(done(desk.user.type(box, "new")));
    EXPECT_TRUE(done(desk.user.keys(box, "{Home}a{End}z{Left}{Left}{Delete}")));
    EXPECT_EQ(box.Text(), "anez");
}

TEST_F(TextBoxTest, TypingNothingEmptiesTheBox) {
    box.setText("old");
    EXPECT_TRUE(done(desk.user.type(box, "")));
    EXPECT_EQ(box.Text(), "");
}

TEST_F(TextBoxTest, ChangeComesForAnotherTextOnly) {
    box.Change = note("Change");
    box.setText("a");
    box.setText("a");
    EXPECT_EQ(takeEvents().size(), 1U);
}

TEST_F(TextBoxTest, PositionsCountCharactersNotBytes) {
    box.setText("PEÑA");
    box.setSelStart(2);
    box.setSelLength(1);
    EXPECT_EQ(box.SelText(), "Ñ");
    EXPECT_TRUE(done(desk.user.keys(box, "N")));
    EXPECT_EQ(box.Text(), "PENA");
    EXPECT_TRUE(done(desk.user.keys(box, "{End}Ñ{Backspace}")));
    EXPECT_EQ(box.Text(), "PENA");
}

TEST_F(TextBoxTest, MaxLengthCutsTypingPastingAndSetting) {
    box.setMaxLength(3);
    EXPECT_TRUE(done(desk.user.type(box, "abcdef")));
    EXPECT_EQ(box.Text(), "abc");
    box.setText("ÑÑÑÑ");
    EXPECT_EQ(box.Text(), "ÑÑÑ");
    box.selectAll();
    EXPECT_TRUE(done(desk.user.paste(box, "12345")));
    EXPECT_EQ(box.Text(), "123");
}

TEST_F(TextBoxTest, SelectionStaysInsideTheText) {
    box.setText("abc");
    box.setSelStart(99);
    EXPECT_EQ(box.SelStart(), 3);
    box.setSelStart(1);
    box.setSelLength(99);
    EXPECT_EQ(box.SelText(), "bc");
    box.setSelStart(-1);
    EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(TextBoxTest, BackspaceRemovesTheSelectionElseOneCharacter) {
    box.setText("abcd");
    box.setSelStart(1);
    box.setSelLength(2);
    EXPECT_TRUE(done(desk.user.keys(box, "{Backspace}")));
    EXPECT_EQ(box.Text(), "ad");
    EXPECT_TRUE(done(desk.user.keys(box, "{Backspace}{Backspace}")));
    EXPECT_EQ(box.Text(), "d");
}

TEST_F(TextBoxTest, EnterMakesALineOnlyInABoxOfManyLines) {
    EXPECT_TRUE(done(desk.user.keys(box, "a{Enter}b")));
    EXPECT_EQ(box.Text(), "ab");
    box.setMultiLine(true);
    EXPECT_TRUE(done(desk.user.keys(box, "{Enter}c")));
    EXPECT_EQ(box.Text(), "ab\r\nc");
}

TEST_F(TextBoxTest, LockedBoxCanBeEnteredButNotChanged) {
    box.setText("a");
    box.setLocked(true);
    EXPECT_TRUE(done(desk.user.keys(box, "b{Backspace}")));
    EXPECT_EQ(box.Text(), "a");
}

TEST_F(TextBoxTest, BytesThatAreNoTextSurvive) {
    const std::string odd = "a\xff\xc3";
    EXPECT_EQ(utf8::encode(utf8::decode(odd)), odd);
    EXPECT_EQ(utf8::length(odd), 3);
    EXPECT_EQ(utf8::encode(utf8::decode("€𝄞é")), "€𝄞é");
    EXPECT_EQ(utf8::middle("€𝄞é", 1, 5), "𝄞é");
}

TEST_F(TextBoxTest, ALineEndIsErasedWhole) {
    box.setMultiLine(true);
    EXPECT_TRUE(done(desk.user.keys(box, "a{Enter}b")));
    EXPECT_EQ(box.Text(), "a\r\nb");
    EXPECT_TRUE(done(desk.user.keys(box, "{Left}{Backspace}")));
    EXPECT_EQ(box.Text(), "ab");
    EXPECT_TRUE(done(desk.user.keys(box, "{Enter}{Home}{Right}{Delete}")));
    EXPECT_EQ(box.Text(), "ab");
}

} // namespace zel::forms
