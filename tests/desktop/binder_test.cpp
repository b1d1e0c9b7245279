#include "desktop/desktop_test.h"
#include "desktop/ui_forms.h"
#include "forms/form_registry.h"
#include "forms/label.h"

#include <QLabel>

namespace zel::test {

namespace {

/// A form with a control that no widget shows.
class Unfaced final : public forms::Form {
public:
    explicit Unfaced(forms::FormRegistry& forms) : Form(forms, "frmUnfaced") {}
    forms::Label lblSeen{*this, "lblSeen", "&Seen && drawn"};
    forms::Label lblForgotten{*this, "lblForgotten", "Forgotten"};
};

class Binder : public DesktopDataTest {};

} // namespace

ZEL_ON_BOTH_ENGINES(Binder);

TEST_P(Binder, EveryControlOfEveryScreenHasAWidgetAndEveryWidgetAControl) {
    for (const QString& name : desktop::drawnForms()) {
        forms::Form* form = session().forms.load(name.toStdString());
        ASSERT_NE(form, nullptr) << name.toStdString();
        const desktop::FormView* view = program().screens().viewOf(*form);
        ASSERT_NE(view, nullptr) << name.toStdString();
        EXPECT_EQ(view->strays().join(QStringLiteral(", ")).toStdString(), "") << name.toStdString();
    }
}

TEST_P(Binder, AControlWithoutWidgetAndAWidgetWithoutControlAreTold) {
    Unfaced form(session().forms);
    auto* widgets = new QWidget;
    (new QLabel(widgets))->setObjectName(QStringLiteral("lblSeen"));
    (new QLabel(widgets))->setObjectName(QStringLiteral("lblStranger"));
    (new QLabel(widgets))->setObjectName(QStringLiteral("decoLine"));
    desktop::FormView view(form, widgets, program().desk());
    EXPECT_EQ(view.strays().join(QStringLiteral(", ")).toStdString(),
              "lblForgotten has no widget, lblStranger has no control");
    view.detach();
}

TEST_P(Binder, AWidgetOfTheWrongKindDoesNotShowItsControl) {
    Unfaced form(session().forms);
    auto* widgets = new QWidget;
    (new QWidget(widgets))->setObjectName(QStringLiteral("lblSeen"));
    desktop::FormView view(form, widgets, program().desk());
    EXPECT_TRUE(view.strays().contains(QStringLiteral("lblSeen has no widget")));
    view.detach();
}

} // namespace zel::test
