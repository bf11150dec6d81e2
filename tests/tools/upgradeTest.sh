#!/usr/bin/env bash
# Firmware from vxctl to the boot loader of vxsim: upgradeTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/loader" "$work/sums" "$work/faulty"
head -c 20000 /dev/urandom >"$work/firmware"
# Blocks are whole: the last one is filled up.
(cat "$work/firmware" && printf '\032%.0s' $(seq 96)) >"$work/wanted"

start "$work/loader" --bootloader --verbose 2>"$work/told"
loader=serial:$(sed -n 's/^serial //p' "$work/loader.lines")@115200
expect 0 -s "$loader" upgrade "$work/firmware"
says out "waiting up to 90 s for the boot loader at $loader"
says out "upgrade: 157 blocks, 20.0 kB"
same "$work/wanted" "$work/loader/sign/firmware.bin"
grep -q "upgrade: done: 157 blocks, 20096 bytes" "$work/told" || fail "vxsim tells nothing of the upgrade"

# It asks anew, and what the library prints stays out of the object.
expect 0 -s "$loader" --json upgrade "$work/wanted"
member 157 blocks
member 20096 bytes
same "$work/wanted" "$work/loader/sign/firmware.bin"

# Another sender, with blocks of 1024 bytes and the rest in blocks of 128.
rm "$work/loader/sign/firmware.bin"
device=$(sed -n 's/^serial //p' "$work/loader.lines")
sx --1k --quiet "$work/firmware" <"$device" >"$device" 2>"$work/err" || fail "sx cannot send"
same "$work/wanted" "$work/loader/sign/firmware.bin"
grep -q "upgrade: done: 24 blocks, 20096 bytes" "$work/told" || fail "blocks of 1024 bytes did not come as such"

start "$work/sums" --bootloader --sums
expect 0 -s "serial:$(sed -n 's/^serial //p' "$work/sums.lines")@115200" upgrade "$work/firmware"
same "$work/wanted" "$work/sums/sign/firmware.bin"

# Answers that are lost or damaged.
start "$work/faulty" --bootloader --fault drop=0.05,badsum=0.05,seed=3
expect 0 -s "serial:$(sed -n 's/^serial //p' "$work/faulty.lines")@115200" --timeout 200 --retries 20 \
    upgrade "$work/firmware"
same "$work/wanted" "$work/faulty/sign/firmware.bin"

# A receiver that falls silent in the middle.
head -c 8000000 /dev/zero >"$work/long"
"$vxctl" -s "$loader" --timeout 200 --retries 1 upgrade "$work/long" >"$work/out" 2>"$work/err" &
sleep 1
kill -STOP "${signs[0]}"
wait $! && fail "an upgrade without answers is done"
kill -CONT "${signs[0]}"
says err "the receiver does not answer any more behind block"

# A line on which nobody asks, and files that are none.
start "$work/sign" --serial
silent=serial:$(sed -n 's/^serial //p' "$work/sign.lines")@115200
expect 1 -s "$silent" --timeout 50 --retries 1 upgrade "$work/firmware"
says err "the receiver does not ask for blocks"
expect 1 -s "$silent" --timeout 50 --retries 1 --json upgrade "$work/firmware"
member 20736 result
member "the receiver does not ask for blocks" reason
expect 2 -s "$silent" upgrade "$work/none"
# A sign's own line is none for firmware, unless it is meant.
network=udp://127.0.0.1:$port
expect 2 -s "$network" upgrade "$work/firmware"
says err "a boot loader takes firmware on a serial line"
expect 1 -s "$network" --timeout 50 --retries 1 upgrade --anyway "$work/firmware"
says err "the receiver does not ask for blocks"

conclude
