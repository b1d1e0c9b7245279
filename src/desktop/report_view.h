#pragma once

#include "desktop/control_view.h"

#include <QKeySequence>

#include <cstddef>
#include <functional>

class QAction;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolBar;

namespace zel::reports {
class ReportViewer;
} // namespace zel::reports

namespace zel::desktop {

class PagesView;

/// The report viewer: its pages, the bar above them, and the line in which a text is searched.
class ReportView final : public ControlView {
public:
    ReportView(reports::ReportViewer& viewer, QWidget& widget, Desk& desk);

    void detach() override;

protected:
    void draw(forms::Property property) override;
    /// Keys are the bar's and the pages' own.
    bool keyPressed(const QKeyEvent&) override { return false; }

private:
    template <typename Part>
    [[nodiscard]] Part& part(const char* name) const;
    void makeBar();
    void addPageActions();
    void addPageBox();
    void addZoomActions();
    void makeFindLine();
    QAction& addAction(const char* icon, const QString& text, const QList<QKeySequence>& keys,
                       std::function<void()> action);
    /// The same, without its words in the bar.
    QAction* addIcon(const char* icon, const QString& text, const QList<QKeySequence>& keys,
                     std::function<void()> action);
    /// Does something with the viewer, as everything that a clerk does.
    void act(const std::function<void(reports::ReportViewer&)>& action);

    void scrolled();
    void drawPages();
    void drawPageNumber();
    void drawZoom();
    void zoomBy(int steps);
    void fitWidth(bool on);
    void openFindLine();
    void closeFindLine();
    void find(bool backwards);
    /// Asks for a file, and writes the report as PDF.
    void saveAsPdf();
    /// Asks for a printer and pages, and prints them.
    void print();
    /// Tells how far a long work is, at most a few times a second.
    std::function<void(std::size_t)> progress();

    reports::ReportViewer* viewer_;
    QToolBar& bar_;
    PagesView& pages_;
    QWidget& findLine_;
    QLineEdit& findText_;
    QLabel& findState_;
    QSpinBox* pageBox_ = nullptr;
    QLabel* pageCount_ = nullptr;
    QLabel* state_ = nullptr;
    QAction *previous_ = nullptr, *next_ = nullptr;
    QAction *zoomOut_ = nullptr, *fullSize_ = nullptr, *zoomIn_ = nullptr, *fit_ = nullptr;
    bool scrolling_ = false;
};

} // namespace zel::desktop
