// The whole program with board 1 connected through the store: a Modbus TCP module (libmodbus's
// server on 127.0.0.1) that the schedule drives, that goes away for 20 seconds and returns; and
// a connection text that cannot be used.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QTest>
#include <memory>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmConfiguration.h"
#include "logging/LogFileName.h"
#include "support/Fakes.h"
#include "support/ModbusTestServer.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"
#include "tests/desktop/MenuProgramFixture.h"
#include "tests/desktop/ModalAnswerer.h"

namespace vantrellion::test {
namespace {

class BoardConnectionProgramTest : public MenuProgramTest {
  protected:
    // Board 1 with its connection text, running with boards.
    void PrepareStore(const std::string& connection) {
        SaveTestConfiguration(dir, False, True);
        KeyValueStore store(dir.File("store.db"));
        TestSystem t;
        t.s.platform.store = &store;
        ConfigurationBoardConnectionSave(t.s, 0, connection);
    }
    std::string StoredConnection() {
        KeyValueStore store(dir.File("store.db"));
        TestSystem t;
        t.s.platform.store = &store;
        return ConfigurationBoardConnectionLoad(t.s, 0);
    }
    bool Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, nullptr, nullptr, dir.Path()});
        return app->Main();
    }
    // One second on and one tick.
    void Tick() {
        clock.Advance(1);
        app->MainWindow()->Menu("mnuToolForceCheckTime")->trigger();
    }
    int LogLinesWith(const std::string& text) {
        const std::string log = dir.Read(LogFileNameForDate("11/16/2026"));
        int n = 0;
        for (size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1))
            ++n;
        return n;
    }
};

TEST_F(BoardConnectionProgramTest, TheScheduleDrivesAModbusModuleThatGoesAwayAndReturns) {
    ModbusTestServer server;
    const std::string url = "modbus-tcp://127.0.0.1:" + std::to_string(server.Port()) + "?unit=1";
    PrepareStore(url);
    ModalAnswerer answers;
    ASSERT_TRUE(Start());
    EXPECT_TRUE(answers.boxes.empty());
    auto& relay = Sys().frmRelay.Relay;
    relay[0].Manual = True;
    relay[1].Manual = True;
    relay[1].HardStop = True;  // a stopped relay stays off
    Sys().frmRelay.StartTime[RecordIndex(0, 2) * PairsPerRelay] = "09:30:05";
    Sys().frmRelay.EndTime[RecordIndex(0, 2) * PairsPerRelay] = "09:30:09";
    std::vector<int> coils;
    for (int i = 0; i < 10; ++i) {
        Tick();
        coils.push_back(server.Coils());
    }
    // 09:30:01 to 09:30:10; the pair is on strictly between its two times.
    EXPECT_EQ(coils, (std::vector<int>{1, 1, 1, 1, 1, 5, 5, 5, 1, 1}));

    server.Stop();
    for (int i = 0; i < 20; ++i)
        Tick();
    EXPECT_TRUE(app->MainWindow()->isVisible());
    EXPECT_EQ(LogLinesWith("no contact"), 1);
    EXPECT_EQ(app->MainWindow()
                  ->Menu("mnuStateDisplayState")
                  ->text()
                  .toStdString()
                  .rfind("no contact", 0),
              0u);

    relay[3].Manual = True;  // wanted while the module is away
    server.Start();
    int seconds = 0;
    while (server.Coils() != 0x09 && seconds < 10) {
        Tick();
        ++seconds;
    }
    EXPECT_LE(seconds, 6);
    EXPECT_EQ(server.Coils(), 0x09);
    EXPECT_EQ(LogLinesWith("reconnected"), 1);
    EXPECT_EQ(StoredConnection(), url);
}

TEST_F(BoardConnectionProgramTest, AConnectionThatCannotBeUsedIsToldAndTheBoardRunsEmulated) {
    PrepareStore("modbus-tcp://plc?unit=999");
    ModalAnswerer answers;
    ASSERT_TRUE(Start());
    ASSERT_EQ(answers.boxes.size(), 1u);
    EXPECT_EQ(answers.Texts()[0],
              "Board 1: the connection \"modbus-tcp://plc?unit=999\" cannot be used: the option "
              "unit=999 is not a whole number from 0 to 247.\nThe board runs emulated until "
              "its connection is corrected in the configuration screen.");
    Sys().frmRelay.Relay[2].Manual = True;
    Tick();
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0x04);
    EXPECT_TRUE(ports.Writes().empty());  // nothing reaches the port library
    EXPECT_EQ(app->MainWindow()
                  ->Menu("mnuStateDisplayState")
                  ->text()
                  .toStdString()
                  .rfind("emulated: connection text not valid", 0),
              0u);
    EXPECT_EQ(StoredConnection(), "modbus-tcp://plc?unit=999");
}

}  // namespace
}  // namespace vantrellion::test
