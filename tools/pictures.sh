#!/usr/bin/env bash
# Makes the pictures in docs/pictures anew: a sheet of either size, and the desktop program, an
# English and a Chinese set of what has words of the program's own in it.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
cmake --build "$build" --target desk_pictures grdx
pictures=$PWD/docs/pictures
chinese=$(mktemp -d)
trap 'rm -rf "$chinese"' EXIT
LC_ALL=C.UTF-8 GRDX_PICTURES=$pictures "$build/bin/desk_pictures" --gtest_brief
LC_ALL=zh_CN.UTF-8 GRDX_PICTURES=$chinese "$build/bin/desk_pictures" --gtest_brief
for picture in desk-sheet desk-grips; do
    mv "$chinese/$picture.png" "$pictures/$picture-zh.png"
done
sheet() { # NAME STANDARD-CODE
    local suite=$chinese/$1
    "$build/bin/grdx" new "$suite" --number 2026-017 --name "滨江新城一期岩土工程勘察" --code "$2"
    "$build/bin/grdx" import samples samples/samples.csv -s "$suite"
    "$build/bin/grdx" draw samples -s "$suite" --borehole ZK3 --all --unit "滨江岩土试验室" \
        --tester "王工" --checker "李工" --date 2026-05-20 --outer-frame --right-axis | sed -n 1p |
        xargs -I{} "$build/bin/grdx" plot {} --to png --dpi 110 -o "$pictures/$1.png"
}
sheet a4-sheet 0
sheet a3-sheet 2
# The chart of one sample, as a plain and as a guarded curve.
curve() { # FORM
    local suite=$chinese/curve
    "$build/bin/grdx" draw samples -s "$suite" --borehole ZK1 --all --curve "$1" |
        xargs -I{} "$build/bin/grdx" plot {} --to pdf -o "$chinese/$1.pdf"
    pdftoppm -png -singlefile -r 200 -x 740 -y 405 -W 400 -H 450 "$chinese/$1.pdf" "$pictures/curve-$1"
}
"$build/bin/grdx" new "$chinese/curve" --number 2026-017
"$build/bin/grdx" import samples samples/uniform-sand.csv -s "$chinese/curve"
curve plain
curve guarded
find "$pictures" -name '*.png' -size +300k -exec echo 'too large: {}' \; -exec false {} +
