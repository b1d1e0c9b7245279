#include "desktop/form_view.h"

#include "desktop/qt_text.h"

#include <QTabBar>
#include <QToolBar>

#include <set>

namespace zel::desktop {

namespace {

/// Names of widgets that only hold others or decorate begin so.
bool isDecoration(const QString& name) {
    return name.isEmpty() || name.startsWith(QLatin1String("deco")) || name.startsWith(QLatin1String("qt_"));
}

} // namespace

FormView::FormView(forms::Form& form, QWidget* widget, Desk& desk) : form_(&form), widget_(widget) {
    bind(*widget, desk);
}

FormView::~FormView() {
    views_.clear();
    delete widget_;
}

void FormView::bind(QWidget& root, Desk& desk) {
    std::set<QString> bound;
    for (forms::Control* control : form_->controls()) {
        if (!hasFace(*control))
            continue;
        const QString name = widgetName(*control);
        bound.insert(name);
        auto* face = root.findChild<QWidget*>(name);
        if (face != nullptr && control->typeName() == "Toolbar" && dynamic_cast<QToolBar*>(face) != nullptr)
            continue; // the shell's own, see ShellView
        auto view = face == nullptr ? nullptr : makeView(*control, *face, desk);
        if (view == nullptr) {
            strays_ << toQt(control->fullName()) + QStringLiteral(" has no widget");
            continue;
        }
        view->drawAll();
        views_.push_back(std::move(view));
    }
    for (const auto* child : root.findChildren<QWidget*>()) {
        const QString name = child->objectName();
        const bool ofQt = dynamic_cast<const QTabBar*>(child->parent()) != nullptr; // its scroll buttons
        if (!ofQt && !isDecoration(name) && bound.count(name) == 0)
            strays_ << name + QStringLiteral(" has no control");
    }
}

void FormView::detach() {
    for (const auto& view : views_)
        view->detach();
    form_ = nullptr;
}

void FormView::settled() {
    for (const auto& view : views_)
        view->settled();
}

void FormView::drawAll() {
    for (const auto& view : views_)
        view->drawAll();
}

void FormView::drawFocus() {
    if (form_ == nullptr)
        return;
    if (forms::Control* active = form_->ActiveControl())
        active->notify(forms::Property::Focus);
}

} // namespace zel::desktop
