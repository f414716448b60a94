#!/usr/bin/env bash
# An HTML export, the help, the version and a misused option start without the window system: not
# one of its libraries is loaded. A print to the PDF printer loads the print part alone, a print on
# a system printer the window part, and each finds its part.
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

# A print to the PDF printer alone loads the print part: Qt's graphics, but neither the widgets
# nor the print support, whose print service plugin would ask for printers the run never uses.
print_part() {
    LD_DEBUG=libs "$halyard" "$@" >/dev/null 2>"$work/loader" ||
        fail "halyard $* failed: $(grep -v '^ *[0-9]*:' "$work/loader")"
    grep -q "halyard-print" "$work/loader" || fail "halyard $* ran without the print part"
    grep -q "libQt6Gui" "$work/loader" || fail "halyard $* ran without Qt's graphics"
    for lib in halyard-window libQt6Widgets libQt6PrintSupport printersupport libcups; do
        ! grep -q "$lib" "$work/loader" || fail "halyard $* loaded $lib"
    done
}
print_part --quiet --pdf "$work/A.pdf" "$work/A.bas"
[ -s "$work/A.pdf" ] || fail "the print wrote no PDF"
mv "$work/A.pdf" "$work/first.pdf"

# A later print reads the faces the first one found from their files: neither part nor Qt, and
# the same file to the byte.
on_core() {
    LD_DEBUG=libs "$halyard" "$@" >/dev/null 2>"$work/loader" ||
        fail "halyard $* failed: $(grep -v '^ *[0-9]*:' "$work/loader")"
    for lib in halyard-print halyard-window libQt6; do
        ! grep -q "$lib" "$work/loader" || fail "halyard $* loaded $lib"
    done
}
on_core --quiet --pdf "$work/A.pdf" "$work/A.bas"
cmp -s "$work/first.pdf" "$work/A.pdf" || fail "the print on the core wrote another PDF"
rm "$work/A.pdf"
(cd "$work" && on_core --quiet --printer PDF A.bas)
cmp -s "$work/first.pdf" "$work/A.pdf" || fail "the print on the PDF printer on the core wrote another PDF"
rm "$work/A.pdf"
# Without what the first print found, the print part prints again.
rm "$HLYD_CONFIG_DIR/face-files"
(cd "$work" && print_part --quiet --printer PDF A.bas)
[ -s "$work/A.pdf" ] || fail "the print on the PDF printer wrote no PDF"

# A printer of the system is the window part's: it knows the print service.
LD_DEBUG=libs "$halyard" --quiet --printer "No Such Printer" "$work/A.bas" >/dev/null 2>"$work/loader" || true
grep -q "libQt6PrintSupport" "$work/loader" || fail "a print on a system printer ran without the window part"
echo "ok"
