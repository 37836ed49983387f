#!/usr/bin/env bash
# Tests check-sounds.sh: sound files made here with sox, each with one fault, must be turned
# down with the fault named; good ones must pass.
#
#   test-check-sounds.sh CHECK SCRATCH
set -uo pipefail

[ $# -eq 2 ] || { echo "usage: test-check-sounds.sh CHECK SCRATCH" >&2; exit 2; }
check=$1
scratch=$2
rm -rf "${scratch}"
mkdir -p "${scratch}/dat"
cd "${scratch}"
failures=0

make() {
  local name=$1
  shift
  sox -D -R -V1 "$@" 2>/dev/null || { echo "could not make ${name}"; exit 1; }
}

# expect NAME KIND SHORTEST LONGEST PASS|"FAULT TEXT"
expect() {
  local name=$1 kind=$2 shortest=$3 longest=$4 wanted=$5 log status
  echo "${name}.wav ${kind} unused.sox ${shortest} ${longest}" >"${name}.manifest"
  log=$(bash "${check}" dat "${name}.manifest" 2>&1)
  status=$?
  if [ "${wanted}" = PASS ]; then
    if [ ${status} -ne 0 ]; then
      echo "FAIL ${name}: a good file was turned down:"
      echo "${log}"
      failures=$((failures + 1))
      return
    fi
  elif [ ${status} -eq 0 ] || ! grep -q -- "FAULT ${name}.wav: ${wanted}" <<<"${log}"; then
    echo "FAIL ${name}: expected the fault '${wanted}', got (exit ${status}):"
    echo "${log}"
    failures=$((failures + 1))
    return
  fi
  echo "ok ${name}"
}

plain=(-t wavpcm -e signed-integer -b 16)

make good-effect -n -r 22050 -c 1 "${plain[@]}" dat/good-effect.wav synth 0.1 sine 500 fade q 0.01 0.1 0.05 gain -4
expect good-effect effect 0.03 0.3 PASS
# 441 Hz at 22050 Hz is exactly 50 samples a cycle: the loop joins cleanly.
make good-loop -n -r 22050 -c 2 "${plain[@]}" dat/good-loop.wav synth 5 sine 441 sine 882 gain -21
expect good-loop ambience 4 6 PASS
make good-tune -n -r 22050 -c 2 "${plain[@]}" dat/good-tune.wav synth 5 sine 441 gain -15
expect good-tune tune 4 6 PASS

make rate -n -r 44100 -c 1 "${plain[@]}" dat/rate.wav synth 0.1 sine 500 gain -4
expect rate effect 0.03 0.3 "rate 44100, not 22050"
make eight-bit -n -r 22050 -c 1 -t wavpcm -e unsigned-integer -b 8 dat/eight-bit.wav synth 0.1 sine 500 gain -4
expect eight-bit effect 0.03 0.3 "8 bits, not 16"
make float -n -r 22050 -c 1 -t wav -e floating-point -b 32 dat/float.wav synth 0.1 sine 500 gain -4
expect float effect 0.03 0.3 "no data chunk at byte 36"
make three -n -r 22050 -c 3 "${plain[@]}" dat/three.wav synth 0.1 sine 500 gain -4
expect three effect 0.03 0.3 "3 channels"
cp dat/good-effect.wav dat/rifx.wav
printf 'RIFX' | dd of=dat/rifx.wav bs=1 seek=0 conv=notrunc status=none
expect rifx effect 0.03 0.3 "no RIFF"
cp dat/good-effect.wav dat/cut.wav
truncate -s -100 dat/cut.wav
expect cut effect 0.03 0.3 "data size"
expect missing effect 0.03 0.3 "missing"
make silent -n -r 22050 -c 1 "${plain[@]}" dat/silent.wav trim 0 0.1
expect silent effect 0.03 0.3 "silent"
make clipped -n -r 22050 -c 1 "${plain[@]}" dat/clipped.wav synth 0.1 sine 500 gain 3
expect clipped effect 0.03 0.3 "clipped"
make long -n -r 22050 -c 1 "${plain[@]}" dat/long.wav synth 0.5 sine 500 gain -4
expect long effect 0.03 0.3 "lasts 0.5000 s, not 0.03 to 0.3 s"
make quiet-effect -n -r 22050 -c 1 "${plain[@]}" dat/quiet-effect.wav synth 0.1 sine 500 gain -12
expect quiet-effect effect 0.03 0.3 "an effect peaking at -12"
make loud-tune -n -r 22050 -c 2 "${plain[@]}" dat/loud-tune.wav synth 5 square 441 gain -4
expect loud-tune tune 4 6 "RMS -4"
# A quarter of a cycle short of whole: the end stops at a crest, the start is at zero.
make click -n -r 22050 -c 2 "${plain[@]}" dat/click.wav synth 5 sine 441 trim 0 110237s gain -21
expect click ambience 4 6 "the loop clicks"
make faded -n -r 22050 -c 2 "${plain[@]}" dat/faded.wav synth 5 pinknoise gain -21 fade t 0 5 1
expect faded ambience 4 6 "the level jumps at the join"

if [ ${failures} -gt 0 ]; then
  echo "${failures} cases failed"
  exit 1
fi
echo "the check turns down every fault"
