#include "tablon/desk.h"

#include "printing/new_file.h"
#include "printing/pdf.h"
#include "tablon/private_folder.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QProgressDialog>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>

#include <unistd.h>

namespace zel::tablon {

namespace {

/// It asks nothing, so there are three.
QMessageBox::Icon iconOf(forms::Icon icon) {
    if (icon == forms::Icon::Critical)
        return QMessageBox::Critical;
    return icon == forms::Icon::Exclamation ? QMessageBox::Warning : QMessageBox::Information;
}

/// Tells how far a long print is: in a window that comes when it takes more than a moment, or without windows in a line
/// for every hundred pages, where somebody reads it. Other programs take standard error for what went wrong.
class Progress {
public:
    Progress(bool window, std::size_t pages) : pages_(pages) {
        if (window)
            window_ =
                std::make_unique<QProgressDialog>(QStringLiteral("Printing"), QString(), 0, static_cast<int>(pages));
    }
    void operator()(std::size_t done) {
        constexpr std::size_t pagesALine = 100;
        if (window_)
            window_->setValue(static_cast<int>(done));
        else if (inLines_ && done % pagesALine == 0)
            std::cerr << "Tablon: page " << done << " of " << pages_ << std::endl;
    }

private:
    std::size_t pages_;
    bool inLines_ = ::isatty(STDERR_FILENO) != 0;
    std::unique_ptr<QProgressDialog> window_;
};

bool isSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

} // namespace

bool choosePlatform(bool quiet) {
    const bool desktop = isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
    if (quiet || (!desktop && !isSet("QT_QPA_PLATFORM")))
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    else if (!isSet("QT_QPA_PLATFORM")) // a display that does not answer must not end the program
        ::setenv("QT_QPA_PLATFORM", isSet("WAYLAND_DISPLAY") ? "wayland;xcb;offscreen" : "xcb;offscreen", 1);
    return !quiet;
}

forms::Answer Desk::showMessage(const forms::MessageBox& box) {
    if (windows_) {
        QMessageBox window(iconOf(box.icon), QString::fromStdString(box.title), QString::fromStdString(box.text),
                           QMessageBox::Ok);
        window.exec();
    } else {
        std::string text = box.title + ": " + box.text;
        std::erase(text, '\r');
        std::cerr << text << std::endl;
    }
    return forms::Answer::OK;
}

void Desk::print(const std::string& name, const std::string& title, const printing::Layout& layout,
                 const std::vector<printing::Page>& pages) {
    Progress progress(windows_, pages.size());
    const std::string bytes = printing::pdfOf(title, layout, pages, [&progress](std::size_t done) { progress(done); });
    const std::string file = printing::makeNewPdf(folder_.empty() ? privateFolder() : folder_, name, bytes);
    std::cout << file << std::endl;
    if (folder_.empty())
        view(file);
}

void Desk::view(const std::string& file) {
    if (windows_ && !QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file))))
        message("The form is ready, but no program on this desktop shows PDF files:\r\n" + file, "Tablon: Report",
                forms::Buttons::OK, forms::Icon::Exclamation);
}

} // namespace zel::tablon
