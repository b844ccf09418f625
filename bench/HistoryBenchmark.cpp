// Reading one year of daily logs back into a run-time history: 365 files of 1440 state lines
// (525,600 lines, about 26 MB) with a few event lines, made once in a temporary directory.
//   build/bin/bench_tick --benchmark_filter=BM_ReadOneYearOfLogs
#include <benchmark/benchmark.h>

#include <memory>

#include "history/RunTimeHistory.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

std::unique_ptr<TempDir> OneYearOfLogs(LocalSeconds first) {
    auto dir = std::make_unique<TempDir>();
    for (int d = 0; d < 365; ++d) {
        const LocalSeconds day = first + d * SecondsPerDay;
        // Lights through the day, a pump a quarter of every hour, a sensor input now and then.
        std::string text = StateLines(0, 86400, [d](int t) {
            Bytes b;
            if (t >= 6 * 3600 && t < 20 * 3600) b.relays |= 0x01;
            if (t % 3600 < 900) b.relays |= 0x02;
            if ((t / 60 + d) % 7 == 0) b.inputs |= 0x04;
            return b;
        });
        text += "09:15:02 " + ShortDateText(FromLocalSeconds(day)) + " Save /srv/farm/a.run\r\n";
        WriteDay(*dir, day, text);
    }
    return dir;
}

void BM_ReadOneYearOfLogs(benchmark::State& state) {
    const LocalSeconds first = Day(2025, 1, 1);
    const auto dir = OneYearOfLogs(first);
    int64_t lines = 0;
    for (auto _ : state) {
        const RunTimeHistory h = ReadRunTimeHistory(
            {dir->Path(), first, first + 364 * SecondsPerDay, first + 400 * SecondsPerDay});
        lines = h.Counts.StateLines;
        benchmark::DoNotOptimize(h.Days.data());
    }
    state.counters["state_lines"] = static_cast<double>(lines);
}
BENCHMARK(BM_ReadOneYearOfLogs)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace vantrellion::test
