#!/usr/bin/env bash
# Many signs at once: manyTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

export VXBOOK=$work/signs.toml
# inBook GROUP NAME OPTION...: a sign that runs, and that the book has.
inBook() {
    local group=$1 name=$2
    shift 2
    mkdir "$work/$name"
    start "$work/$name" "$@"
    printf '[sign.%s]\nurl = "udp://127.0.0.1:%s"\ngroups = ["%s"]\n' "$name" "$port" "$group" >>"$VXBOOK"
}

# lines FILE COUNT TEXT: so many lines of it have that text.
lines() {
    local found
    found=$(grep -cF -- "$3" "$work/$1")
    [ "$found" -eq "$2" ] || fail "$found lines with '$3' in $1, not $2"
}

echo 'timeout = 20000' >"$VXBOOK"
inBook well a
inBook well b --drives CD
inBook well c
url=udp://127.0.0.1:$port
inBook ill mute --fault drop=1
printf 'timeout = 50\nretries = 1\n' >>"$VXBOOK"
mkdir "$work/pc"
cd "$work/pc" || exit 1

# One sign, named in whatever way, is as one sign always was.
for words in "bright 7" "ls C:/" "--json bright 7" "--json playing" "--json bright 300" "bright 300" "upgrade /none"; do
    # shellcheck disable=SC2086
    "$vxctl" -s "$url" $words >"$work/byUrl" 2>"$work/errByUrl"
    # shellcheck disable=SC2086
    expect $? -s c $words
    same "$work/byUrl" "$work/out"
    same "$work/errByUrl" "$work/err"
done
expect 2 -s nobody blank
says err "the book has no 'nobody'"

# A line for each, then the sum; each once, however often it is named.
expect 0 -s group:well bright 5
[ "$(sort "$work/out")" = $'a: done\nb: done\nc: done' ] || fail "not a line for each"
says err "3 of 3 done in "
VXSIGN=group:well expect 0 -s a -s group:well -s "$url" ping -n 2
lines out 3 ": 2 sent, 2 answered"
expect 0 -s a -s b ls C:/
lines out "$(("$("$vxctl" -s a ls C:/ | wc -l)" + "$("$vxctl" -s b ls C:/ | wc -l)"))" ": "
expect 0 --json -s group:well status
lines out 3 '"signName"'
expect 2 -s group:well upgrade /dev/null
says err "takes one sign, and -s names 3"
expect 2 -s group:well -s udp://nowhere:x bright 4
[ -s "$work/out" ] && fail "something was sent ahead of a wrong word"
VXSIGN=all expect 0 error 2

# What fails is told when it comes and at the end, and can be tried again alone.
expect 3 -s all bright 6 --retry-failed failed.txt
lines err 2 "mute: error 20736"
lines err 2 "no answer from 127.0.0.1:"
says err "3 of 4 done, 1 failed in "
[ "$(cat failed.txt)" = mute ] || fail "the failed one is not in the file"
expect 3 --json -s all bright 6 --retry-failed failed.txt
lines out 1 '"signName":"mute"'
lines out 1 '"result":20736'
sed -i 's/mute/b/' failed.txt
expect 0 -s all bright 6 --retry-failed failed.txt
[ "$(cat "$work/out")" = "b: done" ] || fail "not the one of the file alone"
[ ! -e failed.txt ] || fail "the file names signs that are done"
(sed -n '/^\[sign.mute\]/,$p' "$VXBOOK" && sed -n '/^\[sign.a\]/,/^\[sign.b\]/p' "$VXBOOK") | sed '$d' >muteFirst.toml
expect 3 --book muteFirst.toml -s all --jobs 1 --fail-fast --retry-failed failed.txt blank
says err "0 of 2 done, 1 failed, 1 not begun in "
[ "$(tr '\n' ' ' <failed.txt)" = "mute a " ] || fail "not begun, and not in the file"

# Files of this PC: each sign has a folder.
head -c 70000 /dev/urandom >content
expect 0 -s group:well put content C:/CONTENT.BIN
expect 0 -s group:well get C:/CONTENT.BIN out/
expect 0 -s group:well get C:/CONTENT.BIN other/name
for name in b c; do
    same content "out/$name/CONTENT.BIN"
    same content "other/$name/name"
done
expect 3 -s all get C:/NONE.BIN none/
[ -z "$(find none -mindepth 1)" ] || fail "folders without files"

# What the library writes beside a file is not shared: a wrapped message, and the sequence file of a list. Standard input
# is read for all. The drive is that of each sign, on the same thread too.
(printf 'NG' && head -c 510 /dev/zero) >wrapped.nmg
expect 0 -s group:well put wrapped.nmg C:/
[ ! -e wrapped.nmg.tmp ] || fail "signs share what is unwrapped"
echo "LANE 2" | "$vxctl" -s group:well --jobs 1 show - >"$work/out" 2>"$work/err" || fail "show"
[ -n "$(find "$work/a/F" "$work/c/F" -iname qmsg.nmg)" ] && [ -n "$(find "$work/b/D" -iname qmsg.nmg)" ] &&
    [ -z "$(find "$work/b/F" "$work/c/D" -iname qmsg.nmg 2>/dev/null)" ] || fail "a message is on the drive of another sign"
expect 0 -s b -s c files "$here/../../examples/logo.bmp"
expect 0 message "FOG" -o fog.nmg
expect 0 playlist new
expect 0 playlist add fog.nmg
expect 0 -s group:well playlist send --verify
[ ! -e SEQ_PC.SYS ] || fail "signs share a sequence file"
expect 0 -s group:well playing
lines out 6 fog.nmg

# Signs on one serial line have their turns.
mkdir "$work/bus"
start "$work/bus" --serial
for address in 257 258 259 260; do
    printf '[sign.at%s]\nurl = "serial:%s"\ndestination = %s\n' "$address" "$(sed -n 's/^serial //p' "$work/bus.lines")" "$address"
done >bus.toml
expect 0 --book bus.toml -s all bright 4

# Ctrl-C ends all, and says what was not begun.
set -m
"$vxctl" --book muteFirst.toml -s all --jobs 1 --timeout 60000 bright 1 >"$work/out" 2>"$work/err" &
set +m
process=$!
sleep 1
kill -INT "$process"
wait "$process"
[ $? -eq 130 ] || fail "Ctrl-C"
says err "0 of 2 done, 1 broken off, 1 not begun in "

# watch: lines in a pipe, objects, a table on a terminal.
expect 3 -s all watch -n 2 --every 1
lines out 2 "b: "
lines out 8 ": "
expect 0 --json -s b watch -n 1
lines out 1 '"signName":"b"'
script -qec "stty cols 40 rows 20; $vxctl -s all watch -n 1" /dev/null </dev/null >"$work/out" 2>&1
says out "sign  state"

conclude
