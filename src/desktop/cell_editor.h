#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

namespace zel::forms {
class GridColumn;
} // namespace zel::forms

namespace zel::desktop {

/// Opens the cells of a grid: a line, masked where its column is, or a list with type-ahead. The grid decides whether a
/// cell opens and what becomes of its text.
class CellEditor final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Asked to open a cell; gives its column, or null when it stays closed.
    std::function<forms::GridColumn*(const QModelIndex& cell)> opened;
    /// The clerk left the cell with a text.
    std::function<void(const QString& text)> entered;
    /// The cell closed, with or without a text.
    std::function<void()> closed;

    /// The grid has closed the cell by itself: what was typed goes.
    void abandon();
    [[nodiscard]] bool isOpen() const { return open_ != nullptr; }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& cell) const override;
    void setEditorData(QWidget* editor, const QModelIndex& cell) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& cell) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& cell) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Qt asks for editors through const functions.
    mutable QPointer<QWidget> open_;
    mutable bool filled_ = false, handing_ = false;
};

} // namespace zel::desktop
