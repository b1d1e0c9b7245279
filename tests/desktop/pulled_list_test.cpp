#include "desktop/desktop_test.h"

#include "desktop/list_popup.h"
#include "forms/tdb_combo.h"
#include "forms/vs_index_tab.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

namespace zel::test {
namespace {

/// The list of persons on the page on which they are edited.
class PulledListTest : public DesktopTest {
protected:
    PulledListTest() {
        shell().OpenScreen("Personnel", true, 0);
        auto* screen = session().forms.loaded("frmPersonnel");
        auto& strip = dynamic_cast<forms::vsIndexTab&>(*screen->find("tabAE"));
        act([&](forms::User& user) { return user.selectTab(strip, 1); });
        combo = dynamic_cast<forms::TDBCombo*>(screen->find("dbcPersonnel"));
    }
    void act(const std::function<forms::Outcome(forms::User&)>& action) { program().desk().act(action); }
    QTableView& table() { return *face("frmPersonnel", "dbcPersonnel").findChild<QTableView*>(); }

    forms::TDBCombo* combo = nullptr;
};

TEST_F(PulledListTest, Names_are_not_cut_off) {
    act([&](forms::User& user) { return user.open(*combo, true); });
    auto& list = table();
    ASSERT_GT(list.model()->rowCount(), 10);
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QString name = list.model()->index(row, 0).data().toString().section(QStringLiteral("   "), 0, 0);
        EXPECT_GE(list.columnWidth(0), list.fontMetrics().horizontalAdvance(name)) << name.toStdString();
    }
}

TEST_F(PulledListTest, A_short_list_is_as_high_as_its_rows) {
    auto& incidents = dynamic_cast<forms::TDBCombo&>(*shell().find("dbcIncident(0)"));
    act([&](forms::User& user) { return user.open(incidents, true); });
    auto& list = *window().findChild<QWidget*>(QStringLiteral("dbcIncident_0"))->findChild<QTableView*>();
    const int rows = list.model()->rowCount() * list.verticalHeader()->defaultSectionSize();
    ASSERT_EQ(list.model()->rowCount(), 2);
    EXPECT_EQ(list.viewport()->height(), rows);
}

TEST_F(PulledListTest, A_text_that_is_left_is_shown_from_its_beginning) {
    act([&](forms::User& user) { return user.type(*combo, combo->Columns(0).cellText(3)); });
    act([&](forms::User& user) { return user.leave(*combo); });
    EXPECT_FALSE(combo->Text().empty());
    EXPECT_EQ(face("frmPersonnel", "dbcPersonnel").findChild<QLineEdit*>()->cursorPosition(), 0);
}

} // namespace
} // namespace zel::test
