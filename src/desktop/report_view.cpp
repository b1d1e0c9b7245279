#include "desktop/report_view.h"

#include "desktop/icons.h"
#include "desktop/pages_view.h"
#include "desktop/print_pages.h"
#include "desktop/qt_text.h"
#include "forms/dialogs.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "forms/hourglass.h"
#include "platform/files.h"
#include "printing/pdf.h"
#include "reports/report_viewer.h"

#include <QAction>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QScopeGuard>
#include <QShortcut>
#include <QSpinBox>
#include <QStandardPaths>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace zel::desktop {

using forms::Property;
using reports::ReportViewer;

namespace {

constexpr std::array zooms{25, 50, 75, 100, 125, 150, 200, 300, 400};

/// The next size of the list on the way, from any size.
int steppedZoom(int zoom, int steps) {
    for (; steps > 0; --steps)
        zoom = *std::min(std::upper_bound(zooms.begin(), zooms.end(), zoom), zooms.end() - 1);
    for (; steps < 0; ++steps)
        zoom = *(std::max(std::lower_bound(zooms.begin(), zooms.end(), zoom), zooms.begin() + 1) - 1);
    return zoom;
}

/// A name for the report's file: what a file system may not take is a dash.
std::string fileNameOf(std::string caption) {
    constexpr std::string_view refused = "/\\:*?\"<>|";
    for (char& letter : caption) {
        if (refused.find(letter) != std::string_view::npos)
            letter = '-';
    }
    return caption + ".pdf";
}

/// Says how a long work stands, unless the window is gone.
void tellState(const QPointer<QLabel>& state, const QString& text) {
    if (state != nullptr)
        state->setText(text);
}

} // namespace

template <typename Part>
Part& ReportView::part(const char* name) const {
    auto* found = dynamic_cast<Part*>(widget()->findChild<QWidget*>(QString::fromLatin1(name)));
    if (found == nullptr)
        throw std::logic_error(std::string("the viewer has no ") + name);
    return *found;
}

ReportView::ReportView(ReportViewer& viewer, QWidget& widget, Desk& desk)
    : ControlView(viewer, widget, desk), viewer_(&viewer), bar_(part<QToolBar>("decoBar")),
      pages_(part<PagesView>("decoPages")), findLine_(part<QWidget>("decoFindLine")),
      findText_(part<QLineEdit>("decoFindText")), findState_(part<QLabel>("decoFindState")) {
    widget.setFocusProxy(&pages_);
    watch(pages_);
    makeBar();
    makeFindLine();
    pages_.setViewer(viewer_);
    pages_.scrolled = [this] { scrolled(); };
    pages_.zoomAsked = [this](int notches) { zoomBy(notches); };
    pages_.resized = [this] {
        if (fit_->isChecked())
            fitWidth(true);
    };
}

void ReportView::detach() {
    ControlView::detach();
    viewer_ = nullptr;
    pages_.setViewer(nullptr);
}

void ReportView::scrolled() {
    const std::size_t page = pages_.pageInView();
    if (viewer_ == nullptr || viewer_->currentPage() == page)
        return;
    scrolling_ = true;
    act([page](ReportViewer& shown) { shown.goTo(page); });
    scrolling_ = false;
}

void ReportView::act(const std::function<void(ReportViewer&)>& action) {
    if (viewer_ == nullptr)
        return;
    // The form must not go while a box of the viewer is open, or its pages are being written.
    const forms::FormRegistry::Action hold(desk().session.forms);
    ControlView::act([this, &action](forms::User&, forms::Control&) {
        action(*viewer_);
        return forms::Outcome();
    });
}

QAction& ReportView::addAction(const char* icon, const QString& text, const QList<QKeySequence>& keys,
                               std::function<void()> action) {
    QAction* made = bar_.addAction(themeIcon(QLatin1String(icon)), text);
    made->setShortcuts(keys);
    made->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.constFirst().toString(QKeySequence::NativeText)));
    QObject::connect(made, &QAction::triggered, made, std::move(action));
    return *made;
}

QAction* ReportView::addIcon(const char* icon, const QString& text, const QList<QKeySequence>& keys,
                             std::function<void()> action) {
    QAction& made = addAction(icon, text, keys, std::move(action));
    if (auto* button = dynamic_cast<QToolButton*>(bar_.widgetForAction(&made)))
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    return &made;
}

void ReportView::makeBar() {
    bar_.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addAction("print", tr("Print"), {QKeySequence(Qt::CTRL | Qt::Key_P)}, [this] { print(); });
    addAction("save", tr("Save as PDF"), {QKeySequence(Qt::CTRL | Qt::Key_S)}, [this] { saveAsPdf(); });
    addAction("find", tr("Find"), {QKeySequence(Qt::CTRL | Qt::Key_F)}, [this] { openFindLine(); });
    bar_.addSeparator();
    addPageActions();
    bar_.addSeparator();
    addZoomActions();
    state_ = new QLabel;
    state_->setObjectName(QStringLiteral("decoState"));
    state_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    state_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bar_.addWidget(state_);
}

void ReportView::addPageActions() {
    const auto goTo = [this](auto page) {
        return [this, page] { act([page](ReportViewer& shown) { shown.goTo(page(shown)); }); };
    };
    addIcon("first", tr("First Page"), {Qt::Key_Home, Qt::CTRL | Qt::Key_Home},
            goTo([](const ReportViewer&) { return std::size_t{0}; }));
    previous_ = addIcon("previous", tr("Previous Page"), {Qt::CTRL | Qt::Key_PageUp},
                        goTo([](const ReportViewer& shown) { return shown.currentPage() - 1; }));
    addPageBox();
    next_ = addIcon("next", tr("Next Page"), {Qt::CTRL | Qt::Key_PageDown},
                    goTo([](const ReportViewer& shown) { return shown.currentPage() + 1; }));
    addIcon("last", tr("Last Page"), {Qt::Key_End, Qt::CTRL | Qt::Key_End},
            goTo([](const ReportViewer& shown) { return shown.pages().size() - 1; }));
}

void ReportView::addPageBox() {
    pageBox_ = new QSpinBox;
    pageBox_->setObjectName(QStringLiteral("decoPage"));
    pageBox_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    pageBox_->setAlignment(Qt::AlignRight);
    pageBox_->setKeyboardTracking(false);
    pageBox_->setToolTip(tr("Page (Ctrl+G)"));
    bar_.addWidget(pageBox_);
    pageCount_ = new QLabel;
    pageCount_->setObjectName(QStringLiteral("decoPageCount"));
    bar_.addWidget(pageCount_);
    QObject::connect(pageBox_, &QSpinBox::valueChanged, this, [this](int page) {
        act([page](ReportViewer& shown) {
            if (shown.currentPage() + 1 != static_cast<std::size_t>(page))
                shown.goTo(static_cast<std::size_t>(page) - 1);
        });
    });
    QObject::connect(new QShortcut(Qt::CTRL | Qt::Key_G, widget()), &QShortcut::activated, this, [this] {
        pageBox_->setFocus();
        pageBox_->selectAll();
    });
}

void ReportView::addZoomActions() {
    zoomOut_ = addIcon("zoom-out", tr("Smaller"), {Qt::CTRL | Qt::Key_Minus}, [this] { zoomBy(-1); });
    fullSize_ = &addAction("", tr("Full Size"), {Qt::CTRL | Qt::Key_0}, [this] {
        fit_->setChecked(false);
        act([](ReportViewer& shown) { shown.setZoom(ReportViewer::fullZoom); });
    });
    zoomIn_ =
        addIcon("zoom-in", tr("Larger"), {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [this] { zoomBy(1); });
    fit_ = &addAction("fit-width", tr("Fit Width"), {Qt::CTRL | Qt::Key_2}, [this] { fitWidth(fit_->isChecked()); });
    fit_->setCheckable(true);
}

void ReportView::makeFindLine() {
    auto& next = part<QToolButton>("decoFindNext");
    auto& previous = part<QToolButton>("decoFindPrevious");
    auto& close = part<QToolButton>("decoFindClose");
    close.setIcon(themeIcon(QStringLiteral("close")));
    findLine_.hide();
    QObject::connect(&findText_, &QLineEdit::textChanged, this, [this] { find(false); });
    QObject::connect(&findText_, &QLineEdit::returnPressed, this,
                     [this] { find((QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) != 0); });
    QObject::connect(&next, &QToolButton::clicked, this, [this] { find(false); });
    QObject::connect(&previous, &QToolButton::clicked, this, [this] { find(true); });
    QObject::connect(&close, &QToolButton::clicked, this, [this] { closeFindLine(); });
    auto* escape = new QShortcut(Qt::Key_Escape, &findLine_);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(escape, &QShortcut::activated, this, [this] { closeFindLine(); });
    const auto again = [this](const QKeySequence& key, bool backwards) {
        QObject::connect(new QShortcut(key, widget()), &QShortcut::activated, this,
                         [this, backwards] { findText_.text().isEmpty() ? openFindLine() : find(backwards); });
    };
    again(Qt::Key_F3, false);
    again(Qt::SHIFT | Qt::Key_F3, true);
}

void ReportView::openFindLine() {
    findLine_.show();
    findText_.setFocus();
    findText_.selectAll();
}

void ReportView::closeFindLine() {
    findLine_.hide();
    pages_.setFocus();
}

void ReportView::find(bool backwards) {
    const std::string text = fromQt(findText_.text());
    findLine_.show();
    act([&](ReportViewer& shown) {
        const auto before = shown.searched() == text ? shown.found() : std::nullopt;
        const bool found = shown.Find(text, backwards);
        const bool around = found && before && (backwards ? *shown.found() >= *before : *shown.found() <= *before);
        if (!found && !text.empty())
            findState_.setText(tr("\"%1\" was not found.").arg(findText_.text()));
        else if (around)
            findState_.setText(backwards ? tr("Went on from the last page.") : tr("Went on from the first page."));
        else
            findState_.clear();
    });
}

void ReportView::draw(Property property) {
    ControlView::draw(property);
    if (viewer_ == nullptr)
        return;
    switch (property) {
    case Property::Items:
        drawPages();
        break;
    case Property::Page:
        if (!scrolling_)
            pages_.showPage(viewer_->currentPage());
        drawPageNumber();
        break;
    case Property::Look:
        drawZoom();
        break;
    case Property::Selection:
        drawPageNumber();
        pages_.showFound();
        break;
    default:
        break;
    }
}

void ReportView::drawPages() {
    const auto count = static_cast<int>(viewer_->pages().size());
    fit_->setChecked(false);
    findText_.clear();
    closeFindLine();
    state_->clear();
    pageBox_->setRange(std::min(1, count), count);
    pageCount_->setText(tr(" of %1 ").arg(count));
    drawZoom();
    pages_.showPage(viewer_->currentPage());
    drawPageNumber();
    // Another report while the window is open already, perhaps behind others.
    if (QWidget* window = widget()->window(); window->isVisible()) {
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
        window->activateWindow();
    }
}

void ReportView::drawPageNumber() {
    const std::size_t page = viewer_->currentPage();
    pageBox_->setValue(static_cast<int>(page) + 1);
    previous_->setEnabled(page > 0);
    next_->setEnabled(page + 1 < viewer_->pages().size());
}

void ReportView::drawZoom() {
    fullSize_->setText(QStringLiteral("%1%").arg(viewer_->Zoom()));
    zoomOut_->setEnabled(viewer_->Zoom() > zooms.front());
    zoomIn_->setEnabled(viewer_->Zoom() < zooms.back());
    pages_.reflow();
}

void ReportView::zoomBy(int steps) {
    fit_->setChecked(false);
    act([steps](ReportViewer& shown) { shown.setZoom(steppedZoom(shown.Zoom(), steps)); });
}

void ReportView::fitWidth(bool on) {
    act([this, on](ReportViewer& shown) { shown.setZoom(on ? pages_.fittingZoom() : ReportViewer::fullZoom); });
}

std::function<void(std::size_t)> ReportView::progress() {
    constexpr int often = 100;
    QElapsedTimer since;
    since.start();
    return [state = QPointer<QLabel>(state_), &session = desk().session, since](std::size_t done) mutable {
        if (since.elapsed() < often)
            return;
        since.start();
        tellState(state, tr("Page %1 ... ").arg(done));
        session.DoEvents();
    };
}

void ReportView::saveAsPdf() {
    act([this](const ReportViewer& shown) {
        // This view may be gone when the box is answered.
        const QPointer<QLabel> state(state_);
        const auto work = progress();
        core::Session& session = desk().session;
        const std::string caption = shown.form().Caption();
        const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        const std::string path = session.dialogs.file(
            {true, "Save as PDF", "PDF files (*.pdf)|*.pdf", fromQt(documents), fileNameOf(caption)});
        if (path.empty())
            return;
        const forms::Hourglass hourglass(session.forms);
        QString told; // nothing of a work that failed
        const auto tell = qScopeGuard([&] { tellState(state, told); });
        session.files.write(path, printing::pdfOf(caption, shown.layout(), shown.pages(), work));
        told = tr("Saved as %1 ").arg(toQt(path).section(QLatin1Char('/'), -1));
    });
}

void ReportView::print() {
    act([this](const ReportViewer& shown) {
        const QPointer<QLabel> state(state_);
        const auto work = progress();
        Desk& used = desk();
        QPrinter printer(QPrinter::HighResolution);
        if (!used.printer.isEmpty())
            printer.setPrinterName(used.printer);
        printer.setDocName(toQt(shown.form().Caption()));
        printer.setPageLayout(paperOf(shown.layout()));
        const QPointer<QPrintDialog> dialog(new QPrintDialog(&printer, widget()));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setOption(QAbstractPrintDialog::PrintCurrentPage);
        dialog->setMinMax(1, static_cast<int>(shown.pages().size()));
        if (dialog->exec() != QDialog::Accepted)
            return;
        used.printer = printer.printerName();
        const forms::Hourglass hourglass(used.session.forms);
        QString told;
        const auto tell = qScopeGuard([&] { tellState(state, told); });
        printPages(printer, shown.layout(), shown.pages(), shown.currentPage(), work);
        const QString target = printer.outputFileName();
        told = tr("Sent to %1 ").arg(target.isEmpty() ? printer.printerName() : target);
    });
}

} // namespace zel::desktop
