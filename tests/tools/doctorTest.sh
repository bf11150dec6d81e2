#!/usr/bin/env bash
# Why a sign is dark, what is wrong with a line, and that what doctor advises leaves the sign as it is:
# doctorTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

# A sign that has nothing to play, until the list is sent.
mkdir "$work/sign" "$work/pc" "$work/dark" "$work/line"
cd "$work/pc" || exit 1
start "$work/dark" --size 64x32
export VXSIGN=udp://127.0.0.1:$port
printf '\001Z00\002AA\032A\034/\377\200\000\nI3\nO3\0162%s\004' "9999HELLO 42" >hello.nmg
expect 0 playlist new
expect 0 playlist add hello.nmg
expect 5 doctor --exit-code
says out "there is nothing to play"
says out "ends it:  vxctl playlist send"
says out "never checked"
expect 0 playlist send
expect 0 doctor --exit-code
[ "$(head -n 1 "$work/out")" = 'face        ok        shows F:\T\hello.nmg' ] || fail "the face is not the first answer"
expect 0 player put SHOP OPEN hello.nmg
expect 0 zone divide 1 --grid 2x1
expect 0 video mpu channel 3

# What darkens or covers a face: the exit status, the command that begins it, what doctor says of it, what ends it.
states='
5|power off|the power was switched off|power on
5|blank|the face was blanked|unblank
4|test colour red|a test was started|test stop
4|test pattern 5|a test was started|test stop
4|ticker hello.nmg|a ticker was started|ticker --stop
4|zone on|zones were switched on|zone off
4|player play SHOP OPEN|a program was started|player stop
4|player play SHOP OPEN --window 1|programs were started in windows|player stop
4|player emergency SHOP OPEN|an emergency program was started|player emergency --stop
4|video mpu window 0 8 4 40 24|a video window was set|video mpu window 0 --hide
4|video vpu channel 2|a video input was put on the whole face|video vpu channel 0
5|video vpu channel 9|a video input was put on the whole face, which has no signal|video vpu channel 0
5|video vpu bright 0 0 0 255|the brightness of the video processor was set to 0|video vpu bright 255 255 255 255
4|bright 1|the brightness was set to 1 of 8|bright 8
'
count=0
while IFS='|' read -r status begin text end; do
    [ -n "$begin" ] || continue
    count=$((count + 1))
    # shellcheck disable=SC2086 # each is a list of words
    expect 0 $begin
    expect "$status" doctor --exit-code --json
    member "$text" findings 0 text
    member "vxctl $end" findings 0 end
    member line findings 1 check # it is all that is there
    # shellcheck disable=SC2086
    expect 0 $end
    expect 0 doctor --exit-code
done <<<"$states"
[ "$count" -eq 14 ] || fail "states were left out"

# All of them at once, ended by one command that says so.
while IFS='|' read -r status begin text end; do
    [[ $begin = bright* || $begin = *bright* || -z $begin ]] && continue
    # shellcheck disable=SC2086
    expect 0 $begin
done <<<"$states"
expect 0 restore
while IFS='|' read -r status begin text end; do
    [[ $begin = *bright* || -z $begin ]] || says out "ended               ${text%, which*}"
done <<<"$states"
says out 'playing             F:\T\hello.nmg'
expect 0 doctor --exit-code
expect 0 restore --json
says out '"ended":[]'
expect 2 video mpu window 0
expect 2 video mpu window 0 1 2 3 4 --hide
stop "$sign"

# Lines: the fault, and what is said of it. A line that loses some packets does not keep doctor from going on.
while IFS='|' read -r fault text; do
    start "$work/line" ${fault:+--fault "$fault"}
    expect 5 -s "udp://127.0.0.1:$port" --timeout 100 doctor --exit-code
    says out "$text"
    stop "$sign"
done <<END
noise=20|2 with bytes that are no packet
badsum=1|2 with a wrong sum
wrongid=1|2 with the answer to something else
drop=1|2 silent
END
# What the system knows of a line is said at once, whatever the time for a try.
for row in "udp://127.0.0.1:9 connection refused by 127.0.0.1:9|nothing listens there" \
    "tcp://127.0.0.1:9 connection refused by 127.0.0.1:9|nothing listens there" \
    "serial:/dev/null /dev/null is no serial line|vxctl ports"; do
    expect 5 -s "${row%% *}" --timeout 60000 doctor --exit-code
    text=${row#* }
    says out "wrong     ${text%|*}"
    says out "${text#*|}"
    says err "${text%|*}"
done
expect 1 -s tcp://127.0.0.1:9 doctor
start "$work/line" --delay 150
expect 5 -s "udp://127.0.0.1:$port" --timeout 100 doctor --exit-code
says out "the sign answers, but later than --timeout"
stop "$sign"
start "$work/line" --fault drop=0.3,seed=2
expect 5 -s "udp://127.0.0.1:$port" --timeout 50 --retries 1 doctor --exit-code
says out "warnings  "
stop "$sign"

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
    for asked in "log system --csv" "power status" "beacon" "volume" "playing" "pixels --last" \
        "ls C:/" "ls D:/" "ls E:/" "ls F:/"; do
        # shellcheck disable=SC2086 # each is a list of words
        "$vxctl" $asked
    done
    "$vxctl" info | grep -v "free of" # which other programs of this machine change
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
