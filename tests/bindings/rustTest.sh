#!/usr/bin/env bash
# Builds the example in Rust with the packaged compiler and runs it against vxsim: rustTest.sh BIN LIBRARIES
# BIN has vxsim, LIBRARIES libvxsign.so, built without sanitizers.
set -euo pipefail
bin=$(realpath "$1")
libraries=$(realpath "$2")
cd "$(dirname "$0")/../.."
export PATH=/usr/bin:$PATH # the compiler of the system, of which the example wants no more
for program in rustc cargo bindgen; do
    command -v "$program" >/dev/null || { echo "no $program: the example in Rust is left out" && exit 0; }
done
work=$(mktemp -d)
sim=
trap '[ -z "$sim" ] || kill "$sim"; rm -rf "$work"' EXIT

# The library as it would be installed.
mkdir "$work/pc"
printf 'Name: vxsign\nDescription: x\nVersion: 1\nCflags: -I%s\nLibs: -L%s -lvxsign\n' "$PWD/include" "$libraries" >"$work/pc/vxsign.pc"
PKG_CONFIG_PATH=$work/pc CARGO_TARGET_DIR=$work/target RUSTFLAGS="-D warnings" \
    cargo build --quiet --offline --manifest-path examples/rust/Cargo.toml

"$bin/vxsim" --port 0 --dir "$work/sign" >"$work/lines" &
sim=$!
for _ in $(seq 200); do
    port=$(sed -n 's/^udp .*://p' "$work/lines" 2>/dev/null) && [ -n "$port" ] && break
    sleep 0.05
done
hello() {
    LD_LIBRARY_PATH=$libraries "$work/target/debug/vxsign-hello" "$@"
}
expect() {
    local said=$1 status=$2 found=0
    hello "${@:3}" >"$work/out" 2>&1 || found=$?
    [ "$found" -eq "$status" ] && grep -qF "$said" "$work/out" || { cat "$work/out" && echo "FAILED: ${*:3}" && exit 1; }
}
expect "the sign answers: (" 0 127.0.0.1 "$port" "Rust 42"
grep -qa "Rust 42" "$work/sign/F/T/QMSG.Nmg" || { echo "FAILED: the sign shows no text" && exit 1; }
expect "Communication Error! (20736)" 1 127.0.0.1 1
expect "invalid digit" 1 127.0.0.1 x
expect "IPv4 address" 1 sign.of.a.very.long.name
echo "the example in Rust does as expected"
