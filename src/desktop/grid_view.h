#pragma once

#include "desktop/control_view.h"
#include "desktop/grid_model.h"

#include <QStyledItemDelegate>

class QTableView;

namespace zel::forms {
class TDBGrid;
} // namespace zel::forms

namespace zel::desktop {

/// Shows a grid in a table: current row, marked rows, sorting by the heads, and editing in the cells.
class GridView final : public ControlView {
public:
    GridView(forms::TDBGrid& grid, QTableView& widget, Desk& desk);

    void detach() override;
    void settled() override;

protected:
    void draw(forms::Property property) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(const QKeyEvent& event) override;

private:
    class CellDelegate;
    void connectTable();
    void layOut();
    void drawCurrent();
    void drawMarks();
    void cellEntered(const QModelIndex& cell);
    void rowsMarked();
    void copy() const;
    [[nodiscard]] QWidget* openCell(QWidget& parent, const QModelIndex& cell);
    void closeCell(const QString& text);
    void leaveCell();

    forms::TDBGrid& grid_;
    QTableView& table_;
    GridModel model_;
    bool drawing_ = false;
    bool closing_ = false; // the text of a cell is on its way to the grid
};

} // namespace zel::desktop
