#!/usr/bin/env bash
# Feeds a reader with damaged files for 60 seconds, or as many as are given (0: until it is stopped).
# Starts from files of the project's own and from whatever earlier runs came upon, which stays in
# build/fuzz/corpus (for tables in a folder of their kind beside it). Input that makes the program
# fail is left in build/fuzz/findings.
#
# usage: [READER=drawing|text_table|workbook|ags] fuzz/run.sh [SECONDS] [FUZZER OPTION...]
set -euo pipefail
cd "$(dirname "$0")/.."
reader=${READER:-drawing}
seconds=${1:-60}
[ $# = 0 ] || shift

cmake --preset fuzz >/dev/null
if [ "$reader" = drawing ]; then
    cmake --build --preset fuzz
    corpus=build/fuzz/corpus seeds=build/fuzz/seeds
    mkdir -p "$seeds"
    build/fuzz/bin/fuzz_seeds "$seeds"
else
    cmake --build --preset fuzz --target "fuzz_$reader"
    corpus=build/fuzz/corpus-$reader seeds=build/fuzz/seeds-$reader
    mkdir -p "$seeds"
    case $reader in
        text_table) cp samples/*.csv tests/lab/data/*.csv "$seeds" ;;
        ags) cp samples/*.ags "$seeds" ;;
        workbook)
            cp samples/*.xlsx "$seeds"
            # What tests read in a sheet, one piece a seed.
            grep -o '<sheetData.*' tests/lab/TableFilesTest.cpp | split -l 1 - "$seeds/sheet-"
            ;;
    esac
fi
mkdir -p "$corpus" build/fuzz/findings
build/fuzz/bin/fuzz_"$reader" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=1024 -max_len=262144 \
    -print_final_stats=1 -artifact_prefix=build/fuzz/findings/ "$@" "$corpus" "$seeds"
