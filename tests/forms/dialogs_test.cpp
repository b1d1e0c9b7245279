#include "forms/dialogs.h"

#include "forms/buttons.h"
#include "forms/common_dialog.h"
#include "forms/screen_test.h"

namespace zel::forms {

namespace {

class DialogsTest : public ScreenTest {
protected:
    /// A form like the confirmation: label and buttons, each of which closes it.
    struct Confirm : Form {
        explicit Confirm(Desk& desk) : Form(desk.forms, "frmConfirm") {
            setCaption("Overlapping Hours:");
            for (CommandButton* button : {&yes, &no}) {
                button->Click = [this, button] {
                    response = button->Caption();
                    Hide();
                };
            }
        }
        Label message{*this, "lblMessage", "Would you like to overwrite?"};
        CommandButton yes{*this, "cmdResponse", "&Yes"};
        CommandButton no{*this, "cmdOther", "&No"};
        std::string response = "none";
    };
};

/// Dialogs with an event loop: the box asks what came up meanwhile before it is answered.
class NestingDialogs : public ScriptedDialogs {
public:
    std::vector<std::string> order;
    std::function<void()> meanwhile;

protected:
    Answer showMessage(const MessageBox& box) override {
        order.push_back("open " + box.text);
        if (auto handler = std::exchange(meanwhile, nullptr))
            handler();
        order.push_back("close " + box.text);
        return Answer::OK;
    }
    void waitForTurn() override {
        order.emplace_back("wait");
        answered();
    }
};

} // namespace

TEST_F(DialogsTest, BoxIsRecordedWholeAndAnswered) {
    desk.dialogs.answer("No");
    EXPECT_EQ(desk.dialogs.message("Go on?", "ZEL: Question", Buttons::YesNo, Icon::Question), Answer::No);
    ASSERT_EQ(desk.dialogs.shown().size(), 1U);
    const ShownBox& box = desk.dialogs.shown()[0];
    EXPECT_EQ(box.kind, "message");
    EXPECT_EQ(box.title, "ZEL: Question");
    EXPECT_EQ(box.text, "Go on?");
    EXPECT_EQ(box.icon, "question");
    EXPECT_EQ(box.buttons, "YesNo");
    EXPECT_EQ(box.defaultAnswer, "Yes");
    EXPECT_EQ(box.answer, "No");
    EXPECT_TRUE(box.answered);
}

TEST_F(DialogsTest, AnswersHaveTheNumbersThatScreensStore) {
    EXPECT_EQ(static_cast<int>(Answer::OK), 1);
    EXPECT_EQ(static_cast<int>(Answer::Cancel), 2);
    EXPECT_EQ(static_cast<int>(Answer::Yes), 6);
    EXPECT_EQ(static_cast<int>(Answer::No), 7);
}

TEST_F(DialogsTest, UnansweredBoxTakesItsDefaultAndSaysSo) {
    EXPECT_EQ(desk.dialogs.message("Sure?", "", Buttons::YesNoCancel, Icon::Critical, 3), Answer::Cancel);
    EXPECT_FALSE(desk.dialogs.shown()[0].answered);
    EXPECT_EQ(desk.dialogs.shown()[0].defaultAnswer, "Cancel");
    EXPECT_EQ(desk.dialogs.input({"Rate?", "AD-5", "18.20"}), "18.20");
    EXPECT_EQ(desk.dialogs.file({.title = "Open"}), "");
}

TEST_F(DialogsTest, DefaultButtonIsCountedInTheOrderOfTheButtons) {
    EXPECT_EQ(defaultAnswer({.buttons = Buttons::OKCancel, .defaultButton = 2}), Answer::Cancel);
    EXPECT_EQ(defaultAnswer({.buttons = Buttons::YesNo, .defaultButton = 2}), Answer::No);
    EXPECT_EQ(defaultAnswer({.buttons = Buttons::YesNoCancel, .defaultButton = 2}), Answer::No);
    EXPECT_EQ(defaultAnswer({.buttons = Buttons::OK, .defaultButton = 1}), Answer::OK);
}

TEST_F(DialogsTest, AnswerThatTheBoxDoesNotOfferIsComplainedAboutAndTheDefaultTaken) {
    std::string complaint;
    desk.dialogs.complain = [&](const std::string& text) { complaint = text; };
    desk.dialogs.answer("Yes");
    EXPECT_EQ(desk.dialogs.message("Data Saved", "ZEL Message"), Answer::OK);
    EXPECT_EQ(complaint, "the answer \"Yes\" does not suit the message \"ZEL Message\"");
}

TEST_F(DialogsTest, InputAndFileBoxesTakeTextAndCancel) {
    desk.dialogs.answer("text:20.50");
    desk.dialogs.answer("Cancel");
    desk.dialogs.answer("file:backup.mdb");
    EXPECT_EQ(desk.dialogs.input({"Rate?", "AD-5", "18.20"}), "20.50");
    EXPECT_EQ(desk.dialogs.input({"Rate?", "AD-5", "18.20"}), "");
    EXPECT_EQ(desk.dialogs.file({.title = "Save", .fileName = "x.mdb"}), "backup.mdb");
    EXPECT_EQ(desk.dialogs.take().size(), 3U);
    EXPECT_TRUE(desk.dialogs.shown().empty());
}

TEST_F(DialogsTest, ModalFormIsAnsweredByACaptionWithoutItsMnemonic) {
    Confirm form(desk);
    desk.dialogs.answer("No");
    form.ShowModal();
    EXPECT_EQ(form.response, "&No");
    const ShownBox& box = desk.dialogs.shown()[0];
    EXPECT_EQ(box.kind, "form");
    EXPECT_EQ(box.title, "Overlapping Hours:");
    EXPECT_EQ(box.text, "Would you like to overwrite?");
    EXPECT_EQ(box.buttons, "Yes|No");
    EXPECT_EQ(box.answer, "No");
}

TEST_F(DialogsTest, ModalFormWithoutAnAnswerPressesItsDefaultOrIsClosed) {
    Confirm form(desk);
    form.ShowModal();
    EXPECT_EQ(form.response, "none");
    EXPECT_FALSE(form.loaded());
    form.yes.setDefault(true);
    form.ShowModal();
    EXPECT_EQ(form.response, "&Yes");
}

TEST_F(DialogsTest, CommandsRunWhileAModalFormWaits) {
    Confirm form(desk);
    desk.dialogs.answer("form:press cmdOther");
    desk.dialogs.runCommands = [&](Form& open, const std::string& commands) {
        EXPECT_EQ(commands, "press cmdOther");
        EXPECT_EQ(desk.forms.modalForm(), &open);
        EXPECT_TRUE(done(desk.user.click(form.no)));
    };
    form.ShowModal();
    EXPECT_EQ(form.response, "&No");
    EXPECT_EQ(desk.forms.modalForm(), nullptr);
}

TEST_F(DialogsTest, QuestionFromInsideAModalFormIsShownAtOnce) {
    Confirm form(desk);
    form.no.Click = [&] {
        desk.dialogs.message("Really?", "");
        form.Hide();
    };
    desk.dialogs.answer("No");
    desk.dialogs.answer("OK");
    form.ShowModal();
    ASSERT_EQ(desk.dialogs.shown().size(), 2U);
    EXPECT_EQ(desk.dialogs.shown()[1].text, "Really?");
}

TEST_F(DialogsTest, SecondQuestionWaitsUntilTheFirstIsAnswered) {
    NestingDialogs dialogs;
    dialogs.meanwhile = [&] { dialogs.message("second", ""); };
    dialogs.message("first", "");
    EXPECT_EQ(dialogs.order,
              (std::vector<std::string>{"open first", "wait", "open second", "close second", "close first"}));
    EXPECT_FALSE(dialogs.boxOpen());
}

TEST_F(DialogsTest, CommonDialogKeepsTheChosenFileAndForgetsNothingOnCancel) {
    Form form(desk.forms, "frmTools");
    CommonDialog dialog{form, "dlgFile"};
    dialog.DialogTitle = "Backup";
    desk.dialogs.answer("file:copy.mdb");
    EXPECT_TRUE(dialog.ShowSave());
    EXPECT_EQ(dialog.FileName, "copy.mdb");
    EXPECT_FALSE(dialog.ShowOpen());
    EXPECT_EQ(dialog.property("filename"), Value("copy.mdb"));
    EXPECT_EQ(desk.dialogs.shown()[0].title, "Backup");
}

} // namespace zel::forms
