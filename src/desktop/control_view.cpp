#include "desktop/control_view.h"

#include "desktop/qt_text.h"
#include "forms/form.h"
#include "forms/form_registry.h"

#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTimer>

#include <map>

namespace zel::desktop {

using forms::Property;
namespace keys = forms::keys;

ControlView::ControlView(forms::Control& control, QWidget& widget, Desk& desk)
    : control_(&control), widget_(&widget), desk_(desk) {
    subscription_ = control.observe([this](Property property) {
        if (control_ != nullptr && widget_ != nullptr)
            draw(property);
    });
    watch(widget);
}

void ControlView::detach() {
    subscription_.end();
    control_ = nullptr;
}

void ControlView::watch(QWidget& part) {
    part.installEventFilter(this);
}

void ControlView::drawAll() {
    for (const Property property : {Property::Caption, Property::Columns, Property::Items, Property::Text,
                                    Property::Look, Property::Page, Property::Enabled, Property::Visible})
        draw(property);
}

void ControlView::draw(Property property) {
    if (property == Property::Visible)
        widget_->setVisible(control_->Visible());
    else if (property == Property::Enabled)
        widget_->setEnabled(control_->Enabled());
    else if (property == Property::Look)
        drawLook();
    else if (property == Property::Focus && control_->hasFocus() && !widget_->hasFocus())
        widget_->setFocus(Qt::OtherFocusReason);
}

void ControlView::drawLook() {
    widget_->setToolTip(toQt(control_->ToolTipText()));
    const int back = control_->BackColor();
    const int fore = control_->ForeColor();
    QPalette palette;
    if (back != forms::colors::automatic) {
        const QColor color = colorOf(back);
        palette.setColor(QPalette::Base, color);
        palette.setColor(QPalette::Window, color);
        // The desktop's own text colour may be light.
        const QColor text = color.lightness() > 127 ? Qt::black : Qt::white;
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::WindowText, text);
    }
    if (fore != forms::colors::automatic && fore != forms::colors::black) {
        palette.setColor(QPalette::Text, colorOf(fore));
        palette.setColor(QPalette::WindowText, colorOf(fore));
    }
    widget_->setPalette(palette);
}

bool ControlView::act(const std::function<forms::Outcome(forms::User&, forms::Control&)>& action) {
    if (control_ == nullptr)
        return false;
    return desk_.act([&](forms::User& user) { return action(user, *control_); });
}

void ControlView::takeFocus() {
    if (control_ == nullptr || !control_->canTakeFocus() || control_->hasFocus())
        return;
    const QPointer<ControlView> self(this);
    act([](forms::User& user, forms::Control& control) { return user.moveFocus(control); });
    if (self == nullptr || control_ == nullptr || control_->hasFocus())
        return;
    // The field left keeps the focus: it goes back once Qt has finished moving it.
    QTimer::singleShot(0, this, [this] {
        forms::Control* active = control_ == nullptr ? nullptr : control_->form().ActiveControl();
        if (active != nullptr && active != control_)
            active->notify(Property::Focus);
    });
}

QPoint ControlView::menuPlace() const {
    return widget_->mapToGlobal(widget_->rect().center());
}

void ControlView::rightClicked(const QPoint& place) {
    const QPointer<ControlView> self(this);
    act([](forms::User& user, forms::Control& control) { return user.rightClick(control); });
    if (self == nullptr || control_ == nullptr)
        return;
    if (forms::Menu* menu = desk_.session.forms.takePopup(); menu != nullptr && desk_.showPopup)
        desk_.showPopup(*menu, place);
}

bool ControlView::keyPressed(const QKeyEvent& event) {
    const int key = keyOf(event);
    if (key == 0)
        return false;
    act([key](forms::User& user, forms::Control& control) { return user.key(control, key); });
    return true;
}

bool ControlView::eventFilter(QObject* watched, QEvent* event) {
    if (control_ == nullptr)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::FocusIn:
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
            takeFocus();
        return false;
    case QEvent::KeyPress:
        return keyPressed(*static_cast<QKeyEvent*>(event));
    case QEvent::ContextMenu:
        if (!control_->RightClick && control_->typeName() != "TDBGrid")
            return false;
        rightClicked(static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard
                         ? menuPlace()
                         : static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        return false;
    }
}

std::optional<bool> ControlView::typed(QEvent& event) {
    if (event.type() == QEvent::ShortcutOverride) {
        if (keyOf(static_cast<QKeyEvent&>(event)) != 0)
            event.accept();
        return false;
    }
    if (event.type() != QEvent::InputMethod)
        return std::nullopt;
    const QString committed = static_cast<QInputMethodEvent&>(event).commitString();
    for (const uint character : committed.toUcs4())
        act([character](forms::User& user, forms::Control& box) { return user.key(box, static_cast<int>(character)); });
    return true;
}

bool isScreenKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

int keyOf(const QKeyEvent& event) {
    static const std::map<int, int> named{{Qt::Key_Backspace, keys::backspace},
                                          {Qt::Key_Tab, keys::tab},
                                          {Qt::Key_Backtab, keys::backTab},
                                          {Qt::Key_Return, keys::enter},
                                          {Qt::Key_Enter, keys::enter},
                                          {Qt::Key_Escape, keys::escape},
                                          {Qt::Key_Delete, keys::del},
                                          {Qt::Key_Left, keys::left},
                                          {Qt::Key_Right, keys::right},
                                          {Qt::Key_Up, keys::up},
                                          {Qt::Key_Down, keys::down},
                                          {Qt::Key_Home, keys::home},
                                          {Qt::Key_End, keys::end},
                                          {Qt::Key_PageUp, keys::pageUp},
                                          {Qt::Key_PageDown, keys::pageDown},
                                          {Qt::Key_F4, keys::f4}};
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
        return 0;
    if (const auto key = named.find(event.key()); key != named.end())
        return key->second;
    const auto characters = event.text().toUcs4();
    return characters.size() == 1 && characters.front() >= U' ' ? static_cast<int>(characters.front()) : 0;
}

int pixels(int twips, const QWidget& widget) {
    constexpr double twipsOfCharacter = 95;
    return static_cast<int>(twips / twipsOfCharacter * widget.fontMetrics().averageCharWidth());
}

QString widgetName(const forms::Control& control) {
    QString name = toQt(control.Name());
    if (control.Index() != forms::Control::noIndex)
        name += QLatin1Char('_') + QString::number(control.Index());
    return name;
}

bool hasFace(const forms::Control& control) {
    const auto type = control.typeName();
    return type != "Timer" && type != "CommonDialog" && type != "Adodc" && type != "TDBDropDown" && type != "Menu";
}

QColor colorOf(int color) {
    return {color & 255, color >> 8 & 255, color >> 16 & 255};
}

} // namespace zel::desktop
