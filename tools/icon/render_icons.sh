#!/usr/bin/env bash
# Renders data/desktop/halyard.svg, the one drawing of the icon, into the PNG sizes the desktop
# menus use (data/desktop/halyard-<size>.png, committed). Needs rsvg-convert (librsvg2-bin).
set -euo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
command -v rsvg-convert >/dev/null || { echo "rsvg-convert is missing: apt-get install librsvg2-bin" >&2; exit 1; }
for size in 48 128 256; do
  rsvg-convert -w "$size" -h "$size" "$top/data/desktop/halyard.svg" -o "$top/data/desktop/halyard-$size.png"
done
