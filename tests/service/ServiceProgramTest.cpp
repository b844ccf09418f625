// The vantrelliond program itself, started as systemd starts it: a notify socket owned by the
// test, signals, a kill -9 and a start again, and Run Files that do not load.
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <fstream>

#include "logging/LogFileName.h"
#include "runfile/CrashRestart.h"
#include "tests/service/ServiceTestSupport.h"

namespace vantrellion::test {
namespace {

std::string TodaysLog(const TempDir& dir) {
    std::string log;
    for (const auto& e : std::filesystem::directory_iterator(dir.Path()))
        if (e.path().extension() == ".Log") log += ReadFile(e.path());
    return log;
}

TEST(ServiceProgram, NotifiesReloadsOnHangupAndStopsCleanlyOnTerm) {
    TempDir dir;
    const std::string runFile = PrepareServiceDirectory(dir);
    NotifySocket notify(dir.File("notify"));
    Daemon d(dir, {"--run", runFile, "--data-dir", dir.Path()}, notify.Path());
    ASSERT_TRUE(notify.WaitFor("READY=1", 5000)) << d.Stderr();
    EXPECT_NE(notify.All().find("STATUS="), std::string::npos);
    notify.Forget();
    EXPECT_TRUE(notify.WaitFor("WATCHDOG=1", 7000));
    EXPECT_TRUE(std::filesystem::exists(dir.File(RestartFileName)));

    // SIGHUP reads the Run File again; a damaged one is refused and the schedule stays.
    d.Signal(SIGHUP);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    std::ofstream(runFile, std::ios::trunc) << "not a run file\r\n";
    d.Signal(SIGHUP);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    notify.Forget();
    EXPECT_TRUE(notify.WaitFor("WATCHDOG=1", 7000)) << "still ticking after a refused reload";

    const auto stop = std::chrono::steady_clock::now();
    d.Signal(SIGTERM);
    EXPECT_EQ(d.Wait(2000), 0) << d.Stderr();
    EXPECT_LT(std::chrono::steady_clock::now() - stop, std::chrono::seconds(2));
    EXPECT_TRUE(notify.WaitFor("STOPPING=1", 500));
    EXPECT_FALSE(std::filesystem::exists(dir.File(RestartFileName)));
    const std::string err = d.Stderr();
    EXPECT_NE(err.find("<6>reloaded " + runFile), std::string::npos) << err;
    EXPECT_NE(err.find("<3>reload: the Run File \"" + runFile), std::string::npos) << err;
    EXPECT_EQ(TodaysLog(dir).find("ReStart"), std::string::npos);
}

TEST(ServiceProgram, KillThenStartRestoresTheScheduleWithTheReStartLine) {
    TempDir dir;
    const std::string runFile = PrepareServiceDirectory(dir);
    NotifySocket notify(dir.File("notify"));
    {
        Daemon d(dir, {"--run", runFile, "--data-dir", dir.Path()}, notify.Path());
        ASSERT_TRUE(notify.WaitFor("READY=1", 5000)) << d.Stderr();
        d.Signal(SIGKILL);
        EXPECT_EQ(d.Wait(2000), 128 + SIGKILL);
    }
    ASSERT_TRUE(std::filesystem::exists(dir.File(RestartFileName)));
    // The Run File is gone: only the restart file can bring the schedule back.
    std::filesystem::remove(runFile);
    notify.Forget();
    Daemon again(dir, {"--data-dir", dir.Path()}, notify.Path());
    ASSERT_TRUE(notify.WaitFor("READY=1", 5000)) << again.Stderr();
    EXPECT_NE(TodaysLog(dir).find("ReStart ****** System Crashed & Restarted ******"),
              std::string::npos);
    // Relay 2 is on all day by the restored schedule, whatever the time of the test.
    EXPECT_TRUE(notify.All().find("STATUS=1 relay on") != std::string::npos ||
                notify.All().find("STATUS=2 relays on") != std::string::npos ||
                notify.All().find("STATUS=3 relays on") != std::string::npos)
        << notify.All();
    again.Signal(SIGTERM);
    EXPECT_EQ(again.Wait(2000), 0);
}

TEST(ServiceProgram, RunFileThatDoesNotLoadEndsTheStartWithoutARestartFile) {
    TempDir dir;
    PrepareServiceDirectory(dir);
    std::ofstream(dir.File("damaged.run")) << "FV.1.2\r\nno more\r\n";
    for (const std::string& bad : {dir.File("missing.run"), dir.File("damaged.run")}) {
        Daemon d(dir, {"--run", bad, "--data-dir", dir.Path()}, "");
        const int code = d.Wait(5000);
        EXPECT_GT(code, 0);
        EXPECT_LT(code, 128);
        EXPECT_NE(d.Stderr().find("<3>not started: the Run File \"" + bad + "\""),
                  std::string::npos)
            << d.Stderr();
        EXPECT_FALSE(std::filesystem::exists(dir.File(RestartFileName)));
    }
    Daemon wrong(dir, {"--bogus"}, "");
    EXPECT_EQ(wrong.Wait(2000), 2);
    // Without a configuration the first-run box answers itself, and the service says why it
    // ends.
    TempDir empty;
    Daemon unconfigured(empty, {"--data-dir", empty.Path()}, "");
    EXPECT_EQ(unconfigured.Wait(5000), 1);
    EXPECT_NE(unconfigured.Stderr().find("<3>Vantrellion is not Configured!: You MUST Configure "
                                         "Now"),
              std::string::npos)
        << unconfigured.Stderr();
    EXPECT_NE(unconfigured.Stderr().find("[answered Cancel]"), std::string::npos);
    EXPECT_NE(unconfigured.Stderr().find("<3>not started: no usable configuration"),
              std::string::npos);
}

}  // namespace
}  // namespace vantrellion::test
