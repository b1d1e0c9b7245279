// The grid of a person's posts: edits, the lock on invoiced rows, deletes.
#include "posting/frmPost.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "posting/grid_edit_checks.h"
#include "posting/post_columns.h"

#include <fmt/format.h>

namespace zel::posting {

using ado::Value;
using forms::Buttons;
using forms::Icon;

namespace {

constexpr const char* splitRowStays =
    "\r\nThe posting was split, but the row that was split is still there. Delete it.";

bool isNoInvoice(const Value& invoice) {
    return invoice.isEmpty() || ado::toLong(invoice) == 0;
}

} // namespace

void frmPost::connectGrid() {
    dbgPersonnelPost.BeforeColUpdate = [this](int column, const Value&, bool& cancel) {
        bool stands = false;
        core::guarded(session, [&] { stands = cellMayStand(column); });
        cancel = !stands;
    };
    // The two halves of a split are written: the row goes at once, before the clerk can leave it or take it back.
    dbgPersonnelPost.AfterColUpdate = [this](int) {
        if (session.gSplitDone && !dbgPersonnelPost.Update())
            endSplit();
    };
    dbgPersonnelPost.AfterUpdate = [this] { afterRowWritten(); };
    for (forms::TDBGrid* grid : {&dbgPersonnelPost, &dbgPostCrews, &dbgPostEquipment})
        lockInvoiced(*grid);
    // The pop-up menu deletes by the same rule as the button.
    dbgPersonnelPost.BeforeDelete = [this](bool& cancel) {
        cancel = true;
        core::guarded(session, [this] { deletePersonPost(); });
    };
    dbgPersonnelPost.Error = [this](const ado::Error& failure) { tellGridFailure(failure); };
}

void frmPost::tellGridFailure(const ado::Error& failure) {
    session.dialogs.message(fmt::format("Error: {} Desc: {}{}", failure.number(), failure.description(),
                                        session.gSplitDone ? splitRowStays : ""),
                            session.title(": Error"));
}

void frmPost::endSplit() {
    session.gSplitDone = false;
    core::guarded(session, [this] { fRebindCurrentPerson(); });
}

bool frmPost::cellMayStand(int column) {
    switch (column) {
    case post_column::Start:
    case post_column::Stop:
        return CheckPersonPostEdit(session, dbgPersonnelPost);
    case post_column::Class:
        return fClassChanged(session, dbgPersonnelPost, personText("Area"));
    case post_column::Rate: {
        const Value typed = dbgPersonnelPost.Columns(column).value();
        float rate = typed.isEmpty() ? 0.0F : ado::toSingle(typed);
        return business_.ValidRate(rate);
    }
    case post_column::Special:
        dbgPersonnelPost.Columns(column).setText(ado::upperCase(dbgPersonnelPost.Columns(column).Text()));
        return checkSpecialCode(session, dbgPersonnelPost, dbgPersonnelPost.Columns(column).Text());
    case post_column::KindCode:
        return takeFromList(column, ddcKindCode, "Invalid Kind Code.");
    case post_column::AccountingID:
        return takeFromList(column, tdbDDAccts, "Invalid Account Code.");
    default:
        return true;
    }
}

bool frmPost::takeFromList(int column, forms::TDBDropDown& list, const char* refusal) {
    if (list.SelectedItem() < 0) {
        session.dialogs.message(refusal, session.title(":Update Error"), Buttons::OK, Icon::Exclamation);
        return false;
    }
    dbgPersonnelPost.Columns(column).setValue(list.Columns(list.DataField()).value());
    return true;
}

void frmPost::afterRowWritten() {
    if (session.gSplitDone) {
        const Value id = dbgPersonnelPost.Columns(post_column::PersonsPostID).value();
        try {
            core::DeleteByKey(session.connection(), "PersonsPost", "PersonsPostID", id);
        } catch (const ado::Error& failure) {
            tellGridFailure(failure);
        }
        endSplit();
    }
    session.Working = false;
}

bool frmPost::isInvoiced(forms::TDBGrid& grid, std::int64_t row) {
    return row >= 0 && !isNoInvoice(grid.cellValue(row, grid.columnIndex("InvoiceID")));
}

void frmPost::lockInvoiced(forms::TDBGrid& grid) {
    grid.FetchRowStyle = [&grid](forms::Bookmark row, forms::RowStyle& style) {
        if (isInvoiced(grid, grid.source()->rowOf(row)))
            style = {forms::colors::lightGrey, forms::colors::red, true};
    };
}

void frmPost::deletePersonPost() {
    const std::int64_t row = dbgPersonnelPost.row();
    if (row < 0)
        return;
    if (isInvoiced(dbgPersonnelPost, row)) {
        session.dialogs.message("Cannot Delete an Invoiced posting.", "Cannot Delete", Buttons::OK, Icon::Exclamation);
        return;
    }
    try {
        core::DeleteByKey(session.connection(), "PersonsPost", "PersonsPostID",
                          dbgPersonnelPost.cellValue(row, post_column::PersonsPostID));
    } catch (const ado::Error& failure) {
        session.dialogs.message(
            fmt::format(
                "Try deleting blank posting by selecting...\r\nTools\r\nClear OF-288 Blank Records.\r\nPlease note "
                "Error Number: {}\r\nDescription: {}",
                failure.number(), failure.description()),
            session.title(": Error Deleting Posting"));
        return;
    }
    fRebindCurrentPerson();
}

} // namespace zel::posting
