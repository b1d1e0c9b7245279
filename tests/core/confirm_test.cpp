#include "core/frmConfirm.h"
#include "core/test_program.h"

namespace zel::core {

using testing::ElementsAre;

class ConfirmTest : public ::testing::Test {
protected:
    ConfirmTest() {
        program.dialogs.runCommands = [this](forms::Form& form, const std::string& commands) {
            auto& dialog = dynamic_cast<frmConfirm&>(form);
            faces.clear();
            dialog.cmdResponse.each([this](const forms::CommandButton& button) {
                faces.push_back(button.Visible() ? button.Caption() : "-");
            });
            topMost = dialog.TopMost();
            if (commands == "close")
                program.user.close(form);
            else
                program.user.keys(dialog.cmdResponse(dialog.cmdResponse(0).Visible() ? 0 : 2), commands);
        };
    }
    int ask(const std::string& answer, bool overwrite = false, bool yesNo = false, int defaultButton = 0) {
        program.dialogs.answer(answer);
        const forms::FormRegistry::Action action(program.forms);
        return ConfirmDialog(session, "Overlapping Hours:", "DOE, JOHN", "Overwrite?", ConfirmIcon::Exclamation,
                             defaultButton, overwrite, yesNo);
    }

    TestProgram program{ado::EngineKind::Sqlite};
    Session& session = program.session;
    std::vector<std::string> faces;
    bool topMost = false;
};

TEST_F(ConfirmTest, TheOrdinaryFaceHasFourButtons) {
    EXPECT_EQ(ask("form:y"), 0);
    EXPECT_THAT(faces, ElementsAre("&Yes", "Yes to &All", "&No", "N&o to All"));
    EXPECT_TRUE(topMost);
    const auto box = program.box();
    EXPECT_EQ(box.title, "Overlapping Hours:");
    EXPECT_EQ(box.text, "DOE, JOHN\r\nOverwrite?");
    EXPECT_EQ(box.buttons, "Yes|Yes to All|No|No to All");
    EXPECT_EQ(box.defaultAnswer, "Yes");
}

TEST_F(ConfirmTest, TheOverwriteFaceHasThreeButtons) {
    EXPECT_EQ(ask("form:n", true, false, 3), 2);
    EXPECT_THAT(faces, ElementsAre("-", "Post Anyway", "Overwrite", "Cancel Post"));
    EXPECT_EQ(program.box().defaultAnswer, "Cancel Post");
}

TEST_F(ConfirmTest, TheYesNoFaceHasTwoButtons) {
    EXPECT_EQ(ask("form:n", false, true), 2);
    EXPECT_THAT(faces, ElementsAre("&Yes", "-", "&No", "-"));
}

TEST_F(ConfirmTest, KeysPressTheButtonsInEitherCase) {
    EXPECT_EQ(ask("form:y"), 0);
    EXPECT_EQ(ask("form:A"), 1);
    EXPECT_EQ(ask("form:n"), 2);
    EXPECT_EQ(ask("form:O"), 3);
    EXPECT_EQ(session.vYNMS, 3);
}

TEST_F(ConfirmTest, AKeyOfAHiddenButtonDoesNothing) {
    EXPECT_EQ(ask("form:ay", false, true), 0);
    EXPECT_EQ(ask("form:yo", true), 3);
}

TEST_F(ConfirmTest, TheButtonsAnswerWithTheirIndex) {
    EXPECT_EQ(ask("Yes to All"), 1);
    EXPECT_EQ(session.vYNMS, 1);
    EXPECT_EQ(ask("No"), 2);
}

TEST_F(ConfirmTest, ClosingTheDialogueGivesNoAnswer) {
    session.vYNMS = 2;
    EXPECT_EQ(ask("form:close"), -1);
    EXPECT_EQ(session.vYNMS, -1);
    EXPECT_EQ(ask("form:y"), 0);
}

} // namespace zel::core
