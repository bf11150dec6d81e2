#!/usr/bin/env bash
# Ctrl-C at any time: interruptTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

# takesSignals PROCESS: it is vxctl by now, and waits for Ctrl-C itself.
takesSignals() {
    local caught
    [ "/proc/$1/exe" -ef "$vxctl" ] || return
    caught=$(sed -n 's/^SigCgt:[[:space:]]*//p' "/proc/$1/status" 2>/dev/null)
    [ -n "$caught" ] && ((0x$caught & 2))
}

# await CONDITION...: waits until it holds.
await() {
    for _ in $(seq 500); do
        "$@" && return
        sleep 0.02
    done
    fail "nothing happens: $*"
}

# interrupt CONDITION ARGUMENT...: Ctrl-C as soon as the condition holds ends vxctl well within a try, with the status for it.
interrupt() {
    local condition=$1 start took status=0
    shift
    set -m # so that the job does not ignore the signal
    "$vxctl" --timeout 60000 "$@" >"$work/out" 2>"$work/err" <"$input" &
    set +m
    process=$!
    await takesSignals "$process"
    await $condition
    start=$(date +%s%N)
    kill -INT "$process"
    wait "$process" 2>/dev/null || status=$?
    took=$((($(date +%s%N) - start) / 1000000))
    [ "$status" -eq 130 ] || fail "exit status $status after Ctrl-C: vxctl $*"
    [ "$took" -lt 6000 ] || fail "Ctrl-C took $took ms: vxctl $*"
    case " $* " in *" --json "*) member 20497 result ;; *) says err "Operation Abort!" ;; esac
}

input=/dev/null

saysNothingMore() {
    [ "$(wc -l <"$work/err")" -eq 1 ] || fail "there is advice where nothing was left"
}

head -c 100000 /dev/urandom >"$work/file"
(printf 'BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0' && head -c 28 /dev/zero) >"$work/red.bmp"
export VXLIST=$work/list/list.xml
mkdir "$work/list"
expect 0 playlist new
expect 0 playlist add "$work/red.bmp"

# A sign that never answers, over whatever line.
mkdir "$work/mute"
start "$work/mute" --serial --fault drop=1
udp=udp://127.0.0.1:$port
tcp=tcp://127.0.0.1:$(sed -n 's/^tcp 127\.0\.0\.1://p' "$work/mute.lines")
serial=serial:$(sed -n 's/^serial //p' "$work/mute.lines")@115200
export VXSIGN=$udp
for line in "bright 4" "-s $tcp bright 4" "-s $serial bright 4" "show HELLO" "picture --size 64x32 $work/red.bmp" \
    "picture $work/red.bmp" "files $work/red.bmp" "put $work/file D:/F/" "put --window $work/file D:/F/A.BIN" \
    "get D:/F/A.BIN $work/kept" "info" "status" "doctor" "ping" "log play" "pixels" "playlist send" "tile status 1" \
    "tile test 1 0 --port 1" "restore" "modbus VSLS get 5 1 3" "-s $serial modbus VSLS get 5 1 3" \
    "-s $serial upgrade $work/file" "--json df"; do
    # shellcheck disable=SC2086
    interrupt true $line
    case $line in *--json*) ;; *) saysNothingMore ;; esac
done
[ ! -e "$work/kept" ] && [ ! -e "$work/kept.part" ] || fail "an interrupted read left something"
# Nor does it wait for what is not typed.
input=$work/pipe
mkfifo "$input"
exec 9<>"$input"
interrupt true show -
interrupt true login operator
input=/dev/null
stop "$sign"

# A slow one: a transfer that is under way leaves half a file, a question nothing.
mkdir "$work/slow"
start "$work/slow" --delay 150 --verbose 2>"$work/told"
VXSIGN=udp://127.0.0.1:$port
written() { [ "$(grep -c "write file" "$work/told")" -gt 3 ]; }
interrupt written put "$work/file" D:/F/A.BIN
says err "D:\\F\\A.BIN did not arrive whole: send it again"
: >"$work/told"
reading() { grep -q "read file" "$work/told"; }
head -c 3000 "$work/file" >"$work/short"
interrupt reading put --verify "$work/short" D:/F/C.BIN
saysNothingMore
: >"$work/told"
interrupt written put --window "$work/file" D:/F/B.BIN
says err "D:\\F\\B.BIN did not arrive whole: send it again"
cp "$work/file" "$work/slow/D/A.BIN"
fetched() { [ "$(grep -c "read file" "$work/told")" -gt 3 ]; }
interrupt fetched get D:/A.BIN "$work/kept"
saysNothingMore
[ ! -e "$work/kept" ] && [ ! -e "$work/kept.part" ] || fail "an interrupted read left something"

conclude
