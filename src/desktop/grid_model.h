#pragma once

#include <QAbstractTableModel>
#include <QIcon>

#include <cstdint>

namespace zel::forms {
class TDBGrid;
} // namespace zel::forms

namespace zel::desktop {

/// A grid's rows as Qt asks for them. The row for a new record is the last one.
class GridModel final : public QAbstractTableModel {
public:
    explicit GridModel(forms::TDBGrid& grid, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Tells Qt what is new: rows more or fewer, other values, other columns. What the clerk sees of the table stays
    /// where it is: rows are looked up by number, so that they may well come and go at the end.
    void refresh();
    void detach();

    /// Between the rows as Qt counts them and those of the grid; -1 and TDBGrid::noRow for none.
    [[nodiscard]] std::int64_t gridRow(int row) const;
    [[nodiscard]] int viewRow(std::int64_t row) const;

private:
    [[nodiscard]] bool hasColumn(int column) const;
    [[nodiscard]] QVariant rowColor(int row, int role) const;
    [[nodiscard]] int alignment(int row, int column) const;
    void tellColumns();
    void tellRows();

    forms::TDBGrid* grid_;
    int rows_ = 0, columns_ = 0; // as Qt was told
    QIcon lock_;
};

} // namespace zel::desktop
