#include "services/control_groups.h"

#include "forms/form.h"
#include "forms/mask_ed_box.h"
#include "forms/vs_index_tab.h"
#include "services/services_test.h"

namespace zel::services {

class GroupScreen : public forms::Form {
public:
    using forms::Form::Form;
    forms::ControlArray<forms::MaskEdBox> boxes{*this, "mskPost", 3};
    forms::vsIndexTab strip{*this, "tabAE", "A|B|C|D"};
};

class ControlGroupsTest : public ServicesTest {
protected:
    GroupScreen screen{program.forms, "frmTest"};
};

TEST_F(ControlGroupsTest, AMaskedBoxIsEmptiedUnderItsMask) {
    forms::MaskEdBox& box = screen.boxes(0);
    box.setMask("99/99/9999");
    box.setText("07/04/2005");
    ClearMaskedBox(box);
    EXPECT_EQ(box.Mask(), "99/99/9999");
    EXPECT_EQ(box.Text(), "__/__/____");
    EXPECT_EQ(box.ClipText(), "");
}

TEST_F(ControlGroupsTest, AllControlsAreShownAndHidden) {
    HideAll(screen.boxes);
    screen.boxes.each([](const forms::MaskEdBox& box) { EXPECT_FALSE(box.Visible()); });
    ShowAll(screen.boxes);
    screen.boxes.each([](const forms::MaskEdBox& box) { EXPECT_TRUE(box.Visible()); });
}

TEST_F(ControlGroupsTest, ClearedControlsTakeNewValuesByTheirMasksAndAreShown) {
    screen.boxes(0).setMask("99/99/9999");
    screen.boxes(1).setMask("99:99");
    screen.boxes(2).setText("old");
    HideAll(screen.boxes);
    ClearControls(session, screen.boxes, {"07042005", "9:05", "new"}, true);
    EXPECT_EQ(screen.boxes(0).Text(), "07/04/2005");
    EXPECT_EQ(screen.boxes(1).Text(), "09:05");
    EXPECT_EQ(screen.boxes(2).Text(), "new");
    EXPECT_TRUE(screen.boxes(2).Visible());
}

TEST_F(ControlGroupsTest, WithoutTextTheyStayEmpty) {
    screen.boxes(2).setText("old");
    ClearControls(session, screen.boxes, {"1", "2", "3"}, false);
    screen.boxes.each([](const forms::MaskEdBox& box) { EXPECT_EQ(box.Text(), ""); });
}

TEST_F(ControlGroupsTest, TabCaptionsAreSetFromAPageOn) {
    SetTabCaptions(screen.strip, "One|Two|Three", 1, 2);
    EXPECT_EQ(screen.strip.TabCaption(0), "A");
    EXPECT_EQ(screen.strip.TabCaption(1), "One");
    EXPECT_EQ(screen.strip.TabCaption(2), "Two");
    EXPECT_EQ(screen.strip.TabCaption(3), "D");
    SetTabCaptions(screen.strip, "Only", 0, 3);
    EXPECT_EQ(screen.strip.TabCaption(0), "Only");
    EXPECT_EQ(screen.strip.TabCaption(1), "One");
}

} // namespace zel::services
