#!/bin/sh
# Runs a command in a desktop session of its own: X server, window manager, session bus, accessibility bus, and a
# home folder that is thrown away afterwards. Usage: run_in_session.sh <command> [argument...]
set -eu

home=$(mktemp -d)
cleanup() {
  [ -z "${manager:-}" ] || kill "$manager" 2>/dev/null || true
  [ -z "${server:-}" ] || kill "$server" 2>/dev/null || true
  rm -rf "$home"
}
trap cleanup EXIT
trap 'exit 1' INT TERM

mkdir -p "$home/config" "$home/data" "$home/cache" "$home/runtime"
chmod 700 "$home/runtime"
export HOME="$home" XDG_CONFIG_HOME="$home/config" XDG_DATA_HOME="$home/data" XDG_CACHE_HOME="$home/cache"
export XDG_RUNTIME_DIR="$home/runtime" XDG_DATA_DIRS=/usr/local/share:/usr/share
export GDK_BACKEND=x11 NO_AT_BRIDGE=0 LC_ALL=C.UTF-8
unset DBUS_SESSION_BUS_ADDRESS WAYLAND_DISPLAY

# The server says on the pipe which display it found free. It does not start anew whenever its only client goes, which would
# take the window manager along that is just coming.
mkfifo "$home/display"
Xvfb -displayfd 3 -screen 0 "${QB_SCREEN:-1280x900x24}" -nolisten tcp -noreset -r 3>"$home/display" 2>/dev/null &
server=$!
read -r number <"$home/display"
export DISPLAY=":$number"
openbox >/dev/null 2>&1 &
manager=$!
# Until the window manager has taken over, windows are neither placed nor closed nor given the keyboard.
until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
  kill -0 "$manager" 2>/dev/null || { echo "The window manager has ended" >&2; exit 1; }
  sleep 0.05
done
# The first key that is sent changes the keyboard's map, and the window manager takes its keys anew; one of them that
# came right then would be lost.
xdotool key shift

dbus-run-session -- "$@"
