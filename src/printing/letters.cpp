#include "printing/letters.h"

#include "printing/paint.h"

#include <QPaintDevice>
#include <QTextLayout>

namespace zel::printing {

namespace {

constexpr double smallestPoints = 3, pointStep = 0.5;
/// More texts than this in one size are names, which do not come again.
constexpr std::size_t rememberedLines = 10'000;

} // namespace

Letters::Face& Letters::face(bool bold, double points) {
    const auto known = faces_.find({bold, points});
    if (known != faces_.end())
        return known->second;
    QFont font("DejaVu Sans");
    // A point of the device's own would be another length on each of them.
    font.setPointSizeF(points * dotsPerInch / device_.logicalDpiY());
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return faces_.emplace(std::pair(bold, points), Face{font, QFontMetricsF(font, &device_), {}}).first->second;
}

const Letters::Line& Letters::line(Face& face, const std::string& text) {
    const auto known = face.lines.find(text);
    if (known != face.lines.end())
        return known->second;
    if (face.lines.size() >= rememberedLines)
        face.lines.clear();
    QString words = QString::fromStdString(text);
    words.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    QTextLayout layout(words, face.font, &device_);
    layout.beginLayout();
    const QTextLine whole = layout.createLine();
    layout.endLayout();
    return face.lines.emplace(text, Line{layout.glyphRuns(), whole.naturalTextWidth()}).first->second;
}

Letters::Face& Letters::fitting(const Item& item, double width, double height) {
    const auto fits = [&](Face& tried) {
        if (item.fit == Fit::Shrink)
            return line(tried, item.text).width <= width;
        // A wrapped text shrinks once its lines are more than the place holds.
        const QRectF needed =
            tried.metrics.boundingRect(QRectF(0, 0, width, 1e6), Qt::TextWordWrap, QString::fromStdString(item.text));
        return needed.width() <= width && needed.height() <= height;
    };
    double points = item.size;
    while (points > smallestPoints && !fits(face(item.bold, points)))
        points -= pointStep;
    return face(item.bold, points);
}

} // namespace zel::printing
