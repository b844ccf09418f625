#include <gtest/gtest.h>

#include <functional>

#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/VersionShape.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempStore;
using test::TestSystem;

constexpr const char* kKey = "SOFTWARE\\Vantrellion\\Config";
const std::string kFirstRun =
    "You MUST Configure Now\r\n\r\nBe sure to SAVE Configuration,\r\n"
    "      Even if you simply accept all defaults!\r\n\r\n"
    " You will be able to change the configuration, later";
const std::string kAdditional = "You must Configure for the additional boards";
const std::string kMoreBoards =
    "Your Configuration is for more boards then this program will support\r\n\r\n"
    "The additional board information will be removed";
const std::string kTitle = "Vantrellion is not Configured!";

// The configuration screens as the start-up check sees them: each show is recorded and may run
// what the user would do there.
struct FakeScreens : FirstRunScreens {
    int height = 12000;
    std::vector<std::string> shown;
    std::function<void(const std::string&)> onShow;
    int ScreenHeightTwips() override { return height; }
    void Show(const std::string& name) {
        shown.push_back(name);
        if (onShow) onShow(name);
    }
    void ShowConfiguration() override { Show("frmConfiguration"); }
    void ShowConfigBoards() override { Show("frmConfigBoards"); }
    void ShowConfigColors() override { Show("frmConfigColors"); }
};

class StartUpCheck : public ::testing::Test {
  public:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    FakeScreens screens;

    void Put(const std::string& name, const std::string& text) {
        RegWriteValue(s, HKEY_LOCAL_MACHINE, "\\" + std::string(kKey) + "\\", "String", name, text);
    }
    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, name);
    }
    void SaveFromScreens() {
        screens.onShow = [this](const std::string&) { ConfigurationSaveToReg(s); };
    }
};

TEST(VersionShape, TakesOneDigitAtPositionsThreeSixAndNineBehindTheBar) {
    struct Case {
        const char* version;
        std::optional<int> b, r, t;
    };
    const Case cases[] = {
        {"FV.2001.05.01|.b0.r7.t5", 0, 7, 5},
        {"FV.2001.05.01|.b3.r3.t1", 3, 3, 1},
        {"FV.2001.05.01|.b0.r15.t5", 0, 1, std::nullopt},  // ".b0.r15.t5": position 9 is "t"
        {"FV.2001.05.01|.b0.r7", 0, 7, std::nullopt},
        {"FV.2001.05.01", std::nullopt, std::nullopt, std::nullopt},
        {"REGKEYNOTFOUND", std::nullopt, std::nullopt, std::nullopt},
        {"FV|.b0.r7.t5|x", 0, 7, 5},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(VersionShapeDigit(c.version, ShapeBoardPosition), c.b) << c.version;
        EXPECT_EQ(VersionShapeDigit(c.version, ShapeRelayPosition), c.r) << c.version;
        EXPECT_EQ(VersionShapeDigit(c.version, ShapeTimePairPosition), c.t) << c.version;
    }
}

// Every store state, answered with Cancel: the message shown, and the result.
TEST_F(StartUpCheck, EachStoreStateAskedAndCancelled) {
    struct Case {
        const char* name;
        std::function<void(StartUpCheck&)> setup;
        std::vector<std::string> prompts;
        Icon icon;
        bool result;
    };
    const auto storeWithVersion = [](const char* version) {
        return [version](StartUpCheck& f) {
            ConfigurationSaveToReg(f.s);
            f.Put("ConfigVersion", version);
        };
    };
    const Case cases[] = {
        {"empty store", [](StartUpCheck&) {}, {kFirstRun}, Icon::Critical, false},
        {"version deleted",
         [](StartUpCheck& f) {
             ConfigurationSaveToReg(f.s);
             f.temp.store().DeleteValue(HKEY_LOCAL_MACHINE, kKey, "ConfigVersion");
         },
         {kFirstRun},
         Icon::Critical,
         false},
        {"current", [](StartUpCheck& f) { ConfigurationSaveToReg(f.s); }, {}, Icon::None, true},
        {"other date, same shape",
         storeWithVersion("FV.2001.02.29|.b0.r7.t5"),
         {kMoreBoards},
         Icon::Information,
         false},
        {"fewer relays",
         storeWithVersion("FV.2001.05.01|.b0.r3.t5"),
         {kAdditional},
         Icon::Exclamation,
         false},
        {"fewer pairs",
         storeWithVersion("FV.2001.05.01|.b0.r7.t4"),
         {kAdditional},
         Icon::Exclamation,
         false},
        {"more boards",
         storeWithVersion("FV.2001.05.01|.b3.r7.t5"),
         {kMoreBoards},
         Icon::Information,
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TestSystem fresh;
        t.messages.shown.clear();
        temp.store().DeleteKey(HKEY_LOCAL_MACHINE, kKey);
        s.modRelay = fresh.s.modRelay;
        c.setup(*this);
        t.messages.shown.clear();
        t.messages.answers = {Answer::Cancel};
        EXPECT_EQ(CheckConfigurationAtStart(s, screens), c.result);
        EXPECT_EQ(t.messages.Prompts(), c.prompts);
        for (const auto& box : t.messages.shown) {
            EXPECT_EQ(box.Title, kTitle);
            EXPECT_EQ(box.ButtonSet, Buttons::OKCancel);
            EXPECT_EQ(box.BoxIcon, c.icon);
        }
        EXPECT_TRUE(screens.shown.empty());
    }
}

TEST_F(StartUpCheck, AVersionWithoutAShapeIsToldAsALoadErrorAndAsksToConfigure) {
    ConfigurationSaveToReg(s);
    Put("ConfigVersion", "FV.2001.05.01");
    t.messages.shown.clear();
    t.messages.answers = {Answer::OK, Answer::Cancel};
    EXPECT_FALSE(CheckConfigurationAtStart(s, screens));
    ASSERT_EQ(t.messages.shown.size(), 2u);
    EXPECT_EQ(t.messages.shown[0].Title, "Load Configuration Error ");
    EXPECT_EQ(t.messages.shown[1].Prompt, kAdditional);
}

TEST_F(StartUpCheck, AnotherShapeIsLoadedBeforeTheQuestion) {
    ConfigurationSaveToReg(s);
    Put("ConfigVersion", "FV.2001.05.01|.b0.r3.t5");
    Put("LogFileName", "from-store.log");
    s.modRelay.LogFileName = "in-memory.log";
    t.messages.answers = {Answer::Cancel};
    EXPECT_FALSE(CheckConfigurationAtStart(s, screens));
    EXPECT_EQ(s.modRelay.LogFileName, "from-store.log");
}

TEST_F(StartUpCheck, ACurrentStoreIsLoadedWithoutAWord) {
    s.modRelay.LogFileName = "saved.log";
    ConfigurationSaveToReg(s);
    s.modRelay.LogFileName = "changed";
    s.modRelay.FileVersion = "";
    EXPECT_TRUE(CheckConfigurationAtStart(s, screens));
    EXPECT_EQ(s.modRelay.LogFileName, "saved.log");
    EXPECT_EQ(s.modRelay.FileVersion, "FV.2001.05.01|.b0.r7.t5");
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(StartUpCheck, TheScreenHeightChoosesTheScreens) {
    struct Case {
        int height;
        std::vector<std::string> shown;
    };
    const Case cases[] = {
        {8999, {"frmConfigBoards", "frmConfigColors"}},
        {9000, {"frmConfiguration"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.height);
        temp.store().DeleteKey(HKEY_LOCAL_MACHINE, kKey);
        screens.shown.clear();
        screens.height = c.height;
        // The first screen saves, as a user who accepts the defaults.
        screens.onShow = [this](const std::string& name) {
            if (name != "frmConfigColors") ConfigurationSaveToReg(s);
        };
        t.messages.answers = {Answer::OK};
        EXPECT_TRUE(CheckConfigurationAtStart(s, screens));
        EXPECT_EQ(screens.shown, c.shown);
    }
}

TEST_F(StartUpCheck, AFirstConfigurationStartsLoggingInEmulationWhateverTheScreensSaid) {
    screens.onShow = [this](const std::string&) {
        s.modRelay.LoggingOnOff = False;
        s.modRelay.RunNoBoards = False;  // the user entered real boards
        ConfigurationSaveToReg(s);
    };
    t.messages.answers = {Answer::OK};
    EXPECT_TRUE(CheckConfigurationAtStart(s, screens));
    EXPECT_EQ(s.modRelay.LoggingOnOff, True);
    EXPECT_EQ(s.modRelay.RunNoBoards, True);
    EXPECT_EQ(Stored("LoggingOnOff"), "1");
    EXPECT_EQ(Stored("RunNoBoards"), "1");
    EXPECT_EQ(t.messages.Prompts(), std::vector<std::string>{kFirstRun});
}

TEST_F(StartUpCheck, ScreensLeftWithoutSaveAskAgainAndLeaveOnlyTheTwoFlags) {
    t.messages.answers = {Answer::OK, Answer::OK, Answer::Cancel};
    EXPECT_FALSE(CheckConfigurationAtStart(s, screens));
    EXPECT_EQ(t.messages.Prompts(), (std::vector<std::string>{kFirstRun, kFirstRun, kFirstRun}));
    EXPECT_EQ(screens.shown.size(), 2u);
    std::vector<std::string> names;
    ASSERT_EQ(temp.store().ValueNames(HKEY_LOCAL_MACHINE, kKey, names), StoreStatus::Ok);
    EXPECT_EQ(names, (std::vector<std::string>{"LoggingOnOff", "RunNoBoards"}));
    EXPECT_EQ(Stored("LoggingOnOff"), "1");
    EXPECT_EQ(Stored("RunNoBoards"), "1");
    EXPECT_EQ(ConfigurationLoadVersionFromReg(s), "VALUENAMENOTFOUND");
}

TEST_F(StartUpCheck, AMoreBoardsConfigurationIsRewrittenForThisBuildOnSave) {
    ConfigurationSaveToReg(s);
    Put("ConfigVersion", "FV.2001.05.01|.b3.r7.t5");
    Put("BaseAddress3", "776");
    SaveFromScreens();
    t.messages.answers = {Answer::OK};
    EXPECT_TRUE(CheckConfigurationAtStart(s, screens));
    EXPECT_EQ(t.messages.Prompts(), std::vector<std::string>{kMoreBoards});
    EXPECT_EQ(Stored("ConfigVersion"), "FV.2001.05.01|.b0.r7.t5");
    // Nothing is deleted: the other board's value stays in the key, unread.
    EXPECT_EQ(Stored("BaseAddress3"), "776");
}

}  // namespace
}  // namespace vantrellion
