#!/usr/bin/env bash
# vxctl as it is, with vxsim as a traffic signal controller.
source "$(dirname "$0")/endToEnd.sh"

start "$work/sign" --controller
export VXSIGN=udp://127.0.0.1:$port

traffic() {
    expect 0 --json traffic "$@"
}

# settle: waits until what was ordered has green, five seconds after the order.
settle() {
    for _ in $(seq 100); do
        traffic status
        grep -qF "\"secondsLeft\":$1" "$work/out" && return
        sleep 0.1
    done
    fail "the signals do not get to $1"
}

# Orders and what comes of them.
traffic manual 2
settle null
member manual run
member 2 phase
member red groups 0 lamps
member green groups 1 lamps
expect 0 traffic status
says out "manual, mode 2"
says out "1 red, 2 green, 3 red, 4 green, 5 red, 6 red"
traffic lamps jkc "01 02" 04
traffic status --real
member lamp-test run
member yellow groups 1 lamps
member dark groups 2 lamps
member green groups 4 lamps
member 4 groups 4 lampsCode
traffic lamps jkb
traffic status
member manual run
expect 1 --json traffic phase 03
member 36881 result
traffic phase "05 C8"
traffic status
member temporary-phase run
traffic phase 00 --flag 0
traffic manual 0

# The clock, and what follows from it.
traffic clock --set "2026-11-21 12:30:00" --field8 7
traffic clock
member 6 field7
member 7 field8
says out "2026-11-21T12:30"
traffic flow --date 2026-11-20
member 2026-11-20 date
member 456 hours 12 group1
traffic flow --date 2026-11-22
member 0 hours 12 group4
traffic flow --save "$work/flow.bin"
[ "$(wc -c <"$work/flow.bin")" -eq 200 ] || fail "flow.bin has not 200 bytes"
traffic monitor
member 3 detectors 2 group

# Dump files.
traffic status --save "$work/status.bin"
traffic status --real --save "$work/real.bin"
traffic monitor --save "$work/monitor.bin"
[ "$(cd "$work" && wc -c <status.bin) $(cd "$work" && wc -c <real.bin) $(cd "$work" && wc -c <monitor.bin)" = "36 114 64" ] ||
    fail "the dumps have other sizes"

# Its logs.
traffic errors
member "Reset error ErrCNT=1" rows 0 text
member "Green Conflict error ErrCNT=1" rows 1 text
member 2 rows 1 level
traffic temperatures
member 100 rows 0 source
expect 0 traffic temperatures --csv
says out "date,source,temperatureC"

# An address of the error log is a number, as a controller with a broken output board has it.
printf '%32s\1\0\0\0\46\40\1\2\3\4\5\0\43\17\11\0%20s' '' '' >"$work/sign/E/ERR_REC/ERRMSG.ERR"
expect 0 traffic errors
says out "2026-01-02 03:04:05"
says out "Output board Error(motor ext) Address = 3 ErrCNT=9"

expect 2 traffic lamps jkb 01 02
expect 2 traffic phase xyz
expect 2 traffic flow --date 2026-02-30
expect 2 traffic monitor --kind 3 --save "$work/none.bin"
stop "$sign"

# A sign that is no controller.
start "$work/plain"
export VXSIGN=udp://127.0.0.1:$port
expect 1 --json traffic status
member 36869 result

conclude
