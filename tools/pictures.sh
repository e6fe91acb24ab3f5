#!/usr/bin/env bash
# Makes the pictures of the desktop program in docs/pictures anew: an English and a Chinese set of
# what has words of the program's own in it.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
cmake --build "$build" --target desk_pictures
pictures=$PWD/docs/pictures
chinese=$(mktemp -d)
trap 'rm -rf "$chinese"' EXIT
LC_ALL=C.UTF-8 GRDX_PICTURES=$pictures "$build/bin/desk_pictures" --gtest_brief
LC_ALL=zh_CN.UTF-8 GRDX_PICTURES=$chinese "$build/bin/desk_pictures" --gtest_brief
for picture in desk-sheet desk-grips; do
    mv "$chinese/$picture.png" "$pictures/$picture-zh.png"
done
find "$pictures" -name '*.png' -size +300k -exec echo 'too large: {}' \; -exec false {} +
