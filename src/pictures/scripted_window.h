#pragma once

#include "desktop/desk.h"
#include "desktop/qt_dialogs.h"
#include "desktop/screens.h"
#include "pictures/camera.h"
#include "runner/running_program.h"

#include <QSize>

#include <optional>
#include <string>

namespace zel::pictures {

/// The whole program with its window, driven by the commands of a script. What the script does is seen in the window
/// as if a clerk had done it; `picture` keeps what is on the display.
class ScriptedWindow final : public runner::RunningProgram {
public:
    struct Look {
        QSize size{1280, 800};
        std::string tail; ///< behind the name of each picture
    };
    /// Throws as RunningProgram does, and when the folder of the pictures cannot be made.
    ScriptedWindow(const runner::Options& options, const Look& look);

    void start(const std::string& commandLine) override;
    [[nodiscard]] std::string picture(const std::string& name) override;
    void pictureOfNextBox(const std::string& name) override;

private:
    void checkBoxCame();
    void mirror(const std::function<void(forms::Dialogs&)>& show);

    Look look_;
    Camera camera_;
    desktop::QtDialogs boxes_;
    desktop::Desk desk_{session()};
    desktop::Screens screens_{desk_};
    std::string nextBox_;
};

} // namespace zel::pictures
