#pragma once

#include "desktop/desk.h"
#include "forms/observers.h"

#include <QString>

#include <functional>
#include <vector>

class QKeySequence;
class QMainWindow;
class QMenu;
class QPoint;
class QStackedWidget;
class QWidget;

namespace zel::core {
class frmMain;
} // namespace zel::core

namespace zel::forms {
class Menu;
} // namespace zel::forms

namespace zel::desktop {

/// What of the shell is not a plain control: menu bar, toolbar, icons, and the place where the screens stand.
class ShellView {
public:
    ShellView(core::frmMain& shell, QMainWindow& window, Desk& desk);

    [[nodiscard]] QMainWindow& window() const noexcept { return window_; }
    /// Puts a screen into the middle, its title above it; gives what was put there.
    QWidget* addScreen(QWidget& widgets, const QString& title);
    void showScreen(QWidget& page);
    /// The page of a screen that is no longer there; behind the last one stands what to do next.
    void removeScreen(QWidget& page);
    void popup(forms::Menu& menu, const QPoint& place);
    /// Gives the focus back to the screen in front.
    std::function<void()> toScreen;

private:
    void makeMenus();
    void makeSelectorKeys();
    void onKeys(const QKeySequence& keys, const std::function<void()>& action);
    void toSelector(int box);
    void makeToolbar();
    void markButtons();
    void watchManageAll();
    void fill(QMenu& menu, const forms::Menu& entries);
    void choose(forms::Menu& entry);

    core::frmMain& shell_;
    QMainWindow& window_;
    Desk& desk_;
    QStackedWidget* screens_;
    std::vector<forms::Subscription> subscriptions_;
};

} // namespace zel::desktop
