#!/bin/sh
# render_pages.sh PS PREFIX: renders each page of the report that the print
# unit's test printed (PS) to PREFIX-N.png with ghostscript, so that the
# pages can be looked at, and checks what the renderer saw: one image a
# page, and on the last page (the index) marks from the left margin to the
# right margin, where the page numbers stand right-aligned.
set -eu
ps=$1
prefix=$2
if [ ! -s "$ps" ]; then
  echo "render_pages: $ps is missing (vrk_printing.printunit writes it)" >&2
  exit 1
fi
rm -f "$prefix"-*.png
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=png16m -r100 -sOutputFile="$prefix-%d.png" "$ps"
pages=$(grep -c '^%%Page: ' "$ps")
images=$(ls "$prefix"-*.png | wc -l)
echo "render_pages: $pages pages, $images images: $prefix-1.png ... $prefix-$images.png"
[ "$pages" -eq "$images" ] || { echo "render_pages: page count differs" >&2; exit 1; }

# The marks' bounding box of each page, in points (letter: 612 x 792).
# The report's margins: the printer's 18 pt and the job's 150 dots at
# 300 dpi (36 pt), so its text lies between x = 54 and x = 558.
last=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=bbox "$ps" 2>&1 | grep '^%%BoundingBox' | tail -n 1)
echo "render_pages: last page $last"
echo "$last" | awk '{
  if ($2 < 52 || $2 > 60 || $4 < 545 || $4 > 559) {
    print "render_pages: the index does not span the text width" > "/dev/stderr"; exit 1
  }
}'
