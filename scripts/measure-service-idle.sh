#!/usr/bin/env bash
# Measures the idle cost of the service beside its yardstick, in one run: vantrelliond on the
# heavy schedule of the benchmark (emulation mode, logging on, a notify socket and the
# watchdog of the shipped unit as under systemd), and scripts/idle_schedule_loop.py, a headless Python loop doing the same evaluation
# every 900 ms. Both run side by side over the same span; for each, the CPU used (percent of
# one core) and the resident memory at the end (RSS, with its own part, Private_Dirty).
# The goals: the service's CPU at most a quarter of the loop's, its RSS at most 8 MiB.
# Beside them runs bench_idle_wake, which only wakes every 900 ms: its CPU is the floor that
# this machine charges any process for a wake-up, shown so that the two can be compared above
# it as well.
#   scripts/measure-service-idle.sh [build dir] [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build}" && pwd)
span=${2:-120}

work=$(mktemp -d)
pids=()
cleanup() {
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done
    rm -rf "$work"
}
trap cleanup EXIT
unset DISPLAY
export HOME="$work" XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config"
mkdir -p "$work/service-log" "$work/python-log"
# The yardstick is a loop on the `schedule` module: the first Python that has it (Debian's
# python3-schedule), else the plain loop of the same script.
python=python3
for candidate in /usr/bin/python3 python3; do
    if "$candidate" -c 'import schedule' 2>/dev/null; then python=$candidate; break; fi
done
"$python" -c 'import schedule' 2>/dev/null || echo "no schedule module: the Python loop sleeps by itself"
"$build/bin/bench_prepare_store" "$XDG_DATA_HOME/vantrellion/" "$work/heavy.run"

# The service manager's end of the notify socket: reads and drops what the service sends.
python3 -c '
import os, socket, sys
s = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
s.bind(sys.argv[1])
while True:
    s.recv(4096)
' "$work/notify" &
pids+=($!)
sleep 0.5
NOTIFY_SOCKET="$work/notify" WATCHDOG_USEC=10000000 "$build/bin/vantrelliond" --run "$work/heavy.run" \
    --log-dir "$work/service-log" 2>"$work/service.err" &
service=$!
pids+=($service)
"$python" scripts/idle_schedule_loop.py "$work/python-log" &
loop=$!
pids+=($loop)
"$build/bin/bench_idle_wake" &
floor=$!
pids+=($floor)
sleep 10
kill -0 "$service" || { cat "$work/service.err"; exit 1; }

# CPU time in nanoseconds, all threads (the scheduler's own account: finer than clock ticks).
cpu() {
    local total=0 t
    for t in /proc/$1/task/*/schedstat; do total=$((total + $(cut -d' ' -f1 "$t"))); done
    echo "$total"
}
s0=$(cpu "$service")
p0=$(cpu "$loop")
f0=$(cpu "$floor")
sleep "$span"
s1=$(cpu "$service")
p1=$(cpu "$loop")
f1=$(cpu "$floor")
memory() {  # pid, field of smaps_rollup
    awk -v f="$2:" '$1 == f { print $2 }' "/proc/$1/smaps_rollup"
}
# User and system time from /proc (clock ticks), for the split between the two.
split() { awk -v c="$(getconf CLK_TCK)" '{ printf "user %.2f s, system %.2f s", $14 / c, $15 / c }' "/proc/$1/stat"; }
report() {  # name, pid, cpu ticks
    awk -v n="$1" -v t="$3" -v s="$span" -v r="$(memory "$2" Rss)" \
        -v d="$(memory "$2" Private_Dirty)" 'BEGIN {
        printf "%-22s CPU %.4f%% of one core (%.1f us per 900 ms), RSS %d KiB (%.1f MiB), own %d KiB\n",
               n, 100 * t / 1e9 / s, t / 1e3 / (s / 0.9), r, r / 1024, d }'
}
report "vantrelliond:" "$service" $((s1 - s0))
report "Python schedule loop:" "$loop" $((p1 - p0))
report "wake-up alone (floor):" "$floor" $((f1 - f0))
echo "since their start: vantrelliond $(split "$service"); Python loop $(split "$loop")"
awk -v a=$((s1 - s0)) -v b=$((p1 - p0)) -v f=$((f1 - f0)) -v r="$(memory "$service" Rss)" 'BEGIN {
    ratio = b ? a / b : 0
    printf "CPU ratio service/loop: %.3f (goal at most 0.25): %s\n", ratio,
           ratio <= 0.25 ? "met" : "NOT met"
    above = (b - f > 0) ? (a - f) / (b - f) : 0
    printf "CPU ratio above the wake-up floor: %.3f\n", above
    printf "service RSS %.1f MiB (goal at most 8 MiB): %s\n", r / 1024,
           r <= 8192 ? "met" : "NOT met" }'
lines=$(grep -c '^[0-9][0-9]:[0-9][0-9]:[0-9][0-9] <' "$work"/service-log/*.Log || true)
echo "state lines logged by the service: $lines"
