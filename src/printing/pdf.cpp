#include "printing/pdf.h"

#include "platform/files.h"
#include "printing/paint.h"

#include <QBuffer>
#include <QByteArray>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace zel::printing {

std::string pdfOf(const std::string& title, const Layout& layout, const std::vector<Page>& pages,
                  const std::function<void(std::size_t done)>& progress) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setTitle(QString::fromStdString(title));
    writer.setPageSize(QPageSize(QSizeF(layout.pageWidth, layout.pageHeight), QPageSize::Inch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter(&writer);
    PagePainter drawing(painter);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (page > 0)
            writer.newPage();
        drawing.draw(pages[page]);
        if (progress)
            progress(page + 1);
    }
    painter.end();
    return bytes.toStdString();
}

void writePdf(const std::string& path, const std::string& title, const Layout& layout, const std::vector<Page>& pages,
              const std::function<void(std::size_t done)>& progress) {
    platform::DiskFiles().write(path, pdfOf(title, layout, pages, progress));
}

} // namespace zel::printing
