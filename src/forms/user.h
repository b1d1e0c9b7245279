#pragma once

#include "forms/control.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {

class FormRegistry;
class Menu;

/// Whether a user action could be done; if not, why: "mskPost(0) is disabled".
struct Outcome {
    std::string refusal;
    explicit operator bool() const noexcept { return refusal.empty(); }
};

/// Keys as KeyPress and the front ends name them.
namespace keys {
inline constexpr int backspace = 8, tab = 9, enter = 13, escape = 27, space = 32;
/// Keys without a character; they do not raise KeyPress.
inline constexpr int first = 0x110000, del = first, left = first + 1, right = first + 2, up = first + 3,
                     down = first + 4, home = first + 5, end = first + 6, pageUp = first + 7, pageDown = first + 8,
                     backTab = first + 9, f4 = first + 10;
} // namespace keys

/// What a clerk can do to a screen. Both front ends act through it, so that the same events come in the same order
/// whoever drives. Nothing is done, and the reason told, where a clerk could not do it: hidden, disabled, locked, not
/// there.
///
/// An entry that the screen's own rules refuse was made all the same: the screen has said so in a box and put the old
/// value back. Errors that a screen's handler lets through pass to the caller.
class User {
public:
    explicit User(FormRegistry& forms) : forms_(forms) {}

    /// Moves the focus there; the control left validates and may keep it.
    Outcome moveFocus(Control& target);
    /// Takes the focus out of the control (and its form): Validate, LostFocus.
    Outcome leave(Control& control);
    /// To the next or previous tab stop of the form.
    Outcome tab(Form& form, bool backwards = false);

    /// Moves the focus there, marks all and sends the text key by key.
    Outcome type(Control& target, std::string_view text);
    /// One key to the control with the focus; KeyPress of the form comes first where it has one.
    Outcome key(Control& target, int key);
    /// Characters and {Enter} {Tab} {Backspace} {Delete} {Escape} {Left} {Right} {Up} {Down} {Home} {End} {F4}, "{{}"
    /// for "{".
    Outcome keys(Control& target, std::string_view text);
    /// Text from the clipboard in place of the selection.
    Outcome paste(Control& target, std::string_view text);

    /// A click on a button, option button, label, check box (which it turns) or menu entry.
    Outcome click(Control& target);
    Outcome doubleClick(Control& target);
    Outcome check(Control& box, bool on);
    /// The row or entry that shows the text, in the column (caption or field; else the list's own) of a combo or list.
    Outcome pick(Control& list, std::string_view text, std::string_view column = {});
    /// The same by number from 0.
    Outcome pickRow(Control& list, std::int64_t row);
    /// Pulls the list of a combo down or up.
    Outcome open(Control& combo, bool open);
    Outcome selectTab(Control& strip, int page);
    Outcome toolbar(Control& bar, std::string_view key);

    /// Rows of grids count from 0, TDBGrid::newRow is the row for a new record.
    Outcome row(Control& target, std::int64_t row);
    Outcome editCell(Control& target, std::int64_t row, std::string_view column, std::string_view text);
    /// The same in two steps, for a front end with an editor in the cell: beginCell may refuse, endCell takes the text.
    Outcome beginCell(Control& target, std::int64_t row, int column);
    Outcome endCell(Control& target, std::string_view text);
    Outcome cancelCell(Control& target);
    Outcome commitRow(Control& target);
    Outcome deleteRow(Control& target);
    Outcome headClick(Control& target, std::string_view column);
    /// Marks exactly these rows, in this order.
    Outcome selectRows(Control& target, const std::vector<std::int64_t>& rows);
    Outcome selectAllRows(Control& target);
    /// The right mouse button, and the entry (by name or caption) of the pop-up menu that the screen then shows.
    Outcome rightClick(Control& target);
    Outcome popup(Control& target, std::string_view entry);
    /// The clerk chose an entry of a menu or of the pop-up menu shown.
    Outcome choose(Menu& entry);

    /// The front end's own closing of a form: its title bar's cross, Escape where no button takes it.
    Outcome close(Form& form);

private:
    [[nodiscard]] Outcome ready(const Control& target) const;
    /// Ready, and with the focus where it can have it.
    Outcome enter(Control& target);
    void send(Control& target, int key);
    Outcome readyGrid(Control& target);
    Outcome pickIn(Control& list, const std::function<std::int64_t()>& find, const std::string& missing);

    FormRegistry& forms_;
};

} // namespace zel::forms
