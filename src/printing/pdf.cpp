#include "printing/pdf.h"

#include "platform/files.h"
#include "printing/paint.h"

#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace zel::printing {

void writePdf(const std::string& path, const std::string& title, const Layout& layout, const std::vector<Page>& pages,
              const std::function<void(std::size_t done)>& progress) {
    QPdfWriter writer(QString::fromStdString(path));
    writer.setResolution(dotsPerInch);
    writer.setTitle(QString::fromStdString(title));
    writer.setPageSize(QPageSize(QSizeF(layout.pageWidth, layout.pageHeight), QPageSize::Inch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer))
        throw platform::FileError(platform::errors::accessDenied, path + " cannot be written.");
    PagePainter drawing(painter);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (page > 0 && !writer.newPage())
            throw platform::FileError(platform::errors::diskFull, path + " cannot be written.");
        drawing.draw(pages[page]);
        if (progress)
            progress(page + 1);
    }
    if (!painter.end())
        throw platform::FileError(platform::errors::diskFull, path + " cannot be written.");
}

} // namespace zel::printing
