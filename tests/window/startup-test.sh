#!/usr/bin/env bash
# The game from the command line, without a display: --help and --version answer and end
# with 0 without opening a window, an unknown option is named and ends with 2; and where it
# cannot run the game says why and ends at once with a non-zero exit code: with no display
# to open, and with no data beside it or in the installed folder.
# Usage: startup-test.sh GAME WORKDIR
set -uo pipefail
game="$1"
work="$2"
test_name="startup test"
fail() { echo "$test_name: $*" >&2; exit 1; }
rm -rf "$work"
mkdir -p "$work/alone"
export SDL_AUDIODRIVER=dummy
export XDG_CONFIG_HOME="$work/config"
headless() { env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER timeout 60 "$@"; }

headless "$game" --help >"$work/help.txt" 2>&1 || fail "--help ended with $?"
grep -q "^Usage: quarnwick" "$work/help.txt" && grep -q -- "--version" "$work/help.txt" && grep -q -- "-F" "$work/help.txt" ||
  fail "--help does not print the usage"
headless "$game" --version >"$work/version.txt" 2>&1 || fail "--version ended with $?"
grep -qx "Quarnwick [0-9][0-9.]*" "$work/version.txt" || fail "--version says: $(cat "$work/version.txt")"
headless "$game" -F --fly >"$work/unknown.txt" 2>&1
code=$?
[ "$code" = 2 ] || fail "an unknown option ended with $code"
[ "$(wc -l <"$work/unknown.txt")" = 1 ] && grep -q -- "--fly" "$work/unknown.txt" && grep -q -- "--help" "$work/unknown.txt" ||
  fail "an unknown option says: $(cat "$work/unknown.txt")"

headless "$game" -F >"$work/no-display.log" 2>&1
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
echo "startup test passed"
