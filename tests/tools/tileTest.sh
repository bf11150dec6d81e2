#!/usr/bin/env bash
# Converts calibrations of tiles with vxctl, and gives it what it must refuse: tileTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

# A tile of 4x2 made of modules of 2x2, each coefficient a number of its own.
head=x,y,rr,rg,rb,gr,gg,gb,br,bg,bb
{
    echo $head
    for y in 1 0; do # in any order
        for x in 0 1 2 3; do
            echo "$x,$y$(for c in 0 1 2 3 4 5 6 7 8; do printf ',%d' $(((y * 4 + x) * 1000 + c)); done)"
        done
    done
} >"$work/any.csv"
expect 0 tile convert "$work/any.csv" "$work/a.csv"
[ "$(sed -n 3p "$work/a.csv")" = "1,0,1000,1001,1002,1003,1004,1005,1006,1007,1008" ] || fail "the CSV is not in order"

# Every form gives back what went into it.
shape="--size 4x2 --module 2x2"
for way in "json||" "bri||--size 4x2" "bri|--to blocks --module 2x2|$shape" "dat|--module 2x2 --model 16|$shape --model 16" \
    "dat|--module 2x2 --model 0xC0|$shape --model 0xC0" "dat|--module 1x2 --model 16|--size 4x2 --module 1x2 --model 16" \
    "dat|--module 1x1 --model 16|--size 4x2 --module 1x1 --model 16" "dat|--module 2x1 --kind 74 --model 1|--size 4x2 --module 2x1 --kind 74 --model 1"; do
    IFS='|' read -r extension out in <<<"$way"
    # shellcheck disable=SC2086
    expect 0 tile convert "$work/a.csv" "$work/b.$extension" $out
    # shellcheck disable=SC2086
    expect 0 tile convert "$work/b.$extension" "$work/back.csv" $in
    same "$work/a.csv" "$work/back.csv"
done
# The first record of a file in blocks: its module's, behind both headers. Modules go first from left to right.
expect 0 tile convert "$work/a.csv" "$work/blocks.bri" --to blocks --module 2x2
[ "$(head -c 8 "$work/blocks.bri" | od -An -tx1)" = " aa 55 20 00 00 00 05 00" ] || fail "the header is another"
[ "$(od -An -tu2 -j232 -N2 "$work/blocks.bri" | tr -d ' ')" = 2000 ] || fail "the second module is elsewhere"
[ "$(wc -c <"$work/blocks.bri")" -eq $((32 + 2 * 64 + 8 * 18)) ] || fail "the file has another size"

# Levels, and what is told of them.
expect 0 tile convert "$work/a.csv" "$work/half.json" --level 50%,0,200 --json
member 3500 red most
member 0 green most
member 14016 blue most
member 65535 full
says out '"result":0'
expect 0 tile convert "$work/half.json"
says out "0 to 3500, mean 1750 (2 %)"
if "$vxctl" tile convert --help | grep -q -- --png; then
    expect 0 tile convert "$work/a.csv" --full 7000 --png "$work/a.png"
    [ "$(head -c 4 "$work/a.png" | tail -c 3)" = PNG ] || fail "the picture is no PNG"
fi

# Files that are none, and command lines that ask for what cannot be. None touches what was there.
echo kept >"$work/kept.csv"
head -n 8 "$work/a.csv" >"$work/short.csv"
{ cat "$work/a.csv" && sed -n 2p "$work/a.csv"; } >"$work/twice.csv"
sed 's/,7008/,65536/' "$work/a.csv" >"$work/large.csv"
echo '{"width":2,"height":1,"pixels":[[1,2,3,4,5,6,7,8,9]]}' >"$work/few.json"
echo '{"width":99999,"height":99999,"pixels":[]}' >"$work/huge.json"
head -c 200 "$work/blocks.bri" >"$work/cut.bri"
head -c 60 "$work/b.dat" >"$work/cut.dat"
for wrong in "short.csv" "twice.csv" "large.csv" "few.json" "huge.json" "cut.bri $shape" "cut.dat $shape" "blocks.bri" \
    "blocks.bri --size 4x2" "blocks.bri --size 2x2 --module 2x2" "blocks.bri --size 4x2 --module 3x2" "a.csv --from json" \
    "a.csv --from x" "a.csv --level 50%,50%" "a.csv --level 1001" "a.csv --level x"; do
    read -r file options <<<"$wrong"
    # shellcheck disable=SC2086
    expect 2 tile convert "$work/$file" "$work/kept.csv" $options
    [ -s "$work/err" ] || fail "nothing is said about: $wrong"
done
[ "$(cat "$work/kept.csv")" = kept ] || fail "a failed conversion touched its target"
expect 2 tile convert "$work/a.csv" "$work/kept.dat"
[ ! -e "$work/kept.dat.part" ] || fail "a failed conversion left its part"
for wrong in "tile" "tile status" "tile status 65536" "tile status 1 --direct" "tile status 1 --port 255" "tile test 1" "tile test 1 256" \
    "tile cmd 1" "tile cmd 1 2 --data 0" "tile read 1" "tile read 1 x --staged" "tile write 1 $work/none" "tile calibrate 1" \
    "tile calibrate 1 --level much" "tile calibrate 1 --plain --params 00"; do
    # shellcheck disable=SC2086
    expect 2 $wrong
done
expect 1 -s udp://127.0.0.1:9 --timeout 50 --retries 1 tile test 3 1 --port 1 --direct --json
member 20736 result
expect 1 -s udp://127.0.0.1:9 --timeout 50 --retries 1 tile read 3 "$work/kept.csv" --port 1 --direct --json
member 20736 result
[ "$(cat "$work/kept.csv")" = kept ] || fail "a failed read touched its target"

conclude
