#include "desktop/print_pages.h"

#include "desktop/qt_text.h"
#include "platform/files.h"
#include "printing/paint.h"

#include <QMarginsF>
#include <QPageRanges>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace zel::desktop {

namespace {

/// Pages to print, in the order of the sheets.
std::vector<std::size_t> chosenPages(const QPrinter& printer, std::size_t count, std::size_t current) {
    if (printer.printRange() == QPrinter::CurrentPage)
        return {current};
    const QPageRanges ranges = printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
    std::vector<std::size_t> chosen;
    for (std::size_t page = 0; page < count; ++page) {
        if (ranges.isEmpty() || ranges.contains(static_cast<int>(page) + 1))
            chosen.push_back(page);
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(chosen.begin(), chosen.end());
    return chosen;
}

[[noreturn]] void refuse(const QPrinter& printer) {
    throw platform::FileError(platform::errors::deviceFailure,
                              "The printer " + fromQt(printer.printerName()) + " did not take the report.");
}

} // namespace

QPageLayout paperOf(const printing::Layout& layout) {
    const bool lying = layout.pageWidth > layout.pageHeight;
    const QSizeF standing(std::min(layout.pageWidth, layout.pageHeight), std::max(layout.pageWidth, layout.pageHeight));
    return {QPageSize(standing, QPageSize::Inch), lying ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
}

void printPages(QPrinter& printer, const printing::Layout& layout, const std::vector<printing::Page>& pages,
                std::size_t current, const std::function<void(std::size_t done)>& progress) {
    printer.setPageLayout(paperOf(layout));
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer))
        refuse(printer);
    const double scale = static_cast<double>(printer.resolution()) / printing::dotsPerInch;
    painter.scale(scale, scale);
    printing::PagePainter drawing(painter);
    std::size_t done = 0;
    for (const std::size_t page : chosenPages(printer, pages.size(), current)) {
        if (done > 0 && !printer.newPage())
            refuse(printer);
        drawing.draw(pages[page]);
        ++done;
        if (progress)
            progress(done);
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        refuse(printer);
}

} // namespace zel::desktop
