#!/usr/bin/env bash
# Tells which lines of the library, the virtual sign and the tool run in the tests, those against a hostile sign among them,
# and which functions nothing reaches: scripts/coverage.sh [--html]
#
# The counts lie below build/coverage; --html puts the sources with their counts into build/coverage/html.
set -euo pipefail
cd "$(dirname "$0")/.."
counts=$PWD/build/coverage/counts
merged=$PWD/build/coverage/merged.profdata

scripts/setup.sh ci
cmake --preset coverage >/dev/null
cmake --build --preset coverage --parallel "$(nproc)"
rm -rf "$counts"
mkdir -p "$counts"
chmod 1777 "$counts" # some tests run as nobody

# Programs that are the same add up in a few files of their own.
LLVM_PROFILE_FILE="$counts/%4m.profraw" ctest --preset coverage --output-on-failure >build/coverage/tests.log || {
    tail -n 40 build/coverage/tests.log
    exit 1
}
find "$counts" -name '*.profraw' -print0 | xargs -0 llvm-profdata merge -sparse -o "$merged"
objects=()
for program in build/coverage/src/libvxsign.so build/coverage/bin/*; do
    [ ! -f "$program" ] || [ ! -x "$program" ] || objects+=(-object "$program")
done
llvm-cov export -instr-profile "$merged" "${objects[@]}" >build/coverage/counts.json
[ "${1:-}" != --html ] || llvm-cov show -format html -output-dir build/coverage/html -instr-profile "$merged" \
    "${objects[@]}" src sim tools
exec python3 scripts/coverage.py build/coverage/counts.json
