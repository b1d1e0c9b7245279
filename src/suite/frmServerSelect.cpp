#include "suite/frmServerSelect.h"

#include "ado/convert.h"
#include "core/settings.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "suite/server_catalogs.h"

#include <cstdlib>

namespace zel::suite {

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

void addOnce(forms::ComboBox& combo, const std::string& text) {
    for (int index = 0; index < combo.ListCount(); ++index) {
        if (ado::equalIgnoringCase(combo.List(index), text))
            return;
    }
    if (!text.empty())
        combo.AddItem(text);
}

} // namespace

frmServerSelect::frmServerSelect(core::Session& state) : DialogWindow(state, "frmServerSelect") {
    setCaption("Server and Database Selection");
    txtPassword.setPasswordChar("*");
    cmdOK.setDefault(true);
    cmdCancel.setCancel(true);
    cboServer.Change = always([this] { serverChanged(); });
    cboServer.Click = always([this] { serverChanged(); });
    cboCatalog.DropDown = always([this] { listCatalogs(); });
    cmdBrowse.Click = always([this] { browse(); });
    cmdOK.Click = always([this] { accept(); });
    cmdCancel.Click = [this] { Hide(); };
}

void frmServerSelect::offer(const std::string& server, const std::string& catalog, const std::string& user) {
    cboServer.Clear();
    cboServer.AddItem(core::DatabaseLocator::fileServer);
    addOnce(cboServer, server);
    addOnce(cboServer, core::GetSetting(session, "Server"));
    addOnce(cboServer, environment("PGHOST"));
    addOnce(cboServer, "localhost");
    const bool namesFile = server.empty() && session.files.fileExists(ordinaryFile());
    cboServer.setText(namesFile ? core::DatabaseLocator::fileServer : server);
    serverChanged();
    cboCatalog.setText(namesFile ? ordinaryFile() : catalog);
    txtUser.setText(user);
    txtPassword.setText("");
}

std::string frmServerSelect::ordinaryFile() const {
    return core::folderAbove(session.app.Path) + "database/Korvan.mdb";
}

bool frmServerSelect::isFile() const {
    return ado::equalIgnoringCase(cboServer.Text(), core::DatabaseLocator::fileServer);
}

ServerChoice frmServerSelect::choice() const {
    const std::string server = isFile() ? core::DatabaseLocator::fileServer : std::string(ado::trim(cboServer.Text()));
    return {server, std::string(ado::trim(cboCatalog.Text())), {txtUser.Text(), txtPassword.Text()}};
}

void frmServerSelect::serverChanged() {
    const bool file = isFile();
    txtUser.setEnabled(!file);
    txtPassword.setEnabled(!file);
    cmdBrowse.setVisible(file);
}

void frmServerSelect::listCatalogs() {
    const std::string typed = cboCatalog.Text();
    cboCatalog.Clear();
    if (isFile()) {
        const std::string folder = core::folderAbove(session.app.Path) + "database/";
        for (const std::string& name : session.files.list(folder, ".mdb"))
            cboCatalog.AddItem(folder + name);
    } else if (!cboServer.Text().empty()) {
        session.forms.setHourglass(true);
        for (const std::string& name : catalogsOf(cboServer.Text(), choice().login))
            cboCatalog.AddItem(name);
        session.forms.setHourglass(false);
    }
    cboCatalog.setText(typed);
}

void frmServerSelect::browse() {
    forms::FileBox box;
    box.title = "Select the Korvan database";
    box.filter = "Korvan Databases (*.mdb)|*.mdb|All Files (*.*)|*.*";
    box.folder = core::folderOf(cboCatalog.Text());
    const std::string path = session.dialogs.file(box);
    if (!path.empty())
        cboCatalog.setText(path);
}

void frmServerSelect::accept() {
    const ServerChoice chosen = choice();
    if (chosen.server.empty() || chosen.catalog.empty()) {
        session.dialogs.message("Please select or type a server and a database.", Caption(), forms::Buttons::OK,
                                forms::Icon::Information);
        return;
    }
    if (!tryOpen || tryOpen(chosen))
        Hide();
}

} // namespace zel::suite
