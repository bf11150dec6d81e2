#!/usr/bin/env bash
# Builds the reference of the library from its headers as web pages: build/reference/html/index.html. Whatever is not
# described or leads nowhere is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh reference
rm -rf build/reference
mkdir -p build/reference
doxygen scripts/reference/Doxyfile
echo "build/reference/html/index.html"
