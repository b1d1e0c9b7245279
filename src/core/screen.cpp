#include "core/screen.h"

#include "core/failure.h"
#include "forms/form_registry.h"
#include "forms/menu.h"
#include "forms/vs_index_tab.h"
#include "platform/files.h"
#include "services/clsDebug.h"
#include "services/clsStopWatch.h"
#include "services/log_controls.h"

namespace zel::core {

Screen::Screen(Session& state, std::string name) : Form(state.forms, std::move(name)), session(state) {}

void Screen::tbLogDump() {
    writeDump();
}

void Screen::showTab(int page) {
    for (forms::Control* control : controls()) {
        if (auto* strip = dynamic_cast<forms::vsIndexTab*>(control)) {
            strip->setCurrTab(page);
            return;
        }
    }
}

void Screen::writeDump(const std::string& between) {
    std::string text = "Me.Caption = " + Caption() + "\r\nMe.Tag = " + Tag() + "\r\n";
    for (const auto& [name, value] : dumpLines())
        text.append(name).append(" = ").append(value).append("\r\n");
    text += between;
    text += services::LogControls(*this);
    session.files.write(session.gLogFolder + Name() + ".dump.log", text);
}

void Screen::PopupMenu(std::string_view menu) {
    const Form* shell = session.forms.shell();
    if (auto* popup = shell == nullptr ? nullptr : dynamic_cast<forms::Menu*>(shell->find(menu)))
        session.forms.PopupMenu(*popup);
}

void writeLog(const Session& session, const std::string& text) {
    if (session.gDebug)
        session.gDebug->Prn(text);
}

std::function<void()> Screen::handler(std::function<void()> action) {
    return [this, action = std::move(action)] {
        if (!session.Working)
            guarded(session, action);
    };
}

std::function<void()> Screen::always(std::function<void()> action) {
    return [this, action = std::move(action)] { guarded(session, action); };
}

void Screen::opening(const std::function<void()>& action) {
    services::clsStopWatch* watch = session.gStopWatch.get();
    const bool timed = watch != nullptr && (watch->ScreenEnabled || watch->DetailsEnabled);
    if (timed)
        watch->StartTimer();
    guarded(session, action);
    if (timed)
        watch->StopTimer();
}

} // namespace zel::core
