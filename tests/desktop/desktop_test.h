#pragma once

#include "core/frmMain.h"
#include "desktop/desktop_program.h"
#include "support/database_test.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zel::test {

/// The whole program with its window on the demo database, without a display.
class DesktopTest : public ::testing::Test {
protected:
    explicit DesktopTest(ado::EngineKind kind = ado::EngineKind::Sqlite);
    ~DesktopTest() override;

    [[nodiscard]] core::Session& session() { return program_->session(); }
    [[nodiscard]] core::frmMain& shell();
    [[nodiscard]] QMainWindow& window() { return program_->screens().shell()->window(); }
    [[nodiscard]] desktop::DesktopProgram& program() { return *program_; }
    /// The widget of a control on the screen in front: "mskPost_0".
    template <typename Widget = QWidget>
    [[nodiscard]] Widget& face(const char* form, const char* name) {
        const forms::Form* loaded = session().forms.loaded(form);
        auto* found =
            loaded == nullptr
                ? nullptr
                : program_->screens().viewOf(*loaded)->widget()->findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(std::string(form) + " shows no " + name);
        return *found;
    }
    /// Does something with the box that opens next, from inside its loop.
    void whenBoxOpens(std::function<void(QWidget& box)> action);
    /// A key as the keyboard gives it: to the list or menu that is pulled down, else to what has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The same for each character; `modifiers` Qt::KeypadModifier for those of the numeric pad.
    void keyIn(const QString& characters, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The control that the clerk's keys go to: "frmPost.mskPost(0)".
    [[nodiscard]] std::string focus();
    /// What a statement gives, one text for each row, values parted by "|".
    [[nodiscard]] std::vector<std::string> rows(const std::string& statement);

private:
    TestDatabase database_;
    std::filesystem::path folder_;
    std::unique_ptr<desktop::DesktopProgram> program_;
};

/// The same on both engines, with ZEL_ON_BOTH_ENGINES: for what a clerk does to the data.
class DesktopDataTest : public DesktopTest, public ::testing::WithParamInterface<ado::EngineKind> {
protected:
    DesktopDataTest() : DesktopTest(GetParam()) {}
};

} // namespace zel::test
