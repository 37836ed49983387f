#!/usr/bin/env bash
# The Debian package, built as scripts/package builds it: lintian finds no error and no
# warning in it, and the game unpacked from it into a temporary folder (not installed)
# finds its data from its own place, shows the main menu in a real window under Xvfb and
# ends on F12 with exit code 0.
# Usage: package-test.sh SOURCE-ROOT WORKDIR
set -uo pipefail
root="$1"
work="$2"
test_name="package test"
rm -rf "$work"
mkdir -p "$work/elsewhere"
. "$root/tests/window/xvfb.sh"

deb=$("$root/scripts/package" 2>"$work/package.log" | tail -1)
[ -f "$deb" ] || { cat "$work/package.log"; fail "the package was not built"; }
echo "built $deb"
lintian --fail-on error,warning "$deb" >"$work/lintian.log" 2>&1 || { cat "$work/lintian.log"; fail "lintian"; }
grep -E '^[EW]: ' "$work/lintian.log" && fail "lintian reports errors or warnings"

dpkg-deb -x "$deb" "$work/unpacked" || fail "the package does not unpack"
for file in usr/games/quarnwick usr/share/games/quarnwick/dat/back1.bmp usr/share/games/quarnwick/help.dat \
    usr/share/man/man6/quarnwick.6.gz usr/share/applications/quarnwick.desktop usr/share/doc/quarnwick/copyright \
    usr/share/metainfo/org.quarnwick.quarnwick.metainfo.xml usr/share/icons/hicolor/48x48/apps/quarnwick.png; do
  [ -e "$work/unpacked/$file" ] || fail "the package has no $file"
done
version=$(dpkg-deb -f "$deb" Version)
grep -q "release version=\"$version\"" "$work/unpacked/usr/share/metainfo/org.quarnwick.quarnwick.metainfo.xml" ||
  fail "the AppStream release is not the package's version $version"

start_xvfb
export SDL_AUDIODRIVER=dummy
export XDG_DATA_HOME="$work/xdg"
cd "$work/elsewhere" || fail "no folder to start from"
start_game "$work/unpacked/usr/games/quarnwick" -F
wait_for_picture 0.05  # the main menu, faded in
xdotool key --window "$(xdotool search --name '^Quarnwick$' | head -1)" F12
finish
[ "$code" = 0 ] || fail "F12 ended the game with exit code $code"
echo "package test passed"
