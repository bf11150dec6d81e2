#!/usr/bin/env bash
# Names the functions that the headers declare, one in a line: declared.sh HEADER_FOLDER
# Without comments and preprocessor lines, a declaration is VXSIGN_API, a type, the name and an opening bracket.
set -euo pipefail
cat "$1"/*.h | sed -e '/^ *#/d' | tr '\n' ' ' | sed -e 's@/\*\([^*]\|\*\+[^*/]\)*\*\+/@@g' |
    grep -oE 'VXSIGN_API [^(;]*\(' | sed -E 's/.*[ *]([A-Za-z_0-9]+)\($/\1/'
