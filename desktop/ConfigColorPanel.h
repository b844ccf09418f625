// The colour part of the configuration screens: the ten status colour buttons and the eight
// relay group buttons under lblBackground. Each button is its own preview, its background being
// the colour it stands for. The window that holds the part handles the clicks.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "configuration/screens/ConfigScreen.h"

namespace vantrellion {

// A button whose background shows a colour, with a caption that stays readable on it.
class ColorButton : public QPushButton {
    Q_OBJECT
  public:
    ColorButton(const QString& caption, QWidget* parent);
    void SetColor(Color c);
    Color ColorShown() const { return color_; }

  private:
    Color color_ = -1;
};

class ConfigColorPanel : public QWidget {
    Q_OBJECT
  public:
    explicit ConfigColorPanel(QWidget* parent = nullptr);

    QLabel* lblBackground;
    std::array<ColorButton*, StatusColorCount> cmdSetColorIndicator{};
    std::array<ColorButton*, GroupColorCount> cmdSetColorGroupBkgrnd{};

    ColorButton* Button(ColorArray array, int index) const {
        return array == ColorArray::cmdSetColorIndicator ? cmdSetColorIndicator[index]
                                                         : cmdSetColorGroupBkgrnd[index];
    }
};

// The captions of the status buttons, and of their menu entries, by index.
extern const std::array<const char*, StatusColorCount> StatusColorCaptions;
extern const std::array<const char*, StatusColorCount> StatusColorMenuNames;
extern const std::array<const char*, StatusColorCount> StatusColorMenuCaptions;

}  // namespace vantrellion
