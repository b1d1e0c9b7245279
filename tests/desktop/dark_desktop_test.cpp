#include "desktop/desktop_test.h"

#include "forms/tdb_combo.h"

#include <QTableView>

#include <algorithm>
#include <cmath>

namespace zel::test {
namespace {

double luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

/// 1 for the same colour, 21 for black on white; small text is readable from 4.5.
double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// The postings of a person with an invoice for the first week.
class DarkDesktopTest : public DesktopTest {
protected:
    DarkDesktopTest() {
        auto& incidents = dynamic_cast<forms::TDBCombo&>(*shell().find("dbcIncident(0)"));
        program().desk().act([&](forms::User& user) { return user.pick(incidents, "PINE HOLLOW COMPLEX"); });
        shell().OpenScreen("Post Time", true, 0);
        auto& people = dynamic_cast<forms::TDBCombo&>(*session().forms.loaded("frmPost")->find("dbcPersonnel"));
        program().desk().act([&](forms::User& user) { return user.pick(people, "16", "PID"); });
        table = &face<QTableView>("frmPost", "dbgPersonnelPost");
    }
    ~DarkDesktopTest() override { QApplication::setPalette(before); }
    [[nodiscard]] QColor color(int role) const { return table->model()->index(0, 0).data(role).value<QColor>(); }

    QPalette before = QApplication::palette();
    QTableView* table = nullptr;
};

TEST_F(DarkDesktopTest, A_locked_row_is_red_on_grey_that_can_be_read_and_does_not_glare) {
    QPalette dark(QColor(0x2b, 0x2e, 0x31));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x22));
    QApplication::setPalette(dark);
    const QColor back = color(Qt::BackgroundRole), text = color(Qt::ForegroundRole);
    EXPECT_LT(back.lightness(), 128);
    EXPECT_EQ(back.saturation(), 0);
    EXPECT_GT(text.red(), text.blue() + 64);
    EXPECT_GE(contrast(text, back), 4.5);
    EXPECT_GE(contrast(back, dark.color(QPalette::Base)), 1.5); // it stands out from the rows that are open
}

TEST_F(DarkDesktopTest, A_locked_row_can_be_read_on_a_light_desktop_as_well) {
    QPalette light(QColor(0xef, 0xef, 0xef));
    QApplication::setPalette(light);
    EXPECT_EQ(color(Qt::BackgroundRole).name(), QStringLiteral("#e0e0e0"));
    EXPECT_GE(contrast(color(Qt::ForegroundRole), color(Qt::BackgroundRole)), 4.5);
}

TEST_F(DarkDesktopTest, A_key_shown_as_a_text_stands_to_the_left_and_a_number_to_the_right) {
    const auto side = [this](const char* caption) {
        for (int column = 0; column < table->model()->columnCount(); ++column) {
            if (table->model()->headerData(column, Qt::Horizontal).toString() == QLatin1String(caption))
                return table->model()->index(0, column).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
        }
        return 0;
    };
    EXPECT_EQ(side("AccountingID"), Qt::AlignLeft);
    EXPECT_EQ(side("Rate"), Qt::AlignRight);
}

} // namespace
} // namespace zel::test
