#include "desktop/plain_views.h"

#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/progress_bar.h"
#include "forms/tab_order.h"
#include "forms/vs_index_tab.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>

#include <set>

namespace zel::desktop {

using forms::Property;

namespace {

void drawBold(const forms::Captioned& control, QWidget& widget) {
    QFont font = widget.font();
    if (font.bold() == control.FontBold())
        return;
    font.setBold(control.FontBold());
    widget.setFont(font);
}

} // namespace

LabelView::LabelView(forms::Captioned& label, QLabel& widget, Desk& desk)
    : ControlView(label, widget, desk), label_(label), face_(widget) {
    widget.setTextFormat(Qt::PlainText);
}

/// A label whose tag names an icon of the boxes shows that.
void LabelView::drawIcon() {
    static const std::set<std::string> icons{"critical", "exclamation", "question", "information"};
    if (icons.count(label_.Tag()) != 0)
        face_.setPixmap(boxPicture(toQt(label_.Tag()), face_));
}

void LabelView::draw(Property property) {
    ControlView::draw(property);
    if (property == Property::Visible && !label_.Tag().empty())
        drawIcon();
    if (property == Property::Caption) {
        QString caption = linesToQt(label_.Caption());
        // Only a label with a buddy reads the signs of access keys.
        if (face_.buddy() == nullptr)
            caption.replace(QStringLiteral("&&"), QStringLiteral("&"));
        face_.setText(caption);
    } else if (property == Property::Look && label_.FontBold()) {
        drawBold(label_, face_);
    }
}

bool LabelView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease && control() != nullptr && control()->Click &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        act([](forms::User& user, forms::Control& label) { return user.click(label); });
        return true;
    }
    return ControlView::eventFilter(watched, event);
}

ButtonView::ButtonView(forms::Captioned& button, QAbstractButton& widget, Desk& desk)
    : ControlView(button, widget, desk), button_(button), face_(widget) {
    // The control knows its group; the widget only shows it.
    widget.setAutoExclusive(false);
    if (auto* push = dynamic_cast<QPushButton*>(&widget))
        push->setAutoDefault(false);
    connect(&widget, &QAbstractButton::clicked, this, [this] { clicked(); });
}

void ButtonView::clicked() {
    const QPointer<ButtonView> self(this);
    act([](forms::User& user, forms::Control& button) { return user.click(button); });
    if (self != nullptr && control() != nullptr)
        draw(Property::Text); // the widget turned by itself, the control may not have
}

void ButtonView::draw(Property property) {
    ControlView::draw(property);
    if (property == Property::Caption) {
        QString caption = toQt(button_.Caption());
        const auto* option = dynamic_cast<const forms::OptionButton*>(&button_);
        if (option != nullptr && option->Graphical())
            caption.replace(QStringLiteral("/ "), QStringLiteral("/\n"))
                .replace(QStringLiteral(" && "), QStringLiteral("\n&& "));
        face_.setText(caption);
        if (const QString keys = face_.property("ownKeys").toString(); !keys.isEmpty())
            face_.setShortcut(QKeySequence(keys)); // a new text took the old one away
    } else if (property == Property::Text) {
        const QSignalBlocker quiet(face_);
        if (const auto* option = dynamic_cast<const forms::OptionButton*>(&button_))
            face_.setChecked(option->value());
        if (const auto* check = dynamic_cast<const forms::CheckBox*>(&button_)) {
            if (auto* box = dynamic_cast<QCheckBox*>(&face_)) {
                box->setTristate(check->value() == forms::CheckBox::greyed);
                box->setCheckState(static_cast<Qt::CheckState>(check->value() == forms::CheckBox::checked ? Qt::Checked
                                                               : check->value() == forms::CheckBox::greyed
                                                                   ? Qt::PartiallyChecked
                                                                   : Qt::Unchecked));
            }
        }
    } else if (property == Property::Look) {
        drawBold(button_, face_);
        const auto* command = dynamic_cast<const forms::CommandButton*>(&button_);
        if (auto* push = dynamic_cast<QPushButton*>(&face_); push != nullptr && command != nullptr)
            push->setDefault(command->Default());
    }
}

GroupView::GroupView(forms::Captioned& group, QWidget& widget, Desk& desk)
    : ControlView(group, widget, desk), group_(group) {}

void GroupView::draw(Property property) {
    ControlView::draw(property);
    if (property == Property::Caption) {
        if (auto* box = dynamic_cast<QGroupBox*>(widget()))
            box->setTitle(toQt(group_.Caption()));
    }
}

ProgressView::ProgressView(forms::ProgressBar& bar, QProgressBar& widget, Desk& desk)
    : ControlView(bar, widget, desk), bar_(bar), face_(widget) {}

void ProgressView::draw(Property property) {
    ControlView::draw(property);
    if (property != Property::Text)
        return;
    face_.setRange(bar_.Min(), bar_.Max());
    face_.setValue(bar_.value());
    face_.repaint(); // long work shows how far it is without turns of the loop
}

TabView::TabView(forms::vsIndexTab& strip, QTabWidget& widget, Desk& desk)
    : ControlView(strip, widget, desk), strip_(strip), face_(widget) {
    watch(*widget.tabBar());
    widget.setFocusProxy(widget.tabBar());
    connect(&widget, &QTabWidget::currentChanged, this, [this](int page) { pageChosen(page); });
}

void TabView::pageChosen(int page) {
    if (control() == nullptr || page == strip_.CurrTab())
        return;
    const QPointer<TabView> self(this);
    const bool stays = face_.tabBar()->hasFocus(); // the arrow keys lead on from tab to tab
    act([page, stays](forms::User& user, forms::Control& strip) {
        auto outcome = user.selectTab(strip, page);
        if (outcome && !stays)
            forms::focusFirstEntry(strip.form(), &strip);
        return outcome;
    });
    if (self != nullptr && control() != nullptr)
        draw(Property::Page);
}

void TabView::draw(Property property) {
    ControlView::draw(property);
    const QSignalBlocker quiet(face_);
    if (property == Property::Items || property == Property::Enabled) {
        for (int page = 0; page < strip_.NumTabs() && page < face_.count(); ++page) {
            face_.setTabText(page, toQt(strip_.TabCaption(page)));
            face_.setTabEnabled(page, strip_.TabEnabled(page));
            face_.setTabVisible(page, strip_.TabVisible(page));
        }
    }
    if (property == Property::Page || property == Property::Items)
        face_.setCurrentIndex(strip_.CurrTab());
}

} // namespace zel::desktop
