#!/usr/bin/env bash
# man_page.sh NAME PROGRAM PAGE.gz: the manual page of a program from what it says of itself, each of
# its calls with its own help.
set -euo pipefail
name=$1 program=$2 page=$3
here=$(cd "$(dirname "$0")" && pwd)
export LC_ALL=C.UTF-8
unset GRDX_SUITE

calls_of() { # CALL...: the calls below it, one a line
    "$program" "$@" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p'
}

describe_calls() { # CALL...
    local below
    below=$(calls_of "$@")
    if [ -z "$below" ]; then
        [ $# -gt 0 ] || return 0
        printf '.SS %s\n.nf\n' "$name $*"
        "$program" "$@" --help | sed -e '/^$/d' -e 's/\\/\\e/g' -e "s/^[.']/\\\\\&&/" -e 's/-/\\-/g'
        printf '.fi\n'
        return 0
    fi
    local call
    for call in $below; do describe_calls "$@" "$call"; done
}

cp "$here/$name.h2m" "$page.include"
calls=$(describe_calls)
[ -z "$calls" ] || printf '\n[calls]\n%s\n' "$calls" >>"$page.include"
help2man --no-info --section 1 --include "$page.include" --output "$page.new" "$program"
# A usage line may hold the path by which the program was run.
sed -i "s|$program|$name|g" "$page.new"
rm "$page.include"
gzip -9nc "$page.new" >"$page"
rm "$page.new"
