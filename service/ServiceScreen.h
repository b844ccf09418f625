// The main screen of a program without a window: the core writes its rows, captions and
// status panels here and reads the texts back, as it does with the desktop's window. Only the
// texts are kept; colours, pictures and the like have no one to see them.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "core/MainScreenView.h"
#include "core/NullRowDisplay.h"

namespace vantrellion {

class ServiceScreen : public MainScreenView, public NullRowDisplay {
  public:
    // MainScreenView
    void SetTitle(const std::string& text) override { title_ = text; }
    void SetText(Control c, int index, const std::string& text) override;
    std::string Text(Control c, int index) const override;
    void SetBackColor(Control, int, Color) override {}
    void SetEnabled(Control, int, bool) override {}
    void SetChecked(Control, int, bool) override {}
    void SetVisible(Control, int, bool) override {}
    void ClearPicture(Control, int) override {}
    bool LoadPicture(Control, int, const std::string&, std::string&) override { return true; }
    void LoadResourcePicture(Control, int, int) override {}
    void SetStatusFont(int, bool) override {}

    // RowDisplay: only the state texts are kept
    void SetStateDisplayCaption(int b, const std::string& text) override {
        SetText(Control::mnuStateDisplayState, b, text);
    }
    void SetInputDisplayCaption(int b, const std::string& text) override {
        SetText(Control::mnuStateDisplayInput, b, text);
    }
    bool IsMinimized() const override { return false; }

    const std::string& Title() const { return title_; }

  private:
    std::string title_;
    std::map<std::pair<Control, int>, std::string> texts_;
};

}  // namespace vantrellion
