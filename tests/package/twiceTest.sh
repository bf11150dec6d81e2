#!/usr/bin/env bash
# Builds the library once more in a folder with another name, and wants the same bytes.
#   twiceTest.sh LIBRARY_OF_A_RELEASE_BUILD
set -euo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
library=$(realpath "$1")
work=$(mktemp -d -t another-and-longer-name-XXXXXX)
trap 'rm -rf "$work"' EXIT

(cd "$here" && git ls-files -z | tar --null --files-from=- --create) | tar -x -C "$work"
cmake -S "$work" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVXSIGN_WERROR=ON -DVXSIGN_BUILD_TOOLS=OFF \
    -DVXSIGN_BUILD_SIMULATOR=OFF -DVXSIGN_BUILD_TESTS=OFF >"$work/log"
cmake --build "$work/build" --parallel "$(nproc)" >>"$work/log" || { cat "$work/log" && exit 1; }
cmp "$library" "$(realpath "$work/build/src/libvxsign.so")"
echo "two builds, the same bytes"
