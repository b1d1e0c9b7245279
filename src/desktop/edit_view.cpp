#include "desktop/edit_view.h"

#include "desktop/list_combo.h"
#include "desktop/list_popup.h"
#include "desktop/qt_text.h"
#include "forms/combo_box.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"
#include "forms/text_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace zel::desktop {

using forms::Property;
namespace keys = forms::keys;

namespace {

bool isOpen(const forms::Control& combo) {
    if (const auto* bound = dynamic_cast<const forms::TDBCombo*>(&combo))
        return bound->isOpen();
    const auto* plain = dynamic_cast<const forms::ComboBox*>(&combo);
    return plain != nullptr && plain->isOpen();
}

/// While the focus is elsewhere a masked box shows its text formatted.
std::string shownText(const forms::TextEdit& box) {
    const auto* masked = dynamic_cast<const forms::MaskEdBox*>(&box);
    if (masked == nullptr)
        return box.Text();
    return masked->hasFocus() ? masked->shownText() : masked->FormattedText();
}

/// Positions of controls count characters, those of Qt half surrogate pairs.
int toUnits(const QString& text, int characters) {
    int units = 0;
    for (; characters > 0 && units < text.size(); --characters)
        units += text.at(units).isHighSurrogate() ? 2 : 1;
    return units;
}

int toCharacters(const QString& text, int units) {
    return static_cast<int>(text.left(units).toUcs4().size());
}

} // namespace

EditView::EditView(forms::TextEdit& box, QLineEdit& widget, Desk& desk)
    : ControlView(box, widget, desk), box_(box), line_(widget) {
    connectLine();
}

EditView::EditView(forms::TextEdit& box, ListCombo& widget, Desk& desk)
    : ControlView(box, widget, desk), box_(box), line_(*widget.lineEdit()), combo_(&widget) {
    watch(line_);
    widget.openAsked = [this] {
        act([](forms::User& user, forms::Control& combo) { return user.open(combo, !isOpen(combo)); });
    };
    popup_ = new ListPopup(box, widget, line_);
    popup_->picked = [this](int row) {
        act([row](forms::User& user, forms::Control& combo) { return user.pickRow(combo, row); });
    };
    popup_->closed = [this] {
        if (control() != nullptr && isOpen(*control()))
            act([](forms::User& user, forms::Control& combo) { return user.open(combo, false); });
    };
    connectLine();
}

EditView::~EditView() {
    delete popup_;
}

void EditView::connectLine() {
    line_.setDragEnabled(false);
    line_.setAcceptDrops(false);
    line_.setContextMenuPolicy(Qt::PreventContextMenu);
    connect(&line_, &QLineEdit::selectionChanged, this, [this] { takeSelection(); });
    connect(&line_, &QLineEdit::cursorPositionChanged, this, [this] { takeSelection(); });
    if (const auto* text = dynamic_cast<const forms::TextBox*>(&box_); text != nullptr && !text->PasswordChar().empty())
        line_.setEchoMode(QLineEdit::Password);
}

void EditView::detach() {
    if (popup_) {
        popup_->closed = nullptr;
        popup_->model().detach();
        popup_->hide();
    }
    ControlView::detach();
}

void EditView::draw(Property property) {
    if (property == Property::Focus) {
        if (box_.hasFocus() && !line_.hasFocus())
            line_.setFocus(Qt::OtherFocusReason);
        drawText();
        if (!box_.hasFocus())
            line_.setCursorPosition(0); // a long text is left at its beginning
        return;
    }
    ControlView::draw(property);
    if (property == Property::Text)
        drawText();
    else if (property == Property::Selection)
        drawSelection();
    else if (property == Property::Enabled)
        line_.setReadOnly(box_.Locked());
    else if (property == Property::Open)
        drawOpen();
    else if (property == Property::Items && popup_ && popup_->isVisible())
        popup_->model().reset();
}

void EditView::drawText() {
    drawing_ = true;
    const QString text = toQt(shownText(box_));
    if (line_.text() != text) {
        line_.setText(text);
        if (!box_.hasFocus())
            line_.setCursorPosition(0);
    }
    drawing_ = false;
    drawSelection();
}

void EditView::drawSelection() {
    if (popup_ && popup_->isVisible())
        popup_->showChosen();
    if (drawing_ || !box_.hasFocus())
        return;
    drawing_ = true;
    const QString text = line_.text();
    const int start = toUnits(text, box_.SelStart());
    const int end = toUnits(text, box_.SelStart() + box_.SelLength());
    if (end > start)
        line_.setSelection(start, end - start);
    else {
        line_.deselect();
        line_.setCursorPosition(start);
    }
    drawing_ = false;
}

void EditView::drawOpen() {
    if (!popup_ || isOpen(box_) == popup_->isVisible())
        return;
    if (isOpen(box_)) {
        const auto* bound = dynamic_cast<const forms::TDBCombo*>(&box_);
        popup_->showBelow(*widget(), bound == nullptr ? 0 : pixels(bound->DropDownWidth(), *widget()));
    } else {
        popup_->hide();
    }
}

void EditView::takeSelection() {
    if (drawing_ || control() == nullptr || !box_.hasFocus())
        return;
    drawing_ = true;
    const QString text = line_.text();
    const int start = line_.hasSelectedText() ? line_.selectionStart() : line_.cursorPosition();
    const int end = line_.hasSelectedText() ? line_.selectionEnd() : start;
    box_.setSelStart(toCharacters(text, start));
    box_.setSelLength(toCharacters(text, end) - toCharacters(text, start));
    drawing_ = false;
}

void EditView::paste(const QString& text) {
    act([&text](forms::User& user, forms::Control& box) { return user.paste(box, fromQt(text)); });
}

bool EditView::canPullDown() const {
    return combo_ != nullptr && !box_.Locked();
}

/// Cut, copy and paste, and the keys that move the marked text. True: nothing is left to do.
bool EditView::edit(const QKeyEvent& event) {
    auto* key = const_cast<QKeyEvent*>(&event);
    if (key->matches(QKeySequence::Paste)) {
        paste(QGuiApplication::clipboard()->text());
        return true;
    }
    if (key->matches(QKeySequence::Cut)) {
        line_.copy();
        if (line_.hasSelectedText())
            act([](forms::User& user, forms::Control& box) { return user.key(box, keys::del); });
        return true;
    }
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo))
        return true;
    return false;
}

bool EditView::keyPressed(const QKeyEvent& event) {
    if (edit(event))
        return true;
    const bool down = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
    if (canPullDown() && down && (event.modifiers() & Qt::AltModifier) != 0) {
        act([](forms::User& user, forms::Control& combo) { return user.open(combo, !isOpen(combo)); });
        return true;
    }
    const bool moves = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right || event.key() == Qt::Key_Home ||
                       event.key() == Qt::Key_End;
    if (moves && (event.modifiers() & Qt::ShiftModifier) != 0)
        return false; // marks text, which takeSelection tells the control
    if (ControlView::keyPressed(event))
        return true;
    // Of the rest, Qt's own editing keys would change the text behind the control's back.
    const auto* key = &event;
    return (key->modifiers() & Qt::ControlModifier) != 0 &&
           (key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete || key->key() == Qt::Key_K ||
            key->key() == Qt::Key_U);
}

bool EditView::eventFilter(QObject* watched, QEvent* event) {
    if (control() == nullptr)
        return false;
    if (const std::optional<bool> done = typed(*event))
        return *done;
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton) {
        paste(QGuiApplication::clipboard()->text(QClipboard::Selection));
        return true;
    }
    if (event->type() == QEvent::MouseButtonDblClick && control()->DblClick) {
        act([](forms::User& user, forms::Control& box) { return user.doubleClick(box); });
        return false;
    }
    return ControlView::eventFilter(watched, event);
}

} // namespace zel::desktop
