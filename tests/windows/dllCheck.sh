#!/usr/bin/env bash
# What vxsign.dll gives away is what the headers declare, under these very names; what it needs, every Windows has.
#   dllCheck.sh OBJDUMP DLL IMPORT_LIBRARY HEADER_FOLDER
set -euo pipefail
export LC_ALL=C
objdump=$1 dll=$2 library=$3 headers=$4

declared=$("$(dirname "$0")/../package/exports.py" "$headers" | sort)
exported=$("$objdump" -p "$dll" | sed -n '/Ordinal\/Name Pointer/,/^$/s/^\t\[ *[0-9]*\] //p' | sort)
linkable=$(llvm-nm "$library" 2>/dev/null | sed -n 's/.* T __imp_//p' | sort)
needed=$("$objdump" -p "$dll" | sed -n 's/.*DLL Name: //p' | tr A-Z a-z | sort | tr '\n' ' ')

result=0
same()
{
    diff <(echo "$declared") <(echo "$2") > /dev/null && return
    echo "declared (<) and $1 (>):"
    diff <(echo "$declared") <(echo "$2") || true
    result=1
}
same exported "$exported"
same "in the import library" "$linkable"
if [ "$needed" != "advapi32.dll kernel32.dll msvcrt.dll ws2_32.dll " ]; then
    echo "needs $needed"
    result=1
fi
echo "$(wc -l <<< "$exported") functions, needs $needed"
exit $result
