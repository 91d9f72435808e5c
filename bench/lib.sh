# shellcheck shell=bash
# Shared functions of the measuring scripts: starting the program, reading its output. Nothing polls,
# as that would disturb the measurement. To be sourced, not run. Sets `folder` (temporary files,
# removed at the end) and `pid`.

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

now() { date +%s%N; }
median() { sort -n | awk '{ t[NR] = $1 } END { print t[int((NR + 1) / 2)] }'; }
# sinceStart: milliseconds from `since` until now, with one decimal.
sinceStart() { awk -v ns=$(($(now) - since)) 'BEGIN { printf "%.1f\n", ns / 1e6 }'; }

# start PROGRAM...: runs it in the background and lets it report its frames; `since` is when it began.
start() {
  since=$(now)
  exec 3< <(exec env MORVANE_CHECK_GL=1 "$@" 2>&1)
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
# drain: discards the output until none comes for 2 seconds, so that no frame is left to be drawn.
drain() { while read -r -t 2 line <&3; do :; done; }

# What the program prints when a frame with all points of the surface is on the screen. Large surfaces
# are drawn with fewer points first.
# shellcheck disable=SC2034  # for the scripts that source this
whole='frame: whole'
