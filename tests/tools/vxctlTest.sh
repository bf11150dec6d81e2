#!/usr/bin/env bash
# Runs vxctl against vxsim over loopback: vxctlTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign" "$work/slow" "$work/ill"
# A sign with faults, whose pixel check runs while the others are tried.
start "$work/ill" --bad 3,4,red --bad 100,30,all,signal --hot 2
ill=$sign
illUrl=udp://127.0.0.1:$port
"$vxctl" -s "$illUrl" pixels --png "$work/bad.png" >"$work/pixels" 2>&1 &
check=$!
start "$work/sign"
export VXSIGN=udp://127.0.0.1:$port
head -c 200003 /dev/urandom >"$work/file"

# Show: the message as the sign keeps it, byte by byte.
expect 0 show "HELLO 42" --colour "#FF8000" --font A --mode 3 --stay 12 --drive E
printf '\001Z00\002AA\032A\034/\377\200\000\nI3\nO3\0162%s\004' "0012HELLO 42" >"$work/wanted"
same "$work/wanted" "$work/sign/E/T/QMSG.Nmg"
# keeps TEXT: the message on the sign ends in these bytes, and no more of text is ahead of them.
keeps() {
    printf '\0162%s\004' "0005$1" >"$work/wanted"
    tail -c "$(wc -c <"$work/wanted")" "$work/sign/E/T/QMSG.Nmg" | cmp -s - "$work/wanted" || fail "the sign keeps another text"
}
expect 0 show --drive E 'Lane 2\nclosed, \\now'
keeps $'Lane 2\rclosed, \\now'
printf 'Lane 3\r\nIn use\n' >"$work/text"
expect 0 show --drive E - <"$work/text"
keeps $'Lane 3\rIn use'
expect 2 show --drive E - </dev/null
says err "vxctl: show: the text is empty"
keeps $'Lane 3\rIn use'
expect 0 show --drive E "" --allow-empty --verify
keeps ' '
expect 0 show --drive E --markup '{font 2}{{a}{line}{flash}b' --stay 2
printf '\0162%s\0322{a}\rb\f{a}\r\034/\0\0\0%s\004' 0001 b >"$work/wanted"
tail -c "$(wc -c <"$work/wanted")" "$work/sign/E/T/QMSG.Nmg" | cmp -s - "$work/wanted" || fail "no marks"
expect 2 show --markup '{flash}b' --mode 3
expect 2 show --markup '{rde}b'
says err "vxctl: show: '{rde}' at character 1: there is no such mark (did you mean {red}?)"
cp "$work/sign/C/SEQUENT.SYS" "$work/sequence"
expect 0 show --no-play "not now"
same "$work/sequence" "$work/sign/C/SEQUENT.SYS"
head -c 500 "$work/file" >"$work/logo.bmp"
expect 0 picture --raw "$work/logo.bmp" --drive E
tail -c 500 "$work/sign/E/T/PMSG.Nmg" | cmp -s - "$work/logo.bmp" || fail "the picture is not what was sent"
# A picture comes in the size of the face: that of a red pixel fills its height, or all of it.
printf 'BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0' >"$work/red.bmp"
(head -c 24 /dev/zero && printf '\0\0\377\0') >>"$work/red.bmp"
# redOf FIT: bytes of red in the picture that the sign got.
redOf() {
    expect 0 --json picture "$work/red.bmp" --drive E --fit "$1" ${2-}
    member 1 frames
    tr -dc '\377' <"$work/sign/E/T/PMSG.Nmg" | wc -c
}
for row in "contain 1024" "cover 4096" "stretch 4096" "none 1"; do
    [ "$(redOf ${row% *})" -eq "${row#* }" ] || fail "picture --fit $row: $(redOf ${row% *}) pixels are red"
done
[ "$(redOf contain "--size 32x8")" -eq 64 ] || fail "picture --size has no say"
# What is none is refused with its reason, and nothing goes out.
sum=$(cksum "$work/sign/E/T/PMSG.Nmg")
echo '<svg xmlns="http://www.w3.org/2000/svg"/>' >"$work/drawing.png"
head -c 57 "$work/red.bmp" >"$work/cut.bmp"
for row in "drawing.png SVG" "cut.bmp end is missing" "wanted no picture"; do
    expect 2 picture "$work/${row%% *}" --drive E
    says err "${row#* }"
done
[ "$sum" = "$(cksum "$work/sign/E/T/PMSG.Nmg")" ] || fail "a picture that was refused went out"
# The frames of an animation, a red one for a second and a green one for two, are a list on the sign.
image() { printf '\x21\xf9\4\0%b\0\0\0\x2c\0\0\0\0\1\0\1\0\0\2\2%b\1\0' "$@"; }
(printf 'GIF89a\1\0\1\0\x80\0\0\xff\0\0\0\xff\0' && image '\0144' '\0104' && image '\0310' '\0114' && printf ';') >"$work/blink.gif"
expect 0 picture "$work/blink.gif" --drive E --json
member 2 frames
grep -qa $'\x0e20001' "$work/sign/E/T/FRAME100.NMG" || fail "the first frame does not stay for a second"
grep -qa $'\x0e20002' "$work/sign/E/T/FRAME101.NMG" || fail "the second frame does not stay for two"
cmp -s "$work/sign/E/T/FRAME100.NMG" "$work/sign/E/T/FRAME101.NMG" && fail "both frames are the same"
expect 2 playlist add "$work/blink.gif"
head -c 60 "$work/blink.gif" >"$work/cut.gif"
expect 2 picture "$work/cut.gif"
says err "the end is missing"
expect 0 files --no-play --drive E "$work/logo.bmp"
same "$work/logo.bmp" "$(find "$work/sign/E" -name logo.bmp)"

# Files, over both channels and in both ways.
for url in "udp://127.0.0.1:$port" "tcp://localhost:$port"; do
    for window in "" --window; do
        expect 0 -s "$url" --chunk 1000 --json put $window "$work/file" D:/F/BIG.BIN
        member 200003 bytes
        same "$work/file" "$work/sign/D/F/BIG.BIN"
        expect 0 get 'D:\F\BIG.BIN' "$work" -s "$url"
        says out "200.0 kB"
        same "$work/file" "$work/BIG.BIN"
        expect 0 -s "$url" rm D:/F/BIG.BIN
        [ ! -e "$work/sign/D/F/BIG.BIN" ] || fail "rm left the file"
        rm "$work/BIG.BIN"
    done
done
# As with cp: what is a folder, or says so at its end, takes the file under its own name, and stays a folder.
mkdir -p "$work/sign/D/NEW"
for target in D:/NEW D:/NEW/ D: 'd:\new'; do
    expect 0 --json put "$work/file" "$target"
    found=$work/sign/D/NEW/file
    [ "$target" = D: ] && found=$work/sign/D/file
    same "$work/file" "$found"
    rm "$found"
done
expect 0 put "$work/file" D:/NEW/A.BIN
expect 0 put "$work/logo.bmp" D:/NEW/A.BIN
same "$work/logo.bmp" "$work/sign/D/NEW/A.BIN"
rm -r "$work/sign/D/NEW"
expect 1 -s udp://127.0.0.1:9 --timeout 50 --retries 1 put "$work/file" D:/NEW
expect 0 get --system CONFIG.SYS "$work/config"
same "$work/sign/C/CONFIG.SYS" "$work/config"
expect 0 put --system --verify "$work/config" CONFIG.SYS

# A read that fails leaves what was there.
echo kept >"$work/kept"
expect 1 get D:/F/BIG.BIN "$work/kept"
says err "File does not exist!"
[ "$(cat "$work/kept")" = kept ] || fail "a failed read touched its target"
[ ! -e "$work/kept.part" ] || fail "a failed read left its part"

# A sign that gives less than it announces, a file that grows while it is read, and a PC that has no room for it.
cp "$work/file" "$work/sign/D/F/FILE.BIN"
relay "$port" short
expect 1 -s "$url" get D:/F/FILE.BIN "$work/kept"
says err "the sign announces 200003 bytes, but 20880 came"
says err "(0x5003)"
expect 1 -s "$url" --json get --system CONFIG.SYS "$work/kept"
member 20483 result
member "the sign announces 512 bytes, but 80 came" reason
[ "$(cat "$work/kept")" = kept ] || fail "a short read touched its target"
expect 0 -s "$url" --chunk 64 get --system CONFIG.SYS "$work/config"
relay "$port" growing
expect 0 -s "$url" get D:/F/FILE.BIN "$work/whole"
same "$work/file" "$work/whole"
(trap '' XFSZ && ulimit -f 100 && "$vxctl" --json get D:/F/FILE.BIN "$work/kept" >"$work/out") && fail "it has room"
member 256 result
member "cannot write $work/kept.part: File too large" reason
expect 1 get D:/F/FILE.BIN /dev/full
says err "cannot write /dev/full: it takes no more"
[ "$(cat "$work/kept")" = kept ] || fail "a read without room touched its target"

# Control, state and packets.
expect 0 blank
expect 0 unblank
expect 0 power off
expect 0 power status
says out "power               off"
expect 0 power on
expect 0 power status --json
member ON on
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port"; do
    expect 0 -s "$url" bright 3
    expect 0 -s "$url" clock --set "2031-07-09 12:34:00" --json
    member 2031-07-09T12:34:00+05:30 set
    expect 0 -s "$url" clock --json
    found=$(sed -n 's/.*"clock":"\([^"]*\)".*/\1/p' "$work/out")
    case $found in 2031-07-09T12:3[4-6]:00+05:30) ;; *) fail "the clock is $found" ;; esac
    member wednesday weekday
    member 3 weekdayCode
    expect 0 -s "$url" beacon "01:02 Ff"
    expect 0 -s "$url" beacon
    says out "01 02 FF 00 00 00 00 00"
    expect 0 -s "$url" ping -n 3 --json
    member 3 answered
    expect 0 -s "$url" ping -n 2
    says out "2 sent, 2 answered, min "
done
expect 0 beacon 00
expect 0 clock --set now
expect 2 zone txt --json
member zone command
member "unknown command txt (did you mean text?)" reason
member '"vxctl help zone" tells more' advice
expect 0 zone text --help --json
member 0 result
expect 0 info --json
member OK text
member info command
member "udp://127.0.0.1:$port" sign
member "$port" communication port
member ON hasDriveF
for command in info status; do
    expect 0 "$command"
    says out "face                128x32 pixels"
    says out "colours             16777216"
    says out "drive F"
    expect 0 "$command" --json
    member 128 face width
    member C drives 0 drive
done
expect 0 raw 4 1 --json
member 55A70600000000000000010004010000 request packet
expect 0 raw 1 16
says out "payload (52 bytes)"
expect 1 raw 0x4D 1 --payload "01 02" --crc --json
member 36868 result
member 01020000 request payload
member 41813 request sync
expect 0 ports --json
expect 0 error 0x5100
says out "Communication Error!"

# Playing, tests and tickers, seen in pictures of the face.
expect 0 unblank # raw 4 1 has turned the face dark
expect 0 show --drive E "first"
cp "$work/sign/E/T/QMSG.Nmg" "$work/a.nmg"
expect 0 show --drive E "second"
cp "$work/sign/E/T/QMSG.Nmg" "$work/b.nmg"
mkdir -p "$work/sign/D/T"
cp "$work/b.nmg" "$work/sign/D/T/AHEAD.NMG"
expect 0 files --stay 9999 --drive E "$work/a.nmg" "$work/b.nmg"
playing() {
    expect 0 playing
    says out "playing             $1"
}
picture() {
    expect 0 screenshot "$work/$1.jpeg"
    [ "$(head -c 3 "$work/$1.jpeg" | od -An -tx1)" = " ff d8 ff" ] || fail "$1 is no JPEG"
}
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port"; do
    export VXSIGN=$url
    expect 0 play replay
    playing 'E:\T\a.nmg'
    expect 0 play pause
    expect 0 play next
    playing 'E:\T\b.nmg'
    expect 0 play previous
    playing 'E:\T\a.nmg'
    expect 0 play continue
    expect 0 play AHEAD.NMG
    playing 'D:\T\AHEAD.NMG'
    expect 0 play e:/t/B.NMG
    expect 0 playing --json
    member 'E:\T\B.NMG' playing
    expect 1 play NONE.NMG
    expect 0 volume 77
    expect 0 volume --json
    member 77 volume

    expect 0 test colour red
    picture red
    expect 0 test colour "#FF0000"
    picture again
    same "$work/red.jpeg" "$work/again.jpeg"
    expect 0 test pattern 5
    picture blue
    cmp -s "$work/red.jpeg" "$work/blue.jpeg" && fail "red and blue look the same"
    expect 0 test stop
    printf 'X%.0s' $(seq 2000) >"$work/news"
    expect 0 ticker "$work/news" --speed 255 --json
    member 2000 bytes
    expect 0 ticker --stop
done
export VXSIGN=udp://127.0.0.1:$port
head -c 20000 "$work/file" >"$work/long"
expect 1 ticker "$work/long"
says err "(0x8307)"
expect 1 screenshot "$work/no/such/folder/face.jpeg"
expect 1 -s udp://127.0.0.1:9 --timeout 50 --retries 1 screenshot "$work/kept"
[ "$(cat "$work/kept")" = kept ] || fail "a failed screenshot touched its target"

# A play list from its first file to the face and back.
export VXLIST=$work/shop/list.xml
expect 0 playlist new
expect 2 playlist new
cp "$work/a.nmg" "$work/first.nmg"
cp "$work/b.nmg" "$work/second.nmg"
expect 0 playlist add "$work/first.nmg"
expect 0 playlist group /winter/
expect 2 playlist add --to /winter/ "$work/logo.bmp"
says err "no picture"
expect 2 playlist add --to /winter/ "$work/drawing.png"
expect 0 playlist add --raw --to /winter/ --times 2 "$work/second.nmg" "$work/logo.bmp"
expect 0 playlist schedule /winter/logo.bmp --days mon-fri --hours 07:00..19:30
expect 2 playlist add "$work/first.nmg"
echo other >"$work/other.nmg"
mkdir -p "$work/else"
cp "$work/other.nmg" "$work/else/first.nmg"
expect 0 playlist rm /first.nmg
expect 2 playlist add --raw "$work/else/first.nmg"
says err "with other contents"
expect 0 playlist add "$work/first.nmg"
expect 0 playlist mv /first.nmg up
expect 0 playlist ls
cat >"$work/wanted" <<END
$VXLIST
|-- first.nmg
\`-- winter/
    |-- second.nmg  2 times
    \`-- logo.bmp  2 times
          Mon-Fri, 07:00 to 19:30
END
same "$work/wanted" "$work/out"
cp "$work/out" "$work/sent"
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port"; do
    expect 0 -s "$url" playlist send
    expect 0 -s "$url" playing
    says out 'first.nmg'
    expect 0 -s "$url" playlist -l "$work/back/list.xml" fetch
    expect 0 playlist -l "$work/back/list.xml" ls
    sed 1d "$work/sent" >"$work/wanted"
    sed 1d "$work/out" >"$work/found"
    same "$work/wanted" "$work/found"
    same "$work/shop/logo.bmp" "$work/back/logo.bmp"
    rm -r "$work/back"
done
# A file that the sign could not take is named, and comes with the next sending; so does one that is cut there, and with
# --verify one that differs where the sign's codes do not look.
onSign=$work/sign/F/F
head -c 5000 "$work/file" >"$work/shop/loose.bin"
expect 0 playlist add --raw "$work/shop/loose.bin"
mkdir -p "$onSign/loose.bin"
expect 1 playlist send --json
member loose.bin missing 0 file
member "1 of 4 files are not whole on the sign; the next sending tries them again" reason
rmdir "$onSign/loose.bin"
expect 0 playlist send
same "$work/shop/loose.bin" "$onSign/loose.bin"
truncate -s 4000 "$onSign/loose.bin"
expect 1 playlist send
says out "loose.bin: has 4000 bytes of 5000"
expect 0 playlist send
for again in "" --all; do
    printf X | dd of="$onSign/loose.bin" bs=1 seek=3000 conv=notrunc 2>"$work/err"
    expect 0 playlist send
    if [ -z "$again" ]; then
        expect 1 playlist send --verify
        says out "loose.bin: has other contents"
    fi
    # shellcheck disable=SC2086 # nothing, or an option
    expect 0 playlist send --verify $again
    same "$work/shop/loose.bin" "$onSign/loose.bin"
done
expect 0 playlist rm /loose.bin
expect 0 put --verify "$work/file" D:/F/
expect 0 show --verify --no-play "not now" --json
member ON verified
expect 0 playlist send --index 7 --list-only
[ -s "$work/sign/C/PLAYLIST/SEQUENT7.SYS" ] || [ -s "$work/sign/C/playlist/sequent7.sys" ] || fail "no numbered list"
expect 0 playlist save other.xml
expect 0 playlist -l "$work/shop/other.xml" ls
expect 0 playlist -l "$work/shop/taken.xml" import --sequence "$work/sign/C/SEQUENT.SYS"
expect 2 playlist -l "$work/shop/none.xml" import "$work/other.nmg"
rm "$work/shop/second.nmg"
expect 0 playlist preview "$work/list.gif" --seconds 4 --json
member 1 files
member "nothing that can be shown" warnings 1 warning
member missing warnings 0 warning
[ "$(head -c 6 "$work/list.gif")" = GIF89a ] || fail "the preview is no GIF"
expect 0 playlist preview "$work/list.png" --size 64x16
expect 2 playlist preview "$work/list.bmp"

# A sign that starts anew is dark for a while, so this comes after the pictures.
expect 0 reset
expect 0 reset --flash
expect 0 reset --cold

# Folders and drives, over both channels.
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port"; do
    expect 0 -s "$url" mkdir D:/NEW/SUB
    cp "$work/logo.bmp" "$work/sign/D/NEW/a name of its own.bmp"
    touch -d "2026-11-21 14:05:58" "$work/sign/D/NEW/a name of its own.bmp"
    expect 0 -s "$url" ls D:/NEW
    printf 'SUB/\na name of its own.bmp\n' >"$work/wanted"
    same "$work/wanted" "$work/out"
    expect 0 -s "$url" ls -l D:/NEW
    says out "       500  2026-11-21 14:05:58  a name of its own.bmp"
    expect 0 -s "$url" ls D:/NEW --json
    member OFF shortNames
    member 500 entries 1 bytes
    member ON entries 0 folder
    member 2026-11-21T14:05:58+05:30 entries 1 changed
    mv "$work/sign/D/NEW/a name of its own.bmp" "$work/sign/D/NEW/A.BMP"
    expect 0 -s "$url" mv D:/NEW/A.BMP B.BMP
    same "$work/logo.bmp" "$work/sign/D/NEW/B.BMP"
    expect 0 -s "$url" mv D:/NEW/B.BMP d:/new/C.BMP
    expect 0 -s "$url" mv D:/NEW/C.BMP D:/NEW/SUB/
    expect 0 -s "$url" mv D:/NEW/SUB/C.BMP E:/D.BMP
    same "$work/logo.bmp" "$work/sign/E/D.BMP"
    expect 0 -s "$url" df
    says out " free of "
    expect 0 -s "$url" df d E: --json
    member D drives 0 drive
    member E drives 1 drive
    expect 0 -s "$url" format E --yes
    [ -z "$(ls "$work/sign/E")" ] || fail "format left files"
done
# A name that is no UTF-8, and so cannot be whole in JSON, is of use to a script all the same.
cp "$work/logo.bmp" "$work/sign/D/F/$(printf 'H\366he \233.bmp')"
expect 0 ls D:/F --json
bytes=$(sed -n 's/.*"nameBytes":"\([0-9A-F]*\)".*/\1/p' "$work/out")
[ "$bytes" = 48F66865209B2E626D70 ] || fail "the bytes of the name are '$bytes'"
expect 0 get "D:/F/$(printf "$(sed 's/../\\x&/g' <<<"$bytes")")" "$work/odd.bmp"
same "$work/logo.bmp" "$work/odd.bmp"
expect 1 ls D:/NONE
expect 1 mkdir Q:/X
expect 1 mv D:/NONE.BMP A.BMP
expect 1 mv D:/NONE.BMP E:/A.BMP
expect 1 df D Q
says err "(0x7D01)"
touch "$work/sign/E/KEPT"
echo no >"$work/answer"
expect 2 format E <"$work/answer"
expect 2 format E </dev/null
[ -e "$work/sign/E/KEPT" ] || fail "format did not wait for its yes"
echo yes >"$work/answer"
expect 0 format E <"$work/answer"
[ ! -e "$work/sign/E/KEPT" ] || fail "format did nothing"

# What the sign or the line refuses, and what the command line does.
expect 1 get D:/F/NONE.BIN "$work/no/such/folder/file"
says err "Failed open PC file!"
: >"$work/empty"
expect 1 put "$work/empty" D:/F/EMPTY.BIN --json
member "PC File is empty!" text
expect 1 -s udp://127.0.0.1:9 --timeout 50 --retries 1 blank
says err "20736 (0x5100): Communication Error!"
says err "  connection refused by 127.0.0.1:9"
expect 1 -s tcp://127.0.0.1:9 --timeout 50 --retries 1 info --json
member 20736 result
member "connection refused by 127.0.0.1:9" reason
expect 1 -s serial:ttyNONE9 --timeout 50 --retries 1 blank --json
member 20736 result
member "/dev/ttyNONE9: no such device" reason
expect 2 -s udp://no-such-sign.invalid blank
says err "vxctl: blank: "
expect 1 -s udp://127.0.0.1:9 --timeout 50 ping -n 2 --json
member 2 sent
member 0 answered
member 20736 result
expect 1 -s serial:/dev/null@9600 blank
says err "/dev/null is no serial line"
for wrong in "" "frobnicate" "show" "show a b" "blank --timeout 49" "blank --chunk 1281" "blank -s udp://1.2.3:4" \
    "blank -s ftp://127.0.0.1" "raw 1 256" "raw 1 1 --payload 0" "error x" "put $work/none D:/X" "put $work D:/X" \
    "put --system $work/config THIRTEENCHARS" "show --font 200 a" "show --drive D a" "show --colour reddish a" \
    "picture $work/none" "files" "bright" "bright 256" "power" "power maybe" "reset --cold --flash" "clock --set" \
    "clock --set noon" "clock --set 2026-02-30T00:00" "beacon 0" "beacon 010203040506070809" "ping -n 0" "ls" "mkdir" "mv D:/A" "format" "format 1" "format DE" "df 1" \
    "login" "login FOURTEEN-CHARS --password x" "login operator --password sevench" "passwd" "logout now" "play" "play THIRTEENCHARS" \
    "play D:/A.NMG" "volume 256" "screenshot" "test" "test colour" "test colour 50" "test colour reddish" "test pattern 1" \
    "test pattern 16" "ticker" "ticker $work/none" "ticker --stop $work/file" "ticker $work/file --colour red" "playlist" "playlist add" "playlist group" "playlist group /a/b/c/" "playlist mv /first.nmg left" \
    "playlist schedule /first.nmg" "playlist schedule /first.nmg --days noday" "playlist send --index 256" "put --window --system $work/config CONFIG.SYS"; do
    # shellcheck disable=SC2086 # each case is a list of words
    expect 2 $wrong
    grep -q '^vxctl: ' "$work/err" || fail "nothing is said about: vxctl $wrong"
    # shellcheck disable=SC2086
    expect 2 --json $wrong
    member 2 result
    [ "$(wc -l <"$work/out")" -eq 1 ] && [ ! -s "$work/err" ] || fail "not one object alone: vxctl --json $wrong"
done
expect 2 raw 1 1 --extended "$(printf '00%.0s' $(seq 256))"
expect 0 --help
for command in show picture files put get rm blank unblank info ports error raw bright power reset clock beacon \
    ping login logout passwd ls mkdir mv format df \
    play playing screenshot volume test ticker playlist status log warnings pixels doctor; do
    expect 0 "$command" --help
    says out "vxctl $command"
done

# Logs, more rows than a page has; condition and doctor, of a sign that is ill and of one that is not.
for level in $(seq 25); do
    expect 0 bright $((level % 8 + 1))
done
expect 0 log system --csv
[ "$(wc -l <"$work/out")" -gt 25 ] || fail "the log has pages missing"
says out "time,type,operation,user,outcome"
expect 0 log system --limit 12 --json
member 4 rows 11 type
[ "$(grep -o '"type"' "$work/out" | wc -l)" -eq 12 ] || fail "--limit gave other than 12 rows"
expect 0 log system --limit 3
! grep -q "no rows" "$work/out" || fail "a log of three rows is said to have none"
expect 0 log play
wait "$check" || fail "the pixel check ended with $?"
cp "$work/pixels" "$work/out"
says out "Red Pixel Bad"
says out "Blue Signal Bad"
[ "$(head -c 4 "$work/bad.png" | tail -c 3)" = PNG ] || fail "the picture is no PNG"
for url in "$illUrl" "${illUrl/udp/tcp}"; do
    export VXSIGN=$url
    expect 0 pixels --last --json
    member 3 pixels 0 x
    member 100 pixels 3 x
    member signal pixels 3 kind
    expect 0 log event --csv
    says out ",tile,came,Tile 2 hot"
    for log in temperature tile radar battery; do
        expect 0 log "$log" --limit 1 --json
        member OK text
        says out '"rows":[{'
    done
    expect 0 status
    says out "overheated (241)"
    expect 0 warnings --json
    member "tile 1,0" warnings 0 where
    expect 0 doctor --json
    member OFF well
    member pixels findings 6 check
    member wrong findings 6 verdict
done
expect 0 warnings --ring "$work/ring"
says out "Tile Temperature Waring, Address=2"
expect 2 warnings --ring "$work/ring"
export VXSIGN=udp://127.0.0.1:$(sed -n 's/^udp 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$work/sign.lines")
expect 0 doctor
says out "never checked"
expect 1 -s udp://127.0.0.1:9 --timeout 50 doctor --json
member "vxctl ping -n 1" findings 0 next
member "connection refused by 127.0.0.1:9" reason
for wrong in "log" "log x" "log play --limit 0" "log play --from old" "log radar --from second" "log play --csv --json" \
    "pixels --size 4x4" "pixels --png x --size 4"; do
    # shellcheck disable=SC2086
    expect 2 $wrong
done
stop "$ill"

# A signal ends a transfer between two packets.
fast=$sign
start "$work/slow" --delay 20
mkdir -p "$work/slow/D"
cp "$work/file" "$work/slow/D/SLOW.BIN"
"$vxctl" -s "udp://127.0.0.1:$port" get D:/SLOW.BIN "$work/kept" >"$work/out" 2>"$work/err" &
transfer=$!
for _ in $(seq 200); do
    [ -s "$work/kept.part" ] && break
    sleep 0.02
done
kill -TERM "$transfer"
wait "$transfer"
status=$?
[ "$status" -eq 143 ] || fail "an interrupted transfer ended with $status"
says err "Operation Abort!"
[ "$(cat "$work/kept")" = kept ] || fail "an interrupted read touched its target"
# What takes its time shows how far it is.
head -c 40000 "$work/file" >"$work/long"
for shown in "files --no-play" "picture --raw"; do
    script -qec "$vxctl -s udp://127.0.0.1:$port $shown $work/long" /dev/null >"$work/out"
    says out "[####"
done
stop "$sign"

# A line that brings nothing back.
start "$work/deaf"
relay "$port" lost
expect 1 -s "$url" --timeout 50 --retries 1 put --window "$work/kept" D:/F/A.BIN
says err "Communication Error!"
says err "no answer from ${url#udp://} within 1 try of 50 ms"
says err "--timeout"
stop "$sign"

# A sign without drive E makes no long listings, and one with users wants a login first.
mkdir -p "$work/closed/D/T"
start "$work/closed" --drives CD --login operator:secret --login other:hidden
export VXSIGN=udp://127.0.0.1:$port
for number in $(seq 45); do
    : >"$work/closed/D/T/LONGNAME$number.TXT"
done
expect 1 blank
says err "log"
expect 1 login nobody --password x
expect 1 login operator --password wrong
echo secret >"$work/answer"
expect 0 login operator <"$work/answer"
expect 0 blank
expect 0 ls D:/T
[ "$(sort -u "$work/out" | wc -l)" -eq 45 ] || fail "not all 45 short names are listed"
says out "LONGNA~9.TXT"
expect 0 ls D:/T --json
member ON shortNames
expect 0 logout
expect 1 unblank
printf 'secret\nnew' >"$work/answer"
expect 0 passwd operator <"$work/answer"
expect 1 passwd operator --password secret --new-password x
expect 0 login operator --password new
expect 0 logout
stop "$sign"
stop "$fast"

conclude
