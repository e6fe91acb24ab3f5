#!/usr/bin/env bash
# Makes the sample project twice, once on A4 sheets and once on A3 sheets, draws every sample and
# every layer, reshapes one curve and stores it, and says where the sheets and pictures are and what
# the database then holds. Beside tools/test_server.sh the projects lie on that server.
set -euo pipefail
cd "$(dirname "$0")/.."
grdx=$PWD/${1:?build folder}/bin/grdx
rm -rf demo
mkdir -p demo
server=()
if [ -n "${GRDX_TEST_SERVER-}" ]; then
    server=(--database "$GRDX_TEST_SERVER")
    export XDG_CONFIG_HOME=$PWD/demo/configuration  # a server that ends with the demo is agreed to
fi

boreholes() { "$grdx" list -s "$1" --json | python3 -c '
import json, sys
print(*[b["borehole"] for b in json.load(sys.stdin)["boreholes"]], sep="\n")'; }

draw_project() { # FOLDER NUMBER STANDARD-CODE
    local suite=demo/$1
    "$grdx" new "$suite" --number "$2" --name "滨江新城一期岩土工程勘察" --code "$3" "${server[@]}"
    "$grdx" import samples samples/samples.csv -s "$suite"
    "$grdx" import layers samples/layers.csv -s "$suite"
    local choices=(--unit "滨江岩土试验室" --tester "王工" --checker "李工" --date 2026-05-20
        --outer-frame --right-axis)
    boreholes "$suite" | while read -r borehole; do
        "$grdx" draw samples -s "$suite" --borehole "$borehole" --all "${choices[@]}"
    done
    "$grdx" draw layers -s "$suite" --all "${choices[@]}"
}

stored() { # FOLDER BOREHOLE SAMPLE
    "$grdx" list -s "demo/$1" |
        awk -v b="$2" -v s="$3:" '/^borehole/{here = $2 == b} here && ($1 == s || $2 == s)'
}

pictures() { # FOLDER
    local sheets
    mapfile -t sheets < <(find "demo/$1/output" -name '*.dwg' | sort)
    "$grdx" plot "${sheets[@]}" --to png --dpi 110 -s "demo/$1"
    "$grdx" plot "${sheets[@]}" --to pdf -o "demo/$1-sheets.pdf" -s "demo/$1"
}

echo "== A4 sheets, two charts each (standard code 0)"
draw_project a4 2026-017 0
echo "== A3 sheets, up to six charts each (standard code 2)"
draw_project a3 2026-018 2
echo "== A curve reshaped and stored (samples/reshape.scr)"
grep -v '^;' samples/reshape.scr
echo "-- the row before"
stored a4 ZK1 4
"$grdx" script samples/reshape.scr -s demo/a4
echo "-- the row after"
stored a4 ZK1 4
echo "== Pictures, and all sheets as pages of one file"
pictures a4
pictures a3

echo "== What was stored (A4 project)"
"$grdx" list -s demo/a4
echo
echo "A4 sheets and pictures: demo/a4/output/2026-017/室内曲线"
echo "A3 sheets and pictures: demo/a3/output/2026-018/室内曲线"
echo "Sheets to print: demo/a4-sheets.pdf demo/a3-sheets.pdf"
