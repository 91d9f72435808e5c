#!/usr/bin/env bash
# Time from start to the first full frame of the program and of the bare one, in turn, medians:
# bench/first_frame.sh PROGRAM BARE_PROGRAM FILE [RUNS]. Needs a display.
set -euo pipefail
program=$1 bare=$2 file=$3 runs=${4:-7}

# Milliseconds from the start of a program until it prints a line that begins with $1.
until_line() {
  local sign=$1 start end line
  shift
  start=$(date +%s%N)
  exec 3< <(exec "$@" 2>/dev/null)
  local pid=$!
  while read -r line <&3; do
    [[ $line == "$sign"* ]] && break
  done
  end=$(date +%s%N)
  kill "$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
  echo $(((end - start) / 1000000))
}
median() { sort -n | awk '{ t[NR] = $1 } END { print t[int((NR + 1) / 2)] }'; }

times=() bare_times=()
for ((i = 0; i < runs; ++i)); do
  times+=("$(until_line 'Drawing Time for HM Key: ' "$program" "$file")")
  bare_times+=("$(until_line drawn "$bare" "$file")")
done
a=$(printf '%s\n' "${times[@]}" | median)
b=$(printf '%s\n' "${bare_times[@]}" | median)
echo "start to first frame: $a ms, bare program: $b ms (medians of $runs)"
