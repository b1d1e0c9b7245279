#include "pictures/camera.h"

#include "desktop/qt_text.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QMainWindow>
#include <QPainter>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace zel::pictures {

using desktop::fromQt;
using desktop::toQt;

namespace {

constexpr int settleMilliseconds = 60;

/// What is on the display, the lowest first.
std::vector<QWidget*> shownWindows() {
    std::vector<QWidget*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible())
            windows.push_back(widget);
    }
    const auto height = [](const QWidget* widget) {
        if (qobject_cast<const QMainWindow*>(widget) != nullptr)
            return 0;
        const bool popup = widget->windowType() == Qt::Popup || widget->windowType() == Qt::ToolTip;
        return popup ? 4 : widget == QApplication::activeModalWidget() ? 3 : widget->isModal() ? 2 : 1;
    };
    std::ranges::stable_sort(windows, {}, height);
    return windows;
}

/// A display without a desktop draws no title bars; a box would stand there without its title.
int titleHeight(const QWidget& window) {
    return qobject_cast<const QDialog*>(&window) == nullptr ? 0 : window.fontMetrics().height() + 10;
}

void drawWindow(QPainter& painter, QWidget& window) {
    const QRect area(window.pos(), window.size());
    painter.drawPixmap(area.topLeft(), window.grab());
    if (const int height = titleHeight(window); height > 0) {
        const QRect bar(area.left(), area.top() - height, area.width(), height);
        painter.fillRect(bar, window.palette().mid());
        painter.setPen(window.palette().color(QPalette::WindowText));
        painter.setFont(window.font());
        painter.drawText(bar, Qt::AlignCenter, window.windowTitle());
        painter.drawRect(bar.united(area).adjusted(0, 0, -1, -1));
    }
}

} // namespace

Camera::Camera(const std::string& folder, const std::string& tail) : folder_(toQt(folder)), tail_(toQt(tail)) {
    if (!QDir().mkpath(folder_.path()))
        throw std::runtime_error("cannot make " + folder);
}

std::string Camera::take(const std::string& name) const {
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < settleMilliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, settleMilliseconds);
    const auto windows = shownWindows();
    if (windows.empty())
        throw std::runtime_error("there is nothing on the display");
    QRect area;
    for (const QWidget* window : windows)
        area |= QRect(window->pos(), window->size()).adjusted(0, -titleHeight(*window), 0, 0);
    const qreal scale = windows.front()->devicePixelRatioF();
    QPixmap picture(area.size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(windows.front()->palette().color(QPalette::Dark));
    {
        QPainter painter(&picture);
        painter.translate(-area.topLeft());
        for (QWidget* window : windows)
            drawWindow(painter, *window);
    }
    const QString path = folder_.absoluteFilePath(toQt(name) + tail_ + QStringLiteral(".png"));
    if (!picture.save(path))
        throw std::runtime_error("cannot write " + fromQt(path));
    return fromQt(path);
}

} // namespace zel::pictures
