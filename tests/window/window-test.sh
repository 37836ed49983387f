#!/usr/bin/env bash
# The real game in a real window under Xvfb: it starts, shows a frame that is not black,
# clicks when a button is clicked (heard through SDL's disk audio driver), saves a new game
# through the real dialog and loads it back with the same party, walks into Genwood Forest
# and out through its entrance, comes back from full screen (Alt+Enter) at the window's
# own size, quits on F12 with exit code 0, and quits the same way when its close button is
# used. Under the sanitizers a leak makes the exit code fail (the system libraries' own are
# suppressed, see tests/sanitizer/lsan.supp).
# Usage: window-test.sh GAME CLOSE-WINDOW WORKDIR
set -uo pipefail
game="$1"
closer="$2"
work="$3"
mkdir -p "$work"
. "$(dirname "$0")/xvfb.sh"
start_xvfb
export XDG_DATA_HOME="$work/xdg"
rm -rf "$XDG_DATA_HOME"
export SDL_AUDIODRIVER=disk
export SDL_DISKAUDIOFILE="$work/audio.raw"

start_game "$game" -F
wait_for_picture
window=$(xdotool search --name '^Quarnwick$' | head -1)
xdotool windowfocus --sync "$window" 2>/dev/null || xdotool windowfocus "$window"

# Click the main menu's "Credits", at (320, 385) of the 640 x 480 frame, through the
# window's scale: the click sound must reach the sound device.
width=$(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p')
scale=$((width / 640))
[ "$scale" -ge 1 ] || fail "odd window width $width"
heard_before=$(tr -d '\000' <"$work/audio.raw" | wc -c)
xdotool mousemove --window "$window" $((320 * scale)) $((385 * scale)) click 1
sleep 1
heard=$(tr -d '\000' <"$work/audio.raw" | wc -c)
echo "audio bytes that are not zero: $heard_before before the click, $heard after"
[ "$heard" -gt "$heard_before" ] || fail "the click was not heard"

# A game saved through the real dialog, left, and loaded again shows the same party.
click() {
  xdotool mousemove --window "$window" $(($1 * scale)) $(($2 * scale)) click 1
  sleep "${3:-1}"
}
key() {
  xdotool key --window "$window" "$@"
  sleep 1
}
strip() {  # the party strip of the window, with the pointer parked above it
  xdotool mousemove --window "$window" $((600 * scale)) $((20 * scale))
  sleep 1
  import -window "$window" -crop "$((640 * scale))x$((105 * scale))+0+$((375 * scale))" +repage "$1"
}
click 320 382      # back from the credits
click 320 295 3    # Start New Game: the map fades in
strip "$work/strip-saved.png"
key Return         # the map's Options: the pause menu
click 320 325 2    # Save Game: the dialog
xdotool type --window "$window" --delay 50 wtest
key Return
[ -f "$XDG_DATA_HOME/quarnwick/saves/wtest.gam" ] || fail "the game was not saved"
[ "$(sed -n 3p "$XDG_DATA_HOME/quarnwick/saves/wtest.gam")" = Mookie ] || fail "the save does not hold Mookie"
key Return         # Options again
key Return         # Quit Game, back through the map
xdotool mousemove --window "$window" $((10 * scale)) $((10 * scale))
sleep 1
click 320 325 2    # Load Game: the dialog
xdotool type --window "$window" --delay 50 wtest
key Return
sleep 2
strip "$work/strip-loaded.png"
differing=$(compare -metric AE "$work/strip-saved.png" "$work/strip-loaded.png" null: 2>&1 || true)
echo "party strip pixels that differ after the load: $differing"
[ "$differing" = 0 ] || fail "the loaded game does not show the saved party"

# Into Genwood Forest, one step up the path with the arrow keys and back onto the
# entrance, which leads out again: the map shows its party strip once more.
click 320 242 2
# Waits up to ten seconds for the strip's place to differ from the map's (or, with
# "same", to equal it again); sets differing.
wait_strip() {
  for _ in $(seq 10); do
    strip "$work/strip-now.png"
    differing=$(compare -metric AE "$work/strip-loaded.png" "$work/strip-now.png" null: 2>&1 || true)
    if [ "$1" = same ]; then [ "$differing" = 0 ] && return; else [ "$differing" != 0 ] && return; fi
  done
}
wait_strip different
echo "pixels of the strip's place that differ in the maze: $differing"
[ "$differing" != 0 ] || fail "Genwood Forest did not open"
key Right
key Left
wait_strip same
echo "party strip pixels that differ after the walk: $differing"
[ "$differing" = 0 ] || fail "the walk did not lead back to the map"

# A resized window goes to full screen and back at its own size. (Without a window
# manager the full screen itself does not show; the way back is what is checked.)
size() { xdotool getwindowgeometry --shell "$window" | sed -n 's/^\(WIDTH\|HEIGHT\)=//p' | paste -sd x; }
xdotool windowsize --sync "$window" 900 400 2>/dev/null || xdotool windowsize "$window" 900 400
sleep 1
before=$(size)
key alt+Return
key alt+Return
after=$(size)
echo "window size $before, back from full screen $after"
[ "$before" = 900x400 ] || fail "the window could not be resized"
[ "$after" = "$before" ] || fail "back from full screen at $after instead of $before"

xdotool key --window "$window" F12
finish
[ "$code" = 0 ] || fail "F12 ended the game with exit code $code"

start_game "$game" -F
"$closer" Quarnwick || fail "could not close the window"
finish
[ "$code" = 0 ] || fail "closing the window ended the game with exit code $code"
echo "window test passed"
