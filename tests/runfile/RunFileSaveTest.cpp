#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <set>

#include "core/TextEncoding.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"
#include "support/ChildProcess.h"

namespace vantrellion {
namespace {

using test::RunFileTest;
using test::SplitCrLf;

// The names in the directory, hidden ones included.
std::set<std::string> DirectoryEntries(const test::TempDir& dir) {
    std::set<std::string> names;
    for (const auto& e : std::filesystem::directory_iterator(dir.Path()))
        names.insert(e.path().filename().string());
    return names;
}

// Relay 0 as in the worked example of the format: logging on, relay 0 named Pump, Monday,
// Wednesday and Friday from 08:00 to 15:00, counting, 12 so far, no even/odd code and no
// icon of its own.
void SetUpPump(System& s) {
    s.modRelay.LoggingOnOff = True;
    RelayRecord& pump = s.frmRelay.Relay[0];
    pump.DisplayName = "Pump";
    pump.DaysOfWeek = "246";
    pump.DayHrEvenOdd = "";
    pump.CounterOn = True;
    pump.Count = 12;
    s.frmRelay.StartTime[0] = "08:00";
    s.frmRelay.EndTime[0] = "15:00";
}

// The example's first lines, byte for byte, then the other relays in every field that a Run
// File holds, loaded back.
TEST_F(RunFileTest, TheWorkedExampleSavesLineByLineAndEverythingLoadsBack) {
    SetUpPump(s);
    const char* codes[] = {"", "EH", "TH", "3H", "15", "SS", "", "BH"};
    for (int i = 1; i <= LastRelay; ++i) {
        RelayRecord& r = f.Relay[i];
        r.DisplayName = "Ventil S\xC3\xBC" + std::string("d ") + std::to_string(i);
        r.DaysOfWeek = i % 2 ? "All Days" : "1357";
        r.DayHrEvenOdd = codes[i];
        r.Manual = ToFlag(i % 2);
        r.Invert = ToFlag(i == 1 || i == 7);  // relay 4's code is cyclic: no Invert
        r.CounterOn = ToFlag(i % 4 == 0);
        r.HardStop = ToFlag(i == 5);
        r.Count = static_cast<int16_t>(i == 6 ? -32768 : i == 7 ? 32767 : i * 1000 - 3000);
        r.IconFile = i == 3 ? "/home/ann/icons/pump.ico" : "";
        for (int p = 0; p <= LastTimePair; ++p) {
            ts.SetPair(i, p, std::to_string(p + 8) + ":0" + std::to_string(i),
                       p == 4 ? "9:30 pm" : std::to_string(p + 9) + ":00:00");
        }
    }
    f.Relay[2].Manual = 1;  // only -1 is true
    f.Relay[6].Manual = 2;
    s.modRelay.FileVersion = "left over";
    f.AutoRestarted = True;
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "pump.run"));
    EXPECT_EQ(s.modRelay.FileVersion, "FV.2001.05.01|.b0.r7.t5");
    EXPECT_EQ(f.AutoRestarted, False);
    EXPECT_FALSE(ts.timer.enabled);  // as CheckTimeAllowed says
    EXPECT_GE(ts.timer.changes, 1);

    // Every character fits Latin-1: the file is in Latin-1, byte for byte as ever.
    const std::string bytes = dir.Read("pump.run");
    const std::string example =
        "FV.2001.05.01|.b0.r7.t5\r\n 1 \r\nPump\r\n246\r\n\r\n 0 \r\n 0 \r\n 1 \r\n 12 \r\n 0 \r\n"
        "\r\n08:00\r\n15:00\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nVentil S\xFC"
        "d 1\r\n";
    EXPECT_EQ(bytes.substr(0, example.size()), example);
    const auto lines = SplitCrLf(bytes);
    ASSERT_EQ(lines.size(), 170u);
    for (const auto& l : lines)
        EXPECT_EQ(l.find_first_of("\r\n"), std::string::npos) << l;
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
    // Numbers in print form: Manual of relays 1, 2 and 6, then Count of relays 2, 6 and 7.
    const auto field = [&](int relay, int line) { return lines[2 + relay * 21 + line]; };
    EXPECT_EQ(
        (std::vector{field(1, 3), field(2, 3), field(6, 3), field(2, 6), field(6, 6), field(7, 6)}),
        (std::vector<std::string>{" 1 ", " 0 ", " 0 ", "-1000 ", "-32768 ", " 32767 "}));
    f.Relay[2].Manual = f.Relay[6].Manual = False;  // as the file holds them

    test::TestSystem other;
    ASSERT_EQ(LoadRunFile(other.s, dir.Path(), "pump.run", true), RunFileLoaded);
    test::ExpectSameSchedule(s, other.s);
    EXPECT_TRUE(other.messages.shown.empty());
}

// A text that Latin-1 cannot hold turns the whole file to UTF-8; both forms load back whole,
// and a name with a comma or a double quote is quoted so that nothing after it shifts.
TEST_F(RunFileTest, NamesOfAnyCharactersAndPunctuationLoadBackWhole) {
    struct Case {
        const char* name;  // relay 0's name, in memory
        const char* line;  // its line in the file
        bool utf8File;
    } cases[] = {
        {"Pump", "Pump", false},
        {"Ventil S\xC3\xBC"
         "d",
         "Ventil S\xFC"
         "d",
         false},
        {"\xD0\x9D\xD0\xB0\xD1\x81\xD0\xBE\xD1\x81 \xE2\x82\xAC",  // "Насос €"
         "\xD0\x9D\xD0\xB0\xD1\x81\xD0\xBE\xD1\x81 \xE2\x82\xAC", true},
        {"Pump, north", "\"Pump, north\"", false},
        {"12\" pipe", "\"12\"\" pipe\"", false},
        {"\"Big\" pump", "\"\"\"Big\"\" pump\"", false},
        {",", "\",\"", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUpPump(s);
        f.Relay[0].DisplayName = c.name;
        f.Relay[1].DisplayName = "Relay 2";
        ASSERT_TRUE(SaveRunFile(s, dir.Path(), "names.run"));
        const auto lines = SplitCrLf(dir.Read("names.run"));
        ASSERT_EQ(lines.size(), 170u);
        EXPECT_EQ(lines[2], c.line);
        EXPECT_EQ(lines[3], "246");
        EXPECT_EQ(lines[23], "Relay 2");

        test::TestSystem other;
        ASSERT_EQ(LoadRunFile(other.s, dir.Path(), "names.run", true), RunFileLoaded);
        test::ExpectSameSchedule(s, other.s);
        EXPECT_EQ(DetectTextFileEncoding(dir.Read("names.run")) == TextFileEncoding::Utf8,
                  c.utf8File);
    }
}

// Message boxes that note whether the timer was running while they were up.
class TimerWatchingMessages : public test::FakeMessages {
  public:
    explicit TimerWatchingMessages(CheckTimer& t) : timer(t) {}
    Answer Show(const MessageBoxRequest& r) override {
        timerOnDuringBox = timerOnDuringBox || timer.IsEnabled();
        return FakeMessages::Show(r);
    }
    CheckTimer& timer;
    bool timerOnDuringBox = false;
};

TEST_F(RunFileTest, ReportsEachWriteFailureAndKeepsTheSchedule) {
    ASSERT_EQ(::mkfifo(dir.File("pipe").c_str(), 0600), 0);
    struct {
        std::string path, name, title;
        int error;
    } cases[] = {
        {dir.Path() + "missing/", "a.run", "Open File Error", ENOENT},
        {dir.Path(), "", "Open File Error", EISDIR},
        // A pipe that nobody reads is refused rather than waited for.
        {dir.Path(), "pipe", "Open File Error", ENXIO},
        // A full disk: the device takes the open and refuses every write.
        {"/dev/", "full", "Error Writing Data File", ENOSPC},
    };
    SetUpPump(s);
    f.CheckTimeAllowed = True;
    const System before = s;
    for (const auto& c : cases) {
        TimerWatchingMessages boxes(ts.timer);
        s.platform.messages = &boxes;
        f.AutoRestarted = True;
        EXPECT_FALSE(SaveRunFile(s, c.path, c.name)) << c.path << c.name;
        EXPECT_EQ(f.AutoRestarted, False);
        ASSERT_EQ(boxes.shown.size(), 1u) << c.path << c.name;
        EXPECT_EQ(boxes.shown[0].Title, c.title);
        EXPECT_EQ(boxes.shown[0].Prompt, std::strerror(c.error));
        EXPECT_EQ(boxes.shown[0].BoxIcon, Icon::Exclamation);
        EXPECT_EQ(boxes.shown[0].ButtonSet, Buttons::OK);
        EXPECT_FALSE(boxes.timerOnDuringBox);
        EXPECT_TRUE(ts.timer.enabled);
        test::ExpectSameSchedule(s, before);
    }
}

// A kill at any moment of a save leaves the old file whole: the process is ended by the
// file size limit in the middle of writing, at several points of the file.
TEST_F(RunFileTest, AKillDuringASaveLeavesThePreviousSchedule) {
    SetUpPump(s);
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "VantrellionRestart.run"));
    const std::string before = dir.Read("VantrellionRestart.run");
    for (size_t limit : {size_t{0}, size_t{1}, before.size() / 2, before.size() - 1}) {
        const int code = test::RunInChild([&] {
            test::TestSystem t;
            SetUpPump(t.s);
            t.s.frmRelay.StartTime[0] = "07:00";
            std::signal(SIGXFSZ, SIG_DFL);  // the limit kills the process
            const rlimit lim{limit, limit};
            if (setrlimit(RLIMIT_FSIZE, &lim) != 0) return 10;
            SaveRunFile(t.s, dir.Path(), "VantrellionRestart.run");
            return 11;
        });
        EXPECT_EQ(code, 128 + SIGXFSZ) << "limit " << limit;
        EXPECT_EQ(dir.Read("VantrellionRestart.run"), before) << "limit " << limit;
    }
}

// The save goes through a symbolic link to its target, and the file keeps its mode.
TEST_F(RunFileTest, ASaveKeepsTheLinkAndTheModeOfTheFile) {
    ASSERT_EQ(::mkdir(dir.File("real").c_str(), 0755), 0);
    dir.Write("real/target.run", "old");
    ASSERT_EQ(::chmod(dir.File("real/target.run").c_str(), 0640), 0);
    ASSERT_EQ(::symlink("real/target.run", dir.File("link.run").c_str()), 0);
    SetUpPump(s);
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "link.run"));

    struct stat st {};
    ASSERT_EQ(::lstat(dir.File("link.run").c_str(), &st), 0);
    EXPECT_TRUE(S_ISLNK(st.st_mode));
    EXPECT_EQ(dir.Read("real/target.run").substr(0, 25), "FV.2001.05.01|.b0.r7.t5\r\n");
    ASSERT_EQ(::stat(dir.File("real/target.run").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(DirectoryEntries(dir), (std::set<std::string>{"link.run", "real"}));
}

TEST_F(RunFileTest, AReadOnlyFileOrDirectoryRefusesTheSaveAndKeepsItsContents) {
    ASSERT_EQ(::chmod(dir.Path().c_str(), 0755), 0);
    dir.Write("ro.run", "FV20000424\r\n");
    ASSERT_EQ(::chmod(dir.File("ro.run").c_str(), 0444), 0);
    // Both saves fail, each with its one message.
    const int code = test::RunUnprivileged([&] {
        test::TestSystem t;
        SetUpPump(t.s);
        int failures = 0;
        for (const char* name : {"ro.run", "new.run"})
            failures += SaveRunFile(t.s, dir.Path(), name);
        for (const MessageBoxRequest& box : t.messages.shown)
            failures += box.Title != "Open File Error" || box.Prompt != std::strerror(EACCES);
        return failures + (t.messages.shown.size() != 2);
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(dir.Read("ro.run"), "FV20000424\r\n");
    EXPECT_FALSE(dir.Exists("new.run"));
}

}  // namespace
}  // namespace vantrellion
