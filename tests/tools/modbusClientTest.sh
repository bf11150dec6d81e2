#!/usr/bin/env bash
# mbpoll and pymodbus as hosts of the Modbus devices of vxsim, in every form: modbusClientTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

# polls WANTED ARGUMENT...: mbpoll ends well and says WANTED.
polls() {
    local wanted=$1
    shift
    timeout 10 mbpoll -1 "$@" >"$work/out" 2>"$work/err" || fail "exit status $?: mbpoll $*"
    grep -q -- "$wanted" "$work/out" || fail "no '$wanted' from mbpoll $*"
}

# refuses WANTED ARGUMENT...: mbpoll fails and says why.
refuses() {
    local wanted=$1
    shift
    timeout 10 mbpoll -1 "$@" >"$work/out" 2>"$work/err" && fail "no failure: mbpoll $*"
    says err "$wanted"
}

mkdir "$work/sign"
start "$work/sign" --serial --modbus 0 --modbus-tcp 0 --modbus-exceptions
rtu=$(sed -n 's/^modbus 127\.0\.0\.1://p' "$work/sign.lines")
tcp=$(sed -n 's/^modbus-tcp 127\.0\.0\.1://p' "$work/sign.lines")
device=$(sed -n 's/^serial //p' "$work/sign.lines")

value=1000
for road in "-m rtu -b 9600 -P none $device" "-m tcp -p $tcp 127.0.0.1"; do
    value=$((value + 10))
    polls "Written 1 references" -a 5 -r 104 $road -- $value
    polls "Written 2 references" -a 5 -r 105 $road -- $((value + 1)) $((value + 2))
    polls "^\[106\]:[[:space:]]*$((value + 2))$" -a 5 -r 104 -c 3 $road
    polls "^\[23\]:[[:space:]]*3$" -a 3 -r 1 -c 29 $road
    refuses "Illegal data address" -a 11 -r 65345 $road # register 64 of the device
    refuses "Illegal function" -a 11 -t 3 -r 1 $road
done

timeout 60 "$here/modbusClients.py" "$rtu" "$tcp" "$device" >"$work/out" 2>"$work/err" || fail "pymodbus"

# Without exceptions what is refused stays without an answer, and the next request has one.
stop "$sign"
start "$work/sign" --modbus 0 --modbus-tcp 0
tcp=$(sed -n 's/^modbus-tcp 127\.0\.0\.1://p' "$work/sign.lines")
refuses "Connection timed out" -o 0.1 -a 11 -r 65345 -m tcp -p "$tcp" 127.0.0.1
polls "^\[105\]:[[:space:]]*501$" -a 5 -r 105 -m tcp -p "$tcp" 127.0.0.1

conclude
