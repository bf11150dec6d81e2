#!/usr/bin/env bash
# Runs a program for Windows under Wine, in a home of its own below build/windows-deps. It is made on first use, which may take
# its time, or get stuck: then once more.
set -euo pipefail
deps=$(cd "$(dirname "$0")/../.." && pwd)/build/windows-deps
export WINEPREFIX=${WINEPREFIX:-$deps/wine} WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
mkdir -p "$deps"
(
    flock 9
    [ -e "$WINEPREFIX/.ready" ] && exit
    for try in 1 2; do
        rm -rf "$WINEPREFIX"
        if timeout 120 wine cmd /c exit < /dev/null > "$deps/wine.log" 2>&1; then
            touch "$WINEPREFIX/.ready"
            exit
        fi
    done
    cat "$deps/wine.log" >&2
    exit 1
) 9> "$deps/wine.lock"
exec wine "$@"
