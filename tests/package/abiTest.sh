#!/usr/bin/env bash
# Compares the binary contract of the packaged library with the one that is kept: what programs of yesterday call, and the
# records that they hand over. What is new does no harm.
#   abiTest.sh PACKAGES_FOLDER
#   abiTest.sh PACKAGES_FOLDER --update    keeps the contract of these packages
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
contract=$here/libvxsign2.abi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for package in "$1"/libvxsign2_*.deb "$1"/libvxsign2-dbgsym_*.deb; do
    dpkg-deb --extract "$package" "$work"
done
library=$(realpath "$work"/usr/lib/*/libvxsign.so.2)
if [ "${2:-}" = --update ]; then
    abidw --exported-interfaces-only --debug-info-dir "$work/usr/lib/debug" --no-corpus-path --no-comp-dir-path \
        --no-show-locs --type-id-style hash "$library" | grep -v '<dependency name' >"$contract"
    exit
fi
abidiff --no-added-syms --exported-interfaces-only --debug-info-dir2 "$work/usr/lib/debug" "$contract" "$library"
echo "the binary contract holds"
