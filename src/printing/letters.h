#pragma once

#include "printing/layout.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QList>
#include <QString>

#include <map>
#include <string>
#include <unordered_map>
#include <utility>

class QPaintDevice;

namespace zel::printing {

/// The letters of a report on one device, in every size that its pages need, with what their texts measure there.
class Letters {
public:
    explicit Letters(QPaintDevice& device) : device_(device) {}

    /// A text of one line, its letters laid out from (0, 0) on.
    struct Line {
        QList<QGlyphRun> letters;
        double width = 0;
    };
    struct Face {
        QFont font;
        QFontMetricsF metrics;
        std::unordered_map<std::string, Line> lines;
    };
    /// The size at which the whole text has room in its place, given in dots: nothing is ever cut off.
    [[nodiscard]] Face& fitting(const Item& item, double width, double height);
    /// Dates, times and labels come again and again, and are laid out once.
    [[nodiscard]] const Line& line(Face& face, const std::string& text);

private:
    Face& face(bool bold, double points);

    QPaintDevice& device_;
    std::map<std::pair<bool, double>, Face> faces_;
};

} // namespace zel::printing
