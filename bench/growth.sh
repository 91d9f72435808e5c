#!/usr/bin/env bash
# How time and memory grow with the points: bench/growth.sh PROGRAM MAKE_GRID [RUNS]. For squares of
# 250 to 4000 points a side: from start to the whole picture (median), memory held by then and at its
# peak; last the straight lines through them. Needs a display with a window manager and 4 GB of
# memory.
set -euo pipefail

case ${1-} in -h | --help) sed -n '2,5s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; exit 0 ;; esac

program=$1 make_grid=$2 runs=${3:-3}
# shellcheck source=bench/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# memory NAME: a value of the program's /proc status, in millions of bytes.
memory() { awk -v name="$1:" '$1 == name { printf "%.1f", $2 * 1024 / 1e6 }' "/proc/$pid/status"; }

# measure SIDE SIGN [FILE]: prints points, milliseconds until the line that starts with SIGN, memory
# held by then and memory at the peak.
measure() {
  local side=$1 sign=$2 times=() held peak
  shift 2
  for ((i = 1; i <= runs; ++i)); do
    start "$program" "$@"
    awaitLine "$sign"
    times+=("$(sinceStart)")
    ((i == runs)) || stop
  done
  sleep 2  # the program returns spare memory soon after the picture
  held=$(memory VmRSS) peak=$(memory VmHWM)
  stop
  echo "$((side * side)) $(printf '%s\n' "${times[@]}" | median) $held $peak"
}

echo "points, ms to the whole picture, MB held, MB at the peak"
measure 0 'Display MRV3'  # an empty window
for side in 250 500 1000 2000 4000; do
  "$make_grid" "$side" "$folder/grid.res"
  measure "$side" "$whole" "$folder/grid.res" | tee -a "$folder/table"
done
awk '
  { n++; x[n] = $1 / 1e6; for (k = 2; k <= 4; ++k) y[n, k] = $k }
  END {
    split(",ms to the whole picture,MB held,MB at the peak", name, ",")
    for (k = 2; k <= 4; ++k) {
      sx = sy = sxx = sxy = 0
      for (i = 1; i <= n; ++i) { sx += x[i]; sy += y[i, k]; sxx += x[i] ^ 2; sxy += x[i] * y[i, k] }
      slope = (n * sxy - sx * sy) / (n * sxx - sx ^ 2)
      printf("%s: %.4g + %.4g for each million points\n", name[k], (sy - slope * sx) / n, slope)
    }
  }' "$folder/table"
