#pragma once

#include "forms/scripted_dialogs.h"
#include "forms/user.h"
#include "runner/json.h"
#include "runner/program.h"

#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {
class Toolbar;
}

namespace zel::runner {

/// What a command works with: the program, what stands in for the clerk, and what is kept from command to command.
struct Context {
    explicit Context(Program& runs) : program(runs), user(runs.forms()) {}

    Program& program;
    forms::User user;
    /// Statements are reported with the command that sent them.
    bool showStatements = false;
    /// The boxes of the last command that acted, for expect-box.
    std::vector<forms::ShownBox> lastBoxes;
    /// The program has been left; the script ends.
    bool left = false;

    /// The screen that the clerk has before him: a waiting modal form, the active form, the shell.
    /// Throws CommandError before the program was started.
    [[nodiscard]] forms::Form& front() const;
    /// A form that is open, by name; throws CommandError.
    [[nodiscard]] forms::Form& form(std::string_view name) const;
    /// A control by its name as in the code: `cmdSave(0)` on the screen in front and else on the shell,
    /// `frmPost.cmdSave(0)` on any screen that is open. Throws CommandError when there is none.
    [[nodiscard]] forms::Control& control(std::string_view name) const;
    /// The same as a kind of control; throws CommandError for another kind, said in the words of `wanted`.
    template <typename T>
    [[nodiscard]] T& controlAs(std::string_view name, std::string_view wanted) const {
        auto* typed = dynamic_cast<T*>(&control(name));
        if (typed == nullptr)
            refuseKind(name, wanted);
        return *typed;
    }

private:
    [[noreturn]] void refuseKind(std::string_view name, std::string_view wanted) const;
};

/// Throws CommandError with the reason when the clerk could not have done it.
void require(const forms::Outcome& outcome);

/// A whole number in the range; throws CommandError that names `what` it should have been.
[[nodiscard]] int wholeNumber(std::string_view word, std::string_view what, int least, int most = 2147483647);

/// "on" or "off".
[[nodiscard]] bool onOrOff(std::string_view word);

} // namespace zel::runner
