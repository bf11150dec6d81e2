#!/usr/bin/env bash
# Runs a program for Windows under Wine, in a home of its own below build/windows-deps. Made on first use.
set -euo pipefail
deps=$(cd "$(dirname "$0")/../.." && pwd)/build/windows-deps
export WINEPREFIX=${WINEPREFIX:-$deps/wine} WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
exec wine "$@"
