#pragma once

#include "forms/dialogs.h"

#include <functional>

class QWidget;

namespace zel::desktop {

/// The program's boxes as windows of the desktop.
class QtDialogs final : public forms::Dialogs {
public:
    /// The window that boxes stand over; may give null.
    std::function<QWidget*()> window;

protected:
    forms::Answer showMessage(const forms::MessageBox& box) override;
    std::string showInput(const forms::InputBox& box) override;
    std::string showFile(const forms::FileBox& box) override;
    void showModal(forms::Form& form) override;
    void waitForTurn() override;

private:
    [[nodiscard]] QWidget* parent() const { return window ? window() : nullptr; }
};

} // namespace zel::desktop
