#!/usr/bin/env bash
# Checks the shipped systemd units with systemd-analyze verify, with ExecStart set to the
# program given (the build's, since the installed one may not be there).
#   packaging/verify-units.sh /path/to/vantrelliond
set -euo pipefail
program=${1:?the path of vantrelliond}
src=$(cd "$(dirname "$0")" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
for unit in vantrelliond.service vantrelliond@.service; do
    sed "s|@VANTRELLIOND@|$program|" "$src/$unit" > "$tmp/$unit"
done
# The template is checked as an instance for an existing user.
cp "$tmp/vantrelliond@.service" "$tmp/vantrelliond@root.service"
status=0
for unit in vantrelliond.service vantrelliond@root.service; do
    out=$(cd "$tmp" && SYSTEMD_LOG_LEVEL=notice systemd-analyze verify --man=no "$tmp/$unit" 2>&1) || status=1
    # Warnings about units of this machine that the check pulls in are not ours.
    ours=$(printf '%s\n' "$out" | grep -F "vantrelliond" || true)
    if [ -n "$ours" ]; then
        printf '%s\n' "$ours" >&2
        status=1
    fi
    echo "$unit: checked"
done
exit $status
