#include "desktop/desktop_test.h"
#include "desktop/list_combo.h"
#include "forms/form_registry.h"
#include "incident/frmAdminOffice.h"
#include "incident/frmIncidents.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>

namespace zel::test {

namespace {

class Typing : public DesktopDataTest {
protected:
    incident::frmIncidents& incidents() {
        shell().OpenScreen("Incidents", true, 0);
        auto* form = session().forms.get<incident::frmIncidents>("frmIncidents");
        face<QTabWidget>("frmIncidents", "tabAE").setCurrentIndex(0);
        return *form;
    }
    QLineEdit& line(const char* name) { return face<QLineEdit>("frmIncidents", name); }
};

} // namespace

ZEL_ON_BOTH_ENGINES(Typing);

TEST_P(Typing, DigitsFillAMaskedDateAroundItsLiterals) {
    incidents();
    QLineEdit& date = line("mskIncident_20");
    date.setFocus();
    EXPECT_EQ(date.text(), QStringLiteral("__/__/____"));
    QTest::keyClicks(&date, QStringLiteral("07042005"));
    EXPECT_EQ(date.text(), QStringLiteral("07/04/2005"));
}

TEST_P(Typing, LettersHaveNoPlaceInAMaskedDate) {
    incidents();
    QLineEdit& date = line("mskIncident_20");
    date.setFocus();
    QTest::keyClicks(&date, QStringLiteral("0x7"));
    EXPECT_EQ(date.text(), QStringLiteral("07/__/____"));
    QTest::keyClick(&date, Qt::Key_Backspace);
    EXPECT_EQ(date.text(), QStringLiteral("0_/__/____"));
}

TEST_P(Typing, APastedDateIsLaidOverTheMask) {
    auto& form = incidents();
    QLineEdit& date = line("mskIncident_20");
    date.setFocus();
    QGuiApplication::clipboard()->setText(QStringLiteral("07042005"));
    QTest::keySequence(&date, QKeySequence::Paste);
    EXPECT_EQ(form.mskIncident(20).Text(), "07/04/2005");
    EXPECT_EQ(date.text(), QStringLiteral("07/04/2005"));
}

TEST_P(Typing, TabLeavesTheFieldAndItsTextBecomesUpperCase) {
    auto& form = incidents();
    QLineEdit& name = line("mskIncident_0");
    name.setFocus();
    QTest::keyClicks(&name, QStringLiteral("Bear Creek"));
    EXPECT_EQ(name.text(), QStringLiteral("Bear Creek"));
    QTest::keyClick(&name, Qt::Key_Tab);
    EXPECT_EQ(name.text(), QStringLiteral("BEAR CREEK"));
    EXPECT_EQ(form.ActiveControl(), &form.mskIncident(1));
    EXPECT_TRUE(line("mskIncident_1").hasFocus());
}

TEST_P(Typing, TypeAheadCompletesTheStateAndMarksTheRest) {
    auto& form = incidents();
    auto& state = face<desktop::ListCombo>("frmIncidents", "dbcState_0");
    state.lineEdit()->setFocus();
    QTest::keyClicks(state.lineEdit(), QStringLiteral("o"));
    EXPECT_EQ(state.lineEdit()->text().size(), 2);
    EXPECT_EQ(state.lineEdit()->selectedText().size(), 1);
    QTest::keyClick(state.lineEdit(), Qt::Key_R);
    EXPECT_EQ(state.lineEdit()->text().toUpper(), QStringLiteral("OR"));
    QTest::keyClick(state.lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(form.dbcState(0).BoundText(), "OR");
}

TEST_P(Typing, TheOtherIncidentBoxFollowsTheOneThatWasPickedFrom) {
    const std::int32_t before = session().gIncidentID;
    auto& number = face<desktop::ListCombo>("frmMain", "dbcIncident_1");
    auto& name = face<desktop::ListCombo>("frmMain", "dbcIncident_0");
    const QString oldName = name.currentText();
    shell().dbcIncident(1).setOpen(true);
    program().desk().act([this](forms::User& user) {
        return user.pickRow(shell().dbcIncident(1), shell().dbcIncident(1).SelectedItem() == 0 ? 1 : 0);
    });
    EXPECT_NE(session().gIncidentID, before);
    EXPECT_NE(name.currentText(), oldName);
    EXPECT_EQ(name.currentText().toStdString(), shell().dbcIncident(0).Text());
    EXPECT_EQ(number.currentText().toStdString(), shell().dbcIncident(1).Text());
}

TEST_P(Typing, TheExitQuestionIsAskedInTheSystemsWordsAndNoGoesOn) {
    QString text, title;
    whenBoxOpens([&](QWidget& box) {
        auto& question = dynamic_cast<QMessageBox&>(box);
        text = question.text();
        title = question.windowTitle();
        for (QAbstractButton* button : question.buttons()) {
            if (button->text() == QStringLiteral("&No"))
                button->click();
        }
    });
    program().desk().act([this](forms::User& user) { return user.toolbar(shell().tbMenu, "Exit"); });
    EXPECT_EQ(text, QStringLiteral("Do you wish to exit ZEL?"));
    EXPECT_EQ(title, QStringLiteral("ZEL"));
    EXPECT_FALSE(session().Ended());
}

TEST_P(Typing, AMessageIsAnsweredByKeyboardWithItsDefaultAndButtonsKeepTheirOrder) {
    QStringList buttons;
    whenBoxOpens([&](QWidget& box) {
        for (const QPushButton* button : box.findChildren<QPushButton*>())
            buttons << button->text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    const forms::Answer answer =
        session().dialogs.message("Overwrite?", "ZEL", forms::Buttons::YesNoCancel, forms::Icon::Question, 2);
    EXPECT_EQ(answer, forms::Answer::No);
    EXPECT_EQ(buttons.join(QLatin1Char('|')), QStringLiteral("&Yes|&No|Cancel"));
}

TEST_P(Typing, EscapeCancelsABoxThatHasACancel) {
    whenBoxOpens([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(session().dialogs.message("Sure?", "ZEL", forms::Buttons::OKCancel), forms::Answer::Cancel);
}

TEST_P(Typing, ManagingAllHidesTheSelectorAndSaysSo) {
    QString text;
    whenBoxOpens([&](QWidget& box) {
        text = dynamic_cast<QMessageBox&>(box).text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QTest::mouseClick(&face<QCheckBox>("frmMain", "chkManageAll"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(text.startsWith(QStringLiteral("Managing All Incidents as One...\n\nWhen adding")))
        << text.toStdString();
    EXPECT_TRUE(session().gManageAll);
    EXPECT_FALSE(face<desktop::ListCombo>("frmMain", "dbcIncident_0").isVisible());
    EXPECT_TRUE(face<QLabel>("frmMain", "decoManageAll").isVisible());
}

TEST_P(Typing, AClickOnAPageBringsItToTheFront) {
    auto& form = incidents();
    face<QTabWidget>("frmIncidents", "tabAE").setCurrentIndex(1);
    EXPECT_EQ(form.tabAE.CurrTab(), 1);
    EXPECT_TRUE(line("mskIncident_10").isVisible());
}

TEST_P(Typing, TheGridShowsTheRowsOfItsScreenAndFollowsTheCurrentOne) {
    shell().OpenScreen("AdminOffice", true, 0);
    auto* form = session().forms.get<incident::frmAdminOffice>("frmAdminOffice");
    auto& table = face<QTableView>("frmAdminOffice", "dbgOffice");
    ASSERT_GT(form->dbgOffice.rowCount(), 1);
    ASSERT_EQ(table.model()->rowCount(), form->dbgOffice.rowCount());
    EXPECT_EQ(table.model()->index(1, 0).data().toString().toStdString(), form->dbgOffice.cellText(1, 0));
    table.setCurrentIndex(table.model()->index(1, 0));
    EXPECT_EQ(form->dbgOffice.row(), 1);
    program().desk().act([form](forms::User& user) { return user.row(form->dbgOffice, 0); });
    EXPECT_EQ(table.currentIndex().row(), 0);
}

TEST_P(Typing, CtrlPPrintsTheFormWhateverTheButtonIsCalled) {
    std::vector<int> printed;
    session().extensions.PrintReport = [&printed](int number, const std::string&) { printed.push_back(number); };
    const auto press = [this](int page, const char* field) {
        shell().OpenScreen("Post Time", true, page); // the caption of the button is the page's
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        QTest::keyClick(&face("frmPost", field), Qt::Key_P, Qt::ControlModifier);
    };
    press(0, "mskPost_0");
    EXPECT_TRUE(QTest::qWaitFor([&printed] { return printed == std::vector<int>{6}; })); // the button goes down and up
    press(2, "dbcContractor");
    EXPECT_TRUE(QTest::qWaitFor([&printed] { return printed == std::vector<int>{6, 7}; }));
}

} // namespace zel::test
