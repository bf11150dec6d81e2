#!/usr/bin/env bash
# Installs what is missing, builds, and starts a broker, virtual signs and two bridges on loopback: a message goes to all
# signs, one bridge is killed in the middle of the next, and a table tells what the broker knows of the signs afterwards.
#   demo-fleet.sh [SIGNS]     100 of them if not said
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-100}
programs=$PWD/build/release/bin
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait; rm -rf "$work"' EXIT

scripts/setup.sh fleet
cmake --preset release >"$work/build.log" &&
    cmake --build --preset release --parallel "$(nproc)" --target vxsim vxbridge >>"$work/build.log" || {
    cat "$work/build.log"
    exit 1
}

port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
printf 'listener %s 127.0.0.1\nallow_anonymous true\nmax_queued_messages 0\n' "$port" >"$work/broker.conf"
mosquitto -c "$work/broker.conf" >"$work/broker.log" 2>&1 &
"$programs/vxsim" --count "$count" --port 0 --dir "$work/signs" --write-book "$work/signs.toml" >"$work/vxsim.out" &
until [ "$(grep -c '^sign ' "$work/vxsim.out")" -eq "$count" ]; do sleep 0.1; done
sed -i '1i interval = 5' "$work/signs.toml"

bridge() {
    "$programs/vxbridge" --id "$1" --book "$work/signs.toml" --broker "mqtt://127.0.0.1:$port" --metrics 127.0.0.1:0 \
        2>"$work/$1.log" &
}
topics() { mosquitto_sub -p "$port" -V 5 -t "vx/vxsim/+/$1" --retained-only -W 1 2>"$work/sub.log" || true; }
say() {
    sed -n 's/^\[sign\.\(.*\)\]$/\1/p' "$work/signs.toml" | while read -r sign; do
        mosquitto_pub -p "$port" -V 5 -q 1 -t "vx/vxsim/$sign/cmd/show" -m "{\"text\": \"$1\"}" \
            -D publish response-topic answers/demo -D publish correlation-data "$1 $sign"
    done
}
answers() { # COMMAND...: runs it, and waits for an answer of each sign
    mosquitto_sub -p "$port" -V 5 -q 1 -t answers/demo -C "$count" -W 60 >"$work/answers" &
    local listener=$!
    sleep 0.5
    "$@"
    wait "$listener"
    jq -r '"\(.bridge) result \(.result)\(if .redelivered then " redelivered" else "" end)"' "$work/answers" | sort | uniq -c
}

bridge first
kill_first=$!
bridge second
until [ "$(topics availability | wc -l)" -eq "$count" ]; do sleep 1; done
echo "A broker, $count signs, and two bridges that share them. Now a message to all:"
answers say "HELLO 42"

echo "Another one; in its middle the first bridge is killed:"
(sleep 0.3 && kill -KILL "$kill_first") &
answers say "ROAD WORKS" 2>"$work/killed" # which the shell would tell
until grep -q "first is offline" "$work/second.log"; do sleep 0.1; done
sleep 10 # two intervals

echo "What the broker knows now, from its retained topics:"
{ topics state; topics playing; topics availability; } | jq -rs '
    group_by(.sign)[] | add | [.sign, .available, .playing, "\(.measured.insideC) C", "light \(.lightEighths)/8", .time] | @tsv' |
    column -t | awk 'NR <= 10 { print } END { if (NR > 10) print "... and " NR - 10 " more" }'
