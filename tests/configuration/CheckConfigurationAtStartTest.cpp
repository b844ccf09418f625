#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <sstream>

#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/ConfigurationValueNames.h"
#include "configuration/VersionShape.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "configuration/screens/ConfigScreenLogic.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
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

void Put(System& s, const std::string& name, const std::string& text) {
    RegWriteValue(s, HKEY_LOCAL_MACHINE, "\\" + std::string(kKey) + "\\", "String", name, text);
}
std::string Stored(System& s, const std::string& name) {
    return RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, name);
}

// The configuration screens as the start-up check sees them. Each one shown is recorded and
// clears both switches, as a user who enters real boards would; it saves if the user does.
struct FakeScreens : FirstRunScreens {
    System& s;
    int height = 12000;
    bool saves = false;
    std::vector<std::string> shown;
    explicit FakeScreens(System& sys) : s(sys) {}
    int ScreenHeightTwips() override { return height; }
    void Show(const char* name) {
        shown.push_back(name);
        s.modRelay.LoggingOnOff = s.modRelay.RunNoBoards = False;
        if (saves) ConfigurationSaveToReg(s);
    }
    void ShowConfiguration() override { Show("frmConfiguration"); }
    void ShowConfigBoards() override { Show("frmConfigBoards"); }
    void ShowConfigColors() override { Show("frmConfigColors"); }
};

// Each state of the store with the user's answers: the questions, the screens, the result, and
// what ends up loaded and stored.
TEST(StartUpCheck, EachStoreStateAndAnswer) {
    constexpr const char* kEmpty = nullptr;  // nothing stored
    constexpr const char* kDeleted = "";     // a full save whose version was deleted
    const std::string kLoadError =
        "Type mismatch\r\nConfiguration Load Errors\r\n\r\nCorrect the Problem or \r\n\r\n"
        "ReEnter Board Values, ('File, Configuration)\r\nThen 'Save', to correct";
    const std::vector<std::string> kOne = {"frmConfiguration"},
                                   kTwo = {"frmConfigBoards", "frmConfigColors"};
    using enum Icon;
    struct Case {
        const char* version;
        const char* answers;  // O for OK, C for Cancel
        bool saves;
        std::vector<std::string> prompts;
        Icon icon;  // of the last box
        std::vector<std::string> screens;
        bool result;
        bool loads;  // the stored configuration reaches the shared state
        int height = 9000;
    };
    const Case cases[] = {
        {kEmpty, "C", false, {kFirstRun}, Critical, {}, false, false},
        {kDeleted, "C", false, {kFirstRun}, Critical, {}, false, false},
        {"FV.2001.05.01|.b0.r7.t5", "", false, {}, None, {}, true, true},
        {"FV.2001.02.29|.b0.r7.t5", "C", false, {kMoreBoards}, Information, {}, false, true},
        {"FV.2001.05.01|.b0.r3.t5", "C", false, {kAdditional}, Exclamation, {}, false, true},
        {"FV.2001.05.01|.b0.r7.t4", "C", false, {kAdditional}, Exclamation, {}, false, true},
        {"FV.2001.05.01|.b3.r7.t5", "C", false, {kMoreBoards}, Information, {}, false, true},
        // A version without a shape is told as a load error first.
        {"FV.2001.05.01", "OC", false, {kLoadError, kAdditional}, Exclamation, {}, false, true},
        // Saved from the screens: rewritten for this build, and started.
        {"FV.2001.05.01|.b3.r7.t5", "O", true, {kMoreBoards}, Information, kOne, true, true},
        {kEmpty, "O", true, {kFirstRun}, Critical, kOne, true, false},
        {kEmpty, "O", true, {kFirstRun}, Critical, kTwo, true, false, 8999},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.version ? c.version : "empty") + " saves " +
                     std::to_string(c.saves) + " height " + std::to_string(c.height));
        TestSystem t;
        TempStore temp(t.s);
        FakeScreens screens(t.s);
        screens.saves = c.saves;
        screens.height = c.height;
        if (c.version) {
            t.mod().LogFileName = "from-store.log";
            ConfigurationSaveToReg(t.s);
            Put(t.s, "BaseAddress3", "776");
            if (*c.version)
                Put(t.s, "ConfigVersion", c.version);
            else
                temp.store().DeleteValue(HKEY_LOCAL_MACHINE, kKey, "ConfigVersion");
        }
        t.mod().LogFileName = "in-memory.log";
        t.messages.shown.clear();
        for (const char* a = c.answers; *a; ++a)
            t.messages.answers.push_back(*a == 'O' ? Answer::OK : Answer::Cancel);

        EXPECT_EQ(CheckConfigurationAtStart(t.s, screens), c.result);
        EXPECT_EQ(t.messages.Prompts(), c.prompts);
        if (!t.messages.shown.empty()) {
            EXPECT_EQ(t.messages.shown.back().Title, "Vantrellion is not Configured!");
            EXPECT_EQ(t.messages.shown.back().ButtonSet, Buttons::OKCancel);
            EXPECT_EQ(t.messages.shown.back().BoxIcon, c.icon);
        }
        EXPECT_EQ(screens.shown, c.screens);
        EXPECT_EQ(t.mod().LogFileName, c.loads ? "from-store.log" : "in-memory.log");
        if (!c.screens.empty()) {
            // Whatever the screens said, a first configuration logs and runs in emulation.
            EXPECT_EQ(t.mod().LoggingOnOff, True);
            EXPECT_EQ(t.mod().RunNoBoards, True);
            EXPECT_EQ(Stored(t.s, "LoggingOnOff"), "1");
            EXPECT_EQ(Stored(t.s, "RunNoBoards"), "1");
        }
        if (c.result) {
            EXPECT_EQ(t.mod().FileVersion, "FV.2001.05.01|.b0.r7.t5");
            EXPECT_EQ(Stored(t.s, "ConfigVersion"), "FV.2001.05.01|.b0.r7.t5");
        }
        // Nothing is deleted: another board's value stays in the key, unread.
        if (c.version) {
            EXPECT_EQ(Stored(t.s, "BaseAddress3"), "776");
        }
    }
}

TEST(StartUpCheck, ScreensLeftWithoutSaveAskAgainAndLeaveOnlyTheTwoFlags) {
    TestSystem t;
    TempStore temp(t.s);
    FakeScreens screens(t.s);
    t.messages.answers = {Answer::OK, Answer::OK, Answer::Cancel};
    EXPECT_FALSE(CheckConfigurationAtStart(t.s, screens));
    EXPECT_EQ(t.messages.Prompts(), (std::vector<std::string>{kFirstRun, kFirstRun, kFirstRun}));
    EXPECT_EQ(screens.shown.size(), 2u);
    std::vector<std::string> names;
    ASSERT_EQ(temp.store().ValueNames(HKEY_LOCAL_MACHINE, kKey, names), StoreStatus::Ok);
    EXPECT_EQ(names, (std::vector<std::string>{"LoggingOnOff", "RunNoBoards"}));
    EXPECT_EQ(Stored(t.s, "LoggingOnOff"), "1");
    EXPECT_EQ(Stored(t.s, "RunNoBoards"), "1");
    EXPECT_EQ(ConfigurationLoadVersionFromReg(t.s), "VALUENAMENOTFOUND");
}

}  // namespace
}  // namespace vantrellion
