#!/usr/bin/env bash
# A project of our own printed to a PDF by halyard in batch, with a table of contents and
# procedure tables, read back with qpdf and poppler's tools: the outline has every file and
# procedure, each pointing at the line where its declaration prints; every contents entry links
# there; the pages are labelled as they are numbered; the same print gives the same bytes; the
# fonts are embedded subsets. Usage: pdf_navigation.sh HALYARD RENDER. Exit 77: skipped.
set -euo pipefail
halyard=$1
render=$2
for tool in qpdf jq pdftotext pdffonts pdfinfo; do
    command -v "$tool" >/dev/null || { echo "SKIP: $tool is missing"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR=$work/config QT_QPA_PLATFORM=offscreen
mkdir -p "$HLYD_CONFIG_DIR" "$work/p"
cd "$work"
fail() { echo "FAIL: $*" >&2; exit 1; }

# Dates are left out of the heading, so that two prints can be compared byte for byte.
printf '[General]\nSaveHYInfo=No\nTableOfContents=Yes\nProcContents=Yes\nHeadingRight=<Page >; @Page\n' \
    >"$HLYD_CONFIG_DIR/HLYD.INI"
printf 'Attribute VB_Name = "modMain"\r\nOption Explicit\r\n\r\n'"' Starts the program.\r\n"'Public Sub Main()\r\n    Debug.Print Twice(2)\r\nEnd Sub\r\n\r\nPrivate Function Twice(ByVal n As Integer) As Integer\r\n    Twice = n * 2\r\nEnd Function\r\n' >p/Main.bas
printf 'Attribute VB_Name = "modOther"\r\nPublic Sub Helper(ByVal n As Integer)\r\n    Debug.Print n\r\nEnd Sub\r\n\r\nPublic Property Get Caf\xe9() As Long\r\n    Caf\xe9 = 1\r\nEnd Property\r\n' >p/Other.bas
printf 'Type=Exe\r\nModule=modMain; Main.bas\r\nModule=modOther; Other.bas\r\nName="P"\r\n' >p/P.vbp

print() {
    timeout 120 "$halyard" --pdf "$work/$1" p/P.vbp >/dev/null 2>"$work/err" || fail "halyard: $(cat "$work/err")"
}
print out.pdf
pdfinfo out.pdf >/dev/null || fail "pdfinfo refuses the file"
qpdf --check out.pdf >/dev/null || fail "qpdf finds faults: $(qpdf --check out.pdf 2>&1 | head -5)"
qpdf --json out.pdf >out.json
height=$(jq '.pages[0] | 792' out.json)  # US Letter

# The outline: the files in the order printed, the procedures of each under it.
titles=$(jq -r '[.outlines[] | .title + ":" + ([.kids[].title] | join(","))] | join(" ")' out.json)
[ "$titles" = "Main.bas:<Declarations>,Main,Twice Other.bas:<Declarations>,Helper,Café [Get]" ] ||
    fail "the outline is $titles"

# Each procedure points at the page and height where the first word of its declaration prints.
word_of() {
    case $1 in
        "<Declarations>") echo Attribute ;; Main) echo 'Main()' ;; Twice) echo 'Twice(ByVal' ;;
        Helper) echo 'Helper(ByVal' ;; "Café [Get]") echo 'Café()' ;;
    esac
}
jq -r '.outlines[].kids[] | [.title, .destpageposfrom1, .dest[3]] | @tsv' out.json >places
while IFS=$'\t' read -r title page y; do
    word=$(word_of "$title")
    top=$(pdftotext -bbox -f "$page" -l "$page" out.pdf - |
          sed -n "s|.*yMin=\"\([0-9.]*\)\".*>$word</word>|\1|p" | head -1)
    [ -n "$top" ] || fail "$title: its declaration is not on page $page"
    awk -v t="$top" -v y="$y" -v h="$height" 'BEGIN { d = h - y - t; exit !(d < 0.5 && d > -0.5) }' ||
        fail "$title points at $y on page $page, its declaration's top is at $(awk -v t="$top" -v h="$height" 'BEGIN { print h - t }')"
done <places

# Every procedure is linked from its file's table and from the table of contents, every file from
# the table of contents; each link lies over the entry's text, on a contents page.
jq -r '
  (.pages | map({(.object): .pageposfrom1}) | add) as $pos
  | ([.outlines[] | ., .kids[]] | map({("\(.dest[0]) \(.dest[3])"): .title}) | add) as $titles
  | .qpdf[1] as $objects
  | $objects | to_entries[] | select(.value.value["/Type"]? == "/Page") | .key[4:] as $page
  | (.value.value["/Annots"] // [])[] | $objects["obj:" + .].value
  | "\(.["/Dest"][0]) \(.["/Dest"][3])" as $dest
  | [$pos[$page], (.["/Rect"] | map(tostring) | join(" ")), $titles[$dest] // "?", $dest]
  | @tsv' out.json >links
while IFS=$'\t' read -r page rect title _; do
    [ "$title" != "?" ] || fail "a link on page $page leads to no outline entry"
    label=$(jq -r --argjson i "$((page - 1))" '.pages[$i].label["/S"]' out.json)
    [ "$label" = "/r" ] || fail "a link to $title stands on page $page, no contents page"
    # The contents list the declarations under their name, a file under its path.
    case $title in "<Declarations>") word='&lt;Declarations&gt;' ;; *.bas) word=$title ;; *) word=$(word_of "$title") ;; esac
    pdftotext -bbox -f "$page" -l "$page" out.pdf - |
        sed -n "s|.*yMin=\"\([0-9.]*\)\".*yMax=\"\([0-9.]*\)\">\(.*/\)\{0,1\}$word</word>|\1 \2|p" |
        awk -v r="$rect" -v h="$height" '{ split(r, b, " "); m = h - ($1 + $2) / 2; if (m > b[2] && m < b[4]) found = 1 }
                                          END { exit !found }' ||
        fail "the link to $title on page $page lies over no $word"
done <links
counts=$(cut -f3,4 links | sort | uniq -c | sed -E 's/^ *([0-9]+) ([^\t]*)\t.*/\1 \2/' | tr '\n' ';')
[ "$counts" = "2 <Declarations>;2 <Declarations>;2 Café [Get];2 Helper;2 Main;1 Main.bas;1 Other.bas;2 Twice;" ] ||
    fail "links per entry: $counts"

# The pages show the numbers printed on them: the code from 1, the contents in Roman numerals.
labels=$(jq -r '[.pages[].label | .["/S"] + (.["/St"] | tostring)] | join(" ")' out.json)
[ "$labels" = "/D1 /r1 /D1 /r1 /r1" ] || fail "the page labels are $labels"

# The same print again gives the same bytes, a date of its making aside.
print again.pdf
mask() { sed -E 's/\/(CreationDate|ModDate) *\([^)]*\)//g' "$1"; }
cmp -s <(mask out.pdf) <(mask again.pdf) || fail "two prints of the same project differ"

# Every font an embedded subset, its tag of six capitals made from its glyphs.
pdffonts out.pdf | tail -n +3 >fonts
[ -s fonts ] || fail "no fonts listed"
while read -r name _; do
    [[ $name =~ ^[A-Z]{6}\+ ]] || fail "the font $name has no subset tag"
done <fonts
awk '{ if ($(NF-4) != "yes" || $(NF-3) != "yes") exit 1 }' fonts || fail "a font is not an embedded subset: $(cat fonts)"
[ "$(cut -c1-6 fonts | sort -u | wc -l)" -eq "$(wc -l <fonts)" ] || fail "two subsets share a tag: $(cat fonts)"

# Printed with its project file, the project comes first in the outline.
timeout 120 "$render" --pdf "$work/project.pdf" p/P.vbp >/dev/null 2>"$work/err" || fail "render: $(cat "$work/err")"
top=$(qpdf --json project.pdf | jq -r '[.outlines[].title] | join(" ")')
[ "$top" = "P.vbp Main.bas Other.bas" ] || fail "with the project, the outline's files are $top"
# The project's listing draws more characters, so a subset of a face it shares with the other
# print keeps other glyphs, and has another tag.
subsets() { pdffonts "$1" | tail -n +3 | awk '{ print substr($1, 8), substr($1, 1, 6) }' | sort; }
join <(subsets out.pdf) <(subsets project.pdf) | awk '$2 != $3 { found = 1 } END { exit !found }' ||
    fail "every subset is named alike in both prints: $(join <(subsets out.pdf) <(subsets project.pdf))"
echo "PASS"
