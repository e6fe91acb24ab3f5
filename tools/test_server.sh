#!/usr/bin/env bash
# Runs a command beside a PostgreSQL server of its own: in a new folder, on a socket in that folder
# only, as the user postgres when root asks for it. However the command ends, the server is stopped
# and the folder removed.
#
#     tools/test_server.sh COMMAND [ARGUMENT...]
#
# The command finds in $GRDX_TEST_SERVER how the system's own programs reach the server, and in
# $PGHOST, $PGUSER and $PGDATABASE what PostgreSQL's take; $PGDATA is the server's folder, and
# $GRDX_TEST_SERVER_CONTROL the command that stops and starts it. The role grdx needs no password, any
# other does.
set -euo pipefail

fail() {
    echo "test server: $*" >&2
    exit 1
}

programs=$(printf '%s\n' /usr/lib/postgresql/*/bin | sort -V | tail -1)
[ -x "$programs/postgres" ] || fail "PostgreSQL is not installed (tools/install_packages.sh)"
as_owner=(setpriv)
[ "$(id -u)" != 0 ] || as_owner=(setpriv --reuid=postgres --regid=postgres --init-groups)

folder=$(mktemp -d "${TMPDIR:-/tmp}/grdx-server.XXXXXX")
chmod 755 "$folder"
[ "$(id -u)" != 0 ] || chown postgres: "$folder"
export PGHOST=$folder PGUSER=grdx PGDATABASE=postgres PGDATA=$folder/data
export GRDX_TEST_SERVER="Provider=MSDASQL;Driver={PostgreSQL Unicode};Server=$folder;Port=5432;Uid=grdx;Database=postgres"
export PGOPTIONS="-c client_min_messages=warning"
export GRDX_TEST_SERVER_CONTROL="${as_owner[*]} $programs/pg_ctl"
unset PGPORT PGPASSWORD PGSERVICE GRDX_DB_PASSWORD
# For programs that look for leaks of their own: what the driver keeps is none.
LSAN_OPTIONS=print_suppressions=0:suppressions=$(realpath "$(dirname "$0")/../tests/leaks.txt")
export LSAN_OPTIONS

child=
stop() {
    trap - EXIT INT TERM HUP
    [ -z "$child" ] || kill "$child" 2> /dev/null || true
    "${as_owner[@]}" "$programs/pg_ctl" stop -m immediate > /dev/null 2>&1 || true
    rm -rf "$folder"
}
trap stop EXIT
trap 'stop; exit 143' INT TERM HUP

cd "$folder"
"${as_owner[@]}" "$programs/initdb" --auth=trust --username=grdx --encoding=UTF8 \
    --locale=C.UTF-8 --no-sync > initdb.log 2>&1 || fail "initdb: $(tail -1 initdb.log)"
printf '%s\n' 'local all grdx trust' 'local all all scram-sha-256' > pg_hba.conf
# Ended with this script also when that is killed.
"${as_owner[@]}" --pdeathsig INT "$programs/postgres" -k "$folder" -c listen_addresses= \
    -c fsync=off -c hba_file="$folder/pg_hba.conf" > server.log 2>&1 &
server=$!
for ((tries = 0; ; ++tries)); do
    "$programs/pg_isready" -q && break
    kill -0 $server 2> /dev/null && [ $tries -lt 300 ] || fail "$(tail -1 server.log)"
    sleep 0.1
done
cd "$OLDPWD"

env --default-signal=INT,QUIT "$@" <&0 &  # what runs in the background ignores them otherwise
child=$!
status=0
wait $child || status=$?
child=
exit $status
