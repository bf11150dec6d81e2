#!/usr/bin/env bash
# vxctl.exe under Wine with signs of this machine, over all kinds of lines: vxctlTest.sh VXCTL_EXE VXSIM CMAKE
. "$(dirname "$0")/../tools/endToEnd.sh"

here=$(realpath "$here/../tools")
wine=$here/../../cmake/windows/wine.sh
exe=$(realpath "$vxctl")
vxctl=$work/vxctl
printf '#!/bin/sh\nexec timeout 120 "%s" "%s" "$@"\n' "$wine" "$exe" >"$vxctl"
chmod +x "$vxctl"
cd "$work"
head -c 20000 /dev/urandom >up

start "$work/sign" --serial --modbus 0
signPort=$port
device=$(sed -n 's/^serial //p' sign.lines)
modbus=$(sed -n 's/^modbus 127.0.0.1://p' sign.lines)

start "$work/loader" --bootloader
loader=$(sed -n 's/^serial //p' loader.lines)

# Ports get their numbers when Wine starts; low ones are those of this machine.
com=COM$((RANDOM % 100 + 11))
upgraded=COM$((RANDOM % 100 + 111))
"$wine" reg add 'HKLM\Software\Wine\Ports' /v "$com" /d "$device" /f >"$work/out" 2>&1 || fail "no port for Wine"
"$wine" reg add 'HKLM\Software\Wine\Ports' /v "$upgraded" /d "$loader" /f >"$work/out" 2>&1 || fail "no port for Wine"
WINEPREFIX=${WINEPREFIX:-$(realpath "$here/../..")/build/windows-deps/wine} timeout 60 wineserver -k -w

for sign in "udp://127.0.0.1:$signPort" "tcp://127.0.0.1:$signPort" "serial:$com@115200"; do
    expect 0 -s "$sign" ping
    says out "4 sent, 4 answered"
    expect 0 -s "$sign" put up 'D:\F\UP.BIN'
    same up "$work/sign/D/F/UP.BIN"
    expect 0 -s "$sign" get 'D:\F\UP.BIN' down
    same up down
    rm -f down
    expect 0 -s "$sign" --json ls 'D:\F'
    says out UP.BIN
    expect 0 -s "$sign" show "Hello Wine"
    expect 0 -s "$sign" --json status
    member 0 result
done
expect 0 ports
says out "$com"
sign=udp://127.0.0.1:$signPort

# A play list with its files.
cp "$here/../../examples/logo.bmp" LOGO.BMP
for words in "new" "add LOGO.BMP" "send"; do
    expect 0 -s "$sign" playlist -l list.xml $words
done
same LOGO.BMP "$work/sign/F/P/LOGO.BMP"

# Field devices, firmware over the serial line.
expect 0 -s "udp://127.0.0.1:$modbus" --json modbus LC get 7 5
member 0 result
expect 0 -s "serial:$upgraded@115200" upgrade up
says out "upgrade: 157 blocks"

# Ctrl-C ends what waits.
port=$(python3 -c 'import socket; s = socket.socket(socket.AF_INET, socket.SOCK_DGRAM); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
set -m # so that the job does not ignore the signal
"$wine" "$exe" -s "udp://127.0.0.1:$port" --timeout 60000 info >"$work/out" 2>"$work/err" &
process=$!
set +m
sleep 3
kill -INT "$process"
began=$SECONDS
status=0
wait "$process" || status=$?
[ "$status" -eq 130 ] && [ $((SECONDS - began)) -lt 10 ] || fail "Ctrl-C: status $status after $((SECONDS - began)) s"

# A port that is not there, a file that is not there, a path that is too long.
expect 1 -s serial:COM3999 ping
says err "no such device"
expect 2 -s "$sign" put absent 'D:\F\X'
expect 2 -s "$sign" put "$(printf 'x%.0s' $(seq 300))" 'D:\F\X'

conclude
