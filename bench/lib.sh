# shellcheck shell=bash
# Shared functions of the measuring scripts: starting the program, reading its output, turning its
# surface. Nothing polls, as that would disturb the measurement. To be sourced, not run. Sets
# `folder` (temporary files, removed at the end) and `pid`.

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

now() { date +%s%N; }
median() { sort -n | awk '{ t[NR] = $1 } END { print t[int((NR + 1) / 2)] }'; }
# sinceStart: milliseconds from `since` until now, with one decimal.
sinceStart() { awk -v ns=$(($(now) - since)) 'BEGIN { printf "%.1f\n", ns / 1e6 }'; }

# start PROGRAM...: runs it in the background; `since` is when it began.
start() {
  since=$(now)
  exec 3< <(exec "$@" 2> /dev/null)
  pid=$!
}
stop() {
  kill "$pid" 2> /dev/null || true
  wait "$pid" 2> /dev/null || true
}
# awaitLine SIGN: reads up to the next line that starts with SIGN and leaves it in `line`.
awaitLine() {
  while read -r line <&3; do
    [[ $line != "$1"* ]] || return 0
  done
  echo "the program ended without \"$1\"" >&2
  exit 1
}
# drain: discards the output up to now.
drain() { while read -r -t 0.3 line <&3; do :; done; }

frame='Drawing Time for HM Key: '

# turn: turns the surface continuously by mouse and prints the milliseconds between frames.
turn() {
  local window from mover count=0 moves=()
  for ((i = 0; i < 5000; ++i)); do
    moves+=(mousemove --window %1 "$((600 + 10 * (i % 16)))" 330 sleep 0.02)
  done
  window='^Morvane Reader Software$'
  xdotool search --onlyvisible --name "$window" mousemove --window %1 600 300 mousedown 1
  xdotool search --onlyvisible --name "$window" "${moves[@]}" &
  mover=$!
  awaitLine "$frame"
  awaitLine "$frame"
  from=$(now)
  while ((count < 5 || $(now) - from < 3000000000)); do
    awaitLine "$frame"
    count=$((count + 1))
  done
  awk -v ns=$(($(now) - from)) -v n="$count" 'BEGIN { printf "%.0f\n", ns / 1e6 / n }'
  kill "$mover"
  wait "$mover" 2> /dev/null || true
  xdotool mouseup 1
}
