#!/usr/bin/env bash
# Messages that are made and seen before they are sent, compared with the face of a sign: previewTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign"
start "$work/sign" --size 64x32 --png "$work/face.png"
export VXSIGN=udp://127.0.0.1:$port
cd "$work" || exit 1

# isShown WHAT...: the preview is a picture of the face, at some moment of the next seconds.
isShown() {
    expect 0 preview -o preview.png "$@"
    for _ in $(seq 100); do
        cmp -s preview.png face.png && return
        sleep 0.1
    done
    fail "the face shows something else: $*"
}

# Texts, with the size that the sign tells.
for row in "ROAD_WORKS" "--font 0 42" "--colour 3 --markup {font_2}A{line}{font_1}{red}b"; do
    read -ra text <<<"$row"
    text=("${text[@]//_/ }")
    expect 0 show "${text[@]}"
    isShown "${text[@]}"
done
expect 0 show --preview --json "ROAD WORKS ahead 500 m"
member 64 width
member sign sizeFrom
member OFF fits
member 2 pages
member 1 pagesMeant
member OFF wordBroken
member OFF cut
isShown "ROAD WORKS ahead 500 m"
isShown "ROAD WORKS ahead 500 m" --page 2

# What does not fit is told ahead, or refused with nothing sent.
expect 0 show Donaudampfschiff
says out "the text does not fit a face of 64x32: it becomes 2 pages, and a word is wider than the face and is broken"
says out "page 1: Donaud / ampfsc"
sum=$(cksum sign/F/T/QMSG.Nmg)
expect 2 show --must-fit "ROAD WORKS ahead 500 m"
says err "it becomes 2 pages"
[ "$(cksum sign/F/T/QMSG.Nmg)" = "$sum" ] || fail "a refused text was sent"
expect 0 show --must-fit "ROAD WORKS"

# A message file is what show sends but for its first bytes; its pages take turns.
text='{red}Lane 2{page}closed{page}{font 0}M4'
expect 0 show --markup "$text" --stay 1
expect 0 message --markup "$text" --stay 1 -o lane.nmg
cmp -s <(tail -c +8 lane.nmg) <(tail -c +8 sign/F/T/QMSG.Nmg) || fail "the message file is another message"
expect 0 files lane.nmg
for page in 1 2 3; do
    isShown lane.nmg --page "$page"
done
expect 2 preview lane.nmg --page 4
expect 2 message "ROAD WORKS ahead 500 m" --size 64x32 --must-fit -o none.nmg
[ ! -e none.nmg ] || fail "a refused message was made"
expect 0 message "" --allow-empty -o dark.nmg
isShown lane.nmg

# A sign with another encoding than UTF-8: the same face, whether the command line or the book names it.
start "$work/other" --size 64x32 --encoding gbk --png "$work/face.png" --write-book signs.toml
export VXBOOK=signs.toml
expect 0 -s sign-0001 show --markup "{red}港 {{4"
(
    unset VXBOOK
    expect 0 preview --size 64x32 --markup "{red}港 {{4" -o utf8.png
)
sum=$(cksum other/F/T/QMSG.Nmg)
for _ in $(seq 100); do
    cmp -s utf8.png face.png && break
    sleep 0.1
done
same utf8.png face.png
export VXSIGN=udp://127.0.0.1:$port
expect 0 show --encoding gbk --markup "{red}港 {{4"
[ "$(cksum other/F/T/QMSG.Nmg)" = "$sum" ] || fail "the book and the command line differ"
expect 0 message --encoding gbk "港 Zoll" -o customs.nmg
expect 0 preview customs.nmg --encoding gbk --json
member "港 Zoll" pageTexts 0
expect 2 -s sign-0001 show "Straße"
says err "gbk has no 'ß' (U+00DF), at character 5"
expect 0 show --encoding gbk 港
expect 0 screenshot shown.jpeg
expect 0 zone divide 1 --grid 1x1
expect 0 zone text 1 1 --encoding gbk 港
expect 0 zone on
expect 0 screenshot zone.jpeg
same shown.jpeg zone.jpeg
expect 0 zone off
echo 港 >news.txt
expect 0 ticker --encoding gbk news.txt --json
member 3 bytes
expect 2 show --encoding kgb x
says err "'kgb' is no encoding that this PC knows"
stop "$sign"
start "$work/sign" --size 64x32 --png "$work/face.png"
export VXSIGN=udp://127.0.0.1:$port

# Pictures, and the frames of an animation.
expect 0 preview --size 128x16 --colour amber "HELLO 42" -o hello.png
expect 0 picture --fit cover hello.png
isShown --fit cover hello.png
expect 0 preview --markup "Fog {flash}SLOW{/flash}" -o fog.gif --json
member 6 pages
expect 0 preview --colour amber a -o amber.gif
LC_ALL=C grep -qaP '\xff\xb0\x00' amber.gif || fail "the animation has another amber"
expect 0 picture fog.gif
isShown fog.gif
isShown fog.gif --page 2

# In the terminal: the blocks of vxsim, or plain ones. Without a sign the face is that of vxsim.
mkdir pc
"$vxsim" --port 0 --face ansi --dir "$work/pc" >"$work/pc.lines" &
signs+=("$!")
awaitPort "$work/pc.lines"
expect 0 -s "udp://127.0.0.1:$port" show --colour cyan "Exit 7"
unset VXSIGN
script -qec "stty cols 200; $vxctl preview --colour cyan 'Exit 7'" /dev/null </dev/null | tr -d '\r' >seen
sed -n '/^a face of 128x32, as vxsim has/,$p' seen | tail -n +3 >drawn
[ "$(wc -l <drawn)" -eq 16 ] || fail "the terminal has not all rows"
isDrawn() {
    tail -n 16 pc.lines | sed 's/^\x1b\[[0-9]*A//' | cmp -s - drawn
}
for _ in $(seq 100); do
    isDrawn && break
    sleep 0.1
done
isDrawn || fail "vxsim draws other blocks"
expect 0 preview --colour cyan "Exit 7"
grep -q $'\x1b' out && fail "colours where there is no terminal"
says out "██"
expect 2 preview nothing.png
says err "vxctl: preview: there is no file nothing.png"
expect 0 preview nothing.png --text
echo words >words.txt
expect 2 preview words.txt
says err "words.txt is no picture"

conclude
