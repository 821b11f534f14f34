# Sourced by ./run and by the test launcher: the project's own Wine prefix
# lives in the build tree, uses the null graphics driver and is made once.
# Usage: . cmake/wine-env.sh BUILD_DIR
vrk_build=${1:?build dir}
export WINEPREFIX="$vrk_build/wineprefix"
export WINEARCH=win32
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}

wine_prefix_ready() { [ -f "$WINEPREFIX/.vrk-ready" ]; }

wine_prefix_make() {
  wine_prefix_ready && return 0
  mkdir -p "$vrk_build"
  (
    # Parallel test processes may arrive here together: one makes the prefix.
    flock 9
    wine_prefix_ready && exit 0
    echo "wine: creating prefix $WINEPREFIX" >&2
    rm -rf "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1 || true
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
    wineserver -w
    touch "$WINEPREFIX/.vrk-ready"
  ) 9>"$vrk_build/.wineprefix.lock"
}

# A persistent server makes each process start in a fraction of the time.
wine_server_start() {
  wine_prefix_make
  wineserver -p
}

wine_server_stop() {
  wineserver -k 2>/dev/null || true
}
