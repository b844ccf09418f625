#!/usr/bin/env bash
# Installs the Debian packages that building and testing Vantrellion needs, if any is missing.
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config qt6-base-dev libsqlite3-dev libgtest-dev libgmock-dev
          libbenchmark-dev xvfb xauth fonts-dejavu-core desktop-file-utils qt6-svg-dev
          fonts-urw-base35 openbox libgpiod-dev libhidapi-dev libmodbus-dev libsystemd-dev
          systemd python3 libmosquitto-dev mosquitto openssl)

# Other lists (the packaging tools) name their packages as arguments.
[ $# -gt 0 ] && packages=("$@")

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
