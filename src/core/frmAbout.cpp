#include "core/frmAbout.h"

namespace zel::core {

namespace {

// lblVersion: captions 0 to 2, the values 3 to 5 beside them.
constexpr int programVersion = 3, databaseVersion = 4, buildVersion = 5;

} // namespace

frmAbout::frmAbout(Session& state) : DialogWindow(state, "frmAbout") {
    setCaption("About " + session.app.Title);
    lblVersion(0).setCaption("Version:");
    lblVersion(1).setCaption("Database Version:");
    lblVersion(2).setCaption("Korvan Build:");
    lblLoading.setVisible(false);
    lblStatus.setVisible(false);
    prgBar.setVisible(false);
    cmdOK.setDefault(true);
    cmdOK.setCancel(true);
    cmdOK.Click = [this] { Unload(); };
}

void frmAbout::showLoading() {
    lblLoading.setVisible(true);
    prgBar.setVisible(true);
    cmdOK.setVisible(false);
    Show();
}

void frmAbout::showVersions() {
    lblVersion(programVersion).setCaption(session.gAppVersion);
    lblVersion(databaseVersion).setCaption(session.gDBVersion);
    lblVersion(buildVersion).setCaption(session.gBuildVersion);
    lblStatus.setCaption("Loading lists...");
    lblStatus.setVisible(true);
}

void frmAbout::finishLoading() {
    prgBar.setValue(100);
    lblLoading.setVisible(false);
    Hide();
}

void frmAbout::showAbout() {
    showVersions();
    lblStatus.setVisible(false);
    lblLoading.setVisible(false);
    prgBar.setVisible(false);
    cmdOK.setVisible(true);
    Show();
}

} // namespace zel::core
