#pragma once

#include "runner/json.h"
#include "runner/words.h"

#include <span>
#include <string_view>

namespace zel::runner {

struct Context;

/// One command of the runner's language.
struct Command {
    std::string_view name;
    /// As the manual and `help` show them.
    std::string_view arguments;
    std::string_view does;
    /// How many arguments it takes.
    std::size_t least = 0, most = 0;
    /// Whether it does something to the program; one that only looks leaves the boxes for expect-box alone.
    bool acts = true;
    /// Adds its results to the answer; throws CommandError (or what a screen let through) when it cannot be done.
    void (*run)(Context& context, const Words& arguments, Json& answer) = nullptr;
};

inline constexpr std::size_t anyNumber = 1'000'000;

/// All of them, in the order of the manual.
[[nodiscard]] std::span<const Command> commands();
/// By name; throws CommandError.
[[nodiscard]] const Command& findCommand(std::string_view name);

/// The commands by family, each in its own file.
namespace screen_commands {
void start(Context&, const Words&, Json&);
void open(Context&, const Words&, Json&);
void menu(Context&, const Words&, Json&);
void toolbar(Context&, const Words&, Json&);
void type(Context&, const Words&, Json&);
void key(Context&, const Words&, Json&);
void leave(Context&, const Words&, Json&);
void pick(Context&, const Words&, Json&);
void check(Context&, const Words&, Json&);
void press(Context&, const Words&, Json&);
void tab(Context&, const Words&, Json&);
void answer(Context&, const Words&, Json&);
void now(Context&, const Words&, Json&);
void tick(Context&, const Words&, Json&);
void quit(Context&, const Words&, Json&);
} // namespace screen_commands

namespace grid_commands {
void row(Context&, const Words&, Json&);
void cell(Context&, const Words&, Json&);
void commit(Context&, const Words&, Json&);
void head(Context&, const Words&, Json&);
void select(Context&, const Words&, Json&);
void popup(Context&, const Words&, Json&);
} // namespace grid_commands

namespace look_commands {
void get(Context&, const Words&, Json&);
void show(Context&, const Words&, Json&);
void form(Context&, const Words&, Json&);
void globals(Context&, const Words&, Json&);
void expect(Context&, const Words&, Json&);
void expectBox(Context&, const Words&, Json&);
void picture(Context&, const Words&, Json&);
void pictureBox(Context&, const Words&, Json&);
} // namespace look_commands

namespace data_commands {
void call(Context&, const Words&, Json&);
void sql(Context&, const Words&, Json&);
void statements(Context&, const Words&, Json&);
void expectRows(Context&, const Words&, Json&);
} // namespace data_commands

} // namespace zel::runner
