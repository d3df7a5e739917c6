#!/usr/bin/env bash
# Usage: install_test.sh BUILD_FOLDER
# The project as its users get it: installed from a build folder and moved to another place, hosts built against it in
# the ways that the documentation names, the examples, and the Debian packages.
set -euo pipefail
build=$(realpath "$1")
source=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset STYLEATLAS_PREFIX MENSURA_CATALOGUE GLOSSA_LOCALEDIR DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export XDG_DATA_HOME=$work/data LC_ALL=C
warnings='-Wall -Wextra -Wpedantic -Werror'

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}
expect() { # what, wanted, found
    [ "$2" = "$3" ] || fail "$1: expected" "$2" 'but found' "$3"
}

cmake --install "$build" --prefix "$work/first" >install.log
mv first moved
! grep -rIl -e "$work/first" -e "$build" moved || fail 'an installed text names a folder of the build'
config=$(dirname "$(find moved -name StyleAtlasConfig.cmake)")
libraries=$(realpath "$config/../..")

for header in styleatlas mensura; do
    for language in 'c -std=c99' 'c -std=c11' 'c++ -std=c++11'; do
        # shellcheck disable=SC2086
        printf '#include <%s.h>\n' $header | cc -x $language $warnings -Imoved/include -fsyntax-only -
    done
done

# A fresh table: the wind speed has the third shape, the second file the second colour.
styled='symbol 3, size 10, fill 0, colour 0x002AA5; line 0, width 1, colour 0x002AA5, as the symbol: 0'
cmake -S "$source/examples" -B found -DCMAKE_PREFIX_PATH="$work/moved" -DCMAKE_C_FLAGS="$warnings" >found.log
cmake --build found >>found.log || fail "$(cat found.log)"
expect 'a host built with CMake' "$styled" "$(found/host)"
export PKG_CONFIG_PATH=$libraries/pkgconfig
# shellcheck disable=SC2046,SC2086
cc $warnings $(pkg-config --cflags styleatlas) "$source/examples/host.c" -o packaged $(pkg-config --libs styleatlas)
expect 'a host built with pkg-config' "$styled" "$(LD_LIBRARY_PATH=$libraries ./packaged)"

words="symbol colour: #A52A00
symbol shape: triangle, point down
symbol size: 10
symbol fill: filled
line colour: #A52A00
line style: solid
line width: 1
line in the symbol's colour: no"
ask() { "$source/examples/ask_for_a_style.py" "$@" 1 12 2 0 3 1; }
expect 'the Python example with a path' "$words" "$(ask --library "$libraries/libstyleatlas.so")"
expect 'the Python example without one' "$words" "$(LD_LIBRARY_PATH=$libraries ask)"

layout=$XDG_DATA_HOME/styleatlas/drive_c/ProgramData/Halvorn/AirLab/Style.Atlas
mkdir -p "${layout%/*}"
printf damaged >"$layout"
expect 'a message of the moved tree' 'Fehler: Der Stilatlas kann nicht geladen werden.' \
    "$(LC_ALL=de_DE.UTF-8 moved/bin/atlas-host table 2>&1 >table.txt)"
gunzip -c moved/share/man/man1/atlas-host.1.gz | sed 's/\\-/-/g' >man_page
for word in $(moved/bin/atlas-host --help | grep -oE '^  (--)?[a-z]+( [a-z]+)?'); do
    grep -q -- "$word" man_page || fail "the man page has nothing of $word"
done

(umask 077 && cpack -G DEB --config "$build/CPackConfig.cmake" -B packages >cpack.log 2>&1) || fail "$(cat cpack.log)"
version=$(moved/bin/atlas-host --version | cut -d ' ' -f 2)
field() { dpkg-deb -f "packages/$1_${version}_$(dpkg --print-architecture).deb" "$2"; }
mkdir -p root
for name in libstyleatlas1 libstyleatlas-dev atlas-host; do
    package=packages/${name}_${version}_$(dpkg --print-architecture).deb
    dpkg-deb -c "$package" >>contents
    dpkg-deb -x "$package" "root/$name"
    dpkg-deb -x "$package" root/all
done
expect 'the modes and owners in the packages' \
    '-rw-r--r-- root/root, -rwxr-xr-x root/root, drwxr-xr-x root/root, lrwxrwxrwx root/root' \
    "$(awk '{ print $1, $2 }' contents | sort -u | paste -sd , | sed 's/,/, /g')"
expect 'the files of all packages' "$(cd moved && find . | sort)" "$(cd root/all/usr && find . | sort)"
expect 'what can be executed' 'atlas-host' "$(find root/all -type f -perm /111 -printf '%f\n')"
expect 'the libraries for building' 'libstyleatlas.so' "$(find root/libstyleatlas-dev -name '*.so*' -printf '%f\n')"
find root/libstyleatlas1 | grep -E '/include|\.cmake$|\.pc$' && fail 'the runtime package has files of the other'
[[ $(field libstyleatlas1 Depends) =~ libc6.*libsqlite3-0 ]] || fail 'the runtime package lacks a dependency'
for name in libstyleatlas-dev atlas-host; do
    [[ $(field $name Depends) = "libstyleatlas1 (= $version)"* ]] || fail "$name does not depend on its libraries"
done
[[ $(field atlas-host Depends) = *libqt6widgets6* ]] || fail 'the program lacks a dependency'
expect 'the soname' 'libstyleatlas.so.1' \
    "$(objdump -p "$(find root/libstyleatlas1 -name libstyleatlas.so.1)" | awk '$1 == "SONAME" { print $2 }')"
expect 'the packaged program' "$(cat table.txt)" "$(LC_ALL=de_DE.UTF-8 root/all/usr/bin/atlas-host table 2>/dev/null)"
