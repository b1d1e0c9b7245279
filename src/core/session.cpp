#include "core/session.h"

#include "ado/error.h"

namespace zel::core {

Session::Session(App application, World world)
    : app(std::move(application)), dialogs(world.dialogs), clock(world.clock), timers(world.timers), files(world.files),
      processes(world.processes), forms(world.forms), suite(world.suite), gLogFolder(app.Path) {}

Session::~Session() = default;

ado::Connection& Session::connection() const {
    if (!gConnection) {
        throw ado::Error(ado::ErrorKind::State, ado::errors::objectClosed,
                         "Operation is not allowed when the object is closed.");
    }
    return *gConnection;
}

} // namespace zel::core
