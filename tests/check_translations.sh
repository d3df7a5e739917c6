#!/usr/bin/env bash
# Every text of the sample host is in the template of translations, and every text of the template in every catalogue.
# The English one has only what stands for a key.
set -euo pipefail
cd "$(dirname "$0")/.."
texts=$(mktemp)
trap 'rm -f "$texts"' EXIT
xgettext --c++ --from-code=UTF-8 --keyword=Text --keyword=WindowText --no-location --omit-header -o - host/*.cpp |
    sed 's/^msgid/msgctxt "Host"\n&/' >"$texts"
[ "$(grep -c msgctxt "$texts")" -gt 50 ]
for language in $(grep -v '^en$' po/LINGUAS); do
    for wanted in "$texts" po/glossa.pot; do
        msgcmp "po/$language.po" "$wanted" 2>&1 | { ! grep -v 'warning: this message is not used'; }
    done
done
