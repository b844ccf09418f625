#!/usr/bin/env bash
# Runs the start-up window tests on a real X server with a real window manager (Xvfb and
# openbox), where stacking and focus are the window manager's and not Qt's offscreen platform's.
#   scripts/check-under-window-manager.sh [build dir] [display number]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
display=${2:-97}
for tool in Xvfb openbox; do
    command -v "$tool" >/dev/null || { echo "needs $tool (apt-get install xvfb openbox)"; exit 2; }
done

Xvfb ":$display" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
wm=""
cleanup() {
    [ -n "$wm" ] && kill "$wm" 2>/dev/null || true
    kill "$xvfb" 2>/dev/null || true
}
trap cleanup EXIT
sleep 1
DISPLAY=":$display" openbox >/dev/null 2>&1 &
wm=$!
sleep 1

home=$(mktemp -d)
trap 'cleanup; rm -rf "$home"' EXIT
DISPLAY=":$display" QT_QPA_PLATFORM=xcb HOME="$home" XDG_DATA_HOME="$home/data" \
    "$build/bin/test_desktop" \
    --gtest_filter='ProgramTest.StartUpBoxesAndScreensStandAboveTheSplash:Splash.*'
