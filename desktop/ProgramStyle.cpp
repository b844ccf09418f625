#include "desktop/ProgramStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>

namespace vantrellion {

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    if (icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton)
        return OverflowArrows(icon == SP_ToolBarHorizontalExtensionButton,
                              widget ? widget->palette() : standardPalette());
    return QProxyStyle::standardIcon(icon, option, widget);
}

QIcon OverflowArrows(bool horizontal, const QPalette& palette) {
    QPixmap picture(16, 16);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(palette.color(QPalette::WindowText), 1.5));
    if (!horizontal) {  // the same arrows turned to point down
        p.translate(16, 0);
        p.rotate(90);
    }
    // Two chevrons side by side.
    for (double x : {3.5, 8.5}) {
        QPainterPath chevron;
        chevron.moveTo(x, 4);
        chevron.lineTo(x + 4, 8);
        chevron.lineTo(x, 12);
        p.drawPath(chevron);
    }
    return QIcon(picture);
}

}  // namespace vantrellion
