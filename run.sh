#!/usr/bin/env bash
# Installs what is missing, builds Vantrellion and starts it.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j2 --target vantrellion Vantrellion
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "Vantrellion is built (build/bin/vantrellion), but this session has no display to show"
    echo "its window on. Start it from a desktop session, or under a virtual display:"
    echo "    xvfb-run -a build/bin/vantrellion"
    exit 1
fi
exec build/bin/vantrellion
