#include "printing/paint.h"

#include "printing/letters.h"

#include <QGlyphRun>
#include <QList>
#include <QPainter>

#include <map>

namespace zel::printing {

namespace {

double dots(double inches) {
    return inches * dotsPerInch;
}

QRectF placeOf(const Mark& mark) {
    return {dots(mark.x), dots(mark.y), dots(mark.item.width), dots(mark.item.height)};
}

int wrappedFlags(const Item& item) {
    const int across = item.align == Align::Left    ? Qt::AlignLeft
                       : item.align == Align::Right ? Qt::AlignRight
                                                    : Qt::AlignHCenter;
    return across | Qt::AlignTop | Qt::TextWordWrap | Qt::TextDontClip;
}

/// Where a text of one line lies: its left edge and its width by its letters, up and down in the middle of its place.
QRectF lineOf(const Item& item, const QRectF& place, const Letters::Face& face, double width) {
    double left = place.left();
    if (item.align == Align::Right)
        left = place.right() - width;
    if (item.align == Align::Center)
        left = place.center().x() - width / 2;
    const double height = face.metrics.height();
    return {left, place.center().y() - height / 2, width, height};
}

} // namespace

PagePainter::PagePainter(QPainter& painter)
    : painter_(painter), letters_(std::make_unique<Letters>(*painter.device())) {}

PagePainter::~PagePainter() = default;

QRectF PagePainter::lettersOf(const Mark& mark, std::size_t first, std::size_t length) const {
    const QRectF place = placeOf(mark);
    const std::string& text = mark.item.text;
    Letters::Face& face = letters_->fitting(mark.item, place.width(), place.height());
    if (mark.item.fit == Fit::Wrap)
        return face.metrics.boundingRect(place, wrappedFlags(mark.item), QString::fromStdString(text));
    const QRectF line = lineOf(mark.item, place, face, letters_->line(face, text).width);
    const double before = face.metrics.horizontalAdvance(QString::fromStdString(text.substr(0, first)));
    const double behind = face.metrics.horizontalAdvance(QString::fromStdString(text.substr(0, first + length)));
    return {line.left() + before, line.top(), behind - before, line.height()};
}

void PagePainter::drawText(const Mark& mark) {
    const Item& item = mark.item;
    if (item.text.empty())
        return;
    const QRectF place = placeOf(mark);
    Letters::Face& face = letters_->fitting(item, place.width(), place.height());
    if (item.fit == Fit::Wrap) {
        painter_.setFont(face.font);
        painter_.drawText(place, wrappedFlags(item), QString::fromStdString(item.text));
        return;
    }
    const Letters::Line& line = letters_->line(face, item.text);
    const QPointF corner = lineOf(item, place, face, line.width).topLeft();
    for (const QGlyphRun& letters : line.letters)
        painter_.drawGlyphRun(corner, letters);
}

/// Boxes and lines of one thickness together, which a page of a form has by the hundred.
void PagePainter::drawShapes(const Page& page) {
    std::map<double, std::pair<QList<QRectF>, QList<QLineF>>> byThickness;
    for (const Mark& mark : page) {
        const QRectF place = placeOf(mark);
        if (mark.item.kind == Item::Kind::Box)
            byThickness[mark.item.thickness].first.append(place);
        else if (mark.item.kind == Item::Kind::Line)
            byThickness[mark.item.thickness].second.append(QLineF(place.topLeft(), place.bottomRight()));
    }
    for (const auto& [thickness, shapes] : byThickness) {
        QPen pen(Qt::black, dots(thickness));
        pen.setCapStyle(Qt::FlatCap);
        pen.setJoinStyle(Qt::MiterJoin);
        painter_.setPen(pen);
        painter_.drawRects(shapes.first);
        painter_.drawLines(shapes.second);
    }
}

void PagePainter::draw(const Page& page) {
    drawShapes(page);
    painter_.setPen(Qt::black); // a screen's own letters may be light
    for (const Mark& mark : page) {
        if (mark.item.kind == Item::Kind::Text)
            drawText(mark);
    }
}

} // namespace zel::printing
