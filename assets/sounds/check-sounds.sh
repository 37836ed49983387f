#!/usr/bin/env bash
# Checks every sound that the manifests list, as baked into DAT:
#
#   check-sounds.sh DAT MANIFEST...
#
# - a plain 44-byte RIFF/WAVE header: PCM, 16 bits, 1 or 2 channels, 22050 Hz, the sizes
#   agreeing with the file's;
# - a length between the manifest's SHORTEST and LONGEST seconds;
# - not silent, not clipped, and the level of its kind: an effect peaks between -7 and
#   -2.5 dBFS, a jingle or tune has an RMS of -18 dBFS, an ambience of -24 dBFS (within
#   3 dB, since a loud peak may hold a sound down);
# - a looping sound (ambience, tune) joins its end to its start without a click: the step
#   from the last frame to the first is no bigger than the steps inside the sound, and the
#   level just before the join is close to the level just after it.
# Prints one line per fault and exits 1 when there is any.
set -uo pipefail

[ $# -ge 2 ] || { echo "usage: check-sounds.sh DAT MANIFEST..." >&2; exit 2; }
dat=$1
shift
rate=22050
faults=0
checked=0

fault() {
  echo "FAULT ${output}: $*"
  faults=$((faults + 1))
}

# The first 44 bytes of the file being checked, as numbers.
header=()
read_header() { read -ra header <<<"$(od -An -v -t u1 -N 44 "$1" | tr '\n' ' ')"; }
# Little-endian unsigned integer of SIZE bytes at OFFSET of the header.
le() {
  local value=0 i
  for ((i = $2 + $3 - 1; i >= $2; i--)); do value=$((value * 256 + header[i])); done
  echo "${value}"
}
# The four bytes at OFFSET of the header as text (non-letters as ".").
text_at() {
  local text="" i byte octal char
  for ((i = $2; i < $2 + 4; i++)); do
    byte=${header[i]}
    if [ "${byte}" -ge 32 ] && [ "${byte}" -lt 127 ]; then
      printf -v octal '%03o' "${byte}"
      printf -v char "\\${octal}"
      text+=${char}
    else
      text+="."
    fi
  done
  echo "${text}"
}

# One field of "sox FILE -n stats" (the whole-file column).
stat_of() {
  sox "$1" -n stats 2>&1 | awk -v name="$2" 'index($0, name) == 1 { print $(NF - (NF > 5 ? 2 : 0)); exit }'
}


check_loop() {
  local file=$1 channels=$2 seconds=$3 frames=$4
  # The join: the last half second followed by the first, and in it the step from the last
  # frame to the first against the other steps around it.
  local near=$((rate / 2)) verdict
  [ "${near}" -le "${frames}" ] || near=${frames}
  verdict=$({
    sox "${file}" -t raw -e signed-integer -b 16 -L - trim "$((frames - near))s"
    sox "${file}" -t raw -e signed-integer -b 16 -L - trim 0 "${near}s"
  } | od -An -v -t d2 --endian=little -w$((channels * 2)) |
    awk -v c="${channels}" -v at="$((near + 1))" '
      NR > 1 {
        for (i = 1; i <= c; i++) {
          d = $i - last[i]; if (d < 0) d = -d
          if (NR == at) { if (d > join) join = d } else { sum += d * d; n++; if (d > big) big = d }
        }
      }
      { for (i = 1; i <= c; i++) last[i] = $i }
      END {
        step = n > 0 ? sqrt(sum / n) : 0
        # A click is a step far above the usual ones.
        limit = 4 * step + 30
        printf "%s %d %.1f %d\n", (join <= limit ? "ok" : "click"), join, step, big }')
  local state join step big
  read -r state join step big <<<"${verdict}"
  if [ "${state}" != ok ]; then
    fault "the loop clicks: a step of ${join} at the join, ${step} on average around it (largest ${big})"
  fi
  # The level just before the join against just after it (the last and first 0.1 s).
  local window=0.1 before after
  before=$(sox "${file}" -n trim "$(awk -v s="${seconds}" -v w=${window} 'BEGIN { print s - w }')" stats 2>&1 |
    awk 'index($0, "RMS lev dB") == 1 { print $4; exit }')
  after=$(sox "${file}" -n trim 0 ${window} stats 2>&1 | awk 'index($0, "RMS lev dB") == 1 { print $4; exit }')
  if ! awk -v a="${before}" -v b="${after}" 'BEGIN { d = a - b; if (d < 0) d = -d; exit !(a ~ /^-?[0-9.]+$/ && b ~ /^-?[0-9.]+$/ && d <= 9) }'; then
    fault "the level jumps at the join: ${before} dB before, ${after} dB after"
  fi
}

for manifest in "$@"; do
  [ -f "${manifest}" ] || { echo "FAULT: no manifest ${manifest}"; exit 1; }
  while IFS= read -r line || [ -n "${line}" ]; do
    read -ra fields <<<"${line}"
    [ ${#fields[@]} -eq 0 ] && continue
    [[ ${fields[0]} == \#* ]] && continue
    output=${fields[0]}
    if [ ${#fields[@]} -ne 5 ]; then fault "expected OUTPUT KIND SOURCE SHORTEST LONGEST in ${manifest}"; continue; fi
    kind=${fields[1]}
    shortest=${fields[3]}
    longest=${fields[4]}
    file=${dat}/${output}
    faults_before=${faults}
    checked=$((checked + 1))
    if [ ! -f "${file}" ]; then
      fault "missing (${file})"
      continue
    fi
  
    size=$(stat -c %s "${file}")
    if [ "${size}" -lt 46 ]; then fault "only ${size} bytes"; continue; fi
    read_header "${file}"
    header_ok=1
    [ "$(text_at "${file}" 0)" = RIFF ] || { fault "no RIFF"; header_ok=0; }
    [ "$(text_at "${file}" 8)" = WAVE ] || { fault "no WAVE"; header_ok=0; }
    [ "$(text_at "${file}" 12)" = "fmt " ] || { fault "no fmt chunk at byte 12"; header_ok=0; }
    [ "$(text_at "${file}" 36)" = data ] || { fault "no data chunk at byte 36 (not a plain 44-byte header)"; header_ok=0; }
    [ ${header_ok} -eq 1 ] || continue
    [ "$(le "${file}" 4 4)" -eq $((size - 8)) ] || fault "RIFF size $(le "${file}" 4 4), file ${size} bytes"
    [ "$(le "${file}" 16 4)" -eq 16 ] || fault "fmt chunk of $(le "${file}" 16 4) bytes, not 16"
    [ "$(le "${file}" 20 2)" -eq 1 ] || fault "format $(le "${file}" 20 2), not PCM"
    channels=$(le "${file}" 22 2)
    [ "${channels}" -eq 1 ] || [ "${channels}" -eq 2 ] || fault "${channels} channels"
    [ "$(le "${file}" 24 4)" -eq ${rate} ] || fault "rate $(le "${file}" 24 4), not ${rate}"
    [ "$(le "${file}" 28 4)" -eq $((rate * channels * 2)) ] || fault "byte rate $(le "${file}" 28 4)"
    [ "$(le "${file}" 32 2)" -eq $((channels * 2)) ] || fault "block size $(le "${file}" 32 2)"
    [ "$(le "${file}" 34 2)" -eq 16 ] || fault "$(le "${file}" 34 2) bits, not 16"
    data=$(le "${file}" 40 4)
    [ "${data}" -eq $((size - 44)) ] || fault "data size ${data}, file ${size} bytes"
    [ $((data % (channels * 2))) -eq 0 ] || fault "data size ${data} is not whole frames"
  
    seconds=$(awk -v d="${data}" -v c="${channels}" -v r=${rate} 'BEGIN { printf "%.4f", d / (c * 2) / r }')
    awk -v s="${seconds}" -v lo="${shortest}" -v hi="${longest}" 'BEGIN { exit !(s >= lo && s <= hi) }' ||
      fault "lasts ${seconds} s, not ${shortest} to ${longest} s"
  
    peak=$(stat_of "${file}" "Pk lev dB")
    rms=$(stat_of "${file}" "RMS lev dB")
    if ! [[ ${peak} =~ ^-?[0-9.]+$ && ${rms} =~ ^-?[0-9.]+$ ]]; then
      fault "silent (peak ${peak}, RMS ${rms})"
      continue
    fi
    awk -v p="${peak}" 'BEGIN { exit !(p <= -0.9) }' || fault "clipped or nearly: peak ${peak} dBFS"
    awk -v p="${peak}" 'BEGIN { exit !(p >= -30) }' || fault "nearly silent: peak ${peak} dBFS"
    case "${kind}" in
      effect)
        awk -v p="${peak}" 'BEGIN { exit !(p >= -7 && p <= -2.5) }' || fault "an effect peaking at ${peak} dBFS" ;;
      jingle | tune)
        awk -v r="${rms}" 'BEGIN { exit !(r >= -21 && r <= -15) }' || fault "RMS ${rms} dBFS, not about -18" ;;
      ambience)
        awk -v r="${rms}" 'BEGIN { exit !(r >= -27 && r <= -21) }' || fault "RMS ${rms} dBFS, not about -24" ;;
      *) fault "unknown kind '${kind}'" ;;
    esac
    case "${kind}" in
      ambience | tune) check_loop "${file}" "${channels}" "${seconds}" "$((data / (channels * 2)))" ;;
    esac
    [ ${faults} -gt ${faults_before} ] ||
      echo "ok ${output}: ${seconds} s, ${channels} ch, peak ${peak} dBFS, RMS ${rms} dBFS"
  done <"${manifest}"
done

if [ ${checked} -eq 0 ]; then
  echo "FAULT: the manifest lists no sounds"
  exit 1
fi
if [ ${faults} -gt 0 ]; then
  echo "${faults} faults in ${checked} sounds"
  exit 1
fi
echo "all ${checked} sounds are fine"
