#!/usr/bin/env bash
# ten_commands.sh BIN GUIDE...: does what the guides tell a new user to do, in a home of its own, and
# looks at what it leaves.
set -euo pipefail
PATH=$(realpath "${1:?folder of the programs}"):$PATH
cd "$(dirname "$0")/../.."
shift
for guide in "$@"; do
    HOME=$(mktemp -d)
    export HOME
    trap 'rm -rf "$HOME"' EXIT
    commands=$(awk '/^<!-- run by the tests -->$/ { wanted = 1 }
                    /^```/ { if (wanted) wanted++; if (wanted == 3) exit; next }
                    wanted == 2' "$guide")
    [ "$(wc -l <<<"$commands")" = 10 ] || { echo "$guide: not ten commands"; exit 1; }
    bash -euc "$commands"
    pages=$(pdfinfo ~/riverside-sheets.pdf | sed -n 's/^Pages: *//p')
    sheets=$(find ~/riverside/output -name '*.dwg' | wc -l)
    [ "$sheets" -gt 0 ] && [ "$pages" = "$sheets" ] || { echo "$guide: $sheets sheets, $pages pages"; exit 1; }
    python3 -m zipfile -t ~/riverside-results.xlsx >/dev/null
    [ "$(sed 1d ~/riverside-passing.csv | cut -d, -f1,2 | sort -u | wc -l)" = \
        "$(grdx list -s ~/riverside --json | python3 -c '
import json, sys
print(sum(len(b["samples"]) for b in json.load(sys.stdin)["boreholes"]))')" ] ||
        { echo "$guide: samples are missing from the percentages"; exit 1; }
    rm -rf "$HOME"
done
