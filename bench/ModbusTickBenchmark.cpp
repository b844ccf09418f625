// Cost of one full tick with board 1 on a Modbus TCP module (libmodbus's server on
// 127.0.0.1, in a thread of this process): the tick's reads of coils and inputs, and with a
// relay switched at every tick, its one write of the coils too. Wall time is what counts here,
// as the module's answers are waited for.
#include <benchmark/benchmark.h>

#include "boardio/BoardSet.h"
#include "engine/Tick.h"
#include "support/Fakes.h"
#include "support/ModbusTestServer.h"

namespace vantrellion::test {
namespace {

void ModbusTick(benchmark::State& state, bool switching) {
    ModbusTestServer server;
    TestSystem t;
    BoardSet boards;
    t.s.platform.boards = &boards;
    t.mod().RunNoBoards = 0;
    boards.SetConnection(0, "modbus-tcp://127.0.0.1:" + std::to_string(server.Port()) + "?unit=1");
    t.frm().CheckTimeAllowed = True;
    t.clock.SetTime(9, 30, 0);
    CheckTimeTick(t.s);  // the connection is made at the first tick
    for (auto _ : state) {
        t.clock.Advance(1);
        if (t.clock.now.SecondsOfDay() > 86000) t.clock.SetTime(0, 0, 0);
        if (switching) t.relay(0).Manual = t.relay(0).Manual ? False : True;
        CheckTimeTick(t.s);
    }
    if (boards.NoContact(0)) state.SkipWithError("the module did not answer");
}

void BM_TickModbusSteady(benchmark::State& state) {
    ModbusTick(state, false);
}
void BM_TickModbusSwitching(benchmark::State& state) {
    ModbusTick(state, true);
}
BENCHMARK(BM_TickModbusSteady)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BM_TickModbusSwitching)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
}  // namespace vantrellion::test
