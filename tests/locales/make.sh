#!/bin/sh
# Compiles the locales of the tests into a folder, for LOCPATH.
set -e
mkdir -p "$1"
for locale in de_DE.UTF-8 zh_CN.GB18030; do
    [ -d "$1/$locale" ] || localedef -i "${locale%.*}" -f "${locale#*.}" "$1/$locale"
done
