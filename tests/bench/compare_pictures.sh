#!/usr/bin/env bash
# Every kind of difference between two folders of pictures must be told, and no other.
# Usage: compare_pictures.sh <the script>
set -euo pipefail
script=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir old new
convert -size 40x30 xc:white old/equal.png
convert old/equal.png -define png:compression-level=0 new/equal.png
cmp -s old/equal.png new/equal.png && { echo "the files of equal pixels are to differ"; exit 1; }
"$script" old new differences >found || { cat found; exit 1; }
[ ! -s found ] && [ -z "$(ls differences)" ]

cp old/equal.png old/gone.png
cp old/equal.png new/added.png
cp old/equal.png old/moved.png
convert old/equal.png -fill '#fffffc' -draw 'point 3,4' -draw 'rectangle 10,20 11,21' new/moved.png
cp old/equal.png old/wider.png
convert -size 41x30 xc:white new/wider.png
status=0
"$script" old new differences >found || status=$?
[ "$status" -eq 1 ]
diff found - <<'END'
added.png: is new
gone.png: is missing
moved.png: 5 pixels differ, in 9x18+3+4, by at most 3
wider.png: was 40x30 and is 41x30
END
[ "$(ls differences)" = moved.png ]

echo "no picture" >old/equal.png
status=0
"$script" old new differences >/dev/null 2>&1 || status=$?
[ "$status" -eq 2 ]
