#pragma once

#include "desktop/form_view.h"
#include "desktop/shell_view.h"

#include <QObject>

#include <memory>
#include <vector>

namespace zel::desktop {

/// Gives each loaded form its widgets: the shell its window, the dialogs theirs, the screens the middle of the shell.
class Screens final : public QObject {
public:
    explicit Screens(Desk& desk);
    ~Screens() override;

    /// The window in front, for boxes to stand over; null while there is none.
    [[nodiscard]] QWidget* front() const;
    [[nodiscard]] FormView* viewOf(const forms::Form& form) const;
    [[nodiscard]] ShellView* shell() const noexcept { return shell_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Shown {
        std::unique_ptr<FormView> view;
        forms::Subscription subscription;
    };
    void loaded(forms::Form& form);
    void unloaded(forms::Form& form);
    void place(FormView& view);
    void draw(FormView& view, forms::Property property);
    void drawVisible(FormView& view);
    void drawActive();
    void drawHourglass();

    Desk& desk_;
    std::vector<Shown> shown_;
    std::unique_ptr<ShellView> shell_;
    bool hourglass_ = false;
};

} // namespace zel::desktop
