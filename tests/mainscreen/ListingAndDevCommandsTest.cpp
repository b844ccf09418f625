// The port address listing and the developer menu's commands: what reaches the log and the
// resource file, which ports are read, and where the test routine stops.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/FatalError.h"
#include "logging/LogFileName.h"
#include "mainscreen/DevCommands.h"
#include "mainscreen/PortAddressListing.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (size_t start = 0, end; (end = text.find("\r\n", start)) != std::string::npos;
         start = end + 2)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

class ListingTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    const std::string log = LogFileNameForDate("11/16/2026");
    void SetUp() override {
        t.mod().LogFilePath = dir.Path();
        t.frm().CheckTimeAllowed = True;
        t.timer.enabled = false;
        dir.Write(log, "earlier line\r\n");
    }
};

TEST_F(ListingTest, ListingReadsEveryPortOfTheRangeEvenInEmulation) {
    t.mod().RunNoBoards = True;
    t.ports.bytes[512] = 5;
    t.ports.bytes[639] = 1;
    t.ports.bytes[1024] = 255;
    mnuToolListAddress_H200_H3FF(t.s);

    const std::vector<std::string> lines = Lines(dir.Read(log));
    ASSERT_EQ(lines.size(), 1u + 513u + 4u);
    EXPECT_EQ(lines[0], "earlier line");
    EXPECT_EQ(lines[1], "-------Begin H200-H279----------------------------");
    EXPECT_EQ(lines[2], "Decimal: 512 Hex: 200 :1 - 3 - - - - -");
    EXPECT_EQ(lines[129], "Decimal: 639 Hex: 27F :1 - - - - - - -");
    EXPECT_EQ(lines[130], "-------End   H200-H279----------------------------");
    EXPECT_EQ(lines[131], "-------Begin H280-H3FF----------------------------");
    EXPECT_EQ(lines[132], "Decimal: 640 Hex: 280 :- - - - - - - -");
    EXPECT_EQ(lines[516], "Decimal: 1024 Hex: 400 :1 2 3 4 5 6 7 8");
    EXPECT_EQ(lines[517], "-------End   H280-H3FF----------------------------");
    ASSERT_EQ(t.ports.log.size(), 513u);  // one read per port, rising, and no write
    for (size_t n = 0; n < t.ports.log.size(); ++n) {
        EXPECT_FALSE(t.ports.log[n].write);
        EXPECT_EQ(t.ports.log[n].port, 512 + static_cast<int>(n));
    }
    EXPECT_TRUE(t.timer.enabled);
}

}  // namespace
}  // namespace vantrellion::test
