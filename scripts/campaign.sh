#!/usr/bin/env bash
# Tries the project with what no sign, file or host would send, for as long as one likes, and prints a table of what was
# tried and found: scripts/campaign.sh [MINUTES]
#
# Two fifths of the time go to calls of every export against a hostile sign, as many to the fuzz targets, the rest to lines,
# hosts, kills and threads. Whatever finds something is kept below build/campaign or build/fuzz/found, with the command that shows it.
# Nothing that meets hostile bytes runs as root.
set -euo pipefail
cd "$(dirname "$0")/.."
minutes=${1:-10}
jobs=$(nproc)
found=$PWD/build/campaign
fuzzTargets=9

scripts/setup.sh ci
cmake --preset asan >/dev/null
cmake --preset release >/dev/null
cmake --preset tsan >/dev/null
cmake --build --preset asan --parallel "$jobs" --target hostileTest linesTest vxctl vxsim | tail -n 1
cmake --build --preset tsan --parallel "$jobs" --target vxsign_tests | tail -n 1
cmake --build --preset release --parallel "$jobs" --target vxsim | tail -n 1
mkdir -p "$found"

# Rounds of calls with a seed of their own, one behind the other, until the time is over.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
touch "$work/begun"
start=$SECONDS
end=$((SECONDS + minutes * 24))
call() {
    local seed=$((RANDOM * 32768 + RANDOM + $1))
    while [ $SECONDS -lt $end ]; do
        if ! build/asan/bin/hostileTest --calls 200 --seed "$seed" >"$work/$seed.out" 2>"$work/$seed.err"; then
            grep -v ' calls$' "$work/$seed.err" >"$found/calls-$seed.txt" || true
        fi
        tail -n 1 "$work/$seed.out" >>"$work/counts"
        rm -f "$work/$seed.out"
        seed=$((seed + 1))
    done
}
for ((job = 0; job < jobs; ++job)); do call $job & done
wait
calls=$(awk '/^[0-9]+ calls$/ { sum += $1 } END { print sum + 0 }' "$work/counts")

row='%-28s %12s %9s  %s\n'
printf "$row" what calls seconds found
printf "$row" "calls of every export" "$calls" $((SECONDS - start)) "$(find "$found" -name 'calls-*' -newer "$work/begun" | wc -l)"
sed -s -n '/^shown by/p' "$found"/calls-*.txt 2>/dev/null || true
status=0

# part WHAT COMMAND...: a row for a program whose last line tells how many it tried; what it says is kept when it fails.
part() {
    local what=$1 begin=$SECONDS failed=0
    shift
    "$@" >"$work/said" 2>&1 || failed=1
    printf "$row" "$what" "$(tail -n 1 "$work/said" | grep -oE '[0-9]+' | tail -n 1)" $((SECONDS - begin)) $failed
    [ $failed -eq 1 ] || return 0
    status=1
    { cat "$work/said" && echo "shown by: ${*@Q}"; } >"$found/${what// /-}-$(date +%s).txt"
    echo "    ${*@Q}"
}
part "files over bad lines" build/asan/bin/linesTest --bytes $((minutes < 10 ? minutes * 2000000 : 20000000))
part "commands over hostile lines" tests/tools/hostileLines.py build/asan/bin/vxctl $((minutes * 40)) "$RANDOM"
part "hosts beside greedy ones" tests/tools/greedyHosts.py build/release/bin/vxsim $((minutes / 3 + 1)) 100
part "kills in transfers" env KILL_SEED=$RANDOM KILL_SECONDS=$((minutes * 6)) \
    tests/tools/killTest.sh "$PWD/build/asan/bin/vxctl" "$PWD/build/asan/bin/vxsim" cmake
threads="build/tsan/bin/vxsign_tests --gtest_filter=Threads.* --gtest_shuffle --gtest_fail_fast"
part "rounds of threads" bash -c "$threads --gtest_repeat=$((minutes / 2 + 1)) && echo $((minutes / 2 + 1))"
scripts/fuzz.sh $((minutes * 24 * jobs / fuzzTargets + 1)) || status=1
[ -z "$(find "$found" -name 'calls-*' -newer "$work/begun")" ] || status=1
exit $status
