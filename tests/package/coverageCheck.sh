#!/usr/bin/env bash
# Fails when a function that the headers declare has neither a golden row nor a test of its own: a call by name in the
# tests. What only shows that arguments are refused does not count.
#   coverageCheck.sh HEADER_FOLDER TEST_FOLDER
set -euo pipefail
export LC_ALL=C

headers=$1
tests=$2

declared=$("$(dirname "$0")/exports.py" "$headers" | sort -u)
called=$(find "$tests" -name '*.[ch]*' ! -name '*.c' ! -name argumentsTest.cpp -exec cat {} + |
    sed -e 's@//.*@@' | grep -oE '\bvx[A-Za-z_0-9]+ *\(' | tr -d ' (' | sort -u)
# Names that the tests hand on instead of calling them.
passed=$(find "$tests" -name '*.[ch]*' ! -name '*.c' ! -name argumentsTest.cpp -exec cat {} + |
    sed -e 's@//.*@@' | grep -oE '\bvx[A-Za-z_0-9]+ *[,;]' | tr -d ' ,;' | sort -u)
missing=$(comm -23 <(echo "$declared") <(sort -u <<< "$called"$'\n'"$passed"))
if [ -n "$missing" ]; then
    printf 'without a golden row or a test:\n%s\n' "$missing"
    exit 1
fi
echo "$(wc -l <<< "$declared") functions, each with a golden row or a test of its own"
