#!/usr/bin/env bash
# How time and memory grow with the points: bench/growth.sh PROGRAM MAKE_GRID [RUNS]. For squares of
# 250 to 4000 points a side: from start to the first full frame, a frame while the surface is turned
# by mouse (medians), memory held and at its peak; last the straight lines through them. Needs a
# display and xdotool, and 4 GB of memory.
set -euo pipefail
program=$1 make_grid=$2 runs=${3:-3}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

median() { sort -n | awk '{ t[NR] = $1 } END { print t[int((NR + 1) / 2)] }'; }
memory() { awk -v name="$2:" '$1 == name { print $2 }' "/proc/$1/status"; }

# Turns the surface by mouse and prints what its frames took, in milliseconds.
turn() {
  local window x y before
  window=$(xdotool search --onlyvisible --name '^Morvane Reader Software$' | tail -1)
  eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^[XY]=' | sed 's/^X/x/; s/^Y/y/')"
  before=$(wc -l < "$folder/log")
  xdotool mousemove $((x + 600)) $((y + 300)) mousedown 1
  for i in 1 2 3 4 5 6; do
    xdotool mousemove $((x + 600 + 30 * i)) $((y + 300 + 10 * i))
    sleep "$1"
  done
  xdotool mouseup 1
  tail -n "+$((before + 1))" "$folder/log" |
    sed -n 's/^Drawing Time for HM Key: \(.*\) milliseconds/\1/p' | median
}

# Starts the program on a file, or on none, and prints: points, milliseconds to the first frame,
# milliseconds of a frame, kilobytes held, kilobytes at the peak.
measure() {
  local side=$1 start first=() frame=0
  shift
  for ((i = 0; i < runs; ++i)); do
    start=$(date +%s%N)
    "$program" "$@" > "$folder/log" 2>&1 &
    pid=$!
    until grep -q "${sign:-^Drawing Time for HM Key: }" "$folder/log"; do sleep 0.005; done
    first+=($((($(date +%s%N) - start) / 1000000)))
    ((i < runs - 1)) && { kill "$pid"; wait "$pid" 2> "$folder/end" || true; }
  done
  sleep 2
  held=$(memory "$pid" VmRSS) peak=$(memory "$pid" VmHWM)
  ((side > 0)) && frame=$(turn "$(awk -v s="$side" 'BEGIN { print 0.3 + s / 1500 }')")
  kill "$pid"
  wait "$pid" 2> "$folder/end" || true
  echo "$((side * side)) $(printf '%s\n' "${first[@]}" | median) $frame $held $peak"
}

echo "points, ms to the first frame, ms a frame, kB held, kB at the peak"
sign='^Display MRV3' measure 0 | tee "$folder/none"
for side in 250 500 1000 2000 4000; do
  "$make_grid" "$side" "$folder/grid.res"
  measure "$side" "$folder/grid.res" | tee -a "$folder/table"
done
awk '
  { n++; x[n] = $1; for (k = 2; k <= 5; ++k) y[n, k] = $k }
  END {
    split(",first frame ms,frame ms,bytes held,bytes at the peak", name, ",")
    for (k = 2; k <= 5; ++k) {
      sx = sy = sxx = sxy = 0
      unit = (k > 3) ? 1024 : 1
      for (i = 1; i <= n; ++i) { sx += x[i]; sy += unit * y[i, k]; sxx += x[i] ^ 2; sxy += x[i] * unit * y[i, k] }
      slope = (n * sxy - sx * sy) / (n * sxx - sx ^ 2)
      base = (sy - slope * sx) / n
      bytes = (k > 3)
      printf("%s: %.4g + %.4g for each %s\n", name[k], base, bytes ? slope : slope * 1e6, bytes ? "point" : "million points")
    }
  }' "$folder/table"
