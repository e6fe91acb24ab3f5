#!/usr/bin/env bash
# Measures what docs/performance.md reports: the curve's own work, whole runs of the console program
# over 10 to 10,000 sheets with the memory they take, and beside it a bare program that runs the same
# statements and writes the same bytes, and a Python script that draws the same entities.
# Every figure is of this run on this machine; only the ratios carry over to others.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$PWD/${1:?build folder}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

"$build/bin/bench_curve" --benchmark_min_time=0.5 2>/dev/null

# Draws N sheets of two charts; sets `elapsed` (seconds) and `memory` (MB).
draw_sheets() { # N
    local suite=$scratch/suite$1 number=$((2 * $1))
    "$build/bin/grdx" new "$suite" --number B --name B --code 0 >/dev/null
    bench/make_samples.py "$number" >"$scratch/samples.csv"
    "$build/bin/grdx" import samples "$scratch/samples.csv" -s "$suite" >/dev/null
    local before after
    before=$(date +%s%N)
    /usr/bin/env python3 bench/peak_memory.py "$scratch/memory" "$build/bin/grdx" draw samples \
        -s "$suite" --borehole B1 --all --date 2026-05-20 >/dev/null
    after=$(date +%s%N)
    elapsed=$(awk "BEGIN{print ($after-$before)/1e9}")
    memory=$(cat "$scratch/memory")
}

echo
echo "sheets   ms a sheet   peak MB"
for sheets in 10 100 1000 10000; do
    draw_sheets $sheets
    milliseconds=$(awk "BEGIN{printf \"%.3f\", $elapsed*1000/$sheets}")
    printf '%6d %12s %9s\n' "$sheets" "$milliseconds" "$memory"
    [ $sheets = 1000 ] && ours=$milliseconds
    [ $sheets = 10000 ] && rm -rf "$scratch/suite10000"
done

folder=$scratch/suite1000/output/B/室内曲线
mkdir "$scratch/bare" "$scratch/python"
bare=$("$build/bin/bare_sheets" "$scratch/suite1000/project.db" B1 "$folder" "$scratch/bare")
sheet=$(find "$folder" -name '*.dwg' | sort | head -n 1)
node tests/readers/read_dwg.mjs "$sheet" >"$scratch/sheet.json"
python=$(/usr/bin/python3 bench/ezdxf_sheets.py "$scratch/sheet.json" 20 "$scratch/python")
echo
echo "1,000 sheets of two charts, results stored: $ours ms a sheet"
awk "BEGIN{printf \"bare program, same statements and bytes:    %s ms a sheet; we take %.2f times as long\n\", $bare, $ours/$bare}"
awk "BEGIN{printf \"Python drawing library, same entities:      %s ms a sheet; we are %.0f times as fast\n\", $python, $python/$ours}"
