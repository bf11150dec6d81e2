#!/usr/bin/env bash
# Whatever doctor advises leaves the sign as it is: doctorTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign" "$work/pc"
start "$work/sign" --bad 3,4,red --hot 2 --login operator:secret
export VXSIGN=udp://127.0.0.1:$port
expect 0 login operator --password secret
expect 0 pixels
expect 0 power off
expect 0 beacon "01 02"
expect 0 volume 77
expect 0 bright 3
expect 0 clock --set "2031-07-09 12:34:00"

# All but what the sign writes of itself each minute, of which there are the names alone. The system log has a row for
# each command that changes how the sign works.
state() {
    (cd "$work/sign" && find . -type f ! -name 'logs.sqlite*' -print &&
        find . -type f ! -name 'logs.sqlite*' ! -name '*.log' ! -name errors.xml -exec cksum {} +) | sort -k 3
    local asked
    for asked in "log system --csv" "power status" "beacon" "volume" "playing" "info" "pixels --last" \
        "ls C:/" "ls D:/" "ls E:/" "ls F:/"; do
        # shellcheck disable=SC2086 # each is a list of words
        "$vxctl" $asked
    done
    "$vxctl" clock | sed 's/2031-07-09 12:3[4-7]/as it was set/'
} 2>&1

state >"$work/before"
grep -q "as it was set" "$work/before" || fail "the clock is not as it was set"
expect 0 doctor --list --json
sed 's/"next":"/\n/g' "$work/out" | sed -n 's/^\(vxctl [^"]*\)".*/\1/p' >"$work/advised"
[ "$(wc -l <"$work/advised")" -eq "$(grep -o '"check"' "$work/out" | wc -l)" ] || fail "advice without a command"
cd "$work/pc" || exit 1
while read -r program arguments; do
    status=0
    # shellcheck disable=SC2086
    "$vxctl" $arguments </dev/null >"$work/out" 2>"$work/err" || status=$?
    [ "$program" = vxctl ] && [ "$status" -ne 2 ] || fail "no command: $program $arguments"
done < <(echo vxctl doctor && cat "$work/advised")
state >"$work/after"
diff "$work/before" "$work/after" >"$work/out" || fail "what doctor advises changes the sign"
stop "$sign"

conclude
