#include <gtest/gtest.h>

#include <string_view>
#include <tuple>

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
const std::string kLoadError =
    "Type mismatch\r\nConfiguration Load Errors\r\n\r\nCorrect the Problem or \r\n\r\n"
    "ReEnter Board Values, ('File, Configuration)\r\nThen 'Save', to correct";

// What the store holds of the shared state, for comparing.
auto Persisted(const ModRelay& m) {
    const BoardRecord& b = m.Board[0];
    return std::tie(m.LoggingOnOff, m.RunNoBoards, m.WarnOverLapTime, m.LogFilePath, m.LogFileName,
                    m.DataFilePath, m.DataFileName, m.ColorRelayON, m.ColorRelayOFF, m.ColorTimeON,
                    m.ColorTimeOFF, m.ColorManualON, m.ColorManualOFF, m.ColorInputON,
                    m.ColorInputOFF, m.ColorTTimeBkgrnd, m.ColorNameBkgrnd, m.ColorRelayGroup,
                    b.ChipSetType, b.BaseAddress, b.InputAddress, b.CntlAddress, b.PortConfigValue,
                    b.LogBoard, b.ResetOnExit, b.RelayName);
}

class Configuration : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    ModRelay& m = t.s.modRelay;
    ModRelay stored_;  // the shared state that SetUp saved

    // A whole configuration in the store, with values that differ from the test system's;
    // the shared state stays the test system's.
    void SetUp() override {
        stored_ = m;
        ModRelay& c = stored_;
        c.LoggingOnOff = c.WarnOverLapTime = True;
        c.RunNoBoards = False;
        std::tie(c.LogFilePath, c.LogFileName, c.DataFilePath, c.DataFileName) =
            std::tuple("/var/log/relays/", "relays.log", "/home/u/schedules/", "garden.run");
        Color next = 1000;
        for (Color* color : {&c.ColorRelayON, &c.ColorRelayOFF, &c.ColorTimeON, &c.ColorTimeOFF,
                             &c.ColorManualON, &c.ColorManualOFF, &c.ColorInputON, &c.ColorInputOFF,
                             &c.ColorTTimeBkgrnd, &c.ColorNameBkgrnd})
            *color = next++;
        for (int g = 0; g < 8; ++g)
            c.ColorRelayGroup[g] = 100 + g;
        c.Board[0] = BoardRecord{"PCL-725", 0x220, 0x221, 0x223, 0x81, 1, 0, {}};
        for (int r = 0; r < 8; ++r)
            c.Board[0].RelayName[r] = "Pump " + std::to_string(r + 1);
        StoreFull();
    }
    void StoreFull() {
        std::swap(m, stored_);
        ConfigurationSaveToReg(s);
        std::swap(m, stored_);
        t.messages.shown.clear();
    }
    void Put(const std::string& name, const std::string& text) {
        RegWriteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyWrite, "String", name, text);
    }
    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, kKey, name);
    }
    std::vector<std::string> StoredNames() {
        std::vector<std::string> names;
        temp.store().ValueNames(HKEY_LOCAL_MACHINE, kKey, names);
        return names;
    }
    void Load(const std::string& version = ComposeFileVersion()) {
        m.FileVersion = version;
        ConfigurationLoadFromReg(s);
    }
};

TEST_F(Configuration, ASaveLoadsBackAsItWasAndWritesTextForBoardOneOnly) {
    EXPECT_EQ(Stored("ConfigVersion"), "FV.2001.05.01|.b0.r7.t5");
    EXPECT_EQ(Stored("LoggingOnOff"), "1");
    EXPECT_EQ(Stored("RunNoBoards"), "0");
    EXPECT_EQ(Stored("BaseAddress1"), "544");
    EXPECT_EQ(Stored("ColorRelayGroup8"), "107");
    EXPECT_EQ(Stored("Brd1RNam8"), "Pump 8");
    EXPECT_EQ(Stored("ChipSetType2"), "VALUENAMENOTFOUND");
    // 8 scalars, 10 colours, 8 groups, and board 1: a type, 6 numbers, 8 names; all text.
    EXPECT_EQ(StoredNames().size(), 8u + 10 + 8 + 1 + 6 + 8);
    for (const auto& name : StoredNames()) {
        StoredValue v;
        temp.store().QueryValue(HKEY_LOCAL_MACHINE, kKey, name, v);
        EXPECT_EQ(v.Type, RegTypeText) << name;
    }
    // A load also records where the program now stands, without a word.
    Put("InstallPath", "/opt/old/place");
    Put("InstallName", "oldname");
    m = ModRelay{};
    Load();
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(Persisted(m), Persisted(stored_));
    EXPECT_EQ(ConfigurationLoadInstallPath(s), ProgramDirectory());
    EXPECT_EQ(ConfigurationLoadInstallName(s), ProgramName());
}

TEST_F(Configuration, StoredFlagsCompareAsNumbers) {
    constexpr Flag kUnchanged = 5;
    const std::tuple<const char*, Flag, bool> cases[] = {
        // text, the flag after the load, a load error
        {"0", False, false},       {"1", True, false},        {"1.0", True, false},
        {" 1 ", True, false},      {"0.0E0", False, false},   {"2", kUnchanged, false},
        {"-1", kUnchanged, false}, {"yes", kUnchanged, true}, {"1,0", kUnchanged, true},
    };
    for (const auto& [name, member] : {std::pair{"LoggingOnOff", &ModRelay::LoggingOnOff},
                                       std::pair{"RunNoBoards", &ModRelay::RunNoBoards},
                                       std::pair{"WarnOverLapTime", &ModRelay::WarnOverLapTime}}) {
        for (const auto& [text, expected, loadError] : cases) {
            SCOPED_TRACE(std::string(name) + " = '" + text + "'");
            Put(name, text);
            m = stored_;
            m.*member = kUnchanged;
            t.messages.shown.clear();
            Load();
            EXPECT_EQ(m.*member, expected);
            EXPECT_EQ(t.messages.shown.size(), loadError ? 1u : 0u);
        }
        Put(name, "1");
    }
    // Saved, a flag that is not 0 is stored as on, whatever number it holds.
    const std::pair<Flag, const char*> saved[] = {{False, "0"}, {True, "1"}, {1, "1"}, {5, "1"}};
    for (const auto& [flag, text] : saved) {
        m = stored_;
        m.LoggingOnOff = flag;
        ConfigurationSaveToReg(s);
        EXPECT_EQ(Stored("LoggingOnOff"), text) << flag;
    }
}

TEST_F(Configuration, TheSingleSavesStampNoVersionAndTheDeletesRemoveBothKeys) {
    temp.store().DeleteKey(HKEY_LOCAL_MACHINE, kKey);
    std::tie(m.LogFileName, m.LogFilePath, m.DataFileName, m.DataFilePath) =
        std::tuple("day.log", "/logs/", "a.run", "/runs/");
    EXPECT_TRUE(ConfigurationLogFileNameSave(s));
    for (auto* save : {&ConfigurationLogFilePathSave, &ConfigurationDataFileNameSave,
                       &ConfigurationDataFilePathSave})
        save(s);
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
    EXPECT_EQ(ConfigurationLoadVersionFromReg(s), "VALUENAMENOTFOUND");

    RegWriteValue(s, HKEY_LOCAL_MACHINE, StartupKeyWrite, "String", "frmRelay", "1,2,3,4");
    EXPECT_EQ(ConfigurationDeleteFromReg(s), 0);
    ConfigurationDeleteLastPos(s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(ConfigurationLoadVersionFromReg(s), "REGKEYNOTFOUND");
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, StartupKeyRead, "frmRelay"),
              "REGKEYNOTFOUND");
}

}  // namespace
}  // namespace vantrellion
