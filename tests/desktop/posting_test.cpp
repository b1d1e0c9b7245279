// A clerk keys in tickets, hands on the keyboard.
#include "desktop/desktop_test.h"
#include "forms/form_registry.h"
#include "posting/frmPost.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace zel::test {

namespace {

/// The posting screen, opened with its key, and what it takes to post.
class Posting : public DesktopDataTest {
protected:
    Posting() {
        press(Qt::Key_F6);
        screen_ = session().forms.get<posting::frmPost>("frmPost");
    }
    posting::frmPost& screen() { return *screen_; }

    /// The name under which type-ahead finds the person of this row; empty where a namesake stands before.
    std::string nameOf(std::int64_t row) {
        const std::string whole = screen().dbcPersonnel.listText(row);
        const std::string name = whole.substr(0, whole.find("   "));
        return screen().dbcPersonnel.findPrefix(name) == row ? name : std::string();
    }
    /// From the date box to the person and back to the date.
    void choose(const std::string& name) {
        while (focus() != "frmPost.dbcPersonnel")
            press(Qt::Key_Backtab, Qt::ShiftModifier);
        press(Qt::Key_A, Qt::ControlModifier);
        keyIn(QString::fromStdString(name));
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
        ASSERT_EQ(focus(), "frmPost.mskPost(0)");
    }
    void choosePerson(std::int32_t person) {
        choose(nameOf(screen().dbcPersonnel.findText(std::to_string(person), "PID")));
        ASSERT_EQ(screen().dbcPersonnel.BoundText(), std::to_string(person));
    }
    /// One ticket: the digits that stand on it, and how many other keys it took.
    int ticket(const char* date, const char* start, const char* stop) {
        keyIn(QLatin1String(date));
        press(Qt::Key_Tab);
        keyIn(QLatin1String(start));
        press(Qt::Key_Tab);
        keyIn(QLatin1String(stop));
        press(Qt::Key_Return);
        return 3;
    }
    std::vector<std::string> posted(std::int32_t person, const std::string& day) {
        return rows("select Hours, FinalCol from PersonsPost where PersonID = " + std::to_string(person) +
                    " and ActivityDT = '" + day + "' order by StartTime");
    }

private:
    posting::frmPost* screen_ = nullptr;
};

using Texts = std::vector<std::string>;

} // namespace

ZEL_ON_BOTH_ENGINES(Posting);

TEST_P(Posting, ATicketTakesItsDigitsAndNoMoreThanFourKeys) {
    choosePerson(3);
    EXPECT_LE(ticket("07252005", "0600", "2000"), 4);
    EXPECT_EQ(posted(3, "2005-07-25"), Texts{"14|0"});
    EXPECT_EQ(focus(), "frmPost.mskPost(0)");
    EXPECT_EQ(face<QLineEdit>("frmPost", "mskPost_0").text(), QStringLiteral("__/__/____"));
    EXPECT_EQ(screen().dbcPersonnel.BoundText(), "3");
    EXPECT_EQ(screen().dbgPersonnelPost.cellText(screen().dbgPersonnelPost.row(), 3), "07/25/2005");
}

TEST_P(Posting, TheNextTicketFollowsAtOnce) {
    choosePerson(3);
    ticket("07252005", "0600", "1800");
    ticket("07262005", "0600", "2030");
    EXPECT_EQ(posted(3, "2005-07-25"), Texts{"12|0"});
    EXPECT_EQ(posted(3, "2005-07-26"), Texts{"14.5|0"});
}

TEST_P(Posting, SixtyTicketsOfTwentyPeopleAreKeyedInWithoutTheMouse) {
    const auto before = rows("select count(*) from PersonsPost").front();
    int people = 0;
    for (std::int64_t row = 0; row < screen().dbcPersonnel.rowCount() && people < 20; ++row) {
        const std::string name = nameOf(row);
        if (name.empty() || screen().dbcPersonnel.fieldValue(row, "FedCode").isEmpty())
            continue;
        choose(name);
        for (const char* day : {"09012005", "09022005", "09032005"})
            EXPECT_LE(ticket(day, "0700", "1930"), 4) << name;
        ++people;
    }
    EXPECT_EQ(people, 20);
    EXPECT_EQ(rows("select count(*) from PersonsPost where ActivityDT >= '2005-09-01' and Hours = 12.5"), Texts{"60"});
    EXPECT_EQ(rows("select count(*) from PersonsPost where ActivityDT < '2005-09-01'").front(), before);
}

TEST_P(Posting, TheNumericPadIsEnoughForATicket) {
    choosePerson(3);
    screen().CkKeyPadEnterTab.setValue(forms::CheckBox::checked);
    keyIn(QStringLiteral("07252005"), Qt::KeypadModifier);
    keyIn(QStringLiteral("+"), Qt::KeypadModifier);
    EXPECT_EQ(screen().mskPost(0).Text(), "07/26/2005");
    press(Qt::Key_Tab);
    keyIn(QStringLiteral("0600"), Qt::KeypadModifier);
    keyIn(QStringLiteral("-"), Qt::KeypadModifier);
    EXPECT_EQ(screen().cboTime(0).Text(), "05:45");
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(focus(), "frmPost.cboTime(1)");
    keyIn(QStringLiteral("2000"), Qt::KeypadModifier);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(screen().mskPost(1).Text(), "14.25");
    EXPECT_EQ(focus(), "frmPost.cbPost(0)");
}

TEST_P(Posting, EnterPostsWhereItIsNotATab) {
    choosePerson(3);
    ASSERT_FALSE(screen().CkKeyPadEnterTab.isChecked());
    ticket("07252005", "2200", "2400");
    EXPECT_EQ(posted(3, "2005-07-25"), Texts{"2|0"});
}

TEST_P(Posting, AClashIsAnsweredWithALetter) {
    choosePerson(3);
    ticket("07252005", "0600", "1800");
    QStringList buttons;
    whenBoxOpens([&](QWidget& box) {
        for (const QPushButton* button : box.findChildren<QPushButton*>()) {
            if (button->isVisible())
                buttons << button->text();
        }
        keyIn(QStringLiteral("n"));
    });
    ticket("07252005", "1700", "2000");
    EXPECT_EQ(buttons.join(QLatin1Char('|')), QStringLiteral("&Yes|Yes to &All|&No|N&o to All"));
    EXPECT_EQ(posted(3, "2005-07-25"), Texts{"12|0"});
    EXPECT_EQ(screen().cboTime(0).Text(), "17:00");
}

TEST_P(Posting, ANightShiftAsksAndYesSplitsIt) {
    choosePerson(3);
    QString text;
    QMessageBox::Icon icon{};
    whenBoxOpens([&](QWidget& box) {
        auto& question = dynamic_cast<QMessageBox&>(box);
        text = question.text();
        icon = question.icon();
        press(Qt::Key_Y, Qt::AltModifier);
    });
    ticket("07262005", "2200", "0600");
    EXPECT_TRUE(text.startsWith(QStringLiteral("This post spans midnight."))) << text.toStdString();
    EXPECT_EQ(icon, QMessageBox::Question);
    EXPECT_EQ(posted(3, "2005-07-26"), Texts{"2|0"});
    EXPECT_EQ(posted(3, "2005-07-27"), Texts{"6|0"});
}

TEST_P(Posting, WhatIsMissingIsToldInOneBoxAndTheFieldsStay) {
    choosePerson(3);
    keyIn(QStringLiteral("07252005"));
    QString text;
    whenBoxOpens([&](QWidget& box) {
        text = dynamic_cast<QMessageBox&>(box).text();
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    EXPECT_EQ(text, QStringLiteral("Error(s) adding post:\nInvalid Start Time.\nYou must include a Start Time for "
                                   "posting.\nInvalid Stop Time.\nYou must include a Stop Time for posting.\nHours Not "
                                   "Calculated...Try Again."));
    EXPECT_EQ(screen().mskPost(0).Text(), "07/25/2005");
}

} // namespace zel::test
