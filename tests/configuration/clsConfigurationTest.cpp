#include <gtest/gtest.h>

#include "configuration/ConfigurationStoreAdapter.h"
#include "configuration/ProgramLocation.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempStore;
using test::TestSystem;

constexpr const char* kKey = "SOFTWARE\\Vantrellion\\Config";
const std::string kLoadErrorTail =
    "\r\nConfiguration Load Errors\r\n\r\nCorrect the Problem or \r\n\r\n"
    "ReEnter Board Values, ('File, Configuration)\r\nThen 'Save', to correct";

class Configuration : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    ModRelay& m = t.s.modRelay;

    void Put(const std::string& name, const std::string& text) {
        StoredValue v;
        v.Type = RegTypeText;
        v.Kind = StoredValue::Data::Text;
        v.Text = text;
        ASSERT_EQ(temp.store().SetValue(HKEY_LOCAL_MACHINE, kKey, name, v), StoreStatus::Ok);
    }
    void Remove(const std::string& name) {
        ASSERT_EQ(temp.store().DeleteValue(HKEY_LOCAL_MACHINE, kKey, name), StoreStatus::Ok);
    }
    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, name);
    }
    std::vector<std::string> StoredNames() {
        std::vector<std::string> names;
        temp.store().ValueNames(HKEY_LOCAL_MACHINE, kKey, names);
        return names;
    }
    // A whole configuration in the store, with values that differ from the test system's.
    void StoreFullConfiguration() {
        ModRelay saved = m;
        m.LoggingOnOff = True;
        m.RunNoBoards = False;
        m.WarnOverLapTime = True;
        m.LogFilePath = "/var/log/relays/";
        m.LogFileName = "relays.log";
        m.DataFilePath = "/home/u/schedules/";
        m.DataFileName = "garden.run";
        for (size_t i = 0; i < 10; ++i)
            m.*NamedColorMember(i) = 1000 + static_cast<int>(i);
        for (int g = 0; g < 8; ++g)
            m.ColorRelayGroup[g] = 100 + g;
        m.Board[0] = BoardRecord{"PCL-725", 0x220, 0x221, 0x223, 0x81, 1, 0, {}};
        for (int r = 0; r < 8; ++r)
            m.Board[0].RelayName[r] = "Pump " + std::to_string(r + 1);
        ConfigurationSaveToReg(s);
        stored_ = m;
        m = saved;
        t.messages.shown.clear();
    }
    static Color ModRelay::*NamedColorMember(size_t i) {
        static constexpr Color ModRelay::*members[] = {
            &ModRelay::ColorRelayON,   &ModRelay::ColorRelayOFF, &ModRelay::ColorTimeON,
            &ModRelay::ColorTimeOFF,   &ModRelay::ColorManualON, &ModRelay::ColorManualOFF,
            &ModRelay::ColorInputON,   &ModRelay::ColorInputOFF, &ModRelay::ColorTTimeBkgrnd,
            &ModRelay::ColorNameBkgrnd};
        return members[i];
    }
    ModRelay stored_;  // the shared state that StoreFullConfiguration saved
};

TEST_F(Configuration, ASaveLoadsBackAsItWasAndWritesTextOnly) {
    StoreFullConfiguration();
    EXPECT_EQ(Stored("ConfigVersion"), "FV.2001.05.01|.b0.r7.t5");
    EXPECT_EQ(Stored("LoggingOnOff"), "1");
    EXPECT_EQ(Stored("RunNoBoards"), "0");
    EXPECT_EQ(Stored("BaseAddress1"), "544");

    m = ModRelay{};
    m.FileVersion = ComposeFileVersion();
    ConfigurationLoadFromReg(s);
    EXPECT_TRUE(t.messages.shown.empty()) << t.messages.shown[0].Prompt;
    EXPECT_EQ(m.LoggingOnOff, True);
    EXPECT_EQ(m.RunNoBoards, False);
    EXPECT_EQ(m.WarnOverLapTime, True);
    EXPECT_EQ(m.LogFilePath, stored_.LogFilePath);
    EXPECT_EQ(m.LogFileName, stored_.LogFileName);
    EXPECT_EQ(m.DataFilePath, stored_.DataFilePath);
    EXPECT_EQ(m.DataFileName, stored_.DataFileName);
    for (size_t i = 0; i < 10; ++i)
        EXPECT_EQ(m.*NamedColorMember(i), 1000 + static_cast<int>(i));
    EXPECT_EQ(m.ColorRelayGroup, stored_.ColorRelayGroup);
    const BoardRecord& b = m.Board[0];
    EXPECT_EQ(b.ChipSetType, "PCL-725");
    EXPECT_EQ(b.BaseAddress, 0x220);
    EXPECT_EQ(b.InputAddress, 0x221);
    EXPECT_EQ(b.CntlAddress, 0x223);
    EXPECT_EQ(b.PortConfigValue, 0x81);
    EXPECT_EQ(b.LogBoard, 1);
    EXPECT_EQ(b.ResetOnExit, 0);
    EXPECT_EQ(b.RelayName, stored_.Board[0].RelayName);
    // Every value on file is text.
    for (const auto& name : StoredNames()) {
        StoredValue v;
        temp.store().QueryValue(HKEY_LOCAL_MACHINE, kKey, name, v);
        EXPECT_EQ(v.Type, RegTypeText) << name;
    }
}

TEST_F(Configuration, ASaveWritesEightGroupsAndBoardOneOnly) {
    StoreFullConfiguration();
    // 8 scalars, 10 colours, 8 groups, and board 1: a type, 6 numbers, 8 names.
    EXPECT_EQ(StoredNames().size(), 8u + 10 + 8 + 1 + 6 + 8);
    EXPECT_EQ(Stored("ColorRelayGroup8"), "107");
    EXPECT_EQ(Stored("Brd1RNam8"), "Pump 8");
    EXPECT_EQ(Stored("ChipSetType2"), "VALUENAMENOTFOUND");
    EXPECT_EQ(Stored("Brd2RNam1"), "VALUENAMENOTFOUND");
}

TEST_F(Configuration, ASaveFillsEmptyPathsAndNamesAndBlanksEmptyTexts) {
    m.LogFilePath = m.LogFileName = m.DataFilePath = m.DataFileName = "";
    m.Board[0].ChipSetType = "";
    m.Board[0].RelayName[3] = "";
    EXPECT_EQ(ConfigurationSaveToReg(s), 0);
    EXPECT_TRUE(t.messages.shown.empty());
    const std::pair<std::string, std::string> expected[] = {
        {"LogFilePath", temp.dir().Slashed()},  // the machine directory
        {"LogFileName", "VantrellionLog.Log"},
        {"DataFilePath", ProgramDirectory()},
        {"DataFileName", "New.run"},
        {"ChipSetType1", " "},
        {"Brd1RNam4", " "},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(Stored(name), text) << name;
    EXPECT_EQ(m.LogFilePath, temp.dir().Slashed());
    EXPECT_EQ(m.LogFileName, "VantrellionLog.Log");
    EXPECT_EQ(m.DataFilePath, ProgramDirectory());
    EXPECT_EQ(m.DataFileName, "New.run");
    EXPECT_EQ(m.Board[0].ChipSetType, " ");
    // A name cleared to nothing comes back as one blank.
    m.Board[0].RelayName[3] = "changed";
    ConfigurationLoadFromReg(s);
    EXPECT_EQ(m.Board[0].RelayName[3], " ");
}

TEST_F(Configuration, ALoadOfAnUnconfiguredStoreReadsNothing) {
    for (const char* sentinel : {"REGKEYNOTFOUND", "VALUENAMENOTFOUND"}) {
        m.FileVersion = sentinel;
        const ModRelay before = m;
        ConfigurationLoadFromReg(s);
        EXPECT_EQ(m.LogFilePath, before.LogFilePath);
        EXPECT_EQ(m.Board[0].RelayName, before.Board[0].RelayName);
        EXPECT_EQ(m.FileVersion, sentinel);
    }
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(temp.store().KeyExists(HKEY_LOCAL_MACHINE, kKey), StoreStatus::KeyNotFound);
}

TEST_F(Configuration, TheStoredShapeBoundsTheGroupsAndTheBoards) {
    struct Case {
        const char* version;
        int groupsLoaded;
    };
    for (const Case c : {Case{"FV.2001.05.01|.b0.r3.t5", 4}, Case{"FV.2001.05.01|.b3.r7.t5", 8},
                         Case{"FV.2001.05.01|.b0.r9.t5", 8}}) {
        SCOPED_TRACE(c.version);
        StoreFullConfiguration();
        Put("ConfigVersion", c.version);
        Put("BaseAddress2", "999");
        Put("Brd2RNam1", "Other");
        m.ColorRelayGroup.fill(-1);
        m.Board[1].BaseAddress = 42;
        m.Board[1].RelayName[0] = "untouched";
        m.FileVersion = c.version;
        ConfigurationLoadFromReg(s);
        EXPECT_TRUE(t.messages.shown.empty());
        EXPECT_EQ(m.FileVersion, c.version);
        for (int g = 0; g < 8; ++g)
            EXPECT_EQ(m.ColorRelayGroup[g], g < c.groupsLoaded ? 100 + g : -1) << g;
        EXPECT_EQ(m.Board[0].RelayName, stored_.Board[0].RelayName);  // always all eight
        EXPECT_EQ(m.Board[0].BaseAddress, 0x220);
        EXPECT_EQ(m.Board[1].BaseAddress, 42);
        EXPECT_EQ(m.Board[1].RelayName[0], "untouched");
    }
}

TEST_F(Configuration, SeveralBadValuesShowOneLoadErrorBoxAndTheRestStillLoads) {
    StoreFullConfiguration();
    Put("ColorRelayON", "green");
    Put("ColorTimeOFF", "&HZZ");
    Put("ColorRelayGroup2", "12x");
    Put("BaseAddress1", "70000");
    m.ColorRelayON = 7;
    m.ColorTimeOFF = 8;
    m.ColorRelayGroup[1] = 9;
    m.Board[0].BaseAddress = 10;
    ConfigurationLoadFromReg(s);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    const auto& box = t.messages.shown[0];
    EXPECT_EQ(box.Prompt, "Type mismatch" + kLoadErrorTail);
    EXPECT_EQ(box.Title, "Load Configuration Error ");
    EXPECT_EQ(box.BoxIcon, Icon::Exclamation);
    EXPECT_EQ(box.ButtonSet, Buttons::OK);
    // The failed values keep their earlier contents; everything after them is loaded.
    EXPECT_EQ(m.ColorRelayON, 7);
    EXPECT_EQ(m.ColorTimeOFF, 8);
    EXPECT_EQ(m.ColorRelayGroup[1], 9);
    EXPECT_EQ(m.Board[0].BaseAddress, 10);
    EXPECT_EQ(m.ColorRelayOFF, 1001);
    EXPECT_EQ(m.ColorNameBkgrnd, 1009);
    EXPECT_EQ(m.ColorRelayGroup[7], 107);
    EXPECT_EQ(m.Board[0].InputAddress, 0x221);
    EXPECT_EQ(m.Board[0].RelayName[7], "Pump 8");
}

TEST_F(Configuration, AbsentValuesAreToldByTheLayerAndNumbersAlsoAsALoadError) {
    struct Case {
        const char* name;
        std::vector<std::string> prompts;
    };
    const Case cases[] = {
        {"ChipSetType1", {"Could not read Key\r\nkey=ChipSetType1"}},
        {"BaseAddress1",
         {"Could not read Key\r\nkey=BaseAddress1", "Type mismatch" + kLoadErrorTail}},
        {"LogFileName", {"Could not read Key\r\nkey=LogFileName"}},
        {"RunNoBoards",
         {"Could not read Key\r\nkey=RunNoBoards", "Type mismatch" + kLoadErrorTail}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        StoreFullConfiguration();
        Remove(c.name);
        m = stored_;
        m.Board[0].BaseAddress = 5;
        m.Board[0].ChipSetType = "before";
        m.LogFileName = "before";
        m.RunNoBoards = True;
        ConfigurationLoadFromReg(s);
        EXPECT_EQ(t.messages.Prompts(), c.prompts);
        // A text becomes empty; a number keeps its earlier content.
        const std::string name = c.name;
        EXPECT_EQ(m.Board[0].ChipSetType, name == "ChipSetType1" ? "" : "PCL-725");
        EXPECT_EQ(m.Board[0].BaseAddress, name == "BaseAddress1" ? 5 : 0x220);
        EXPECT_EQ(m.LogFileName, name == "LogFileName" ? "" : "relays.log");
        EXPECT_EQ(m.RunNoBoards, name == "RunNoBoards" ? True : False);
    }
}

TEST_F(Configuration, StoredFlagsCompareAsNumbers) {
    struct Case {
        const char* text;
        Flag expected;  // kUnchanged: the flag keeps its value
        bool loadError;
    };
    constexpr Flag kUnchanged = 5;
    const Case cases[] = {
        {"0", False, false},       {"1", True, false},        {"1.0", True, false},
        {" 1 ", True, false},      {"0.0E0", False, false},   {"2", kUnchanged, false},
        {"-1", kUnchanged, false}, {"yes", kUnchanged, true}, {"1,0", kUnchanged, true},
    };
    const std::pair<const char*, Flag ModRelay::*> flags[] = {
        {"LoggingOnOff", &ModRelay::LoggingOnOff},
        {"RunNoBoards", &ModRelay::RunNoBoards},
        {"WarnOverLapTime", &ModRelay::WarnOverLapTime},
    };
    StoreFullConfiguration();
    for (const auto& [name, member] : flags) {
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(name) + " = '" + c.text + "'");
            Put(name, c.text);
            m = stored_;
            m.*member = kUnchanged;
            t.messages.shown.clear();
            ConfigurationLoadFromReg(s);
            EXPECT_EQ(m.*member, c.expected);
            EXPECT_EQ(t.messages.shown.size(), c.loadError ? 1u : 0u);
        }
        Put(name, "1");
    }
}

TEST_F(Configuration, ALoadRecordsWhereTheProgramNowStandsWithoutAWord) {
    StoreFullConfiguration();
    Put("InstallPath", "/opt/old/place");
    Put("InstallName", "oldname");
    m.FileVersion = ComposeFileVersion();
    ConfigurationLoadFromReg(s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_FALSE(ProgramDirectory().empty());
    EXPECT_EQ(ConfigurationLoadInstallPath(s), ProgramDirectory());
    EXPECT_EQ(ConfigurationLoadInstallName(s), ProgramName());
    EXPECT_EQ(ProgramName().find('/'), std::string::npos);
}

TEST_F(Configuration, ValuesOfOtherBoardsSurviveALoadAndASave) {
    StoreFullConfiguration();
    const std::pair<const char*, const char*> others[] = {
        {"ChipSetType2", "CBRelay16B"}, {"BaseAddress2", "770"}, {"Brd2RNam3", "Fan"},
        {"ResetOnExit4", "0"},          {"Brd4RNam8", "Last"},
    };
    for (const auto& [name, text] : others)
        Put(name, text);
    m.FileVersion = ComposeFileVersion();
    ConfigurationLoadFromReg(s);
    m.Board[1].BaseAddress = 1;  // not this build's board: never saved
    ConfigurationSaveToReg(s);
    for (const auto& [name, text] : others)
        EXPECT_EQ(Stored(name), text) << name;
}

TEST_F(Configuration, TheSingleSavesAndTheDeletes) {
    m.LogFileName = "day.log";
    m.LogFilePath = "/logs/";
    m.DataFileName = "a.run";
    m.DataFilePath = "/runs/";
    ConfigurationLogFileNameSave(s);
    ConfigurationLogFilePathSave(s);
    ConfigurationDataFileNameSave(s);
    ConfigurationDataFilePathSave(s);
    ConfigurationFlagLoggingSave(s, True);
    // Through the interface that other subsystems hold, from the shared state.
    m.RunNoBoards = False;
    ConfigurationStoreAdapter(s).ConfigurationFlagRunNoBoardsSave();
    EXPECT_EQ(Stored("LogFileName"), "day.log");
    EXPECT_EQ(Stored("LogFilePath"), "/logs/");
    EXPECT_EQ(Stored("DataFileName"), "a.run");
    EXPECT_EQ(Stored("DataFilePath"), "/runs/");
    EXPECT_EQ(Stored("LoggingOnOff"), "1");
    EXPECT_EQ(Stored("RunNoBoards"), "0");
    // Nothing but a full save stamps the version.
    EXPECT_EQ(ConfigurationLoadVersionFromReg(s), "VALUENAMENOTFOUND");

    RegWriteValue(s, HKEY_LOCAL_MACHINE, "\\SOFTWARE\\Vantrellion\\Startup\\", "String", "frmRelay",
                  "1,2,3,4");
    EXPECT_EQ(ConfigurationDeleteFromReg(s), 0);
    ConfigurationDeleteLastPos(s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(ConfigurationLoadVersionFromReg(s), "REGKEYNOTFOUND");
    EXPECT_EQ(
        RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion\\Startup", "frmRelay"),
        "REGKEYNOTFOUND");
}

}  // namespace
}  // namespace vantrellion
