#!/usr/bin/env bash
# Drives the wall of tiles of vxsim with vxctl: tileWallTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign"
start "$work/sign" --size 48x20
export VXSIGN=udp://127.0.0.1:$port
picture() {
    expect 0 screenshot "$work/$1.jpeg"
}

# Tile 6 of a face of 48x20 is tile 3 of port 2, 16x4 pixels large.
for way in "6" "3 --port 2" "3 --port 2 --direct"; do
    # shellcheck disable=SC2086
    expect 0 tile status $way --json
    member 16 width
    member 2 moduleHeight
    member OK text
    # shellcheck disable=SC2086
    expect 0 tile test $way 9
    # shellcheck disable=SC2086
    expect 0 tile cmd $way 10
done
expect 0 tile status 6
says out "firmware            4354"
says out "model               0x10"
expect 0 tile test all 9

# However a calibration goes, the face gets dimmer and the tile holds it.
expect 0 test colour "#FFFFFF"
picture white
for way in "6" "3 --port 2" "3 --port 2 --direct"; do
    # shellcheck disable=SC2086
    expect 0 tile calibrate $way --plain --level 50% --json
    member 32768 red mean
    member 0 result
    picture dim
    cmp -s "$work/white.jpeg" "$work/dim.jpeg" && fail "the calibration is not seen: $way"
    # shellcheck disable=SC2086
    expect 0 tile read $way "$work/tile.bri"
    form=bri
    [ "$way" = 6 ] && form=tile
    expect 0 tile convert "$work/tile.bri" --from $form --size 16x4 --module 8x2 --model 16 --json
    member 32768 green least
    if [ "$way" = "3 --port 2" ]; then
        expect 0 tile calibrate 3 --port 2 --level 200%,100%,100% --json
        member 65535 red mean
        member 32768 blue mean
    fi
    expect 0 tile cmd 6 10
    picture again
    same "$work/white.jpeg" "$work/again.jpeg"
done
ls "$work"/tile.brit "c:" >/dev/null 2>&1 && fail "direct access has left files"
expect 0 tile calibrate 3 --port 2 --plain
expect 0 tile read 3 "$work/own.bri" --port 2
expect 0 tile write 3 "$work/own.bri" --port 2
expect 0 tile read 3 "$work/staged.bri" --port 2 --staged
same "$work/own.bri" "$work/staged.bri"
expect 0 tile write all "$work/own.bri" --port 1 --type 9

# What the tiles refuse.
expect 1 tile status 99
says err "3089"
expect 1 tile read 99 "$work/none" --port 2 --json
member 3078 result
member 3089 detail
[ ! -e "$work/none" ] || fail "a failed read left a file"
"$vxsim" tile --dir "$work/sign" --lock 6
for _ in $(seq 100); do
    "$vxctl" tile status 3 --port 2 --json | grep -q '"locked":true' && break
    sleep 0.05
done
expect 1 tile calibrate 6 --plain --level 10%
expect 1 tile calibrate 3 --port 2 --plain --json
member ON locked
stop "$sign"

conclude
