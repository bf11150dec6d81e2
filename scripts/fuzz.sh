#!/usr/bin/env bash
# Feeds the library, the virtual sign and the tool with what no sign, file or host would make, so many seconds for each
# target, and prints what that reached and found:
#   scripts/fuzz.sh [SECONDS [TARGET...]]
#   scripts/fuzz.sh --show TARGET FILE      one run, with all that the sanitizers say
# The kept runs of fuzz/corpus come first: each once found something. A finding is kept below build/fuzz/found, with the
# command that shows it. Names of files come out of thin air here, so nothing runs as root.
set -euo pipefail
cd "$(dirname "$0")/.."
show=""
[ "${1:-}" != --show ] || { show=$3; set -- 0 "$2"; }
seconds=${1:-60}
shift || true
all=(reply playlist package localFile report sign content text tool)
targets=("${@:-${all[@]}}")
jobs=$(nproc)

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --parallel "$jobs" --target fuzz | tail -n 1

# A folder of its own, for a user of its own.
work=$(mktemp -d "${TMPDIR:-/tmp}/vxsignFuzzXXXXXX")
trap 'rm -rf "$work"' EXIT
chmod 711 "$work"
cp build/fuzz/bin/fuzz_* build/fuzz/src/libvxsign.so.2 "$work"
export LD_LIBRARY_PATH=$work
mkdir "$work/run" "$work/kept"
[ ! -d fuzz/corpus ] || cp -r fuzz/corpus/. "$work/kept"
as=()
if [ "$(id -u)" -eq 0 ]; then
    command -v setpriv >/dev/null || { echo "fuzz.sh: needs setpriv to run as another user than root" >&2; exit 2; }
    chown -R nobody "$work/run"
    as=(setpriv --reuid nobody --regid nogroup --clear-groups --no-new-privs)
fi

for seeds in fuzz_seeds fuzz_toolSeeds; do
    [ -n "$show" ] || "${as[@]}" env TMPDIR="$work/run" "$work/$seeds" "$work/run/seeds" </dev/null >/dev/null 2>&1
done

# The program of one target, over folders of runs.
fuzz() {
    local target=$1 home=$work/run/$1
    shift
    "${as[@]}" env TMPDIR="$home/tmp" "$work/fuzz_$target" -timeout=20 -rss_limit_mb=2048 -close_fd_mask=1 \
        -artifact_prefix="$home/found/" "$@" </dev/null 2>"$home/log"
}

# Kept runs and seeds once; then new ones, unless one of these failed.
run() {
    local target=$1 home=$work/run/$1 known=()
    "${as[@]}" mkdir -p "$home/corpus" "$home/found" "$home/tmp"
    for folder in "$work/kept/$target" "$work/run/seeds/$target"; do
        [ ! -d "$folder" ] || known+=("$folder")
    done
    fuzz "$target" -runs=0 "${known[@]}" || return 0
    fuzz "$target" -max_total_time="$seconds" -max_len=65536 -print_final_stats=1 "$home/corpus" "${known[@]}" || true
}

if [ -n "$show" ]; then
    cp "$show" "$work/shown"
    mkdir -p "$work/run/$targets" && chmod 777 "$work/run/$targets"
    "${as[@]}" env TMPDIR="$work/run/$targets" "$work/fuzz_$targets" "$work/shown" </dev/null
    exit
fi

for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n || true; done
    run "$target" &
done
wait

found=0
row='%-10s %9s %8s %9s %9s  %s\n'
printf "$row" target runs seconds coverage features found
for target in "${targets[@]}"; do
    log=$work/run/$target/log
    last=$(grep -aE '^#[0-9]+.* cov: ' "$log" | tail -n 1 || true)
    field() { sed -n "s/.*$1 *\([0-9]*\).*/\1/p" <<<"$2" | head -n 1; }
    runs=$(field 'number_of_executed_units:' "$(grep -a number_of_executed_units "$log")")
    kept=""
    for file in "$work/run/$target/found"/*; do
        [ -e "$file" ] || continue
        mkdir -p "build/fuzz/found/$target"
        cp "$file" "build/fuzz/found/$target/"
        kept+=" build/fuzz/found/$target/${file##*/}"
    done
    # What ends without a file of its own, such as a fault of the harness, is told all the same.
    [ -n "$kept" ] || [ -n "$runs" ] || kept=" $(tail -n 1 "$log")"
    printf "$row" "$target" "${runs:-0}" "$seconds" "$(field cov: "$last")" "$(field ft: "$last")" "${kept:- nothing}"
    if [ -n "$kept" ]; then
        found=1
        grep -aE '^(must hold|==.*ERROR|SUMMARY)|runtime error' "$log" | head -n 4 | sed 's/^/    /'
        for file in $kept; do
            [ ! -e "$file" ] || echo "    scripts/fuzz.sh --show $target $file"
        done
    fi
done
exit $found
