#include "core/failure.h"
#include "core/frmMain.h"
#include "forms/form_registry.h"
#include "forms/tdb_grid.h"

namespace zel::core {

namespace {

constexpr int longestRemark = 50;

} // namespace

// Every entry works on the grid that has the focus; anything else is passed by.
void frmMain::onGrid(std::string_view name, std::function<void(forms::TDBGrid&)> action) {
    menu(name).Click = always([this, action = std::move(action)] {
        Form* screen = ActiveForm();
        if (auto* grid = screen == nullptr ? nullptr : dynamic_cast<forms::TDBGrid*>(screen->ActiveControl()))
            action(*grid);
    });
}

void frmMain::connectPopup() {
    session.forms.setGridPopup(&menu("mnuPopup"));
    onGrid("mnuPopupNew", [this](forms::TDBGrid&) { tbMenu.press("New"); });
    onGrid("mnuPopupSave", [](forms::TDBGrid& grid) { grid.Update(); });
    onGrid("mnuPopupDelete", [](forms::TDBGrid& grid) { grid.Delete(); });
    onGrid("mnuPopupRemarks", [this](forms::TDBGrid& grid) { addRemarks(grid); });
    onGrid("mnuPopupMoveFirst", [](forms::TDBGrid& grid) { grid.MoveFirst(); });
    onGrid("mnuPopupMoveLast", [](forms::TDBGrid& grid) { grid.MoveLast(); });
    onGrid("mnuPopupMoveNext", [](forms::TDBGrid& grid) {
        grid.MoveNext();
        if (grid.EOF_())
            grid.MoveLast();
    });
    onGrid("mnuPopupMovePrevious", [](forms::TDBGrid& grid) {
        grid.MovePrevious();
        if (grid.BOF())
            grid.MoveFirst();
    });
    onGrid("mnuPopupRefresh", [](forms::TDBGrid& grid) { grid.ReOpen(); });
    onGrid("mnuPopupCancel", [](forms::TDBGrid& grid) { grid.RefetchRow(); });
    onMenu("mnuPostCrewPopUpCopy", [this] {
        if (session.extensions.fCopyPostings)
            session.extensions.fCopyPostings();
    });
    onMenu("mnuPostCrewPopUpPaste", [this] {
        if (session.extensions.fAddPostings)
            session.extensions.fAddPostings();
    });
}

// Cancel clears the remark: the prompt says so.
void frmMain::addRemarks(forms::TDBGrid& grid) {
    const int column = grid.columnIndex("Remarks");
    if (column < 0 || !grid.whyLocked(grid.row(), column).empty())
        return;
    forms::GridColumn& remarks = grid.Columns(column);
    const std::string old = remarks.Text();
    std::string prompt = "Please enter the remarks you would like to save with this record:\r\n"
                         "Click OK to Save the new remark.";
    if (!old.empty())
        prompt += "\r\n(Click Cancel to clear the current remark)";
    forms::InputBox box{prompt, session.app.Title, old};
    std::string answer = session.dialogs.input(box);
    while (forms::utf8::length(answer) > longestRemark) {
        box.prompt = prompt + "\r\n\r\nPlease limit your comment to 50 characters.";
        answer = session.dialogs.input(box);
    }
    remarks.setText(answer);
}

} // namespace zel::core
