// The desktop program started while the service vantrelliond holds the instance lock: one box
// names the service and its process, and its three answers work.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QTest>
#include <QWidget>
#include <filesystem>
#include <fstream>

#include "configuration/ServiceCommands.h"
#include "desktop/MenuProgramFixture.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileSave.h"

namespace vantrellion::test {
namespace {

// systemctl as the test sees it: records each command; "stop" lets go of the service's lock.
class FakeServiceManager : public ServiceManager {
  public:
    std::vector<std::string> commands;
    std::function<void()> onStop;
    int Run(const std::vector<std::string>& command, std::string& output) override {
        commands.push_back(CommandLineText(command));
        output.clear();
        if (command.size() > 2 && command[2] == "stop" && onStop) onStop();
        return 0;
    }
};

TEST_F(MenuProgramTest, AStartBesideTheServiceViewsTakesOverOrQuits) {
    PrepareStore(True);
    // The service's schedule, in its restart file, and its state line in today's log.
    {
        TestSystem t;
        t.relay(0).DisplayName = "Pump";
        t.SetPair(0, 0, "08:00:00", "12:00:00");
        ASSERT_TRUE(SaveRunFile(t.s, dir.Path(), RestartFileName));
    }
    std::ofstream(dir.File(LogName())) << "09:29:00 <1 - - - - - - ->R><I<- - - - - - - ->I \r\n";
    auto service = std::make_unique<InstanceLock>(dir.Path(), "vantrelliond");
    FakeMessages answers;
    FakeServiceManager manager;
    const auto start = [&] {
        VantrellionApp::Options o{dir.Path(), &clock, &ports, &answers, nullptr, {}};
        o.serviceManager = &manager;
        app = std::make_unique<VantrellionApp>(o);
        return app->Main();
    };

    // Quit.
    answers.answers = {Answer::Cancel};
    EXPECT_FALSE(start());
    ASSERT_EQ(answers.shown.size(), 1u);
    EXPECT_NE(answers.shown[0].Prompt.find("vantrelliond, process " + std::to_string(::getpid())),
              std::string::npos)
        << answers.shown[0].Prompt;
    EXPECT_EQ(answers.shown[0].ButtonTexts,
              (std::vector<std::string>{"View", "Stop the service and take over", "Quit"}));
    EXPECT_EQ(app->MainWindow(), nullptr);
    app.reset();

    // View: the service's schedule and state, read-only, and the boards left alone.
    answers.answers = {Answer::Yes};
    ASSERT_TRUE(start());
    ASSERT_TRUE(app->ViewingService());
    EXPECT_NE(Window().windowTitle().toStdString().find("Viewing the running service"),
              std::string::npos);
    EXPECT_EQ(Sys().screen().Text(Control::txtDisplayName, 0), "Pump");
    EXPECT_FALSE(Window().centralWidget()->isEnabled());
    EXPECT_FALSE(app->Timer().IsEnabled());
    EXPECT_TRUE(ports.log.empty());
    EXPECT_TRUE(std::filesystem::exists(dir.File(RestartFileName)));
    Stop();
    EXPECT_TRUE(manager.commands.empty());

    // Stop the service and take over: systemctl stops it, this program drives the boards, and
    // at the exit offers to start the service again.
    manager.onStop = [&] { service.reset(); };
    answers.answers = {Answer::No};
    ASSERT_TRUE(start());
    EXPECT_FALSE(app->ViewingService());
    EXPECT_TRUE(app->Timer().IsEnabled());
    answers.answers = {Answer::Yes};
    app->AfterExit();
    EXPECT_EQ(manager.commands, (std::vector<std::string>{"systemctl --user stop vantrelliond",
                                                          "systemctl --user start vantrelliond"}));
}

}  // namespace
}  // namespace vantrellion::test
