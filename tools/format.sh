#!/usr/bin/env bash
# Formats the project's sources with the pinned formatter; --check only says what it would change.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(-i)
[ "${1:-}" = --check ] && mode=(--dry-run --Werror)
tools/source_files.sh | xargs clang-format-14 "${mode[@]}"
