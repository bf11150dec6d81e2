#!/usr/bin/env bash
# What the dissector makes of a kept capture, to the letter, and that it understands all of a fresh one:
# dissectorTest.sh FOLDER [--update], the folder of the programs. With --update it keeps what the dissector says now, and
# with --capture the fresh capture as well.
set -euo pipefail
programs=$(realpath "$1")
update=${2:-}
here=$(cd "$(dirname "$0")" && pwd)
root=$here/../..
work=$(mktemp -d)
pids=()
trap 'kill "${pids[@]}" 2>/dev/null; rm -rf "$work"' EXIT

# dissect FILE OPTION...: tshark with the dissector, without what root is told.
dissect() {
    tshark -X "lua_script:$root/tools/wireshark/vxsign.lua" -r "$1" "${@:2}" 2>"$work/err" || { cat "$work/err" >&2 && return 1; }
}

# told FILE PORT MODBUS_PORT: what the packets of a capture are, a line each.
told() {
    local fields=() field
    for field in vxsign.id vxsign.request_in vxsign.code vxsign.path vxsign.file vxsign.drive vxsign.fileSize vxsign.chunkSize \
        vxsign.packets vxsign.number vxsign.sql vxsign.rows vxsign.width vxsign.front vxsign.zone _ws.expert.message; do
        fields+=(-e "$field")
    done
    dissect "$1" -d "udp.port==$2,vxsign" -d "tcp.port==$2,vxsign" -d "udp.port==$3,mbrtu" -d "tcp.port==$3,mbrtu" \
        -Y "vxsign or mbrtu" -T fields -E separator=/s -E occurrence=a -e frame.number -e _ws.col.Protocol -e _ws.col.Info "${fields[@]}"
}

# A fresh capture, which not everyone may make.
fresh() {
    local port modbus
    cp "$root"/examples/{logo.bmp,hello.nmg} "$work"
    "$programs/vxsim" --port 0 --modbus 0 --dir "$work/sign" >"$work/places" 2>/dev/null &
    pids+=($!)
    for _ in $(seq 100); do grep -q '^modbus' "$work/places" && break || sleep 0.05; done
    port=$(sed -n 's/^udp .*://p' "$work/places") modbus=$(sed -n 's/^modbus .*://p' "$work/places")
    dumpcap -q -i lo -f "port $port or port $modbus" -w "$work/fresh.pcapng" 2>"$work/dumpcap" &
    pids+=($!)
    for _ in $(seq 100); do [ -s "$work/fresh.pcapng" ] && break || sleep 0.05; done
    [ -s "$work/fresh.pcapng" ] || { echo "no fresh capture: $(tail -n 1 "$work/dumpcap")" && return 1; }
    "$here/traffic.py" "$programs/vxctl" "$port" "$modbus" "$work"
    sleep 1 # dumpcap writes what it has once a second
    kill "${pids[1]}" && wait "${pids[1]}" || true
    echo "$port $modbus" >"$work/ports"
}

if fresh; then
    read -r port modbus <"$work/ports"
    told "$work/fresh.pcapng" "$port" "$modbus" >"$work/fresh.txt"
    if dissect "$work/fresh.pcapng" -d "udp.port==$port,vxsign" -d "tcp.port==$port,vxsign" -Y '_ws.malformed or _ws.lua.error' | grep .; then
        echo "the dissector does not understand these" >&2
        exit 1
    fi
    [ "$(wc -l <"$work/fresh.txt")" -gt 280 ] || { echo "only $(wc -l <"$work/fresh.txt") packets" >&2 && exit 1; }
    if [ "$update" = --capture ]; then
        cp "$work/fresh.pcapng" "$here/signs.pcapng"
        cp "$work/ports" "$here/signs.ports"
    fi
fi
# What vxctl records, of which tshark follows each stream and finds each checksum right.
"$programs/vxsim" --port 0 --face none --serial --dir "$work/recorded" >"$work/lines" 2>/dev/null &
pids+=($!)
for _ in $(seq 100); do grep -q '^serial' "$work/lines" && break || sleep 0.05; done
port=$(sed -n 's/^udp .*://p' "$work/lines")
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port" "serial:$(sed -n 's/^serial //p' "$work/lines")"; do
    "$programs/vxctl" -s "$url" --record "$work/record.pcapng" put "$root/examples/logo.bmp" D:/F/LOGO.BMP >"$work/out"
done
told "$work/record.pcapng" "$port" 9521 >"$work/record.txt"
[ "$(wc -l <"$work/record.txt")" -gt 11 ] || { echo "only $(wc -l <"$work/record.txt") packets recorded" >&2 && exit 1; }
checked=(-o ip.check_checksum:TRUE -o tcp.check_checksum:TRUE -o udp.check_checksum:TRUE -d "udp.port==$port,vxsign" -d "tcp.port==$port,vxsign")
if dissect "$work/record.pcapng" "${checked[@]}" -Y '_ws.malformed or vxsign.noise or vxsign.bad_sum or tcp.analysis.flags or ip.checksum.status == 0 or tcp.checksum.status == 0 or udp.checksum.status == 0' |
    grep .; then
    echo "these are recorded wrongly" >&2
    exit 1
fi
read -r port modbus <"$here/signs.ports"
told "$here/signs.pcapng" "$port" "$modbus" >"$work/kept.txt"
[ -z "$update" ] || cp "$work/kept.txt" "$here/signs.txt"
diff -u "$here/signs.txt" "$work/kept.txt"
echo "all as expected"
