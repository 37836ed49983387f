#!/usr/bin/env bash
# The game installed into a temporary prefix as a Linux game, and started from another
# folder in a real window under Xvfb: it finds its data from the prefix and shows the main
# menu, and F12 ends it with exit code 0. The uninstall target then removes every file.
# Usage: install-test.sh BUILD WORKDIR
set -uo pipefail
build="$1"
work="$2"
test_name="install test"
rm -rf "$work"
mkdir -p "$work/elsewhere"
. "$(dirname "$0")/xvfb.sh"

prefix="$work/prefix"
cmake --install "$build" --prefix "$prefix" >"$work/install.log" || fail "cmake --install failed"
for file in bin/quarnwick share/quarnwick/help.dat share/quarnwick/dat/back1.bmp share/quarnwick/dat/genwood.dat \
    share/applications/quarnwick.desktop share/metainfo/org.quarnwick.quarnwick.metainfo.xml \
    share/icons/hicolor/scalable/apps/quarnwick.svg share/icons/hicolor/256x256/apps/quarnwick.png \
    share/icons/hicolor/48x48/apps/quarnwick.png share/man/man6/quarnwick.6; do
  [ -e "$prefix/$file" ] || fail "$file was not installed"
done
for size in 48 256; do
  [ "$(identify -format '%wx%h' "$prefix/share/icons/hicolor/${size}x$size/apps/quarnwick.png")" = "${size}x$size" ] ||
    fail "the $size px icon is not $size x $size"
done

start_xvfb
export SDL_AUDIODRIVER=dummy
cd "$work/elsewhere" || fail "no folder to start from"
start_game "$prefix/bin/quarnwick" -F
# The main menu, faded in: its background and buttons, not the black of a game without its data.
wait_for_picture 0.05
xdotool key --window "$(xdotool search --name '^Quarnwick$' | head -1)" F12
finish
[ "$code" = 0 ] || fail "F12 ended the game with exit code $code"
cmake --build "$build" --target uninstall >"$work/uninstall.log" || fail "the uninstall target failed"
left=$(find "$prefix" -type f | head -5)
[ -z "$left" ] || fail "uninstall left files behind: $left"
echo "install test passed"
