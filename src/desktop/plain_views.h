#pragma once

#include "desktop/control_view.h"

class QAbstractButton;
class QLabel;
class QProgressBar;
class QTabWidget;

namespace zel::forms {
class Captioned;
class ProgressBar;
class vsIndexTab;
} // namespace zel::forms

namespace zel::desktop {

/// A label; a clerk may click it where the screen listens.
class LabelView final : public ControlView {
public:
    LabelView(forms::Captioned& label, QLabel& widget, Desk& desk);

protected:
    void draw(forms::Property property) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drawIcon();
    forms::Captioned& label_;
    QLabel& face_;
};

/// Command buttons, check boxes and option buttons.
class ButtonView final : public ControlView {
public:
    ButtonView(forms::Captioned& button, QAbstractButton& widget, Desk& desk);

protected:
    void draw(forms::Property property) override;

private:
    void clicked();
    forms::Captioned& button_;
    QAbstractButton& face_;
};

/// A group: a box with a headline, or a bare container.
class GroupView final : public ControlView {
public:
    GroupView(forms::Captioned& group, QWidget& widget, Desk& desk);

protected:
    void draw(forms::Property property) override;

private:
    forms::Captioned& group_;
};

class ProgressView final : public ControlView {
public:
    ProgressView(forms::ProgressBar& bar, QProgressBar& widget, Desk& desk);

protected:
    void draw(forms::Property property) override;

private:
    forms::ProgressBar& bar_;
    QProgressBar& face_;
};

/// A strip of pages; each page of the control is one of the widget, in the same order.
class TabView final : public ControlView {
public:
    TabView(forms::vsIndexTab& strip, QTabWidget& widget, Desk& desk);

protected:
    void draw(forms::Property property) override;

private:
    void pageChosen(int page);
    forms::vsIndexTab& strip_;
    QTabWidget& face_;
};

} // namespace zel::desktop
