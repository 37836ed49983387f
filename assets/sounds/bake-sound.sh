#!/usr/bin/env bash
# Bakes one sound of the game from its source into a 16-bit PCM wave at 22050 Hz.
#
#   bake-sound.sh KIND SOURCE OUTPUT SCRATCH SOUNDFONT
#
# KIND says how the sound is made and how loud it ends up:
#   effect    a sox recipe (.sox), played once; its peak is set by an "@peak DB" line
#             (-4 dBFS when there is none)
#   ambience  a sox recipe (.sox) with an "@loop LENGTH CROSSFADE" line; made seamless;
#             RMS -24 dBFS
#   jingle    an ABC score (.abc), played once; RMS -18 dBFS
#   tune      an ABC score (.abc) with a "% @loop N bars" line; made seamless; RMS -18 dBFS
# A level set by the RMS never takes the peak above -1 dBFS: the sound is turned down
# instead. SCRATCH is a folder of this sound's own, emptied first. The same source always
# gives the same bytes: no dither, fixed random numbers, fixed synthesiser settings.
set -euo pipefail

rate=22050
[ $# -eq 5 ] || { echo "usage: bake-sound.sh KIND SOURCE OUTPUT SCRATCH SOUNDFONT" >&2; exit 2; }
kind=$1
source=$2
output=$3
scratch=$4
soundfont=$5

fail() {
  echo "bake-sound: ${source}: $*" >&2
  exit 1
}

# Every sox run: no dither, the same random numbers on each run, one thread. A clipped
# sample anywhere in the making stops the bake.
run_sox() {
  local log
  if ! log=$(sox -D -R --single-threaded -V2 "$@" 2>&1); then
    fail "sox $* failed: ${log}"
  fi
  if grep -qi "clipped" <<<"${log}"; then
    fail "sox $* clipped: ${log}"
  fi
  if [ -n "${log}" ]; then echo "${log}" >&2; fi
}

samples_of() { sox --i -s "$1"; }

seconds_to_samples() {
  awk -v s="$1" -v r=${rate} 'BEGIN { if (s !~ /^[0-9]*\.?[0-9]+$/) { print "bad"; exit } printf "%d", s * r + 0.5 }'
}

rm -rf "${scratch}"
mkdir -p "${scratch}" "$(dirname "${output}")"
source_abs=$(cd "$(dirname "${source}")" && pwd)/$(basename "${source}")
output_abs=$(cd "$(dirname "${output}")" && pwd)/$(basename "${output}")
cd "${scratch}"

# ---- Making: every kind ends with made.wav, 32-bit float at the game's rate.

loop_samples=0
crossfade_samples=0
peak_target=-4

make_from_recipe() {
  # One sox run per line, without the word "sox"; files named in it live in the scratch
  # folder; the last run writes out.wav. A line ending in "\" goes on on the next line.
  # "#" starts a comment line. "@loop LENGTH CROSSFADE" (seconds) asks for a loop,
  # "@peak DB" sets the peak of an effect.
  local line joined="" words
  local -a runs=()
  while IFS= read -r line || [ -n "${line}" ]; do
    line=${line%$'\r'}
    if [[ ${line} =~ ^[[:space:]]*# ]]; then continue; fi
    if [[ ${line} =~ \\[[:space:]]*$ ]]; then
      joined+="${line%\\*} "
      continue
    fi
    joined+="${line}"
    if [[ ${joined} =~ ^[[:space:]]*$ ]]; then joined=""; continue; fi
    runs+=("${joined}")
    joined=""
  done <"${source_abs}"
  [ -z "${joined}" ] || fail "the last line ends in a backslash"
  [ ${#runs[@]} -gt 0 ] || fail "no sox runs"

  for line in "${runs[@]}"; do
    read -ra words <<<"${line}"
    case "${words[0]}" in
      @loop)
        [ "${kind}" = ambience ] || fail "only an ambience loops: no '@loop' line"
        [ ${#words[@]} -eq 3 ] || fail "expected '@loop LENGTH CROSSFADE', got '${line}'"
        loop_samples=$(seconds_to_samples "${words[1]}")
        crossfade_samples=$(seconds_to_samples "${words[2]}")
        [ "${loop_samples}" != bad ] && [ "${crossfade_samples}" != bad ] ||
          fail "bad '${line}'"
        ;;
      @peak)
        [ "${kind}" = effect ] || fail "only an effect takes '@peak'"
        [ ${#words[@]} -eq 2 ] && [[ ${words[1]} =~ ^-[0-9]+(\.[0-9]+)?$ ]] ||
          fail "expected '@peak -DB', got '${line}'"
        peak_target=${words[1]}
        ;;
      @*) fail "unknown line '${line}'" ;;
      *) run_sox "${words[@]}" ;;
    esac
  done
  [ -f out.wav ] || fail "the recipe wrote no out.wav"
  run_sox out.wav -e floating-point -b 32 made.wav rate -v ${rate}
}

make_from_score() {
  local midi_log
  midi_log=$(abc2midi "${source_abs}" -o score.mid -silent 2>&1) || fail "abc2midi failed: ${midi_log}"
  if grep -qi "error\|warning" <<<"${midi_log}"; then fail "abc2midi: ${midi_log}"; fi
  [ -f score.mid ] || fail "abc2midi wrote no score.mid"
  # Fixed settings, one thread, float samples into a raw file (a float wave file from the
  # synthesiser carries a time stamp). Reverb on with a fixed room, chorus off.
  fluidsynth -n -i -q -F score.raw -T raw -O float -E little -r 44100 -g 0.5 -R 1 -C 0 \
    -o synth.reverb.room-size=0.45 -o synth.reverb.damp=0.4 -o synth.reverb.width=0.8 \
    -o synth.reverb.level=0.35 -o synth.polyphony=128 -o synth.cpu-cores=1 \
    "${soundfont}" score.mid </dev/null >/dev/null 2>fluidsynth.log ||
    fail "fluidsynth failed: $(cat fluidsynth.log)"
  run_sox -t raw -e floating-point -b 32 -c 2 -r 44100 -L score.raw -e floating-point -b 32 made.wav rate -v ${rate}

  local bars
  bars=$(sed -n 's/^%[[:space:]]*@loop[[:space:]]\+\([0-9]\+\)[[:space:]]\+bars\?[[:space:]]*$/\1/p' "${source_abs}" | head -n 1)
  if [ "${kind}" = tune ]; then
    [ -n "${bars}" ] || fail "a tune needs a '% @loop N bars' line"
    # The length of a bar from the meter M:a/b and the tempo Q:a/b=t (one of each).
    local meter tempo
    meter=$(sed -n 's/^M:[[:space:]]*\([0-9]\+\/[0-9]\+\).*/\1/p' "${source_abs}")
    tempo=$(sed -n 's/^Q:[[:space:]]*\([0-9]\+\/[0-9]\+=[0-9]\+\).*/\1/p' "${source_abs}")
    [ -n "${meter}" ] && [ "$(wc -l <<<"${meter}")" -eq 1 ] || fail "a tune needs exactly one M:a/b line"
    [ -n "${tempo}" ] && [ "$(wc -l <<<"${tempo}")" -eq 1 ] || fail "a tune needs exactly one Q:a/b=t line"
    loop_samples=$(awk -v m="${meter}" -v q="${tempo}" -v bars="${bars}" -v r=${rate} 'BEGIN {
      split(m, mm, "/"); split(q, qq, "[/=]")
      beats = (mm[1] / mm[2]) / (qq[1] / qq[2])
      exact = bars * beats * 60 / qq[3] * r
      if (exact != int(exact)) { print "fraction"; exit }
      printf "%d", exact }')
    [ "${loop_samples}" != fraction ] || fail "the loop is not a whole number of samples at ${rate} Hz: pick another tempo"
    # The notes must end where the loop does: the last note-off falls on the last bar line
    # (480 ticks a quarter note).
    local last_off expected_ticks
    last_off=$(mftext score.mid | awk '/Note off/ || (/Note on/ && /vol=0/) { sub("Time=", "", $1); if ($1 + 0 > t) t = $1 + 0 } END { print t + 0 }')
    expected_ticks=$(awk -v m="${meter}" -v bars="${bars}" 'BEGIN { split(m, mm, "/"); printf "%d", bars * mm[1] * 1920 / mm[2] }')
    [ "${last_off}" -le "${expected_ticks}" ] && [ "${last_off}" -gt "$((expected_ticks - 240))" ] ||
      fail "the notes end at tick ${last_off}, the ${bars} bars at tick ${expected_ticks}"
    # Wrap the ringing after the last bar (release and reverb) round onto the start, so that
    # the file played over and over sounds like the score played over and over.
    local total
    total=$(samples_of made.wav)
    [ "${total}" -gt "${loop_samples}" ] || fail "the rendering is shorter than the loop"
    run_sox made.wav head.wav trim 0 "${loop_samples}s"
    run_sox made.wav tail.wav trim "${loop_samples}s"
    [ "$(samples_of tail.wav)" -le "${loop_samples}" ] || fail "the ringing is longer than the loop"
    run_sox -m -v 1 head.wav -v 1 tail.wav -e floating-point -b 32 made.wav
  else
    [ -z "${bars}" ] || fail "a jingle plays once: no '% @loop' line"
    # Cut the ringing where it has fallen 45 dB below the peak and fade out its last
    # quarter second.
    run_sox made.wav trimmed.wav gain -n -1 reverse silence 1 0.01 -46d fade q 0.25 reverse
    mv trimmed.wav made.wav
  fi
}

case "${kind}" in
  effect | ambience) make_from_recipe ;;
  jingle | tune) make_from_score ;;
  *) fail "unknown kind '${kind}'" ;;
esac

# ---- Looping a recipe: the stretch behind the loop is faded into its start.

if [ "${kind}" = ambience ]; then
  [ "${loop_samples}" -gt 0 ] || fail "an ambience needs an '@loop LENGTH CROSSFADE' line"
  [ "${crossfade_samples}" -gt 0 ] && [ "${crossfade_samples}" -lt "${loop_samples}" ] ||
    fail "the crossfade must be shorter than the loop"
  need=$((loop_samples + crossfade_samples))
  [ "$(samples_of made.wav)" -ge "${need}" ] ||
    fail "out.wav must last the loop and the crossfade: $(samples_of made.wav) < ${need} samples"
  # Equal-power crossfade: the start fades in while what follows the loop fades out.
  run_sox made.wav start.wav trim 0 "${crossfade_samples}s" fade q "${crossfade_samples}s"
  run_sox made.wav behind.wav trim "${loop_samples}s" "${crossfade_samples}s" fade q 0 "${crossfade_samples}s" "${crossfade_samples}s"
  run_sox made.wav middle.wav trim "${crossfade_samples}s" "$((loop_samples - crossfade_samples))s"
  run_sox -m -v 1 start.wav -v 1 behind.wav -e floating-point -b 32 joined.wav
  run_sox joined.wav middle.wav -e floating-point -b 32 made.wav
fi

# ---- Level, then the file the game reads.

read -r peak rms < <(sox made.wav -n stats 2>&1 | awk '
  function whole() { return $(NF - (NF > 5 ? 2 : 0)) }
  index($0, "Pk lev dB") == 1 { p = whole() }
  index($0, "RMS lev dB") == 1 { r = whole() }
  END { print p, r }')
[[ ${peak} =~ ^-?[0-9.]+$ ]] || fail "silent (peak ${peak})"
case "${kind}" in
  effect) gain=$(awk -v p="${peak}" -v t="${peak_target}" 'BEGIN { printf "%.2f", t - p }') ;;
  ambience | jingle | tune)
    target=-18
    [ "${kind}" != ambience ] || target=-24
    gain=$(awk -v p="${peak}" -v r="${rms}" -v t="${target}" 'BEGIN {
      g = t - r; if (p + g > -1) g = -1 - p; printf "%.2f", g }') ;;
esac
run_sox made.wav -t wavpcm -e signed-integer -b 16 "${output_abs}" gain "${gain}"
