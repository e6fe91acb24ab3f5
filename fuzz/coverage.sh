#!/usr/bin/env bash
# Which lines of the drawing reader and writer the drawings reach that fuzzing has come upon: for
# each file of platform/dwg its lines, those not reached, and the share covered. Run fuzz/run.sh before.
#
# usage: fuzz/coverage.sh [CORPUS]
set -euo pipefail
cd "$(dirname "$0")/.."
corpus=${1:-build/fuzz/corpus}

cmake --preset coverage >/dev/null
cmake --build --preset coverage
profile=build/coverage/fuzzing
# The program and the library it draws with each keep counts of their own (%m: a file for each).
rm -f $profile-*.profraw
LLVM_PROFILE_FILE=$profile-%m.profraw build/coverage/bin/fuzz_drawing -runs=0 -max_len=262144 "$corpus" \
    build/fuzz/seeds 2>/dev/null
llvm-profdata-14 merge -sparse $profile-*.profraw -o $profile.profdata
llvm-cov-14 report build/coverage/bin/fuzz_drawing -object build/coverage/lib/grdx/libgrdx_platform.so \
    -instr-profile=$profile.profdata -show-region-summary=false -show-branch-summary=false |
    awk '$1 ~ "^platform/dwg/" { print $(NF - 2), $(NF - 1), $NF, $1; lines += $(NF - 2); missed += $(NF - 1) }
         END { printf "%d lines, %d not reached: %.1f %% covered\n", lines, missed, 100 * (1 - missed / lines) }'
