#!/usr/bin/env bash
# The files the program writes, end to end through halyard in batch: the log, the print history,
# the PDF and the HTML document never write over a file of the user's, and an output that cannot
# be finished leaves nothing behind. Usage: halyard_outputs.sh CASE BINARY
set -euo pipefail
case_name=$1
halyard=$2
work=$(mktemp -d)
trap 'chmod -R u+w "$work" 2>/dev/null; rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR=$work/config QT_QPA_PLATFORM=offscreen
mkdir -p "$HLYD_CONFIG_DIR" "$work/p"
cd "$work"
fail() { echo "FAIL: $*" >&2; exit 1; }
run() {  # the exit status; standard output and error in $work/out and $work/err
    local rc=0
    timeout 120 "$halyard" "$@" >"$work/out" 2>"$work/err" || rc=$?
    [ "$rc" -ne 124 ] || fail "halyard $* did not finish"
    echo "$rc"
}
settings() { printf '%b' "$1" >"$HLYD_CONFIG_DIR/HLYD.INI"; }

# A small project of our own, and a copy of every file to compare with after a run.
printf 'Attribute VB_Name = "modMain"\r\nOption Explicit\r\n\r\nPublic Sub Main()\r\n    Helper 1\r\nEnd Sub\r\n' >p/Main.bas
printf 'Attribute VB_Name = "modOther"\r\nPublic Sub Helper(ByVal n As Integer)\r\n    Debug.Print n\r\nEnd Sub\r\n' >p/Other.bas
printf 'Type=Exe\r\nModule=modMain; Main.bas\r\nModule=modOther; Other.bas\r\nName="P"\r\n' >p/P.vbp
printf 'notes of the user\n' >p/notes.txt
keep() { rm -rf "$work/kept"; cp -a "$work/p" "$work/kept"; }
unchanged() {  # every file of the project as it was, and nothing new beside them
    diff -r "$work/kept" "$work/p" >/dev/null || fail "$1: the user's files changed: $(diff -r "$work/kept" "$work/p" | head -5)"
    # The settings file is the program's own to save, but never as an output.
    grep -q '^\[General\]' "$HLYD_CONFIG_DIR/HLYD.INI" || fail "$1: HLYD.INI was written over"
}
refused() {  # $1 the run's name, $2 the status, $3 what the message must name
    [ "$2" -eq 3 ] || fail "$1: exit $2, not 3: $(cat "$work/err")"
    grep -q "will not write .*$3" "$work/err" || fail "$1: the refusal does not name $3: $(cat "$work/err")"
    ! grep -q "halyard: printing" "$work/err" || fail "$1: printing began before the refusal: $(cat "$work/err")"
    [ ! -s "$work/out" ] || fail "$1: said it wrote $(cat "$work/out")"
}

case $case_name in
log)
    # The log named like a member of the project, like a file of other content, like the project.
    for target in p/Other.bas p/notes.txt p/P.vbp; do
        settings "[General]\nSaveHYInfo=No\n[Debug]\nLoggingIsOn=Yes\nLogFile=$work/$target\n"
        keep
        rc=$(run --pdf "$work/out.pdf" p/P.vbp)
        refused "LogFile=$target" "$rc" "$target.*LogFile"
        unchanged "LogFile=$target"
        [ ! -e out.pdf ] || fail "LogFile=$target: the PDF was written all the same"
    done
    # A log of ours is written again, run after run.
    settings "[General]\nSaveHYInfo=No\n[Debug]\nLoggingIsOn=Yes\nLogFile=$work/run.log\n"
    for round in 1 2; do
        rc=$(run --pdf "$work/out.pdf" p/P.vbp)
        [ "$rc" -eq 0 ] || fail "a log of ours, round $round: exit $rc: $(cat "$work/err")"
        grep -q "Logfile $work/run.log Created" run.log || fail "round $round: no log written"
    done
    ;;
history)
    # The history named like a member that is printed, and like a settings file of another kind.
    printf '[Window]\nTop=1\n' >p/other.ini
    for target in p/Main.bas p/other.ini; do
        settings "[General]\nSaveHYInfo=Yes\nSaveHYFile=$work/$target\n"
        keep
        rc=$(run --pdf "$work/out.pdf" p/P.vbp)
        refused "SaveHYFile=$target" "$rc" "$target.*SaveHYFile"
        unchanged "SaveHYFile=$target"
        [ ! -e out.pdf ] || fail "SaveHYFile=$target: the PDF was written all the same"
    done
    # A history of ours takes the entries of the members printed.
    settings "[General]\nSaveHYInfo=Yes\nSaveHYFile=$work/hist.tmr\n"
    rc=$(run --pdf "$work/out.pdf" p/P.vbp)
    [ "$rc" -eq 0 ] || fail "a new history: exit $rc: $(cat "$work/err")"
    grep -q "^\[Tamarin Halyard for Visual Basic\]" hist.tmr || fail "no history section: $(cat hist.tmr)"
    grep -q "Other.bas=" hist.tmr || fail "no entry for Other.bas: $(cat hist.tmr)"
    rc=$(run --pdf "$work/out.pdf" p/P.vbp)
    [ "$rc" -eq 0 ] || fail "the history again: exit $rc: $(cat "$work/err")"
    ;;
pdf-html)
    settings "[General]\nSaveHYInfo=No\n"
    # A PDF over a source, a project, the settings file, a text file; an HTML document over a text
    # file; both outputs one file.
    printf 'not a pdf\n' >p/old.pdf
    cases=("--pdf p/Other.bas" "--pdf p/P.vbp" "--pdf $HLYD_CONFIG_DIR/HLYD.INI" "--pdf p/old.pdf"
           "--html p/notes.txt" "--html p/Other.bas" "--pdf p/same.out --html p/same.out")
    names=("Other.bas.*--pdf" "P.vbp.*--pdf" "HLYD.INI.*--pdf" "old.pdf.*--pdf" "notes.txt.*--html" "Other.bas.*--html"
           "same.out")
    for i in "${!cases[@]}"; do
        keep
        # shellcheck disable=SC2086
        rc=$(run ${cases[$i]} p/Main.bas)
        refused "${cases[$i]}" "$rc" "${names[$i]}"
        unchanged "${cases[$i]}"
    done
    # The outputs of an earlier run are ours: written again without a word.
    for round in 1 2; do
        rc=$(run --pdf p/list.pdf --html p/list.html p/Main.bas)
        [ "$rc" -eq 0 ] || fail "round $round: exit $rc: $(cat "$work/err")"
    done
    head -c 4 p/list.pdf | grep -q '%PDF' || fail "no PDF written"
    ;;
temporaries)
    settings "[General]\nSaveHYInfo=No\n"
    # A module long enough that a signal finds the run at work.
    seq 1 12000 | awk '{ printf "Public Function F%d(ByVal a As Long) As Long\r\n    If a > %d Then\r\n        F%d = a * 2 \x27 twice\r\n    Else\r\n        F%d = a - 1\r\n    End If\r\nEnd Function\r\n", $1, $1, $1, $1 }' >big.bas
    rc=$(run --pdf out.pdf --html o.html p/Main.bas)
    [ "$rc" -eq 0 ] || fail "the first good outputs: exit $rc: $(cat "$work/err")"
    cp out.pdf good.pdf
    cp o.html good.html
    no_temporaries() { ! ls -A "$work" | grep -q '\.tmp$' || fail "$1 left $(ls -A "$work" | grep '\.tmp$')"; }
    # Job control on: a job started in the background keeps SIGINT as a terminal would give it.
    set -m
    # Starts the run and stops it while its temporary file is there; a run too quick to be caught
    # is tried again.
    stopped_at_work() {
        for _ in 1 2 3 4 5; do
            "$halyard" --quiet "$option" "$out" big.bas >/dev/null 2>&1 &
            pid=$!
            while kill -0 "$pid" 2>/dev/null; do
                if compgen -G "$work/$temp" >/dev/null; then
                    kill -s STOP "$pid"
                    compgen -G "$work/$temp" >/dev/null && return 0
                    kill -s CONT "$pid"
                fi
                sleep 0.01
            done
            wait "$pid" || true
        done
        fail "SIG$signal: the run was never caught with its temporary file"
    }
    for signal in INT TERM HUP SEGV; do
        option=--pdf out=out.pdf temp='.out.pdf.*.tmp'
        if [ "$signal" = SEGV ]; then option=--html out=o.html temp='.o.html.*.tmp'; fi
        stopped_at_work
        kill -s "$signal" "$pid"
        kill -s CONT "$pid"
        # Under job control `wait` also returns when the stopped job is reported, while the run
        # may still be removing its temporary file: wait until it has really ended.
        rc=0
        wait "$pid" || rc=$?
        while kill -0 "$pid" 2>/dev/null; do
            rc=0
            wait "$pid" || rc=$?
        done
        [ "$rc" -gt 128 ] || fail "SIG$signal: the run ended with exit $rc"
        no_temporaries "SIG$signal"
        cmp -s out.pdf good.pdf || fail "SIG$signal: the earlier PDF did not survive"
        cmp -s o.html good.html || fail "SIG$signal: the earlier HTML document did not survive"
    done
    set +m
    # A name as long as the file system allows: its temporary name must not be longer.
    long=$(printf 'L%.0s' $(seq 1 251)).pdf
    rc=$(run --pdf "$long" p/Main.bas)
    [ "$rc" -eq 0 ] && [ -s "$long" ] || fail "a name of 255 characters: exit $rc: $(cat "$work/err")"
    no_temporaries "a long name"
    # A folder that cannot be written is refused before the first page. Root writes everywhere
    # but in /sys.
    folder=/sys
    if [ "$(id -u)" -ne 0 ]; then mkdir locked && chmod 555 locked && folder=$work/locked; fi
    rc=$(run --pdf "$folder/out.pdf" big.bas)
    [ "$rc" -eq 3 ] || fail "an unwritable folder: exit $rc: $(cat "$work/err")"
    grep -q "$folder/out.pdf" "$work/err" || fail "an unwritable folder is not named: $(cat "$work/err")"
    ! grep -q "halyard: printing" "$work/err" || fail "an unwritable folder was found after printing: $(cat "$work/err")"
    ;;
*)
    fail "unknown case $case_name"
    ;;
esac
