// Cost of the schedule preview: one simulated day (86,400 evaluations) and one year, all 48
// pairs set with a mix of codes.
//   build/bin/bench_tick --benchmark_filter=BM_Preview
#include <benchmark/benchmark.h>

#include "preview/SchedulePreview.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

ScheduleSnapshot BusySchedule() {
    static const char* kCodes[] = {"EO", "OD", "EH", "OM", "TH", "MH", "BH", "5"};
    TestSystem t;
    for (int i = 0; i < 8; ++i) {
        t.relay(i).DayHrEvenOdd = kCodes[i];
        t.relay(i).DaysOfWeek = "1234567";
        for (int p = 0; p < 6; ++p) {
            const int h = 2 + p * 3;
            t.SetPair(i, p, std::to_string(h) + ":10:00", std::to_string(h + 2) + ":50:30");
        }
    }
    return TakeSnapshot(t.s);
}

void BM_PreviewDays(benchmark::State& state) {
    const ScheduleSnapshot schedule = BusySchedule();
    const LocalSeconds from = ToLocalSeconds({2026, 11, 23, 0, 0, 0, 2});
    for (auto _ : state) {
        const PreviewResult r = RunPreview(schedule, {from, state.range(0) * 86400});
        benchmark::DoNotOptimize(r.Evaluations);
    }
    state.counters["evaluations/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * state.range(0) * 86400),
                           benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PreviewDays)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PreviewDays)->Arg(365)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrellion::test
