#!/usr/bin/env bash
# One ZIP for Windows: vxsign.dll, what programs link, the headers, the CMake package, vxctl.exe. It is tried out as a
# programmer would: unpacked, found by CMake, linked, run under Wine. Needs scripts/setup-windows.sh.
#   scripts/package-windows.sh        writes build/packages/vxsign-VERSION-windows-x64.zip
set -euo pipefail
cd "$(dirname "$0")/.."
source=$PWD
jobs=$(nproc)
version=$(sed -n 's/^project(vxsign VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=vxsign-$version-windows-x64
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --preset windows >/dev/null
cmake --build --preset windows --parallel "$jobs" --target vxsign vxctl
cmake --install build/windows --prefix "$work/$name" --strip >/dev/null
rm -rf "$work/$name/share" "$work/$name/lib/pkgconfig"
cp LICENSE README.md docs/windows.md "$work/$name"
mkdir -p build/packages
(cd "$work" && zip -qr - "$name") >"build/packages/$name.zip"

mkdir "$work/try"
(cd "$work/try" && cmake -E tar xf "$source/build/packages/$name.zip")
cmake -S tests/package/consumer -B "$work/try/build" -G Ninja --toolchain "$PWD/cmake/windows/toolchain.cmake" \
    -Dvxsign_DIR="$work/try/$name/lib/cmake/vxsign" >/dev/null
cmake --build "$work/try/build" >/dev/null
cp "$work/try/$name/bin/vxsign.dll" "$work/try/build"
timeout 120 cmake/windows/wine.sh "$work/try/build/program.exe"
timeout 120 cmake/windows/wine.sh "$work/try/$name/bin/vxctl.exe" --version
echo "build/packages/$name.zip: $(du -h "build/packages/$name.zip" | cut -f1)"
