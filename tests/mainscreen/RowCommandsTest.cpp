// The mouse commands of a relay row that the window tests leave out: a stop flag that is not
// exactly true, the numeric codes that block Invert and the start of the icon dialog.
#include <gtest/gtest.h>

#include "configuration/ProgramLocation.h"
#include "mainscreen/RowCommands.h"
#include "mainscreen/RowTestSupport.h"

namespace vantrellion::test {
namespace {

class RowCommandsTest : public RowTest {};

TEST_F(RowCommandsTest, TheTotalReleasesOnlyAStopThatIsExactlyTrue) {
    t.relay(2).HardStop = 1;  // true is -1 only
    lblTotalTime_Click(t.s, 2);
    EXPECT_EQ(t.relay(2).HardStop, 1);
    EXPECT_FALSE(RestartWritten());
    EXPECT_TRUE(t.display.totalCaption.empty());
}

TEST_F(RowCommandsTest, InvertIsIgnoredOnANumericCode) {
    for (const char* code : {"5", "00", "-3"}) {
        for (Flag invert : {False, True}) {
            RowSystem u(dir);
            u.relay(1).DayHrEvenOdd = code;
            u.relay(1).Invert = invert;
            lblInvert_Click(u.s, 1);
            EXPECT_EQ(u.relay(1).Invert, invert) << code;
            EXPECT_FALSE(RestartWritten()) << code;
        }
    }
    t.relay(1).DayHrEvenOdd = "";  // an empty code is not numeric
    lblInvert_Click(t.s, 1);
    EXPECT_EQ(t.relay(1).Invert, True);
}

TEST_F(RowCommandsTest, IconDialogStartsFromTheRowTheRunFileOrTheDocuments) {
    struct Case {
        const char* rowIcon;
        const char* dataFilePath;
        std::string directory, file;
    } cases[] = {
        {"/home/u/icons/pump.ico", "/home/u/runs/", "/home/u/icons/", "pump.ico"},
        {"pump.ico", "/home/u/runs/", "", "pump.ico"},
        {"", "/home/u/runs/", "/home/u/runs/", ""},
        {"", "", kDocuments, ""},
    };
    for (const Case& c : cases) {
        RowSystem u(dir);
        u.relay(2).IconFile = c.rowIcon;
        u.mod().DataFilePath = c.dataFilePath;
        imgIDIcon_Click(u.s, 2);  // cancelled
        ASSERT_EQ(u.dialogs.opened.size(), 1u);
        const FileDialogRequest& r = u.dialogs.opened[0];
        EXPECT_EQ(r.Title, "Select Icon");
        EXPECT_EQ(r.Filter,
                  "Icons (*.ico)|*.ico|Pictures (*.jpg)|*.jpg|Pictures (*.bmp)|*.bmp|"
                  "Pictures (*.gif)|*.gif|All File (*.*)|*.*");
        EXPECT_EQ(r.Flags, 0x80000);
        EXPECT_EQ(r.InitialDirectory, c.directory) << c.rowIcon;
        EXPECT_EQ(r.FileName, c.file);
        EXPECT_EQ(u.relay(2).IconFile, c.rowIcon);
        EXPECT_EQ(u.frm().FileChanged, False);
        EXPECT_FALSE(RestartWritten());
    }
}

}  // namespace
}  // namespace vantrellion::test
