#include "desktop/shell_view.h"

#include "core/frmMain.h"
#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "forms/menu.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <map>

namespace zel::desktop {

namespace {

/// Keys of the entries that clerks use all day; F-keys and standard keys, shown in the menus.
QKeySequence shortcutOf(const std::string& entry) {
    static const std::map<std::string, QKeySequence> keys{
        {"mnuDataPath", QKeySequence(Qt::CTRL | Qt::Key_O)},
        {"mnuFileRefresh", QKeySequence(Qt::Key_F5)},
        {"mnuPrintSetup", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)},
        {"mnuResSearch", QKeySequence(Qt::CTRL | Qt::Key_F)},
        {"mnuExit", QKeySequence(Qt::CTRL | Qt::Key_Q)},
        {"mnuPostPers", QKeySequence(Qt::Key_F6)},
        {"mnuPostCrews", QKeySequence(Qt::Key_F7)},
        {"mnuPostEq", QKeySequence(Qt::Key_F8)},
        {"mnuIncidentAE", QKeySequence(Qt::CTRL | Qt::Key_I)},
        {"mnuPersInfo", QKeySequence(Qt::Key_F3)},
        {"mnuHelpAbout", QKeySequence(Qt::Key_F1)}};
    const auto found = keys.find(entry);
    return found == keys.end() ? QKeySequence() : found->second;
}

const std::map<std::string, QKeySequence>& toolbarKeys() {
    static const std::map<std::string, QKeySequence> keys{{"Save", QKeySequence(Qt::CTRL | Qt::Key_S)},
                                                          {"Delete", QKeySequence(Qt::CTRL | Qt::Key_D)}};
    return keys;
}

constexpr const char* screenIcons[] = {"personnel", "crews",  "contracts",   "debits",
                                       "post-time", "search", "search-equip"};

} // namespace

ShellView::ShellView(core::frmMain& shell, QMainWindow& window, Desk& desk)
    : shell_(shell), window_(window), desk_(desk),
      screens_(window.findChild<QStackedWidget*>(QStringLiteral("decoScreens"))) {
    makeMenus();
    makeToolbar();
    markButtons();
    makeSelectorKeys();
    watchManageAll();
}

void ShellView::choose(forms::Menu& entry) {
    desk_.act([&entry](forms::User& user) { return user.choose(entry); });
}

void ShellView::makeMenus() {
    for (forms::Control* control : shell_.controls()) {
        auto* menu = dynamic_cast<forms::Menu*>(control);
        if (menu == nullptr || menu->parent() != nullptr || !menu->Visible())
            continue;
        QMenu* top = window_.menuBar()->addMenu(toQt(menu->Caption()));
        top->setObjectName(toQt(menu->Name()));
        fill(*top, *menu);
        // Checks and locks may have changed since the menu was last open.
        QObject::connect(top, &QMenu::aboutToShow, top, [this, top] {
            for (QAction* action : top->actions()) {
                if (const auto* entry = dynamic_cast<forms::Menu*>(shell_.find(fromQt(action->objectName())))) {
                    action->setEnabled(entry->Enabled());
                    action->setVisible(entry->Visible());
                    action->setCheckable(entry->Checked());
                    action->setChecked(entry->Checked());
                }
            }
        });
    }
}

void ShellView::fill(QMenu& menu, const forms::Menu& entries) {
    for (forms::Menu* entry : entries.entries()) {
        if (entry->isSeparator()) {
            menu.addSeparator();
            continue;
        }
        if (!entry->entries().empty()) {
            fill(*menu.addMenu(toQt(entry->Caption())), *entry);
            continue;
        }
        if (entry->Caption().empty())
            continue;
        QAction* action = menu.addAction(toQt(entry->Caption()));
        action->setObjectName(toQt(entry->fullName()));
        action->setEnabled(entry->Enabled());
        action->setVisible(entry->Visible());
        action->setShortcut(entry->Shortcut().empty() ? shortcutOf(entry->Name())
                                                      : QKeySequence(toQt(entry->Shortcut())));
        QObject::connect(action, &QAction::triggered, &menu, [this, entry] { choose(*entry); });
    }
}

void ShellView::makeToolbar() {
    auto* bar = window_.findChild<QToolBar*>(QStringLiteral("tbMenu"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const forms::Toolbar::Button& button : shell_.tbMenu.Buttons()) {
        const std::string key = button.key;
        QAction* action = bar->addAction(themeIcon(toQt(key).toLower()), toQt(button.caption));
        action->setToolTip(toQt(button.toolTip));
        action->setObjectName(QStringLiteral("decoTool") + toQt(key));
        if (const auto keys = toolbarKeys().find(key); keys != toolbarKeys().end()) {
            action->setShortcut(keys->second);
            action->setToolTip(toQt(button.toolTip) + QStringLiteral(" (%1)").arg(keys->second.toString()));
        }
        QObject::connect(action, &QAction::triggered, bar, [this, key] {
            desk_.act([this, &key](forms::User& user) { return user.toolbar(shell_.tbMenu, key); });
        });
    }
}

void ShellView::markButtons() {
    const int icon = 2 * window_.fontMetrics().height();
    for (int index = 0; index < shell_.optMenu.Count(); ++index) {
        auto* button = window_.findChild<QToolButton*>(QStringLiteral("optMenu_%1").arg(index));
        button->setIcon(themeIcon(QLatin1String(screenIcons[index])));
        button->setIconSize({icon, icon});
        button->setCheckable(true);
        const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + index));
        button->setToolTip(keys.toString(QKeySequence::NativeText));
        onKeys(keys, [this, index] {
            desk_.act([this, index](forms::User& user) { return user.click(shell_.optMenu(index)); });
        });
    }
}

void ShellView::onKeys(const QKeySequence& keys, const std::function<void()>& action) {
    auto* shortcut = new QShortcut(keys, &window_);
    QObject::connect(shortcut, &QShortcut::activated, &window_, action);
}

/// The selector is out of the way of the screens' tab order; keys go there and back.
void ShellView::makeSelectorKeys() {
    for (const int box : {0, 1}) {
        const QKeySequence keys(box == 0 ? QKeySequence(Qt::CTRL | Qt::Key_L)
                                         : QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
        window_.findChild<QWidget*>(QStringLiteral("dbcIncident_%1").arg(box))
            ->setToolTip(keys.toString(QKeySequence::NativeText));
        onKeys(keys, [this, box] { toSelector(box); });
    }
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_M),
           [this] { desk_.act([this](forms::User& user) { return user.click(shell_.chkManageAll); }); });
}

void ShellView::toSelector(int box) {
    auto* selector = window_.findChild<QWidget*>(QStringLiteral("dbcIncident_%1").arg(box));
    if (selector->hasFocus() && toScreen)
        toScreen();
    else
        selector->setFocus(Qt::ShortcutFocusReason);
}

/// The strip that says so while all incidents are managed as one.
void ShellView::watchManageAll() {
    auto* strip = window_.findChild<QLabel*>(QStringLiteral("decoManageAll"));
    QPalette palette = strip->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::HighlightedText));
    palette.setColor(QPalette::Window, palette.color(QPalette::Highlight));
    strip->setPalette(palette);
    strip->setAutoFillBackground(true);
    strip->setVisible(shell_.chkManageAll.isChecked());
    subscriptions_.push_back(shell_.chkManageAll.observe(
        [this, strip](forms::Property) { strip->setVisible(shell_.chkManageAll.isChecked()); }));
}

QWidget* ShellView::addScreen(QWidget& widgets, const QString& title) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(12, 8, 12, 8);
    auto* headline = new QLabel(title);
    headline->setObjectName(QStringLiteral("decoHeadline"));
    QFont font = headline->font();
    font.setPointSizeF(font.pointSizeF() * 1.25);
    font.setBold(true);
    headline->setFont(font);
    layout->addWidget(headline);
    layout->addWidget(&widgets, 1);
    screens_->addWidget(page);
    return page;
}

void ShellView::showScreen(QWidget& page) {
    screens_->setCurrentWidget(&page);
}

void ShellView::removeScreen(QWidget& page) {
    screens_->removeWidget(&page);
}

void ShellView::popup(forms::Menu& menu, const QPoint& place) {
    QMenu shown(&window_);
    fill(shown, menu);
    shown.exec(place);
}

} // namespace zel::desktop
