#!/usr/bin/env bash
# Runs a program under weston, a Wayland compositor, in a window of the X server at hand. The first argument is the
# folder of Qt's platform plugins.
set -euo pipefail
for tool in weston xdotool; do
    command -v "$tool" >/dev/null || { printf 'skipped: there is no %s\n' "$tool"; exit; }
done
compgen -G "$1/libqwayland*" >/dev/null || { printf 'skipped: Qt has no plugin for Wayland\n'; exit; }
shift
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
# Versions differ in the name of the key for the renderer.
printf '[core]\nshell=kiosk-shell.so\nidle-time=0\nuse-pixman=true\nrenderer=pixman\n' >"$XDG_RUNTIME_DIR/weston.ini"
weston --backend=x11-backend.so --config="$XDG_RUNTIME_DIR/weston.ini" --socket=compositor >"$XDG_RUNTIME_DIR/log" 2>&1 &
trap 'kill %1; wait; rm -rf "$XDG_RUNTIME_DIR"' EXIT
until [ -S "$XDG_RUNTIME_DIR/compositor" ]; do
    kill -0 %1 || { cat "$XDG_RUNTIME_DIR/log"; exit 1; }
    sleep 0.1
done
WAYLAND_DISPLAY=compositor QT_QPA_PLATFORM=wayland "$@"
