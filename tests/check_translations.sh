#!/usr/bin/env bash
# Every text of the sample host and of the tool is in the template of translations, and every text of the template in every
# catalogue. The English one has only what stands for a key.
set -euo pipefail
cd "$(dirname "$0")/.."
texts=$(mktemp)
trap 'rm -f "$texts"' EXIT
for section in Host Tool; do
    [ $section = Host ] && sources=(host/*.cpp) || sources=(tools/*.cpp)
    sources+=(bindings/distinct/*.cpp)
    xgettext --c++ --from-code=UTF-8 --keyword=Text --keyword=WindowText --keyword=Marked --keyword=text --no-location \
        --omit-header -o - "${sources[@]}" | sed "s/^msgid/msgctxt \"$section\"\n&/"
done >"$texts"
[ "$(grep -c msgctxt "$texts")" -gt 50 ]
for language in $(grep -v '^en$' po/LINGUAS); do
    for wanted in "$texts" po/glossa.pot; do
        msgcmp "po/$language.po" "$wanted" 2>&1 | { ! grep -v 'warning: this message is not used'; }
    done
done
