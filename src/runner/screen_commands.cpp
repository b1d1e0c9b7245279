#include "ado/convert.h"
#include "forms/menu.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"
#include "runner/command_error.h"
#include "runner/commands.h"
#include "runner/context.h"
#include "runner/runner_dialogs.h"

#include <fmt/format.h>

namespace zel::runner::screen_commands {

namespace {

/// Commands behind form: are read now, so that a slip in them is told on the line of the answer.
void checkAnswer(const std::string& answer) {
    if (answer.empty())
        throw CommandError("an empty answer; text: is an empty text");
    constexpr std::string_view prefix = "form:";
    if (!answer.starts_with(prefix))
        return;
    for (const auto& words : splitCommands(std::string_view(answer).substr(prefix.size())))
        (void)findCommand(words.front());
}

int pageNumber(const forms::vsIndexTab& strip, const std::string& word) {
    for (int page = 0; page < strip.NumTabs(); ++page) {
        if (ado::equalIgnoringCase(strip.TabCaption(page), word))
            return page;
    }
    return wholeNumber(word, fmt::format("a page of {} (0 to {})", strip.fullName(), strip.NumTabs() - 1), 0,
                       strip.NumTabs() - 1);
}

} // namespace

void start(Context& context, const Words& arguments, Json&) {
    context.program.start(arguments.empty() ? std::string() : arguments[0]);
}

void open(Context& context, const Words& arguments, Json&) {
    const int tab = arguments.size() > 1 ? wholeNumber(arguments[1], "the number of a tab", 0, 99) : 0;
    context.program.openScreen(arguments[0], tab);
}

void menu(Context& context, const Words& arguments, Json&) {
    require(context.user.click(context.controlAs<forms::Menu>(arguments[0], "a menu entry")));
}

void toolbar(Context& context, const Words& arguments, Json&) {
    require(context.user.toolbar(context.controlAs<forms::Toolbar>("tbMenu", "a toolbar"), arguments[0]));
}

void type(Context& context, const Words& arguments, Json&) {
    require(context.user.type(context.control(arguments[0]), arguments[1]));
}

void key(Context& context, const Words& arguments, Json&) {
    require(context.user.keys(context.control(arguments[0]), arguments[1]));
}

void leave(Context& context, const Words& arguments, Json&) {
    require(context.user.leave(context.control(arguments[0])));
}

void pick(Context& context, const Words& arguments, Json&) {
    require(context.user.pick(context.control(arguments[0]), arguments[1], arguments.size() > 2 ? arguments[2] : ""));
}

void check(Context& context, const Words& arguments, Json&) {
    require(context.user.check(context.control(arguments[0]), onOrOff(arguments[1])));
}

void press(Context& context, const Words& arguments, Json&) {
    require(context.user.click(context.control(arguments[0])));
}

void tab(Context& context, const Words& arguments, Json&) {
    auto& strip = context.controlAs<forms::vsIndexTab>(arguments[0], "a tab strip");
    require(context.user.selectTab(strip, pageNumber(strip, arguments[1])));
}

void answer(Context& context, const Words& arguments, Json&) {
    for (const auto& one : arguments)
        checkAnswer(one);
    for (const auto& one : arguments)
        context.program.dialogs().answer(one);
}

void now(Context& context, const Words& arguments, Json&) {
    auto moment = ado::parseIsoText(arguments[0]);
    if (!moment)
        throw CommandError(fmt::format("{} is no time, as 2005-07-04T08:00:00", arguments[0]));
    context.program.setNow(*moment);
}

void tick(Context& context, const Words& arguments, Json&) {
    context.program.tick(wholeNumber(arguments[0], "a number of milliseconds", 0));
}

void quit(Context& context, const Words&, Json& answer) {
    if (const auto left = context.program.dialogs().answersLeft(); left > 0)
        answer.set("answersLeft", static_cast<std::int64_t>(left));
    context.left = true;
    context.program.quit();
}

} // namespace zel::runner::screen_commands
