// The configuration screens as the start-up check opens them on a first run.
#pragma once

#include <functional>

#include "configuration/CheckConfigurationAtStart.h"

namespace vantrellion {

class DesktopFirstRunScreens : public FirstRunScreens {
  public:
    // The screens come from whoever owns them; a missing one is not shown.
    std::function<void()> configuration, configBoards, configColors;

    int ScreenHeightTwips() override;
    void ShowConfiguration() override {
        if (configuration) configuration();
    }
    void ShowConfigBoards() override {
        if (configBoards) configBoards();
    }
    void ShowConfigColors() override {
        if (configColors) configColors();
    }
};

// The height of the primary display, in twips.
int DisplayHeightTwips();

}  // namespace vantrellion
