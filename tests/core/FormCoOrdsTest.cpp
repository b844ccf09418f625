#include <gtest/gtest.h>

#include "configuration/modRegAPI.h"
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

TEST_F(FormCoOrdsTest, DefaultsFollowTheWindowAndTheScreen) {
    struct Case {
        const char* name;
        float width, height, screenWidth, screenHeight;
        const char* expected;
    };
    const Case cases[] = {
        // Centred, on a large and a small screen; a window bigger than the screen goes negative.
        {"frmAbout", 6000, 4000, 19200, 14400, "6600,5200"},
        {"frmAbout", 6000, 4000, 9600, 7200, "1800,1600"},
        {"frmLogFilePath", 6301, 4000, 9600, 7200, "1649.5,1600"},
        {"frmLogFileDelete", 12000, 8000, 9600, 7200, "-1200,-400"},
        {"frmHelpConfiguration", 6000, 4000, 9600, 7200, "1800,1600"},
        // Centred with a fixed size appended, unchecked against the screen.
        {"frmConfigBoards", 6000, 4000, 9600, 7200, "1800,1600,8205,7170"},
        {"frmConfigColors", 6000, 4000, 9600, 7200, "1800,1600,7965,3435"},
        {"frmHelpGeneral", 6000, 4000, 9600, 7200, "1800,1600,10290,8290"},
        {"frmSplash", 6000, 4000, 9600, 7200, "1800,1600,7665,4335"},
        {"frmTime", 2490, 990, 9600, 7200, "3555,3105,2490,990"},
        // The big screens fit only when strictly smaller than the screen on both sides.
        {"frmRelay", 11910, 9135, 19200, 14400, "3645,2632.5"},
        {"frmRelay", 11910, 9135, 9600, 7200, "0,0"},
        {"frmRelay", 9600, 7000, 9600, 7200, "0,0"},
        {"frmRelay", 9000, 7200, 9600, 7200, "0,0"},
        {"frmConfiguration", 9000, 7000, 9600, 7200, "300,100"},
        {"frmConfiguration", 12000, 7000, 9600, 7200, "0,0"},
        // A fixed text.
        {"frmLogFileViewer", 6000, 4000, 9600, 7200, "500,500"},
    };
    for (const Case& c : cases) {
        w.name = c.name;
        w.width = c.width, w.height = c.height;
        w.screenWidth = c.screenWidth, w.screenHeight = c.screenHeight;
        std::string text;
        ASSERT_TRUE(DefaultFormPosition(w, text)) << c.name;
        EXPECT_EQ(text, c.expected) << c.name << " on " << c.screenWidth;
    }
}

TEST_F(FormCoOrdsTest, ADefaultIsAppliedAsAStoredTextWouldBe) {
    // Sizable frmHelpGeneral takes the default size; a fixed one keeps its design size.
    w.name = "frmHelpGeneral";
    w.screenWidth = 9600, w.screenHeight = 7200;
    RestoreFormPosition(t.s, w);
    EXPECT_EQ(w.left, 1800);
    EXPECT_EQ(w.width, 10290);
    EXPECT_EQ(w.height, 8290);

    FakeFormWindow fixed;
    fixed.name = "frmHelpGeneral";
    fixed.sizable = false;
    Store("frmHelpGeneral", "100,200,300,400");
    RestoreFormPosition(t.s, fixed);
    EXPECT_EQ(fixed.left, 100);
    EXPECT_EQ(fixed.top, 200);
    EXPECT_EQ(fixed.width, 6000);
    EXPECT_EQ(fixed.height, 4000);

    // "500,500" places the viewer and keeps its size until one is stored.
    FakeFormWindow viewer;
    viewer.name = "frmLogFileViewer";
    RestoreFormPosition(t.s, viewer);
    EXPECT_EQ(viewer.left, 500);
    EXPECT_EQ(viewer.top, 500);
    EXPECT_EQ(viewer.width, 6000);
    EXPECT_TRUE(t.messages.shown.empty());
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

TEST_F(FormCoOrdsTest, AnUnknownWindowIsNotPlacedButCanBeStored) {
    w.name = "frmrelay";  // names compare with their case
    w.left = 33;
    RestoreFormPosition(t.s, w);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Prompt, "Prior Position Not Set");
    EXPECT_EQ(t.messages.shown[0].Title, "Unsupported Form");
    EXPECT_EQ(t.messages.shown[0].ButtonSet, Buttons::OK);
    EXPECT_EQ(w.left, 33);

    SaveFormPosition(t.s, w);
    EXPECT_EQ(Stored("frmrelay"), "33,0,6000,4000");
}

TEST_F(FormCoOrdsTest, AMinimisedOrMaximisedWindowKeepsThePlaceStoredBefore) {
    Store("frmRelay", "1,2,3,4");
    for (WindowState state : {WindowState::Minimized, WindowState::Maximized}) {
        w.state = state;
        w.left = 999;
        SaveFormPosition(t.s, w);
        SetFormCurrPosition(t.s, w);
        FormCoOrdsGeneral(t.s, w, "set", HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion", "Startup",
                          "");
        EXPECT_EQ(Stored("frmRelay"), "1,2,3,4");
        RestoreFormPosition(t.s, w);
        EXPECT_EQ(w.left, 999);
    }
}

TEST_F(FormCoOrdsTest, StoreFailuresAreSilentAndFallBackToTheDefault) {
    // No store at all, and a value of another type: the default, and no box either way.
    TestSystem bare;
    w.name = "frmAbout";
    RestoreFormPosition(bare.s, w);
    SaveFormPosition(bare.s, w);
    EXPECT_EQ(w.left, 6600);
    EXPECT_TRUE(bare.messages.shown.empty());

    StoredValue number;
    number.Type = RegTypeNumber;
    number.Kind = StoredValue::Data::Integer;
    number.Integer = 5;
    store.store().SetValue(HKEY_LOCAL_MACHINE, kStartup, "frmAbout", number);
    w.left = 0;
    RestoreFormPosition(t.s, w);
    EXPECT_EQ(w.left, 6600);
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(FormCoOrdsTest, WhereTheWindowSystemPlacesWindowsOnlySizesAreKept) {
    w.name = "frmHelpGeneral";
    w.canPlace = false;
    Store("frmHelpGeneral", "100,200,7000,5000");
    RestoreFormPosition(t.s, w);
    EXPECT_EQ(w.left, 0);
    EXPECT_EQ(w.width, 7000);
    w.width = 8000;
    SaveFormPosition(t.s, w);
    EXPECT_EQ(Stored("frmHelpGeneral"), "100,200,8000,5000");
}

TEST(SingleText, PrintsLikeADefaultSingle) {
    EXPECT_EQ(SingleText(1560), "1560");
    EXPECT_EQ(SingleText(2632.5f), "2632.5");
    EXPECT_EQ(SingleText(-400), "-400");
    EXPECT_EQ(SingleText(0), "0");
    EXPECT_EQ(SingleText(12345678), "1.234568E+07");
}

}  // namespace
}  // namespace vantrellion::test
