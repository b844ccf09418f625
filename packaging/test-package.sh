#!/usr/bin/env bash
# Makes the Debian package from an existing build folder and checks it:
#   - the shipped desktop entry and AppStream metainfo pass their validators;
#   - lintian finds no error (the warnings kept are listed in the README);
#   - the package holds what it should (the user's manual among it, where the program looks for
#     it), with its dependencies computed by dpkg-shlibdeps;
#   - the package unpacked into a temporary root starts, under the offscreen platform with a
#     temporary home, and comes up to its first-run question.
#   packaging/test-package.sh [build folder, default build]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
scripts/install-packaging-deps.sh

rm -f "$build"/vantrellion_*.deb
cmake --build "$build" -j2 --target package
debs=("$build"/vantrellion_*_*.deb)
deb=${debs[0]}
[ -f "$deb" ] || { echo "FAIL: no package was made" >&2; exit 1; }
echo "Package: $deb"

tmp=$(mktemp -d /tmp/vantrellion-package-XXXXXX)
pid=""
cleanup() {
    [ -n "$pid" ] && kill "$pid" 2>/dev/null || true
    rm -rf "$tmp"
}
trap cleanup EXIT
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }
pass() { echo "ok: $*"; }

root=$tmp/root
dpkg-deb -x "$deb" "$root"

# The files as shipped.
if desktop-file-validate "$root/usr/share/applications/org.vantrellion.Vantrellion.desktop"; then
    pass "desktop-file-validate"
else
    fail "desktop-file-validate"
fi
if appstreamcli validate --no-net "$root/usr/share/metainfo/org.vantrellion.Vantrellion.metainfo.xml"; then
    pass "appstreamcli validate"
else
    fail "appstreamcli validate"
fi

# lintian: errors fail; the warnings are shown.
if lintian --fail-on error --tag-display-limit 0 "$deb"; then
    pass "lintian: no errors"
else
    fail "lintian reports errors"
fi

# The contents.
dpkg-deb -c "$deb" | awk '{ $1 = $2 = $3 = $4 = $5 = ""; sub(/^ +/, ""); print }' > "$tmp/contents"
libdir=usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/vantrellion
expected=(
    "./$libdir/vantrellion"
    "./$libdir/libVantrellion.so"
    "./usr/bin/vantrellion -> ../${libdir#usr/}/vantrellion"
    "./usr/share/applications/org.vantrellion.Vantrellion.desktop"
    "./usr/share/metainfo/org.vantrellion.Vantrellion.metainfo.xml"
    "./usr/share/man/man1/vantrellion.1.gz"
    "./$libdir/vantrelliond"
    "./usr/bin/vantrelliond -> ../${libdir#usr/}/vantrelliond"
    "./usr/lib/systemd/user/vantrelliond.service"
    "./usr/lib/systemd/system/vantrelliond@.service"
    "./usr/share/man/man8/vantrelliond.8.gz"
    "./usr/share/doc/vantrellion/copyright"
    "./usr/share/doc/vantrellion/changelog.gz"
    "./usr/share/doc/vantrellion/manual/index.html"
    "./usr/share/doc-base/vantrellion"
)
for size in 16 22 24 32 48 64 128 256; do
    expected+=("./usr/share/icons/hicolor/${size}x${size}/apps/vantrellion.png")
done
for f in "${expected[@]}"; do
    grep -qxF "$f" "$tmp/contents" || fail "the package lacks $f"
done
unexpected=$(grep -E 'test_|bench_|FakeVantrellion|\.a$|/include/' "$tmp/contents" || true)
[ -z "$unexpected" ] || fail "the package holds files of the build: $unexpected"
for size in 16 22 24 32 48 64 128 256; do
    file "$root/usr/share/icons/hicolor/${size}x${size}/apps/vantrellion.png" |
        grep -q "PNG image data, $size x $size" || fail "the ${size}px icon is not ${size} x ${size}"
done
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
for lib in libc6 libqt6widgets6 libqt6printsupport6 libqt6svg6 libsqlite3-0 libstdc++6 libmosquitto1; do
    [[ $depends == *"$lib"* ]] || fail "Depends lacks $lib"
done
file "$root/$libdir/vantrellion" | grep -q "stripped" || fail "the program is not stripped"
# The manual that Help opens: found where the program looks for it, from its real file, and
# whole, to its last chapter.
manual="$root/$libdir/../../../share/doc/vantrellion/manual/index.html"
grep -q '<h2 id="where">' "$manual" 2>/dev/null && grep -q '</html>' "$manual" ||
    fail "the user's manual is not where the program looks for it, or not whole"
[ $failures -eq 0 ] && pass "package contents"

# Unpacked and started: with a new home there is no configuration, so the program stops at the
# question that asks for one. It must be alive there, having made its machine directory and
# taken the lock, and have shown the question.
home=$tmp/home
mkdir -p "$home"
env -i PATH=/usr/bin:/bin HOME="$home" XDG_RUNTIME_DIR="$tmp" QT_QPA_PLATFORM=offscreen \
    QT_LOGGING_RULES="qt.vantrellion.messagebox=true" \
    "$root/usr/bin/vantrellion" > "$tmp/out" 2>&1 &
pid=$!
started=""
for _ in $(seq 1 60); do
    if grep -q "Vantrellion is not Configured!" "$tmp/out"; then started=yes; break; fi
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.5
done
if [ -n "$started" ] && kill -0 "$pid" 2>/dev/null &&
   [ -e "$home/.local/share/vantrellion/vantrellion.lock" ]; then
    pass "the unpacked program starts and asks for its first configuration"
else
    fail "the unpacked program did not reach its first-run question"
    cat "$tmp/out" >&2
fi
kill "$pid" 2>/dev/null || true
wait "$pid" 2>/dev/null || true
pid=""

[ $failures -eq 0 ] || { echo "$failures package check(s) failed" >&2; exit 1; }
echo "All package checks passed."
