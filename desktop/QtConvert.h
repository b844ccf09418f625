// Conversions between the system's units and Qt's: twips to pixels, 32-bit BGR colours,
// UTF-8 texts.
#pragma once

#include <QColor>
#include <QString>
#include <string>

#include "core/Flags.h"

namespace vantrellion {

inline constexpr int TwipsPerPixel = 15;
inline int Px(int twips) {
    return twips / TwipsPerPixel;
}

inline QColor ToQColor(Color c) {
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

// Texts of the core, file names and paths included, are UTF-8: they pass to and from Qt
// without loss, whatever the characters.
inline QString Q(const std::string& utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string S(const QString& text) {
    return text.toUtf8().toStdString();
}

}  // namespace vantrellion
