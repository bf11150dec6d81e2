#!/usr/bin/env bash
# Installs what is missing, builds, starts a virtual sign on a free loopback port, puts a message on it and shows its
# face: here in the terminal, and as a picture in vxsign-demo.png.
#   demo.sh [--web] [TEXT]     with --web in the browser as well, until Ctrl-C
set -euo pipefail
cd "$(dirname "$0")/.."

face=(--face ansi)
[ "${1:-}" != --web ] || { face=(--web 0) && shift; }
text=${1:-HELLO 42}
picture=$PWD/vxsign-demo.png
work=$(mktemp -d)
sign=
finish() {
    if [ -n "$sign" ]; then
        kill "$sign" 2>/dev/null || true
        wait "$sign" 2>/dev/null || true
    fi
    rm -rf "$work"
}
trap finish EXIT

scripts/setup.sh
cmake --preset release >"$work/build.log" &&
    cmake --build --preset release --parallel "$(nproc)" --target vxsim vxctl >>"$work/build.log" || {
    cat "$work/build.log"
    exit 1
}

build/release/bin/vxsim --dir "$work/sign" --port 0 --png "$picture" "${face[@]}" >"$work/vxsim.out" 2>"$work/vxsim.err" &
sign=$!
for _ in $(seq 100); do
    address=$(sed -n 's/^udp //p' "$work/vxsim.out")
    [ -n "$address" ] && break
    sleep 0.1
done
[ -n "$address" ] || { echo "vxsim did not start:"; cat "$work/vxsim.err"; exit 1; }

echo "A virtual sign listens on udp://$address. Now: vxctl -s udp://$address show \"$text\""
build/release/bin/vxctl -s "udp://$address" show "$text"
if [ "${face[0]}" = --web ]; then
    echo "The sign in the browser: $(sed -n 's/^web //p' "$work/vxsim.out")   (Ctrl-C ends it)"
    wait "$sign"
    exit
fi
sleep 1.5 # until the sign has drawn what it plays

# The last face that vxsim drew: 32 rows of lamps, two in each line.
kill "$sign" && wait "$sign" || true
sign=
tail -n 16 "$work/vxsim.out" | sed 's/^\x1b\[[0-9]*A//'
echo "The same as a picture: $picture"

cat <<END

The programs are vxctl and vxsim in $PWD/build/release/bin. To go on, type here:

    export PATH=$PWD/build/release/bin:\$PATH
    vxsim --face ansi                # a virtual sign, in a terminal of its own
    vxctl show "ROAD WORKS"          # and in this one, what it shows

README.md has more to try, docs/tasks/ a page for each task.
END
