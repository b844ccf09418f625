// Conversions between the system's units and Qt's: twips to pixels, 32-bit BGR colours,
// Latin-1 texts.
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

inline QString Q(const std::string& latin1) {
    return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
}
inline std::string S(const QString& text) {
    return text.toLatin1().toStdString();
}

}  // namespace vantrellion
