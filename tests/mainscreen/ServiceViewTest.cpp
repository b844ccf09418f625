// The read-only view of the running service: its schedule from the restart file, its state
// from the last state line of today's log.
#include <gtest/gtest.h>

#include <fstream>

#include "logging/LogFileName.h"
#include "mainscreen/ServiceView.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileSave.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

TEST(ServiceView, ShowsTheServicesScheduleAndItsLastStateLine) {
    TempDir dir;
    TestSystem t;
    t.s.platform.machineDirectory = dir.Path();
    t.mod().LogFilePath = dir.Path();
    {
        TestSystem service;
        service.relay(2).DisplayName = "Lamp";
        ASSERT_TRUE(SaveRunFile(service.s, dir.Path(), RestartFileName));
    }
    std::ofstream(dir.File(LogFileNameForDate("11/16/2026")))
        << "00:05:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n"
        << "00:06:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I \r\n"
        << "00:06:00 11/16/2026 Open x.run\r\n";
    ServiceView view(t.s);
    view.Refresh();
    EXPECT_TRUE(view.ScheduleLoaded());
    EXPECT_EQ(t.screen.Text(Control::txtDisplayName, 2), "Lamp");
    EXPECT_EQ(t.display.light[0], kRelayON);
    EXPECT_EQ(t.display.light[1], kRelayOFF);
    EXPECT_EQ(t.display.light[7], kRelayON);
    EXPECT_EQ(t.display.light[2], kRelayON);
    EXPECT_EQ(t.display.statusTime, "00:06:00");
    EXPECT_EQ(t.screen.title, "Viewing the running service - Vantrellion");
    EXPECT_TRUE(t.ports.log.empty());
    EXPECT_TRUE(t.messages.shown.empty());
}

}  // namespace
}  // namespace vantrellion::test
