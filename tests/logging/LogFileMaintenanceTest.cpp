#include <gtest/gtest.h>

#include "logging/LogFileMaintenance.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

TEST(LogFileMaintenance, PatternMatchesTheDailyLogsWithoutRegardToCase) {
    const std::pair<const char*, bool> cases[] = {
        {"Vantrellion_2026_11_14.Log", true},
        {"VANTRELLION_2026_11_14.LOG", true},
        {"vantrellion-old.log", true},
        {"Vantrellion.log", true},
        {"Vantrellion_2026_11_14.Log.bak", false},
        {"MyVantrellion_2026.log", false},
        {"Vantrellio.log", false},
        {"Vantrellion_2026_11_14.txt", false},
        {"", false},
    };
    for (const auto& [name, matches] : cases)
        EXPECT_EQ(MatchesLogFilePattern(name), matches) << name;
}

TEST(LogFileMaintenance, ListsOnlyMatchingRegularFilesByName) {
    test::TempDir dir;
    dir.Write("Vantrellion_2026_11_15.Log", "b");
    dir.Write("vantrellion_2026_11_14.LOG", "a");
    dir.Write("notes.log", "x");
    dir.Write("VantrellionRestart.run", "x");
    std::filesystem::create_directory(dir.File("Vantrellion_dir.log"));
    EXPECT_EQ(ListLogFiles(dir.Path()), (std::vector<std::string>{"Vantrellion_2026_11_15.Log",
                                                                  "vantrellion_2026_11_14.LOG"}));
    EXPECT_TRUE(ListLogFiles(dir.File("missing")).empty());
}

TEST(LogFileMaintenance, OpenDialogStartsAtTodaysLogAndTheBoxesKeepTheirWording) {
    test::TestSystem t;
    t.mod().LogFilePath = "/var/log/vt/";
    t.mod().LogFileName = "Vantrellion_2026_11_14.Log";
    const FileDialogRequest r = LogFileOpenRequest(t.s);
    EXPECT_EQ(r.Title, "Select LogFile");
    EXPECT_EQ(r.Filter, "Log File (*.log)|*.log|Text File (*.txt)|*.txt|All File (*.*)|*.*");
    EXPECT_EQ(r.InitialDirectory, "/var/log/vt/");
    EXPECT_EQ(r.FileName, "/var/log/vt/Vantrellion_2026_11_14.Log");
    EXPECT_EQ(r.Flags & 0x1000, 0x1000);

    const MessageBoxRequest box = UnreadableLogFileBox();
    EXPECT_EQ(box.Title, "MS Scripting Runtime Not Installed");
    EXPECT_EQ(box.Prompt,
              "Sorry,\r\n    Required Microsoft Runtime is Missing\r\n     (The Scripting "
              "Runtime comes with IE4 and above)");
    EXPECT_EQ(DefaultErrorBox("Permission denied", 75, "Vantrellion").Prompt,
              "Permission denied\r\n75\r\nVantrellion");
    EXPECT_EQ(DefaultErrorBox("x", 1, "y").Title, "");
}

}  // namespace
}  // namespace vantrellion
