#pragma once

#include "desktop/desk.h"
#include "forms/control.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

namespace zel::desktop {

/// Ties a widget to its control: draws what the control holds and turns what is done to the widget into the clerk's
/// actions. What all controls have in common is here.
class ControlView : public QObject {
public:
    ControlView(forms::Control& control, QWidget& widget, Desk& desk);

    /// The control goes away; the widget stays until Qt takes it.
    virtual void detach();
    void drawAll();
    /// The control's record set may hold other rows now.
    virtual void settled() {}
    [[nodiscard]] forms::Control* control() const noexcept { return control_; }
    [[nodiscard]] QWidget* widget() const noexcept { return widget_; }

protected:
    /// Draws one side of the control anew.
    virtual void draw(forms::Property property);
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// A key that the widget does not handle by itself. False: the widget takes it.
    virtual bool keyPressed(const QKeyEvent& event);
    /// What boxes of text have in common: plain characters and editing keys are the box's own, not the menus', and a
    /// composed character is typed. Nothing when the event is none of these.
    std::optional<bool> typed(QEvent& event);
    /// Sends what the widget does with mouse and keyboard to the control as well.
    void watch(QWidget& part);
    bool act(const std::function<forms::Outcome(forms::User&, forms::Control&)>& action);
    void rightClicked(const QPoint& place);
    /// Where the pop-up menu opens that a key asked for.
    [[nodiscard]] virtual QPoint menuPlace() const;
    [[nodiscard]] Desk& desk() const noexcept { return desk_; }

private:
    void drawLook();
    void takeFocus();

    forms::Control* control_;
    QPointer<QWidget> widget_;
    Desk& desk_;
    forms::Subscription subscription_;
};

/// The view that belongs to the kind of control; null for a control that the widget cannot show.
[[nodiscard]] std::unique_ptr<ControlView> makeView(forms::Control& control, QWidget& widget, Desk& desk);

/// The key as the controls name it; 0 for a key that is none of theirs.
[[nodiscard]] int keyOf(const QKeyEvent& event);
/// Whether the key is the screen's own in a list or a grid as well: it leaves the box, presses the default, or cancels.
[[nodiscard]] bool isScreenKey(const QKeyEvent& event);
/// A width in twips, which are meant for a small font, in pixels of the widget's font.
[[nodiscard]] int pixels(int twips, const QWidget& widget);
/// The name of the widget that shows the control: "cmdSave_0".
[[nodiscard]] QString widgetName(const forms::Control& control);
/// Whether the control has a face at all; timers, data controls and the like have none.
[[nodiscard]] bool hasFace(const forms::Control& control);
[[nodiscard]] QColor colorOf(int color);

} // namespace zel::desktop
