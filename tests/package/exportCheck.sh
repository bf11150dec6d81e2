#!/usr/bin/env bash
# Compares what the library gives away with what the headers declare: nothing more, nothing less.
#   exportCheck.sh NM LIBRARY HEADER_FOLDER
set -euo pipefail
export LC_ALL=C

nm=$1
library=$2
headers=$3

declared=$("$(dirname "$0")/exports.py" "$headers" | sort)
# All of one version, whose name is a symbol too.
exported=$("$nm" --dynamic --defined-only "$library" | awk '$NF != "VXSIGN_2" { sub(/@@VXSIGN_2$/, "", $NF); print $NF }' | sort)

result=0
report()
{
    [ -z "$2" ] && return
    printf '%s:\n%s\n' "$1" "$2"
    result=1
}
report "declared twice" "$(uniq -d <<< "$declared")"
report "declared, but not in the library" "$(comm -23 <(sort -u <<< "$declared") <(echo "$exported"))"
report "in the library, but not declared" "$(comm -13 <(sort -u <<< "$declared") <(echo "$exported"))"

for header in "$headers"/*.h; do
    name=vxsign/$(basename "$header")
    case $name in vxsign/vxsign.h | vxsign/export.h) continue ;; esac
    grep -q "#include <$name>" "$headers/vxsign.h" || report "not included by vxsign.h" "$name"
done

echo "$(wc -l <<< "$declared") functions declared, $(wc -l <<< "$exported") symbols exported"
exit $result
