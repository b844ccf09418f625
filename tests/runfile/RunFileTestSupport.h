// Helpers shared by the Run File tests: a fresh system with its machine directory in a
// scratch directory, and line handling for file contents.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tuple>
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

inline std::string JoinCrLf(const std::vector<std::string>& lines) {
    std::string out;
    for (const auto& l : lines)
        out += l + "\r\n";
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
    const auto saved = [](const RelayRecord& r) {
        return std::tie(r.DisplayName, r.DaysOfWeek, r.DayHrEvenOdd, r.Manual, r.Invert,
                        r.CounterOn, r.Count, r.HardStop, r.IconFile);
    };
    for (int i = 0; i < RelaySlots; ++i)
        EXPECT_EQ(saved(a.frmRelay.Relay[i]), saved(b.frmRelay.Relay[i])) << "relay " << i;
    EXPECT_EQ(a.frmRelay.StartTime, b.frmRelay.StartTime);
    EXPECT_EQ(a.frmRelay.EndTime, b.frmRelay.EndTime);
}

}  // namespace vantrellion::test
