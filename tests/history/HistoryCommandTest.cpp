#include <gtest/gtest.h>

#include "configuration/KeyValueStore.h"
#include "configuration/modRegAPI.h"
#include "core/DateTimeText.h"
#include "history/HistoryCommand.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

class HistoryCommandTest : public ::testing::Test {
  protected:
    TempDir machine, logs, out;
    const LocalSeconds today = Day(2026, 11, 23);
    const LocalSeconds now = today + At(10, 30);
    std::vector<std::string> pictures;
    std::string stdOut, stdErr;

    void SetUp() override {
        for (LocalSeconds d = today - 40 * SecondsPerDay; d <= today; d += SecondsPerDay) {
            if (d == today - 3 * SecondsPerDay) continue;  // a day without a log
            WriteDay(logs, d, StateLines(0, 86400, [](int t) {
                         return Bytes{static_cast<uint8_t>(t < At(9, 0) ? 1 : 0), 0};
                     }));
        }
        // The configured log directory and the name of relay 1.
        KeyValueStore store(machine.File("store.db"));
        auto set = [&](const char* name, const std::string& text) {
            StoredValue v;
            v.Type = RegTypeText;
            v.Kind = StoredValue::Data::Text;
            v.Text = text;
            store.SetValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion\\Config", name, v);
        };
        set("LogFilePath", logs.Path());
        set("Brd1RNam1", "Lights");
    }

    int Run(std::vector<std::string> args, bool pngWrites = true) {
        HistoryCommand c;
        std::string error;
        EXPECT_TRUE(ParseHistoryCommand(args, c, error)) << error;
        stdOut.clear();
        stdErr.clear();
        return RunHistoryCommand(
            c, machine.Path(), now, stdOut, stdErr,
            [&](const RunTimeHistory& h, const HistoryLabels& l, const std::string& path) {
                pictures.push_back(path + " " + l.RelayNames[0] + " " +
                                   std::to_string(h.Days.size()));
                return pngWrites;
            });
    }
};

TEST_F(HistoryCommandTest, AGivenDirectoryAndRangeAndTheExitStatus) {
    // A directory given without its closing "/".
    std::string dir = logs.Path();
    dir.pop_back();
    EXPECT_EQ(Run({dir, "--from", "2026-11-01", "--to", "2026-11-02"}), 0);
    EXPECT_NE(stdOut.find("2026-11-02   9.00"), std::string::npos) << stdOut;
    EXPECT_EQ(stdOut.find("2026-11-03"), std::string::npos);

    // A date with a time of day names its day, in the forms the preview takes.
    EXPECT_EQ(Run({dir, "--from", "2026-11-02 23:59", "--to", "2026-11-02T06:00:00"}), 0);
    EXPECT_NE(stdOut.find("\n2026-11-02   9.00"), std::string::npos) << stdOut;
    EXPECT_EQ(stdOut.find("2026-11-01"), std::string::npos);
    EXPECT_EQ(Run({"--from", "2026-11-31"}), 2);
    EXPECT_EQ(stdErr, std::string("not a date: 2026-11-31 (give ") + DateTimeForms + ")\n");
    EXPECT_EQ(Run({"--from", "2026-11-05", "--to", "2026-11-04"}), 2);
    EXPECT_EQ(Run({"--csv", "/nonexistent/dir/a.csv"}), 1);
    EXPECT_EQ(stdErr, "cannot write /nonexistent/dir/a.csv\n");
    EXPECT_EQ(Run({"--png", out.File("x.png")}, false), 1);
    EXPECT_EQ(Run({"/nonexistent/logs"}), 1);
    EXPECT_EQ(stdErr, "no such log directory: /nonexistent/logs/\n");
    // Names without an extension get the type's; two naming one file are refused.
    EXPECT_EQ(Run({"--csv", out.File("nov"), "--png", out.File("nov")}), 0);
    EXPECT_EQ(out.Read("nov.csv").substr(0, 14), "Date,Lights,Re");
    EXPECT_EQ(pictures.back(), out.File("nov.png") + " Lights 31");
    EXPECT_EQ(Run({"--csv", out.File("a.png"), "--png", out.File("a")}), 2);
    EXPECT_EQ(stdErr, "--csv and --png name the same file: " + out.File("a.png") + "\n");
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_EQ(stdOut, std::string("vantrellion-history ") + ProgramVersionText + "\n");
}

}  // namespace
}  // namespace vantrellion::test
