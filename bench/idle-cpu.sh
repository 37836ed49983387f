#!/usr/bin/env bash
# The processor load of the whole game process (every thread) in a real window under
# Xvfb, ten seconds on each of three screens: the main menu (animated: sprites and
# sparks), the credits (still) and the world map (animated: the cloud). The loop sleeps
# until its next frame, a frame equal to the one shown is not sent, and of one that
# differs only the changed parts are; with a software rasteriser (as under Xvfb) they are
# written straight into the window's pixels. Expect well under 5 % of a core on each.
# Usage: bench/idle-cpu.sh [path/to/quarnwick] [window scale, 1 by default]
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
game="${1:-$root/build/release/quarnwick}"
scale="${2:-1}"
# A screen on which the window opens at that whole-number scale.
screen="$((640 * scale + 384))x$((480 * scale + 288))x24"
display=":$((90 + RANDOM % 9))"
Xvfb "$display" -screen 0 "$screen" -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
pid=
trap 'kill "$xvfb" 2>/dev/null || true; [ -n "$pid" ] && kill "$pid" 2>/dev/null || true' EXIT
sleep 1
export DISPLAY="$display"
SDL_AUDIODRIVER=dummy "$game" -F >/dev/null 2>&1 &
pid=$!
window=$(timeout 30 xdotool search --sync --name '^Quarnwick$' | head -1)
sleep 2  # start-up is not idle time
width=$(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p')
echo "window $width pixels wide: scale $((width / 640))"

ticks() { awk '{print $14 + $15}' "/proc/$pid/stat"; }
hz=$(getconf CLK_TCK)
measure() {
  local before after
  before=$(ticks)
  sleep 10
  after=$(ticks)
  awk -v a="$before" -v b="$after" -v hz="$hz" -v what="$1" \
    'BEGIN { printf "%-28s %.1f %% of a core\n", what ":", (b - a) / hz / 10 * 100 }'
}
click() {  # at a point of the 640 x 480 frame; the pointer is then parked in a corner
  xdotool mousemove --window "$window" $(($1 * width / 640)) $(($2 * width / 640)) click 1
  sleep 1
  xdotool mousemove --window "$window" 1 1
  sleep 2
}

measure "main menu (animated)"
click 320 385  # Credits
measure "credits (still)"
click 320 382  # back to the menu
click 320 295  # Start New Game: the map fades in
measure "world map (animated)"
