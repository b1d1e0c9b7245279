#pragma once

#include "printing/pages.h"

#include <QRectF>

#include <cstddef>
#include <memory>

class QPainter;

namespace zel::printing {

class Letters;

/// The unit that pages are drawn in, whatever the device: breaks and sizes of letters are the same on all of them.
inline constexpr int dotsPerInch = 600;

/// Draws pages with a painter that is scaled to dots.
class PagePainter {
public:
    explicit PagePainter(QPainter& painter);
    ~PagePainter();
    PagePainter(const PagePainter&) = delete;
    PagePainter& operator=(const PagePainter&) = delete;

    void draw(const Page& page);
    /// Where letters of a text are drawn, in dots: `first` and `length` are bytes of it. Of a text that is wrapped, the
    /// whole of it.
    [[nodiscard]] QRectF lettersOf(const Mark& mark, std::size_t first, std::size_t length) const;

private:
    void drawShapes(const Page& page);
    void drawText(const Mark& mark);

    QPainter& painter_;
    std::unique_ptr<Letters> letters_;
};

} // namespace zel::printing
