#pragma once

#include "core/screen.h"
#include "forms/buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "suite/login.h"

#include <functional>
#include <string>

namespace zel::suite {

/// The security dialog: user and password of a server. A database file has neither; its protection is the file
/// system's.
class frmSecurity : public core::DialogWindow {
public:
    explicit frmSecurity(core::Session& state);

    void showFile(const std::string& path);
    /// `accepted` gets the login when the clerk confirms it.
    void showServer(const std::string& server, const Login& login, std::function<void(const Login&)> accepted);

    forms::Label lblDatabase{*this, "lblDatabase"};
    forms::Label lblNote{*this, "lblNote"};
    forms::Label lblUser{*this, "lblUser", "&User"};
    forms::TextBox txtUser{*this, "txtUser"};
    forms::Label lblPassword{*this, "lblPassword", "&Password"};
    forms::TextBox txtPassword{*this, "txtPassword"};
    forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
    forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

private:
    void showLogin(bool shown);

    std::function<void(const Login&)> accepted_;
};

} // namespace zel::suite
