#include "core/frmRefs.h"

#include "ado/convert.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "forms/form_registry.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "services/text_file.h"
#include "services/time_rules.h"

namespace zel::core {

namespace {

constexpr int minuteInterval = 60'000;
constexpr int getOutInterval = 15'000;

/// IsOnTimer for the length of a tick.
class OnTimer {
public:
    explicit OnTimer(Session& session) : session_(session) { session_.IsOnTimer = true; }
    ~OnTimer() { session_.IsOnTimer = false; }
    OnTimer(const OnTimer&) = delete;
    OnTimer& operator=(const OnTimer&) = delete;

private:
    Session& session_;
};

} // namespace

frmRefs::frmRefs(Session& state) : DialogWindow(state, "frmRefs") {
    tmrMinute.setInterval(minuteInterval);
    tmrMinute.Fired = always([this] { everyMinute(); });
    tmrGetOut.Fired = always([this] { getOut(); });
}

std::string frmRefs::askForDatabase() {
    CommonDialog1.DialogTitle = "Select the Network Korvan database";
    CommonDialog1.Filter = "MS Access Databases (*.mdb)|*.mdb|All Files (*.*)|*.*";
    return CommonDialog1.ShowOpen() ? CommonDialog1.FileName : std::string();
}

std::string frmRefs::presentTime() const {
    return services::quarterHourOf(session.clock.Now());
}

std::string frmRefs::requestFile() const {
    return folderOf(session.gIniPath) + "Korvan.xdb";
}

void frmRefs::everyMinute() {
    const OnTimer tick(session);
    if (!session.KillT && session.gConnection && !session.gIniPath.empty() && session.files.fileExists(requestFile()))
        getOut();
}

void frmRefs::getOut() {
    tmrGetOut.setEnabled(false);
    if (!session.files.fileExists(requestFile()))
        return;
    const std::string request = services::ReadTextFile(session.files, requestFile());
    if (request == "\r\nOutNow")
        CloseApp(session);
    else
        askToLeave(request);
}

void frmRefs::askToLeave(const std::string& request) {
    forms::MessageBox box;
    box.text = "A request has been made to perform administrative functions.\r\n" + request +
               "\r\nWould you like to exit the application now?";
    box.title = session.title(": Administrative Request");
    box.buttons = forms::Buttons::YesNo;
    box.icon = forms::Icon::Critical;
    box.defaultButton = 2;
    if (session.dialogs.message(box) == forms::Answer::Yes) {
        session.DoEvents();
        CloseApp(session);
        return;
    }
    tmrGetOut.setInterval(getOutInterval);
    tmrGetOut.setEnabled(true);
}

Screen::DumpLines frmRefs::dumpLines() const {
    return {{"IsOnTimer", ado::toText(ado::Value(session.IsOnTimer))}};
}

} // namespace zel::core
