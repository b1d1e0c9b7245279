#include "suite/database_locator.h"

#include "ado/error.h"
#include "core/session.h"
#include "forms/form_registry.h"
#include "platform/files.h"
#include "suite/frmSecurity.h"
#include "suite/frmServerSelect.h"
#include "suite/open_engine.h"

namespace zel::suite {

namespace {

void tell(core::Session& session, const std::string& why) {
    session.dialogs.message(why, session.title(": Cannot Open Database"), forms::Buttons::OK, forms::Icon::Critical);
}

} // namespace

std::string DatabaseLocator::open(const std::string& server, const std::string& catalog, const Login& login) {
    try {
        auto connection = std::make_shared<ado::Connection>(openEngine(server, catalog, login));
        connection_ = std::move(connection);
        return {};
    } catch (const ado::Error& failure) {
        return failure.description();
    }
}

bool DatabaseLocator::CloseDatabase() {
    if (connection_ && connection_->State() == ado::stateOpen)
        connection_->Close();
    return true;
}

void DatabaseLocator::OpenDesktop(core::Session& session, const std::string& path, const std::string&,
                                  const std::string&, const std::string&, const std::string&) {
    connection_ = std::make_shared<ado::Connection>();
    login_ = {}; // a file asks for none
    const std::string why = open(fileServer, session.files.actualPath(path), {});
    if (!why.empty())
        tell(session, why);
}

std::string DatabaseLocator::OpenServer(core::Session& session, const std::string&, const std::string&,
                                        std::string& server, std::string& catalog) {
    connection_ = std::make_shared<ado::Connection>();
    if (!server.empty() && !catalog.empty()) {
        const std::string why = open(server, catalog, login_);
        if (why.empty())
            return connection_->ConnectionString();
        tell(session, why);
    }
    return choose(session, server, catalog) ? connection_->ConnectionString() : std::string();
}

bool DatabaseLocator::choose(core::Session& session, std::string& server, std::string& catalog) {
    auto* window = session.forms.get<frmServerSelect>("frmServerSelect");
    if (window == nullptr)
        return false;
    bool opened = false;
    window->offer(server, catalog, login_.user);
    window->tryOpen = [this, &session, &server, &catalog, &opened](const ServerChoice& choice) {
        const std::string why = open(choice.server, choice.catalog, choice.login);
        if (!why.empty()) {
            tell(session, why);
            return false;
        }
        server = choice.server;
        catalog = choice.catalog;
        login_ = server == fileServer ? Login() : choice.login; // a file asks for none
        opened = true;
        return true;
    };
    window->ShowModal();
    if (auto* left = session.forms.loaded("frmServerSelect"))
        left->Unload(); // the password in it goes with it
    return opened;
}

void DatabaseLocator::ShowSecurity(core::Session& session) {
    showSecurity(session, fileServer);
}

void DatabaseLocator::ShowServerSecurity(core::Session& session, const std::string& server) {
    showSecurity(session, server);
}

void DatabaseLocator::showSecurity(core::Session& session, const std::string& server) {
    auto* window = session.forms.get<frmSecurity>("frmSecurity");
    if (window == nullptr)
        return;
    if (server == fileServer)
        window->showFile(session.gDBPath);
    else
        window->showServer(server, login_, [this](const Login& login) { login_ = login; });
    window->ShowModal();
    if (auto* left = session.forms.loaded("frmSecurity"))
        left->Unload();
}

} // namespace zel::suite
