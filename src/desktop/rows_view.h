#pragma once

#include "desktop/control_view.h"
#include "desktop/row_model.h"

class QTableView;

namespace zel::desktop {

/// Lists that are always open: bound lists, plain list boxes and list views.
class RowsView final : public ControlView {
public:
    RowsView(forms::Control& list, QTableView& widget, Desk& desk);

    void detach() override;
    void settled() override;

protected:
    void draw(forms::Property property) override;
    bool keyPressed(const QKeyEvent& event) override;

private:
    void drawSelection();
    void rowsMarked();
    [[nodiscard]] bool hasMultiSelect() const;

    QTableView& table_;
    RowModel model_;
    int rows_ = 0;
    bool drawing_ = false;
};

} // namespace zel::desktop
