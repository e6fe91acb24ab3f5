#!/usr/bin/env bash
# Lists the project's C++ files, one a line, from the repository's root.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp' | sort
