#!/usr/bin/env bash
# The game where it cannot run says why and ends at once with a non-zero exit code: with no
# display to open, and with no data beside it or in the installed folder.
# Usage: failure-test.sh GAME WORKDIR
set -uo pipefail
game="$1"
work="$2"
test_name="failure test"
fail() { echo "$test_name: $*" >&2; exit 1; }
rm -rf "$work"
mkdir -p "$work/alone"
export SDL_AUDIODRIVER=dummy

env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER timeout 60 "$game" -F >"$work/no-display.log" 2>&1
code=$?
cat "$work/no-display.log"
[ "$code" != 0 ] && [ "$code" != 124 ] || fail "without a display the game ended with $code"
grep -q "no display could be opened" "$work/no-display.log" || fail "without a display the game did not say why"

# The program alone in a folder, without dat/ beside it.
cp "$game" "$work/alone/quarnwick"
timeout 60 "$work/alone/quarnwick" -F >"$work/no-data.log" 2>&1
code=$?
cat "$work/no-data.log"
[ "$code" != 0 ] && [ "$code" != 124 ] || fail "without its data the game ended with $code"
grep -q "data cannot be found" "$work/no-data.log" || fail "without its data the game did not say so"
grep -qF "  $work/alone" "$work/no-data.log" || fail "the folders looked in are not named"
echo "failure test passed"
