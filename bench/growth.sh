#!/usr/bin/env bash
# How time and memory grow with the points: bench/growth.sh PROGRAM MAKE_GRID [RUNS]. For squares of
# 250 to 4000 points a side: from start to the first full frame, from frame to frame while the
# surface is turned by mouse (medians), memory held and at its peak; last the straight lines through
# them. Needs a display with a window manager, xdotool and 4 GB of memory.
set -euo pipefail

case ${1-} in -h | --help) sed -n '2,5s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; exit 0 ;; esac

program=$1 make_grid=$2 runs=${3:-3}
# shellcheck source=bench/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# memory NAME: a value of the program's /proc status, in millions of bytes.
memory() { awk -v name="$1:" '$1 == name { printf "%.1f", $2 * 1024 / 1e6 }' "/proc/$pid/status"; }

# measure SIDE SIGN [FILE]: prints points, milliseconds to the first frame, milliseconds of a frame,
# memory held and memory at the peak.
measure() {
  local side=$1 sign=$2 first=() frames=0 held peak
  shift 2
  for ((i = 1; i <= runs; ++i)); do
    start "$program" "$@"
    awaitLine "$sign"
    first+=("$(sinceStart)")
    ((i == runs)) || stop
  done
  sleep 2
  held=$(memory VmRSS) peak=$(memory VmHWM)
  ((side == 0)) || frames=$(turn)
  stop
  echo "$((side * side)) $(printf '%s\n' "${first[@]}" | median) $frames $held $peak"
}

echo "points, ms to the first frame, ms a frame, MB held, MB at the peak"
measure 0 'Display MRV3'
for side in 250 500 1000 2000 4000; do
  "$make_grid" "$side" "$folder/grid.res"
  measure "$side" "$frame" "$folder/grid.res" | tee -a "$folder/table"
done
awk '
  { n++; x[n] = $1 / 1e6; for (k = 2; k <= 5; ++k) y[n, k] = $k }
  END {
    split(",first frame ms,frame ms,MB held,MB at the peak", name, ",")
    for (k = 2; k <= 5; ++k) {
      sx = sy = sxx = sxy = 0
      for (i = 1; i <= n; ++i) { sx += x[i]; sy += y[i, k]; sxx += x[i] ^ 2; sxy += x[i] * y[i, k] }
      slope = (n * sxy - sx * sy) / (n * sxx - sx ^ 2)
      printf("%s: %.4g + %.4g for each million points\n", name[k], (sy - slope * sx) / n, slope)
    }
  }' "$folder/table"
