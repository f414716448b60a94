#!/usr/bin/env bash
# The program as a user meets it on an X server with a window manager: started with a file of
# our own, the file shows; maximised, quit with Ctrl+Q and started again, the window comes back
# maximised. Usage: window_walk.sh HALYARD. Exit 77: skipped (no Xvfb, openbox, xdotool, xprop
# or xwininfo).
set -euo pipefail
halyard=$1
for tool in Xvfb openbox xdotool xprop xwininfo; do
    command -v "$tool" >/dev/null || { echo "SKIP: $tool is missing"; exit 77; }
done
work=$(mktemp -d)
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

# A display of its own: the server names the first free one.
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 50); do [[ -s $work/display ]] && break; sleep 0.1; done
[[ -s $work/display ]] || fail "Xvfb did not start"
export DISPLAY=:$(cat "$work/display")
# On that display, whatever platform the other tests were told to use.
export QT_QPA_PLATFORM=xcb
openbox >/dev/null 2>&1 &
pids+=($!)
sleep 1

export HLYD_CONFIG_DIR=$work/config
mkdir -p "$HLYD_CONFIG_DIR"
printf '[General]\nShowOpenDialog=No\n' >"$HLYD_CONFIG_DIR/HLYD.INI"
printf 'Attribute VB_Name = "modWalk"\r\nPublic Sub Walk()\r\n    Debug.Print "walk"\r\nEnd Sub\r\n' >"$work/Walk.bas"

# Waits for the main window with the title; prints its id.
window_titled() {
    for _ in $(seq 100); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 || true)
        [[ -n $id ]] && { echo "$id"; return 0; }
        sleep 0.1
    done
    return 1
}
maximised() { xprop -id "$1" _NET_WM_STATE | grep -q _NET_WM_STATE_MAXIMIZED_VERT; }
start() {
    "$halyard" --open "$work/Walk.bas" >"$work/out" 2>&1 &
    pid=$!
    pids+=($pid)
}
quit() {
    xdotool windowactivate --sync "$1" key ctrl+q
    for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null || return 0; sleep 0.1; done
    fail "Ctrl+Q did not end the program"
}

start
id=$(window_titled "Halyard - Walk.bas") || fail "no window shows Walk.bas: $(cat "$work/out")"
maximised "$id" && fail "the first start is maximised"
xdotool windowactivate --sync "$id"
# A double click on the title bar maximises, as a user does it.
frame_top=$(xwininfo -id "$id" | awk '/Absolute upper-left Y/ {a=$4} /Relative upper-left Y/ {r=$4} END {print a - r / 2}')
frame_left=$(xwininfo -id "$id" | awk '/Absolute upper-left X/ {print $4 + 80}')
xdotool mousemove "$frame_left" "$frame_top" click --repeat 2 --delay 80 1
for _ in $(seq 50); do maximised "$id" && break; sleep 0.1; done
maximised "$id" || fail "the window could not be maximised"
quit "$id"
grep -q '^WindowState=2' "$HLYD_CONFIG_DIR/HLYD.INI" || fail "the settings do not keep the maximised state"

start
id=$(window_titled "Halyard - Walk.bas") || fail "no window after the restart: $(cat "$work/out")"
for _ in $(seq 50); do maximised "$id" && break; sleep 0.1; done
maximised "$id" || fail "the window did not come back maximised"
quit "$id"
echo "PASS"
