#!/usr/bin/env bash
# Every benchmark of the small parts runs and counts what it works on.
# bench_parts.sh PROGRAM SOURCE
set -euo pipefail

program=$1
source=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-parts-test.XXXXXX")
trap 'rm -rf -- "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    cat -- "$work/out" "$work/err" >&2
    exit 1
}

mkdir "$work/scratch"
TMPDIR=$work/scratch timeout 100 "$program" --benchmark_min_time=0.001 --benchmark_format=csv \
    >"$work/out" 2>"$work/err" </dev/null || fail "ended with $?"
[ -z "$(ls -A -- "$work/scratch")" ] || fail "temporary files are left"

declared=$(grep -cE '^BENCHMARK(_CAPTURE)?\(' "$source")
# name,iterations,real_time,cpu_time,time_unit,bytes_per_second,items_per_second,label,error_occurred,error_message
measured=$(awk -F , '$1 ~ /^"/ && $3 > 0 && $7 > 0 && $9 == ""' "$work/out" | wc -l)
[ "$measured" -eq "$declared" ] || fail "$measured of $declared benchmarks measured something"
