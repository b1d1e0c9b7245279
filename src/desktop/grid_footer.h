#pragma once

#include <QPointer>
#include <QWidget>

class QTableView;

namespace zel::forms {
class TDBGrid;
} // namespace zel::forms

namespace zel::desktop {

/// The line under a grid with a text, such as a sum, below its columns. It takes room only while a column has one.
class GridFooter final : public QWidget {
public:
    /// Stands in the table's place in the layout of its parent, the table above it.
    GridFooter(forms::TDBGrid& grid, QTableView& table);

    void refresh();
    void detach() { grid_ = nullptr; }
    [[nodiscard]] QSize sizeHint() const override;
    /// Text of a column that is shown, and where it stands.
    [[nodiscard]] QString text(int column) const;
    [[nodiscard]] QRect cell(int column) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    forms::TDBGrid* grid_;
    QPointer<QTableView> table_;
};

} // namespace zel::desktop
