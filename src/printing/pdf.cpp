#include "printing/pdf.h"

#include "platform/files.h"
#include "printing/paint.h"
#include "printing/remarks.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cstdlib>

namespace zel::printing {

namespace {

/// Fonts need an application, and a program without windows has none.
void needApplication() {
    if (QCoreApplication::instance() != nullptr)
        return;
    dropRemarks();
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int count = 1;
    static char name[] = "zel";
    static char* words[] = {name, nullptr};
    static const auto* application = new QGuiApplication(count, words); // lives as long as the fonts
    (void)application;
}

} // namespace

std::string pdfOf(const std::string& title, const Layout& layout, const std::vector<Page>& pages,
                  const std::function<void(std::size_t done)>& progress) {
    needApplication();
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
