// "Run as a Service (no login needed)": the user unit and lingering through the service
// manager's access layer, and what the user is told.
#include <gtest/gtest.h>

#include "configuration/ServiceCommands.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

class ScriptedServiceManager : public ServiceManager {
  public:
    std::vector<std::string> commands;
    std::vector<int> statuses;  // by command, 0 when not given
    int Run(const std::vector<std::string>& command, std::string& output) override {
        commands.push_back(CommandLineText(command));
        const size_t n = commands.size() - 1;
        output = n < statuses.size() && statuses[n] ? "Failed to connect to bus" : "";
        return n < statuses.size() ? statuses[n] : 0;
    }
};

TEST(RunAsService, EnablesTheUnitAndLingeringAndSaysHowToUndoIt) {
    TestSystem t;
    ScriptedServiceManager manager;
    mnuToolRunAsService(t.s, manager, "alice");
    EXPECT_EQ(manager.commands,
              (std::vector<std::string>{"systemctl --user enable vantrelliond.service",
                                        "loginctl enable-linger alice"}));
    ASSERT_EQ(t.messages.shown.size(), 1u);
    const std::string& told = t.messages.shown[0].Prompt;
    EXPECT_NE(told.find("systemctl --user disable vantrelliond"), std::string::npos) << told;
    EXPECT_NE(told.find("loginctl disable-linger alice"), std::string::npos) << told;

    // A failed enable stops there, and the box gives systemctl's own words.
    ScriptedServiceManager failing;
    failing.statuses = {1};
    t.messages.shown.clear();
    mnuToolRunAsService(t.s, failing, "alice");
    EXPECT_EQ(failing.commands.size(), 1u);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_NE(t.messages.shown[0].Prompt.find("Failed to connect to bus"), std::string::npos);
    EXPECT_EQ(t.messages.shown[0].BoxIcon, Icon::Critical);
}

}  // namespace
}  // namespace vantrellion::test
