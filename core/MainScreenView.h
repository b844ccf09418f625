// What the core sets on the main screen outside the tick: field texts, captions, colours,
// enabled, checked and visible states of the row controls and the menu items, the title, the
// status bar, and the row pictures. The main window implements it; tests record it.
#pragma once

#include <string>

#include "core/Flags.h"
#include "core/FormWindow.h"

namespace vantrellion {

// The controls of frmRelay by their names. Row controls take the record index i, the time
// fields the pair index k, menu arrays the board index, StatusBar1 the panel number (1 to 5).
enum class Control {
    fraRelayGroup,
    txtDisplayName,
    txtDaysOfWeek,
    txtDayHrEvenOdd,
    txtStartTime,
    txtEndTime,
    shpOnOffLight,
    imgIDIcon,
    imgHardStop,
    lblManual,
    lblInvert,
    lblTotalTime,
    lblCounter,
    StatusBar1,
    mnuFileSave,
    mnuToolLogging,
    mnuToolRunNoBoards,
    mnuStateManualBoard,
    mnuStateDisplayState,
    mnuStateDisplayInput,
    mnuDisplayAddress,
    mnuDev,
    mnuHelpTimeWin,
};
inline constexpr int kControlCount = static_cast<int>(Control::mnuHelpTimeWin) + 1;

class MainScreenView {
  public:
    virtual ~MainScreenView() = default;
    virtual void SetTitle(const std::string& text) = 0;
    // The text of a field, the caption of a label or menu item, the text of a status panel.
    virtual void SetText(Control c, int index, const std::string& text) = 0;
    virtual std::string Text(Control c, int index) const = 0;
    virtual void SetBackColor(Control c, int index, Color color) = 0;
    virtual void SetEnabled(Control c, int index, bool enabled) = 0;
    virtual void SetChecked(Control c, int index, bool checked) = 0;
    virtual void SetVisible(Control c, int index, bool visible) = 0;
    virtual void ClearPicture(Control c, int index) = 0;
    // Loads a picture file into an image; false with the platform's error text on failure.
    virtual bool LoadPicture(Control c, int index, const std::string& path, std::string& error) = 0;
    // The picture of a resource id (icons 101, 110, 121 to 128).
    virtual void LoadResourcePicture(Control c, int index, int resourceId) = 0;
    virtual void SetStatusFont(int size, bool bold) = 0;

    // The steps of loading the screen that belong to the window system: its icon, the
    // stacking of the row frames, the size from the rows, the run-time fonts. A view without
    // a window has nothing to do for them.
    virtual void SetWindowIcon(int /*resourceId*/) {}
    virtual void StackRelayGroups() {}
    virtual void SizeFormToRows() {}
    virtual void ApplyRunTimeFonts() {}
    // The texts of the rows at this multiple of their run-time fonts, each still fitting its
    // control, after the rows have been scaled with the window.
    virtual void ScaleRowTexts(double /*ratio*/) {}
    // The screen as a window, for its remembered place and the scaling of its rows; null for a
    // view without a window.
    virtual FormWindow* Window() { return nullptr; }
};

}  // namespace vantrellion
