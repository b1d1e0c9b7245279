#include "desktop/memo_view.h"

#include "desktop/qt_text.h"
#include "forms/text_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextCursor>

namespace zel::desktop {

using forms::Property;
namespace keys = forms::keys;

namespace {

/// The widget counts a line end as one sign, the control as the two that it is.
int toWidget(const std::string& text, int characters) {
    return static_cast<int>(linesToQt(forms::utf8::middle(text, 0, characters)).size());
}

int toControl(const QString& shown, int units) {
    const QString before = shown.left(units);
    return static_cast<int>(before.toUcs4().size() + before.count(QLatin1Char('\n')));
}

} // namespace

MemoView::MemoView(forms::TextBox& box, QPlainTextEdit& widget, Desk& desk)
    : ControlView(box, widget, desk), box_(box), memo_(widget) {
    memo_.setTabChangesFocus(true);
    memo_.setUndoRedoEnabled(false);
    memo_.setAcceptDrops(false);
    memo_.setContextMenuPolicy(Qt::PreventContextMenu);
    connect(&memo_, &QPlainTextEdit::selectionChanged, this, [this] { takeSelection(); });
    connect(&memo_, &QPlainTextEdit::cursorPositionChanged, this, [this] { takeSelection(); });
}

void MemoView::draw(Property property) {
    ControlView::draw(property);
    if (property == Property::Text)
        drawText();
    else if (property == Property::Selection)
        drawSelection();
    else if (property == Property::Enabled)
        memo_.setReadOnly(box_.Locked());
}

void MemoView::drawText() {
    drawing_ = true;
    const QString text = linesToQt(box_.Text());
    if (memo_.toPlainText() != text)
        memo_.setPlainText(text);
    drawing_ = false;
    drawSelection();
}

void MemoView::drawSelection() {
    if (drawing_ || !box_.hasFocus())
        return;
    drawing_ = true;
    const std::string text = box_.Text();
    QTextCursor cursor = memo_.textCursor();
    cursor.setPosition(toWidget(text, box_.SelStart()));
    cursor.setPosition(toWidget(text, box_.SelStart() + box_.SelLength()), QTextCursor::KeepAnchor);
    memo_.setTextCursor(cursor);
    drawing_ = false;
}

void MemoView::takeSelection() {
    if (drawing_ || control() == nullptr || !box_.hasFocus())
        return;
    drawing_ = true;
    const QString text = memo_.toPlainText();
    const QTextCursor cursor = memo_.textCursor();
    const int start = toControl(text, cursor.selectionStart());
    box_.setSelStart(start);
    box_.setSelLength(toControl(text, cursor.selectionEnd()) - start);
    drawing_ = false;
}

/// Cut and paste, and what Qt would else do to the text behind the control's back. True: nothing is left to do.
bool MemoView::edit(const QKeyEvent& event) {
    auto* key = const_cast<QKeyEvent*>(&event);
    if (key->matches(QKeySequence::Paste)) {
        QString text = QGuiApplication::clipboard()->text();
        text.remove(QLatin1Char('\r')).replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
        act([&text](forms::User& user, forms::Control& box) { return user.paste(box, fromQt(text)); });
        return true;
    }
    if (key->matches(QKeySequence::Cut)) {
        memo_.copy();
        if (memo_.textCursor().hasSelection())
            act([](forms::User& user, forms::Control& box) { return user.key(box, keys::del); });
        return true;
    }
    return (key->modifiers() & Qt::ControlModifier) != 0 &&
           (key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete || key->key() == Qt::Key_K);
}

bool MemoView::keyPressed(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return false; // the widget knows its lines; takeSelection tells the control
    default:
        return edit(event) || ControlView::keyPressed(event);
    }
}

bool MemoView::eventFilter(QObject* watched, QEvent* event) {
    if (control() == nullptr)
        return false;
    if (const std::optional<bool> done = typed(*event))
        return *done;
    return ControlView::eventFilter(watched, event);
}

} // namespace zel::desktop
