#!/usr/bin/env bash
# A print to the PDF printer that an earlier print prepared runs on the core, without Qt, and
# writes the very file the print part writes: plain, with tables of contents, in two landscape
# columns, in bold, italic, underlined and struck faces, a project. What face-files cannot answer
# (out of date, a face it does not hold) sends the run to the print part, which says every
# message once and writes the same file. Usage: pdf_on_core.sh HALYARD
set -euo pipefail
halyard=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
fail() { echo "FAIL: $*" >&2; exit 1; }

mkdir p
printf 'Attribute VB_Name = "modMain"\r\nOption Explicit\r\n\r\n'"' Starts the program.\r\n"'Public Sub Main()\r\n    Debug.Print Twice(2), "caf\xe9"\r\nEnd Sub\r\n\r\nPrivate Function Twice(ByVal n As Integer) As Integer\r\n    Twice = n * 2 '"' doubled\r\n"'End Function\r\n' >p/Main.bas
printf 'VERSION 1.0 CLASS\r\nAttribute VB_Name = "Counter"\r\nPrivate m As Long\r\nPublic Property Get Count() As Long\r\n    Count = m\r\nEnd Property\r\n' >p/Counter.cls
printf 'Type=Exe\r\nModule=modMain; Main.bas\r\nClass=Counter; Counter.cls\r\nModule=modGone; Gone.bas\r\nName="P"\r\n' >p/P.vbp

# Dates are left out of the heading, so that two prints can be compared byte for byte.
settings() {
    rm -rf config && mkdir config
    printf '[General]\nSaveHYInfo=No\nHeadingRight=<Page >; @Page\n%s\n[PDF.Print]\n%s\n' "$1" "$2" >config/HLYD.INI
}
export HLYD_CONFIG_DIR=$work/config
# Prints $2 to $1; the loader's report in loader, standard error in err.
print() {
    LD_DEBUG=libs "$halyard" --pdf "$1" "$2" >/dev/null 2>both || true
    grep '^ *[0-9]*:' both >loader || true
    grep -v '^ *[0-9]*:' both >err || true
    [ -s "$1" ] || fail "$2 printed no $1: $(cat err)"
}
by_part() { grep -q libQt6Gui loader || fail "$1: the print part did not print"; }
on_core() { ! grep -q "libQt6\|halyard-print" loader || fail "$1: the print on the core loaded Qt"; }

check() {
    local name=$1 input=$2
    print first.pdf "$input"
    by_part "$name, first print"
    cp err first.err
    print again.pdf "$input"
    on_core "$name"
    cmp -s first.pdf again.pdf || fail "$name: the print on the core differs"
    cmp -s first.err err || fail "$name: the print on the core says other things: $(cat err)"
    rm -f first.pdf again.pdf
}
settings "" ""
check plain p/Main.bas
settings "TableOfContents=Yes
ProcContents=Yes" ""
check contents p/P.vbp
settings "Orientation=2" "Columns=2"
check "two landscape columns" p/Main.bas
settings "" "FontAttr.Comments=Yes Yes No No 9
FontAttr.Identifiers=No Yes Yes No 10
FontAttr.Literals=No No No Yes 11
FontName.Literals=Arial"
check "bold, italic, underline, struck" p/P.vbp

# A user whose locale writes numbers with a comma: the same figures either way.
if locale -a 2>/dev/null | grep -qix "de_DE.utf-\?8"; then
    settings "" "FontAttr.Comments=Yes Yes No No 9.5"
    LC_ALL=de_DE.UTF-8 check "numbers of a German locale" p/Main.bas
fi

# face-files out of date: the print part prints, and writes it afresh.
print first.pdf p/P.vbp
sed -i 's/^source\t[-0-9]*\t/source\t1\t/' config/face-files
print again.pdf p/P.vbp
by_part "out-of-date face-files"
cmp -s first.pdf again.pdf || fail "the print part's print differs"
print again.pdf p/P.vbp
on_core "face-files written afresh"

# A face face-files does not hold is found out in the middle of the print on the core: the print
# part prints it all again, and every message is said once.
cp err first.err
grep -v "^face	.*	1	" config/face-files >stripped && cp stripped config/face-files
print again.pdf p/P.vbp
by_part "a face not remembered"
cmp -s first.pdf again.pdf || fail "a face not remembered: the print differs"
cmp -s first.err err || fail "a face not remembered: said $(cat err), not $(cat first.err)"
grep -q "Gone.bas" err || fail "the missing member was not told: $(cat err)"

# A long print tells its progress as it goes: the line of the first member comes while the second,
# a long one, is still printing, before the PDF appears.
printf 'Attribute VB_Name = "modFirst"\r\nx = 1\r\n' >p/First.bas
awk 'BEGIN { printf "Attribute VB_Name = \"modLong\"\r\n"; for (i = 0; i < 60000; i++) printf "x = x + 1 '"'"' counted\r\n" }' >p/Long.bas
printf 'Type=Exe\r\nModule=modFirst; First.bas\r\nModule=modLong; Long.bas\r\n' >p/Long.vbp
print first.pdf p/Long.vbp
rm -f first.pdf
mkfifo said
"$halyard" --pdf first.pdf p/Long.vbp 2>said >/dev/null &
{
    IFS= read -r line
    [ -e first.pdf ] && echo "told only at the end: $line" >late
    cat >/dev/null
} <said
wait
[ ! -e late ] || fail "$(cat late)"
[ -s first.pdf ] || fail "the long print wrote no PDF"
echo "ok"
