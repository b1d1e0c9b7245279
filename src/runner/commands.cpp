#include "runner/commands.h"

#include "runner/command_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace zel::runner {

namespace {

void help(Context&, const Words& arguments, Json& answer);

constexpr std::array table{
    Command{"start", "[TEXT]", "starts the program with TEXT as its command line; False is the desktop dialect", 0, 1,
            true, screen_commands::start},
    Command{"open", "NAME [TAB]", "opens a screen as the menus do", 1, 2, true, screen_commands::open},
    Command{"menu", "CONTROL", "chooses an entry of a menu", 1, 1, true, screen_commands::menu},
    Command{"toolbar", "KEY", "presses a button of the toolbar", 1, 1, true, screen_commands::toolbar},
    Command{"type", "CONTROL TEXT", "moves the focus there, marks all and types TEXT key by key", 2, 2, true,
            screen_commands::type},
    Command{"key", "CONTROL KEYS", "sends keys as they are: +, -, =, {Enter}, {Tab}, {Backspace}", 2, 2, true,
            screen_commands::key},
    Command{"leave", "CONTROL", "takes the focus away", 1, 1, true, screen_commands::leave},
    Command{"pick", "CONTROL TEXT [COLUMN]", "chooses the row of a combo or list that shows TEXT", 2, 3, true,
            screen_commands::pick},
    Command{"check", "CONTROL on|off", "sets a check box", 2, 2, true, screen_commands::check},
    Command{"press", "CONTROL", "clicks a button, an option or a label", 1, 1, true, screen_commands::press},
    Command{"tab", "CONTROL N", "brings a page of a tab strip to the front, counted from 0", 2, 2, true,
            screen_commands::tab},
    Command{"row", "GRID N|new", "makes a row the current one, counted from 1", 2, 2, true, grid_commands::row},
    Command{"cell", "GRID N|new COLUMN TEXT", "types TEXT into a cell", 4, 4, true, grid_commands::cell},
    Command{"commit", "GRID", "writes the row under edit", 1, 1, true, grid_commands::commit},
    Command{"head", "GRID COLUMN", "clicks the head of a column", 2, 2, true, grid_commands::head},
    Command{"select", "GRID|LIST N...|all|none", "marks rows, counted from 1", 2, anyNumber, true,
            grid_commands::select},
    Command{"popup", "GRID ENTRY", "chooses an entry of the pop-up menu by name or caption", 2, 2, true,
            grid_commands::popup},
    Command{"answer", "A...", "answers the boxes to come, in order", 1, anyNumber, false, screen_commands::answer},
    Command{"get", "CONTROL [PROPERTY]", "gives a property of a control or screen", 1, 2, false, look_commands::get},
    Command{"show", "GRID|LIST", "gives the rows of a grid or list", 1, 1, false, look_commands::show},
    Command{"form", "[NAME]", "gives the controls of a screen", 0, 1, false, look_commands::form},
    Command{"globals", "[NAME]", "gives the state that all screens share", 0, 1, false, look_commands::globals},
    Command{"call", "[PROCEDURE ARG...]", "calls a helper procedure; alone it lists them", 0, anyNumber, true,
            data_commands::call},
    Command{"sql", "STATEMENT", "runs a statement on the connection", 1, 1, true, data_commands::sql},
    Command{"statements", "on|off", "reports the statements that each command sends", 1, 1, false,
            data_commands::statements},
    Command{"now", "TIME", "stops the clock at a time, as 2005-07-04T08:00:00", 1, 1, true, screen_commands::now},
    Command{"tick", "MS", "lets time pass; timers fire", 1, 1, true, screen_commands::tick},
    Command{"expect", "CONTROL TEXT", "fails unless the control shows TEXT", 2, 2, false, look_commands::expect},
    Command{"expect-box", "FRAGMENT", "fails unless a box of the last action held FRAGMENT", 1, 1, false,
            look_commands::expectBox},
    Command{"expect-rows", "N STATEMENT", "fails unless the statement gives N rows", 2, 2, false,
            data_commands::expectRows},
    Command{"picture", "NAME", "keeps a picture of the window where there is one", 1, 1, false, look_commands::picture},
    Command{"picture-box", "NAME", "keeps a picture of the next box", 1, 1, false, look_commands::pictureBox},
    Command{"help", "", "lists the commands", 0, 0, false, help},
    Command{"quit", "", "leaves the program", 0, 0, true, screen_commands::quit},
};

void help(Context&, const Words&, Json& answer) {
    Json list(Json::Array{});
    for (const auto& command : table) {
        Json entry;
        entry.set("command", command.name);
        entry.set("arguments", command.arguments);
        entry.set("does", command.does);
        list.append(std::move(entry));
    }
    answer.set("commands", std::move(list));
}

} // namespace

std::span<const Command> commands() {
    return table;
}

const Command& findCommand(std::string_view name) {
    const auto* found = std::ranges::find(table, name, &Command::name);
    if (found == table.end())
        throw CommandError(fmt::format("there is no command {}; `help` lists them", name));
    return *found;
}

} // namespace zel::runner
