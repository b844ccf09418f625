#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

#include "configuration/AutostartFolders.h"
#include "configuration/RunOnBootCommands.h"
#include "configuration/clsRunOnBootOnceAlways.h"
#include "configuration/modRegAPI.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

using test::TempDir;
using test::TestSystem;

const char* const kLists[] = {"Run", "RunOnce", "RunServices", "RunOnceServices",
                              "RunServicesOnce"};

class RunOnBoot : public ::testing::Test {
  protected:
    TestSystem t;
    System& s = t.s;
    TempDir temp;
    std::string machine = temp.Path() + "etc/xdg/autostart/";
    std::string user = temp.Path() + "home/.config/autostart/";

    void SetUp() override {
        s.platform.autostartMachineDirectory = machine;
        s.platform.autostartUserDirectory = user;
    }
    // The lists that hold an entry, as "machine:Run" or "user:RunOnce".
    std::vector<std::string> Entries() const {
        std::vector<std::string> found;
        for (const auto& [root, dir] : {std::pair{"machine", machine}, std::pair{"user", user}})
            for (const char* list : kLists)
                if (std::filesystem::exists(dir + "VantrellionRunMe-" + list + ".desktop"))
                    found.push_back(std::string(root) + ":" + list);
        return found;
    }
    void PutByHand(const std::string& dir, const std::string& list) {
        std::filesystem::create_directories(dir);
        std::ofstream(dir + "VantrellionRunMe-" + list + ".desktop")
            << "[Desktop Entry]\nType=Application\nName=x\nExec=/somewhere/vantrellion\n";
    }
    // A program that notes its arguments, and whether the entry was still there, in its
    // folder's file "ran".
    std::string FakeProgram(const std::string& folder, const std::string& entry) {
        std::filesystem::create_directories(temp.Path() + folder);
        const std::string path = temp.Path() + folder + "/vantrellion";
        std::ofstream(path) << "#!/bin/sh\n"
                            << "out='" << temp.Path() + folder << "/ran'\n"
                            << "if [ -e '" << entry << "' ]; then echo entry >\"$out\"; "
                            << "else echo no-entry >\"$out\"; fi\n"
                            << "for a in \"$@\"; do echo \"<$a>\" >>\"$out\"; done\n";
        ::chmod(path.c_str(), 0755);
        return path;
    }
    // The Exec line of an entry as a shell gets it: the desktop file's string escapes undone.
    static std::string ShellCommand(const std::string& entryText) {
        const auto at = entryText.find("\nExec=");
        std::string exec = entryText.substr(at + 6, entryText.find('\n', at + 1) - at - 6);
        std::string out;
        for (size_t i = 0; i < exec.size(); ++i) {
            if ((exec[i] == '\\' || exec[i] == '%') && i + 1 < exec.size() &&
                exec[i + 1] == exec[i])
                ++i;
            out += exec[i];
        }
        return out;
    }
};

TEST_F(RunOnBoot, CommandsLeaveOneEntryAndRemoveEntriesLeftByHand) {
    struct Case {
        const char* name;
        void (*command)(System&, const RunOnBootMarks&);
        RunOnBootChoice choice;
        std::vector<std::string> after;
    };
    const Case cases[] = {
        {"Once", mnuToolRunOnBootOnce, RunOnBootChoice::Once, {"machine:RunOnce"}},
        {"Always", mnuToolRunOnBootAlways, RunOnBootChoice::Always, {"machine:Run"}},
        {"Never", mnuToolRunOnBootNever, RunOnBootChoice::Never, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        // Entries in every list that the removal cleans, at both roots, one made by hand.
        SetRunMeAlways(s, "/opt/v/vantrellion");
        SetRunMeOnce(s, "/opt/v/vantrellion");
        for (const char* list : {"Run", "RunOnce", "RunServices", "RunOnceServices"})
            PutByHand(user, list);
        PutByHand(machine, "RunServices");
        t.timer.enabled = true;
        t.frm().CheckTimeAllowed = True;
        std::vector<std::pair<RunOnBootChoice, bool>> marks;
        c.command(s, [&](RunOnBootChoice choice) { marks.push_back({choice, t.timer.enabled}); });
        EXPECT_EQ(Entries(), c.after);
        ASSERT_EQ(marks.size(), 1u);
        EXPECT_EQ(marks[0].first, c.choice);
        EXPECT_FALSE(marks[0].second) << "the mark is set with the timer stopped";
        EXPECT_TRUE(t.timer.enabled);
        EXPECT_TRUE(t.messages.shown.empty());
    }
}

TEST_F(RunOnBoot, TheValueIsThePathABlankAndTheTokenWithoutQuotationMarks) {
    const std::string program = FakeProgram("my programs", machine + "none");
    SetRunMeAlways(s, program);
    const std::string value = program + " k704mq29vbn516 0x00d3e1f4";
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, RunKey, RunMeValueName), value);
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, RunOnceKey, RunMeValueName),
              VALUENAMENOTFOUND);
    EXPECT_EQ(RegReadWithSentinels(s, HKEY_CURRENT_USER, RunKey, RunMeValueName), REGKEYNOTFOUND);

    // The entry runs the program in the folder with a blank, with the token's two words.
    const std::string entry = TempDir::ReadFile(machine + "VantrellionRunMe-Run.desktop");
    EXPECT_EQ(entry,
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name=Vantrellion\n"
              "Comment=Starts Vantrellion at every login\n"
              "Icon=vantrellion\n"
              "Exec=\"" +
                  program +
                  "\" k704mq29vbn516 0x00d3e1f4\n"
                  "Terminal=false\n"
                  "X-Vantrellion-CommandLine=" +
                  value + "\n");
    ASSERT_EQ(std::system(ShellCommand(entry).c_str()), 0);
    EXPECT_EQ(temp.Read("my programs/ran"), "no-entry\n<k704mq29vbn516>\n<0x00d3e1f4>\n");
    EXPECT_TRUE(std::filesystem::exists(machine + "VantrellionRunMe-Run.desktop"));
}

TEST_F(RunOnBoot, ANextTimeEntryRemovesItselfBeforeTheProgramRuns) {
    const std::string entryPath = machine + "VantrellionRunMe-RunOnce.desktop";
    const std::string program = FakeProgram("a $b \"c\" 100%", entryPath);
    SetRunMeOnce(s, program);
    const std::string entry = TempDir::ReadFile(entryPath);
    EXPECT_NE(entry.find("Comment=Starts Vantrellion at the next login only\n"), std::string::npos);
    EXPECT_NE(entry.find("X-Vantrellion-CommandLine=" + program + " " + RunMeToken + "\n"),
              std::string::npos);
    ASSERT_EQ(std::system(ShellCommand(entry).c_str()), 0);
    EXPECT_EQ(temp.Read("a $b \"c\" 100%/ran"), "no-entry\n<k704mq29vbn516>\n<0x00d3e1f4>\n");
    EXPECT_FALSE(std::filesystem::exists(entryPath));
}

}  // namespace
}  // namespace vantrellion
