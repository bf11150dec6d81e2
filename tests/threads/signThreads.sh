#!/usr/bin/env bash
# A sign made with ThreadSanitizer, whose threads all have something to do: signThreads.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/../tools/endToEnd.sh"

export TSAN_OPTIONS="suppressions=$(realpath "$(dirname "$0")/thread.supp")"
mkdir "$work/sign"
head -c 6000 /dev/urandom >"$work/file"
options=(--png "$work/face.png" --serial --modbus 0)
[[ $("$vxsim" --help) != *"--web "* ]] || options+=(--web 0)
start "$work/sign" "${options[@]}" 2>"$work/told"
web=$(sed -n 's/^web //p' "$work/sign.lines")
serial=serial:$(sed -n 's/^serial //p' "$work/sign.lines")@4000000

# browse: what pages ask, one after the other, beside a stream of events.
browse() {
    python3 - "$1" <<'EOF'
import json, sys, threading, urllib.request as http
url = sys.argv[1]
events = http.urlopen(url + "events", timeout=20)
stream = threading.Thread(target=lambda: [events.read(100) for _ in range(40)], daemon=True)
stream.start()
posts = [("condition", {"changes": [{"what": "bad", "value": "3,4,red"}]}), ("line", {"delay": 1}), ("box", {"light": 3}),
         ("condition", {"changes": [{"what": "good", "value": "all"}]}), ("line", {"delay": 0})]
for turn in range(40):
    for page in "", "api/traffic", "api/traffic.pcap", "api/files?path=D:/", "api/playlist", "api/logs", "api/devices":
        http.urlopen(url + page, timeout=20).read()
    path, change = posts[turn % len(posts)]
    http.urlopen(url + "api/" + path, json.dumps(change).encode(), timeout=20).read()
EOF
}

# host URL: an operator at that line.
host() {
    for turn in 1 2; do
        for line in "show TURN$turn" "put $work/file D:/F/${1%%:*}.BIN" "get D:/F/${1%%:*}.BIN $work/${1%%:*}" "bright $turn" \
            "log system --limit 3" "ls -l D:/F" status; do
            # shellcheck disable=SC2086
            "$vxctl" --timeout 20000 -s "$1" $line || return
        done
    done >/dev/null
}

hosts=()
for url in "udp://127.0.0.1:$port" "tcp://127.0.0.1:$port" "$serial"; do
    host "$url" 2>>"$work/err" &
    hosts+=($!)
done
if [ -n "$web" ]; then
    for _ in 1 2; do
        browse "$web" 2>>"$work/err" &
        hosts+=($!)
    done
fi
for process in "${hosts[@]}"; do wait "$process" || fail "a host or a page has failed"; done
stop "$sign" # its status tells of what ThreadSanitizer has found
[ $failures -eq 0 ] || head -n 60 "$work/told" >&2
conclude
