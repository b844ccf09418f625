// frmConfigBoards, the board-only screen, for a small display: boards, names, log directory,
// overlap warning.
#pragma once

#include "desktop/ConfigScreenWindow.h"

namespace vantrellion {

class frmConfigBoards : public ConfigScreenWindow {
  public:
    explicit frmConfigBoards(System& s, ColorChooser* chooser = nullptr, QWidget* parent = nullptr)
        : ConfigScreenWindow(s, ConfigScreenKind::ConfigBoards, chooser, parent) {}
};

}  // namespace vantrellion
