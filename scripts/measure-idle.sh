#!/usr/bin/env bash
# Measures the idle cost of the real program on a virtual display (Xvfb, no window manager, so
# the window is not focused), with a default configuration in emulation mode and a scratch home:
#   - CPU use over a span of seconds, and the memory at its end: the program's own (the pages
#     it wrote and nothing else holds: heap, stacks, the libraries' written data), its
#     proportional share of all it maps (PSS) and all of it resident (RSS), shared library
#     pages included;
#   - system calls per tick (strace -c, attached for a span);
#   - instructions per tick (valgrind's callgrind: counters zeroed once the program idles,
#     dumped after a span, divided by the ticks that ran meanwhile).
#   scripts/measure-idle.sh [build dir] [display number] [seconds]
# Needs Xvfb, strace and valgrind.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build}" && pwd)
display=${2:-98}
span=${3:-120}
for tool in Xvfb strace valgrind callgrind_control; do
    command -v "$tool" >/dev/null || { echo "needs $tool"; exit 2; }
done

work=$(mktemp -d)
pids=()
cleanup() {
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done
    rm -rf "$work"
}
trap cleanup EXIT
Xvfb ":$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
sleep 1
export DISPLAY=":$display" HOME="$work" XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config"
unset QT_QPA_PLATFORM
"$build/bin/bench_prepare_store" "$XDG_DATA_HOME/vantrellion/"

ticks() {  # ticks in a span of seconds: one every 900 ms plus the tick itself
    awk -v s="$1" 'BEGIN { printf "%d", s / 0.9 }'
}

# CPU and memory.
"$build/bin/vantrellion" &
program=$!
pids+=($program)
sleep 10
clk=$(getconf CLK_TCK)
cpu() { awk '{ print $14 + $15 }' "/proc/$program/stat"; }
before=$(cpu)
sleep "$span"
after=$(cpu)
awk -v a="$after" -v b="$before" -v s="$span" -v c="$clk" \
    'BEGIN { printf "idle CPU: %.3f%% of one core over %d s\n", 100 * (a - b) / c / s, s }'
memory() {  # a field of smaps_rollup, and its label
    awk -v f="$1:" -v l="$2" '$1 == f { printf "%s: %d KiB (%.1f MiB)\n", l, $2, $2 / 1024 }' \
        "/proc/$program/smaps_rollup"
}
memory Private_Dirty "own memory (Private_Dirty)"
memory Pss "proportional memory (PSS)"
memory Rss "resident memory (RSS)"

# System calls per tick, over a minute.
timeout -s INT 60 strace -c -f -p "$program" -o "$work/strace.txt" >/dev/null 2>&1 || true
total=$(awk '$NF == "total" { print $4 }' "$work/strace.txt")
awk -v t="$total" -v n="$(ticks 60)" \
    'BEGIN { printf "system calls: %.1f per tick (%d in 60 s)\n", t / n, t }'
kill "$program"
wait "$program" 2>/dev/null || true

# Instructions per tick, over a minute once the program runs its ticks.
valgrind --tool=callgrind --callgrind-out-file="$work/callgrind.%p" \
    "$build/bin/vantrellion" >/dev/null 2>&1 &
program=$!
pids+=($program)
sleep 60
callgrind_control -z "$program" >/dev/null
sleep 60
callgrind_control -d "$program" >/dev/null
sleep 2
kill "$program"
wait "$program" 2>/dev/null || true
dump=$(ls -t "$work"/callgrind.*.* 2>/dev/null | head -1)
[ -n "$dump" ] || dump=$(ls -t "$work"/callgrind.* | head -1)
# The dump's summary, and the calls of the tick handler since the counters were zeroed: the
# calls line follows the "cfn=" line that names the function called (names are given once,
# with their number, and later by the number alone).
instructions=$(awk '/^summary:/ { print $2 }' "$dump")
calls=$(awk '
    /^c?fn=/ {
        s = $0; sub(/^c?fn=\(/, "", s)
        id = s; sub(/\).*/, "", id)
        rest = s; sub(/^[0-9]+\) ?/, "", rest)
        if (rest != "") name[id] = rest
        cur = ($0 ~ /^cfn=/) ? id : ""
        next
    }
    /^calls=/ { if (cur != "" && name[cur] ~ /CheckTimeTick/) { split($1, c, "="); n += c[2] } }
    { cur = "" }
    END { print n + 0 }' "$dump")
awk -v i="$instructions" -v n="$calls" \
    'BEGIN { printf "instructions: %d per tick (%d ticks in 60 s)\n", (n ? i / n : 0), n }'
