#include <gtest/gtest.h>

#include <stdexcept>

#include "configuration/ConfigScreenFields.h"
#include "configuration/ConfigScreenLogic.h"
#include "configuration/ConfigScreenToolTips.h"
#include "configuration/StringTable.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempStore;
using test::TestSystem;

constexpr const char* kKey = "SOFTWARE\\Vantrellion\\Config";

class ConfigScreenTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    ModRelay& m = t.s.modRelay;
    // The test system's shared state as the screens leave the board's flags: 0 or 1.
    const ModRelay baseline_ = [this] {
        ModRelay b = t.s.modRelay;
        b.Board[0].LogBoard = 1;
        b.Board[0].ResetOnExit = 1;
        return b;
    }();

    // The shared state of a program that has loaded nothing yet.
    void Unconfigured() { m = ModRelay{}; }
    // A stored configuration, loaded into the shared state as the start-up check does.
    void Configured(Flag warn) {
        m = baseline_;
        m.WarnOverLapTime = warn;
        m.LogFilePath = temp.dir().Slashed();
        ConfigurationSaveToReg(s);
        ConfigurationLoadFromReg(s);
        t.messages.shown.clear();
    }
    ConfigScreen Loaded(ConfigScreenKind kind) {
        ConfigScreen f = NewConfigScreen(kind);
        ConfigForm_Load(s, f);
        return f;
    }
    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, name);
    }
};

TEST_F(ConfigScreenTest, AFirstRunFillsTheDefaultsAndEnablesSaveOnlyWhereCheckBoxesAre) {
    struct Case {
        ConfigScreenKind kind;
        bool saveEnabled;
    };
    for (const Case c :
         {Case{ConfigScreenKind::Configuration, true}, Case{ConfigScreenKind::ConfigBoards, true},
          Case{ConfigScreenKind::ConfigColors, false}}) {
        Unconfigured();
        const ConfigScreen f = Loaded(c.kind);
        SCOPED_TRACE(ConfigScreenName(c.kind));
        EXPECT_EQ(m.FileVersion, REGKEYNOTFOUND);
        EXPECT_EQ(f.SaveEnabled, c.saveEnabled);
        EXPECT_EQ(f.FormChanged, False);
        // The clicks have already put the check boxes' defaults in the shared state; the
        // colour screen has no check boxes, and its colour buttons are the only controls.
        EXPECT_EQ(m.Board[0].LogBoard, HasBoardControls(c.kind) ? 1 : 0);
        EXPECT_EQ(m.WarnOverLapTime, HasBoardControls(c.kind) ? True : False);
        EXPECT_EQ(f.txtRelayName[7], HasBoardControls(c.kind) ? "Relay: 8" : "");
        EXPECT_EQ(f.cmdSetColorIndicator[1], HasColorButtons(c.kind) ? 65280 : 0);
        EXPECT_EQ(m.Board[0].BaseAddress, 0) << "addresses reach the shared state at Save";
    }
}

TEST_F(ConfigScreenTest, SaveOnAFirstRunStoresEveryDefaultAndStampsTheVersion) {
    Unconfigured();
    ConfigScreen f = Loaded(ConfigScreenKind::Configuration);
    cmdSave_Click(s, f);
    EXPECT_FALSE(f.SaveEnabled);
    EXPECT_EQ(f.FormChanged, False);
    EXPECT_EQ(Stored("ConfigVersion"), ComposeFileVersion());
    const std::pair<const char*, std::string> expected[] = {
        {"ChipSetType1", "CBRelay16A"},
        {"BaseAddress1", "768"},
        {"InputAddress1", "769"},
        {"CntlAddress1", "0"},
        {"PortConfigValue1", "0"},
        {"LogBoard1", "1"},
        {"ResetOnExit1", "1"},
        {"WarnOverLapTime", "1"},
        {"LogFilePath", temp.dir().Slashed()},
        {"Brd1RNam1", "Relay: 1"},
        {"Brd1RNam8", "Relay: 8"},
        {"ColorNameBkgrnd", "65535"},
        {"ColorTTimeBkgrnd", "12632256"},
        {"ColorRelayGroup1", "12648447"},
        {"ColorRelayGroup8", "16777215"},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(Stored(name), text) << name;
}

TEST_F(ConfigScreenTest, AConfiguredStoreShowsTheSharedStateAndSaveFollowsTheWarnFlag) {
    for (Flag warn : {False, True}) {
        Configured(warn);
        const ConfigScreen f = Loaded(ConfigScreenKind::Configuration);
        EXPECT_EQ(f.SaveEnabled, warn == True) << warn;
        EXPECT_EQ(f.FormChanged, False);
        EXPECT_EQ(f.cmbBaseAddress[0].Text, "300");
        EXPECT_EQ(f.chkWarnOverlapTime, warn == True ? 1 : 0);
        EXPECT_EQ(f.txtRelayName[0], "Relay 1");
        EXPECT_EQ(f.cmdSetColorIndicator[9], test::kTTimeBk);
    }
}

TEST_F(ConfigScreenTest, AddressEntriesAreCheckedWhenTheFieldIsLeft) {
    struct Case {
        AddressBox box;
        const char* typed;
        bool accepted;
        const char* shown;
        int16_t stored;
        const char* message;  // the start of the refusal's text
    };
    const char* kAddresses = "Enter Address between Hex 280-3FF (Dec 640-1024)\r\n";
    const char* kNotHex = "\"";
    // (The widget test types the entries of the usual edge cases; these are the rest.)
    const Case cases[] = {
        {AddressBox::cmbBaseAddress, "", true, "0", 0, nullptr},
        {AddressBox::cmbBaseAddress, "2a0", true, "2A0", 0x2A0, nullptr},
        {AddressBox::cmbBaseAddress, "0300", true, "0300", 0x300, nullptr},  // unchanged
        {AddressBox::cmbBaseAddress, "FFFF", false, "FFFF", 0x300, kAddresses},
        {AddressBox::cmbBaseAddress, "10000", false, "10000", 0x300, kNotHex},
        {AddressBox::cmbBaseAddress, "0x300", false, "0x300", 0x300, kNotHex},
        {AddressBox::cmbInputAddress, "1FF", false, "1FF", 0x301, kAddresses},
        {AddressBox::cmbCntlAddress, "303", true, "303", 0x303, nullptr},
        {AddressBox::cmbPortConfigValue, "0", true, "0", 0, nullptr},  // unchanged
    };
    const BoardRecord initial = m.Board[0];
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.typed) + " box " + std::to_string(static_cast<int>(c.box)));
        m.Board[0] = initial;
        t.messages.shown.clear();
        ConfigScreen f = NewConfigScreen(ConfigScreenKind::Configuration);
        AddressCombo(f, c.box, 0).Text = c.typed;
        const int16_t before = SharedAddress(s, c.box, 0);
        int kept = 0;
        EXPECT_EQ(AddressBox_LostFocus(s, f, c.box, 0, [&] { ++kept; }), c.accepted);
        EXPECT_EQ(kept, c.accepted ? 0 : 1);
        EXPECT_EQ(AddressCombo(f, c.box, 0).Text, c.shown);
        EXPECT_EQ(SharedAddress(s, c.box, 0), c.stored);
        if (c.message) {
            ASSERT_EQ(t.messages.shown.size(), 1u);
            EXPECT_EQ(t.messages.shown[0].Prompt.rfind(c.message, 0), 0u)
                << t.messages.shown[0].Prompt;
            if (c.message != kNotHex) {
                EXPECT_EQ(t.messages.shown[0].Title, "Address Entry is Out of Range!");
                EXPECT_EQ(t.messages.shown[0].BoxIcon, Icon::None);
            }
        } else {
            EXPECT_TRUE(t.messages.shown.empty());
        }
        EXPECT_EQ(f.SaveEnabled, c.stored != before) << "changed only";
    }
}

TEST_F(ConfigScreenTest, HexadecimalTextsAndTheirCanonicalForm) {
    EXPECT_EQ(ParseHexAddress("300"), 0x300);
    EXPECT_EQ(ParseHexAddress(" 3ff "), 0x3FF);
    EXPECT_EQ(ParseHexAddress("FFFF"), -1);
    EXPECT_EQ(ParseHexAddress("8000"), INT16_MIN);
    EXPECT_EQ(ParseHexAddress("07FFF"), INT16_MAX);
    EXPECT_EQ(ParseHexAddress("0FFFF"), std::nullopt);  // five digits: 65535 does not fit
    for (const char* bad : {"", " ", "G", "&H300", "-1", "300&", "1.5"})
        EXPECT_EQ(ParseHexAddress(bad), std::nullopt) << bad;
    EXPECT_EQ(HexText(0x2A0), "2A0");
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(-1), "FFFF");
    EXPECT_EQ(NumericBoxChanged(""), "0");
    EXPECT_EQ(NumericBoxChanged(" "), "0");
    EXPECT_EQ(NumericBoxChanged("  "), "  ");
}

TEST_F(ConfigScreenTest, TheAddressRowsAreOfferedFieldByField) {
    ConfigScreen f = NewConfigScreen(ConfigScreenKind::Configuration);
    FormFillAddressLists(f);
    EXPECT_EQ(f.cmbInputAddress[0].List[1], "221");
    EXPECT_EQ(f.cmbCntlAddress[0].List[2], "243");
    EXPECT_EQ(f.cmbPortConfigValue[0].List.back(), "9B");
    EXPECT_TRUE(f.cmbBaseAddress[1].List.empty()) << "board 1's lists only";
}

TEST_F(ConfigScreenTest, ALeftLogPathKeepsTheSharedOneOrTakesTheDefault) {
    struct Case {
        const char* shared;
        const char* typed;
        const char* shown;
        bool marks;
    };
    const Case cases[] = {
        {"/var/log/", "/tmp/other", "/var/log/", true},
        {"/var/log/", "/var/log", "/var/log/", false},
        {"/var/log/", "", "/var/log/", false},
        {"", "", nullptr, false},  // the default directory
    };
    for (const Case& c : cases) {
        ConfigScreen g = NewConfigScreen(ConfigScreenKind::ConfigBoards);
        m.LogFilePath = c.shared;
        g.txtLogFilePath = c.typed;
        txtLogFilePath_LostFocus(s, g);
        EXPECT_EQ(g.txtLogFilePath, c.shown ? c.shown : DefaultLogFilePath(s)) << c.typed;
        EXPECT_EQ(g.SaveEnabled, c.marks) << c.typed;
        EXPECT_EQ(m.LogFilePath, c.shared);
    }
}

TEST_F(ConfigScreenTest, AChooserThatFailsCountsAsCancelled) {
    ConfigScreen f = Loaded(ConfigScreenKind::ConfigColors);
    auto fail = [](const std::string&, Color) -> std::optional<Color> {
        throw std::runtime_error("no display");
    };
    const Color before = f.cmdSetColorGroupBkgrnd[0];
    ColorButton_Click(s, f, ColorArray::cmdSetColorGroupBkgrnd, 0, fail);
    EXPECT_EQ(f.cmdSetColorGroupBkgrnd[0], before);
    EXPECT_EQ(m.ColorRelayGroup[0], 0);
    EXPECT_FALSE(f.SaveEnabled);
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(ConfigScreenTest, ResetCommandsChangeTheControlsOfTheirScreenOnly) {
    Configured(False);
    ConfigScreen colours = Loaded(ConfigScreenKind::ConfigColors);
    mnuResetAll_Click(s, colours);
    EXPECT_EQ(colours.cmdSetColorIndicator[0], 65535);
    EXPECT_EQ(colours.txtRelayName[0], "") << "the colour screen has no names";
    EXPECT_FALSE(colours.SaveEnabled) << "no check box there to flip";
    EXPECT_EQ(m.ColorNameBkgrnd, test::kNameBk);

    ConfigScreen boards = Loaded(ConfigScreenKind::ConfigBoards);
    boards.txtLogFilePath = "/kept/";
    mnuResetAll_Click(s, boards);
    EXPECT_EQ(boards.txtRelayName[0], "Relay: 1");
    EXPECT_EQ(boards.txtLogFilePath, "/kept/");
    EXPECT_EQ(boards.cmdSetColorIndicator[0], 0) << "the board screen has no colour buttons";
    EXPECT_TRUE(boards.SaveEnabled) << "the warn box flipped from 0 to 1";
    EXPECT_EQ(m.Board[0].RelayName[0], "Relay 1") << "names wait for Save or the field's leave";
}

TEST_F(ConfigScreenTest, SaveTakesEveryControlAndKeepsANumberThatIsNotHexadecimal) {
    Configured(False);
    ConfigScreen f = Loaded(ConfigScreenKind::ConfigBoards);
    f.cmbBaseAddress[0].Text = "2E0";
    f.cmbCntlAddress[0].Text = "zz";
    f.chkResetOnExit[0] = 0;
    f.chkWarnOverlapTime = 1;
    f.cmdSetColorIndicator[0] = 1;  // not on this screen: ignored
    cmdSave_Click(s, f);
    EXPECT_EQ(m.Board[0].BaseAddress, 0x2E0);
    EXPECT_EQ(m.Board[0].CntlAddress, 0);
    EXPECT_EQ(f.cmbCntlAddress[0].Text, "0");
    EXPECT_EQ(m.Board[0].ResetOnExit, 0);
    EXPECT_EQ(m.WarnOverLapTime, True);
    EXPECT_EQ(m.ColorNameBkgrnd, test::kNameBk);
    EXPECT_EQ(Stored("BaseAddress1"), "736");
}

TEST_F(ConfigScreenTest, ToolTipIdsAreNotOneToOneWithTheControls) {
    EXPECT_EQ(ConfigToolTip("lblLoggingYN"), "Enter Directory where you want log files created");
    EXPECT_EQ(ConfigToolTip("lblBackground"), "Information Only, see Documentation");
    EXPECT_EQ(ConfigToolTip("cmdSetColorGroupBkgrnd", 0), "Choose Backgroung Color For Group 1");
    EXPECT_EQ(ConfigToolTip("cmdSetColorIndicator", 6),
              "Select Color to Indicate MAanual is NOT ON");
    EXPECT_EQ(ConfigToolTip("cmdSave"), "");
}

}  // namespace
}  // namespace vantrellion
