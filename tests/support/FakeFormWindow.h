// A window without a window system, for the geometry and resize services: plain numbers for
// its place, size, state and screen, and a list of controls that remember what was set.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/FormWindow.h"

namespace vantrellion::test {

class FakeControl : public FormControl {
  public:
    FakeControl(int32_t l, int32_t t, int32_t w, int32_t h)
        : value{{Geometry::Left, l},
                {Geometry::Top, t},
                {Geometry::Width, w},
                {Geometry::Height, h}} {}
    std::map<Geometry, double> value;
    bool visible = true;  // false: a timer or a dialog, with no Visible
    bool line = false;
    bool hasTag = false;
    std::string tag;
    bool HasVisible() const override { return visible; }
    bool IsLine() const override { return line; }
    bool Tag(std::string& t) const override {
        t = tag;
        return hasTag;
    }
    bool Read(Geometry g, int32_t& v) const override {
        v = static_cast<int32_t>(value.at(g));
        return true;
    }
    // Rounds to whole twips, as a window system rounds what it is given.
    bool Write(Geometry g, double v) override {
        value[g] = static_cast<double>(static_cast<int64_t>(v + (v < 0 ? -0.5 : 0.5)));
        return true;
    }
};

class FakeFormWindow : public FormWindow {
  public:
    std::string name = "frmRelay";
    float left = 0, top = 0, width = 6000, height = 4000;
    float screenWidth = 19200, screenHeight = 14400;
    WindowState state = WindowState::Normal;
    bool sizable = true;
    bool canPlace = true;
    double scaleWidth = 6000, scaleHeight = 4000;
    std::vector<std::unique_ptr<FakeControl>> controls;
    int busyOn = 0, busyOff = 0;

    std::string Name() const override { return name; }
    float Left() const override { return left; }
    float Top() const override { return top; }
    float Width() const override { return width; }
    float Height() const override { return height; }
    void SetLeft(float v) override { left = v; }
    void SetTop(float v) override { top = v; }
    void SetWidth(float v) override { width = v; }
    void SetHeight(float v) override { height = v; }
    WindowState State() const override { return state; }
    bool Sizable() const override { return sizable; }
    float ScreenWidth() const override { return screenWidth; }
    float ScreenHeight() const override { return screenHeight; }
    bool CanPlace() const override { return canPlace; }
    bool hasOwner = false;
    float owner[4] = {};  // left, top, width, height
    bool OwnerPlace(float& l, float& t, float& w, float& h) const override {
        return l = owner[0], t = owner[1], w = owner[2], h = owner[3], hasOwner;
    }
    double ScaleWidth() const override { return scaleWidth; }
    double ScaleHeight() const override { return scaleHeight; }
    std::vector<FormControl*> Controls() override {
        std::vector<FormControl*> list;
        for (auto& c : controls)
            list.push_back(c.get());
        return list;
    }
    void SetBusyPointer(bool busy) override { ++(busy ? busyOn : busyOff); }

    FakeControl& Add(int32_t l, int32_t t, int32_t w, int32_t h) {
        controls.push_back(std::make_unique<FakeControl>(l, t, w, h));
        return *controls.back();
    }
};

}  // namespace vantrellion::test
