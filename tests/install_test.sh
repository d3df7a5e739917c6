#!/usr/bin/env bash
# Usage: install_test.sh BUILD_FOLDER
# The project as its users get it: installed from a build folder and moved to another place, hosts built against it in
# the ways that the documentation names, the examples, and the Debian packages.
set -euo pipefail
build=$(realpath "$1")
sources=$(realpath "$(dirname "$0")/..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset STYLEATLAS_PREFIX MENSURA_CATALOGUE GLOSSA_LOCALEDIR DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config LC_ALL=C
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

# Each header alone, beside the names of others, and with every compiler that is there.
parses() { # compiler, language, text
    # shellcheck disable=SC2086
    printf '%b\n' "$3" | $1 -x $2 $warnings -Wconversion -Imoved/include -c -o header.o -
}
for compiler in gcc clang; do
    command -v "$compiler" >found.log || continue
    for language in 'c -std=c99' 'c -std=c11' 'c++ -std=c++11' 'c++ -std=c++20'; do
        parses $compiler "$language" '#include <styleatlas.h>\nchar blue[STYLEATLAS_BLUE(0x020304) == 2 ? 1 : -1];'
        parses $compiler "$language" 'struct ModuleExport { int ModuleExports; };\n#include <mensura.h>'
    done
    parses $compiler 'c++ -std=c++17' '#include <styleatlas.hpp>\nstatic_assert(styleatlas::Color{0x020304}.Red() == 4);'
    for misuse in 'StyleAtlasSetApplication(0)' '{ uint32_t c; int16_t s; uint8_t u;
        GetStyleAtlas(0, 1, 0, 0, STYLEATLAS_NO_DEVICE, 0, &c, &s, &s, &s, &c, &s, &s, &u); }'; do
        parses $compiler c "#include <styleatlas.h>\nint main(void) { $misuse; return 0; }" 2>misuse.log || true
        grep -qE 'nonnull|unused-result' misuse.log || fail "$compiler has nothing to say of" "$misuse"
    done
done

# A link of an installed page leads to a file that is installed, and to a heading in it.
python3 - moved/share/doc/libstyleatlas-dev <<'EOF' || fail 'an installed page has a link that leads nowhere'
import pathlib, re, sys
bad = pages = 0
for page in pathlib.Path(sys.argv[1]).rglob("*.md"):
    pages += 1
    for link in re.findall(r"\]\(([^)\s]+)\)", page.read_text()):
        if re.match(r"[a-z]+:", link):
            continue
        name, _, anchor = link.partition("#")
        target = page.parent / name if name else page
        headings = re.findall(r"^#+ (.*)$", target.read_text(), re.M) if anchor and target.is_file() else []
        known = {re.sub(r"[^\w\- ]", "", heading).lower().replace(" ", "-") for heading in headings}
        if not target.exists() or anchor and anchor not in known:
            print(f"{page}: {link}", file=sys.stderr)
            bad += 1
sys.exit(bad > 0 or pages == 0)
EOF

# No file of the build takes libraries from the current folder; what is installed is hardened.
while read -r file; do
    ! objdump -p "$file" 2>objdump.log | grep -E 'R(UN)?PATH +(.*:)?(:.*)?$' || fail "$file has an empty run path"
done < <(find "$build/bin" "$build/${libraries#"$(realpath moved)"/}" -type f)
while read -r file; do
    readelf -d "$file" | grep -q BIND_NOW || fail "$file binds its functions late"
done < <(find moved/bin "$libraries" -type f \( -perm -100 -o -name '*.so*' \))
readelf -h moved/bin/atlas-host | grep -q DYN || fail 'the program always stands at the same place'
nm -D moved/bin/atlas-host | grep __stack_chk_fail >nm.log || fail 'the stack of the program is not guarded'

# A fresh table: the wind speed has the third shape, the second file the second colour.
styled='symbol 3, size 10, fill 0, colour 0x002AA5; line 0, width 1, colour 0x002AA5, as the symbol: 0'
examples=$work/moved/share/doc/libstyleatlas-dev/examples
cmake -S "$examples" -B found -DCMAKE_PREFIX_PATH="$work/moved" -DCMAKE_C_FLAGS="$warnings" \
    -DCMAKE_CXX_FLAGS="$warnings" >found.log
cmake --build found >>found.log || fail "$(cat found.log)"
expect 'a host built with CMake' "$styled" "$(found/host)"
folder=$XDG_DATA_HOME/styleatlas/drive_c/ProgramData/Halvorn/AirLab
expect 'the folder that the host made, and the mode of the prefix' "$folder 700" \
    "$(find "$XDG_DATA_HOME" -name AirLab) $(stat -c %a "$XDG_DATA_HOME/styleatlas")"
expect 'a host with Qt' '' "$(QT_QPA_PLATFORM=offscreen found/qt_host found.png 2>&1 | grep -v XDG_RUNTIME_DIR)"
expect 'a host in C++' '1: symbol 3 of size 10 in #A52A00, line of width 1 in #A52A00' "$(found/columns | sed -n 2p)"
rm -r "$XDG_DATA_HOME"
expect 'the prepared folder' "$folder 700" \
    "$(moved/bin/atlas-host prepare --host AirLab) $(stat -c %a "$XDG_DATA_HOME/styleatlas")"
expect 'what is there then' "$folder" "$(find "$XDG_DATA_HOME" -name 'AirLab' -o -type f)"
export PKG_CONFIG_PATH=$libraries/pkgconfig
# shellcheck disable=SC2046,SC2086
cc $warnings $(pkg-config --cflags styleatlas) "$examples/host.c" -o packaged $(pkg-config --libs styleatlas)
expect 'a host built with pkg-config' "$styled" "$(LD_LIBRARY_PATH=$libraries ./packaged)"

for example in columns:styleatlas qt_host:'styleatlas-qt Qt6Widgets'; do
    # shellcheck disable=SC2046,SC2086
    c++ -std=c++17 -fPIC $warnings $(pkg-config --cflags ${example#*:}) "$examples/${example%:*}.cpp" -o packaged \
        $(pkg-config --libs ${example#*:})
done
LD_LIBRARY_PATH=$libraries QT_QPA_PLATFORM=offscreen ./packaged drawn.png 2>drawn.log
cmp found.png drawn.png
[ "$(stat -c %s found.png)" -gt 4000 ] || fail 'the host with Qt has not drawn its curves'

words="symbol colour: #A52A00
symbol shape: triangle, point down
symbol size: 10
symbol fill: filled
line colour: #A52A00
line style: solid
line width: 1
line in the symbol's colour: no"
ask() { python3 "$examples/ask_for_a_style.py" "$@" 1 12 2 0 3 1; }
expect 'the Python example with a path' "$words" "$(ask --library "$libraries/libstyleatlas.so")"
expect 'the Python example without one' "$words" "$(LD_LIBRARY_PATH=$libraries ask)"

python() { PYTHONPATH=moved/lib/python3/dist-packages /usr/bin/python3 -B "$@"; }
expect 'the Python package' '#a52a00' "$(python -c 'import styleatlas as atlas
atlas.set_application("AirLab")
print(atlas.style_of(1, atlas.Key(12, 2, 0, 3, 1)).symbol_color)')"
python "$examples/airquality.py" --picture found.svg "$sources"/data/*.csv 2>python.log || fail "$(cat python.log)"
[ "$(grep -c '#a52a00' found.svg)" -gt 50 ] || fail 'the Python example has not drawn its curves'

layout=$folder/Style.Atlas
printf damaged >"$layout"
message='Fehler: Der Stilatlas kann nicht geladen werden.'
expect 'a message of the moved tree' "$message" "$(LC_ALL=de_DE.UTF-8 moved/bin/atlas-host table 2>&1 >table.txt)"

# The same on a display: only what has a window shows the message in one, and that window stays and ends as ever.
cat >on_display.sh <<'EOF'
german() { exec env LC_ALL=de_DE.UTF-8 timeout 60 moved/bin/atlas-host "$@" 2>&1 >output; }
for words in table 'list data.csv' 'plot --png plot.png data.csv' "layout check $1"; do
    # shellcheck disable=SC2086
    (german $words) || echo "status $?"
done
openbox --sm-disable &>manager.log &
until [ "$(xdotool set_desktop 1 get_desktop 2>&1)" = 1 ]; do sleep .1; done
search() { timeout 30 xdotool search --sync --onlyvisible --name "$1"; }
german window data.csv &
program=$!
xdotool windowactivate --sync "$(search '^Fehler$')" key Return
sleep 1
xdotool windowactivate --sync "$(search '^Kurven')" key ctrl+q
wait $program
echo "the window: $?"
pixels() { # window: the colours of three files, as far as they are there
    python3 - "$1" <<'PYTHON'
import ctypes
import sys
x = ctypes.CDLL("libX11.so.6")
x.XOpenDisplay.restype = x.XGetImage.restype = ctypes.c_void_p
x.XGetPixel.restype = ctypes.c_ulong
display = ctypes.c_void_p(x.XOpenDisplay(None))
image = ctypes.c_void_p(x.XGetImage(display, ctypes.c_ulong(int(sys.argv[1])), 0, 30, 640, 320, ctypes.c_ulong(-1), 2))
colors = {x.XGetPixel(image, i, j) & 0xFFFFFF for i in range(640) for j in range(320)}
print(*sorted(f"{color:06X}" for color in colors))
PYTHON
}
rm "$1"
LC_ALL=C LANGUAGE=en timeout 60 found/xlib_host &>output &
program=$!
window=$(search '^Wind$')
sleep 1
pixels "$window"
xdotool windowactivate --sync "$window" key e
search '^Symbol/Color' >editor
sleep 1.5
xdotool key Tab Tab shift+F10
sleep .5
xdotool key Up Up Up Return
sleep .5
xdotool key Return
sleep 1.5
pixels "$window"
xdotool windowactivate --sync "$window" key q
wait $program
echo "the host with Xlib: $?"
EOF
printf 'Date,Wind\n1,2\n2,3\n' >data.csv
expect 'the messages on a display' "$message
$message
$message
status 1
the window: 0
000000 004040 A52A00 FFFFFF
004040 FFFFFF
the host with Xlib: 0" "$(xvfb-run --auto-servernum --server-args=-noreset bash on_display.sh "$layout")"
printf damaged >"$layout"
for program in atlas-host atlas-layout; do
    gunzip -c moved/share/man/man1/$program.1.gz | sed 's/\\-/-/g' >man_page
    for word in $(moved/bin/$program --help | grep -oE '^  (--)?[a-z]+'); do
        grep -q -- "$word" man_page || fail "the man page of $program has nothing of $word"
    done
done

complete() { # words
    bash -c 'source moved/share/bash-completion/completions/atlas-layout; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
        _atlas_layout 2>/dev/null; echo "${COMPREPLY[*]}"' bash atlas-layout "$@"
}
expect 'the completion of a command' 'explain export' "$(complete ex)"
expect 'the completion of an option' '--column' "$(complete explain --c)"
expect 'the completion of a file' 'packaged' "$(complete explain --host AirLab packag)"
expect 'the commands that are completed' "$(moved/bin/atlas-layout --help | sed -n 's/^  \([a-z]*\).*/\1/p' | grep . | xargs)" \
    "$(complete '' | sed 's/ --.*//')"

(umask 077 && cpack -G DEB --config "$build/CPackConfig.cmake" -B packages >cpack.log 2>&1) || fail "$(cat cpack.log)"
version=$(moved/bin/atlas-host --version | cut -d ' ' -f 2)
package_of() { compgen -G "packages/$1_${version}_*.deb"; }
field() { dpkg-deb -f "$(package_of "$1")" "$2"; }
mkdir -p root
manual=()
[ ! -e moved/share/doc/styleatlas-doc ] || manual=(styleatlas-doc)
for name in "${manual[@]}" libstyleatlas1 libstyleatlas-editor libstyleatlas-dev libstyleatlas-qt1 libstyleatlas-qt-dev \
    python3-styleatlas atlas-layout atlas-host; do
    package=$(package_of $name)
    dpkg-deb -c "$package" >>contents
    dpkg-deb -x "$package" "root/$name"
    dpkg-deb -x "$package" root/all
done
expect 'the modes and owners in the packages' \
    '-rw-r--r-- root/root, -rwxr-xr-x root/root, drwxr-xr-x root/root, lrwxrwxrwx root/root' \
    "$(awk '{ print $1, $2 }' contents | sort -u | paste -sd , | sed 's/,/, /g')"
expect 'the files of all packages' "$(cd moved && find . | sort)" "$(cd root/all/usr && find . | sort)"
expect 'what can be executed' 'atlas-host atlas-layout' "$(find root/all -type f -perm /111 -printf '%f\n' | sort | xargs)"
! grep -rlF "$sources" root/all || fail 'a packaged file names a folder of the sources'
while read -r file; do
    ! readelf -SW "$file" | grep -q '\.debug_' || fail "$file is packaged with debugging information"
done < <(find root/all/usr/bin root/all/usr/lib -type f \( -path '*/bin/*' -o -name '*.so*' \))
expect 'the libraries for building' 'libstyleatlas.so libstyleatlas-qt.so' \
    "$(find root/libstyleatlas-dev root/libstyleatlas-qt-dev -name '*.so*' -printf '%f\n' | xargs)"
find root/libstyleatlas1 | grep -E '/include|\.cmake$|\.pc$' && fail 'the runtime package has files of the other'
[[ $(field libstyleatlas1 Depends) =~ libc6.*libsqlite3-0 ]] || fail 'the runtime package lacks a dependency'
[[ $(field libstyleatlas1 Depends) != *qt* ]] || fail 'the runtime package depends on Qt'
expect 'what the packages recommend' 'libstyleatlas-editor, qt6-translations-l10n' \
    "$(field libstyleatlas1 Recommends), $(field libstyleatlas-editor Recommends)"
[[ $(field libstyleatlas-editor Depends) = *libqt6widgets6* ]] || fail 'the editor lacks a dependency'
for name in libstyleatlas-editor libstyleatlas-dev libstyleatlas-qt1 python3-styleatlas atlas-layout \
    atlas-host; do
    [[ ", $(field $name Depends)," = *", libstyleatlas1 (= $version),"* ]] || fail "$name does not depend on its libraries"
done
[[ $(field atlas-host Depends) = *libqt6widgets6* ]] || fail 'the program lacks a dependency'
[[ $(field atlas-host Depends) = *libstyleatlas-qt1* ]] || fail 'the program lacks the painting library'
[[ $(field libstyleatlas-qt-dev Depends) = *libstyleatlas-dev*qt6-base-dev* ]] || fail 'the Qt headers lack a dependency'
[[ $(field atlas-host Depends) = *atlas-layout* ]] || fail 'the program lacks its tool'
[[ $(field atlas-layout Depends) != *qt* ]] || fail 'the tool depends on Qt'
expect 'the soname' 'libstyleatlas.so.1' \
    "$(objdump -p "$(find root/libstyleatlas1 -name libstyleatlas.so.1)" | awk '$1 == "SONAME" { print $2 }')"
expect 'the packaged program' "$(cat table.txt)" "$(LC_ALL=de_DE.UTF-8 root/all/usr/bin/atlas-host table 2>/dev/null)"

# The package of the libraries alone, in a folder that has nothing else of the project. A display is named, which is
# of no use without the editor.
library=$(realpath "$(find root/libstyleatlas1 -name libstyleatlas.so.1)")
cat >bare.c <<'EOF'
#include <stdio.h>
#include <styleatlas.h>
int main(void)
{
    uint32_t color;
    int16_t number;
    uint8_t flag;
    StyleAtlasSetApplication(u"AirLab");
    printf("%d", GetStyleAtlas(1, 12, 2, 0, 3, 1, &color, &number, &number, &number, &color, &number, &number, &flag));
    for (int i = 0; i < 2; ++i)
        printf(" %d", EditStyleAtlas(0));
    return 0;
}
EOF
cc -Imoved/include bare.c -o bare_host "$library" "-Wl,-rpath,${library%/*}"
bare() { DISPLAY=:987 LC_ALL=C ./bare_host 2>bare.log; }
rm "$layout"
expect 'a host of the libraries alone' '1 -1 -1' "$(bare)"
expect 'what it hears of the editor' 1 "$(grep -c 'no window can be shown: .*libstyleatlas-editor.so' bare.log)"
printf damaged >"$layout"
expect 'the same with a damaged file' '1 -1 -1' "$(bare)"
expect 'its messages' 1,1 "$(grep -c 'no window' bare.log),$(grep -c '^Error: Cannot load' bare.log)"
! LD_LIBRARY_PATH='' ldd "$library" | grep -i qt || fail 'the library needs Qt'

shown() { # library
    nm -D --defined-only "$(find root/libstyleatlas1 -name "$1")" | awk '{ print $3 }' | sed 's/@@/@/; /@/!s/.*/&@&/' | sort
}
listed() { # library
    awk -v name="$1" '/^lib/ { on = $1 == name } on && /^ / { print $1 }' symbols | sort
}
dpkg-deb -I "$(package_of libstyleatlas1)" symbols >symbols
for name in libstyleatlas.so.1 libmensura.so.1 libglossa.so.1; do
    expect "the symbols of $name" "$(shown $name)" "$(listed $name)"
done
