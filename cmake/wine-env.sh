# Sourced by ./run and by the test launcher: the project's own Wine prefix
# lives in the build tree, uses the null graphics driver and is made once.
# Usage: . cmake/wine-env.sh BUILD_DIR
# The demo runs in a prefix of its own with Wine's X11 driver: it sets
# VRK_WINE_PREFIX, VRK_WINE_GRAPHICS=x11 and VRK_PRINTER_OUTPUT first.
vrk_build=${1:?build dir}
vrk_wine_arch=win32
vrk_triple=i686-w64-mingw32
# Written by the configure step: the tree's architecture.
[ -f "$vrk_build/wine-arch.sh" ] && . "$vrk_build/wine-arch.sh"
export WINEPREFIX="${VRK_WINE_PREFIX:-$vrk_build/wineprefix}"
export WINEARCH=$vrk_wine_arch
# Debian's wine script takes wine32 whenever it is installed, even where it
# cannot run: a 64-bit tree asks for the 64-bit loader by name.
if [ "$vrk_wine_arch" = win64 ] && [ -x /usr/lib/wine/wine64 ]; then
  export WINELOADER=/usr/lib/wine/wine64
  vrk_wine=$WINELOADER
else
  vrk_wine=wine
fi
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}

vrk_cmake_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# The test printer: Wine's PostScript driver with our printer description,
# printing to LPT1:, which Wine's spooler redirects to a file in the build
# tree (so a test can read the pages that came out). The file's name must
# not be a DOS device's ("LPT1.ps" is the port itself to Windows programs).
VRK_PRINTER_NAME="VRK PostScript"
VRK_PRINTER_PORT="LPT1:"
VRK_PRINTER_OUTPUT="${VRK_PRINTER_OUTPUT:-$vrk_build/printer/printed.ps}"
# Made when the printer is set up; a new name sets it up again.
vrk_printer_marker="$WINEPREFIX/.vrk-printer-2"

wine_prefix_ready() { [ -f "$WINEPREFIX/.vrk-ready" ] && [ -f "$vrk_printer_marker" ]; }

# Adds the printer (to a prefix made before it existed, too). Runs under the
# prefix lock and needs no wineserver -w, so it works beside a persistent
# server. Tried once per prefix: a failure is reported here, and the printing
# tests then say that there is no printer.
wine_printer_make() {
  [ -f "$vrk_printer_marker" ] && return 0
  local dir="$vrk_build/printer"
  local exe="$dir/wine-printer.exe"
  mkdir -p "$dir"
  if [ ! -f "$exe" ] || [ "$vrk_cmake_dir/wine-printer.c" -nt "$exe" ]; then
    "$vrk_triple-gcc-posix" -O1 -s -o "$exe" "$vrk_cmake_dir/wine-printer.c" \
      -lwinspool -lgdi32 >"$dir/setup.log" 2>&1 || {
      cat "$dir/setup.log" >&2
      touch "$vrk_printer_marker"
      return 0
    }
  fi
  # Wine's Z: drive is the Unix root.
  local ppd="Z:${vrk_cmake_dir//\//\\}\\wine-printer.ppd"
  # Wine's helper processes outlive the program: its output goes to a file.
  if "$vrk_wine" "$exe" "$VRK_PRINTER_NAME" "$VRK_PRINTER_PORT" "$ppd" "$VRK_PRINTER_OUTPUT" \
    >"$dir/setup.log" 2>&1; then
    echo "wine: printer \"$VRK_PRINTER_NAME\" on $VRK_PRINTER_PORT -> $VRK_PRINTER_OUTPUT" >&2
  else
    echo "wine: warning: could not set up the printer \"$VRK_PRINTER_NAME\":" >&2
    cat "$dir/setup.log" >&2
  fi
  touch "$vrk_printer_marker"
}

wine_prefix_make() {
  wine_prefix_ready && return 0
  mkdir -p "$vrk_build"
  (
    # Parallel test processes may arrive here together: one makes the prefix.
    flock 9
    wine_prefix_ready && exit 0
    if [ ! -f "$WINEPREFIX/.vrk-ready" ]; then
      # wine32 needs a machine that runs 32-bit x86 programs: say so plainly
      # rather than fail later in wineboot.
      if ! "$vrk_wine" --version >/dev/null 2>&1; then
        echo "wine: wine does not start here: $("$vrk_wine" --version 2>&1 | tail -n 1)" >&2
        [ "$vrk_wine_arch" = win32 ] &&
          echo "wine: a 32-bit tree needs wine32, so the machine must run 32-bit x86 programs" >&2
        exit 1
      fi
      echo "wine: creating prefix $WINEPREFIX" >&2
      rm -rf "$WINEPREFIX"
      "$vrk_wine" wineboot -i >/dev/null 2>&1 || true
      "$vrk_wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d "${VRK_WINE_GRAPHICS:-null}" /f >/dev/null 2>&1
      wine_printer_make
      wineserver -w
      touch "$WINEPREFIX/.vrk-ready"
    else
      wine_printer_make
    fi
  ) 9>"$vrk_build/.wineprefix.lock"
}

# A persistent server makes each process start in a fraction of the time.
wine_server_start() {
  wine_prefix_make
  # A server still serving this prefix (left by an earlier run) answers
  # "already running": it is used as it is.
  wineserver -p || true
}

wine_server_stop() {
  wineserver -k 2>/dev/null || true
}
