#include "core/clsResizeFormCntls.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace vantrellion {

TagSelection ResolveTag(const std::string& tag) {
    if (tag.empty() || tag[0] != '@') return {};
    TagSelection s{false, false, false, false};
    for (char c : tag) {
        switch (std::toupper(static_cast<unsigned char>(c))) {
            case 'T':
                s.Top = true;
                break;
            case 'H':
                s.Height = true;
                break;
            case 'L':
                s.Left = true;
                break;
            case 'W':
                s.Width = true;
                break;
            default:
                break;
        }
    }
    return s;
}

void clsResizeFormCntls::CaptureAll() {
    CaptureWindowSize();
    CaptureControls();
}

void clsResizeFormCntls::CaptureWindowSize() {
    if (!sourceForm_) return;
    const FormWindow& f = *sourceForm_;
    const double w = f.IsMdiParent() ? f.Width() : f.ScaleWidth();
    const double h = f.IsMdiParent() ? f.Height() : f.ScaleHeight();
    DesignWidth = static_cast<int32_t>(std::lround(w));
    DesignHeight = static_cast<int32_t>(std::lround(h));
}

void clsResizeFormCntls::CaptureControls() {
    ControlList.clear();
    if (sourceForm_) {
        for (FormControl* c : sourceForm_->Controls()) {
            if (!c || !c->HasVisible()) continue;
            ControlGeometry g;
            g.Control = c;
            // A number that cannot be read stays 0.
            c->Read(Geometry::Left, g.Left);
            c->Read(Geometry::Top, g.Top);
            c->Read(Geometry::Width, g.Width);
            c->Read(Geometry::Height, g.Height);
            ControlList.push_back(g);
        }
    }
    FirstCall = False;
}

void clsResizeFormCntls::ReInitialize() {
    CaptureAll();
}

void clsResizeFormCntls::ScaleControls() {
    if (FirstCall != 0) {
        CaptureAll();
        return;
    }
    if (!sourceForm_ || sourceForm_->State() == WindowState::Minimized) return;
    // Without an inner size at capture there is no ratio: the pass ends.
    if (DesignWidth == 0 || DesignHeight == 0) return;
    const double ratioHeight = sourceForm_->ScaleHeight() / DesignHeight;
    const double ratioWidth = sourceForm_->ScaleWidth() / DesignWidth;
    for (const ControlGeometry& g : ControlList) {
        std::string tag;
        const TagSelection sel = g.Control->Tag(tag) ? ResolveTag(tag) : TagSelection{};
        // A property the control cannot take is skipped and the next one is tried.
        if (sel.Top) g.Control->Write(Geometry::Top, g.Top * ratioHeight);
        if (sel.Height) g.Control->Write(Geometry::Height, g.Height * ratioHeight);
        if (sel.Left) g.Control->Write(Geometry::Left, g.Left * ratioWidth);
        if (sel.Width) g.Control->Write(Geometry::Width, g.Width * ratioWidth);
    }
}

double clsResizeFormCntls::TextScale() const {
    if (FirstCall != 0 || !sourceForm_ || DesignWidth == 0 || DesignHeight == 0) return 1.0;
    return std::min(sourceForm_->ScaleWidth() / DesignWidth,
                    sourceForm_->ScaleHeight() / DesignHeight);
}

void clsResizeFormCntls::SizeFormToScreen(int16_t percent) {
    if (!sourceForm_) return;
    FormWindow& f = *sourceForm_;
    f.SetWidth(std::trunc(percent / 100.0 * f.ScreenWidth()));
    f.SetHeight(std::trunc(percent / 100.0 * f.ScreenHeight()));
}

}  // namespace vantrellion
