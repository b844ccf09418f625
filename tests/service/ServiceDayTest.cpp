// The service run in-process under a fast fake clock for a day, beside the desktop program's
// core on the same schedule.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "engine/Tick.h"
#include "logging/LogFileName.h"
#include "mainscreen/FileCommands.h"
#include "runfile/CrashRestart.h"
#include "service/Service.h"
#include "tests/service/ServiceTestSupport.h"

namespace vantrellion::test {
namespace {

TEST(ServiceDay, SameStateLinesAsTheDesktopCoreAndTheNotifyProtocol) {
    TempDir dir;
    const std::string runFile = PrepareServiceDirectory(dir);
    NotifySocket notify(dir.File("notify"));
    ::setenv("NOTIFY_SOCKET", notify.Path().c_str(), 1);
    ::setenv("WATCHDOG_USEC", "10000000", 1);  // WatchdogSec=10, as the unit has it

    FakeClock clock;
    clock.now = DateTime{2026, 11, 16, 0, 0, 0, 2};
    SimulatedPorts ports;
    ServiceOptions o;
    o.RunFile = runFile;
    o.MachineDirectory = dir.Path();
    o.LogDirectory = dir.Path() + "service-log/";
    Service service(o, &clock, &ports);
    ASSERT_EQ(service.Start(), 0);
    EXPECT_TRUE(std::filesystem::exists(dir.File(RestartFileName)));

    // The desktop program's core on the same schedule, logging elsewhere.
    TestSystem desk;
    desk.clock.now = clock.now;
    desk.mod().LoggingOnOff = True;
    desk.mod().RunNoBoards = True;
    desk.mod().LogFilePath = dir.Path() + "desktop-log/";
    std::filesystem::create_directories(desk.mod().LogFilePath);
    desk.s.platform.machineDirectory = dir.Path() + "desktop/";
    std::filesystem::create_directories(desk.s.platform.machineDirectory);
    ASSERT_TRUE(OpenChosenRunFile(desk.s, runFile));

    for (int t = 0; t < 86400; t += 20) {
        clock.SetSecondsOfDay(t);
        clock.tick += 20000;
        desk.clock.now = clock.now;
        desk.clock.tick = clock.tick;
        ASSERT_TRUE(service.Tick()) << "the timer is on at " << t;
        CheckTimeTick(desk.s);
        notify.Receive();  // as the service manager reads them: a full socket holds the sender
        if (t == 20) {
            EXPECT_TRUE(notify.WaitFor("READY=1", 1000));
            EXPECT_TRUE(notify.WaitFor("STATUS=1 relay on, next switch at 06:00:0", 1000))
                << notify.All();
        }
        if (t == 11 * 3600) {
            EXPECT_EQ(RelaysOn(service.system()), 2);
        }
    }
    const std::string logName = LogFileNameForDate("11/16/2026");
    const auto served = StateLines(ReadFile(o.LogDirectory + logName));
    const auto desktop = StateLines(ReadFile(desk.mod().LogFilePath + logName));
    ASSERT_GE(served.size(), 1439u);
    EXPECT_EQ(served, desktop);
    const auto at = [&](const std::string& time) {
        for (const std::string& l : served)
            if (l.rfind(time, 0) == 0) return l.substr(0, 24);
        return std::string("none at ") + time;
    };
    EXPECT_EQ(at("05:00:00"), "05:00:00 <- 2 - - - - - ");
    EXPECT_EQ(at("10:31:00"), "10:31:00 <1 2 3 - - - - ");
    EXPECT_EQ(at("18:30:00"), "18:30:00 <- 2 - - - - - ");
    notify.Receive();
    EXPECT_NE(notify.All().find("WATCHDOG=1"), std::string::npos);

    // A clean stop: STOPPING=1, and no restart file is left for the next start.
    service.Stop();
    EXPECT_TRUE(notify.WaitFor("STOPPING=1", 1000));
    EXPECT_FALSE(std::filesystem::exists(dir.File(RestartFileName)));
    ::unsetenv("NOTIFY_SOCKET");
    ::unsetenv("WATCHDOG_USEC");
}

}  // namespace
}  // namespace vantrellion::test
