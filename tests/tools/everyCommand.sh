# What every command is tried with, sourced behind endToEnd.sh: a sign with something to tell of, a traffic controller, and
# $rows. What is in $relayMode, such as "escapes", happens to their replies on the way.

# between: $url is that of the sign at $port, behind a relay where there is a mode.
between() {
    url=udp://127.0.0.1:$port
    [ -z "${relayMode-}" ] || relay "$port" "$relayMode"
}

mkdir "$work/sign" "$work/controller" "$work/pc"
start "$work/controller" --controller
between
controllerUrl=$url
start "$work/sign" --size 32x16 --bad 3,4,red --hot 2
export VXSIGN=udp://127.0.0.1:$port
cd "$work/pc" || exit 1
printf '\001Z00\002AA\032A\034/\377\200\000\nI3\nO3\0162%s\004' "0012HELLO 42" >hello.nmg
printf 'BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0' >face.bmp
head -c 28 /dev/zero >>face.bmp
expect 0 put hello.nmg "D:/T/a name of some length.txt"
expect 0 files hello.nmg face.bmp
expect 0 play next
expect 0 play next # a turn that is over is in the log
expect 0 player put SHOPPING MORNING hello.nmg
expect 0 extra wifi set --name ROADSIDE
between
export VXSIGN=$url NO_COLOR=1
hostile=$'"D:/\x1b[2J\x9bK\xc2\x9bK\xe2\x80\xae.NMG"' # as a script has it from a sign
hostileName=${hostile/D:\//}

# A row: where words of the sign are seen ("text" also in JSON, "line" not there, "." nowhere), the exit status, and the
# arguments. Every command has one.
rows="
text 0 playing
text 0 ls D:/T
text 0 ls -l D:/T
text 0 info
text 0 status
text 0 watch -n 1
text 0 doctor
text 0 warnings
text 0 pixels
text 0 pixels --last
text 0 log play
text 0 log system
text 0 log event
text 0 log tile
text 0 extra wifi show
text 0 player info SHOPPING MORNING
. 0 player info SHOPPING
. 0 player play SHOPPING MORNING
text 0 player playing
. 1 player list
. 1 player delete SHOPPING
. 0 playlist fetch --list-only -l fetched/list.xml
text 0 playlist ls -l fetched/list.xml
. 0 warnings --ring warnings.ring
. 0 playlist new
. 0 playlist add hello.nmg
. 0 playlist group /winter/
. 0 playlist schedule /hello.nmg --days mon-fri
. 0 playlist mv /hello.nmg up
. 0 playlist rm /winter/
. 0 playlist save other.xml
. 0 playlist preview list.png
. 0 playlist send
. 0 playlist new -l $hostileName
. 0 playlist add hello.nmg -l $hostileName
. 0 playlist send -l $hostileName
line 0 playlist ls -l $hostileName
. 0 playlist import --sequence $work/sign/C/SEQUENT.SYS
. 0 get 'D:/T/a name of some length.txt' got.nmg
. 1 get $hostile got.nmg
. 1 mv $hostile B.NMG
line 2 bright $hostile
. 0 show --preview 'HELLO 42'
line 0 message $hostile --size 32x16 -o $hostileName
. 0 preview $hostileName
text 0 preview --text $hostile
. 0 picture face.bmp
. 0 files face.bmp
. 0 put hello.nmg D:/T/HELLO.NMG
. 0 rm D:/T/HELLO.NMG
. 0 mkdir D:/NEW
. 0 format F --yes
. 0 df
. 0 play next
. 0 screenshot face.jpeg
. 0 volume
. 0 blank
. 0 unblank
. 0 bright 3
. 0 restore
. 0 power status
. 0 clock
. 0 beacon
. 0 login operator --password x
. 1 passwd operator --password a --new-password b
. 0 logout
. 0 test colour red
. 0 test pattern 5
. 0 test stop
. 0 ticker hello.nmg
. 0 zone divide 1 --grid 2x1
. 0 zone list
. 0 zone style 1 1
. 0 zone text 1 1 WORDS
. 0 zone file 1 2 D:/T/HELLO.NMG --put hello.nmg
. 0 zone empty 1 2
. 0 zone on
. 0 zone off
. 0 zone pages 2
. 0 zone clear 2
. 0 player put SHOPPING MORNING hello.nmg
. 0 player switch MORNING
. 0 player emergency SHOPPING
. 0 player stop
. 0 player windows over
. 0 player project SHOPPING --programs 1
. 0 player progress
. 0 video mpu channel 3
. 0 video mpu channel-ex 1 2
. 0 video mpu arg 1 2
. 0 video mpu outputs 1 2
. 0 video mpu phase 1 2
. 0 video mpu edid 1 '01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F'
. 0 video mpu window 0 8 4 64 24
. 0 video mpu progress 1
. 0 video vpu channel 1
. 0 video vpu mode 1
. 0 video vpu ratio 1
. 0 video vpu dvi 1 2
. 0 video vpu window 1 2
. 0 video vpu arg 1 2
. 0 video vpu type 1
. 0 video vpu start-line 1
. 0 video vpu temperature 1 2 3 4
. 0 video vpu gamma 1
. 0 video vpu ldus 1
. 0 video vpu ldu 1 2 3
. 0 video vpu pixel-mode 4
. 0 video vpu bright
. 0 video vpu signal
. 0 video vpu info
. 0 extra read 3
. 0 extra io 3
. 0 extra set 3 0=on
. 0 extra wifi set --mode ap
. 0 extra wifi unlock KEY
. 0 extra wifi reset
. 0 tile status 1
. 0 tile test 1 1
. 0 tile cmd 1 1
. 0 tile read 1 tile.dat
. 0 tile write 1 tile.dat
. 0 tile calibrate 1 --plain
. 0 tile convert tile.dat tile.csv --size 16x16 --module 8x8
. 0 traffic status
. 0 traffic monitor
. 0 traffic clock
. 0 traffic manual 2
. 0 traffic lamps jkb
. 0 traffic phase '05 C8'
. 0 traffic flow
. 0 traffic errors
. 1 traffic temperatures
. 1 modbus LC get 1 5 --timeout 50
. 1 upgrade hello.nmg --anyway --timeout 50 --retries 1
. 0 ports
. 0 book add gantry udp://10.0.0.1 --group north --label km=12.4 --size 128x32 --book signs.toml
. 0 book list --book signs.toml
. 0 book rm gantry --book signs.toml
. 0 book add here $VXSIGN --size 32x16 --book signs.toml
. 0 book check --book signs.toml
. 0 error 0x5100
. 0 raw 1 12
. 0 ping -n 1
. 0 ping -n 1 --record line.pcapng
. 0 explain line.pcapng
. 0 help ls
. 0 completion bash
. 0 reset
"

# leaves [GROUP...]: all commands, as the help tells them.
leaves() {
    local name names
    names=$("$vxctl" "$@" --help | sed -n '/^Usage:.* SUBCOMMAND$/,$p' |
        awk '/^[A-Z].*:$/ { isCommand = !/^(Options|Positionals|Examples?):/ } isCommand && /^  [a-z]/ { print $1 }')
    [ -n "$names" ] || echo "$*"
    for name in $names; do
        leaves "$@" "$name"
    done
}
: >"$work/out"
leaves >"$work/leaves"
while read -r leaf; do
    grep -qE "^(text|line|\.) [012] $leaf( |\$)" <<<"$rows" || fail "no row for: $leaf"
done <"$work/leaves"
[ "$(wc -l <"$work/leaves")" -gt 100 ] || fail "the help tells no commands"

# signOf ROW: the URL of the sign that the row is for.
signOf() {
    [ "${1%% *}" = traffic ] && echo "$controllerUrl" || echo "$VXSIGN"
}
