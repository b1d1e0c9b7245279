#include "desktop/cell_editor.h"

#include "desktop/qt_text.h"
#include "desktop/row_model.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

namespace zel::desktop {

namespace {

constexpr const char* onlyOfList = "onlyOfList";

/// The mask in Qt's letters; the prompt is the same.
QString inputMask(const std::string& mask) {
    QString translated;
    for (const QChar letter : toQt(mask)) {
        if (letter == QLatin1Char('#') || letter == QLatin1Char('9'))
            translated += QLatin1Char('9');
        else if (letter == QLatin1Char('?'))
            translated += QLatin1Char('a');
        else if (letter == QLatin1Char('a') || letter == QLatin1Char('A'))
            translated += QLatin1Char('n');
        else if (letter == QLatin1Char('&') || letter == QLatin1Char('C') || letter == QLatin1Char('@'))
            translated += QLatin1Char('x');
        else
            translated += letter;
    }
    return translated.isEmpty() ? translated : translated + QStringLiteral(";_");
}

/// A combo whose letters complete to an entry of its list.
QComboBox* makeCombo(QWidget& parent, bool onlyEntries) {
    auto* combo = new QComboBox(&parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setFrame(false);
    combo->setProperty(onlyOfList, onlyEntries);
    return combo;
}

QWidget* makeList(QWidget& parent, forms::TDBDropDown& list) {
    QComboBox* combo = makeCombo(parent, true);
    auto* rows = new RowModel(list, combo);
    auto* table = new QTableView;
    prepareTable(*table);
    combo->setModel(rows);
    combo->setView(table);
    combo->setModelColumn(std::max(0, list.ListField().empty() ? 0 : list.columnIndex(list.ListField())));
    table->horizontalHeader()->setVisible(rows->columnCount() > 1);
    table->setMinimumWidth(rows->layOut(*table) + table->verticalScrollBar()->sizeHint().width() + 4);
    return combo;
}

QWidget* makeChoice(QWidget& parent, const forms::ValueItems& values) {
    QComboBox* combo = makeCombo(parent, values.Translate);
    for (const forms::ValueItem& item : values.items())
        combo->addItem(toQt(values.Translate ? item.display : item.value));
    return combo;
}

QWidget* makeLine(QWidget& parent, const forms::GridColumn& column) {
    auto* line = new QLineEdit(&parent);
    line->setFrame(false);
    if (column.DataWidth() > 0)
        line->setMaxLength(column.DataWidth());
    if (!column.EditMask().empty())
        line->setInputMask(inputMask(column.EditMask()));
    return line;
}

} // namespace

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& cell) const {
    using Presentation = forms::ValueItems::Presentation;
    const forms::GridColumn* column = opened(cell);
    if (column == nullptr)
        return nullptr;
    filled_ = false;
    forms::TDBDropDown* list = column->DropDown();
    if (list != nullptr && list->isBound())
        open_ = makeList(*parent, *list);
    else if (column->ValueItems.presentation != Presentation::Normal && column->ValueItems.Count() > 0)
        open_ = makeChoice(*parent, column->ValueItems);
    else
        open_ = makeLine(*parent, *column);
    open_->setAutoFillBackground(true);
    return open_;
}

void CellEditor::setEditorData(QWidget* editor, const QModelIndex& cell) const {
    if (filled_)
        return; // other rows were drawn anew; what the clerk has typed stays
    filled_ = true;
    const QString text = cell.data(Qt::EditRole).toString();
    if (auto* combo = dynamic_cast<QComboBox*>(editor)) {
        combo->setCurrentIndex(combo->findText(text, Qt::MatchFixedString));
        combo->setEditText(text);
        combo->lineEdit()->selectAll();
    } else if (auto* line = dynamic_cast<QLineEdit*>(editor)) {
        line->setText(text);
        line->selectAll();
    }
}

void CellEditor::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
    if (handing_ || editor != open_)
        return; // a box that the entry brought up has taken the focus away
    handing_ = true;
    if (const auto* combo = dynamic_cast<const QComboBox*>(editor)) {
        const int entry = combo->findText(combo->currentText(), Qt::MatchFixedString);
        if (entry >= 0 || !combo->property(onlyOfList).toBool())
            entered(entry >= 0 ? combo->itemText(entry) : combo->currentText());
        else
            QApplication::beep();
    } else if (const auto* line = dynamic_cast<const QLineEdit*>(editor)) {
        entered(line->text());
    }
    handing_ = false;
}

void CellEditor::destroyEditor(QWidget* editor, const QModelIndex& cell) const {
    open_ = nullptr;
    closed();
    QStyledItemDelegate::destroyEditor(editor, cell);
}

void CellEditor::abandon() {
    if (open_ != nullptr && !handing_)
        Q_EMIT closeEditor(open_, RevertModelCache);
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    // While a box asks about what was typed, the cell neither closes nor takes keys.
    if (handing_ && (event->type() == QEvent::FocusOut || event->type() == QEvent::KeyPress))
        return false;
    return QStyledItemDelegate::eventFilter(watched, event);
}

} // namespace zel::desktop
