# Sourced by the walk-throughs: a work folder, an X server of its own with a window manager, and
# waiting for a window. Needs `tools` (the commands the walk-through uses) set before it is read;
# exits 77 (skipped) when one of them or Xvfb/openbox is missing.
for tool in Xvfb openbox xdotool ${tools:-}; do
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

# Waits for a visible window whose title matches; prints its id. The search is asked again while
# windows come and go (the splash).
window_titled() {
    local id
    for _ in $(seq 100); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 || true)
        [[ -n $id ]] && { echo "$id"; return 0; }
        sleep 0.1
    done
    return 1
}
