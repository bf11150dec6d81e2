#!/usr/bin/env bash
# A day of an operator: scripts/soak.sh HOURS
#
# Four virtual signs with faults (over UDP, TCP, a serial line, and UDP with lost and damaged replies) are worked with by
# vxctl, a command after the other, and by a host that stays (bench/soakHost.cpp). Every minute a line tells of each
# process that stays its resident memory, descriptors, threads and temporary files. At the end the last quarter is compared
# with the second: what has grown fails. HOURS may be a fraction; Ctrl-C ends the day early, with the same comparison. It
# takes a few percent of a core, and leaves nothing behind. Nothing runs as root.
set -uo pipefail
cd "$(dirname "$0")/.." || exit 2
seconds=$(awk -v hours="${1:-}" 'BEGIN { print int(hours * 3600) }')
[ "$seconds" -ge 60 ] || { echo "usage: scripts/soak.sh HOURS, a minute (0.017) at least" >&2; exit 2; }

scripts/setup.sh || exit 2
cmake --preset release >/dev/null || exit 2
cmake --build --preset release --target vxctl vxsim soakHost | tail -n 1
[ "${PIPESTATUS[0]}" -eq 0 ] || exit 2

# What may have grown from the second quarter to the last. The least sample of each quarter counts: that between two
# commands, without what a command needs for its run. A page cache of the sign's database fills up with its tables (2 MB by
# SQLite's own limit, most of it early in the day), and an allocator gives back what is free at a time of its own: 1 MB.
# From the one quarter to the other, half of a day of two hours, the host does some 40,000 things: a leak of 30 bytes each
# would show. Of descriptors, threads and files two, since all samples of a quarter may have met a command.
mostKilobytes=1024
mostOthers=2
pause=0.5 # between two commands of the operator
least() { echo $(($1 < $2 ? $1 : $2)); }
sampleSeconds=$(least 60 $((seconds / 16)))
restartSeconds=$(least 600 $((seconds / 4))) # the sign "udp" begins anew; the others stay from the first minute to the last

as=()
work=$(mktemp -d "${TMPDIR:-/tmp}/vxsignSoakXXXXXX")
chmod 711 "$work"
mkdir "$work/bin" "$work/day"
cp -L build/release/bin/{vxctl,vxsim,soakHost} build/release/src/libvxsign.so.2 "$work/bin"
cp examples/{hello.nmg,logo.bmp,night.nmg} "$work/day"
head -c 20000 /dev/urandom >"$work/day/content.bin"
if [ "$(id -u)" -eq 0 ]; then
    command -v setpriv >/dev/null || { echo "soak.sh: needs setpriv to run as another user than root" >&2; exit 2; }
    as=(setpriv --reuid nobody --regid nogroup --clear-groups --no-new-privs)
    chown -R nobody "$work/day"
fi
cd "$work/day" || exit 2
export LD_LIBRARY_PATH=$work/bin

# end NAME: asks a process that stays to end; gives its exit status.
declare -A processes
end() {
    local process=${processes[$1]-}
    [ -n "$process" ] || return 0
    unset "processes[$1]"
    kill "$process" 2>/dev/null
    while kill -0 "$process" 2>/dev/null; do wait "$process"; done # a signal ends a wait too
    wait "$process"
}
ended=0
finish() {
    local name
    for name in host "${!options[@]}"; do end "$name" || echo "FAILED: $name ended with $?"; done
}
trap 'finish; cd /; rm -rf "$work"' EXIT
trap 'ended=1' INT TERM HUP

# run NAME PROGRAM ARGUMENT...: in place of this shell, with a folder for temporary files of its own.
run() {
    local name=$1 program=$2
    shift 2
    "${as[@]}" mkdir -p "tmp.$name"
    TMPDIR=$PWD/tmp.$name exec "${as[@]}" "$work/bin/$program" "$@" 2>>"$work/$name.err"
}

declare -A options=([udp]="--png face.png" [tcp]="--bad 3,4,red --hot 2" [serial]="--serial --modbus 0"
    [faulty]="--fault drop=0.05,noise=3,badsum=0.02,truncate=0.02,seed=$RANDOM")
declare -A lines=([udp]=3 [tcp]=3 [serial]=5 [faulty]=3)
sign() {
    : >"$work/$1.starting"
    set -m # the Ctrl-C of a terminal is for this script
    # shellcheck disable=SC2086
    run "$1" vxsim --port 0 --face none --dir "$1" ${options[$1]} >"$work/$1.starting" &
    set +m
    processes[$1]=$!
    while [ "$(wc -l <"$work/$1.starting")" -lt "${lines[$1]}" ] && kill -0 $!; do sleep 0.05; done
    cp "$work/$1.starting" "$1.new"
    mv "$1.new" "$1.lines" # at once: the host never sees half of it
}
place() { sed -n "s/^$2 //p" "$1.lines"; }

# What the operator does with one sign after the other.
commands=("show HELLO" "show --colour amber --stay 2 --verify CLOSED" "picture logo.bmp" "files hello.nmg logo.bmp"
    "put content.bin D:/F/A.BIN" "put --window content.bin D:/F/B.BIN" "get D:/F/A.BIN got.bin" "ls -l D:/F" "ls D:/T"
    "rm D:/F/A.BIN" "bright 5" "status" "log play" "log system" "log event --csv" "doctor" "info" "df"
    "screenshot face.jpeg" "playlist -l LIST/list.xml new"
    "playlist -l LIST/list.xml add hello.nmg logo.bmp night.nmg"
    "playlist -l LIST/list.xml schedule /logo.bmp --days mon-fri" "playlist -l LIST/list.xml send"
    "playlist -l fetched.LIST/list.xml fetch" "warnings" "tile status 1" "zone divide 1 --grid 2x1" "zone text 1 1 EXIT"
    "zone on" "zone off" "player put SHOP MORNING hello.nmg" "player play SHOP MORNING" "player stop" "test colour red"
    "test stop" "ticker hello.nmg" "ticker --stop" "ping -n 3" "blank" "unblank" "restore" "pixels" "abort" "modbus")
vxctl() { (run operator vxctl --timeout 300 --retries 6 "$@") >/dev/null; }
operate() {
    local name=$1 line=${2//LIST/list.$1} url
    url=udp://$(place "$name" udp)
    [ "$name" != tcp ] || url=tcp://$(place tcp tcp)
    # shellcheck disable=SC2086
    case $name,$2 in
    *" new") rm -f "list.$name/list.xml" && vxctl $line ;;
    *,abort) stopped "$url" ;;
    *,modbus) vxctl -s "udp://$(place serial modbus)" modbus VSLS get 5 1 3 ;;
    serial,*) (flock 8 && vxctl -s "serial:$(place serial serial)@115200" $line) 8>>serial.lock ;; # one program at a time
    *) vxctl -s "$url" $line ;;
    esac
}

# A transfer that Ctrl-C ends.
stopped() {
    run operator vxctl -s "$1" put content.bin D:/F/C.BIN >/dev/null &
    sleep 0.1
    kill -INT $! 2>/dev/null
    wait $!
    true
}

# A line of the table, kept as a row for each process too.
names=(host udp tcp serial faulty)
sample() {
    local name process row
    printf '%7s' "$(awk -v s=$((SECONDS - start)) 'BEGIN { printf "%.1f", s / 60 }')"
    for name in "${names[@]}"; do
        process=/proc/${processes[$name]}
        row="$(awk '/^VmRSS/ { print $2 }' "$process/status") $(find "$process/fd" -type l | wc -l)"
        row+=" $(awk '/^Threads/ { print $2 }' "$process/status")"
        row+=" $(find "tmp.$name" "$name/sign" -type f \( -path 'tmp.*' -o -name '*.tmp' \) 2>/dev/null | wc -l)"
        echo "$row" >>"$work/curve.$name"
        # shellcheck disable=SC2086
        printf '  %6s %4s %4s %4s' $row
    done
    printf '  %8s\n' "$(find tmp.operator -type f 2>/dev/null | wc -l)"
}

# What has grown, a line each.
grown() {
    local name
    for name in "${names[@]}"; do
        awk -v name="$name" -v kilobytes="$mostKilobytes" -v others="$mostOthers" '
            { for (i = 1; i <= 4; ++i) value[NR, i] = $i }
            function least(from, to, i,    row, found) {
                found = value[from, i]
                for (row = from; row <= to; ++row) if (value[row, i] < found) found = value[row, i]
                return found
            }
            END {
                split("KB of memory,descriptors,threads,files", what, ",")
                quarter = int(NR / 4)
                for (i = 1; i <= 4 && quarter; ++i) {
                    before = least(quarter + 1, 2 * quarter, i)
                    after = least(NR - quarter + 1, NR, i)
                    if (after > before + (i == 1 ? kilobytes : others))
                        printf "GROWN: %s has %d %s in the last quarter, %d in the second\n", name, after, what[i], before
                }
            }' "$work/curve.$name"
    done
}

# The seconds of processor that children had taken when `times` wrote that file.
taken() { sed -n '2s/[ms]/ /gp' "$1" | awk '{ print $1 * 60 + $2 + $3 * 60 + $4 }'; }

times >"$work/times.before"
start=$SECONDS
for name in udp tcp serial faulty; do sign "$name"; done
set -m
run host soakHost "$PWD" >"$work/host.out" &
set +m
processes[host]=$!
"${as[@]}" mkdir {list,fetched.list}.{udp,tcp,serial,faulty}
sleep 1
printf '%7s' minute && printf '  %21s' "${names[@]}" && printf '  %8s\n' operator
printf '%7s' "" && printf '  %6s %4s %4s %4s' $(for name in "${names[@]}"; do echo KB fds thr file; done) && printf '  %8s\n' file

status=0 turn=0 nextSample=0 nextStart=$restartSeconds
declare -A failed=([udp]=0 [tcp]=0 [serial]=0 [faulty]=0)
while [ $ended -eq 0 ] && [ $((SECONDS - start)) -lt "$seconds" ] && [ $status -eq 0 ]; do
    if [ $((SECONDS - start)) -ge $nextSample ]; then
        nextSample=$((SECONDS - start + sampleSeconds))
        sample
    fi
    if [ $((SECONDS - start)) -ge $nextStart ]; then
        nextStart=$((nextStart + restartSeconds))
        end udp || { echo "FAILED: the sign ended with $?"; status=1; }
        sign udp
    fi
    signs=(udp tcp serial faulty)
    name=${signs[$((turn % 4))]}
    operate "$name" "${commands[$((turn / 4 % ${#commands[@]}))]}" || failed[$name]=$((failed[$name] + 1))
    turn=$((turn + 1))
    for name in "${names[@]}"; do
        [ $ended -eq 1 ] || kill -0 "${processes[$name]}" || { echo "FAILED: $name ended of itself"; status=1; }
    done
    sleep $pause
done
[ $ended -eq 1 ] || sample
day=$((SECONDS - start))
ended=1
finish >"$work/ends"
[ ! -s "$work/ends" ] || { cat "$work/ends"; status=1; }

printf '\noperator: %d commands, failed: udp %d, tcp %d, serial %d, faulty %d\nhost:\n' $turn \
    "${failed[udp]}" "${failed[tcp]}" "${failed[serial]}" "${failed[faulty]}"
sed 's/^/    /' "$work/host.out"
# On a sound line one call in a thousand may meet a machine that has no time for two seconds.
awk '/^(tcp|serial) / && $6 * 1000 > $2 { print "FAILED: " $6 " calls had no answer on the sound line " $1; exit 1 }' "$work/host.out" || status=1
times >"$work/times.after"
awk -v a="$(taken "$work/times.before")" -v b="$(taken "$work/times.after")" -v s="$day" 'BEGIN { printf "processor: %.1f %% of a core\n", 100 * (b - a) / s }'
for name in "${names[@]}" operator; do
    [ ! -s "$work/$name.err" ] || { echo "said by $name:"; sort "$work/$name.err" | uniq -c | sort -rn | head -n 8; }
done
grown | tee "$work/grown"
[ ! -s "$work/grown" ] || status=1
told="nothing has grown"
[ "$(wc -l <"$work/curve.host")" -ge 8 ] || told="too short a day to tell what grows"
[ $status -eq 1 ] || echo "$told"
exit $status
