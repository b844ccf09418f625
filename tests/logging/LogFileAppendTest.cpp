// The log writer under disk faults: a write that comes up short leaves no torn line, and a
// directory that has gone is made again at the next line.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "logging/LogFileAppend.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

// A disk that fills up: each write gets only so many bytes out, then none at all.
size_t spaceLeft = 0;
ssize_t WriteOnAFullDisk(int fd, const void* data, size_t size) {
    if (spaceLeft == 0) {
        errno = ENOSPC;
        return -1;
    }
    const size_t n = std::min(size, spaceLeft);
    spaceLeft -= n;
    return ::write(fd, data, n);
}

class LogFileAppend : public ::testing::Test {
  protected:
    void TearDown() override { SetLogWriteCall(nullptr); }
    test::TempDir dir;
};

TEST_F(LogFileAppend, AShortWriteIsCutBackSoThatEveryLineIsWhole) {
    const std::string log = dir.File("day.Log");
    const std::string first = "08:02:05 <1 - 3 - 5 - - ->R><I<- - - - - - - ->I ";
    const std::string second = "08:04:00 <1 - 3 - 5 - - ->R><I<- - - - - - - ->I ";
    AppendLogLine(log, first);
    SetLogWriteCall(&WriteOnAFullDisk);
    for (size_t room : {size_t{0}, size_t{1}, size_t{20}, second.size() + 1}) {
        spaceLeft = room;
        AppendLogLine(log, second);
        EXPECT_EQ(dir.Read("day.Log"), first + "\r\n") << room << " bytes of room";
    }
    // Space again: the next line follows the last whole one.
    SetLogWriteCall(nullptr);
    AppendLogLine(log, second);
    EXPECT_EQ(dir.Read("day.Log"), first + "\r\n" + second + "\r\n");
}

TEST_F(LogFileAppend, AVanishedDirectoryIsMadeAgainAtTheNextLine) {
    const std::string logDir = dir.File("logs/2026/");
    AppendLogLine(logDir + "day.Log", "first");
    EXPECT_EQ(dir.Read("logs/2026/day.Log"), "first\r\n");
    std::filesystem::remove_all(dir.File("logs"));
    AppendLogLine(logDir + "day.Log", "second");
    EXPECT_EQ(dir.Read("logs/2026/day.Log"), "second\r\n");
}

}  // namespace
}  // namespace vantrellion
