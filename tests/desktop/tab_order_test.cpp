#include "desktop/control_view.h"
#include "desktop/desktop_test.h"
#include "desktop/ui_forms.h"
#include "forms/form_registry.h"
#include "forms/vs_index_tab.h"

#include <QTabBar>
#include <QTabWidget>

namespace zel::test {

namespace {

using TabOrder = DesktopTest;

QRect placeOf(const QWidget& widgets, const forms::Control& control) {
    const auto* face = widgets.findChild<QWidget*>(desktop::widgetName(control));
    return face == nullptr ? QRect() : QRect(face->mapTo(&widgets, QPoint(0, 0)), face->size());
}

/// Whether the eye goes back: to the left in one line, or up without moving on to a column further right.
bool goesBack(const QRect& from, const QRect& to) {
    const bool sameLine = to.top() <= from.center().y() && to.bottom() >= from.center().y();
    return sameLine ? to.left() < from.left() : to.bottom() < from.top() && to.left() < from.right();
}

/// What Tab does from the first stop to the last of the page in front, where it goes back.
std::string stepsBack(const forms::Form& form, const QWidget& widgets) {
    std::string steps;
    const forms::Control* first = form.tabStop(nullptr);
    for (const forms::Control* stop = first; stop != nullptr;) {
        const forms::Control* next = form.tabStop(stop);
        if (next == first || next == nullptr)
            break;
        if (goesBack(placeOf(widgets, *stop), placeOf(widgets, *next)))
            steps += form.Name() + ": " + stop->fullName() + " -> " + next->fullName() + "\n";
        stop = next;
    }
    return steps;
}

} // namespace

TEST_F(TabOrder, FollowsTheFieldsAsTheyStandOnEveryPage) {
    for (const QString& name : desktop::drawnForms()) {
        forms::Form* form = session().forms.load(name.toStdString());
        ASSERT_NE(form, nullptr);
        form->Show();
        form->tbFormOpen();
        const QWidget& widgets = *program().screens().viewOf(*form)->widget();
        QCoreApplication::processEvents();
        EXPECT_EQ(stepsBack(*form, widgets), "");
        for (forms::Control* control : form->controls()) {
            auto* strip = dynamic_cast<forms::vsIndexTab*>(control);
            for (int page = 0; strip != nullptr && page < strip->NumTabs(); ++page) {
                strip->setCurrTab(page);
                QCoreApplication::processEvents();
                EXPECT_EQ(stepsBack(*form, widgets), "") << "page " << page;
            }
        }
        if (name != QLatin1String("frmMain"))
            form->Hide();
    }
}

TEST_F(TabOrder, AnOpenedScreenHasTheFocusInItsFirstField) {
    for (const auto& [screen, form, field] :
         {std::tuple("Incidents", "frmIncidents", "mskIncident(10)"),
          std::tuple("Persons", "frmPersonnel", "mskCrew(0)"), std::tuple("Post Time", "frmPost", "dbcPersonnel")}) {
        shell().OpenScreen(screen, true, 0);
        const forms::Control* active = session().forms.loaded(form)->ActiveControl();
        ASSERT_NE(active, nullptr) << screen;
        EXPECT_EQ(active->fullName(), field);
        EXPECT_TRUE(face(form, desktop::widgetName(*active).toLatin1().constData()).hasFocus()) << field;
    }
}

TEST_F(TabOrder, AnotherPageIsEnteredAtItsFirstFieldUnlessTheTabsHaveTheFocus) {
    shell().OpenScreen("Incidents", true, 0);
    forms::Form& form = *session().forms.loaded("frmIncidents");
    auto& strip = face<QTabWidget>("frmIncidents", "tabAE");
    QTest::keyClick(&face("frmIncidents", "mskIncident_10"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(strip.currentIndex(), 0);
    EXPECT_EQ(form.ActiveControl()->fullName(), "mskIncident(0)");
    strip.tabBar()->setFocus();
    QTest::keyClick(strip.tabBar(), Qt::Key_Right);
    EXPECT_EQ(strip.currentIndex(), 1);
    EXPECT_EQ(form.ActiveControl()->fullName(), "tabAE");
}

} // namespace zel::test
