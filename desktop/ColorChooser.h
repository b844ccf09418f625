// The colour chooser of the configuration screens: a modal dialog that takes a title and a
// start colour and answers the chosen colour, or nothing when the user cancelled. The screens
// take it through this interface, so that tests can answer in its place.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <optional>

#include "core/Flags.h"

namespace vantrellion {

class ColorChooser {
  public:
    virtual ~ColorChooser() = default;
    virtual std::optional<Color> Choose(QWidget* parent, const QString& title, Color start) = 0;
};

// Qt's colour dialog, opened on the start colour.
class QtColorChooser : public ColorChooser {
  public:
    std::optional<Color> Choose(QWidget* parent, const QString& title, Color start) override;
};

// A Qt colour as the system's 32-bit colour: blue in the high byte, then green, then red.
inline Color FromQColor(const QColor& c) {
    return Rgb(c.red(), c.green(), c.blue());
}

}  // namespace vantrellion
