// A window as the geometry and resize services see it: its name, its place and size, its state
// and border, the screen it stands on, and the controls inside it. All lengths are twips
// (1/1440 inch, 15 to a pixel). The desktop layer implements it for a Qt window; tests fake it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrellion {

enum class WindowState : int16_t { Normal = 0, Minimized = 1, Maximized = 2 };

// One of the four numbers of a control. For a line they are its end points: Left holds X1,
// Top Y1, Width X2 and Height Y2.
enum class Geometry { Left, Top, Width, Height };

// A control inside a window, for the proportional resize. A control that lacks a property
// answers false and is skipped silently.
class FormControl {
  public:
    virtual ~FormControl() = default;
    // False for the things that are no visible control (a timer, a dialog): never listed.
    virtual bool HasVisible() const = 0;
    virtual bool IsLine() const { return false; }
    // The control's Tag text; false when it has none.
    virtual bool Tag(std::string& tag) const = 0;
    virtual bool Read(Geometry g, int32_t& value) const = 0;
    // The window system rounds the value; false when the property cannot be set.
    virtual bool Write(Geometry g, double value) = 0;
};

class FormWindow {
  public:
    virtual ~FormWindow() = default;
    virtual std::string Name() const = 0;
    virtual float Left() const = 0;
    virtual float Top() const = 0;
    virtual float Width() const = 0;
    virtual float Height() const = 0;
    virtual void SetLeft(float v) = 0;
    virtual void SetTop(float v) = 0;
    virtual void SetWidth(float v) = 0;
    virtual void SetHeight(float v) = 0;
    virtual WindowState State() const = 0;
    // True for a border the user can drag (a sizable window); a fixed window keeps its size.
    virtual bool Sizable() const = 0;
    virtual float ScreenWidth() const = 0;
    virtual float ScreenHeight() const = 0;
    // False where the window system does not let a program place its windows (Wayland): the
    // position is then neither set nor taken from the window.
    virtual bool CanPlace() const { return true; }
    // The place and size of the window that owns this one (the main screen for the clock), or
    // false for a window that has no owner.
    virtual bool OwnerPlace(float& /*left*/, float& /*top*/, float& /*width*/,
                            float& /*height*/) const {
        return false;
    }

    // For the proportional resize: the inner size, the controls in their order, and the
    // pointer shown while the controls move.
    virtual bool IsMdiParent() const { return false; }
    virtual double ScaleWidth() const { return Width(); }
    virtual double ScaleHeight() const { return Height(); }
    virtual std::vector<FormControl*> Controls() { return {}; }
    virtual void SetBusyPointer(bool /*busy*/) {}
};

}  // namespace vantrellion
