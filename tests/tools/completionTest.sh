#!/usr/bin/env bash
# The completion scripts are such, and the one for bash completes: completionTest.sh VXCTL
set -uo pipefail
vxctl=$1
fail() {
    echo "FAILED: $*" >&2
    exit 1
}

for shell in bash zsh fish; do
    script=$("$vxctl" completion "$shell") || fail "no script for $shell"
    command -v "$shell" >/dev/null || continue
    "$shell" -n /dev/stdin <<<"$script" || fail "the script for $shell is none"
done

# offers LINE WORD...: what bash offers at the end of the line.
offers() {
    COMP_LINE="$vxctl $1"
    COMP_POINT=${#COMP_LINE}
    COMP_WORDS=("$vxctl" "${1##* }")
    COMP_CWORD=1
    _vxctl 2>/dev/null # compopt has no completion to change here
    shift
    [ "${COMPREPLY[*]}" = "$*" ] || fail "after '$COMP_LINE': ${COMPREPLY[*]}"
}
eval "$("$vxctl" completion bash)"
offers "power o" on off
offers "-s udp://127.0.0.1:9520 playlist mv /a " up down
export VXBOOK=$(mktemp)
trap 'rm "$VXBOOK"' EXIT
printf '[sign.gantry-%s]\nurl = "udp://10.7.0.%s"\ngroups = ["north"]\n' 1 1 2 2 >"$VXBOOK"
offers "-s ga" gantry-1 gantry-2
offers "status -s gantry-1 --sign " gantry-1 gantry-2 group:north all
offers "-s gantry-1 stat" status
cd "$(dirname "$0")" || exit 1
offers "put completionT" completionTest.sh
