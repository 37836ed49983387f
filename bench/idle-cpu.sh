#!/usr/bin/env bash
# The processor load of the game standing on its main menu in a real window under
# Xvfb, over ten seconds. The loop waits for its next frame instead of spinning, so the load
# stays a few percent at most.
# Usage: bench/idle-cpu.sh [path/to/quarnwick]
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
game="${1:-$root/build/release/quarnwick}"
display=":$((90 + RANDOM % 9))"
Xvfb "$display" -screen 0 1280x1024x24 >/dev/null 2>&1 &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null || true' EXIT
sleep 1
DISPLAY="$display" SDL_AUDIODRIVER=dummy "$game" -F >/dev/null 2>&1 &
pid=$!
sleep 2  # start-up is not idle time
ticks() { awk '{print $14 + $15}' "/proc/$pid/stat"; }
hz=$(getconf CLK_TCK)
before=$(ticks)
sleep 10
after=$(ticks)
kill "$pid"
wait "$pid" 2>/dev/null || true
awk -v a="$before" -v b="$after" -v hz="$hz" 'BEGIN { printf "idle processor load: %.1f %%\n", (b - a) / hz / 10 * 100 }'
