#pragma once

#include <QComboBox>

#include <functional>

namespace zel::desktop {

/// A combo whose list the program shows itself: in columns, and without copying a row.
class ListCombo : public QComboBox {
public:
    explicit ListCombo(QWidget* parent = nullptr);

    void showPopup() override;
    /// Asked to pull the list down.
    std::function<void()> openAsked;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace zel::desktop
