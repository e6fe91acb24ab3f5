#!/usr/bin/env bash
# Format, room arrows, chosen compiler checks. Needs a configured build folder. With SECONDS the
# compiler checks begin with the files changed last and end when that time is over; how far they came
# is told.
#
# usage: tools/lint.sh BUILD [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?build folder}
deadline=$(($(date +%s) + ${2:-86400}))
tools/format.sh --check
tools/check_includes.py
tools/check_names.py

newest_first() {
    { git ls-files --others --exclude-standard; git diff --name-only HEAD
      git log --name-only --pretty=format:; tools/source_files.sh; } |
        grep '\.cpp$' | awk '!seen[$0]++' | while read -r file; do [ ! -e "$file" ] || echo "$file"; done
}
looked_at=$(mktemp)
trap 'rm -f "$looked_at"' EXIT
export deadline looked_at build
newest_first | xargs -P "$(nproc)" -n 1 bash -c '
    [ "$(date +%s)" -lt "$deadline" ] || exit 0
    echo "$1" >>"$looked_at"
    clang-tidy-14 --quiet -p "$build" --extra-arg=-Wno-unknown-warning-option "$1"
' - 2> >(grep -v 'warnings generated\|^Suppressed\|^Use -header' >&2)
echo "lint: clean; $(wc -l <"$looked_at") of $(newest_first | wc -l) files compiled for it"
