// The floor of an idle measurement: a process that does nothing but wake every 900 ms. What
// it costs is what the machine charges any process for a wake-up (the timer, the switch in
// and out, cold caches); the service and the Python loop both pay it at every tick.
//   build/bin/bench_idle_wake
#include <ctime>

int main() {
    const timespec period{0, 900000000};
    for (;;)
        nanosleep(&period, nullptr);
}
