#!/usr/bin/env bash
# Installs the Debian packages that making and checking the Vantrellion package needs, if any is
# missing (see the README's Dependencies).
set -euo pipefail

packages=(dpkg-dev file desktop-file-utils appstream lintian)

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
