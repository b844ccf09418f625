// A row display with no one to see it (a preview's run, a program without a window): every
// colour and caption goes nowhere, and the window counts as minimised, so the clock displays
// are left alone too. A display that keeps some of it overrides just those.
#pragma once

#include "core/Platform.h"

namespace vantrellion {

class NullRowDisplay : public RowDisplay {
  public:
    void SetOnOffLight(int, Color) override {}
    void SetTimePairBackground(int, Color) override {}
    void SetDayHrEvenOddBackground(int, Color) override {}
    void SetManualBackground(int, Color) override {}
    void SetInvertBackground(int, Color) override {}
    void SetInvertCaption(int, const std::string&) override {}
    void SetTotalTimeBackground(int, Color) override {}
    void SetTotalTimeCaption(int, const std::string&) override {}
    void SetCounterBackground(int, Color) override {}
    void SetCounterCaption(int, const std::string&) override {}
    void SetStateDisplayCaption(int, const std::string&) override {}
    void SetInputDisplayCaption(int, const std::string&) override {}
    bool IsMinimized() const override { return true; }
    void SetStatusTime(const std::string&) override {}
    void SetTimeWindowCaption(const std::string&) override {}
};

}  // namespace vantrellion
