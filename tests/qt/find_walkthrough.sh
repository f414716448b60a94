#!/usr/bin/env bash
# The window under a real X server with a window manager, driven as a reader drives it: a file
# dragged from another window and dropped on it opens; Ctrl+F finds a word and Enter goes to it,
# Escape closes the bar, Ctrl+C copies the line found; then a drag across a line from the view's
# left edge to its right one, and Ctrl+C again. The clipboard, read back with xclip, holds the
# lines as they stand in the file.
# Usage: find_walkthrough.sh HALYARD DRAG-SOURCE. Exit 77: skipped (no Xvfb, window manager,
# xdotool or xclip).
# With SHOTS set to a folder, pictures of the find bar and of a selection are kept there.
set -euo pipefail
halyard=$1
drag_source=$2
tools="xclip"
source "$(dirname "$0")/x_session.sh"

printf '[General]\nShowOpenDialog=No\nScreen=300 300 12000 7500\n' >"$HLYD_CONFIG_DIR/HLYD.INI"
printf 'Attribute VB_Name = "modOrders"\r\nOption Explicit\r\n\r\n'"' Adds up the order.\r\n"'Public Function OrderTotal(ByVal count As Long) As Currency\r\n    Dim total As Currency, i As Long\r\n    For i = 1 To count\r\n\tIf Price(i) > 0 Then total = total + Price(i) * Quantity(i) + ShippingCost(i) + HandlingFee(i)\r\n    Next i\r\n    OrderTotal = total\r\nEnd Function\r\n' >"$work/Orders.bas"

"$halyard" >"$work/out" 2>&1 &
pids+=($!)
main=$(window_titled "^Halyard") || fail "the window did not come up: $(cat "$work/out")"

# The file dragged from a window beside it and let go over the view, in steps as a hand moves.
"$drag_source" "$work/Orders.bas" >"$work/drag" 2>&1 &
pids+=($!)
source_window=$(window_titled "Drag source") || fail "the drag source did not come up"
# Side by side, neither over the other: the main window 800 x 500 at the top, the source below.
xdotool windowmove --sync "$main" 20 20
xdotool windowmove --sync "$source_window" 100 620
xdotool windowactivate --sync "$source_window"
sleep 0.3
eval "$(xdotool getwindowgeometry --shell "$main")"
# A loaded machine may be slow to begin the drag: the pointer goes on only when it has begun, and
# each step waits for the window under it to answer.
xdotool mousemove 200 690 mousedown 1 sleep 0.2 mousemove 210 685 sleep 0.2 mousemove 220 680
for _ in $(seq 50); do grep -q dragging "$work/drag" && break; sleep 0.1; done
grep -q dragging "$work/drag" || fail "the drag did not begin: $(cat "$work/drag")"
for step in $(seq 1 10); do
    xdotool mousemove $((220 + (X + WIDTH / 2 - 220) * step / 10)) $((680 - (680 - Y - HEIGHT / 2) * step / 10))
    sleep 0.1
done
sleep 0.5
xdotool mouseup 1
for _ in $(seq 50); do grep -qE "taken|refused" "$work/drag" && break; sleep 0.1; done
main=$(window_titled "Halyard - Orders.bas") || fail "the dropped file is not shown: $(cat "$work/drag" "$work/out")"
grep -q taken "$work/drag" || fail "the drop was not taken: $(cat "$work/drag")"
xdotool windowactivate --sync "$main"
sleep 0.5

clipboard() { xclip -selection clipboard -o 2>/dev/null || true; }
line_of_file() {  # whether the text is one whole line of the file, as it stands there
    tr -d '\r' <"$work/Orders.bas" | grep -qxF -- "$1"
}

# Find a word that only the line to copy holds, and copy what the find selected: then the line
# itself, found again as a whole.
xdotool key ctrl+f
sleep 0.3
xdotool type --delay 5 "ByVal count"
xdotool key Return
sleep 0.5
[ -n "${SHOTS:-}" ] && import -window "$main" "$SHOTS/find-bar.png"
xdotool key Escape ctrl+c
sleep 0.3
[ "$(clipboard)" = "ByVal count" ] || fail "the found word was not copied: '$(clipboard)'"
xdotool key ctrl+f ctrl+a
xdotool type --delay 5 "Public Function OrderTotal(ByVal count As Long) As Currency"
xdotool key Return Escape ctrl+c
sleep 0.3
copied=$(clipboard)
line_of_file "$copied" || fail "the copied line is not the file's: '$copied'"

# A drag down the view, from left of a line's text to past the end of a line below it: whole lines
# (the For block, with its tab-indented line, where the default fonts put it), indentation and
# blanks as in the file, no wrap marks.
eval "$(xdotool getwindowgeometry --shell "$main")"
xdotool mousemove $((X + 3)) $((Y + 158)) mousedown 1 mousemove $((X + WIDTH / 2)) $((Y + 173)) \
    mousemove $((X + WIDTH - 40)) $((Y + 188)) mouseup 1
sleep 0.3
[ -n "${SHOTS:-}" ] && import -window "$main" "$SHOTS/selection.png"
xdotool key ctrl+c
sleep 0.3
copied=$(clipboard)
[ -n "$copied" ] || fail "the drag copied nothing"
while IFS= read -r line; do
    line_of_file "$line" || fail "a dragged line is not the file's: '$line' in '$copied'"
done <<<"$copied"
echo "PASS: copied '$copied'"
