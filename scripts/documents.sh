#!/usr/bin/env bash
# Compares what docs/vxctl.md and docs/man/vxctl.1 say of the commands with the commands themselves, or with --update
# writes it anew: documents.sh [--update] VXCTL
set -euo pipefail
update=
[ "$1" != --update ] || { update=yes && shift; }
vxctl=$(realpath "$1")
cd "$(dirname "$0")/.."

# splice FILE FIRST LAST SWITCH: what the switch prints, between these two lines of the file.
splice() {
    "$vxctl" "$4" | first=$2 last=$3 file=$1 awk '
        { text = text $0 "\n" }
        END {
            while ((getline line <ENVIRON["file"]) > 0) {
                if (line == ENVIRON["last"]) { inside = 0; found++ }
                if (!inside) print line
                if (line == ENVIRON["first"]) { printf "%s", text; inside = 1; found++ }
            }
            exit found != 2
        }'
}

compare() {
    local new
    new=$(mktemp)
    splice "$@" >"$new"
    if [ -n "$update" ]; then
        cat "$new" >"$1"
    elif ! diff -u "$1" "$new"; then
        echo "$1 is not what the commands say: scripts/documents.sh --update VXCTL" >&2
        rm "$new"
        return 1
    fi
    rm "$new"
}

compare docs/vxctl.md '<!-- from the commands -->' '<!-- end of what is from the commands -->' --commands-table
compare docs/man/vxctl.1 '.\" from the commands' '.\" end of what is from the commands' --manual-sections
