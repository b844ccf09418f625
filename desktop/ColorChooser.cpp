#include "desktop/ColorChooser.h"

#include <QColorDialog>

#include "desktop/QtConvert.h"

namespace vantrellion {

std::optional<Color> QtColorChooser::Choose(QWidget* parent, const QString& title, Color start) {
    QColorDialog dialog(ToQColor(start), parent);
    dialog.setWindowTitle(title);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    if (!chosen.isValid()) return std::nullopt;
    return FromQColor(chosen);
}

}  // namespace vantrellion
