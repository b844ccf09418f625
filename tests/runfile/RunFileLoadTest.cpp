#include <sys/stat.h>

#include <cstring>

#include "core/ResetRelayRecords.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"

namespace vantrellion {
namespace {

using test::JoinLines;
using test::SplitCrLf;

class RunFileLoad : public test::RunFileTest {
  protected:
    int Load(const std::string& bytes, bool showOpenError = true) {
        dir.Write("t.run", bytes);
        return LoadRunFile(s, dir.Path(), "t.run", showOpenError);
    }

    // A relay block of the current layout with the given name and pairs "HH:0p".
    static std::vector<std::string> Block(const std::string& name, int pairs,
                                          const std::string& code = "EO") {
        std::vector<std::string> b = {name,  "All Days", code,  " 0 ", " 0 ",
                                      " 0 ", " 0 ",      " 0 ", ""};
        for (int p = 0; p < pairs; ++p) {
            b.push_back(name + " s" + std::to_string(p));
            b.push_back(name + " e" + std::to_string(p));
        }
        return b;
    }

    static std::vector<std::string> File(const std::string& versionLine, int relays, int pairs) {
        std::vector<std::string> lines = {versionLine, " 1 "};
        for (int r = 0; r < relays; ++r) {
            auto b = Block("R" + std::to_string(r), pairs);
            lines.insert(lines.end(), b.begin(), b.end());
        }
        return lines;
    }

    // The lines of a complete file as SaveRunFile writes it for the present schedule.
    std::vector<std::string> SavedLines() {
        test::TestSystem other;
        other.s.frmRelay = f;
        other.s.modRelay = s.modRelay;
        EXPECT_TRUE(SaveRunFile(other.s, dir.Path(), "saved.run"));
        return SplitCrLf(dir.Read("saved.run"));
    }

    void ExpectNewSchedule(int fromRelay) {
        for (int i = fromRelay; i <= LastRelay; ++i) {
            EXPECT_EQ(f.Relay[i].DisplayName, "Relay " + std::to_string(i + 1));
            EXPECT_EQ(f.Relay[i].DaysOfWeek, "All Days");
            for (int p = 0; p <= LastTimePair; ++p) {
                EXPECT_EQ(f.StartTime[PairIndex(i, p)], "") << i << "/" << p;
            }
        }
    }

    const std::vector<MessageBoxRequest>& shown() { return ts.messages.shown; }
};

TEST_F(RunFileLoad, ReadsTheWorkedExample) {
    std::vector<std::string> lines = {"FV.2001.05.01|.b0.r7.t5",
                                      " 1 ",
                                      "Pump",
                                      "246",
                                      "",
                                      " 0 ",
                                      " 0 ",
                                      " 1 ",
                                      " 12 ",
                                      " 0 ",
                                      "",
                                      "08:00",
                                      "15:00"};
    lines.resize(23);
    for (int r = 1; r <= LastRelay; ++r) {
        auto b = Block("Relay " + std::to_string(r + 1), 0);
        b.resize(21);
        lines.insert(lines.end(), b.begin(), b.end());
    }
    ASSERT_EQ(lines.size(), 170u);
    s.modRelay.LoggingOnOff = False;
    ASSERT_EQ(Load(JoinLines(lines, "\r\n")), RunFileLoaded);
    const RelayRecord& pump = f.Relay[0];
    EXPECT_EQ(s.modRelay.LoggingOnOff, True);
    EXPECT_EQ(pump.DisplayName, "Pump");
    EXPECT_EQ(pump.DaysOfWeek, "246");
    EXPECT_EQ(pump.DayHrEvenOdd, "");
    EXPECT_EQ(pump.CounterOn, True);
    EXPECT_EQ(pump.Count, 12);
    EXPECT_EQ(pump.Manual, False);
    EXPECT_EQ(f.StartTime[0], "08:00");
    EXPECT_EQ(f.EndTime[0], "15:00");
    EXPECT_EQ(f.StartTime[1], "");
    EXPECT_EQ(f.Relay[1].DisplayName, "Relay 2");
    EXPECT_EQ(s.modRelay.FileVersion, "FV.2001.05.01|.b0.r7.t5");
    EXPECT_TRUE(shown().empty());
}

// What every version line leads to, with nothing after it but the logging line where given.
TEST_F(RunFileLoad, VersionsAndTheirResults) {
    struct {
        std::string file;
        int result;
        std::string title, prompt;
        Icon icon;
    } cases[] = {
        {"FV20000424\r\n", 0, "", "", Icon::None},
        {"FV20000424", 0, "", "", Icon::None},
        {"FV.2001.02.29\r\n 1 \r\n", 0, "", "", Icon::None},
        {"FV.2001.02.29|anything at all\r\n 1 \r\n", 0, "", "", Icon::None},
        {"FV.2001.04.15\r\n 1 \r\n", 0, "", "", Icon::None},
        {"FV.2001.05.01|.b0.r7.t5\r\n 1 \r\n", 0, "", "", Icon::None},
        {"FV.2001.02.29\r\n", 2, "Error Reading Run File", "Input past end of file",
         Icon::Exclamation},
        {"FV.2001.05.01|.b0.r7.t5\r\n", 2, "Error Reading Run File", "Input past end of file",
         Icon::Exclamation},
        {"", 2, "Error Reading Run File", "Input past end of file", Icon::Exclamation},
        {"FV.2001.05.01\r\n 1 \r\n", 2, "Error Reading Run File", "Subscript out of range",
         Icon::Exclamation},
        {"FV.2001.05.01|.b0.r7.t\r\n 1 \r\n", 2, "Error Reading Run File", "Type mismatch",
         Icon::Exclamation},
        {"FV.2001.05.01|.bx.r7.t5\r\n 1 \r\n", 2, "Error Reading Run File", "Type mismatch",
         Icon::Exclamation},
        {"FV.2001.05.01|.b0.r15.t5\r\n 1 \r\n", 2, "Error Reading Run File", "Type mismatch",
         Icon::Exclamation},
        {"FV.2001.02.29\r\nON\r\n", 2, "Error Reading Run File", "Type mismatch",
         Icon::Exclamation},
        {"FV.9999.99.99|.b0.r7.t5\r\n 1 \r\n", 5, "Select a Current File",
         "Attempting to Load a file Version that does not exist yet", Icon::Information},
        {"FV.2001.05.02|.b0.r7.t5\r\n 1 \r\n", 4, "Select a Current File",
         "File Load Version Error", Icon::Exclamation},
        {"fv20000424\r\n", 4, "Select a Current File", "File Load Version Error",
         Icon::Exclamation},
        {" \"FV20000424\r\n", 4, "Select a Current File", "File Load Version Error",
         Icon::Exclamation},
        {"\r\n", 4, "Select a Current File", "File Load Version Error", Icon::Exclamation},
    };
    for (const auto& c : cases) {
        test::TestSystem t;
        t.s.modRelay.LoggingOnOff = False;
        dir.Write("v.run", c.file);
        EXPECT_EQ(LoadRunFile(t.s, dir.Path(), "v.run", true), c.result) << c.file;
        if (c.result == 0) {
            EXPECT_TRUE(t.messages.shown.empty()) << c.file;
        } else {
            ASSERT_EQ(t.messages.shown.size(), 1u) << c.file;
            EXPECT_EQ(t.messages.shown[0].Title, c.title) << c.file;
            EXPECT_EQ(t.messages.shown[0].Prompt, c.prompt) << c.file;
            EXPECT_EQ(t.messages.shown[0].BoxIcon, c.icon) << c.file;
            EXPECT_EQ(t.messages.shown[0].ButtonSet, Buttons::OK) << c.file;
        }
        // Only a version that carries the logging line and reads it sets the switch.
        const bool logged = c.result == 0 && c.file.find(" 1 ") != std::string::npos;
        EXPECT_EQ(t.s.modRelay.LoggingOnOff, logged ? True : False) << c.file;
        // The version line is taken as it stands, even when refused; the records keep their
        // new-schedule values in every one of these cases.
        test::TestSystem fresh;
        if (c.result >= RunFileUnknownVersion) {
            EXPECT_NE(c.file.find(t.s.modRelay.FileVersion), std::string::npos) << c.file;
        }
        fresh.s.modRelay.LoggingOnOff = t.s.modRelay.LoggingOnOff;
        test::ExpectSameSchedule(t.s, fresh.s);
    }
}

TEST_F(RunFileLoad, TheOldestVersionHasNoLoggingLineCountOrHardStop) {
    std::vector<std::string> lines = {"FV20000424"};
    for (int r = 0; r <= LastRelay; ++r) {
        std::vector<std::string> b = {"Old " + std::to_string(r),   "17", "EO", " 1 ", " 0 ", " 1 ",
                                      "/icons/" + std::to_string(r)};
        for (int p = 0; p < 12; ++p)
            b.push_back(p == 0 ? "7:00" : p == 1 ? "7:30" : "");
        lines.insert(lines.end(), b.begin(), b.end());
    }
    ASSERT_EQ(lines.size(), 1u + 8 * 19);
    s.modRelay.LoggingOnOff = True;
    ASSERT_EQ(Load(JoinLines(lines, "\r\n")), RunFileLoaded);
    EXPECT_EQ(s.modRelay.LoggingOnOff, True);
    for (int r = 0; r <= LastRelay; ++r) {
        const RelayRecord& rec = f.Relay[r];
        EXPECT_EQ(rec.DisplayName, "Old " + std::to_string(r));
        EXPECT_EQ(rec.Manual, True);
        EXPECT_EQ(rec.CounterOn, True);
        EXPECT_EQ(rec.Count, 0);
        EXPECT_EQ(rec.HardStop, False);
        EXPECT_EQ(rec.IconFile, "/icons/" + std::to_string(r));
        EXPECT_EQ(f.StartTime[PairIndex(r, 0)], "7:00");
        EXPECT_EQ(f.EndTime[PairIndex(r, 0)], "7:30");
    }

    // Saved again, it comes out in the current layout.
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "t.run"));
    const auto saved = SplitCrLf(dir.Read("t.run"));
    ASSERT_EQ(saved.size(), 170u);
    EXPECT_EQ(saved[0], "FV.2001.05.01|.b0.r7.t5");
}

TEST_F(RunFileLoad, ConvertsTheOldEvenOddCodesInEveryVersion) {
    const std::vector<std::pair<std::string, std::string>> codes = {
        {"CO", "TH"}, {"MO", "MH"},   {"MM", "MH"}, {"FO", "BH"},
        {"co", "co"}, {"CO ", "CO "}, {"EO", "EO"}, {"TH", "TH"}};
    for (const auto& [from, to] : codes)
        EXPECT_EQ(ConvertOldEvenOddCode(from), to) << from;

    for (const char* version : {"FV.2001.02.29", "FV.2001.04.15", "FV.2001.05.01|.b0.r7.t5"}) {
        test::TestSystem t;
        std::vector<std::string> lines = {version, " 0 "};
        for (int r = 0; r <= LastRelay; ++r) {
            auto b = Block("R", 6, codes[r].first);
            lines.insert(lines.end(), b.begin(), b.end());
        }
        dir.Write("c.run", JoinLines(lines, "\r\n"));
        ASSERT_EQ(LoadRunFile(t.s, dir.Path(), "c.run", true), RunFileLoaded);
        for (int r = 0; r <= LastRelay; ++r) {
            EXPECT_EQ(t.s.frmRelay.Relay[r].DayHrEvenOdd, codes[r].second) << version << r;
        }
    }
}

TEST_F(RunFileLoad, FlagsOtherThanZeroOrOneLeaveTheField) {
    struct {
        const char* line;
        Flag before, after;
    } cases[] = {
        {" 0 ", True, False},  {" 1 ", False, True}, {" 2 ", True, True}, {" 2 ", False, False},
        {"-1 ", False, False}, {"-1 ", True, True},  {"", True, False},   {"1.4", False, True},
    };
    for (const auto& c : cases) {
        auto lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
        for (size_t member : {3u, 4u, 5u, 7u})
            lines[2 + member] = c.line;  // relay 0
        lines[2 + 2] = "EO";
        RelayRecord& r = f.Relay[0];
        r.Manual = r.Invert = r.CounterOn = r.HardStop = c.before;
        ASSERT_EQ(Load(JoinLines(lines, "\r\n")), RunFileLoaded) << c.line;
        EXPECT_EQ(r.Manual, c.after) << '"' << c.line << '"';
        EXPECT_EQ(r.Invert, c.after) << '"' << c.line << '"';
        EXPECT_EQ(r.CounterOn, c.after) << '"' << c.line << '"';
        EXPECT_EQ(r.HardStop, c.after) << '"' << c.line << '"';
    }
}

TEST_F(RunFileLoad, ANumericEvenOddCodeClearsInvert) {
    for (const char* code : {"5", "15", " 0", "00", "1.5"}) {
        for (const char* version : {"FV20000424", "FV.2001.05.01|.b0.r7.t5"}) {
            std::vector<std::string> lines = {version};
            const bool old = version[2] == '2';
            if (!old) lines.push_back(" 0 ");
            for (int r = 0; r <= LastRelay; ++r) {
                std::vector<std::string> b = {"R",   "All Days", r == 0 ? code : "EO",
                                              " 0 ", " 1 ",      " 0 "};
                if (!old) b.insert(b.end(), {" 0 ", " 0 "});
                b.push_back("");
                b.resize(b.size() + 12);
                lines.insert(lines.end(), b.begin(), b.end());
            }
            ASSERT_EQ(Load(JoinLines(lines, "\r\n")), RunFileLoaded) << code << version;
            EXPECT_EQ(f.Relay[0].Invert, False) << code << version;
            EXPECT_EQ(f.Relay[1].Invert, True) << code << version;
        }
    }
}

TEST_F(RunFileLoad, CommasCutTextsAndShiftTheRestOfTheFile) {
    auto lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
    lines[2] = "Pump, north";  // relay 0's name
    EXPECT_EQ(Load(JoinLines(lines, "\r\n")), RunFileHeaderError);
    EXPECT_EQ(f.Relay[0].DisplayName, "Pump");
    EXPECT_EQ(f.Relay[0].DaysOfWeek, "north");  // the leading blank is lost too
    EXPECT_EQ(f.Relay[0].DayHrEvenOdd, "All Days");
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].Prompt, "Type mismatch");  // "EO" read as Manual

    // In an icon path, the cut reaches the time array: the remainder becomes pair 0's start.
    lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
    lines[2 + 8] = "/home/ann/a,b.png";
    ts.messages.shown.clear();
    EXPECT_EQ(Load(JoinLines(lines, "\r\n")), RunFileTimeArrayError);
    EXPECT_EQ(f.Relay[0].IconFile, "/home/ann/a");
    EXPECT_EQ(f.StartTime[0], "b.png");
    EXPECT_EQ(f.EndTime[0], "R0 s0");
    EXPECT_EQ(f.EndTime[5], "R0 s5");
    EXPECT_EQ(f.Relay[1].DisplayName, "R0 e5");
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].Title, "Load Time Array Error");

    // Quoted, the comma stays; leading blanks go.
    lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
    lines[2] = "  \"Pump, north\"";
    lines[3] = "   246";
    EXPECT_EQ(Load(JoinLines(lines, "\r\n")), RunFileLoaded);
    EXPECT_EQ(f.Relay[0].DisplayName, "Pump, north");
    EXPECT_EQ(f.Relay[0].DaysOfWeek, "246");
}

// A file cut after a given number of lines: the wording changes at relay 0's first time line
// and stays changed; what was read before the cut stays loaded.
TEST_F(RunFileLoad, ACutFileReportsWhereItEnds) {
    f.Relay[0].DisplayName = "Zero";
    f.Relay[1].DisplayName = "One";
    f.StartTime[0] = "6:00";
    f.EndTime[PairIndex(1, 5)] = "23:00";
    const auto full = SavedLines();
    struct {
        size_t keep;
        int result;
        bool zeroNamed, zeroTimed, oneNamed, oneTimed;
    } cases[] = {
        {1, RunFileHeaderError, false, false, false, false},
        {2, RunFileLoaded, false, false, false, false},  // at its end before the board: skipped
        {3, RunFileHeaderError, true, false, false, false},
        {11, RunFileTimeArrayError, true, false, false, false},
        {12, RunFileTimeArrayError, true, true, false, false},
        {23, RunFileTimeArrayError, true, true, false, false},
        {24, RunFileTimeArrayError, true, true, true, false},
        {43, RunFileTimeArrayError, true, true, true, false},
        {44, RunFileTimeArrayError, true, true, true, true},
        {169, RunFileTimeArrayError, true, true, true, true},
        {170, RunFileLoaded, true, true, true, true},
    };
    for (const auto& c : cases) {
        ResetRelayRecords(s);
        ts.messages.shown.clear();
        const std::vector<std::string> kept(full.begin(), full.begin() + c.keep);
        EXPECT_EQ(Load(JoinLines(kept, "\r\n")), c.result) << c.keep;
        if (c.result == RunFileHeaderError) {
            ASSERT_EQ(shown().size(), 1u);
            EXPECT_EQ(shown()[0].Title, "Error Reading Run File");
        } else if (c.result == RunFileTimeArrayError) {
            ASSERT_EQ(shown().size(), 1u);
            EXPECT_EQ(shown()[0].Title, "Load Time Array Error");
        }
        EXPECT_EQ(f.Relay[0].DisplayName == "Zero", c.zeroNamed) << c.keep;
        EXPECT_EQ(f.StartTime[0] == "6:00", c.zeroTimed) << c.keep;
        EXPECT_EQ(f.Relay[1].DisplayName == "One", c.oneNamed) << c.keep;
        EXPECT_EQ(f.EndTime[PairIndex(1, 5)] == "23:00", c.oneTimed) << c.keep;
    }
}

TEST_F(RunFileLoad, TheSuffixSetsTheBoundsOfACurrentFile) {
    // Four relays of two pairs each; the rest keeps the new-schedule values.
    ASSERT_EQ(Load(JoinLines(File("FV.2001.05.01|.b0.r3.t1", 4, 2), "\r\n")), RunFileLoaded);
    for (int r = 0; r < 4; ++r) {
        EXPECT_EQ(f.Relay[r].DisplayName, "R" + std::to_string(r));
        EXPECT_EQ(f.StartTime[PairIndex(r, 1)], "R" + std::to_string(r) + " s1");
        EXPECT_EQ(f.StartTime[PairIndex(r, 2)], "");
    }
    ExpectNewSchedule(4);

    // Positions 3, 6 and 9 are single characters: ".b0.r12345" is relay 1, pair 4.
    ResetRelayRecords(s);
    ASSERT_EQ(Load(JoinLines(File("FV.2001.05.01|.b0.r12345", 2, 5), "\r\n")), RunFileLoaded);
    EXPECT_EQ(f.Relay[1].DisplayName, "R1");
    EXPECT_EQ(f.EndTime[PairIndex(1, 4)], "R1 e4");
    ExpectNewSchedule(2);
}

TEST_F(RunFileLoad, LargerBoundsAreClampedAndTheExtraLinesAreNotSkipped) {
    // Ten pairs per block in the file; the reader takes six and reads on from there.
    ResetRelayRecords(s);
    const int result = Load(JoinLines(File("FV.2001.05.01|.b9.r7.t9", 8, 10), "\r\n"));
    EXPECT_EQ(f.EndTime[5], "R0 e5");
    EXPECT_EQ(f.Relay[1].DisplayName, "R0 s6");
    EXPECT_EQ(f.Relay[1].DaysOfWeek, "R0 e6");
    EXPECT_EQ(f.Relay[1].DayHrEvenOdd, "R0 s7");
    EXPECT_EQ(result, RunFileTimeArrayError);  // "R0 e7" read as Manual

    // More relays than the build has: relay 8's lines are simply never read.
    ResetRelayRecords(s);
    auto lines = File("FV.2001.05.01|.b0.r9.t5", 10, 6);
    EXPECT_EQ(Load(JoinLines(lines, "\r\n")), RunFileLoaded);
    EXPECT_EQ(f.Relay[7].DisplayName, "R7");
    EXPECT_EQ(f.Relay[8].DisplayName, "");  // the spare record stays as it was
}

TEST_F(RunFileLoad, AFileThatCannotBeOpenedLeavesTheRecords) {
    f.Relay[0].DisplayName = "kept";
    EXPECT_EQ(LoadRunFile(s, dir.Path(), "missing.run", false), RunFileOpenFailed);
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(LoadRunFile(s, dir.Path(), "missing.run", true), RunFileOpenFailed);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].Title, "Open Run File Error");
    EXPECT_EQ(shown()[0].Prompt, std::strerror(ENOENT));
    EXPECT_EQ(shown()[0].BoxIcon, Icon::Exclamation);

    // A directory is not a Run File, and a device or a pipe might never end.
    EXPECT_EQ(LoadRunFile(s, dir.Path(), "", true), RunFileOpenFailed);
    EXPECT_EQ(shown().back().Prompt, std::strerror(EISDIR));
    EXPECT_EQ(LoadRunFile(s, "/dev/", "zero", true), RunFileOpenFailed);
    ASSERT_EQ(::mkfifo(dir.File("pipe").c_str(), 0600), 0);
    EXPECT_EQ(LoadRunFile(s, dir.Path(), "pipe", true), RunFileOpenFailed);
    EXPECT_EQ(f.Relay[0].DisplayName, "kept");
}

}  // namespace
}  // namespace vantrellion
