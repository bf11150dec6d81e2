#!/usr/bin/env bash
# Tries the project with what no sign, file or host would send, for as long as one likes, and prints a table of what was
# tried and found: scripts/campaign.sh [MINUTES]
#
# One half of the time goes to calls of every export against a hostile sign, the other to the fuzz targets. Whatever finds
# something is kept below build/campaign or build/fuzz/found, with the command that shows it. Nothing runs as root.
set -euo pipefail
cd "$(dirname "$0")/.."
minutes=${1:-10}
jobs=$(nproc)
found=$PWD/build/campaign
fuzzTargets=9

scripts/setup.sh ci
cmake --preset asan >/dev/null
cmake --build --preset asan --parallel "$jobs" --target hostileTest | tail -n 1
mkdir -p "$found"

# Rounds of calls with a seed of their own, one behind the other, until the time is over.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
start=$SECONDS
end=$((SECONDS + minutes * 30))
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

row='%-24s %12s %9s  %s\n'
printf "$row" what calls seconds found
printf "$row" "calls of every export" "$calls" $((SECONDS - start)) "$(find "$found" -name 'calls-*' -newer "$work" | wc -l)"
sed -s -n '/^shown by/p' "$found"/calls-*.txt 2>/dev/null || true
status=0
scripts/fuzz.sh $((minutes * 30 * jobs / fuzzTargets + 1)) || status=1
[ -z "$(find "$found" -name 'calls-*' -newer "$work")" ] || status=1
exit $status
