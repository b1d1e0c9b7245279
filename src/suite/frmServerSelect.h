#pragma once

#include "core/screen.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "suite/login.h"

#include <functional>
#include <string>

namespace zel::suite {

/// What the clerk chose: a server and one of its databases, or a database file.
struct ServerChoice {
    std::string server, catalog;
    Login login;
};

/// Server and Database Selection. It stays open until a database is open or the clerk leaves it.
class frmServerSelect : public core::DialogWindow {
public:
    explicit frmServerSelect(core::Session& state);

    /// Fills the window; without names with the database beside the program or the server used last.
    void offer(const std::string& server, const std::string& catalog, const std::string& user);
    /// Opens the choice; false keeps the window open.
    std::function<bool(const ServerChoice& choice)> tryOpen;

    forms::Label lblServer{*this, "lblServer", "&Server"};
    forms::ComboBox cboServer{*this, "cboServer"};
    forms::Label lblCatalog{*this, "lblCatalog", "&Database"};
    forms::ComboBox cboCatalog{*this, "cboCatalog"};
    forms::CommandButton cmdBrowse{*this, "cmdBrowse", "&Browse..."};
    forms::Label lblUser{*this, "lblUser", "&User"};
    forms::TextBox txtUser{*this, "txtUser"};
    forms::Label lblPassword{*this, "lblPassword", "&Password"};
    forms::TextBox txtPassword{*this, "txtPassword"};
    forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
    forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

private:
    [[nodiscard]] bool isFile() const;
    [[nodiscard]] ServerChoice choice() const;
    [[nodiscard]] std::string ordinaryFile() const;
    void serverChanged();
    void listCatalogs();
    void browse();
    void accept();
};

} // namespace zel::suite
