#!/usr/bin/env bash
# A real-size module, shaped like the code people keep (a fifth of its lines comments, one in six
# longer than a page is wide, blocks nested up to four deep), printed by halyard at a first run's
# settings takes no more pages than a plain text print of it by enscript at its own defaults on
# the same paper. Usage: pages_against_plain_text.sh HALYARD. Exit 77: skipped.
set -euo pipefail
halyard=$1
for tool in enscript pdfinfo awk; do
    command -v "$tool" >/dev/null || { echo "SKIP: $tool is missing"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR=$work/config QT_QPA_PLATFORM=offscreen
mkdir -p "$HLYD_CONFIG_DIR"
cd "$work"

# Both on US Letter; nothing else is set.
printf '[General]\nPaperSize=1\n' >"$HLYD_CONFIG_DIR/HLYD.INI"

awk -v procedures=110 'BEGIN {
    srand(24)
    split("m_Width m_Height hWnd lngCount strName picTarget srcDIB dstDIB layerIndex tmpValue " \
          "cBounds i j k x y newState retVal curItem itemCount", names, " ")
    split("Len InStr Mid$ CLng Int Abs UBound LBound GetPixel ConvertUnits", calls, " ")
    printf "Attribute VB_Name = \"Generated\"\r\nOption Explicit\r\n\r\n"
    for (d = 1; d <= 40; d++) {
        line = "Private Declare Function Api" d " Lib \"user32\" (ByVal hWnd As Long, ByVal " \
               word() " As Long, ByRef " word() " As Any, ByVal flags As Long) As Long"
        printf "%s\r\n", line
    }
    printf "\r\n"
    for (p = 1; p <= procedures; p++) procedure(p)
}
function word() { return names[int(rand() * 20) + 1] }
function expr(  e, n) {
    e = word()
    n = int(rand() * 6)
    if (rand() < 0.12) n += 8
    while (n-- > 0) e = e (rand() < 0.5 ? " + " : " * ") (rand() < 0.3 ? calls[int(rand() * 10) + 1] "(" word() ")" : word())
    return e
}
function comment(indent,  c, n) {
    c = indent "\047"
    n = 30 + int(rand() * 70)
    if (rand() < 0.15) n += 40
    while (length(c) < n) c = c " " word() " " (rand() < 0.5 ? "and" : "of")
    return c
}
function body(depth, lines,  l, pad, kind) {
    pad = sprintf("%" (4 * depth) "s", "")
    for (l = 1; l <= lines; l++) {
        r = rand()
        if (r < 0.18) printf "%s\r\n", comment(pad)
        else if (r < 0.23) printf "\r\n"
        else if (r < 0.33 && depth < 4) {
            kind = rand() < 0.5
            printf "%s%s\r\n", pad, kind ? "If " word() " > " word() " Then" : "For i = 0 To " word() " - 1"
            body(depth + 1, 2 + int(rand() * 5))
            printf "%s%s\r\n", pad, kind ? "End If" : "Next i"
        } else printf "%s%s = %s\r\n", pad, word(), expr()
    }
}
function procedure(p,  c) {
    for (c = int(rand() * 4); c > 0; c--) printf "%s\r\n", comment("")
    printf "Public Function Work%d(ByVal %s As Long, ByRef %s As String) As Long\r\n", p, word(), word()
    printf "    Dim %s As Long, %s As Long\r\n", word(), word()
    body(1, 8 + int(rand() * 22))
    printf "End Function\r\n\r\n"
}' >Generated.bas

timeout 120 "$halyard" --quiet --pdf ours.pdf Generated.bas >/dev/null 2>err || { cat err >&2; exit 1; }
ours=$(pdfinfo ours.pdf | awk '/^Pages:/ { print $2 }')
enscript --quiet --media=Letter --output=plain.ps Generated.bas
plain=$(grep -c '^%%Page:' plain.ps)
lines=$(wc -l <Generated.bas)
echo "$lines lines: halyard $ours pages, enscript $plain"
[ "$ours" -le "$plain" ] || { echo "FAIL: $ours pages where a plain text print takes $plain" >&2; exit 1; }
