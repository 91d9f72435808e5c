#!/bin/bash
# Renders every picture of the program from the SVG sources beside this script.
#   resources/art/render.sh [folder]     default: the resources folder itself
# Needs rsvg-convert (Debian: librsvg2-bin). No font is involved: all letters are strokes.
set -euo pipefail

case ${1-} in -h | --help) sed -n '2,4s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; exit 0 ;; esac
art=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
target=${1:-$art/..}

# picture (under the target folder)                source            width height
table='
Icons/3D.png                                       3D.svg               40     36
Icons/MRV3ico.png                                  MRV3ico.svg          64     64
Icons/auto.png                                     auto.svg             40     36
Icons/crop.png                                     crop.svg             40     36
Icons/hmOff.png                                    hmOff.svg            40     36
Icons/hmOn.png                                     hmOn.svg             40     36
Icons/ico2d.png                                    ico2d.svg            40     36
Icons/ico3d.png                                    ico3d.svg            40     36
Icons/info.png                                     info.svg             40     36
Icons/minus.png                                    minus.svg            18     18
Icons/noProfile.png                                noProfile.svg        40     36
Icons/open.png                                     open.svg             40     36
Icons/pdf.png                                      pdf.svg              40     36
Icons/plus.png                                     plus.svg             18     18
Icons/points.png                                   points.svg           40     36
Icons/profiler.png                                 profiler.svg         40     36
Icons/reset.png                                    reset.svg            40     36
Icons/swapPins.png                                 swapPins.svg         40     36
Icons/wsa.png                                      wsa.svg              60     30
Logos/CX-Logo-white.png                            wordmark.svg       1000    120
Logos/CX-Logo-white150-40.png                      maker.svg           150     40
Logos/Morvane-RS-150x40px_REVERSED.png             product.svg         150     40
Logos/PNG/Morvane-Reader-Software-REVERSED.png     about.svg           760    230
'

while read -r picture source width height; do
  [[ -n $picture ]] || continue
  mkdir -p "$(dirname "$target/$picture")"
  rsvg-convert --width "$width" --height "$height" --output "$target/$picture" "$art/$source"
done <<<"$table"
