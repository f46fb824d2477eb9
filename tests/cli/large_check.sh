#!/usr/bin/env bash
# The check of a large inventory, in number order and shuffled: at most three times the processor time of a load, and
# 300 bytes a source beside what the program takes anyway.
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

for order in '' --shuffle; do
    folder=$work/inventory$order
    "$make_inventory" "$count" "$folder" ${order:+"$order"} --missing --duplicates
    files=("$folder/body.txt" "$folder/popis.txt" "$folder/prach.txt")

    # The most the program may ever have mapped: what it takes for one finding and the 300 bytes.
    own=16384
    allowed=$((own + count * 300 / 1024))
    status=0
    (ulimit -v "$allowed" && exec "$program" check "${files[@]}") >"$work/out" 2>"$work/err" || status=$?
    if [ "$status" -ne 1 ] || ! grep -q "^Zdrojů: $count, nálezů: " "$work/out"; then
        echo "with $allowed kB the check of $count sources ($order) ended with $status" >&2
        cat "$work/err" >&2
        failures=$((failures + 1))
    fi

    check=$(processor_ms "$program" check "${files[@]}")
    load=$(processor_ms "$core_run" "$folder")
    echo "$count sources $order: check $check ms, load $load ms"
    if [ "$check" -gt $((3 * load)) ]; then
        echo "the check takes more than three loads" >&2
        failures=$((failures + 1))
    fi
done

[ "$failures" -eq 0 ]
