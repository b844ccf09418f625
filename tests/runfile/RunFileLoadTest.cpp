#include <sys/stat.h>

#include <cstring>

#include "core/ResetRelayRecords.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"

namespace vantrellion {
namespace {

using test::JoinCrLf;
using Lines = std::vector<std::string>;

class RunFileLoad : public test::RunFileTest {
  protected:
    int Load(const Lines& lines) {
        dir.Write("t.run", JoinCrLf(lines));
        return LoadRunFile(s, dir.Path(), "t.run", true);
    }

    // A relay block of the current layout with the given name and pairs "<name> s<p>" and
    // "<name> e<p>".
    // A time that tells where it was read from: the pair in the hour (ends twelve hours
    // later), the block's name in the minutes.
    static std::string Tm(const std::string& name, int p, bool end) {
        int m = 0;
        for (char c : name)
            m = (m * 31 + c) % 60;
        char text[16];
        std::snprintf(text, sizeof text, "%02d:%02d:00", p % 12 + (end ? 12 : 0), m);
        return text;
    }
    static Lines Block(const std::string& name, int pairs, const std::string& code = "EO") {
        Lines b = {name, "All Days", code, " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", ""};
        for (int p = 0; p < pairs; ++p) {
            b.push_back(Tm(name, p, false));
            b.push_back(Tm(name, p, true));
        }
        return b;
    }
    // The same block in the oldest layout, which has no Count and no HardStop.
    static Lines Old(Lines block) {
        block.erase(block.begin() + 6, block.begin() + 8);
        return block;
    }
    static void Append(Lines& lines, const Lines& more) {
        lines.insert(lines.end(), more.begin(), more.end());
    }
    static Lines File(const std::string& versionLine, int relays, int pairs) {
        Lines lines = {versionLine, " 1 "};
        for (int r = 0; r < relays; ++r)
            Append(lines, Block("R" + std::to_string(r), pairs));
        return lines;
    }

    void ExpectNewSchedule(int fromRelay) {
        for (int i = fromRelay; i <= LastRelay; ++i) {
            EXPECT_EQ(f.Relay[i].DisplayName, "Relay " + std::to_string(i + 1));
            EXPECT_EQ(f.Relay[i].DaysOfWeek, "All Days");
            for (int p = 0; p <= LastTimePair; ++p)
                EXPECT_EQ(f.StartTime[PairIndex(i, p)], "") << i << "/" << p;
        }
    }

    const std::vector<MessageBoxRequest>& shown() { return ts.messages.shown; }
};

// What every version line leads to, with nothing after it but the logging line where given:
// the result and the title and text of the message.
TEST_F(RunFileLoad, VersionsAndTheirResults) {
    const std::string kRead = "Error Reading Run File: ", kVersion = "Select a Current File: ";
    const std::string kUnknown = kVersion + "File Load Version Error";
    struct {
        std::string file;
        int result;
        std::string said;
    } cases[] = {
        {"FV20000424\r\n", 0, ""},
        {"FV20000424", 0, ""},
        {"FV.2001.02.29\r\n 1 \r\n", 0, ""},
        {"FV.2001.02.29|anything at all\r\n 1 \r\n", 0, ""},
        {"FV.2001.04.15\r\n 1 \r\n", 0, ""},
        {"FV.2001.05.01|.b0.r7.t5\r\n 1 \r\n", 0, ""},
        // Past the oldest version a logging line is needed.
        {"FV.2001.05.01|.b0.r7.t5\r\n", 2, kRead + "Input past end of file"},
        {"", 2, kRead + "Input past end of file"},
        {"FV.2001.05.01\r\n 1 \r\n", 2, kRead + "Subscript out of range"},
        {"FV.2001.05.01|.b0.r7.t\r\n 1 \r\n", 2, kRead + "Type mismatch"},
        {"FV.2001.05.01|.bx.r7.t5\r\n 1 \r\n", 2, kRead + "Type mismatch"},
        {"FV.2001.05.01|.b0.r15.t5\r\n 1 \r\n", 2, kRead + "Type mismatch"},
        {"FV.2001.02.29\r\nON\r\n", 2, kRead + "Type mismatch"},
        {"FV.9999.99.99|.b0.r7.t5\r\n 1 \r\n", 5,
         kVersion + "Attempting to Load a file Version that does not exist yet"},
        {"FV.2001.05.02|.b0.r7.t5\r\n 1 \r\n", 4, kUnknown},
        {"fv20000424\r\n", 4, kUnknown},
        {" \"FV20000424\r\n", 4, kUnknown},
        {"\r\n", 4, kUnknown},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        test::TestSystem t;
        t.s.modRelay.LoggingOnOff = False;
        dir.Write("v.run", c.file);
        EXPECT_EQ(LoadRunFile(t.s, dir.Path(), "v.run", true), c.result);
        std::string said;
        for (const MessageBoxRequest& box : t.messages.shown) {
            said += box.Title + ": " + box.Prompt;
            EXPECT_EQ(box.BoxIcon, c.result == 5 ? Icon::Information : Icon::Exclamation);
            EXPECT_EQ(box.ButtonSet, Buttons::OK);
        }
        EXPECT_EQ(said, c.said);
        // Only a version that carries the logging line and reads it sets the switch.
        const bool logged = c.result == 0 && c.file.find(" 1 ") != std::string::npos;
        EXPECT_EQ(t.s.modRelay.LoggingOnOff, logged ? True : False);
        // The version line is taken as it stands, even when refused; the records keep their
        // new-schedule values in every one of these cases.
        if (c.result >= RunFileUnknownVersion) {
            EXPECT_NE(c.file.find(t.s.modRelay.FileVersion), std::string::npos);
        }
        test::TestSystem fresh;
        fresh.s.modRelay.LoggingOnOff = t.s.modRelay.LoggingOnOff;
        test::ExpectSameSchedule(t.s, fresh.s);
    }
}

// Every version reads its blocks with each field in its place, converts the old even/odd codes
// (exactly, case-sensitive), loads blank a code that field entry would not store as it stands,
// and clears Invert for a numeric code. The oldest version has no
// logging line, and no Count or HardStop, which keep their new-schedule values.
TEST_F(RunFileLoad, EveryVersionReadsItsBlocks) {
    const struct {
        const char *code, *loaded;
        Flag invert;
    } rows[] = {{"CO", "TH", True}, {"MO", "MH", True}, {"MM", "MH", True},  {"FO", "BH", True},
                {"co", "", True},   {"CO ", "", True},  {"15", "15", False}, {" 0", "0", False}};
    for (const char* version :
         {"FV20000424", "FV.2001.02.29", "FV.2001.04.15", "FV.2001.05.01|.b0.r7.t5"}) {
        const bool old = version == std::string("FV20000424");
        Lines lines = {version};
        if (!old) lines.push_back(" 0 ");
        for (const auto& row : rows) {
            Lines b = Block("R", 6, row.code);
            b[3] = b[4] = b[7] = " 1 ";  // Manual, Invert and HardStop
            b[6] = " 7 ";                // Count
            b[8] = "/icons/r.png";
            Append(lines, old ? Old(b) : b);
        }
        ResetRelayRecords(s);
        s.modRelay.LoggingOnOff = True;
        ASSERT_EQ(Load(lines), RunFileLoaded) << version;
        EXPECT_EQ(s.modRelay.LoggingOnOff, old ? True : False) << version;
        for (int r = 0; r <= LastRelay; ++r) {
            SCOPED_TRACE(testing::Message() << version << " relay " << r);
            const RelayRecord& rec = f.Relay[r];
            EXPECT_EQ(rec.DayHrEvenOdd, rows[r].loaded);
            EXPECT_EQ(std::tie(rec.Manual, rec.Invert, rec.CounterOn, rec.Count, rec.HardStop),
                      std::make_tuple(True, rows[r].invert, False, int16_t(old ? 0 : 7),
                                      old ? False : True));
            EXPECT_EQ(rec.IconFile, "/icons/r.png");
            EXPECT_EQ(f.EndTime[PairIndex(r, 5)], Tm("R", 5, true));
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
        RelayRecord& r = f.Relay[0];
        r.Manual = r.Invert = r.CounterOn = r.HardStop = c.before;
        ASSERT_EQ(Load(lines), RunFileLoaded) << c.line;
        const auto flags = std::tie(r.Manual, r.Invert, r.CounterOn, r.HardStop);
        EXPECT_EQ(flags, std::make_tuple(c.after, c.after, c.after, c.after))
            << '"' << c.line << '"';
    }
}

TEST_F(RunFileLoad, CommasCutTextsAndShiftTheRestOfTheFile) {
    auto lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
    lines[2] = "Pump, north";  // relay 0's name
    EXPECT_EQ(Load(lines), RunFileHeaderError);
    EXPECT_EQ(f.Relay[0].DisplayName, "Pump");
    EXPECT_EQ(f.Relay[0].DaysOfWeek, "north");  // the leading blank is lost too
    EXPECT_EQ(f.Relay[0].DayHrEvenOdd, "All Days");
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].Prompt, "Type mismatch");  // "EO" read as Manual

    // In an icon path, the cut reaches the time array: the remainder becomes pair 0's start.
    lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
    lines[2 + 8] = "/home/ann/a,b.png";
    ts.messages.shown.clear();
    EXPECT_EQ(Load(lines), RunFileTimeArrayError);
    EXPECT_EQ(f.Relay[0].IconFile, "/home/ann/a");
    EXPECT_EQ(f.StartTime[0], "b.png");
    EXPECT_EQ(f.EndTime[0], Tm("R0", 0, false));
    EXPECT_EQ(f.EndTime[5], Tm("R0", 5, false));
    EXPECT_EQ(f.Relay[1].DisplayName, Tm("R0", 5, true));
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].Title, "Load Time Array Error");

    // Quoted, the comma stays; leading blanks go.
    lines = File("FV.2001.05.01|.b0.r7.t5", 8, 6);
    lines[2] = "  \"Pump, north\"";
    lines[3] = "   246";
    EXPECT_EQ(Load(lines), RunFileLoaded);
    EXPECT_EQ(f.Relay[0].DisplayName, "Pump, north");
    EXPECT_EQ(f.Relay[0].DaysOfWeek, "246");
}

// A file cut after a given number of lines: the wording changes at relay 0's first time line
// and stays changed; what was read before the cut stays loaded. Four marks, in the order of the
// file, tell how far the reading came.
TEST_F(RunFileLoad, ACutFileReportsWhereItEnds) {
    f.Relay[0].DisplayName = "Zero";
    f.StartTime[0] = "6:00";
    f.Relay[1].DisplayName = "One";
    f.EndTime[PairIndex(1, 5)] = "23:00";
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "saved.run"));
    const Lines full = test::SplitCrLf(dir.Read("saved.run"));
    const auto marksRead = [&] {
        return (f.Relay[0].DisplayName == "Zero") + (f.StartTime[0] == "6:00") +
               (f.Relay[1].DisplayName == "One") + (f.EndTime[PairIndex(1, 5)] == "23:00");
    };
    // Two lines are a file at its end before the board, which loads; a cut in relay 1's
    // fields keeps the time array's wording.
    struct {
        size_t keep;
        int result, marks;
    } cases[] = {
        {1, RunFileHeaderError, 0},     {2, RunFileLoaded, 0},
        {3, RunFileHeaderError, 1},     {11, RunFileTimeArrayError, 1},
        {12, RunFileTimeArrayError, 2}, {24, RunFileTimeArrayError, 3},
        {44, RunFileTimeArrayError, 4}, {169, RunFileTimeArrayError, 4},
        {170, RunFileLoaded, 4},
    };
    for (const auto& c : cases) {
        ResetRelayRecords(s);
        ts.messages.shown.clear();
        EXPECT_EQ(Load(Lines(full.begin(), full.begin() + c.keep)), c.result) << c.keep;
        if (c.result != RunFileLoaded) {
            ASSERT_EQ(shown().size(), 1u);
            EXPECT_EQ(shown()[0].Title, c.result == RunFileHeaderError ? "Error Reading Run File"
                                                                       : "Load Time Array Error");
        }
        EXPECT_EQ(marksRead(), c.marks) << c.keep;
    }
}

TEST_F(RunFileLoad, TheSuffixSetsTheBoundsOfACurrentFileClampedToTheBuild) {
    // Four relays of two pairs each; the rest keeps the new-schedule values.
    ASSERT_EQ(Load(File("FV.2001.05.01|.b0.r3.t1", 4, 2)), RunFileLoaded);
    for (int r = 0; r < 4; ++r) {
        EXPECT_EQ(f.Relay[r].DisplayName, "R" + std::to_string(r));
        EXPECT_EQ(f.StartTime[PairIndex(r, 1)], Tm("R" + std::to_string(r), 1, false));
        EXPECT_EQ(f.StartTime[PairIndex(r, 2)], "");
    }
    ExpectNewSchedule(4);

    // Positions 3, 6 and 9 are single characters: ".b0.r12345" is relay 1, pair 4.
    ResetRelayRecords(s);
    ASSERT_EQ(Load(File("FV.2001.05.01|.b0.r12345", 2, 5)), RunFileLoaded);
    EXPECT_EQ(f.Relay[1].DisplayName, "R1");
    EXPECT_EQ(f.EndTime[PairIndex(1, 4)], Tm("R1", 4, true));
    ExpectNewSchedule(2);

    // Larger bounds are clamped, and the extra lines are not skipped: of ten pairs per block
    // in the file the reader takes six and reads on from there.
    ResetRelayRecords(s);
    EXPECT_EQ(Load(File("FV.2001.05.01|.b9.r7.t9", 8, 10)), RunFileTimeArrayError);
    EXPECT_EQ(f.EndTime[5], Tm("R0", 5, true));
    EXPECT_EQ(f.Relay[1].DisplayName, Tm("R0", 6, false));
    EXPECT_EQ(f.Relay[1].DaysOfWeek, Tm("R0", 6, true));
    EXPECT_EQ(f.Relay[1].DayHrEvenOdd,
              Tm("R0", 7, false));  // and Tm("R0", 7, true) read as Manual fails

    // More relays than the build has: relay 8's lines are simply never read.
    ResetRelayRecords(s);
    EXPECT_EQ(Load(File("FV.2001.05.01|.b0.r9.t5", 10, 6)), RunFileLoaded);
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
