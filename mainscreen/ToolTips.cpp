#include "mainscreen/ToolTips.h"

#include "configuration/StringTable.h"

namespace vantrellion {

int ToolTipStringId(Control c) {
    switch (c) {
        case Control::lblManual:
            return 205;
        case Control::lblInvert:
            return 210;
        case Control::txtDisplayName:
            return 225;
        case Control::txtDaysOfWeek:
            return 230;
        case Control::txtEndTime:
            return 235;
        case Control::txtStartTime:
            return 240;
        case Control::txtDayHrEvenOdd:
            return 245;
        case Control::lblTotalTime:
            return 250;
        case Control::imgHardStop:
            return 255;
        case Control::imgIDIcon:
            return 260;
        case Control::lblCounter:
            return 265;
        default:
            return 0;
    }
}

namespace {

// The forms a start or end time takes, sun times included, told after the field's name.
constexpr int TimeFormsStringId = 242;

}  // namespace

std::string LazyToolTip(Control c, const std::string& present) {
    if (!present.empty()) return present;
    const int id = ToolTipStringId(c);
    if (id == 0) return present;
    if (c == Control::txtStartTime || c == Control::txtEndTime)
        return StringTableText(id) + ": " + StringTableText(TimeFormsStringId);
    return StringTableText(id);
}

}  // namespace vantrellion
