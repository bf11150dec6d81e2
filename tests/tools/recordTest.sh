#!/usr/bin/env bash
# What --record keeps and explain tells of it, on each line: recordTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"
start "$work/sign" --serial --login operator:sesame --modbus 0
place=127.0.0.1:$port
modbus=$(sed -n 's/^modbus //p' "$work/sign.lines")
serial=serial:$(sed -n 's/^serial //p' "$work/sign.lines")@115200
cd "$work" || exit 1
cp "$here/../../examples/hello.nmg" .
export VXSIGN=

# Each line, with what goes over it unchanged; all of it is told, nothing is out of order, and no secret is there.
for url in "udp://$place" "tcp://$place" "$serial"; do
    kept=${url%%:*}.pcapng
    record() { expect "$1" -s "$url" --record "$kept" "${@:2}"; }
    record 1 put hello.nmg D:/T/HELLO.NMG
    says err "Please login first"
    record 0 login operator --password sesame
    record 1 login operator --password sesamf
    record 1 passwd operator --password sesamg --new-password sesamh
    [ "$kept" = udp.pcapng ] || record 0 extra wifi unlock kitchen-key
    record 0 extra wifi set --key kitchen-key --name ROADSIDE
    record 0 extra wifi show
    record 0 put hello.nmg D:/T/HELLO.NMG --verify
    record 0 get D:/T/HELLO.NMG back.nmg
    same hello.nmg back.nmg
    record 1 get D:/T/NONE.NMG none.nmg
    record 2 bright 300
    record 0 logout
    grep -qE "sesam|kitchen" "$kept" && fail "$url: a secret in the recording"
    expect 0 explain "$kept"
    for text in "log in" "operator" "change password" 'D:\T\HELLO.NMG, number 1' "0x9030 Please login first" "set Wi-Fi" \
        " 0 without answer" " 0 damaged"; do
        says out "$text"
    done
    expect 0 explain "$kept" --json
    cp "$work/out" "${url%%:*}.json"
done
expect 0 -s "$serial" login operator --password sesame --record secret.pcapng --with-secrets
grep -q sesame secret.pcapng || fail "--with-secrets leaves them out"

# Modbus, and firmware in blocks that are no packets.
for url in "udp://$modbus" "tcp://$modbus"; do
    expect 0 -s "$url" modbus VSLS get 5 1 3 --record modbus.pcapng
done
expect 0 explain modbus.pcapng
says out "Modbus"
says out " 0 damaged"

start "$work/loader" --serial --bootloader
expect 0 -s "serial:$(sed -n 's/^serial //p' "$work/loader.lines")" upgrade hello.nmg --record upgrade.pcapng
expect 0 explain upgrade.pcapng
says out "XMODEM block 1"
says out " 0 damaged"

# Who does not answer is told as without a recording, as fast.
for url in "tcp://127.0.0.1:1" "udp://127.0.0.1:1" "serial:/dev/null" "serial:/dev/ttyNONE9"; do
    expect 1 -s "$url" blank --timeout 50 --retries 2
    cp "$work/err" plain
    expect 1 -s "$url" blank --timeout 50 --retries 2 --record none.pcapng
    same plain "$work/err"
done
expect 0 explain none.pcapng
says out "NO ANSWER"
says out "once more"

# Many signs in one file; one recording at a time in a file; what is no recording stays as it is.
start "$work/other"
expect 3 -s "udp://127.0.0.1:$port" -s "tcp://127.0.0.1:$port" -s "udp://$place" --record many.pcapng ping -n 3
expect 0 explain many.pcapng
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port" "udp://$place"; do
    says out "$url"
done
echo words >words
head -c 300 many.pcapng >cut.pcapng
for file in words cut.pcapng /dev/null "$work" no/folder; do
    [ ! -f "$file" ] || cp "$file" former
    expect 2 -s "udp://$place" ping -n 1 --record "$file"
    [ ! -f "$file" ] || same "$file" former
done
expect 2 ports --record ports.pcapng
says err "nothing to record"
expect 2 -s "udp://$place" ping -n 1 --with-secrets

# Killed and interrupted.
for signal in KILL INT; do
    "$vxctl" -s "tcp://127.0.0.1:$port" ping -n 1000 --record killed.pcapng >/dev/null 2>&1 &
    for _ in $(seq 100); do [ "$(stat -c %s killed.pcapng 2>/dev/null || echo 0)" -gt 2000 ] && break || sleep 0.05; done
    kill -$signal $!
    wait $! 2>/dev/null
    expect 0 explain killed.pcapng
    says out "connect test"
    rm killed.pcapng
done

# What is none, and what is cut.
expect 1 explain words --json
says out "it is no capture"
expect 1 explain cut.pcapng
says err "the file is cut behind packet"
expect 2 explain none-such
conclude
