#pragma once

#include "printing/pages.h"

#include <QRectF>

#include <cstddef>

class QFont;
class QPainter;

namespace zel::printing {

/// The unit that pages are drawn in, whatever the device: breaks and sizes of letters are the same on all of them.
inline constexpr int dotsPerInch = 600;

/// Draws pages with a painter that is scaled to dots.
class PagePainter {
public:
    explicit PagePainter(QPainter& painter) : painter_(painter) {}

    void draw(const Page& page);
    /// Where letters of a text are drawn, in dots: `first` and `length` are bytes of it. Of a text that is wrapped, the
    /// whole of it.
    [[nodiscard]] QRectF lettersOf(const Mark& mark, std::size_t first, std::size_t length) const;

private:
    void drawText(const Mark& mark);
    void drawShape(const Mark& mark);
    [[nodiscard]] QFont font(const Item& item, double points) const;
    /// The letters' size at which the whole text has room in its place: nothing is ever cut off.
    [[nodiscard]] QFont fittingFont(const Item& item, const QRectF& place) const;

    QPainter& painter_;
};

} // namespace zel::printing
