#!/bin/sh
# No object of a layer needs a symbol that only a layer above it, or beside it, defines: the order
# of layers holds for what the linker joins, not only for the includes (an inline accessor can read
# a variable that a higher layer defines without including anything of it). The adapters of the
# ports define what platform/ declares, by design, and are left out as definers.
# Run as: symbol_layers.sh <checkout> <the core library's objects...>; an object's folder is its
# path below the library's object directory.
root=$1
shift
ranked=$(mktemp -d)
trap 'rm -rf "$ranked"' EXIT
rank=0
sed -n '/^set(HLYD_LAYERS/,/)$/p' "$root/cmake/layer_order.cmake" | grep -o '"[^"]*"' | tr -d '"' |
while read -r line; do
  for folder in $line; do echo "$rank $folder"; done
  rank=$((rank + 1))
done > "$ranked/order"
# One list of objects per folder, so that an object left behind by a file since moved counts not.
for object in "$@"; do
  folder=$(dirname "${object#*.dir/}")
  echo "$object" >> "$ranked/objects.$(echo "$folder" | tr / _)"
done
while read -r rank folder; do
  case $folder in platform/posix|platform/windows|platform/qt) continue ;; esac
  key=$(echo "$folder" | tr / _)
  [ -f "$ranked/objects.$key" ] || continue
  xargs nm --defined-only < "$ranked/objects.$key" 2>/dev/null | awk 'NF == 3 && $2 ~ /[TDBRVWu]/ {print $3}' |
    sort -u > "$ranked/defined.$key"
  xargs nm --undefined-only < "$ranked/objects.$key" 2>/dev/null | awk '$1 == "U" {print $2}' | sort -u \
    > "$ranked/needed.$key"
done < "$ranked/order"
faults=0
while read -r low lowFolder; do
  lowKey=$(echo "$lowFolder" | tr / _)
  [ -f "$ranked/needed.$lowKey" ] || continue
  while read -r high highFolder; do
    highKey=$(echo "$highFolder" | tr / _)
    [ "$high" -ge "$low" ] && [ "$highFolder" != "$lowFolder" ] && [ -f "$ranked/defined.$highKey" ] || continue
    found=$(comm -12 "$ranked/needed.$lowKey" "$ranked/defined.$highKey" | c++filt | head -3)
    if [ -n "$found" ]; then
      echo "$lowFolder needs what $highFolder defines, which does not stand below it:"
      echo "$found" | sed 's/^/    /'
      faults=$((faults + 1))
    fi
  done < "$ranked/order"
done < "$ranked/order"
[ "$faults" -eq 0 ] || { echo "$faults reference(s) against the order of layers"; exit 1; }
echo "every symbol the core's layers need is defined at or below them"
