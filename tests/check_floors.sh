#!/usr/bin/env bash
# Holds the includes of the sources against the floors of the house:
#   - frame, dialogs, controls and model know the class framework, each other downward, the language library, the
#     public header and the C++ library; no Qt, no POSIX, nothing of the layer's inside;
#   - the layer knows nothing above it; the host knows the public header and the unit library's;
#   - the include graph of files has no circle.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

declare -A below=(
    [frame]='dialogs controls model include' [dialogs]='controls model' [controls]='model' [model]=''
    [platform]='' [components]='platform' [host]='include' [include]=''
)
framework=$(cd platform/include && ls)
search=(. platform/include platform/system components/glossa components/mensura)
edges=$(mktemp)
trap 'rm -f "$edges"' EXIT
faults=0
fault() {
    printf '%s\n' "$1" >&2
    faults=$((faults + 1))
}

# The project's file that an include names, or nothing.
resolve() {
    local folder
    for folder in "$(dirname "$1")" "${search[@]}"; do
        [ -f "$folder/$2" ] && { realpath --relative-to=. "$folder/$2"; return; }
    done
    return 0
}

while read -r file; do
    floor=${file%%/*}
    while read -r name; do
        target=$(resolve "$file" "$name")
        if [ -z "$target" ]; then
            case $floor in
            frame | dialogs | controls | model)
                [[ $name =~ ^[a-z_]+$ ]] || fault "$file includes <$name>, which is neither framework nor C++ library" ;;
            esac
            continue
        fi
        printf '%s %s\n' "$file" "$target" >>"$edges"
        case $target in
        "$floor"/*) continue ;;
        platform/include/*) [ "$floor" != host ] && continue ;;
        components/glossa/Glossa.h) [[ $floor =~ ^(frame|dialogs|controls|model)$ ]] && continue ;;
        components/mensura/mensura.h) [ "$floor" = host ] && continue ;;
        platform/system/*) [ "$floor" = components ] && continue ;;
        esac
        [[ " ${below[$floor]} " == *" ${target%%/*} "* && $target != platform/* ]] ||
            fault "$file includes $target, which is not below its floor"
    done < <(sed -nE 's/^ *# *include *[<"]([^>"]+)[>"].*/\1/p' "$file")
done < <(find frame dialogs controls model platform components host include \
    \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) 2>/dev/null)

[ -n "$framework" ] && [ -s "$edges" ] || fault 'nothing was checked'
tsort "$edges" >/dev/null || fault 'the includes go in a circle'
[ "$faults" = 0 ]
