#!/usr/bin/env bash
# The HTML site end to end through halyard in batch. Usage: site_checks.sh CASE BINARY DATA
#   rules:   the folder's faults are told with status 3, a folder is reused, inputs stay as they are
#   pages:   every page parses as HTML5 and every link inside the site lands (skipped without html5lib)
#   browser: a headless Chromium loads the index and a member page without a console error, and the
#            filter script has run (skipped without chromium)
set -euo pipefail
case_name=$1
halyard=$2
data=$3
work=$(mktemp -d)
trap 'chmod -R u+w "$work" 2>/dev/null; rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR=$work/config QT_QPA_PLATFORM=offscreen
mkdir -p "$HLYD_CONFIG_DIR"
cp -r "$data" "$work/p"
cd "$work"
fail() { echo "FAIL: $*" >&2; exit 1; }
run() {  # the exit status; standard output and error in $work/out and $work/err
    local rc=0
    timeout 120 "$halyard" --quiet "$@" >"$work/out" 2>"$work/err" || rc=$?
    [ "$rc" -ne 124 ] || fail "halyard $* did not finish"
    echo "$rc"
}

case $case_name in
rules)
    [ "$(run --site "$work/none/site" p/Site.vbp)" = 3 ] || fail "a folder without its parent was taken"
    grep -q "will not write the site into $work/none/site" "$work/err" || fail "no message: $(cat "$work/err")"
    : >"$work/file"
    [ "$(run --site "$work/file" p/Site.vbp)" = 3 ] || fail "a file was taken for the folder"
    grep -q "is there and is no folder" "$work/err" || fail "no message: $(cat "$work/err")"
    cp -r "$work/p" "$work/kept"
    [ "$(run --site site p/Site.vbp)" = 0 ] || fail "the site was not written: $(cat "$work/err")"
    [ "$(cat "$work/out")" = "$work/site/index.html" ] || fail "the index was not named: $(cat "$work/out")"
    [ -f site/Shapes-bas-2.html ] && [ ! -e Site.pdf ] || fail "pages missing, or --site alone printed"
    # A second run replaces the pages and leaves what else is in the folder.
    echo 'notes' >site/notes.txt
    echo '<html>old</html>' >site/index.html
    [ "$(run --site site p/Site.vbp)" = 0 ] || fail "the folder was not reused: $(cat "$work/err")"
    grep -q Cross-reference site/index.html && [ "$(cat site/notes.txt)" = notes ] || fail "reuse went wrong"
    # A page never replaces a file that is not ours, and the project's folder may hold the site.
    echo 'user text' >site/Counter-cls.html
    [ "$(run --site site p/Site.vbp)" = 3 ] || fail "a file of the user's was replaced"
    [ "$(cat site/Counter-cls.html)" = 'user text' ] || fail "the user's file changed"
    [ "$(run --site p p/Site.vbp)" = 0 ] || fail "the project's own folder was refused: $(cat "$work/err")"
    rm p/*.html
    diff -r "$work/kept" "$work/p" >/dev/null || fail "an input changed"
    chmod a-w site
    if [ ! -w site ]; then
        [ "$(run --site site p/Site.vbp)" = 3 ] || fail "an unwritable folder was taken"
        grep -q "cannot write" "$work/err" || fail "no message: $(cat "$work/err")"
    fi
    ;;
pages)
    [ -x /usr/bin/python3 ] && /usr/bin/python3 -c 'import html5lib' 2>/dev/null || { echo "no html5lib: skipped"; exit 77; }
    [ "$(run --site "$work/site" "$work/p/Site.vbp")" = 0 ] || fail "the site was not written: $(cat "$work/err")"
    /usr/bin/python3 "$(dirname "$0")/site_pages.py" "$work/site"
    ;;
browser)
    browser=$(command -v chromium || command -v chromium-browser || true)
    [ -n "$browser" ] || { echo "no chromium: skipped"; exit 77; }
    [ "$(run --site "$work/site" "$work/p/Site.vbp")" = 0 ] || fail "the site was not written: $(cat "$work/err")"
    for page in index.html Shapes-bas.html; do
        timeout 60 "$browser" --headless --no-sandbox --disable-gpu --user-data-dir="$work/profile" \
            --enable-logging=stderr --v=0 --dump-dom "file://$work/site/$page" >"$work/dom" 2>"$work/log" || true
        grep -q '</html>' "$work/dom" || fail "$page was not loaded: $(tail -3 "$work/log")"
        if grep -i 'CONSOLE' "$work/log" | grep -qiv 'deprecat'; then fail "$page: $(grep -i CONSOLE "$work/log")"; fi
    done
    # The filter box shows only where its script ran.
    timeout 60 "$browser" --headless --no-sandbox --disable-gpu --user-data-dir="$work/profile" \
        --dump-dom "file://$work/site/index.html" 2>/dev/null | grep -q '<p id="filtering">' || fail "the script did not run"
    ;;
*) fail "no case $case_name" ;;
esac
echo "site $case_name: passed"
