#!/usr/bin/env bash
# Installs the Debian packages that making and checking the Vantrellion package needs, if any is
# missing (see the README's Dependencies).
set -euo pipefail
exec "$(dirname "$0")/install-deps.sh" dpkg-dev file desktop-file-utils appstream lintian
