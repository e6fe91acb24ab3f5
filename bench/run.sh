#!/usr/bin/env bash
# Measures what docs/performance.md reports: the curve's own work, the browsers over 10,000 sheets,
# whole runs of the console program over 10 to 10,000 sheets of samples and over 1,000 of layers with
# the memory they take, and beside it a bare program that runs the same statements and writes the
# same bytes, and a Python script that draws the same entities; then the drawing view's redraws,
# sheets plotted as one file, tables imported, and projects checked.
# Every figure is of this run on this machine; only the ratios carry over to others.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$PWD/${1:?build folder}
scratch=$(mktemp -d)
# Nothing is deleted before the end: file systems are slow to reuse what was just freed.
trap 'rm -rf "$scratch"' EXIT

for program in bench_curve bench_drawing bench_browser; do
    "$build/bin/$program" --benchmark_min_time=0.5 2>/dev/null
done

make_suite() { # NAME SHEETS
    "$build/bin/grdx" new "$scratch/$1" --number B --name B --code 0 >/dev/null
    bench/make_samples.py "$((2 * $2))" >"$scratch/samples.csv"
    "$build/bin/grdx" import samples "$scratch/samples.csv" -s "$scratch/$1" >/dev/null
}

# Draws what is named, on so many sheets; sets `milliseconds` (a sheet) and `memory` (MB).
measure_draw() { # SHEETS WHAT...
    local seconds
    read -r seconds memory <<<"$(bench/measure.py "$build/bin/grdx" draw "${@:2}" --all \
        --date 2026-05-20)"
    milliseconds=$(awk "BEGIN{printf \"%.3f\", $seconds*1000/$1}")
}
draw_sheets() { measure_draw "$2" samples -s "$scratch/$1" --borehole B1; } # NAME SHEETS

least() { printf '%s\n' "$@" | sort -g | sed -n 1p; }

for sheets in 10 100 10000; do
    make_suite "suite$sheets" $sheets
done
for round in 1 2 3; do
    make_suite "round$round" 1000
    mkdir "$scratch/bare$round"
done
bench/make_layers.py 2000 >"$scratch/layers.csv"
"$build/bin/grdx" import layers "$scratch/layers.csv" -s "$scratch/round1" >/dev/null

echo
echo "sheets   ms a sheet   peak MB   (start of the program included)"
for sheets in 10 100; do
    draw_sheets "suite$sheets" $sheets
    printf '%6d %12s %9s\n' "$sheets" "$milliseconds" "$memory"
done
ours=()
bare=()
for round in 1 2 3; do
    draw_sheets "round$round" 1000
    ours+=("$milliseconds")
    printf '%6d %12s %9s\n' 1000 "$milliseconds" "$memory"
    bare+=("$("$build/bin/bare_sheets" "$scratch/round$round/project.db" B1 \
        "$scratch/round$round/output/B/室内曲线" "$scratch/bare$round")")
done
draw_sheets suite10000 10000
printf '%6d %12s %9s\n' 10000 "$milliseconds" "$memory"
measure_draw 1000 layers -s "$scratch/round1"
printf '%6d %12s %9s   sheets of two layers each\n' 1000 "$milliseconds" "$memory"

sheet=$(find "$scratch/round1/output/B/室内曲线" -name '*.dwg' -print -quit)
node tests/readers/read_dwg.mjs "$sheet" >"$scratch/sheet.json"
mkdir "$scratch/python"
python=$(/usr/bin/python3 bench/ezdxf_sheets.py "$scratch/sheet.json" 20 "$scratch/python")
ours=$(least "${ours[@]}")
bare=$(least "${bare[@]}")
echo
echo "1,000 sheets of two charts, results stored, best of three rounds: $ours ms a sheet"
awk "BEGIN{printf \"bare program, same statements and bytes: %s ms a sheet; we take %.2f times as long\n\", $bare, $ours/$bare}"
awk "BEGIN{printf \"Python drawing library, same entities:   %s ms a sheet; we are %.0f times as fast\n\", $python, $python/$ours}"

"$build/bin/grdx" new "$scratch/a3" --number A3 --code 2 >/dev/null
"$build/bin/grdx" import samples "$scratch/samples.csv" -s "$scratch/a3" >/dev/null
"$build/bin/grdx" draw samples -s "$scratch/a3" --borehole B1 --sample 1 --sample 2 --sample 3 \
    --sample 4 --sample 5 --sample 6 --date 2026-05-20 >"$scratch/a3.txt" 2>/dev/null
echo
echo "A3 sheet of six charts in a window of 1920 x 1080, at 1, 3 and 20 times its height:"
"$build/bin/bench_picture" "$(cat "$scratch/a3.txt")" --benchmark_min_time=0.5 2>/dev/null

echo
echo "pages of one PDF file    ms a sheet   peak MB   (start of the program included)"
for suite in suite100 round1; do
    find "$scratch/$suite/output" -name 'KF*.dwg' | sort >"$scratch/sheets.txt"
    count=$(wc -l <"$scratch/sheets.txt")
    read -r seconds memory <<<"$(bench/measure.py "$build/bin/grdx" plot - --to pdf \
        -o "$scratch/all.pdf" <"$scratch/sheets.txt")"
    printf '%-24s %10s %9s\n' "$count" "$(awk "BEGIN{printf \"%.2f\", $seconds*1000/$count}")" "$memory"
done

echo
echo "10,000 samples imported, 100,000 sieve items    seconds   peak MB"
bench/make_samples.py 10000 >"$scratch/tests.csv"
bench/make_tables.py "$scratch/tests.csv" "$scratch/tests.xlsx"
for table in tests.csv tests.xlsx; do
    "$build/bin/grdx" new "$scratch/$table.suite" >/dev/null
    for round in "as new" "as they are"; do
        read -r seconds memory <<<"$(bench/measure.py "$build/bin/grdx" import samples \
            "$scratch/$table" -s "$scratch/$table.suite")"
        printf '%-10s  %-32s %9.2f %9s\n' "$table" "$round" "$seconds" "$memory"
    done
done

echo
echo "10,000 samples checked                          seconds   peak MB"
check_samples() { # WHAT
    read -r seconds memory <<<"$(bench/measure.py "$build/bin/grdx" check \
        -s "$scratch/tests.csv.suite")"
    printf '%-44s %9.2f %9s\n' "$1" "$seconds" "$memory"
}
check_samples "not drawn"
"$build/bin/grdx" draw samples -s "$scratch/tests.csv.suite" --all-boreholes --all \
    --date 2026-05-20 >/dev/null 2>&1
check_samples "drawn on 5,000 sheets"

mapfile -t sheets < <(find "$scratch/suite100/output" -name '*.dwg' | sort)
echo
"$build/bin/bench_desk" "$scratch/suite100" "${sheets[@]}" 2>/dev/null
