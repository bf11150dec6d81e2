#!/usr/bin/env bash
# The table of commands in the document is the one that the sign prints.
#   commandTable.sh VXSIM DOCUMENT
set -euo pipefail
table=$("$1" --commands)
test -n "$table"
diff <(sed -n '/^| major, minor | command |/,/^$/p' "$2" | sed '$d') - <<<"$table" ||
    { echo "replace the table of $2 with what vxsim --commands prints" && exit 1; }
