// The port address listing and the developer menu's commands: what reaches the log and the
// resource file, which ports are read, and the boxes the step commands show.
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
    std::string::size_type start = 0, end;
    while ((end = text.find("\r\n", start)) != std::string::npos) {
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    EXPECT_EQ(start, text.size()) << "every line ends with CR LF";
    return lines;
}

class ListingTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    void SetUp() override {
        t.mod().LogFilePath = dir.Path();
        t.frm().CheckTimeAllowed = True;
        t.timer.enabled = false;
    }
    std::string LogName() const { return LogFileNameForDate("11/16/2026"); }
};

TEST(PortListingLineTest, BitsShowTheirNumberFromOne) {
    struct Case {
        int address;
        uint8_t value;
        const char* line;
    };
    const Case cases[] = {
        {512, 5, "Decimal: 512 Hex: 200 :1 - 3 - - - - -"},
        {1024, 255, "Decimal: 1024 Hex: 400 :1 2 3 4 5 6 7 8"},
        {767, 0, "Decimal: 767 Hex: 2FF :- - - - - - - -"},
        {768, 0x80, "Decimal: 768 Hex: 300 :- - - - - - - 8"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(PortListingLine(c.address, c.value), c.line);
}

TEST_F(ListingTest, ListingAppendsTwoBlocksReadingRealPortsEvenInEmulation) {
    t.mod().RunNoBoards = True;
    t.ports.bytes[639] = 1;
    t.ports.bytes[640] = 2;
    t.ports.bytes[1024] = 255;
    dir.Write(LogName(), "earlier line\r\n");
    mnuToolListAddress_H200_H3FF(t.s);

    const std::vector<std::string> lines = Lines(dir.Read(LogName()));
    ASSERT_EQ(lines.size(), 1u + 513u + 4u);
    EXPECT_EQ(lines[0], "earlier line");
    EXPECT_EQ(lines[1], "-------Begin H200-H279----------------------------");
    EXPECT_EQ(lines[2], "Decimal: 512 Hex: 200 :- - - - - - - -");
    EXPECT_EQ(lines[129], "Decimal: 639 Hex: 27F :1 - - - - - - -");
    EXPECT_EQ(lines[130], "-------End   H200-H279----------------------------");
    EXPECT_EQ(lines[131], "-------Begin H280-H3FF----------------------------");
    EXPECT_EQ(lines[132], "Decimal: 640 Hex: 280 :- 2 - - - - - -");
    EXPECT_EQ(lines[516], "Decimal: 1024 Hex: 400 :1 2 3 4 5 6 7 8");
    EXPECT_EQ(lines[517], "-------End   H280-H3FF----------------------------");

    // One read of each port in rising order, and no write.
    ASSERT_EQ(t.ports.log.size(), 513u);
    for (size_t n = 0; n < t.ports.log.size(); ++n) {
        EXPECT_FALSE(t.ports.log[n].write);
        EXPECT_EQ(t.ports.log[n].port, static_cast<int16_t>(512 + n));
    }
    EXPECT_EQ(t.frm().EmulatedPort[0], 0);
    EXPECT_TRUE(t.timer.enabled);
}

TEST_F(ListingTest, AMissingLogDirectoryLosesTheListingQuietly) {
    t.mod().LogFilePath = dir.Path() + "missing/";
    mnuToolListAddress_H200_H3FF(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_TRUE(t.timer.enabled);
}

TEST_F(ListingTest, ResourceListingGoesToTheLogAndTheProgramDirectory) {
    t.clock.SetTime(9, 5, 7);
    TempDir program;
    dir.Write(LogName(), "earlier line\r\n");
    program.Write(ResourceListFileName, "an older listing that is replaced\r\n");
    mnuDevPrintResourceFile(t.s, program.Path().substr(0, program.Path().size() - 1));

    const std::vector<std::string> listing = Lines(program.Read(ResourceListFileName));
    ASSERT_GE(listing.size(), 3u);
    EXPECT_EQ(listing.front(),
              " ------Resources for Vantrellion (String Only)------ 11/16/2026 09:05:07");
    EXPECT_EQ(listing.back(),
              " ------Resources End Vantrellion-------------------- 11/16/2026 09:05:07");
    EXPECT_NE(
        std::find(listing.begin(), listing.end(), "1400 AUTOMATIC RESTART following System Crash"),
        listing.end());
    for (const std::string& line : listing)
        EXPECT_GT(line.size(), 5u);

    std::vector<std::string> log = Lines(dir.Read(LogName()));
    EXPECT_EQ(log.front(), "earlier line");
    log.erase(log.begin());
    EXPECT_EQ(log, listing);
    EXPECT_TRUE(t.timer.enabled);
}

TEST_F(ListingTest, TestRoutineRefreshesEveryRowThenMeetsTheEndOfThePairs) {
    t.SetPair(7, 0, "08:00", "09:30");
    try {
        mnuDevTestRoutine(t.s);
        FAIL() << "pair 48 lies beyond this build";
    } catch (const FatalError& e) {
        EXPECT_EQ(e.Number(), ErrSubscript);
    }
    EXPECT_EQ(t.display.totalCaption[0], "00:00:00");
    EXPECT_EQ(t.display.totalCaption[7], "01:30:00");
}

TEST(DevStepBoxesTest, EachStepShowsAsManyBoxesAsItsCaptionSays) {
    struct Case {
        void (*command)(System&);
        size_t count;
    };
    const Case cases[] = {
        {&mnuDevStepCautionMessageBox, 1}, {&mnuDevStepErrorMessageBox, 10},
        {&mnuDevStepErrorMsgBox, 15},      {&mnuDevStepInfoMessageBox, 2},
        {&mnuDevStepInfoMsgBox, 4},
    };
    for (const Case& c : cases) {
        TestSystem t;
        c.command(t.s);
        EXPECT_EQ(t.messages.shown.size(), c.count);
    }
    TestSystem t;
    mnuDevStepErrorMsgBox(t.s);
    EXPECT_EQ(t.messages.shown[0].Prompt, "Relay Conversion Error, RelayIN:0 Result:1");
    EXPECT_EQ(t.messages.shown[7].Prompt, "Relay Conversion Error, RelayIN:7 Result:128");
    mnuEdit_Click(t.s);
    EXPECT_EQ(t.messages.shown.back().Prompt, "Edit has not been coded yet!");
    EXPECT_EQ(t.messages.shown.back().Title, "Function not available");
}

}  // namespace
}  // namespace vantrellion::test
