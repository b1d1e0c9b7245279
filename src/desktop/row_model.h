#pragma once

#include <QAbstractTableModel>

#include <functional>

class QTableView;

namespace zel::forms {
class Control;
} // namespace zel::forms

namespace zel::desktop {

/// The rows of a list as Qt asks for them: one by one, nothing is copied.
class RowModel final : public QAbstractTableModel {
public:
    /// Of a bound list, combo or drop-down, of a plain combo or list box, or of a list view.
    explicit RowModel(forms::Control& list, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Everything may be another.
    void reset();
    /// The list goes away.
    void detach();
    /// Widths and visibility of the columns; gives the width of all.
    int layOut(QTableView& view) const;

private:
    std::function<int()> rows_, columns_;
    std::function<QString(int row, int column)> text_;
    std::function<QString(int column)> header_;
    std::function<int(int column)> width_; // in twips, 0 for hidden, -1 for all there is
};

/// The row that is chosen in a list or combo, or that its text begins; -1 for none.
[[nodiscard]] int chosenRow(const forms::Control& list);

/// Prepares a table for showing rows of a list.
void prepareTable(QTableView& view);

} // namespace zel::desktop
