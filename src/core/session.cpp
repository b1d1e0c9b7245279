#include "core/session.h"

#include "ado/error.h"

namespace zel::core {

Session::Session(App application, World world)
    : app(std::move(application)), forms(world.forms), dialogs(world.dialogs), clock(world.clock), files(world.files),
      processes(world.processes), suite(world.suite), gLogFolder(app.Path) {}

Session::~Session() = default;

void Session::adopt(std::shared_ptr<ado::Connection> connection) {
    gConnection = std::move(connection);
    if (!gConnection || gConnection->State() != ado::stateOpen)
        return;
    gConnection->setObserver([this](const std::string& statement) {
        if (frontEnd.statements)
            frontEnd.statements(statement);
    });
    gConnection->onWait([this] { DoEvents(); });
}

ado::Connection& Session::connection() const {
    if (!gConnection) {
        throw ado::Error(ado::ErrorKind::State, ado::errors::objectClosed,
                         "Operation is not allowed when the object is closed.");
    }
    return *gConnection;
}

void Session::DoEvents() const {
    if (frontEnd.DoEvents)
        frontEnd.DoEvents();
}

void Session::End() {
    if (ended_)
        return;
    ended_ = true;
    if (frontEnd.ended)
        frontEnd.ended();
}

} // namespace zel::core
