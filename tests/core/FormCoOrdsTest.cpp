#include <gtest/gtest.h>

#include "configuration/modRegAPI.h"
#include "core/ScreenFit.h"
#include "core/clsFormCoOrdsGeneral.h"
#include "core/clsFormCoOrdsRelay.h"
#include "support/FakeFormWindow.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion::test {
namespace {

constexpr const char* kStartup = "SOFTWARE\\Vantrellion\\Startup";

class FormCoOrdsTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore store{t.s};
    FakeFormWindow w;

    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(t.s, HKEY_LOCAL_MACHINE, kStartup, name);
    }
    void Store(const std::string& name, const std::string& text) {
        RegWriteValue(t.s, HKEY_LOCAL_MACHINE, kStartup, "String", name, text);
    }
};

TEST_F(FormCoOrdsTest, AWindowMovedAndResizedComesBackWhereItWasFromTheStoreFile) {
    w.name = "frmHelpGeneral";
    w.left = 1560, w.top = 1050, w.width = 11910, w.height = 9135;
    SaveFormPosition(t.s, w);
    EXPECT_EQ(Stored("frmHelpGeneral"), "1560,1050,11910,9135");

    // Another run: a fresh store object on the same file, a window at its design place.
    TestSystem next;
    KeyValueStore reopened(store.FilePath());
    next.s.platform.store = &reopened;
    FakeFormWindow again;
    again.name = "frmHelpGeneral";
    RestoreFormPosition(next.s, again);
    EXPECT_EQ(again.left, 1560);
    EXPECT_EQ(again.top, 1050);
    EXPECT_EQ(again.width, 11910);
    EXPECT_EQ(again.height, 9135);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_TRUE(next.messages.shown.empty());
}

TEST_F(FormCoOrdsTest, ADamagedStoredTextChangesOnlyWhatIsANumber) {
    struct Case {
        const char* text;
        float left, top, width, height;
    };
    const Case cases[] = {
        {"abc,200,x,9000", 77, 200, 6000, 9000},
        {"500", 77, 88, 6000, 4000},  // one piece moves nothing
        {",,,", 77, 88, 6000, 4000},
        {" 15 ,1E3,7000.5,-20", 15, 1000, 7000.5, -20},
        {"1e99,2,3", 77, 2, 3, 4000},  // beyond a single-precision number
        {"10,20,30,40,50", 10, 20, 30, 40},
    };
    for (const Case& c : cases) {
        w.name = "frmHelpGeneral";
        w.left = 77, w.top = 88, w.width = 6000, w.height = 4000;
        Store("frmHelpGeneral", c.text);
        RestoreFormPosition(t.s, w);
        EXPECT_EQ(w.left, c.left) << c.text;
        EXPECT_EQ(w.top, c.top) << c.text;
        EXPECT_EQ(w.width, c.width) << c.text;
        EXPECT_EQ(w.height, c.height) << c.text;
    }
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(FormCoOrdsTest, TheClockOpensBesideItsOwnerOnTheSideWithRoom) {
    w.name = "frmTime";
    w.width = 2490, w.height = 990;
    w.hasOwner = true;
    w.owner[0] = 1500, w.owner[1] = 900, w.owner[2] = 7800, w.owner[3] = 6900;
    std::string text;
    EXPECT_TRUE(DefaultFormPosition(w, text) && text == "9450,900,2490,990") << text;
    w.owner[0] = 11000;  // no room on the right of a 19200 wide screen
    EXPECT_TRUE(DefaultFormPosition(w, text) && text == "8360,900,2490,990") << text;
}

TEST(ScreenFit, AWindowShrinksAndMovesOnlyAsFarAsItMustToLieWithinTheArea) {
    const FrameMargins frame{4, 24, 4, 4};
    const ScreenRect area{0, 30, 1024, 738};  // a panel at the top
    struct Case {
        ScreenRect window;
        int minimumWidth, minimumHeight;
        ScreenRect fitted;
    };
    const Case cases[] = {
        {{100, 100, 600, 400}, 0, 0, {100, 100, 600, 400}},    // inside: stays
        {{2000, 1500, 600, 400}, 0, 0, {416, 340, 600, 400}},  // off the shrunk screen
        {{-50, 0, 1200, 900}, 0, 0, {0, 30, 1016, 710}},       // larger than the area
        {{10, 40, 1200, 900}, 1100, 800, {0, 30, 1100, 800}},  // not below its minimum
    };
    for (const Case& c : cases)
        EXPECT_EQ(FitWindowToArea(c.window, frame, area, c.minimumWidth, c.minimumHeight),
                  c.fitted);
}

}  // namespace
}  // namespace vantrellion::test
