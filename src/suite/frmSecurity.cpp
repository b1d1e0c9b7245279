#include "suite/frmSecurity.h"

#include <utility>

namespace zel::suite {

frmSecurity::frmSecurity(core::Session& state) : DialogWindow(state, "frmSecurity") {
    setCaption("Korvan Security");
    txtPassword.setPasswordChar("*");
    cmdOK.setDefault(true);
    cmdCancel.setCancel(true);
    cmdOK.Click = [this] {
        if (accepted_)
            accepted_({txtUser.Text(), txtPassword.Text()});
        Hide();
    };
    cmdCancel.Click = [this] { Hide(); };
}

void frmSecurity::showFile(const std::string& path) {
    accepted_ = nullptr;
    lblDatabase.setCaption("Database: " + path);
    lblNote.setCaption("Who may read and write a database file is set with the rights of the file and its folder.");
    showLogin(false);
}

void frmSecurity::showServer(const std::string& server, const Login& login,
                             std::function<void(const Login&)> accepted) {
    accepted_ = std::move(accepted);
    lblDatabase.setCaption("Server: " + server);
    lblNote.setCaption("Leave the password empty to use your password file. Users and their rights are kept by the "
                       "server.");
    txtUser.setText(login.user);
    txtPassword.setText(login.password);
    showLogin(true);
}

void frmSecurity::showLogin(bool shown) {
    for (forms::Control* control :
         {static_cast<forms::Control*>(&lblUser), static_cast<forms::Control*>(&txtUser),
          static_cast<forms::Control*>(&lblPassword), static_cast<forms::Control*>(&txtPassword)})
        control->setVisible(shown);
}

} // namespace zel::suite
