#include "core/ScreenFit.h"

#include <algorithm>

namespace vantrellion {

namespace {

// One axis: the frame's start and the inner length, within [areaStart, areaStart + areaLength).
void FitAxis(int& start, int& length, int before, int after, int areaStart, int areaLength,
             int minimum) {
    const int room = areaLength - before - after;
    length = std::max(std::min(length, room), std::min(minimum, length));
    const int outer = before + length + after;
    start = std::min(start, areaStart + areaLength - outer);
    start = std::max(start, areaStart);
}

}  // namespace

ScreenRect FitWindowToArea(const ScreenRect& window, const FrameMargins& frame,
                           const ScreenRect& area, int minimumWidth, int minimumHeight) {
    ScreenRect r = window;
    if (area.Width <= 0 || area.Height <= 0) return r;
    FitAxis(r.Left, r.Width, frame.Left, frame.Right, area.Left, area.Width, minimumWidth);
    FitAxis(r.Top, r.Height, frame.Top, frame.Bottom, area.Top, area.Height, minimumHeight);
    return r;
}

}  // namespace vantrellion
