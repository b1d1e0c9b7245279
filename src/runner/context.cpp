#include "runner/context.h"

#include "ado/convert.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "runner/command_error.h"

#include <fmt/format.h>

#include <charconv>

namespace zel::runner {

forms::Form& Context::front() const {
    auto& registry = program.forms();
    if (auto* waiting = registry.modalForm())
        return *waiting;
    if (auto* active = registry.ActiveForm())
        return *active;
    if (auto* shell = registry.shell())
        return *shell;
    throw CommandError("no screen is open; `start` starts the program");
}

forms::Form& Context::form(std::string_view name) const {
    if (auto* loaded = program.forms().loaded(name))
        return *loaded;
    throw CommandError(fmt::format("{} is not open", name));
}

forms::Control& Context::control(std::string_view name) const {
    const auto dot = name.find('.');
    auto& screen = dot == std::string_view::npos ? front() : form(name.substr(0, dot));
    const auto bare = dot == std::string_view::npos ? name : name.substr(dot + 1);
    if (auto* found = screen.find(bare))
        return *found;
    auto* shell = program.forms().modalForm() == nullptr ? program.forms().shell() : nullptr;
    if (auto* found = dot == std::string_view::npos && shell != nullptr ? shell->find(bare) : nullptr)
        return *found;
    throw CommandError(fmt::format("{} has no control {}", screen.Name(), bare));
}

void Context::refuseKind(std::string_view name, std::string_view wanted) const {
    throw CommandError(fmt::format("{} is a {}, not {}", name, control(name).typeName(), wanted));
}

void require(const forms::Outcome& outcome) {
    if (!outcome)
        throw CommandError(outcome.refusal);
}

int wholeNumber(std::string_view word, std::string_view what, int least, int most) {
    int number = 0;
    const auto* end = word.data() + word.size();
    const auto [rest, failure] = std::from_chars(word.data(), end, number);
    if (failure != std::errc() || rest != end || number < least || number > most)
        throw CommandError(fmt::format("{} is not {}", word.empty() ? "an empty word" : word, what));
    return number;
}

bool onOrOff(std::string_view word) {
    if (ado::equalIgnoringCase(word, "on"))
        return true;
    if (ado::equalIgnoringCase(word, "off"))
        return false;
    throw CommandError(fmt::format("{} is neither on nor off", word.empty() ? "an empty word" : word));
}

} // namespace zel::runner
