#!/usr/bin/env bash
# Puts what the programs answer and draw now into the texts that tests compare with. Look at the
# difference before it is committed: it is the review.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release --target test_console test_chart
GRDX_ACCEPT=1 build/release/bin/test_console --gtest_filter='*Transcript*' --gtest_brief=1
GRDX_ACCEPT=1 build/release/bin/test_chart --gtest_brief=1
git --no-pager diff --stat -- tests
