#!/usr/bin/env bash
# Zones and programs, seen in pictures of the face: zoneTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign"
start "$work/sign" --size 64x32 --png "$work/face.png"
export VXSIGN=udp://127.0.0.1:$port

# dot NAME BYTES: a BMP of one pixel, blue, green and red.
dot() {
    printf "BM\\x3a\\0\\0\\0\\0\\0\\0\\0\\x36\\0\\0\\0\\x28\\0\\0\\0\\1\\0\\0\\0\\1\\0\\0\\0\\1\\0\\x18\\0" >"$work/$1"
    head -c 24 /dev/zero >>"$work/$1"
    printf "$2\\0" >>"$work/$1"
}
dot red.bmp '\0\0\377'
dot blue.bmp '\377\0\0'

# face NAME: what the face shows now. A JPEG of the same face is the same file.
face() {
    expect 0 screenshot "$work/$1.jpeg"
}
differ() {
    ! cmp -s "$work/$1.jpeg" "$work/$2.jpeg" || fail "the faces $1 and $2 are the same"
}

# Zones: nothing is seen of them until they are on.
face dark
expect 0 zone divide 1 --grid 2x1
expect 0 zone divide 1 --zone 2 0,0,32x16 0,16,32x16
expect 0 zone style 1 3 --colour "#00FF00" --font 0
expect 0 zone text 1 3 "EX 7"
expect 0 zone file 1 1 D:/P/RED.BMP --put "$work/red.bmp"
face before
same "$work/dark.jpeg" "$work/before.jpeg"
expect 0 zone on
face zones
differ dark zones
expect 0 zone list --json
member ON enabled
member 1 pageCount
member 32 zones 2 left
member 16 zones 2 top
member text zones 2 holds
member file zones 0 holds
expect 0 zone empty 1 3
face lessZones
differ zones lessZones
expect 0 zone text 1 3 "EX 7"
face again
same "$work/zones.jpeg" "$work/again.jpeg"
expect 0 zone divide 2 --step 16 0,0,1x1 1,1,3x1 --stay 7
expect 0 zone list 2 --json
member 48 zones 1 width
member 7 zones 1 staySeconds
member nothing zones 1 holds
expect 0 zone clear 2
expect 1 zone list 2
says err "The Page has not been configured!"
expect 1 zone pages 13
says err "The PageCount must be less then 13 !"
expect 1 zone text 1 4 "nowhere"
says err "The Zone has not been configured!"
expect 2 zone divide 1
expect 2 zone divide 1 0,0,64
expect 2 zone divide 1 --grid 99x1

# A sign that is started again still has them.
stop "$sign"
start "$work/sign" --size 64x32
export VXSIGN=udp://127.0.0.1:$port
face restarted
same "$work/zones.jpeg" "$work/restarted.jpeg"
expect 0 zone off
face off
same "$work/dark.jpeg" "$work/off.jpeg"

# Programs: the same one over the face and in a window.
expect 0 player project SHOP --programs 2 --version 7 --start OPEN
expect 0 player put SHOP OPEN --stay 9999 "$work/red.bmp"
expect 0 player progress --json
member 50 percent
expect 0 player put SHOP CLOSED --stay 9999 "$work/red.bmp" "$work/blue.bmp" D:/P/RED.BMP
expect 0 player progress
says out complete
expect 0 player play SHOP
face program
expect 0 player playing --json
member OPEN programs 0 program
member face programs 0 place
expect 0 player stop
face stopped
same "$work/dark.jpeg" "$work/stopped.jpeg"
expect 0 player play SHOP OPEN --window 2
face window
differ program window
differ dark window
expect 0 player windows over 0,0,64x32 0,0,64x32
face wide
same "$work/program.jpeg" "$work/wide.jpeg"
expect 0 player windows hidden
face hidden
same "$work/dark.jpeg" "$work/hidden.jpeg"
expect 0 player emergency SHOP CLOSED --from C:/PLAYER/SHOP/blue.bmp
face emergency
differ program emergency
expect 0 player emergency --stop
expect 0 player switch CLOSED --then next
expect 0 player list SHOP --json
member 3 programs 0 files
member ON programs 1 plays
expect 0 player info SHOP OPEN --json
member 7 version
member 9999 files 0 staySeconds
expect 0 player delete shop closed --json
member 1 files # the red one is needed by the other program
expect 0 player list
says out "SHOP"
expect 0 player delete SHOP
expect 1 player info SHOP
expect 1 player play SHOP OPEN
says err "File does not exist!"
[ -z "$(find "$work/sign/C/PLAYER" -type f)" ] || fail "files are left of the project"
stop "$sign"
[ "$(head -c 4 "$work/face.png" | tail -c 3)" = PNG ] || fail "there is no picture of the face"
conclude
