#!/usr/bin/env bash
# Takes the pictures of docs/desktops.md: the editor, with a curve's style open, on several desktops. Needs the packages
# xvfb, xauth, openbox, xdotool, x11-utils, imagemagick, qt6ct, weston, qt6-wayland and qt6-translations-l10n.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
host=$PWD/build/release/bin/atlas-host
[ -x "$host" ] || { printf '%s is not built\n' "$host" >&2; exit 1; }
if [ -z "${DESKTOPS_SERVER:-}" ]; then
    DESKTOPS_SERVER=1 exec xvfb-run -a -s '-screen 0 2400x1700x24' "${BASH_SOURCE[0]}"
fi

folder=$(mktemp -d)
clean_up() {
    [ "$BASHPID" = $$ ] || return 0
    jobs -p | xargs -r kill 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap clean_up EXIT
export XDG_RUNTIME_DIR=$folder XDG_CONFIG_HOME=$folder/config HOME=$folder LC_ALL=C.UTF-8

# Waits until a command succeeds.
await() {
    local i
    for ((i = 0; i < 100; ++i)); do
        "$@" && return
        sleep 0.1
    done
    printf 'this took too long: %s\n' "$*" >&2
    exit 1
}
# Waits until two pictures of the screen are equal.
settle() {
    local before=
    until [ "$before" = "$(import -window root rgb:- | md5sum)" ]; do
        before=$(import -window root rgb:- | md5sum)
        sleep 0.4
    done
}
# take NAME SCALE [VARIABLE=VALUE ...]: double-clicks the first cell of the editor's second row and keeps the editor's part
# of the screen. The editor stands at the screen's corner.
take() {
    local name=$1 scale=$2 place size
    shift 2
    at() { awk -v x="$1" -v scale="$scale" 'BEGIN { printf "%d", x * scale }'; }
    env STYLEATLAS_PREFIX="$folder/prefix" QT_SCALE_FACTOR="$scale" "$@" "$host" edit >"$folder/log" 2>&1 &
    local editor=$!
    place=$(find_editor)
    settle
    read -r x y width height <<<"$place"
    local cell=$((x + $(at 200)))
    [[ $name == right-to-left ]] && cell=$((x + width - $(at 540)))
    xdotool mousemove "$cell" $((y + $(at 92))) click --repeat 2 --delay 60 1
    sleep 1
    settle
    import -window root -crop "${width}x$((height < $(at 500) ? height : $(at 500)))+$x+$y" +repage -strip \
        "PNG8:docs/desktops/$name.png"
    kill "$editor"
    wait "$editor" 2>/dev/null || true
    printf 'docs/desktops/%s.png\n' "$name"
}
# The place of the newest window of the host: left, top, width, height.
find_editor() {
    await eval 'xdotool search --onlyvisible --class styleatlas >"'"$folder"'/windows" 2>/dev/null'
    sleep 1
    xwininfo -id "$(tail -n 1 "$folder/windows")" |
        sed -nE 's/^ *(Absolute upper-left [XY]|Width|Height): *//p' | paste -sd ' '
}

mkdir -p docs/desktops "$XDG_CONFIG_HOME/qt6ct"
printf '[Appearance]\ncustom_palette=true\ncolor_scheme_path=/usr/share/qt6ct/colors/darker.conf\nstyle=Fusion\n' \
    >"$XDG_CONFIG_HOME/qt6ct/qt6ct.conf"
openbox 2>/dev/null &
manager=$!
export QT_QPA_PLATFORM=xcb
take light 1
take scale-1.5 1.5
take scale-2 2
take dark 1 QT_QPA_PLATFORMTHEME=qt6ct
take right-to-left 1 LANGUAGE=ar
take german 1 LANGUAGE=de LC_ALL=de_DE.UTF-8
take french 1 LANGUAGE=fr LC_ALL=fr_FR.UTF-8
take spanish 1 LANGUAGE=es LC_ALL=es_ES.UTF-8
kill "$manager" 2>/dev/null || true

# Here the editor fills the compositor's window, which is at the screen's corner without a window manager.
find_editor() {
    sleep 3
    echo 0 0 890 564
}
# Versions differ in the name of the key for the renderer.
printf '[core]\nshell=kiosk-shell.so\nidle-time=0\nuse-pixman=true\nrenderer=pixman\n' >"$folder/weston.ini"
weston --backend=x11-backend.so --config="$folder/weston.ini" --width=890 --height=564 --socket=desktops \
    >"$folder/weston.log" 2>&1 &
await test -S "$folder/desktops"
export WAYLAND_DISPLAY=desktops QT_QPA_PLATFORM=wayland
take wayland 1
