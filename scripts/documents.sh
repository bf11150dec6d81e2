#!/usr/bin/env bash
# Compares what the documents say of commands and functions with the commands and headers themselves, or with --update
# writes it anew: documents.sh [--update] [FOLDER], the folder of the programs, build/asan/bin if not said
set -euo pipefail
update=
[ "${1:-}" != --update ] || { update=yes && shift; }
programs=${1:+$(realpath "$1")}
cd "$(dirname "$0")/.."
programs=${programs:-$PWD/build/asan/bin}

# splice FILE FIRST LAST COMMAND...: what the command prints, between these two lines of the file.
splice() {
    PATH=$programs:$PATH "${@:4}" | first=$2 last=$3 file=$1 awk '
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
    splice "$@" >"$new" || { rm "$new" && return 1; }
    if [ -n "$update" ]; then
        cat "$new" >"$1"
    elif ! diff -u "$1" "$new"; then
        echo "$1 is not what the commands say: scripts/documents.sh --update" >&2
        rm "$new"
        return 1
    fi
    rm "$new"
}

dissector() { vxsim --commands | python3 scripts/dissectorTables.py; }
rows() { vxsim --commands | python3 scripts/dissectorTables.py --rows; }

begin='<!-- from the commands -->'
end='<!-- end of what is from the commands -->'
result=0
compare docs/vxctl.md "$begin" "$end" vxctl --commands-table || result=1
compare docs/man/vxctl.1 '.\" from the commands' '.\" end of what is from the commands' vxctl --manual-sections || result=1
compare docs/vxsim.md "$begin" "$end" vxsim --commands || result=1
compare docs/vxbridge.md "$begin" "$end" vxbridge --verbs || result=1
compare docs/functions.md '<!-- from the headers -->' '<!-- end of what is from the headers -->' scripts/functionIndex.py || result=1
compare tools/wireshark/vxsign.lua '-- from the commands' '-- end of what is from the commands' dissector || result=1
compare words/commandNames.def '// from the commands' '// end of what is from the commands' rows || result=1
exit $result
