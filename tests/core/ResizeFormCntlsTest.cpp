#include <gtest/gtest.h>

#include <cmath>

#include "core/clsResizeFormCntls.h"
#include "mainscreen/MainScreenLifecycle.h"
#include "mainscreen/MainScreenResize.h"
#include "support/FakeFormWindow.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

class ResizeTest : public ::testing::Test {
  protected:
    FakeFormWindow w;
    clsResizeFormCntls r;
    FakeControl* plain = nullptr;
    FakeControl* moveOnly = nullptr;
    FakeControl* heightOnly = nullptr;
    FakeControl* stray = nullptr;
    FakeControl* still = nullptr;
    FakeControl* line = nullptr;

    void SetUp() override {
        w.scaleWidth = 7575, w.scaleHeight = 4965;
        plain = &w.Add(810, 300, 285, 270);
        moveOnly = &w.Add(1665, 315, 600, 270);
        moveOnly->hasTag = true, moveOnly->tag = "@T,L";
        heightOnly = &w.Add(2310, 30, 600, 270);
        heightOnly->hasTag = true, heightOnly->tag = "@h";
        stray = &w.Add(6240, 315, 720, 270);
        stray->hasTag = true, stray->tag = "X";  // not "@": as if it had none
        still = &w.Add(7020, 45, 480, 480);
        still->hasTag = true, still->tag = "@";
        line = &w.Add(100, 200, 1100, 1200);  // X1, Y1, X2, Y2
        line->line = true;
        w.Add(0, 0, 0, 0).visible = false;  // a timer
        r.SetSourceForm(&w);
        r.ReInitialize();
    }
    void ResizeTo(double factor) {
        w.scaleWidth = 7575 * factor, w.scaleHeight = 4965 * factor;
        r.ScaleControls();
    }
    static void ExpectAt(const FakeControl& c, double l, double t, double wd, double h,
                         const char* what) {
        EXPECT_NEAR(c.value.at(Geometry::Left), l, 0.5) << what;
        EXPECT_NEAR(c.value.at(Geometry::Top), t, 0.5) << what;
        EXPECT_NEAR(c.value.at(Geometry::Width), wd, 0.5) << what;
        EXPECT_NEAR(c.value.at(Geometry::Height), h, 0.5) << what;
    }
};

TEST_F(ResizeTest, ControlsLandWhereTheRecordedGeometrySaysAtEachScale) {
    EXPECT_EQ(r.DesignWidth, 7575);
    EXPECT_EQ(r.DesignHeight, 4965);
    EXPECT_EQ(r.ControlList.size(), 6u);  // the timer is not listed
    for (double f : {1.0, 1.5, 2.0, 0.5, 1.0}) {
        ResizeTo(f);
        ExpectAt(*plain, 810 * f, 300 * f, 285 * f, 270 * f, "plain");
        ExpectAt(*moveOnly, 1665 * f, 315 * f, 600, 270, "@T,L");
        ExpectAt(*heightOnly, 2310, 30, 600, 270 * f, "@h");
        ExpectAt(*stray, 6240 * f, 315 * f, 720 * f, 270 * f, "X");
        ExpectAt(*still, 7020, 45, 480, 480, "@");
        ExpectAt(*line, 100 * f, 200 * f, 1100 * f, 1200 * f, "line end points");
    }
    ExpectAt(*plain, 810, 300, 285, 270, "back at design");
}

TEST_F(ResizeTest, FirstCallOnlyRecordsAndAMinimisedWindowIsLeftAlone) {
    clsResizeFormCntls fresh;
    fresh.SetSourceForm(&w);
    w.scaleWidth = 7575 * 2, w.scaleHeight = 4965 * 2;
    fresh.ScaleControls();  // records the present geometry; nothing moves
    EXPECT_EQ(fresh.FirstCall, False);
    EXPECT_EQ(fresh.DesignWidth, 7575 * 2);
    ExpectAt(*plain, 810, 300, 285, 270, "first call");

    w.state = WindowState::Minimized;
    r.ScaleControls();
    ExpectAt(*plain, 810, 300, 285, 270, "minimised");
    w.state = WindowState::Normal;
    r.ScaleControls();  // the restore scales from the record
    ExpectAt(*plain, 1620, 600, 570, 540, "restored");
}

}  // namespace
}  // namespace vantrellion::test
