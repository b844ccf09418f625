#!/usr/bin/env bash
# Builds Vantrellion with its tests and runs them.
#   ./test.sh             release build in build/, all tests
#   ./test.sh --sanitize  Debug build with AddressSanitizer and UBSan in build-asan/
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh

dir=build
args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
if [ "${1:-}" = "--sanitize" ]; then
    dir=build-asan
    args=(-DCMAKE_BUILD_TYPE=Debug -DVANTRELLION_SANITIZE=ON -DVANTRELLION_BENCH=OFF)
fi
cmake -S . -B "$dir" -G Ninja "${args[@]}"
cmake --build "$dir" -j2
QT_QPA_PLATFORM=offscreen ctest --test-dir "$dir" --output-on-failure -j2
