#!/usr/bin/env bash
# Nothing that a sign says gives orders to a terminal, whatever the command: terminalTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

relayMode=escapes # words become orders to a terminal
. "$here/everyCommand.sh"

# Controls of 7 and 8 bits, lines' and paragraphs' ends, what turns the direction of writing, and what is no UTF-8.
orders='[\x00-\x09\x0b-\x1f\x7f]|\xc2[\x80-\x9f]|\xd8\x9c|\xe2\x80[\x8e\x8f\xa8-\xae]|\xe2\x81[\xa6-\xa9]'
harmless() {
    iconv -f UTF-8 -t UTF-8 "$1" >/dev/null 2>&1 && ! LC_ALL=C grep -qaP "$orders" "$1"
}
printf 'a\xc2\x9b' >"$work/csi"
printf 'a\x9b' >"$work/raw"
harmless "$work/csi" || harmless "$work/raw" && fail "orders pass for harmless"

# On a terminal, for its progress bars, and as JSON.
while read -r mark wanted row; do
    [ -n "$row" ] || continue
    sign=$(signOf "$row")
    status=0
    : >"$work/err"
    VXSIGN=$sign SHELL=$BASH script -qec "$vxctl $row" /dev/null </dev/null 2>&1 |
        sed -E 's/\r?\x1b\[([KJ]|[0-9]+A)//g; s/\r//g' >"$work/out" || status=$?
    [ "$status" -eq "$wanted" ] || fail "exit status $status, not $wanted: vxctl $row"
    harmless "$work/out" || fail "orders to a terminal: vxctl $row"
    [ "$mark" = . ] || grep -qF '?' "$work/out" || fail "nothing of the sign's words: vxctl $row"
    [ "$mark" = text ] || continue
    VXSIGN=$sign bash -c "$vxctl --json $row" </dev/null >"$work/out" 2>"$work/err"
    cat "$work/out" >>"$work/objects"
    harmless "$work/out" && harmless "$work/err" || fail "orders to a terminal: vxctl --json $row"
    grep -qF '\u' "$work/out" || fail "the JSON has lost words: vxctl $row"
done <<<"$rows"

conclude
