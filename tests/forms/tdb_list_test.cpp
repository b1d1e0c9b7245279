#include "forms/tdb_list.h"

#include "forms/screen_test.h"

namespace zel::forms {

namespace {

class TDBListTest : public ScreenTest {
protected:
    TDBListTest() {
        members.setColumnNames({"Info", "PersonID"});
        for (int i = 1; i <= 4; ++i)
            members.addRow({"MEMBER " + std::to_string(i), 100 + i});
        list.setListField("Info");
        list.setBoundColumn("PersonID");
        list.setMultiSelect(true);
        list.bind(members);
        list.ItemChange = note("ItemChange");
        list.SelChange = note("SelChange");
        list.Click = note("Click");
        form.Show();
    }

    ValueArray members{2};
    Form form{desk.forms, "frmPost"};
    TDBList list{form, "dblCrewMembers"};
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(TDBListTest, MarksStandInTheOrderTheyWereMade) {
    EXPECT_TRUE(done(desk.user.selectRows(list, {2, 0})));
    ASSERT_EQ(list.SelBookmarks.Count(), 2);
    EXPECT_EQ(list.SelBookmarks(0), 3);
    EXPECT_EQ(list.SelBookmarks.position(1), 1);
    EXPECT_EQ(list.SelBookmarks.position(2), -1);
    EXPECT_EQ(list.Columns("PersonID").value(), Value(101)) << "the list stands where the last click was";
    EXPECT_EQ(takeEvents(), (Events{"ItemChange", "SelChange", "Click"}));
}

TEST_F(TDBListTest, WalkingThroughTheMarksMovesTheList) {
    list.SelBookmarks.Add(4);
    list.SelBookmarks.Add(2);
    list.SelBookmarks.Add(4);
    std::vector<std::string> visited;
    for (int i = 0; i < list.SelBookmarks.Count(); ++i) {
        list.setBookmark(list.SelBookmarks(i));
        visited.push_back(list.Text());
    }
    EXPECT_EQ(visited, (Events{"MEMBER 4", "MEMBER 2"}));
}

TEST_F(TDBListTest, AllAndNoneAreMarkedAtOnce) {
    EXPECT_TRUE(done(desk.user.selectAllRows(list)));
    EXPECT_EQ(list.SelBookmarks.Count(), 4);
    EXPECT_TRUE(done(desk.user.selectRows(list, {})));
    EXPECT_EQ(list.SelBookmarks.Count(), 0);
    EXPECT_EQ(desk.user.selectRows(list, {4}).refusal, "dblCrewMembers has no row 5");
}

TEST_F(TDBListTest, MarksSurviveARebindAsLongAsTheirRowsAreThere) {
    list.ReBind();
    list.SelBookmarks.assign({1, 4});
    members.deleteRow(3);
    list.ReBind();
    EXPECT_EQ(list.SelBookmarks.all(), (std::vector<Bookmark>{1}));
    ValueArray other = members;
    list.bind(other);
    EXPECT_EQ(list.SelBookmarks.Count(), 0) << "the marks were of another list";
    list.unbind();
}

TEST_F(TDBListTest, SpaceMarksTheCurrentRowAndTakesTheMarkAway) {
    EXPECT_TRUE(done(desk.user.keys(list, "{Down} {Down} ")));
    EXPECT_EQ(list.SelBookmarks.Count(), 2);
    EXPECT_TRUE(done(desk.user.keys(list, " ")));
    EXPECT_EQ(list.SelBookmarks.all(), (std::vector<Bookmark>{1}));
}

TEST_F(TDBListTest, PickMovesTheListAndClicks) {
    EXPECT_TRUE(done(desk.user.pick(list, "103", "PersonID")));
    EXPECT_EQ(list.BoundText(), "103");
    EXPECT_EQ(takeEvents(), (Events{"ItemChange", "Click"}));
    EXPECT_EQ(list.property("Text"), Value("MEMBER 3"));
}

TEST_F(TDBListTest, HeadClickNamesTheColumn) {
    list.HeadClick = [this](int column) { events.push_back("head " + std::to_string(column)); };
    EXPECT_TRUE(done(desk.user.headClick(list, "personid")));
    EXPECT_EQ(desk.user.headClick(list, "Nothing").refusal, "dblCrewMembers has no column Nothing");
    EXPECT_EQ(takeEvents(), (Events{"head 1"}));
}

} // namespace zel::forms
