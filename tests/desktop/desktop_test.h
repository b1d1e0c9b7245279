#pragma once

#include "core/frmMain.h"
#include "desktop/desktop_program.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace zel::test {

/// The whole program with its window on the demo database, without a display.
class DesktopTest : public ::testing::Test {
protected:
    DesktopTest();
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

private:
    std::filesystem::path folder_;
    std::unique_ptr<desktop::DesktopProgram> program_;
};

} // namespace zel::test
