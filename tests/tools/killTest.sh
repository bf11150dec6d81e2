#!/usr/bin/env bash
# Programs that are killed in the middle of whatever they send: killTest.sh VXCTL VXSIM CMAKE
#
# A killed sign is told of and starts again, a killed vxctl leaves the sign to the next one; every file is the old one or
# the new one, and the same command then does what it should. $KILL_SEED chooses the moments.
. "$(dirname "$0")/endToEnd.sh"

RANDOM=${KILL_SEED:=$(date +%N | sed 's/^0*//')}
cd "$work" || exit 1

# Old and new contents of everything that is sent, of a few dozen packets.
for content in old new; do
    mkdir $content.from $content.list
    head -c 12000 /dev/urandom >$content.from/A.BIN
    printf 'BM\x36\x30\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x40\0\0\0\x40\0\0\0\1\0\x18\0' >$content.from/A.BMP
    (head -c 24 /dev/zero && head -c 12288 /dev/urandom) >>$content.from/A.BMP
    expect 0 playlist -l $content.list/list.xml new
    expect 0 playlist -l $content.list/list.xml add --raw $content.from/A.BMP $content.from/A.BIN
done

# A name, and what vxctl is asked for.
rows="
window   put --window CONTENT.from/A.BIN D:/F/A.BIN
put      put CONTENT.from/A.BIN D:/F/A.BIN
system   put --system CONTENT.from/A.BIN FONT.SYS
playlist playlist -l CONTENT.list/list.xml send --all
picture  picture --raw CONTENT.from/A.BMP
files    files CONTENT.from/A.BMP CONTENT.from/A.BIN
zone     zone file 1 1 D:/P/A.BMP --put CONTENT.from/A.BMP
player   player put SHOP MORNING CONTENT.from/A.BMP CONTENT.from/A.BIN
tile     tile write 1 CONTENT.from/A.BIN
get      get D:/F/A.BIN kept
upgrade  upgrade CONTENT.from/A.BIN
"

# begin FOLDER: a sign that tells of each request in $work/told; $url is where it is.
begin() {
    local options="--verbose --delay 4"
    [ "$name" != upgrade ] || options="--verbose --bootloader"
    # shellcheck disable=SC2086
    start "$1" $options 2>>"$work/told"
    url=udp://127.0.0.1:$port
    [ "$name" != upgrade ] || url=serial:$(sed -n 's/^serial //p' "$1.lines")@4000000
}

# prepare FOLDER CONTENT: what the command finds there.
prepare() {
    [ "$name" != zone ] || expect 0 -s "$url" zone divide 1 --grid 1x1
    [ "$name" != get ] || { mkdir -p "$1/D/F" && cp "$2.from/A.BIN" "$1/D/F/"; }
}

ask() { echo "-s $url --chunk 256 --timeout 400 --retries 2 ${line//CONTENT/$1}"; }

# What a sign has been sent, of all that lies in its folder, less the list of what need not be sent again.
sent() { (cd "$1" && find C D F sign/firmware.bin -type f ! -iname '*.log' ! -name CONFIG.SYS ! -name FILELSTI.LST 2>/dev/null); }

# whole FOLDER CONTENT...: each file there is one of these contents.
whole() {
    local folder=$1 file content
    shift
    for file in $(sent "$folder"); do
        for content in "$@"; do
            ! cmp -s "$folder/$file" "$content/$file" || continue 2
        done
        fail "$file is not whole"
    done
    for file in $(sent "$1"); do [ -e "$folder/$file" ] || fail "$file is gone"; done
    [ ! -e kept ] || cmp -s kept old.from/A.BIN || cmp -s kept new.from/A.BIN || fail "what was fetched is not whole"
}

# again: the command, as often as the sign is still in use by the killed one; a boot loader waits for it for half a minute.
again() {
    local status
    for _ in $(seq 60); do
        status=0
        # shellcheck disable=SC2046
        "$vxctl" $(ask new) >"$work/out" 2>"$work/err" || status=$?
        [ $status -ne 0 ] || return 0
        grep -qE "used by others|are not whole on the sign|does not ask for blocks" "$work/err" || break
        sleep 0.2
    done
    fail "the same command ends with $status behind the kill"
}

# killed VICTIM FOLDER: ends it with a number of requests that lies anywhere in the transfer.
killed() {
    local folder=$1.sign moment process status=0 leftOver
    rm -rf "$folder"
    cp -r old "$folder"
    begin "$folder"
    prepare "$folder" new
    cp old.from/A.BIN kept
    : >"$work/told"
    moment=$((RANDOM % packets))
    # shellcheck disable=SC2046
    "$vxctl" $(ask new) >"$work/out" 2>"$work/err" &
    process=$!
    until [ "$(wc -l <"$work/told")" -gt $moment ] || ! kill -0 $process 2>/dev/null; do sleep 0.005; done
    if [ "$1" = vxctl ]; then kill -9 $process; else kill -9 "$sign"; fi 2>/dev/null
    wait $process 2>/dev/null || status=$?
    [ "$1" = vxctl ] || wait "$sign" 2>/dev/null
    whole "$folder" old new
    if [ "$1" = vxsim ]; then
        [ $status -eq 0 ] || grep -qE "no answer from|connection refused|does not answer|no such device" "$work/err" ||
            fail "vxctl does not say that the sign has gone"
        [ $status -le 1 ] || fail "vxctl ended with $status"
        signs=()
        begin "$folder"
        for _ in $(seq 40); do # it may be writing something of its own at the moment
            leftOver=$(find "$folder/sign" -name '*.tmp')
            [ -n "$leftOver" ] || break
            sleep 0.05
        done
        [ -z "$leftOver" ] || fail "the sign keeps what had not arrived: $leftOver"
    fi
    [ "$name" = upgrade ] || expect 0 -s "$url" log system --limit 1
    again
    whole "$folder" new
    [ "$name" != get ] || same kept new.from/A.BIN
    [ ! -e kept.part ] || fail "a part of a file is left"
    stop "$sign"
    [ $failures -eq 0 ]
}

# A row, in a shell and a folder of its own.
row() {
    name=$2 line=$3
    cp -r "$work" "$work.$name"
    work=$work.$name
    cd "$work" && mkdir first || exit 1
    trap finish EXIT
    begin first
    for content in old new; do
        prepare first $content
        : >"$work/told"
        # shellcheck disable=SC2046
        expect 0 $(ask $content)
        packets=$(wc -l <"$work/told")
        cp -r first $content
    done
    [ "$packets" -gt 10 ] || packets=20
    stop "$sign"
    while
        for victim in vxctl vxsim; do killed $victim && echo killed >>"$1.kills"; done
        [ $failures -eq 0 ] && [ $SECONDS -lt "${KILL_SECONDS:-0}" ]
    do :; done
    [ $failures -eq 0 ] || echo "in $name, with KILL_SEED=$KILL_SEED" >&2
    exit $failures
}

pids=()
while read -r name line; do
    [ -n "$name" ] || continue
    (row "$work/all" "$name" "$line") &
    pids+=($!)
    RANDOM=$((KILL_SEED + ${#pids[@]})) # a row of moments for each
done <<<"$rows"
for pid in "${pids[@]}"; do wait "$pid" || failures=$((failures + 1)); done
conclude
echo "$(wc -l <"$work/all.kills") kills"
