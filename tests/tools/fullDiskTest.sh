#!/usr/bin/env bash
# Disks that are full, folders that take nothing, and clocks that jump: fullDiskTest.sh VXCTL VXSIM CMAKE
#
# Whatever cannot be kept is told of with its cause, and what was there before stays. A full disk is a limit on the size
# of a file, so that anybody may have one.
. "$(dirname "$0")/endToEnd.sh"

# full KILOBYTES COMMAND...: no file takes more from it.
full() {
    local room=$1
    shift
    (trap '' XFSZ && ulimit -f "$room" && exec "$@")
}

# lacking STATUS TEXT COMMAND...: the command cannot keep something, and says so.
lacking() {
    local wanted=$1 text=$2 status=0
    shift 2
    "$@" >"$work/out" 2>"$work/err" || status=$?
    [ "$status" -eq "$wanted" ] || fail "exit status $status, not $wanted: ${*##*/}"
    says err "$text"
}

# As a user whom permissions hold, who reaches the programs and nothing else.
as=(env)
chmod 755 "$work"
cp -L "$vxctl" "$vxsim" $(ldd "$vxctl" | awk '/libvxsign/ { print $3 }') "$work"
export LD_LIBRARY_PATH=$work
[ "$(id -u)" -ne 0 ] || as=(setpriv --reuid nobody --regid nogroup --clear-groups)
cd "$work" && mkdir pc sign tmp readonly || exit 1
chmod 777 tmp
export TMPDIR=$work/tmp

head -c 300000 /dev/urandom >large
head -c 20000 /dev/urandom >new.bin
printf 'kept\n' | tee kept >old.bin
cp "$here/../../examples/logo.bmp" "$here/../../examples/hello.nmg" .
start sign --size 512x256
export VXSIGN=udp://127.0.0.1:$port
expect 0 put large D:/F/LARGE.BIN
expect 0 put old.bin D:/F/OLD.BIN
expect 0 playlist -l pc/list.xml new
expect 0 playlist -l pc/list.xml add --raw large
for i in $(seq 8); do expect 0 playlist -l pc/list.xml group "/group $i/"; done
expect 0 playlist -l pc/list.xml send
cp pc/list.xml list.before

# This PC. 4 KB take what a program says, but no picture.
lacking 1 "cannot write kept.part: File too large" full 4 "$vxctl" get D:/F/LARGE.BIN kept
same kept old.bin
lacking 1 "cannot write in .: File too large" full 4 "$vxctl" screenshot face.jpeg
lacking 1 "cannot write in .: File too large" full 4 "$vxctl" preview logo.bmp --size 512x256 -o logo.png
lacking 1 "cannot write in $work/tmp: File too large" full 4 "$vxctl" picture logo.bmp
lacking 1 "cannot write in pc: File too large" full 1 "$vxctl" playlist -l pc/list.xml schedule /large --days mon
same pc/list.xml list.before
lacking 1 "1 of 1 files did not come whole to this PC; cannot write in fetched: File too large" \
    full 16 "$vxctl" playlist -l fetched/list.xml fetch
expect 0 playlist -l fetched/list.xml fetch
same large fetched/large
for line in info "--json info" "log system --csv" "completion bash" help "preview logo.bmp" "playlist -l pc/list.xml ls"; do
    # shellcheck disable=SC2086
    "$vxctl" $line >/dev/full 2>err && fail "$line into a full disk is done"
    [[ $line == --json* ]] || says err "standard output takes no more"
done
[ -z "$(find . -name '*.part' -o -name 'face*' -o -name 'logo.png' -o -name 'vxctl-*' -o -path './tmp/*')" ] ||
    fail "something half written is left"

# The sign. What it had stays, and with room again it takes the same.
stop "$sign"
start sign --size 512x256 --bootloader
expect 0 -s "serial:$(sed -n 's/^serial //p' sign.lines)@4000000" upgrade old.bin
stop "$sign"
# withRoom KILOBYTES OPTION...: the sign anew.
withRoom() {
    ulimit -S -f "$1"
    trap '' XFSZ
    shift
    start sign --size 512x256 "$@" 2>>sign.err
    trap - XFSZ
    ulimit -S -f unlimited
    export VXSIGN=udp://127.0.0.1:$port
}
withRoom 128
head -c 300000 /dev/urandom >large.bin
lacking 1 "check that the drive is there and has room" "$vxctl" put large.bin D:/F/OLD.BIN
same sign/D/F/OLD.BIN old.bin
lacking 1 "the file did not reach the tile: File write-in failure!" "$vxctl" tile write 1 large.bin
cp large.bin pc/large
lacking 1 "1 of 1 files are not whole on the sign; the next sending tries them again" \
    "$vxctl" playlist -l pc/list.xml send
find sign -iname large -exec cmp -s {} large \; || fail "the file of the list is not the old one"
for i in $(seq 30); do "$vxctl" bright 5 || break; done >out 2>err
says sign.err "rows are lost"
expect 0 log system --limit 3
stop "$sign"
withRoom unlimited
[ -z "$(find sign/sign -name '*.tmp')" ] || fail "the sign keeps what had not arrived"
expect 0 put large.bin D:/F/OLD.BIN
same sign/D/F/OLD.BIN large.bin
expect 0 playlist -l pc/list.xml send
expect 0 log system --limit 3
stop "$sign"

# Folders that take nothing.
cp -r sign pc readonly
cp old.bin readonly/kept
chmod -R a-w,a+rX readonly
start sign --size 512x256
export VXSIGN=udp://127.0.0.1:$port
cd readonly || exit 1
asUser=("${as[@]}" "$work/vxctl")
lacking 1 "readonly/sign/sign/logs.sqlite: attempt to write a readonly database" \
    "${as[@]}" "$work/vxsim" --port 0 --dir "$work/readonly/sign"
lacking 1 "cannot make a folder: Permission denied" env TMPDIR=. "${as[@]}" "$work/vxsim" --port 0
lacking 1 "cannot write in .: Permission denied" "${asUser[@]}" get D:/F/OLD.BIN kept
lacking 1 "cannot write in .: Permission denied" "${asUser[@]}" screenshot face.jpeg
lacking 1 "cannot write in .: Permission denied" "${asUser[@]}" message HELLO -o hello.nmg
lacking 1 "cannot write in .: Permission denied" env TMPDIR=. "${asUser[@]}" show HELLO
lacking 1 "cannot write in .: Permission denied" env TMPDIR=. "${asUser[@]}" picture "$work/logo.bmp"
lacking 1 "cannot write in pc: Permission denied" "${asUser[@]}" playlist -l pc/list.xml rm /large
lacking 1 "cannot write in pc: Permission denied" "${asUser[@]}" playlist -l pc/list.xml send
same kept ../old.bin
same pc/list.xml ../list.before
cd "$work" && chmod -R u+w readonly || exit 1
stop "$sign"

# The clock jumps by centuries in the middle of a transfer: nothing is caught up with, and nobody waits.
start sign --delay 10 --size 512x256
export VXSIGN=udp://127.0.0.1:$port
"$vxctl" --chunk 1280 put large.bin D:/F/JUMP.BIN >out 2>err &
for time in "2099-12-31 23:59:59" "1980-01-01 00:00:00" "2026-03-29 02:30:00" now; do
    "$vxctl" clock --set "$time" >>out 2>>err || fail "no clock is set to $time"
    "$vxctl" ping -n 2 --timeout 2000 >>out 2>>err || fail "nothing answers at $time"
done
wait $! || fail "the transfer has failed"
same sign/D/F/JUMP.BIN large.bin
for line in "log system --limit 3" "log temperature" status doctor; do
    # shellcheck disable=SC2086
    expect 0 $line
done
stop "$sign"

conclude
