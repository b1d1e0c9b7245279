#pragma once

#include "desktop/control_view.h"
#include "forms/form.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>
#include <vector>

namespace zel::desktop {

/// The widgets of one loaded form, each tied to its control by name.
class FormView final : public QObject {
public:
    FormView(forms::Form& form, QWidget* widget, Desk& desk);
    ~FormView() override;

    /// The form is going; nothing of it is touched any more.
    void detach();
    void settled();
    void drawAll();
    [[nodiscard]] forms::Form* form() const noexcept { return form_; }
    /// What is shown: the widgets of the .ui file, or what they were put into.
    [[nodiscard]] QWidget* widget() const noexcept { return widget_; }
    void setWidget(QWidget* around) { widget_ = around; }
    /// Puts the focus where the form has it.
    void drawFocus();

    /// Controls without a widget that can show them, and named widgets without a control.
    [[nodiscard]] const QStringList& strays() const noexcept { return strays_; }

private:
    void bind(QWidget& root, Desk& desk);

    forms::Form* form_;
    QPointer<QWidget> widget_;
    std::vector<std::unique_ptr<ControlView>> views_;
    QStringList strays_;
};

} // namespace zel::desktop
