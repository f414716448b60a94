#!/usr/bin/env bash
# An HTML export, the help, the version and a misused option start without the window system: not
# one of its libraries is loaded. A print loads the window part, and finds it.
# Usage: core_alone_start.sh HALYARD
set -euo pipefail
halyard=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR=$work/config
printf 'Attribute VB_Name = "modA"\r\nSub A()\r\nEnd Sub\r\n' >"$work/A.bas"
fail() { echo "FAIL: $*" >&2; exit 1; }

without_window_system() {
    LD_DEBUG=libs "$halyard" "$@" >/dev/null 2>"$work/loader" || true
    ! grep -q "libQt6" "$work/loader" || fail "halyard $* loaded the window system"
}
without_window_system --quiet --html "$work/A.html" "$work/A.bas"
grep -q "<html>" "$work/A.html" || fail "the export wrote no document"
without_window_system --help
without_window_system --version
without_window_system --bogus

LD_DEBUG=libs "$halyard" --quiet --pdf "$work/A.pdf" "$work/A.bas" >/dev/null 2>"$work/loader" ||
    fail "the print failed: $(grep -v '^ *[0-9]*:' "$work/loader")"
grep -q "libQt6Gui" "$work/loader" || fail "the print ran without the window part"
[ -s "$work/A.pdf" ] || fail "the print wrote no PDF"
echo "ok"
