#!/usr/bin/env bash
# The command line on 100 files of 500² points and two cores: bench/batch.sh PROGRAM MAKE_GRID. Time
# and processor time of a hundred reports, and of the same files without a picture; processor time
# of a thumbnail of 1000² points. With perf installed: the share of OpenGL in the reports.
set -euo pipefail

case ${1-} in -h | --help) sed -n '2,4s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; exit 0 ;; esac

program=$1 make_grid=$2
# shellcheck source=bench/lib.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
TIMEFORMAT='%R %U %S'

# timed COMMAND...: prints its seconds, and its seconds of processor time.
timed() {
  { time taskset -c 0,1 "$@" > /dev/null; } 2>&1 | awk '{ printf "%.2f %.2f\n", $1, $2 + $3 }'
}
thumbnail() {
  timed "$program" "$folder/1000.res" --picture - --size 256x256 --zoom fit --no-key --no-axes
}
# driverShare: the percentage of perf's samples that are in OpenGL and in code that it compiled.
driverShare() {
  perf report -i "$folder/perf" --no-children --sort dso -g none 2> /dev/null |
    awk '/_dri|gallium|LLVM|\[JIT\]/ { sum += $1 } END { printf "%.0f %%\n", sum }'
}

"$make_grid" 500 "$folder/500.res"
"$make_grid" 1000 "$folder/1000.res"
for i in {001..100}; do cp "$folder/500.res" "$folder/m$i.res"; done
files=("$folder"/m*.res)
reports=("$program" "${files[@]}" --report "$folder/{name}.pdf" --force)

echo "seconds, seconds of processor time"
echo "100 reports of 500²:       $(timed "${reports[@]}")"
echo "header and results of 100: $(timed "$program" "${files[@]}" --info)"
echo "thumbnail of 1000²:        $(for _ in {1..5}; do thumbnail; done | sort -n | sed -n 3p)"
if perf record -o "$folder/perf" -F 499 -- "${reports[@]}" > /dev/null 2>&1; then
  echo "OpenGL in the reports:     $(driverShare)"
fi
