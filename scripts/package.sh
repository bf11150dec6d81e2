#!/usr/bin/env bash
# Builds the Debian packages from what is committed, into build/packages, and lets lintian look at them.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh package

packages=$PWD/build/packages
rm -rf "$packages"
mkdir -p "$packages/source"
git archive HEAD | tar -x -C "$packages/source"
# With the system's own Python, whatever else the path has.
(cd "$packages/source" && PATH=/usr/sbin:/usr/bin:/sbin:/bin dpkg-buildpackage --build=binary --no-sign --jobs="$(nproc)")
rm -rf "$packages/source"
# Newer and older lintians know other tags; what counts is that none says warning or error.
lintian --fail-on warning "$packages"/*.changes
ls -1 "$packages"/*.deb
