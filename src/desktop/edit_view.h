#pragma once

#include "desktop/control_view.h"

class QLineEdit;
class QLabel;

namespace zel::forms {
class TextEdit;
} // namespace zel::forms

namespace zel::desktop {

class ListCombo;
class ListPopup;

/// Text boxes, masked boxes and combos: the widget shows what the control holds, every key goes to the control first.
class EditView final : public ControlView {
public:
    EditView(forms::TextEdit& box, QLineEdit& widget, Desk& desk);
    EditView(forms::TextEdit& box, ListCombo& widget, Desk& desk);
    ~EditView() override;

    void detach() override;

protected:
    void draw(forms::Property property) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(const QKeyEvent& event) override;

private:
    void connectLine();
    void drawText();
    void drawSelection();
    void drawOpen();
    void takeSelection();
    bool edit(const QKeyEvent& event);
    void paste(const QString& text);
    [[nodiscard]] bool canPullDown() const;

    forms::TextEdit& box_;
    QLineEdit& line_;
    ListCombo* combo_ = nullptr;
    QPointer<ListPopup> popup_; // the combo takes it along when it goes first
    bool drawing_ = false;
};

} // namespace zel::desktop
