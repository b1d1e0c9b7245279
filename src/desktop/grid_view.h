#pragma once

#include "desktop/cell_editor.h"
#include "desktop/control_view.h"
#include "desktop/grid_footer.h"
#include "desktop/grid_model.h"

#include <tuple>
#include <vector>

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
    [[nodiscard]] QPoint menuPlace() const override;

private:
    void connectTable();
    void connectCells();
    void refresh();
    void layOut();
    void drawFooter();
    void drawCurrent();
    void drawMarks();
    void drawLater();
    void cellEntered(const QModelIndex& cell);
    void rowsMarked();
    void startMarks();
    void toggleMark();
    void headClicked(int column);
    void copy() const;
    [[nodiscard]] forms::GridColumn* openCell(const QModelIndex& cell);
    void closeCell(const QString& text);
    void leaveCell();

    forms::TDBGrid& grid_;
    QTableView& table_;
    GridModel model_;
    CellEditor* editor_;
    QPointer<GridFooter> footer_;
    std::vector<std::tuple<QString, bool, int>> shapes_; // the columns as last laid out: caption, visible, width
    bool drawing_ = false;
    bool marking_ = false; // the clerk marks rows, rather than goes to one
    bool closing_ = false; // the text of a cell is on its way to the grid
};

} // namespace zel::desktop
