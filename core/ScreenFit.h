// Where a window goes so that the whole of it, frame and title bar included, lies in the area
// of the screen that windows may take (the screen less its panels). It serves every window:
// those placed by a default, those placed where the user left them on a screen that has
// shrunk since, and those that ask for more room than the screen has.
#pragma once

namespace vantrellion {

// A rectangle in pixels of the desktop.
struct ScreenRect {
    int Left = 0, Top = 0, Width = 0, Height = 0;
    bool operator==(const ScreenRect&) const = default;
};

// What the window manager's frame adds on each side of a window's inner area.
struct FrameMargins {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

// A window given by the place of its frame (Left, Top) and the size of its inner area (Width,
// Height), as the window system takes them. The inner size shrinks to what the area leaves for
// it, though not below the window's smallest size; the frame then moves as little as it must
// to lie inside the area. A window still larger than the area keeps its top left corner, with
// the title bar, on the area's top left corner.
ScreenRect FitWindowToArea(const ScreenRect& window, const FrameMargins& frame,
                           const ScreenRect& area, int minimumWidth, int minimumHeight);

}  // namespace vantrellion
