#!/usr/bin/env bash
# The example programs, as whoever built them would start them.
source "$(dirname "$0")/endToEnd.sh"
programs=$(dirname "$vxctl")
examples=$here/../../examples

start "$work/sign"
"$programs/example_hello" 127.0.0.1 "$port" "Exit 7" >"$work/out" || fail "hello ended with $?"
says out OK
grep -q "Exit 7" "$work/sign/F/T/QMSG.Nmg" || fail "the text is not on the sign"
"$programs/example_send" 127.0.0.1 "$port" "$examples/logo.bmp" 'D:\P\LOGO.BMP' >"$work/out" || fail "send ended with $?"
says out "100 %"
same "$examples/logo.bmp" "$work/sign/D/P/LOGO.BMP"
conclude
