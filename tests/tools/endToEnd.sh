# What the end-to-end tests share; each is run as SCRIPT VXCTL VXSIM CMAKE and begins by sourcing this file.
set -uo pipefail

vxctl=$1
vxsim=$2
cmake=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
signs=()
failures=0

finish() {
    [ ${#signs[@]} -eq 0 ] || kill "${signs[@]}" 2>/dev/null
    rm -rf "$work"
}
trap finish EXIT

fail() {
    echo "FAILED: $*" >&2
    sed 's/^/    /' "$work/out" "$work/err" >&2
    failures=$((failures + 1))
}

# expect STATUS ARGUMENT...: runs vxctl, whose output goes to $work/out and $work/err.
expect() {
    local wanted=$1 status=0
    shift
    "$vxctl" "$@" >"$work/out" 2>"$work/err" || status=$?
    [ "$status" -eq "$wanted" ] || fail "exit status $status, not $wanted: vxctl $*"
    [[ " $* " != *" --json "* ]] || cat "$work/out" >>"$work/objects"
}

# says FILE TEXT: the last run wrote TEXT there.
says() {
    grep -qF -- "$2" "$work/$1" || fail "no '$2' in $1"
}

# member VALUE NAME...: the object that the last run printed has that member.
member() {
    local wanted=$1 found
    shift
    found=$(JSON=$(cat "$work/out") MEMBER=$(IFS=';' && echo "$*") "$cmake" -P "$here/jsonMember.cmake" 2>&1)
    [ "$found" = "$wanted" ] || fail "$* is '$found', not '$wanted'"
}

same() {
    cmp -s "$1" "$2" || fail "$1 and $2 differ"
}

# awaitPort FILE: $port becomes the one that a program tells there.
awaitPort() {
    for _ in $(seq 200); do
        port=$(sed -n 's/^udp 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$1" 2>/dev/null)
        [ -n "$port" ] && return
        sleep 0.05
    done
    echo "nothing listens" >&2
    exit 1
}

# start FOLDER OPTION...: starts a sign; its port becomes $port, its process $sign.
start() {
    local folder=$1
    shift
    rm -f "$folder.lines" # of a former one, whose port would be taken for this one's
    "$vxsim" --port 0 --face none --dir "$folder" "$@" >"$folder.lines" &
    sign=$!
    signs+=("$sign")
    awaitPort "$folder.lines"
}

# relay PORT MODE: stands between hosts and the sign at the port as hostileRelay.py tells; $url is then that of the relay.
relay() {
    local port lines=$work/relay$1$2.lines
    python3 "$here/hostileRelay.py" "$1" "$2" >"$lines" &
    signs+=("$!")
    awaitPort "$lines"
    url=udp://127.0.0.1:$port
}

# stop PROCESS: asks a sign to end.
stop() {
    kill -TERM "$1"
    wait "$1" || fail "the sign ended with $?"
    signs=("${signs[@]/$1/}")
    signs=(${signs[@]+${signs[@]}})
}

# The last line of a test. Whatever was printed with --json is as the schema says; what COMMANDS is, jsonCheck.py tells.
conclude() {
    [ ! -s "$work/objects" ] ||
        python3 "$here/jsonCheck.py" "$here/../../docs/vxctl.schema.json" "$work/objects" ${1+"$1"} || failures=1
    [ "$failures" -eq 0 ] || exit 1
    echo "all as expected"
}

unset VXSIGN
export TZ=UTC-5:30 # a zone that nobody is in by chance
: >"$work/out"
: >"$work/err"
