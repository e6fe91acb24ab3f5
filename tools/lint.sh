#!/usr/bin/env bash
# Format, room arrows, chosen compiler checks. Needs a configured build folder.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?build folder}
tools/format.sh --check
tools/check_includes.py
tools/source_files.sh | grep '\.cpp$' |
    xargs -P "$(nproc)" -n 4 clang-tidy-14 --quiet -p "$build" \
        --extra-arg=-Wno-unknown-warning-option 2> >(grep -v 'warnings generated\|^Suppressed\|^Use -header' >&2)
echo "lint: clean"
