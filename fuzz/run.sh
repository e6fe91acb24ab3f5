#!/usr/bin/env bash
# Feeds the drawing reader and writer with damaged drawings for 60 seconds, or as many as are given
# (0: until it is stopped). Starts from drawings of the project's own and from whatever earlier runs
# came upon, which stays in build/fuzz/corpus. Input that makes the program fail is left in
# build/fuzz/findings.
#
# usage: fuzz/run.sh [SECONDS] [FUZZER OPTION...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
[ $# = 0 ] || shift

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/{seeds,corpus,findings}
build/fuzz/bin/fuzz_seeds build/fuzz/seeds
build/fuzz/bin/fuzz_drawing -max_total_time="$seconds" -timeout=30 -rss_limit_mb=1024 -max_len=262144 \
    -print_final_stats=1 -artifact_prefix=build/fuzz/findings/ "$@" build/fuzz/corpus build/fuzz/seeds
