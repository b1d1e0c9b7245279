#include "printing/pdf.h"

#include "platform/files.h"

#include <QFont>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace zel::printing {

namespace {

constexpr int resolution = 600;

/// Draws marks with a painter whose unit is a dot of the resolution.
class MarkPainter {
public:
    explicit MarkPainter(QPainter& painter) : painter_(painter) {}
    void draw(const Mark& mark);

private:
    static double dots(double inches) { return inches * resolution; }
    void drawText(const Mark& mark);
    [[nodiscard]] static QFont font(const Item& item, double points);

    QPainter& painter_;
};

QFont MarkPainter::font(const Item& item, double points) {
    QFont font("DejaVu Sans");
    font.setPointSizeF(points);
    font.setBold(item.bold);
    return font;
}

void MarkPainter::drawText(const Mark& mark) {
    const Item& item = mark.item;
    if (item.text.empty())
        return;
    const QRectF place(dots(mark.x), dots(mark.y), dots(item.width), dots(item.height));
    const QString text = QString::fromStdString(item.text);
    int flags = item.align == Align::Left    ? Qt::AlignLeft
                : item.align == Align::Right ? Qt::AlignRight
                                             : Qt::AlignHCenter;
    flags |= item.fit == Fit::Wrap ? Qt::AlignTop | Qt::TextWordWrap : Qt::AlignVCenter | Qt::TextSingleLine;
    constexpr double smallest = 3;
    double points = item.size;
    // A wrapped text shrinks too, once its lines are more than the place holds: nothing is ever cut off.
    for (; points > smallest; points -= 0.5) {
        const QFontMetricsF metrics(font(item, points), painter_.device());
        const QRectF needed = metrics.boundingRect(QRectF(0, 0, place.width(), 1e6), flags & ~Qt::AlignVCenter, text);
        if (needed.width() <= place.width() && (item.fit == Fit::Shrink || needed.height() <= place.height()))
            break;
    }
    painter_.setFont(font(item, points));
    painter_.drawText(place, flags | Qt::TextDontClip, text);
}

void MarkPainter::draw(const Mark& mark) {
    const Item& item = mark.item;
    if (item.kind == Item::Kind::Text) {
        drawText(mark);
        return;
    }
    QPen pen(Qt::black, dots(item.thickness));
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
    const QPointF from(dots(mark.x), dots(mark.y));
    const QPointF to(dots(mark.x + item.width), dots(mark.y + item.height));
    if (item.kind == Item::Kind::Box)
        painter_.drawRect(QRectF(from, to));
    else
        painter_.drawLine(from, to);
}

} // namespace

void writePdf(const std::string& path, const std::string& title, const Layout& layout, const std::vector<Page>& pages,
              const std::function<void(std::size_t done)>& progress) {
    QPdfWriter writer(QString::fromStdString(path));
    writer.setResolution(resolution);
    writer.setTitle(QString::fromStdString(title));
    writer.setPageSize(QPageSize(QSizeF(layout.pageWidth, layout.pageHeight), QPageSize::Inch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer))
        throw platform::FileError(platform::errors::accessDenied, path + " cannot be written.");
    MarkPainter marks(painter);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (page > 0 && !writer.newPage())
            throw platform::FileError(platform::errors::diskFull, path + " cannot be written.");
        for (const Mark& mark : pages[page])
            marks.draw(mark);
        if (progress)
            progress(page + 1);
    }
    if (!painter.end())
        throw platform::FileError(platform::errors::diskFull, path + " cannot be written.");
}

} // namespace zel::printing
