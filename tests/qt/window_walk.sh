#!/usr/bin/env bash
# The program as a user meets it on an X server with a window manager: started with a file of
# our own, the file shows; maximised, quit with Ctrl+Q and started again, the window comes back
# maximised. Usage: window_walk.sh HALYARD. Exit 77: skipped (no Xvfb, openbox, xdotool, xprop
# or xwininfo).
set -euo pipefail
halyard=$1
tools="xprop xwininfo"
source "$(dirname "$0")/x_session.sh"

printf '[General]\nShowOpenDialog=No\n' >"$HLYD_CONFIG_DIR/HLYD.INI"
printf 'Attribute VB_Name = "modWalk"\r\nPublic Sub Walk()\r\n    Debug.Print "walk"\r\nEnd Sub\r\n' >"$work/Walk.bas"

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
