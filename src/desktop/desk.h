#pragma once

#include "core/failure.h"
#include "core/session.h"
#include "forms/user.h"

#include <QPoint>
#include <QString>

#include <functional>

namespace zel::desktop {

/// What the widgets need of the running program: the clerk's actions, each with its edge where a failure becomes a box.
class Desk {
public:
    explicit Desk(core::Session& running) : session(running), user_(running.forms) {}

    /// Does what the clerk did. A refusal is not an error: the screen has said why, or there was nothing to do.
    /// A control may be gone afterwards.
    bool act(const std::function<forms::Outcome(forms::User&)>& action) {
        bool done = false;
        core::guarded(session, [&] { done = static_cast<bool>(action(user_)); });
        return done;
    }

    core::Session& session;
    /// The printer that reports go to; empty is the desktop's own choice.
    QString printer;
    /// Shows the pop-up menu that a screen asked for, at a place of the screen.
    std::function<void(forms::Menu& menu, const QPoint& place)> showPopup;

private:
    forms::User user_;
};

} // namespace zel::desktop
