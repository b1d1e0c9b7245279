#pragma once

#include "core/session.h"
#include "forms/form.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zel::core {

/// A form of this program. Record screens derive from it; the shell shows one of them at a time.
class Screen : public forms::Form {
public:
    Screen(Session& state, std::string name);

    /// Writes the state of the screen and of its controls to "<gLogFolder><Name>.dump.log".
    void tbLogDump() override;
    /// The page that the shell opens the screen on: that of its outer strip, which is the first one made.
    virtual void showTab(int page);

protected:
    /// Lines of the dump that are the screen's own: names and values.
    using DumpLines = std::vector<std::pair<std::string, std::string>>;
    [[nodiscard]] virtual DumpLines dumpLines() const { return {}; }
    /// The dump with a text between the screen's own lines and those of its controls.
    void writeDump(const std::string& between = {});

    /// An event handler of the screen: does nothing while the program itself is working, and shows the common error box
    /// when it fails. `on(&CommandButton::Click, ...)` and slots take it as it is.
    [[nodiscard]] std::function<void()> handler(std::function<void()> action);
    /// The same for what must run even while the program is working.
    [[nodiscard]] std::function<void()> always(std::function<void()> action);
    /// The body of tbFormOpen: runs under the stopwatch while a timing mode is on, and shows the common error box when
    /// it fails.
    void opening(const std::function<void()>& action);

    /// Shows a pop-up menu of the shell, from RightClick. A grid without a menu of its own shows "mnuPopup" anyway.
    void PopupMenu(std::string_view menu);

    Session& session;
};

/// While it lives the screen itself moves controls: change events do nothing.
class Moving {
public:
    explicit Moving(Session& session) : session_(session), before_(session.Working) { session.Working = true; }
    ~Moving() { session_.Working = before_; }
    Moving(const Moving&) = delete;
    Moving& operator=(const Moving&) = delete;

private:
    Session& session_;
    bool before_;
};

/// A line in the program's log.
void writeLog(const Session& session, const std::string& text);

/// A window of the program that is no record screen: it is never the active screen, and Refresh passes it by.
class DialogWindow : public Screen {
public:
    using Screen::Screen;
};

} // namespace zel::core
