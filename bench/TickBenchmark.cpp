// Cost of one full tick of the core: all 48 pairs set, a recording row display and a
// simulated port space. Also the length of one WaitStepDelay pause on this machine.
//   build/bin/bench_tick
#include <benchmark/benchmark.h>

#include "HeavySchedule.h"
#include "boardio/PortAccess.h"
#include "engine/Tick.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

void BM_Tick(benchmark::State& state) {
    TestSystem t;
    FillHeavySchedule(t);
    t.clock.SetTime(9, 30, 0);
    for (auto _ : state) {
        t.clock.Advance(1);
        if (t.clock.now.SecondsOfDay() > 86000) t.clock.SetTime(0, 0, 0);
        t.ports.log.clear();
        CheckTimeTick(t.s);
    }
}
BENCHMARK(BM_Tick)->Unit(benchmark::kMicrosecond);

void BM_WaitStepDelay(benchmark::State& state) {
    TestSystem t;
    t.mod().StepDelay = 2000;
    for (auto _ : state)
        WaitStepDelay(t.s);
}
BENCHMARK(BM_WaitStepDelay)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrellion::test

BENCHMARK_MAIN();
