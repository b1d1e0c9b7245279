#include "printing/paint.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QString>

namespace zel::printing {

namespace {

constexpr double smallestPoints = 3, pointStep = 0.5;

double dots(double inches) {
    return inches * dotsPerInch;
}

QRectF placeOf(const Mark& mark) {
    return {dots(mark.x), dots(mark.y), dots(mark.item.width), dots(mark.item.height)};
}

int flagsOf(const Item& item) {
    const int across = item.align == Align::Left    ? Qt::AlignLeft
                       : item.align == Align::Right ? Qt::AlignRight
                                                    : Qt::AlignHCenter;
    return across | (item.fit == Fit::Wrap ? Qt::AlignTop | Qt::TextWordWrap : Qt::AlignVCenter | Qt::TextSingleLine);
}

} // namespace

QFont PagePainter::font(const Item& item, double points) const {
    QFont font("DejaVu Sans");
    // A point of the device's own would be another length on each of them.
    font.setPointSizeF(points * dotsPerInch / painter_.device()->logicalDpiY());
    font.setBold(item.bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont PagePainter::fittingFont(const Item& item, const QRectF& place) const {
    const QString text = QString::fromStdString(item.text);
    const int flags = flagsOf(item) & ~Qt::AlignVCenter;
    double points = item.size;
    for (; points > smallestPoints; points -= pointStep) {
        const QFontMetricsF metrics(font(item, points), painter_.device());
        const QRectF needed = metrics.boundingRect(QRectF(0, 0, place.width(), 1e6), flags, text);
        // A wrapped text shrinks too, once its lines are more than the place holds.
        if (needed.width() <= place.width() && (item.fit == Fit::Shrink || needed.height() <= place.height()))
            break;
    }
    return font(item, points);
}

QRectF PagePainter::lettersOf(const Mark& mark, std::size_t first, std::size_t length) const {
    const QRectF place = placeOf(mark);
    const QFontMetricsF metrics(fittingFont(mark.item, place), painter_.device());
    const std::string& text = mark.item.text;
    const QRectF whole = metrics.boundingRect(place, flagsOf(mark.item), QString::fromStdString(text));
    if (mark.item.fit == Fit::Wrap)
        return whole;
    const double before = metrics.horizontalAdvance(QString::fromStdString(text.substr(0, first)));
    const double behind = metrics.horizontalAdvance(QString::fromStdString(text.substr(0, first + length)));
    return {whole.left() + before, whole.top(), behind - before, whole.height()};
}

void PagePainter::drawText(const Mark& mark) {
    if (mark.item.text.empty())
        return;
    const QRectF place = placeOf(mark);
    painter_.setFont(fittingFont(mark.item, place));
    painter_.drawText(place, flagsOf(mark.item) | Qt::TextDontClip, QString::fromStdString(mark.item.text));
}

void PagePainter::drawShape(const Mark& mark) {
    QPen pen(Qt::black, dots(mark.item.thickness));
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
    const QRectF place = placeOf(mark);
    if (mark.item.kind == Item::Kind::Box)
        painter_.drawRect(place);
    else
        painter_.drawLine(place.topLeft(), place.bottomRight());
}

void PagePainter::draw(const Page& page) {
    painter_.setPen(Qt::black); // a screen's own letters may be light
    for (const Mark& mark : page)
        mark.item.kind == Item::Kind::Text ? drawText(mark) : drawShape(mark);
}

} // namespace zel::printing
