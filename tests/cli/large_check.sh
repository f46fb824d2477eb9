#!/usr/bin/env bash
# The check of a large inventory, in number order, shuffled and with a fault in every source: at most three times the
# processor time of a load, and 300 bytes a source beside what the program takes anyway.
# usage: large_check.sh COUNT PROGRAM MAKE_INVENTORY CORE_RUN
set -euo pipefail

count=$1
program=$2
make_inventory=$3
core_run=$4
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
TIMEFORMAT='%3U %3S'
failures=0

# processor_ms COMMAND…: the least of five runs, in milliseconds.
processor_ms() {
    local least=999999 user system ms
    for _ in 1 2 3 4 5; do
        read -r user system < <({ time "$@" >/dev/null 2>&1; } 2>&1 || true)
        ms=$((10#${user/[.,]/} + 10#${system/[.,]/}))  # the shell writes seconds as the locale does
        [ "$ms" -lt "$least" ] && least=$ms
    done
    echo "$least"
}

# within WHAT ARGUMENT…: the check stays within the memory and three times the time of the load.
within() {
    # The most the program may ever have mapped: what it takes for one finding and the 300 bytes.
    local own=16384 what=$1 status=0 check
    shift
    local allowed=$((own + count * 300 / 1024))
    (ulimit -v "$allowed" && exec "$program" check "$@") >"$work/out" 2>"$work/err" || status=$?
    if [ "$status" -ne 1 ] || ! grep -qE "^Zdrojů: $count, nálezů: |^  \"sources\": $count,$" "$work/out"; then
        echo "with $allowed kB the check of $count sources ($what) ended with $status" >&2
        cat "$work/err" >&2
        failures=$((failures + 1))
    fi
    check=$(processor_ms "$program" check "$@")
    echo "$count sources $what: check $check ms, load $load ms"
    if [ "$check" -gt $((3 * load)) ]; then
        echo "the check takes more than three loads" >&2
        failures=$((failures + 1))
    fi
}

for order in '' --shuffle; do
    folder=$work/inventory$order
    "$make_inventory" "$count" "$folder" ${order:+"$order"} --missing --duplicates
    load=$(processor_ms "$core_run" "$folder")
    within "$order" "$folder/body.txt" "$folder/popis.txt" "$folder/prach.txt"
done

# A fault in every source, and all of them told. The maker's Vs are random: they would add as many again.
folder=$work/inventory
load=$(processor_ms "$core_run" "$folder")
LC_ALL=C sed 's/ ;/;/' "$folder/body.txt" >"$work/faulty.txt"
within 'all faulty' "$work/faulty.txt" "$folder/popis.txt" "$folder/prach.txt" --skip vs-mismatch --json --max 0
listed=$(grep -c '"rule": ' "$work/out")
if [ "$listed" -lt "$count" ]; then
    echo "only $listed findings of $count faulty sources" >&2
    failures=$((failures + 1))
fi

[ "$failures" -eq 0 ]
