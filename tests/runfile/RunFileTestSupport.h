// Helpers shared by the Run File tests: a fresh system with its machine directory in a
// scratch directory, and line handling for file contents.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {

// The lines of a file with CR LF line ends; a final CR LF gives no extra line. A bare LF or CR
// stays inside its line, so a file with any other line end shows up in the comparison.
inline std::vector<std::string> SplitCrLf(const std::string& bytes) {
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2) {
        lines.push_back(bytes.substr(start, end - start));
    }
    if (start < bytes.size()) lines.push_back(bytes.substr(start));
    return lines;
}

inline std::string JoinLines(const std::vector<std::string>& lines, const std::string& end) {
    std::string out;
    for (const auto& l : lines)
        out += l + end;
    return out;
}

class RunFileTest : public ::testing::Test {
  protected:
    RunFileTest() { s.platform.machineDirectory = dir.Path(); }

    TempDir dir;
    TestSystem ts;
    System& s = ts.s;
    FrmRelay& f = ts.s.frmRelay;
};

// Two schedules hold the same Run File contents.
inline void ExpectSameSchedule(const System& a, const System& b) {
    EXPECT_EQ(a.modRelay.LoggingOnOff, b.modRelay.LoggingOnOff);
    for (int i = 0; i < RelaySlots; ++i) {
        const RelayRecord& x = a.frmRelay.Relay[i];
        const RelayRecord& y = b.frmRelay.Relay[i];
        EXPECT_EQ(x.DisplayName, y.DisplayName) << i;
        EXPECT_EQ(x.DaysOfWeek, y.DaysOfWeek) << i;
        EXPECT_EQ(x.DayHrEvenOdd, y.DayHrEvenOdd) << i;
        EXPECT_EQ(x.Manual, y.Manual) << i;
        EXPECT_EQ(x.Invert, y.Invert) << i;
        EXPECT_EQ(x.CounterOn, y.CounterOn) << i;
        EXPECT_EQ(x.Count, y.Count) << i;
        EXPECT_EQ(x.HardStop, y.HardStop) << i;
        EXPECT_EQ(x.IconFile, y.IconFile) << i;
    }
    EXPECT_EQ(a.frmRelay.StartTime, b.frmRelay.StartTime);
    EXPECT_EQ(a.frmRelay.EndTime, b.frmRelay.EndTime);
}

}  // namespace vantrellion::test
