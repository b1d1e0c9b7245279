#pragma once

#include "desktop/control_view.h"

class QPlainTextEdit;

namespace zel::forms {
class TextBox;
} // namespace zel::forms

namespace zel::desktop {

/// A text box of several lines. Enter begins a line, Tab goes on to the next field.
class MemoView final : public ControlView {
public:
    MemoView(forms::TextBox& box, QPlainTextEdit& widget, Desk& desk);

protected:
    void draw(forms::Property property) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(const QKeyEvent& event) override;

private:
    void drawText();
    void drawSelection();
    void takeSelection();
    bool edit(const QKeyEvent& event);

    forms::TextBox& box_;
    QPlainTextEdit& memo_;
    bool drawing_ = false;
};

} // namespace zel::desktop
