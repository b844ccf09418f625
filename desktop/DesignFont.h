// The one font family of the program's windows.
#pragma once

#include <QFont>

namespace vantrellion {

// The rows were laid out for an Arial-metric font; fontconfig maps "Arial" to the installed
// metric twin (Liberation Sans, Nimbus Sans). The menus, the status bar and every other window
// use the same family: texts then fit the design sizes, and a single family keeps a single
// font file mapped for the life of the program instead of two or three.
inline QFont DesignFont(double pointSize) {
    QFont f(QStringLiteral("Arial"));
    f.setPointSizeF(pointSize);
    f.setWeight(QFont::Normal);
    return f;
}

}  // namespace vantrellion
