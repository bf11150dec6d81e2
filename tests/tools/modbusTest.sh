#!/usr/bin/env bash
# Registers of the Modbus devices of vxsim by vxctl, on each road: modbusTest.sh VXCTL VXSIM CMAKE
. "$(dirname "$0")/endToEnd.sh"

mkdir "$work/sign" "$work/noisy"
start "$work/sign" --serial --modbus 0 --verbose 2>"$work/told"
place=$(sed -n 's/^modbus //p' "$work/sign.lines")
serial=serial:$(sed -n 's/^serial //p' "$work/sign.lines")@9600

value=0
for url in "udp://$place" "tcp://$place" "$serial"; do
    for device in "LC 1" "TLS 2 3" "ALCS 3 3" "MLCS 4 3" "VSLS 5 9" "TOR 6 0" "VMS 17 3" "PVMS 18"; do
        value=$((value + 257))
        expect 0 -s "$url" modbus ${device%% *} set ${device#* } 3 $value
        expect 0 -s "$url" --json modbus ${device%% *} get ${device#* } 3
        member $value value
    done
done
grep -q "modbus: VSLS 5/9 r3=" "$work/told" || fail "vxsim tells nothing of the registers"

# The serial line is still that of the sign.
expect 0 -s "$serial" blank
expect 0 -s "$serial" modbus vsls get 5 9 3

expect 0 -s "udp://$place" modbus LC set 1 0x05 0x1234
expect 0 -s "udp://$place" modbus LC get 1 5
says out "4660 (0x1234)"
expect 2 modbus VMS set 7 22 1
says err "VMS has no register 22, or it cannot be written"
expect 2 modbus VMS get 7 101
expect 2 modbus LC get 1 2 3
says err "modbus: LC get takes DEVICE REGISTER"
for numbers in 1 "1 2 3 4 5"; do
    # shellcheck disable=SC2086
    expect 2 modbus TLS get $numbers
    says err "modbus: TLS get takes DEVICE [SECTION] REGISTER"
done
expect 0 modbus --help
says out "Usage: vxctl modbus [OPTIONS] CLASS ACTION NUMBERS..."
says out "NUMBERS NUMBER (0 to 65535) ... REQUIRED"
says out "2 to 4: DEVICE [SECTION] REGISTER, and the VALUE to set"
expect 2 modbus XYZ get 1 2
expect 1 -s "udp://$place" --timeout 100 --retries 1 modbus LC get 9 5
expect 1 -s "udp://$place" --timeout 100 --retries 1 modbus ALCS get 3 99
says err "Communication Error!"

# Registers live over a restart; noise ahead of an answer does not hide it.
stop "$sign"
start "$work/sign" --serial --modbus 0 --fault noise=6,seed=2
for url in "udp://$(sed -n 's/^modbus //p' "$work/sign.lines")" \
    "serial:$(sed -n 's/^serial //p' "$work/sign.lines")@9600"; do
    expect 0 -s "$url" modbus LC get 1 5
    says out "4660 (0x1234)"
done

conclude
