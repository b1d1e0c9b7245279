#include "core/test_program.h"

#include "ado/convert.h"
#include "forms/adodc.h"
#include "forms/tdb_grid.h"
#include "forms/text_box.h"

namespace zel::core {

using testing::HasSubstr;

/// A screen with a grid over the postings, as the posting screens have one.
class GridScreen : public Screen {
public:
    explicit GridScreen(Session& state) : Screen(state, "frmPost") {
        adoPost.setConnection(session.connection());
        adoPost.setRecordSource(ado::Sql("select PersonsPostID, Remarks from PersonsPost order by PersonsPostID"));
        adoPost.Refresh();
        grid.addColumn("Key", "PersonsPostID");
        grid.addColumn("Remarks", "Remarks");
        grid.bind(adoPost);
        grid.AllowDelete = true;
        txtOther.RightClick = [this] { PopupMenu("mnuPostCrewPopUp"); };
    }
    forms::Adodc adoPost{*this, "AdoPost"};
    forms::TextBox txtOther{*this, "txtOther"};
    forms::TDBGrid grid{*this, "dbgPersonnelPost"};
};

class PopupTest : public ProgramTest {
protected:
    PopupTest() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        for (const char* id : {"1", "2", "3"})
            program.execute(std::string("insert into PersonsPost (PersonsPostID, PersonID, ActivityDT) values (") + id +
                            ", 11, '2005-07-01')");
        program.forms.add("frmPost", [this] { return std::make_unique<GridScreen>(session); });
        program.start();
        program.run([this] { program.shell().OpenScreen("Post", true, 0); });
        screen().grid.SetFocus();
        screen().grid.setRow(0);
        program.dialogs.take();
    }
    GridScreen& screen() { return dynamic_cast<GridScreen&>(*program.forms.loaded("frmPost")); }
    void choose(const char* entry) { EXPECT_EQ(program.user.popup(screen().grid, entry).refusal, ""); }
    std::string remark(int id) {
        ado::Recordset row;
        row.Open(ado::Sql::words("select Remarks from PersonsPost where PersonsPostID = " + std::to_string(id)),
                 program.database.connection());
        return ado::toText(row.value("Remarks"));
    }
};
ZEL_ON_BOTH_ENGINES(PopupTest);

TEST_P(PopupTest, TheEntriesMoveTheGrid) {
    choose("mnuPopupMoveLast");
    EXPECT_EQ(screen().grid.row(), 2);
    choose("mnuPopupMoveNext");
    EXPECT_EQ(screen().grid.row(), 2);
    choose("mnuPopupMovePrevious");
    EXPECT_EQ(screen().grid.row(), 1);
    choose("mnuPopupMoveFirst");
    EXPECT_EQ(screen().grid.row(), 0);
    choose("mnuPopupMovePrevious");
    EXPECT_EQ(screen().grid.row(), 0);
    choose("mnuPopupMoveNext");
    EXPECT_EQ(screen().grid.row(), 1);
}

TEST_P(PopupTest, ARemarkIsAskedForAndSaved) {
    program.dialogs.answer("text:late shift");
    choose("mnuPopupRemarks");
    const auto box = program.box();
    EXPECT_EQ(box.text, "Please enter the remarks you would like to save with this record:\r\n"
                        "Click OK to Save the new remark.");
    EXPECT_EQ(box.defaultAnswer, "");
    choose("mnuPopupSave");
    EXPECT_EQ(remark(1), "late shift");
}

TEST_P(PopupTest, AnOldRemarkIsOfferedAndCancelClearsIt) {
    program.execute("update PersonsPost set Remarks = 'old words' where PersonsPostID = 1");
    choose("mnuPopupRefresh");
    screen().grid.setRow(0);
    program.dialogs.answer("Cancel");
    choose("mnuPopupRemarks");
    const auto box = program.box();
    EXPECT_EQ(box.text, "Please enter the remarks you would like to save with this record:\r\nClick OK to Save the new "
                        "remark.\r\n(Click Cancel to clear the current remark)");
    EXPECT_EQ(box.defaultAnswer, "old words");
    choose("mnuPopupSave");
    EXPECT_EQ(remark(1), "");
}

TEST_P(PopupTest, FiftyCharactersAreTakenAndFiftyOneAskAgain) {
    const std::string fifty(50, 'a');
    program.dialogs.answer("text:" + fifty + "b");
    program.dialogs.answer("text:" + fifty + "c");
    program.dialogs.answer("text:" + fifty);
    choose("mnuPopupRemarks");
    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 3U);
    const std::string again = "Please enter the remarks you would like to save with this record:\r\nClick OK to Save "
                              "the new remark.\r\n\r\nPlease limit your comment to 50 characters.";
    EXPECT_EQ(shown[1].text, again);
    EXPECT_EQ(shown[2].text, again);
    choose("mnuPopupSave");
    EXPECT_EQ(remark(1), fifty);
}

TEST_P(PopupTest, CancelTakesTheEditsOfTheRowBack) {
    program.dialogs.answer("text:never mind");
    choose("mnuPopupRemarks");
    choose("mnuPopupCancel");
    choose("mnuPopupSave");
    EXPECT_EQ(remark(1), "");
}

TEST_P(PopupTest, DeleteDeletesTheRow) {
    choose("mnuPopupDelete");
    EXPECT_EQ(screen().grid.rowCount(), 2);
    EXPECT_EQ(screen().grid.cellText(0, 0), "2");
}

TEST_P(PopupTest, AGridWithAMenuOfItsOwnShowsThatOne) {
    screen().grid.RightClick = screen().txtOther.RightClick;
    EXPECT_EQ(program.user.popup(screen().grid, "mnuPopupDelete").refusal,
              "mnuPostCrewPopUp has no entry mnuPopupDelete");
    EXPECT_EQ(screen().grid.rowCount(), 3);
}

TEST_P(PopupTest, ARowThatIsLockedTakesNoRemark) {
    screen().grid.FetchRowStyle = [](forms::Bookmark, forms::RowStyle& style) { style.locked = true; };
    choose("mnuPopupRemarks");
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(PopupTest, AGridWithoutRemarksAsksForNone) {
    screen().grid.removeColumns();
    screen().grid.addColumn("Key", "PersonsPostID");
    choose("mnuPopupRemarks");
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(PopupTest, NewAndFindDoNothing) {
    choose("mnuPopupNew");
    EXPECT_EQ(screen().grid.rowCount(), 3);
    EXPECT_TRUE(program.dialogs.take().empty());
    EXPECT_FALSE(program.shell().menu("mnuPopupFind").Visible());
    EXPECT_FALSE(program.shell().menu("mnuPopup").Visible());
}

TEST_P(PopupTest, WithAnotherControlInFocusNothingHappens) {
    screen().txtOther.SetFocus();
    program.run([this] { program.shell().menu("mnuPopupDelete").Click(); });
    program.run([this] { program.shell().menu("mnuPopupRemarks").Click(); });
    EXPECT_EQ(screen().grid.rowCount(), 3);
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(PopupTest, CopyAndPasteGoToThePostingScreen) {
    int copies = 0, pastes = 0;
    session.extensions.fCopyPostings = [&copies] { ++copies; };
    session.extensions.fAddPostings = [&pastes] { ++pastes; };
    for (const char* entry : {"mnuPostCrewPopUpCopy", "mnuPostCrewPopUpPaste", "mnuPostCrewPopUpPaste"})
        EXPECT_EQ(program.user.popup(screen().txtOther, entry).refusal, "");
    EXPECT_EQ(copies, 1);
    EXPECT_EQ(pastes, 2);
    EXPECT_EQ(program.shell().menu("mnuPostCrewPopUpPaste").Caption(), "Paste Copied Posting to Selected Mbrs");
}

} // namespace zel::core
