#!/usr/bin/env bash
# One process per file, as a script that converts a tree file by file runs the program: the whole
# cost of each start counts. Prints the number of files, the total time and the time per file.
#   tools/bench/batch_starts.sh HALYARD html|pdf DIR...
set -euo pipefail
[ $# -ge 3 ] || { echo "usage: $0 HALYARD html|pdf DIR..." >&2; exit 64; }
halyard=$(realpath "$1"); mode=$2; shift 2
case "$mode" in html|pdf) ;; *) echo "$0: the mode is html or pdf" >&2; exit 64 ;; esac
work=$(mktemp -d); trap 'rm -rf "$work"' EXIT
export HLYD_CONFIG_DIR="$work/config"
mapfile -d '' files < <(find "$@" -type f \( -iname '*.bas' -o -iname '*.cls' -o -iname '*.frm' -o -iname '*.ctl' \
  -o -iname '*.pag' -o -iname '*.dob' -o -iname '*.dsr' \) -print0 | sort -z)
[ ${#files[@]} -gt 0 ] || { echo "$0: no source files under $*" >&2; exit 2; }
# A first run writes the settings, as a user's first start does; it is not counted.
"$halyard" --quiet "--$mode" "$work/out.$mode" "${files[0]}" >/dev/null 2>&1 || true
# Each file to an output of its own, as such a script writes them: a fresh file, where replacing one
# output again and again would have the disk sync each replacement (which keeps it whole in a crash).
mkdir -p "$work/out"
failed=0
n=0
start=$(date +%s.%N)
for f in "${files[@]}"; do
  n=$((n + 1))
  "$halyard" --quiet "--$mode" "$work/out/$n.$mode" "$f" >/dev/null 2>>"$work/errors" || failed=$((failed + 1))
done
end=$(date +%s.%N)
awk -v n=${#files[@]} -v s="$start" -v e="$end" -v f=$failed -v m="$mode" \
  'BEGIN { t = e - s; printf "%d files (--%s), one process each: %.2f s total, %.1f ms per file, %d failed\n", n, m, t, 1000 * t / n, f }'
