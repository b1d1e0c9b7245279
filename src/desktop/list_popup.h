#pragma once

#include "desktop/row_model.h"

#include <QFrame>

#include <functional>

class QTableView;

namespace zel::desktop {

/// The pulled-down list of a combo. Keys go on to the combo, which moves the choice.
class ListPopup final : public QFrame {
public:
    ListPopup(forms::Control& list, QWidget& combo, QWidget& keyTarget);

    void showBelow(QWidget& combo, int width);
    /// Marks the chosen row and brings it into sight.
    void showChosen();
    [[nodiscard]] RowModel& model() noexcept { return model_; }

    std::function<void(int row)> picked;
    std::function<void()> closed;

protected:
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    forms::Control& list_;
    QWidget& keyTarget_;
    RowModel model_;
    QTableView* table_;
};

} // namespace zel::desktop
