#!/usr/bin/env bash
# Runs of the programs without a window, end to end: each must finish on its own, tell on
# standard error what it would have asked, and print valid JSON. Usage: windowless_runs.sh CASE BINARY
set -euo pipefail
case_name=$1
binary=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR=$work/config QT_QPA_PLATFORM=offscreen
mkdir -p "$HLYD_CONFIG_DIR"
cd "$work"  # a print on the PDF printer writes <name>.pdf here
fail() { echo "FAIL: $*" >&2; exit 1; }
run() {  # a run that waits for an answer would never end
    local rc=0
    timeout 60 "$@" >"$work/out" 2>"$work/err" || rc=$?
    [ "$rc" -ne 124 ] || fail "$* did not finish: $(cat "$work/err")"
    echo "$rc"
}

case $case_name in
render-json)
    # A Latin-1 file name and a control character in the output name.
    name=$(printf 'caf\xe9.bas')
    printf 'Attribute VB_Name = "M"\r\nx = 1\r\n' >"$work/$name"
    out=$(printf '%s/x\001.png' "$work")
    rc=$(run "$binary" --view "$work/$name" --out "$out")
    [ "$rc" -eq 0 ] || fail "exit $rc: $(cat "$work/err")"
    iconv -f UTF-8 -t UTF-8 "$work/out" >/dev/null || fail "not UTF-8: $(cat -v "$work/out")"
    grep -q 'x\\u0001\.png' "$work/out" || fail "control character not escaped: $(cat -v "$work/out")"
    grep -q "caf$(printf '\xc3\xa9')" "$work/out" || fail "name not converted: $(cat -v "$work/out")"
    ;;
log-directory)
    # The log named by the settings is a directory; a command-line run must not wait on the box.
    mkdir "$work/logdir"
    printf '[Debug]\nLoggingIsOn=Yes\nLogFile=%s\n' "$work/logdir" >"$HLYD_CONFIG_DIR/HLYD.INI"
    printf 'x = 1\r\n' >"$work/M.bas"
    run "$binary" "$work/M.bas" >/dev/null
    grep -q "will not write the log file $work/logdir named by LogFile" "$work/err" ||
        fail "not told on standard error: $(cat "$work/err")"
    ;;
group-missing-project)
    printf 'VBGROUP 5.0\r\nProject=Gone.vbp\r\n' >"$work/G.vbg"
    run "$binary" --project "$work/G.vbg" >/dev/null
    grep -q "answered Cancel" "$work/err" || fail "Retry/Cancel not answered Cancel: $(cat "$work/err")"
    ;;
*)
    fail "unknown case $case_name"
    ;;
esac
