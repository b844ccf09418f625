#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <stdexcept>

#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "configuration/screens/ConfigScreenFields.h"
#include "configuration/screens/ConfigScreenLogic.h"
#include "configuration/screens/ConfigScreenToolTips.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempStore;
using test::TestSystem;

// The screens' logic without windows. (First runs, address entries, resets and closing are
// driven through the windows in the widget tests.)
class ConfigScreenTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    ModRelay& m = t.s.modRelay;

    // A stored configuration as the screens leave it (the board's flags 0 or 1), loaded as the
    // start-up check does.
    void Configured(Flag warn) {
        m.Board[0].LogBoard = m.Board[0].ResetOnExit = 1;
        m.WarnOverLapTime = warn;
        m.LogFilePath = temp.dir().Path();
        ConfigurationSaveToReg(s);
        ConfigurationLoadFromReg(s);
        t.messages.shown.clear();
    }
    ConfigScreen Loaded(ConfigScreenKind kind) {
        ConfigScreen f = NewConfigScreen(kind);
        ConfigForm_Load(s, f);
        return f;
    }
};

TEST_F(ConfigScreenTest, HexadecimalTextsAndTheirCanonicalForm) {
    const std::pair<const char*, std::optional<int16_t>> cases[] = {
        {" 3ff ", 0x3FF},        {"FFFF", -1}, {"8000", INT16_MIN}, {"07FFF", INT16_MAX},
        {"0FFFF", std::nullopt},  // five digits: 65535 does not fit
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(ParseHexAddress(text), value) << text;
    for (const char* bad : {"", " ", "G", "&H300", "-1", "300&", "1.5"})
        EXPECT_EQ(ParseHexAddress(bad), std::nullopt) << bad;
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(-1), "FFFF");
    EXPECT_EQ(NumericBoxChanged(" "), "0");
    EXPECT_EQ(NumericBoxChanged("  "), "  ");
}

TEST_F(ConfigScreenTest, TheLogPathFieldKeepsWhatItShowsAndTakesOrMakesATypedDirectory) {
    const std::string logs = temp.dir().Path() + "logs/";
    std::filesystem::create_directory(logs);
    temp.dir().Write("file", "");
    struct Case {
        const char* typed;  // relative to the scratch directory when not starting with "/"
        std::deque<Answer> answers;
        std::string shown;  // also the shared path afterwards
        bool marks;
        size_t boxes;
    };
    const std::string made = temp.dir().Path() + "new/deeper/";
    const Case cases[] = {
        {"logs", {}, logs, true, 0},  // exists: taken, with its "/"
        {"", {}, logs, false, 0},     // emptied: the directory shown before
        {"new/deeper", {Answer::No}, logs, false, 1},
        {"new/deeper", {Answer::Yes}, made, true, 1},
        {"file", {}, made, false, 1},  // a file is no directory
        {"/", {}, "/", true, 0},
    };
    m.LogFilePath = "";
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        ConfigScreen g = NewConfigScreen(ConfigScreenKind::ConfigBoards);
        g.txtLogFilePath = *c.typed && c.typed[0] != '/' ? temp.dir().Path() + c.typed : c.typed;
        t.messages.shown.clear();
        t.messages.answers = c.answers;
        txtLogFilePath_LostFocus(s, g);
        EXPECT_EQ(g.txtLogFilePath, c.shown);
        EXPECT_EQ(m.LogFilePath, c.shown);
        EXPECT_EQ(g.SaveEnabled, c.marks);
        EXPECT_EQ(t.messages.shown.size(), c.boxes);
    }
    EXPECT_TRUE(std::filesystem::is_directory(made));

    // Not a full path: told, and the directory shown before comes back. On a first run that
    // is the default directory.
    m.LogFilePath = "";
    ConfigScreen g = NewConfigScreen(ConfigScreenKind::ConfigBoards);
    g.txtLogFilePath = "logs";
    t.messages.shown.clear();
    txtLogFilePath_LostFocus(s, g);
    EXPECT_EQ(g.txtLogFilePath, DefaultLogFilePath(s));
    EXPECT_EQ(m.LogFilePath, "");
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Title, "Log File Location");
}

// (The widget tests load a configuration with the warning off, where Save starts disabled.)
TEST_F(ConfigScreenTest, TheWarningOnEnablesSaveWhichTakesEveryControlAndKeepsANonHexNumber) {
    Configured(True);
    ConfigScreen f = Loaded(ConfigScreenKind::ConfigBoards);
    EXPECT_TRUE(f.SaveEnabled);
    EXPECT_EQ(f.FormChanged, False);
    EXPECT_EQ(f.chkWarnOverlapTime, 1);
    f.cmbBaseAddress[0].Text = "2E0";
    f.cmbCntlAddress[0].Text = "zz";
    f.chkResetOnExit[0] = 0;
    f.chkWarnOverlapTime = 0;
    f.cmdSetColorIndicator[0] = 1;  // not on this screen: ignored
    cmdSave_Click(s, f);
    EXPECT_EQ(m.Board[0].BaseAddress, 0x2E0);
    EXPECT_EQ(m.Board[0].CntlAddress, 0);
    EXPECT_EQ(f.cmbCntlAddress[0].Text, "0");
    EXPECT_EQ(m.Board[0].ResetOnExit, 0);
    EXPECT_EQ(m.WarnOverLapTime, False);
    EXPECT_EQ(m.ColorNameBkgrnd, test::kNameBk);
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, ConfigKeyRead, "BaseAddress1"), "736");
}

}  // namespace
}  // namespace vantrellion
