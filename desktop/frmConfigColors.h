// frmConfigColors, the colour-only screen, for a small display: status and relay group colours.
#pragma once

#include "desktop/ConfigScreenWindow.h"

namespace vantrellion {

class frmConfigColors : public ConfigScreenWindow {
  public:
    explicit frmConfigColors(System& s, ColorChooser* chooser = nullptr, QWidget* parent = nullptr)
        : ConfigScreenWindow(s, ConfigScreenKind::ConfigColors, chooser, parent) {}
};

}  // namespace vantrellion
