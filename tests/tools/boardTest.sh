#!/usr/bin/env bash
# Drives the video processors and extra boards of vxsim with vxctl: boardTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign"
start "$work/sign"
export VXSIGN=udp://127.0.0.1:$port
picture() {
    expect 0 screenshot "$work/$1.jpeg"
}

# What the VPU is set to is told, and seen.
picture dark
expect 0 video vpu channel 2
picture bars
cmp -s "$work/dark.jpeg" "$work/bars.jpeg" && fail "the channel is not seen"
expect 0 video vpu bright 255 128 0 255
picture tinted
cmp -s "$work/bars.jpeg" "$work/tinted.jpeg" && fail "the brightness is not seen"
expect 0 video vpu bright
says out "255 128 0 255"
expect 0 video vpu signal --json
member 2 signal channel
member 128 signal width
expect 0 video vpu pixel-mode 4
expect 0 video vpu info --json
says out '"bytes":"565856505531'
expect 0 video vpu channel 0
expect 0 video mpu channel 3
expect 0 video mpu window 0 8 4 64 24 --json
member 100 progressPercent
picture window
cmp -s "$work/dark.jpeg" "$work/window.jpeg" && fail "the window is not seen"
expect 0 video mpu progress 1
says out "100 %"
expect 1 video mpu progress 9
says err "Task ID"
expect 0 video mpu edid 1 "01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F"
expect 0 video vpu ldu 1 2 3

# Boards.
expect 0 extra set 3 0=on 15=on
expect 0 extra set 3 15=off
expect 0 extra io 3 --json
member 1 lines 0 output
member 1 lines 8 input
member 0 lines 15 output
expect 0 extra set 3 --collect "01 02 03 04 05 06 07 08"
expect 0 extra read 3 --json
says out '01020304050607080000'
expect 1 extra io 16
says err "Address error!"
expect 0 extra wifi set --name ROAD --mode station --key hidden
expect 0 extra wifi show --json
member ROAD name
member station mode
expect 1 extra wifi set --key ""
expect 0 extra wifi unlock wrong --json
member 0 answer
echo hidden >"$work/key"
expect 0 extra wifi unlock --json <"$work/key"
member 1 answer
expect 0 extra wifi set --key ""
expect 0 extra wifi reset

for wrong in "video" "video vpu" "video vpu channel" "video vpu channel 256" "video vpu pixel-mode 0" "video vpu bright 1 2 3" \
    "video mpu window 0 0 0 0" "video mpu edid 1 00" "extra read" "extra read 256" "extra set 3" "extra set 3 16=on" \
    "extra set 3 1=maybe" "extra set 3 --outputs 01" "extra set 3 1=on --collect 00" "extra wifi set" "extra wifi set --mode on" \
    "extra wifi set --name a-name-longer-than-twenty"; do
    # shellcheck disable=SC2086
    expect 2 $wrong
done
stop "$sign"

conclude
