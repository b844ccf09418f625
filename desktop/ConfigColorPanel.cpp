#include "desktop/ConfigColorPanel.h"

#include <QGridLayout>

#include "desktop/QtConvert.h"

namespace vantrellion {

const std::array<const char*, StatusColorCount> StatusColorCaptions = {
    "Name Bkgnd", "Relay ON",   "Relay Off", "Time On",   "Time Off",
    "Manual On",  "Manual Off", "Input On",  "Input Off", "T Time Bkgnd"};
const std::array<const char*, StatusColorCount> StatusColorMenuNames = {
    "mnuSetColorNameBkgrnd", "mnuSetColorRelayON",   "mnuSetColorRelayOff",  "mnuSetColorTimeON",
    "mnuSetColorTimeOFF",    "mnuSetColorManualON",  "mnuSetColorManualOFF", "mnuSetColorInputON",
    "mnuSetColorInputOFF",   "mnuSetColorTTimeBkgnd"};
const std::array<const char*, StatusColorCount> StatusColorMenuCaptions = {
    "Set Relay Name Background Color",
    "Set Relay ON Color",
    "Set Relay OFF Color",
    "Set Time ON Color",
    "Set Time Off Color",
    "Set Manual ON Color",
    "Set Manual OFF Color",
    "Set Input ON Color",
    "Set Input OFF Color",
    "Set ToTal Time BackGround Color"};

ColorButton::ColorButton(const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
    setAutoDefault(false);
    SetColor(0);
}

void ColorButton::SetColor(Color c) {
    if (c == color_) return;
    color_ = c;
    const QColor back = ToQColor(c);
    // Dark text on light colours and light text on dark ones.
    const QColor text = back.lightness() < 128 ? Qt::white : Qt::black;
    setStyleSheet(QString("background-color: %1; color: %2;").arg(back.name(), text.name()));
}

ConfigColorPanel::ConfigColorPanel(QWidget* parent) : QWidget(parent) {
    setObjectName("ColorPart");
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 2, 4, 2);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(2);
    lblBackground = new QLabel("BackGround", this);
    lblBackground->setObjectName("lblBackground");
    grid->addWidget(lblBackground, 0, 0, 1, 5);
    for (int i = 0; i < GroupColorCount; ++i) {
        auto* b = new ColorButton(QString("Group %1 Color").arg(i + 1), this);
        b->setObjectName("cmdSetColorGroupBkgrnd");
        b->setProperty("index", i);
        cmdSetColorGroupBkgrnd[i] = b;
        grid->addWidget(b, 1 + i / 4, i % 4);
    }
    for (int i = 0; i < StatusColorCount; ++i) {
        auto* b = new ColorButton(StatusColorCaptions[i], this);
        b->setObjectName("cmdSetColorIndicator");
        b->setProperty("index", i);
        cmdSetColorIndicator[i] = b;
        grid->addWidget(b, 3 + i / 5, i % 5);
    }
}

}  // namespace vantrellion
