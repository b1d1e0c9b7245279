#pragma once

#include <QAbstractScrollArea>

#include <cstddef>
#include <functional>

class QPainter;
class QScrollBar;

namespace zel::printing {
class PagePainter;
} // namespace zel::printing

namespace zel::reports {
class ReportViewer;
} // namespace zel::reports

namespace zel::desktop {

/// The pages of a report one below the other, on paper that stays white. Only what can be seen is painted, each time
/// anew from the marks of the page: nothing is kept of a page, however long the report.
class PagesView final : public QAbstractScrollArea {
public:
    explicit PagesView(QWidget* parent = nullptr);

    /// Whose pages it shows; null for none.
    void setViewer(const reports::ReportViewer* viewer);
    /// Pages or their size have changed; what was in the middle stays there.
    void reflow();
    void showPage(std::size_t page);
    /// Scrolls as little as brings the place found into view.
    void showFound();
    /// The page that is read: the one a third of the way down.
    [[nodiscard]] std::size_t pageInView() const;
    /// Percent at which a page is as wide as the view.
    [[nodiscard]] int fittingZoom() const;
    /// Where the page lies in the view.
    [[nodiscard]] QRect pagePlace(std::size_t page) const;

    /// The clerk has scrolled; turned the wheel with Ctrl, so many notches; the view has another size.
    std::function<void()> scrolled;
    std::function<void(int notches)> zoomAsked;
    std::function<void()> resized;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    [[nodiscard]] double dotsToPixels() const;
    [[nodiscard]] QSize pageSize() const;
    /// From the top of a page to that of the next.
    [[nodiscard]] int pitch() const;
    [[nodiscard]] std::size_t pageAt(int y) const;
    void scrollTo(QScrollBar& bar, int value);
    void paintPage(QPainter& painter, printing::PagePainter& drawing, std::size_t page);
    void paintFound(QPainter& painter, const printing::PagePainter& letters, std::size_t page);

    const reports::ReportViewer* viewer_ = nullptr;
    bool placing_ = false;
};

} // namespace zel::desktop
