// frmConfiguration, the combined screen: boards, names, log directory and colours.
#pragma once

#include "desktop/ConfigScreenWindow.h"

namespace vantrellion {

class frmConfiguration : public ConfigScreenWindow {
  public:
    explicit frmConfiguration(System& s, ColorChooser* chooser = nullptr, QWidget* parent = nullptr)
        : ConfigScreenWindow(s, ConfigScreenKind::Configuration, chooser, parent) {}
};

}  // namespace vantrellion
