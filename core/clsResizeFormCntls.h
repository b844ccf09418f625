// Proportional resize of a window's controls: the geometry of every control is recorded once,
// and each scaling pass multiplies the recorded numbers by the ratio of the window's present
// inner size to its recorded inner size. The recorded numbers are never overwritten by a pass,
// so rounding never adds up. Place and size change here; the window scales its texts by
// TextScale.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Flags.h"
#include "core/FormWindow.h"

namespace vantrellion {

struct ControlGeometry {
    FormControl* Control = nullptr;
    int32_t Left = 0, Top = 0, Width = 0, Height = 0;  // a line: X1, Y1, X2, Y2
};

// Which of the four numbers a control's Tag lets the resize change. A Tag that starts with "@"
// selects by the letters T, H, L and W anywhere in it, in any case; any other Tag, or none,
// selects all four.
struct TagSelection {
    bool Top = true, Height = true, Left = true, Width = true;
};
TagSelection ResolveTag(const std::string& tag);

class clsResizeFormCntls {
  public:
    FormWindow* SourceForm() const { return sourceForm_; }
    void SetSourceForm(FormWindow* form) { sourceForm_ = form; }

    // The first call only records; later calls scale from the record, unless the window is
    // minimised.
    void ScaleControls();
    // Sets the window's size to percent of the screen's, in whole twips.
    void SizeFormToScreen(int16_t percent);
    // Takes the present geometry as the new design.
    void ReInitialize();
    // How far the window's texts scale with it: the smaller of the two ratios of its present
    // inner size to the recorded one, so that a text grows no further than its control grows
    // both ways. A window made only wider keeps its texts and shows more of them. 1 before the
    // first capture.
    double TextScale() const;

    int32_t DesignWidth = 0;
    int32_t DesignHeight = 0;
    std::vector<ControlGeometry> ControlList;  // position n of the system's list is [n - 1]
    Flag FirstCall = True;

  private:
    void CaptureAll();
    void CaptureWindowSize();
    void CaptureControls();

    FormWindow* sourceForm_ = nullptr;
};

}  // namespace vantrellion
