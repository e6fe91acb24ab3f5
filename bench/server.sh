#!/usr/bin/env bash
# tools/test_server.sh bench/server.sh BUILD: sheets of two charts drawn, and their results stored, from
# a PostgreSQL server on the same machine, beside a bare program with the same statements and bytes;
# and what the server is sent for a sheet. Only the ratios carry over to other machines.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$PWD/${1:?build folder}
sheets=200
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_CONFIG_HOME=$scratch

"$build/bin/grdx" new "$scratch/suite" --number B --database "$GRDX_TEST_SERVER" >/dev/null
bench/make_samples.py $((2 * sheets)) | "$build/bin/grdx" import samples - -s "$scratch/suite" >/dev/null
# Values that are to be stored again.
forget() { psql -qc "UPDATE z_c_kefen SET kld50 = NULL, kl2 = NULL"; }
draw() { "$build/bin/grdx" draw samples --borehole B1 --all --date 2026-05-20 -s "$scratch/suite"; }
least() { printf '%s\n' "$@" | sort -g | sed -n 1p; }
log() { psql -qc "ALTER SYSTEM SET log_statement='$1'" -c "SELECT pg_reload_conf()" >/dev/null; sleep 0.5; }

draw >/dev/null
mkdir "$scratch/bare"
for round in 1 2 3; do
    forget
    read -r seconds _ <<<"$(bench/measure.py "$build/bin/grdx" draw samples --borehole B1 --all \
        --date 2026-05-20 -s "$scratch/suite")"
    ours+=("$(awk "BEGIN{printf \"%.3f\", $seconds*1000/$sheets}")")
    bare+=("$("$build/bin/bare_server_sheets" "${GRDX_TEST_SERVER#*;}" B1 \
        "$scratch/suite/output/B/室内曲线" "$scratch/bare")")
done
awk "BEGIN{printf \"%d sheets, best of three rounds: %s ms a sheet; bare program: %s ms; %.2f times\\n\", \
    $sheets, $(least "${ours[@]}"), $(least "${bare[@]}"), $(least "${ours[@]}")/$(least "${bare[@]}")}"
forget
log all
draw >/dev/null
log none
echo "statements a sheet, by kind:"
sed -nE 's/.*LOG:  (statement|execute)( [^:]*)?: ([A-Z]+).*/\3/p' "${PGDATA%/data}/server.log" |
    sort | uniq -c | sort -rn | awk "{ printf \"%8.2f %s\\n\", \$1/$sheets, \$2; all += \$1 }
        END { printf \"%8.2f all\\n\", all/$sheets }"
