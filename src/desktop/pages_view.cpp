#include "desktop/pages_view.h"

#include "printing/paint.h"
#include "reports/report_viewer.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace zel::desktop {

namespace {

constexpr int gap = 12, lineStep = 40;
constexpr int wheelNotch = 120;
constexpr QColor paper(255, 255, 255), edge(110, 110, 110), foundColour(255, 240, 140), currentColour(255, 170, 60);

} // namespace

PagesView::PagesView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
}

void PagesView::setViewer(const reports::ReportViewer* viewer) {
    viewer_ = viewer;
    reflow();
}

QSize PagesView::sizeHint() const {
    const printing::Layout letter;
    return {static_cast<int>(letter.pageWidth * logicalDpiX()) + 4 * gap + verticalScrollBar()->sizeHint().width(),
            static_cast<int>(letter.pageHeight * logicalDpiY()) + 2 * gap};
}

double PagesView::dotsToPixels() const {
    return viewer_->Zoom() / 100.0 * logicalDpiX() / printing::dotsPerInch;
}

QSize PagesView::pageSize() const {
    const double scale = viewer_->Zoom() / 100.0 * logicalDpiX();
    return {static_cast<int>(std::lround(viewer_->layout().pageWidth * scale)),
            static_cast<int>(std::lround(viewer_->layout().pageHeight * scale))};
}

int PagesView::pitch() const {
    return pageSize().height() + gap;
}

void PagesView::reflow() {
    // What begins at its edge goes on doing so.
    const auto share = [](const QScrollBar& bar) {
        return bar.value() == 0 ? 0.0
                                : (bar.value() + bar.pageStep() / 2.0) / std::max(1, bar.maximum() + bar.pageStep());
    };
    const auto measure = [](QScrollBar& bar, int whole, int seen, double middle) {
        bar.setPageStep(seen);
        bar.setSingleStep(lineStep);
        bar.setRange(0, std::max(0, whole - seen));
        bar.setValue(static_cast<int>(std::lround(middle * whole - seen / 2.0)));
    };
    placing_ = true;
    const double down = share(*verticalScrollBar()), across = share(*horizontalScrollBar());
    const bool empty = viewer_ == nullptr || viewer_->pages().empty();
    measure(*verticalScrollBar(), empty ? 0 : static_cast<int>(viewer_->pages().size()) * pitch() + gap,
            viewport()->height(), down);
    measure(*horizontalScrollBar(), empty ? 0 : pageSize().width() + 2 * gap, viewport()->width(), across);
    placing_ = false;
    viewport()->update();
}

void PagesView::scrollTo(QScrollBar& bar, int value) {
    placing_ = true;
    bar.setValue(value);
    placing_ = false;
}

void PagesView::showPage(std::size_t page) {
    scrollTo(*verticalScrollBar(), static_cast<int>(page) * pitch());
}

QRect PagesView::pagePlace(std::size_t page) const {
    const QSize size = pageSize();
    const int left = std::max(gap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    return {QPoint(left, gap + static_cast<int>(page) * pitch() - verticalScrollBar()->value()), size};
}

std::size_t PagesView::pageAt(int y) const {
    const int page = (y + verticalScrollBar()->value() - gap / 2) / pitch();
    return std::min(static_cast<std::size_t>(std::max(0, page)), viewer_->pages().size() - 1);
}

std::size_t PagesView::pageInView() const {
    if (viewer_ == nullptr || viewer_->pages().empty())
        return 0;
    const QScrollBar& bar = *verticalScrollBar();
    if (bar.value() == bar.maximum())
        return viewer_->pages().size() - 1;
    return pageAt(std::min(viewport()->height() / 3, pitch() / 2));
}

int PagesView::fittingZoom() const {
    if (viewer_ == nullptr)
        return reports::ReportViewer::fullZoom;
    return static_cast<int>((viewport()->width() - 2 * gap) * 100.0 / (viewer_->layout().pageWidth * logicalDpiX()));
}

void PagesView::showFound() {
    if (viewer_ == nullptr || !viewer_->found())
        return;
    const printing::FoundText& found = *viewer_->found();
    const printing::Mark& mark = viewer_->pages()[found.page][found.mark];
    const double inch = dotsToPixels() * printing::dotsPerInch;
    const QRect place = pagePlace(found.page);
    const QRect text(place.left() + static_cast<int>(mark.x * inch), place.top() + static_cast<int>(mark.y * inch),
                     static_cast<int>(mark.item.width * inch), static_cast<int>(mark.item.height * inch));
    if (text.top() < 0 || text.bottom() > viewport()->height())
        scrollTo(*verticalScrollBar(), verticalScrollBar()->value() + text.center().y() - viewport()->height() / 2);
    if (text.left() < 0 || text.right() > viewport()->width())
        scrollTo(*horizontalScrollBar(), horizontalScrollBar()->value() + text.left() - gap);
    viewport()->update();
}

void PagesView::paintFound(QPainter& painter, const printing::PagePainter& letters, std::size_t page) {
    for (const printing::FoundText& found : printing::textsOnPage(viewer_->pages(), page, viewer_->searched())) {
        const QRectF place = letters.lettersOf(viewer_->pages()[page][found.mark], found.first, found.length);
        const bool current = viewer_->found() && *viewer_->found() == found;
        painter.fillRect(place, current ? currentColour : foundColour);
        if (current) {
            painter.setPen(QPen(Qt::black, printing::dotsPerInch / 100.0));
            painter.drawRect(place);
        }
    }
}

void PagesView::paintPage(QPainter& painter, printing::PagePainter& drawing, std::size_t page) {
    const QRect place = pagePlace(page);
    painter.fillRect(place.adjusted(-1, -1, 1, 1), edge);
    painter.fillRect(place, paper);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    painter.scale(dotsToPixels(), dotsToPixels());
    paintFound(painter, drawing, page);
    drawing.draw(viewer_->pages()[page]);
    painter.restore();
}

void PagesView::paintEvent(QPaintEvent* event) {
    if (viewer_ == nullptr || viewer_->pages().empty())
        return;
    QPainter painter(viewport());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    printing::PagePainter drawing(painter);
    const std::size_t last = pageAt(event->rect().bottom());
    for (std::size_t page = pageAt(event->rect().top()); page <= last; ++page)
        paintPage(painter, drawing, page);
}

void PagesView::resizeEvent(QResizeEvent*) {
    reflow();
    if (resized)
        resized();
}

void PagesView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (zoomAsked)
        zoomAsked(event->angleDelta().y() / wheelNotch);
    event->accept();
}

void PagesView::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
    verticalScrollBar()->triggerAction(back ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd);
}

void PagesView::scrollContentsBy(int, int) {
    viewport()->update();
    if (!placing_ && scrolled)
        scrolled();
}

} // namespace zel::desktop
