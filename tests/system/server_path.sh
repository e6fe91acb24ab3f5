#!/usr/bin/env bash
# tools/test_server.sh server_path.sh BIN GUIDE...: does what the guides tell about a database server,
# each on the server as if it were empty and in a home of its own, and looks at what it leaves.
set -euo pipefail
PATH=$(realpath "${1:?folder of the programs}"):$PATH
cd "$(dirname "$0")/../.."
shift
for guide in "$@"; do
    HOME=$(mktemp -d)
    export HOME
    trap 'rm -rf "$HOME"' EXIT
    blocks=$(awk '/^<!-- run by the tests -->$/ { wanted = 1; next }
                  /^```/ { if (wanted) wanted = (wanted + 1) % 3; next } wanted == 2' "$guide")
    [ "$(grep -c '^grdx' <<<"$blocks")" = 11 ] || { echo "$guide: other commands"; exit 1; }
    bash -euc "$blocks"
    export GRDX_DB_PASSWORD=change-me-1
    [ "$(find ~/wang/output -name '*.dwg' | wc -l)" -gt 10 ] || { echo "$guide: no sheets"; exit 1; }
    diff <(grdx list -s ~/riverside | tail -n +2) <(grdx list -s ~/at-home | tail -n +2)
    ! GRDX_DB_PASSWORD=change-me-3 grdx draw layers --all -s ~/zhao 2>~/refused
    grep -q 'may only read' ~/refused || { cat ~/refused; exit 1; }
    ! grep -rIl change-me "$HOME" || { echo "$guide: a password lies in a file"; exit 1; }
    psql -q -d postgres -c 'DROP DATABASE soil' -c 'DROP ROLE soil_owner, wang, zhao, soil_members, soil_readers'
    unset GRDX_DB_PASSWORD
    rm -rf "$HOME"
done
