#!/usr/bin/env bash
# Drives the gallery as a user would, under an X server (./run demo starts
# one with xvfb-run): keys and clicks go through X to Wine's X11 driver and
# the program's message queue. After each step it checks something the user
# would see, and saves a screenshot as build/demo/NN-name.png.
# Usage: drive.sh BUILD_DIR
set -uo pipefail
build=${1:?build dir}
here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
out="$build/demo"
mkdir -p "$out"
rm -f "$out"/*.png "$out"/printed.ps "$out"/events.log

export VRK_WINE_PREFIX="$out/wineprefix" VRK_WINE_GRAPHICS=x11
export VRK_PRINTER_OUTPUT="$out/printed.ps"
. "$top/cmake/wine-env.sh" "$build"
wine_prefix_make || exit 1
# Wine draws the captions' buttons with Marlett: its fonts go into the
# prefix's font folder, where every Wine looks.
cp -n /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null
# One virtual desktop holds every window, so that Wine draws the frames and
# captions itself and one capture shows the whole screen.
"$vrk_wine" reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Gallery /f >/dev/null 2>&1
"$vrk_wine" reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Gallery /d 1024x740 /f >/dev/null 2>&1

failed=0
step=0
fail() { echo "demo: FAILED: $*" >&2; failed=$((failed + 1)); }

# Waits up to 20 s for a top-level window whose title matches.
wait_window() {
  local i
  for i in $(seq 80); do
    xdotool search --name "$1" >/dev/null 2>&1 && return 0
    sleep 0.25
  done
  return 1
}

# Waits up to 10 s until no top-level window's title matches.
wait_gone() {
  local i
  for i in $(seq 40); do
    xdotool search --name "$1" >/dev/null 2>&1 || return 0
    sleep 0.25
  done
  return 1
}

desktop() { xdotool search --name "Gallery - Wine desktop" 2>/dev/null | head -n 1; }

# The open pop-up menus: unnamed windows of the program larger than a pixel.
popup_count() {
  xwininfo -children -id "$(desktop)" 2>/dev/null |
    awk '/\(has no name\): \("vrk_gallery.exe"/ && $0 !~ / 1x1\+/' | wc -l
}

# A window's upper left corner on the screen.
origin() {
  xwininfo -id "$1" | awk '/Absolute upper-left X/ {x=$NF} /Absolute upper-left Y/ {y=$NF} END {print x, y}'
}

# Captures the desktop into NN-name.png. A capture of the desktop shows the
# program's own windows, but pop-up menus and some pop-ups come out black:
# each of the program's windows is captured by itself and put back in place,
# bottom first.
shot() {
  step=$((step + 1))
  local name
  name=$(printf '%02d-%s' "$step" "$1")
  sleep 0.7
  local desk tmp
  desk=$(desktop)
  tmp=$(mktemp -d)
  xwd -id "$desk" -silent | xwdtopnm >"$tmp/screen.pnm" 2>/dev/null || {
    fail "$name: no capture"
    rm -rf "$tmp"
    return
  }
  xwininfo -children -id "$desk" |
    awk '/\("vrk_gallery.exe"/ && $0 !~ / 1x1\+/ { print $1 }' | tac >"$tmp/windows"
  local id x y
  while read -r id; do
    read -r x y <<<"$(origin "$id")"
    xwd -id "$id" -silent 2>/dev/null | xwdtopnm >"$tmp/w.pnm" 2>/dev/null || continue
    pnmpaste "$tmp/w.pnm" "$x" "$y" "$tmp/screen.pnm" >"$tmp/s2.pnm" 2>/dev/null &&
      mv "$tmp/s2.pnm" "$tmp/screen.pnm"
  done <"$tmp/windows"
  pnmtopng "$tmp/screen.pnm" >"$out/$name.png" 2>/dev/null
  rm -rf "$tmp"
  echo "demo: $name.png"
}

key() { xdotool key --delay 120 "$@"; }
typed() { xdotool type --delay 120 "$1"; }

# The gallery writes what it did into an event log; waits up to 10 s for a
# line matching the pattern.
events="$out/events.log"
wait_event() {
  local i
  for i in $(seq 40); do
    grep -qE "$1" "$events" 2>/dev/null && return 0
    sleep 0.25
  done
  return 1
}

cd "$build/bin" || exit 1
"$vrk_wine" vrk_gallery.exe "/log:Z:${events//\//\\}" >"$out/gallery.log" 2>&1 &
gallery=$!

# 1. The main window with its toolbars, status bar and the welcome page.
if wait_window "^Welcome - VRK Gallery$|^VRK Gallery - \[Welcome\]$"; then
  shot main-window
else
  fail "the gallery's main window with the welcome page did not appear"
  shot no-main-window
  kill "$gallery" 2>/dev/null
  exit 1
fi

# 2. A menu opened with the keyboard.
key alt+f
sleep 0.5
[ "$(popup_count)" -ge 1 ] || fail "File menu did not open"
shot file-menu
key Escape Escape

# 3. The controls page: digits typed into the masked date and time edits;
# the separators are the control's own.
key alt+p c
wait_event "page: Controls" || fail "the controls page did not open"
typed 12252026
key Tab
typed 174500
wait_event "Date: Friday, December 25, 2026 +Time: 17:45:00" ||
  fail "the typed date and time were not read back: $(tail -n 1 "$events" 2>/dev/null)"
shot masked-edits

# The completing combo box: "ab" becomes "abcde" with the tail selected.
key Tab
typed ab
wait_event 'name "abcde" selected 2-5' ||
  fail "typing ab did not complete to abcde: $(tail -n 1 "$events" 2>/dev/null)"
shot combo-completion

# The colour grid, opened by a click on the arrow at the colour box's right,
# and a square of its third column, second row chosen with the mouse.
read -r cl ct cr cb <<<"$(tr -d '\r' <"$events" | sed -n 's/^controls: colour box at //p' | tail -n 1)"
if [ -n "${cb:-}" ]; then
  xdotool mousemove $((cr - 6)) $(((ct + cb) / 2)) click 1
  sleep 0.8
  [ "$(popup_count)" -ge 1 ] || fail "the colour grid did not open"
  shot colour-grid
  xdotool mousemove $((cl + 8 + 2 * 19)) $((cb + 1 + 8 + 19)) click 1
  wait_event "style .* colour (00FFFF|FF00FF|00FF00|0000FF|FFFF00|FF0000|008080|800080)" ||
    fail "choosing a square did not change the colour: $(tail -n 1 "$events" 2>/dev/null)"
else
  fail "the controls page did not say where its colour box is"
fi

# The grid: F2 edits the current cell in place, typing replaces it, Enter
# keeps it.
key alt+p g
wait_event "page: Grid" || fail "the grid page did not open"
key F2
wait_event "grid: edit mode started" || fail "F2 did not start editing the cell"
typed 144
shot in-place-edit
key Return
wait_event 'grid: cell 1,1 = "144"' || fail "Enter did not keep the edited cell"
wait_event "grid: edit mode ended" || fail "edit mode did not end"

# 4. Nested progress in the status bar: a job of three documents.
key alt+t n
wait_event "progress: started" || fail "the nested progress did not start"
sleep 1.2
shot nested-progress
wait_event "progress: finished" || fail "the nested progress did not finish"

# 5. The printing page from the Pages menu, then File > Print to the test
# printer: the print dialog is answered with Enter; then print preview.
key alt+p p
wait_window "Printing" || fail "the printing page did not open"
shot printing-page
key ctrl+p
if wait_window "^Print$"; then
  shot print-dialog
  key Return
  wait_gone "^Print$" || fail "the print dialog did not close"
else
  fail "the print dialog did not appear"
fi

# The same document in print preview from the File menu, closed with Escape.
key alt+f v
if wait_event "printing: [0-9]+ pages previewed"; then
  shot print-preview
  key Escape
  wait_event "printing: preview closed" || fail "print preview did not close"
else
  fail "print preview did not open"
fi

# The library's dialogs from the Tools menu.
key alt+t m
if wait_window "^VRK Gallery$"; then
  shot message-box
  key Return
  wait_event "dialogs: message box answered 6" || fail "the message box did not answer Yes"
else
  fail "the library's message box did not appear"
fi
key alt+t i
if wait_window "^New Sheet$"; then
  typed "Quarterly report"
  shot input-dialog
  key Return
  wait_event 'dialogs: input "Quarterly report"' || fail "the input box did not give the typed name"
else
  fail "the input box did not appear"
fi
key alt+t z
if wait_window "^Zoom$"; then
  # A click into the percentage, whose place in the dialog is fixed.
  read -r zx zy <<<"$(origin "$(xdotool search --name '^Zoom$' | head -n 1)")"
  xdotool mousemove $((zx + 165)) $((zy + 122)) click 1
  key End BackSpace BackSpace BackSpace
  typed 150
  shot zoom-dialog
  key Return
  wait_event "dialogs: zoom 150%" || fail "the zoom dialog did not give 150%"
else
  fail "the zoom dialog did not appear"
fi
key alt+t t
if wait_window "^Trace Settings$"; then
  key alt+e # tracing on: the rest of the dialog comes alive
  shot trace-settings
  key Escape
  wait_event "dialogs: trace settings left" || fail "the trace settings dialog did not close"
else
  fail "the trace settings dialog did not appear"
fi

# The keyboard map: every shortcut with its description, in a window of
# its own.
key alt+h k
if wait_event "keyboard map: shown" && wait_window "Keyboard Map"; then
  shot keyboard-map
  key alt+f c
  wait_gone "^Keyboard Map - " || fail "File > Close did not close the keyboard map"
else
  fail "the keyboard map did not open"
fi

# 6. The about box, closed with its OK button.
key alt+h a
if wait_window "About VRK Gallery"; then
  shot about-box
  key Return
  wait_gone "About VRK Gallery" || fail "the about box did not close"
else
  fail "the about box did not appear"
fi

# 7. File > Exit ends the program.
key alt+f x
for i in $(seq 40); do
  kill -0 "$gallery" 2>/dev/null || break
  sleep 0.25
done
if kill -0 "$gallery" 2>/dev/null; then
  fail "the gallery did not exit from File > Exit"
  kill "$gallery" 2>/dev/null
fi
wait "$gallery" 2>/dev/null

# The printed pages, as the printer wrote them.
for i in $(seq 40); do
  [ -s "$out/printed.ps" ] && grep -q '%%EOF' "$out/printed.ps" && break
  sleep 0.25
done
if [ -s "$out/printed.ps" ]; then
  gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=png16m -r80 \
    -sOutputFile="$out/printed-page-%d.png" "$out/printed.ps" || fail "ghostscript could not render the printed pages"
  pages=$(ls "$out"/printed-page-*.png 2>/dev/null | wc -l)
  echo "demo: printed $pages page(s): $out/printed-page-*.png"
  [ "$pages" -ge 3 ] || fail "expected 3 printed pages, got $pages"
else
  fail "nothing was printed"
fi

wineserver -k 2>/dev/null
[ "$failed" -eq 0 ] && echo "demo: gallery OK ($step screenshots in $out)"
exit $((failed > 0))
