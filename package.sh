#!/usr/bin/env bash
# Installs what is missing, builds Vantrellion, makes its Debian package and installs it, with
# a "Vantrellion" entry in the applications menu.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/install-packaging-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
rm -f build/vantrellion_*.deb
cmake --build build -j2 --target package
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
$sudo apt-get install -y "$(ls "$PWD"/build/vantrellion_*.deb | head -1)"
