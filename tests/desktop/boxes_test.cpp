// Boxes and modal forms, answered from the keyboard.
#include "core/frmConfirm.h"
#include "desktop/desktop_test.h"
#include "desktop/list_combo.h"
#include "forms/form_registry.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>

#include <fstream>

namespace zel::test {

namespace {

using forms::Answer;
using forms::Buttons;
using forms::Icon;

class Boxes : public DesktopTest {
protected:
    /// What is seen of the next message before the key answers it.
    struct Seen {
        QMessageBox::Icon icon{};
        QString text, title, defaultButton;
        QStringList buttons;
        bool picture = false;
    };
    Answer answer(Buttons buttons, Icon icon, int defaultButton, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        whenBoxOpens([&](QWidget& box) {
            look(dynamic_cast<QMessageBox&>(box));
            press(key, modifiers);
        });
        return session().dialogs.message("First line\r\n\tsecond", "ZEL: Question", buttons, icon, defaultButton);
    }
    /// What the confirmation dialogue answers to a key.
    int confirm(int defaultButton, bool overwrite, Qt::Key key) {
        const forms::FormRegistry::Action action(session().forms); // a dialogue is asked from inside one
        whenBoxOpens([this, key](QWidget&) { press(key); });
        return core::ConfirmDialog(session(), "Confirm", "Overlapping hours", "Overwrite?", core::ConfirmIcon::Question,
                                   defaultButton, overwrite, false);
    }
    Seen seen;

private:
    void look(const QMessageBox& box) {
        seen = {box.icon(), box.text(), box.windowTitle(), box.defaultButton()->text(), {}, false};
        QList<const QPushButton*> buttons;
        for (const QPushButton* button : box.findChildren<QPushButton*>())
            buttons << button;
        std::sort(buttons.begin(), buttons.end(),
                  [](const QPushButton* a, const QPushButton* b) { return a->x() < b->x(); });
        for (const QPushButton* button : buttons)
            seen.buttons << button->text();
        seen.picture = !box.iconPixmap().isNull();
    }
};

} // namespace

TEST_F(Boxes, EachIconIsShownAndTheTextKeepsLinesAndTabs) {
    const std::pair<Icon, QMessageBox::Icon> icons[] = {{Icon::None, QMessageBox::NoIcon},
                                                        {Icon::Critical, QMessageBox::Critical},
                                                        {Icon::Question, QMessageBox::Question},
                                                        {Icon::Exclamation, QMessageBox::Warning},
                                                        {Icon::Information, QMessageBox::Information}};
    for (const auto& [icon, shown] : icons) {
        EXPECT_EQ(answer(Buttons::OK, icon, 1, Qt::Key_Return), Answer::OK);
        EXPECT_EQ(seen.icon, shown);
        EXPECT_EQ(seen.picture, icon != Icon::None);
        EXPECT_EQ(seen.title, QStringLiteral("ZEL: Question"));
        EXPECT_EQ(seen.text,
                  QStringLiteral("First line\n") + QString(8, QChar(QChar::Nbsp)) + QStringLiteral("second"));
    }
}

TEST_F(Boxes, EnterTakesTheDefaultWhicheverItIs) {
    EXPECT_EQ(answer(Buttons::YesNo, Icon::Question, 1, Qt::Key_Return), Answer::Yes);
    EXPECT_EQ(answer(Buttons::YesNo, Icon::Question, 2, Qt::Key_Return), Answer::No);
    EXPECT_EQ(seen.defaultButton, QStringLiteral("&No"));
    EXPECT_EQ(answer(Buttons::YesNoCancel, Icon::Question, 3, Qt::Key_Enter), Answer::Cancel);
    EXPECT_EQ(answer(Buttons::OKCancel, Icon::None, 2, Qt::Key_Return), Answer::Cancel);
}

TEST_F(Boxes, ButtonsStandInTheirOrder) {
    (void)answer(Buttons::YesNoCancel, Icon::Question, 1, Qt::Key_Return);
    EXPECT_EQ(seen.buttons.join(QLatin1Char('|')), QStringLiteral("&Yes|&No|Cancel"));
    (void)answer(Buttons::OKCancel, Icon::Question, 1, Qt::Key_Return);
    EXPECT_EQ(seen.buttons.join(QLatin1Char('|')), QStringLiteral("OK|Cancel"));
}

TEST_F(Boxes, EscapeIsCancelOrTheOnlyButtonAndElseNothing) {
    EXPECT_EQ(answer(Buttons::OKCancel, Icon::None, 1, Qt::Key_Escape), Answer::Cancel);
    EXPECT_EQ(answer(Buttons::YesNoCancel, Icon::None, 1, Qt::Key_Escape), Answer::Cancel);
    EXPECT_EQ(answer(Buttons::OK, Icon::None, 1, Qt::Key_Escape), Answer::OK);
    whenBoxOpens([this](QWidget& box) {
        press(Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        press(Qt::Key_N, Qt::AltModifier);
    });
    EXPECT_EQ(session().dialogs.message("Sure?", "ZEL", Buttons::YesNo), Answer::No);
}

TEST_F(Boxes, ArrowsAndLettersChooseAButton) {
    EXPECT_EQ(answer(Buttons::YesNo, Icon::Question, 1, Qt::Key_N, Qt::AltModifier), Answer::No);
    whenBoxOpens([this](QWidget&) {
        press(Qt::Key_Right);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(session().dialogs.message("Sure?", "ZEL", Buttons::YesNo), Answer::No);
}

TEST_F(Boxes, AnInputBoxOffersItsTextAndTakesAnother) {
    QString offered, prompt;
    whenBoxOpens([&](QWidget& box) {
        auto& input = dynamic_cast<QInputDialog&>(box);
        offered = input.textValue();
        prompt = input.labelText();
        keyIn(QStringLiteral("18.20"));
        press(Qt::Key_Return);
    });
    EXPECT_EQ(session().dialogs.input({"Enter the rate.\r\n(ie 18.20)", "ZEL:AD-5 Rate", "15.00"}), "18.20");
    EXPECT_EQ(offered, QStringLiteral("15.00"));
    EXPECT_EQ(prompt, QStringLiteral("Enter the rate.\n(ie 18.20)"));
}

TEST_F(Boxes, ACancelledInputBoxGivesNothing) {
    whenBoxOpens([this](QWidget&) { press(Qt::Key_Escape); });
    EXPECT_EQ(session().dialogs.input({"Enter the rate.", "ZEL", "15.00"}), "");
}

TEST_F(Boxes, AFileIsNamedByKeyboard) {
    const auto folder = std::filesystem::temp_directory_path();
    const auto file = folder / "zel-boxes-test.mdb";
    std::ofstream(file) << "stands for a database";
    forms::FileBox box;
    box.title = "Open";
    box.folder = folder.string();
    box.filter = "Databases (*.mdb)|*.mdb";
    QStringList filters;
    whenBoxOpens([&](QWidget& dialog) {
        filters = dynamic_cast<QFileDialog&>(dialog).nameFilters();
        keyIn(QStringLiteral("zel-boxes-test.mdb"));
        press(Qt::Key_Return);
    });
    EXPECT_EQ(session().dialogs.file(box), file.string());
    EXPECT_EQ(filters.join(QLatin1Char('|')), QStringLiteral("Databases (*.mdb)"));
    whenBoxOpens([this](QWidget&) { press(Qt::Key_Escape); });
    EXPECT_EQ(session().dialogs.file(box), "");
    std::filesystem::remove(file);
}

TEST_F(Boxes, TheConfirmationIsAnsweredByALetter) {
    EXPECT_EQ(confirm(0, false, Qt::Key_A), 1);
    EXPECT_EQ(session().vYNMS, 1);
}

TEST_F(Boxes, EnterPressesTheDefaultOfTheConfirmation) {
    EXPECT_EQ(confirm(2, false, Qt::Key_Return), 2);
}

TEST_F(Boxes, EnterPostsAnywayWhereThatIsTheDefault) {
    EXPECT_EQ(confirm(1, true, Qt::Key_Return), 1);
}

// Without an answer a posting goes beside the clashing ones: too much for a key pressed in doubt.
TEST_F(Boxes, EscapeDoesNotAnswerTheConfirmationButItsCrossDoes) {
    const forms::FormRegistry::Action action(session().forms);
    whenBoxOpens([this](QWidget& box) {
        press(Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        box.close();
    });
    EXPECT_EQ(core::ConfirmDialog(session(), "Confirm", "Overlapping hours", "Overwrite?", core::ConfirmIcon::Question,
                                  0, false, false),
              -1);
}

TEST_F(Boxes, TheConfirmationShowsItsIconSharpAtAnyScale) {
    QPixmap picture;
    whenBoxOpens([&](QWidget& box) {
        picture = box.findChild<QLabel*>(QStringLiteral("imgIcon"))->pixmap(Qt::ReturnByValue);
        press(Qt::Key_N);
    });
    (void)core::ConfirmDialog(session(), "Confirm", "Overlap", "Overwrite?", core::ConfirmIcon::Exclamation, 0, false,
                              true);
    EXPECT_FALSE(picture.isNull());
    EXPECT_GE(picture.width(), 32 * qApp->devicePixelRatio());
}

TEST_F(Boxes, APopUpMenuOfAGridIsOpenedAndChosenFromByKeys) {
    shell().OpenScreen("AdminOffice", true, 0);
    auto& table = face<QTableView>("frmAdminOffice", "dbgOffice");
    table.setFocus();
    table.selectionModel()->setCurrentIndex(table.model()->index(0, 0), QItemSelectionModel::NoUpdate);
    ASSERT_GT(table.model()->rowCount(), 2);
    QStringList entries;
    auto* watch = new QTimer(&window());
    QObject::connect(watch, &QTimer::timeout, watch, [&, watch] {
        auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        watch->stop();
        for (const QAction* action : menu->actions())
            entries << action->text();
        press(Qt::Key_L); // &Last
    });
    watch->start(1);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), table.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&table, &asked);
    EXPECT_TRUE(entries.contains(QStringLiteral("Add/Edit &Remarks"))) << entries.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(table.currentIndex().row(), table.model()->rowCount() - 1);
}

} // namespace zel::test
