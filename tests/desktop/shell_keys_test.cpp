// The shell from the keyboard: menus, screen buttons, the incident selector, pages, exit.
#include "desktop/desktop_test.h"
#include "desktop/list_combo.h"
#include "forms/form_registry.h"
#include "forms/vs_index_tab.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabWidget>

namespace zel::test {

namespace {

class ShellKeys : public DesktopDataTest {
protected:
    QMenu* menu(const char* name) { return window().menuBar()->findChild<QMenu*>(QString::fromLatin1(name)); }
    QString keysOf(const char* top, const char* entry) {
        for (const QAction* action : menu(top)->actions()) {
            if (action->objectName() == QLatin1String(entry))
                return action->shortcut().toString();
        }
        return QStringLiteral("no such entry");
    }
    std::string front() {
        const forms::Form* active = session().forms.ActiveForm();
        return active == nullptr ? std::string() : active->Name();
    }
    /// The other incident's text in one of the boxes, and its number among the incidents.
    std::pair<std::string, int> otherIncident(int box) {
        const int row = shell().dbcIncident(box).SelectedItem() == 0 ? 1 : 0;
        return {shell().dbcIncident(box).listText(row), ado::toLong(session().gIncidentList(row, 0))};
    }
};

} // namespace

ZEL_ON_BOTH_ENGINES(ShellKeys);

TEST_P(ShellKeys, MenusShowTheirKeys) {
    EXPECT_EQ(keysOf("mnuFile", "mnuFileRefresh"), QStringLiteral("F5"));
    EXPECT_EQ(keysOf("mnuFile", "mnuExit"), QStringLiteral("Ctrl+Q"));
    EXPECT_EQ(keysOf("mnuPers", "mnuPersInfo"), QStringLiteral("F3"));
    EXPECT_EQ(keysOf("mnuPost", "mnuPostPers"), QStringLiteral("F6"));
    EXPECT_EQ(keysOf("mnuContracts", "mnuResSearch"), QStringLiteral("Ctrl+F"));
    EXPECT_EQ(menu("mnuFile")->title(), QStringLiteral("&File"));
}

TEST_P(ShellKeys, KeysAndScreenButtonsOpenTheirScreens) {
    press(Qt::Key_F6);
    EXPECT_EQ(front(), "frmPost");
    press(Qt::Key_F3);
    EXPECT_EQ(front(), "frmPersonnel");
    press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(front(), "frmIncidents");
    press(Qt::Key_5, Qt::AltModifier);
    EXPECT_EQ(front(), "frmPost");
    EXPECT_TRUE(shell().optMenu(4).value());
    press(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(front(), "frmPersonnel");
}

TEST_P(ShellKeys, WhereNoScreenIsItSaysWhatToDo) {
    press(Qt::Key_F6);
    const auto* hint = window().findChild<QLabel*>(QStringLiteral("decoNoScreen"));
    EXPECT_FALSE(hint->isVisible());
    press(Qt::Key_3, Qt::AltModifier); // contracts, which have no screen
    EXPECT_EQ(front(), "");
    EXPECT_TRUE(hint->isVisible());
    press(Qt::Key_F3);
    EXPECT_FALSE(hint->isVisible());
}

TEST_P(ShellKeys, AMenuIsOpenedAndItsEntryChosenByLetters) {
    press(Qt::Key_I, Qt::AltModifier);
    ASSERT_EQ(QApplication::activePopupWidget(), menu("mnuIncident"));
    press(Qt::Key_A);
    EXPECT_EQ(front(), "frmIncidents");
}

TEST_P(ShellKeys, TheIncidentIsChangedByName) {
    press(Qt::Key_F6);
    const auto [name, number] = otherIncident(0);
    press(Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(focus(), "frmMain.dbcIncident(0)");
    press(Qt::Key_A, Qt::ControlModifier);
    keyIn(QString::fromStdString(name.substr(0, 3)));
    press(Qt::Key_Tab);
    EXPECT_EQ(session().gIncidentID, number);
    EXPECT_EQ(shell().dbcIncident(1).SelectedItem(), shell().dbcIncident(0).SelectedItem());
    EXPECT_EQ(face<desktop::ListCombo>("frmMain", "dbcIncident_1").currentText().toStdString(),
              shell().dbcIncident(1).Text());
    press(Qt::Key_L, Qt::ControlModifier);
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(focus().substr(0, 7), "frmPost");
}

TEST_P(ShellKeys, TheIncidentIsChangedByNumberFromThePulledDownList) {
    const auto [text, number] = otherIncident(1);
    const int now = static_cast<int>(shell().dbcIncident(1).SelectedItem());
    press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(focus(), "frmMain.dbcIncident(1)");
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(shell().dbcIncident(1).isOpen());
    press(now == 0 ? Qt::Key_Down : Qt::Key_Up);
    EXPECT_EQ(session().gIncidentID, number);
    EXPECT_EQ(shell().dbcIncident(1).Text(), text);
    EXPECT_EQ(shell().dbcIncident(0).SelectedItem(), shell().dbcIncident(1).SelectedItem());
}

TEST_P(ShellKeys, ControlTabGoesThroughThePagesThatCanBeUsed) {
    press(Qt::Key_F3);
    auto& pages = face<QTabWidget>("frmPersonnel", "tabAE");
    const int before = pages.currentIndex();
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_NE(pages.currentIndex(), before);
    const forms::Form* form = session().forms.loaded("frmPersonnel");
    EXPECT_EQ(dynamic_cast<forms::vsIndexTab&>(*form->find("tabAE")).CurrTab(), pages.currentIndex());
}

TEST_P(ShellKeys, APageThatIsLockedCannotBeEntered) {
    press(Qt::Key_F6);
    auto* form = session().forms.loaded("frmPost");
    auto& strip = dynamic_cast<forms::vsIndexTab&>(*form->find("tabPosting"));
    auto& pages = face<QTabWidget>("frmPost", "tabPosting");
    strip.setTabEnabled(1, false);
    EXPECT_FALSE(pages.isTabEnabled(1));
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(strip.CurrTab(), 2);
    EXPECT_EQ(pages.currentIndex(), 2);
}

TEST_P(ShellKeys, ExitIsAskedForAndNoStays) {
    QAction* exit = nullptr;
    for (QAction* action : window().findChildren<QAction*>()) {
        if (action->objectName() == QStringLiteral("decoToolExit"))
            exit = action;
    }
    ASSERT_NE(exit, nullptr);
    QString text;
    whenBoxOpens([&](QWidget& box) {
        text = dynamic_cast<QMessageBox&>(box).text();
        press(Qt::Key_N, Qt::AltModifier);
    });
    exit->trigger();
    EXPECT_EQ(text, QStringLiteral("Do you wish to exit ZEL?"));
    EXPECT_FALSE(session().Ended());
    whenBoxOpens([this](QWidget&) { press(Qt::Key_Return); });
    exit->trigger();
    EXPECT_TRUE(session().Ended());
}

TEST_P(ShellKeys, ControlQEndsTheProgram) {
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(session().Ended());
}

} // namespace zel::test
