#include "desktop/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QSvgRenderer>
#include <QWidget>

#include <map>

/// A static library's resources are left out unless they are asked for, outside of any namespace.
static void loadDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace zel::desktop {

namespace {

/// Names in the desktop's theme; an icon without one is always our own.
const std::map<QString, QString>& themeNames() {
    static const std::map<QString, QString> names{
        {QStringLiteral("save"), QStringLiteral("document-save")},
        {QStringLiteral("delete"), QStringLiteral("edit-delete")},
        {QStringLiteral("refresh"), QStringLiteral("view-refresh")},
        {QStringLiteral("open"), QStringLiteral("document-open")},
        {QStringLiteral("exit"), QStringLiteral("application-exit")},
        {QStringLiteral("print"), QStringLiteral("document-print")},
        {QStringLiteral("find"), QStringLiteral("edit-find")},
        {QStringLiteral("first"), QStringLiteral("go-first")},
        {QStringLiteral("previous"), QStringLiteral("go-previous")},
        {QStringLiteral("next"), QStringLiteral("go-next")},
        {QStringLiteral("last"), QStringLiteral("go-last")},
        {QStringLiteral("zoom-in"), QStringLiteral("zoom-in")},
        {QStringLiteral("zoom-out"), QStringLiteral("zoom-out")},
        {QStringLiteral("close"), QStringLiteral("window-close")},
        {QStringLiteral("critical"), QStringLiteral("dialog-error")},
        {QStringLiteral("exclamation"), QStringLiteral("dialog-warning")},
        {QStringLiteral("question"), QStringLiteral("dialog-question")},
        {QStringLiteral("information"), QStringLiteral("dialog-information")},
    };
    return names;
}

QIcon ownIcon(const QString& name) {
    loadDrawings();
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray drawing = file.readAll();
    drawing.replace("currentColor", QGuiApplication::palette().color(QPalette::WindowText).name().toLatin1());
    QSvgRenderer renderer(drawing);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 96, 128}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace

QIcon themeIcon(const QString& name) {
    const auto named = themeNames().find(name);
    if (named != themeNames().end() && QIcon::hasThemeIcon(named->second))
        return QIcon::fromTheme(named->second);
    return ownIcon(name);
}

QPixmap boxPicture(const QString& name, const QWidget& widget) {
    const int size = widget.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &widget);
    return themeIcon(name).pixmap(QSize(size, size), widget.devicePixelRatioF());
}

} // namespace zel::desktop
