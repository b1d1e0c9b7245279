#pragma once

#include <QDir>
#include <QPixmap>
#include <QString>

#include <string>

class QWidget;

namespace zel::pictures {

/// Takes pictures of all that the program has on the display: the window, the boxes over it, a list pulled down.
class Camera {
public:
    /// The tail goes behind each name, before ".png".
    Camera(const std::string& folder, const std::string& tail);

    /// Writes the picture and gives its path; throws std::runtime_error when it cannot.
    [[nodiscard]] std::string take(const std::string& name) const;

private:
    QDir folder_;
    QString tail_;
};

} // namespace zel::pictures
