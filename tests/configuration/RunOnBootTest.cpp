#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vantrellion
