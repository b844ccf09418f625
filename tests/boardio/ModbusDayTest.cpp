// A whole day of the schedule on a Modbus TCP module against the same day on the emulated
// board: the coils must change on the same seconds as the emulated relays.
#include <gtest/gtest.h>

#include <vector>

#include "boardio/BoardSet.h"
#include "engine/Tick.h"
#include "support/Fakes.h"
#include "support/ModbusTestServer.h"

namespace vantrellion {
namespace {

using test::TestSystem;

// A manual relay on, a stopped relay off, pairs switching at their seconds, a code that
// switches every other minute within its pair.
void Schedule(TestSystem& t) {
    t.frm().CheckTimeAllowed = True;
    t.relay(0).Manual = True;
    t.relay(1).HardStop = True;
    t.SetPair(1, 0, "06:00:00", "18:00:00");
    t.SetPair(2, 0, "08:00:05", "08:00:17");
    t.SetPair(2, 1, "12:30:00", "13:45:59");
    t.SetPair(3, 0, "07:10:00", "07:40:00");
    t.relay(3).DayHrEvenOdd = "OM";
    t.SetPair(4, 0, "00:00:30", "23:59:30");
    t.relay(4).Invert = True;
}

TEST(ModbusDay, CoilsChangeOnTheSameSecondsAsTheEmulatedRelays) {
    test::ModbusTestServer server;
    TestSystem emulated, modbus;
    BoardSet boards;
    emulated.mod().RunNoBoards = True;
    modbus.mod().RunNoBoards = False;
    modbus.s.platform.boards = &boards;
    boards.SetConnection(0, "modbus-tcp://127.0.0.1:" + std::to_string(server.Port()) + "?unit=1");
    Schedule(emulated);
    Schedule(modbus);

    std::vector<std::pair<int, int>> emulatedChanges, coilChanges;  // second, new byte
    int emulatedLast = -1, coilsLast = -1;
    for (int sec = 0; sec < 86400; ++sec) {
        for (TestSystem* t : {&emulated, &modbus}) {
            t->clock.SetSecondsOfDay(sec);
            CheckTimeTick(t->s);
            t->clock.tick += 1000;
        }
        const int e = emulated.frm().EmulatedPort[0], c = server.Coils();
        if (e != emulatedLast) emulatedChanges.push_back({sec, e});
        if (c != coilsLast) coilChanges.push_back({sec, c});
        emulatedLast = e;
        coilsLast = c;
    }
    EXPECT_FALSE(boards.NoContact(0));
    EXPECT_GT(emulatedChanges.size(), 30u);
    EXPECT_EQ(coilChanges, emulatedChanges);
    EXPECT_EQ(server.CoilWrites(), static_cast<int>(coilChanges.size()));
}

}  // namespace
}  // namespace vantrellion
