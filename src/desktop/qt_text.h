#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace zel::desktop {

[[nodiscard]] inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

/// Text of several lines as widgets break it.
[[nodiscard]] inline QString linesToQt(std::string_view text) {
    return toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace zel::desktop
