# Shared by the real-window tests: a virtual X display for the game, and the way a test
# fails. Source it with $work set to the test's work folder.
fail() { echo "${test_name:-window test}: $*" >&2; exit 1; }

# The player's settings of each test are its own, and start from the defaults.
export XDG_CONFIG_HOME="$work/config"
rm -rf "$XDG_CONFIG_HOME"

# Starts Xvfb and points DISPLAY at it; it is stopped when the test ends.
start_xvfb() {
  rm -f "$work/display"  # a number left by an earlier run is not this display's
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
  xvfb=$!
  trap 'kill "$xvfb" 2>/dev/null; kill "${pid:-}" 2>/dev/null' EXIT
  for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
  [ -s "$work/display" ] || fail "Xvfb did not start"
  export DISPLAY=":$(cat "$work/display")"
}

# Starts the game (the command and its arguments) in the background, sets pid, and waits
# for its window.
start_game() {
  "$@" >"$work/game.log" 2>&1 &
  pid=$!
  timeout 20 xdotool search --sync --name '^Quarnwick$' >/dev/null || fail "no window appeared"
  sleep 1.5
}

# Waits until the screen is not black (the first frame comes once start-up is through,
# slow under the sanitizers on a busy machine), up to half a minute; sets mean. With a
# number, waits until the mean brightness is above it (a menu that has faded in).
wait_for_picture() {
  local least="${1:-0.02}"
  mean=0
  for _ in $(seq 60); do
    import -window root "$work/screen.png" || fail "no screenshot"
    mean=$(convert "$work/screen.png" -format '%[fx:mean]' info:)
    awk -v m="$mean" -v l="$least" 'BEGIN { exit !(m > l) }' && break
    sleep 0.5
  done
  echo "mean brightness of the screen: $mean"
  awk -v m="$mean" -v l="$least" 'BEGIN { exit !(m > l) }' || fail "the screen is black"
}

# Waits for the game to end; sets code to its exit code.
finish() {
  for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
  kill -0 "$pid" 2>/dev/null && fail "the game did not end"
  wait "$pid"
  code=$?
}
