#include "desktop/screens.h"

#include "core/frmMain.h"
#include "core/screen.h"
#include "desktop/print_setup.h"
#include "desktop/qt_text.h"
#include "desktop/ui_forms.h"
#include "forms/form_registry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace zel::desktop {

using forms::Property;

namespace {

constexpr int iconSize = 48;

/// A window that is worked with beside the shell: it can be made as large as the screen.
void placeAside(QDialog& window) {
    constexpr int frame = 40;
    window.setWindowFlags(Qt::Window);
    window.resize(window.sizeHint().boundedTo(window.screen()->availableSize() - QSize(frame, frame)));
}

} // namespace

Screens::Screens(Desk& desk) : desk_(desk) {
    forms::FormRegistry& registry = desk_.session.forms;
    registry.formLoaded = [this](forms::Form& form) { loaded(form); };
    registry.formUnloaded = [this](forms::Form& form) { unloaded(form); };
    registry.hourglassChanged = [this] { drawHourglass(); };
    registry.activeFormChanged = [this] { drawActive(); };
    registry.settled = [this] {
        for (const Shown& shown : shown_)
            shown.view->settled();
    };
    connectPrintSetup(desk_, [this] { return front(); });
    desk_.showPopup = [this](forms::Menu& menu, const QPoint& place) {
        if (shell_)
            shell_->popup(menu, place);
    };
}

Screens::~Screens() {
    forms::FormRegistry& registry = desk_.session.forms;
    registry.formLoaded = registry.formUnloaded = nullptr;
    registry.hourglassChanged = registry.activeFormChanged = registry.settled = nullptr;
    // The shell's window holds the widgets of the screens.
    while (!shown_.empty()) {
        shown_.back().view->detach();
        shown_.pop_back();
    }
}

FormView* Screens::viewOf(const forms::Form& form) const {
    for (const Shown& shown : shown_) {
        if (shown.view->form() == &form)
            return shown.view.get();
    }
    return nullptr;
}

QWidget* Screens::front() const {
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return shell_ ? &shell_->window() : nullptr;
}

void Screens::loaded(forms::Form& form) {
    QWidget* widgets = makeWidgets(form.Name());
    if (widgets == nullptr)
        return;
    auto view = std::make_unique<FormView>(form, widgets, desk_);
    FormView& made = *view;
    shown_.push_back({std::move(view), form.observe([this, &made](Property property) { draw(made, property); })});
    place(made);
    drawVisible(made);
}

void Screens::place(FormView& view) {
    QWidget* widgets = view.widget();
    const QString title = toQt(view.form()->Caption());
    if (auto* shell = dynamic_cast<core::frmMain*>(view.form())) {
        auto* window = dynamic_cast<QMainWindow*>(widgets);
        window->setWindowTitle(title);
        window->installEventFilter(this);
        shell_ = std::make_unique<ShellView>(*shell, *window, desk_);
        shell_->toScreen = [this] {
            const forms::Form* active = desk_.session.forms.ActiveForm();
            if (FormView* screen = active == nullptr ? nullptr : viewOf(*active))
                screen->drawFocus();
        };
        return;
    }
    if (dynamic_cast<core::DialogWindow*>(view.form()) == nullptr && shell_) {
        view.setWidget(shell_->addScreen(*widgets, title));
        return;
    }
    auto* dialog = new QDialog(shell_ ? &shell_->window() : nullptr);
    dialog->setWindowTitle(title);
    auto* layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    layout->addWidget(widgets);
    dialog->installEventFilter(this);
    if (widgets->property("ownWindow").toBool())
        placeAside(*dialog);
    if (auto* icon = widgets->findChild<QLabel*>(QStringLiteral("decoIcon")))
        icon->setPixmap(QApplication::windowIcon().pixmap(iconSize));
    view.setWidget(dialog);
}

void Screens::unloaded(forms::Form& form) {
    const auto found =
        std::find_if(shown_.begin(), shown_.end(), [&form](const Shown& shown) { return shown.view->form() == &form; });
    if (found == shown_.end())
        return;
    if (dynamic_cast<core::frmMain*>(&form) != nullptr)
        shell_.reset();
    FormView* view = found->view.release();
    shown_.erase(found);
    view->detach();
    if (shell_)
        shell_->removeScreen(*view->widget());
    view->widget()->hide();
    view->deleteLater(); // one of its widgets may be telling of a click just now
}

void Screens::draw(FormView& view, Property property) {
    if (view.form() == nullptr)
        return;
    if (property == Property::Visible) {
        drawVisible(view);
    } else if (property == Property::Enabled) {
        view.widget()->setEnabled(view.form()->Enabled());
    } else if (property == Property::Caption) {
        view.widget()->setWindowTitle(toQt(view.form()->Caption()));
        if (auto* headline = view.widget()->findChild<QLabel*>(QStringLiteral("decoHeadline")))
            headline->setText(toQt(view.form()->Caption()));
    }
}

void Screens::drawVisible(FormView& view) {
    QWidget* widget = view.widget();
    const bool visible = view.form()->Visible();
    if (auto* dialog = dynamic_cast<QDialog*>(widget)) {
        const bool modal = desk_.session.forms.modalForm() == view.form();
        dialog->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
        dialog->setWindowFlag(Qt::WindowStaysOnTopHint, view.form()->TopMost());
        if (visible)
            view.drawAll(); // its icon may be another one than last time
        dialog->setVisible(visible);
        if (visible) {
            dialog->raise();
            dialog->activateWindow();
        }
    } else if (dynamic_cast<QMainWindow*>(widget) != nullptr) {
        if (visible && !widget->isVisible())
            widget->showMaximized();
        else
            widget->setVisible(visible);
    } else if (visible && shell_) {
        shell_->showScreen(*widget);
    }
    if (visible) {
        view.settled();
        view.drawFocus();
    }
}

void Screens::drawActive() {
    forms::Form* active = desk_.session.forms.ActiveForm();
    FormView* view = active == nullptr ? nullptr : viewOf(*active);
    if (view == nullptr || !shell_ || dynamic_cast<QDialog*>(view->widget()) != nullptr)
        return;
    shell_->showScreen(*view->widget());
    view->settled();
}

void Screens::drawHourglass() {
    const bool on = desk_.session.forms.Hourglass();
    if (on == hourglass_)
        return;
    hourglass_ = on;
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

bool Screens::eventFilter(QObject* watched, QEvent* event) {
    const bool escape = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (event->type() != QEvent::Close && !escape)
        return QObject::eventFilter(watched, event);
    for (const Shown& shown : shown_) {
        if (shown.view->widget() != watched || shown.view->form() == nullptr)
            continue;
        if (escape && dynamic_cast<QDialog*>(watched) == nullptr)
            return false;
        event->ignore(); // the form decides whether it closes
        forms::Form& form = *shown.view->form();
        desk_.act([&form](forms::User& user) { return user.close(form); });
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zel::desktop
