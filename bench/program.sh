#!/usr/bin/env bash
# What an operator waits for, beside a bare program that uploads and draws the same arrays and does
# nothing else: bench/program.sh PROGRAM BARE_VIEW MAKE_GRID [RUNS]. Medians, in milliseconds. Needs
# a display with a window manager, xdotool and xprop, and 4 GB of memory.
set -euo pipefail

case ${1-} in -h | --help) sed -n '2,4s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; exit 0 ;; esac

program=$1 bare=$2 make_grid=$3 runs=${4:-5}
# shellcheck source=bench/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# row FIGURE VALUE [FLOOR]
row() {
  awk -v figure="$1" -v value="$2" -v floor="${3:-0}" 'BEGIN {
    if (floor > 0) printf("%-30s %9.1f %9.1f %6.2f\n", figure, value, floor, value / floor)
    else printf("%-30s %9.1f\n", figure, value)
  }'
}
# untilLine SIGN PROGRAM...: milliseconds from the start until a line that starts with SIGN.
untilLine() {
  local sign=$1
  shift
  start "$@"
  awaitLine "$sign"
  sinceStart
  stop
}
# repeated FUNCTION...: the median of `runs` results.
repeated() { for ((i = 0; i < runs; ++i)); do "$@"; done | median; }

mainWindow() { xdotool search --onlyvisible --name '^Morvane Reader Software$' | tail -1; }
windows() { xprop -root _NET_CLIENT_LIST | grep -o 0x | wc -l; }

# From the press on the report button until the file chooser is shown.
report() {
  local window count
  start "$program" "$1"
  awaitLine "$whole"
  sleep 1
  window=$(mainWindow) count=$(windows)
  xdotool mousemove --window "$window" 77 484
  sleep 0.5
  since=$(now)
  xdotool click 1
  until (($(windows) > count)); do :; done
  sinceStart
  stop
}
# From the press on "Apply" until the whole filtered surface is shown.
apply() {
  local window filter
  start env MORVANE_MENU=full "$program" "$1"
  awaitLine "$whole"
  sleep 1
  window=$(mainWindow)
  # Tools, Filter
  xdotool mousemove --window "$window" 215 12 click 1 sleep 0.5
  xdotool mousemove --window "$window" 235 37 sleep 0.2 click 1
  filter=$(xdotool search --sync --onlyvisible --name '^Filter Window$' | tail -1)
  sleep 1
  xdotool mousemove --window "$filter" 42 165 click 1 mousemove --window "$filter" 100 245 click 1
  xdotool key ctrl+a type 0.8
  xdotool mousemove --window "$filter" 110 365
  drain
  since=$(now)
  xdotool click 1
  awaitLine "$whole"
  sinceStart
  stop
}

for side in 1000 4000; do "$make_grid" "$side" "$folder/$side.res"; done
printf '%-30s %9s %9s %6s\n' "milliseconds" "program" "bare" "ratio"
row "start without a file" "$(repeated untilLine 'Display MRV3' "$program")" \
  "$(repeated untilLine shown "$bare")"
for side in 1000 4000; do
  row "start to whole picture, $side²" "$(repeated untilLine "$whole" "$program" "$folder/$side.res")" \
    "$(repeated untilLine drawn "$bare" "$folder/$side.res")"
done
row "report to chooser, 1000²" "$(repeated report "$folder/1000.res")"
row "Apply to whole picture, 1000²" "$(repeated apply "$folder/1000.res")"
