#!/usr/bin/env bash
# The one list of Debian packages that the project uses, and their installation.
# Asks for root only when something is missing.
set -euo pipefail

packages=(
    # build
    g++ cmake ninja-build
    libsqlite3-dev libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev libcli11-dev
    # database servers: the driver manager, drivers, and the server that tests and demonstration run
    unixodbc-dev odbc-postgresql libsqliteodbc postgresql libpq-dev
    # workbooks of spreadsheet programs
    libzip-dev libpugixml-dev libxlsxwriter-dev
    # the locales of the tests
    locales
    # format and lint
    clang-format-14 clang-tidy-14 clang-14
    # fuzzing, and the coverage it reaches
    libclang-rt-14-dev llvm-14
    # desktop program and plotting, their Chinese texts and font, and the tools that read plots in tests
    qt6-base-dev qt6-svg-dev qt6-translations-l10n fonts-wqy-zenhei poppler-utils
    # manual pages, the Debian package, and the empty system in which it is tried
    help2man dpkg-dev lintian mmdebstrap
    # independent readers of drawings, and the script that the benchmark compares with
    gdal-bin python3 python3-ezdxf python3-openpyxl nodejs npm
)

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
# A Node.js that came by another way than Debian's package serves as well.
if command -v node >/dev/null && command -v npm >/dev/null; then
    kept=()
    for package in ${missing[@]+"${missing[@]}"}; do
        case $package in nodejs | npm) ;; *) kept+=("$package") ;; esac
    done
    missing=(${kept[@]+"${kept[@]}"})
fi
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing: ${missing[*]}"
as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)
"${as_root[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}"
