#pragma once
// Converts texts between the model (UTF-8) and the toolkit.

#include <QString>
#include <string>
#include <string_view>

namespace velmora::painting {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace velmora::painting
