#!/usr/bin/env bash
# What each command prints with --json is as docs/vxctl.schema.json says, which knows nothing that no command has:
# jsonTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"
. "$here/everyCommand.sh"
start "$work/wall" --size 48x20 --tile-lock 6 --login operator:old --bootloader --modbus 0
wall="-s udp://127.0.0.1:$port"
modbus="-s udp://$(sed -n 's/^modbus //p' "$work/wall.lines")"
loader="-s serial:$(sed -n 's/^serial //p' "$work/wall.lines")"

# What the rows leave out, with their exit status: options that bring other members, and all ways to fail.
more="
0 show --verify --no-play later
0 message 'HELLO 42' --size 32x16 -o message.nmg
0 preview message.nmg --size 32x16 -o preview.png
0 put hello.nmg D:/T/HELLO.NMG --verify
0 mv D:/T/HELLO.NMG A.NMG
0 player list SHOPPING
0 player play SHOPPING MORNING
0 player switch MORNING
0 playlist schedule /hello.nmg --dates 2026-12-01.. --hours ..19:30 --days mon-fri
0 playlist group /winter/
0 playlist ls
1 playlist fetch -l fetched/list.xml
0 clock --set now
0 doctor --list
0 log temperature
0 log radar
0 log radar --from lanes
0 log battery
0 pixels --last --png pixels.png --size 2x2
0 tile convert tile.dat --size 16x16 --module 8x8 --png tile.png
0 tile calibrate 1 --plain --png tile.png
1 tile status 99 --port 2
1 tile read 99 none --port 2
1 tile write 99 tile.dat --port 2
1 tile calibrate 99 --port 2 --plain
0 $wall login operator --password old
0 $wall passwd operator --password old --new-password new
0 $wall tile status 3 --port 2
1 $wall tile calibrate 3 --port 2 --plain
0 traffic clock --set now
0 traffic status --real
0 traffic status --save status.bin
0 traffic monitor --save monitor.bin
0 traffic flow --save flow.bin
0 traffic temperatures
0 traffic temperatures --hours
0 $modbus modbus TLS get 2 3 3
0 $loader upgrade hello.nmg
0 --version
0 --help
0 zone text --help
2
2 nonsense
2 zone nonsense
2 bright 300
2 put none D:/T/
2 -s udp://no.such.name blank
2 format D
1 get D:/NONE .
1 -s udp://127.0.0.1:9 --timeout 50 info
1 -s tcp://127.0.0.1:9 --timeout 50 playing
1 -s serial:none --timeout 50 ping
1 -s serial:none --timeout 50 doctor
"
while read -r wanted row; do
    [ -n "$wanted" ] || continue
    VXSIGN=$(signOf "$row") bash -c "SHELL=$BASH $vxctl --json $row" </dev/null >"$work/out" 2>"$work/err"
    status=$?
    [[ $wanted = any || $wanted = "$status" ]] || fail "exit status $status, not $wanted: vxctl --json $row"
    [ "$(wc -l <"$work/out")" -eq 1 ] && [ ! -s "$work/err" ] || fail "not one object alone: vxctl --json $row"
    cat "$work/out" >>"$work/objects"
done < <(sed -n 's/^[a-z.]* [0-2]/any/p' <<<"$rows" && echo "$more")
conclude "$work/leaves"
