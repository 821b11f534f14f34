#!/usr/bin/env bash
# Installs the build into a scratch tree, builds a small host against it
# with find_package(VRK), and runs the host under Wine.
# Usage: check.sh BUILD_DIR SOURCE_DIR ARCH
set -euo pipefail
build=$1 src=$2 arch=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/install" >"$work/install.log"
for d in bin lib include lib/cmake/VRK; do
  [ -d "$work/install/$d" ] || { echo "installed tree has no $d/"; exit 1; }
done
cmake -S "$src/tests/package/host" -B "$work/host" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$src/cmake/mingw-$arch.cmake" -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_PREFIX_PATH="$work/install" >"$work/configure.log" || { cat "$work/configure.log"; exit 1; }
cmake --build "$work/host" || exit 1
cp "$work/install/bin/"*.dll "$work/host/"
"$build/wine-run" "$work/host/package_host.exe"
