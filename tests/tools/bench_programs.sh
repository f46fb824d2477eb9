#!/usr/bin/env bash
# bench.sh in a small size with the programs as they are built: every figure is there and is a number above 0.
# bench_programs.sh BENCH BUILD window|core
set -euo pipefail

bench=$1
build=$2
parts=$3
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-bench-test.XXXXXX")
trap 'rm -rf -- "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    cat -- "$work/out" "$work/err" >&2
    exit 1
}

# run WORDS…: bench.sh with these arguments, its temporary files in $work/scratch.
run() {
    status=0
    mkdir -p "$work/scratch"
    TMPDIR=$work/scratch BENCH_BUILD=$build BENCH_COUNT="$sizes" BENCH_ROUNDS=$rounds \
        timeout 100 "$bench" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
    [ -z "$(ls -A -- "$work/scratch")" ] || fail "temporary files are left"
}

# column N FIGURE: of the rows of all tables.
column() {
    awk -F '|' -v n="$1" -v figure="$2" '
        {
            name = $2
            gsub(/^ +| +$/, "", name)
            if (name == figure) {
                gsub(/ /, "", $n)
                print $n
            }
        }' "$work/out"
}

sizes='500 1000'
rounds=1
run
[ "$status" -eq 0 ] || fail "ended with $status"
[ ! -s "$work/err" ] || fail "complained"

readonly file_figures='wc -l [ms]
cat into files [ms]
load in number order [ms]
load in number order / wc
load in three random orders [ms]
load in three random orders / wc
save [ms]
save / cat
save over the files that are there / cat
duplicate check [ms]
duplicate check / wc
memory of the loaded set [B a source]
peak of load, check and save without a window [MB]'
readonly window_figures='peak of the whole program with the list shown [MB]
peak after all commands of the list [MB]
load in the window [ms]
refill [ms]
sort by number [ms]
sort by name [ms]
mark all [ms]
invert the marks [ms]
mark by type [ms]
unmark all [ms]
Ctrl+A [ms]
Shift+End [ms]
delete every third source, with refill [ms]
paint a screen [ms]
start of a bare window [ms]
start of the program [ms]
start of the program / of a bare window'

# expect_figures TABLES: reads figures; each stands in so many tables, with a median and a spread around it.
expect_figures() {
    local name count=0
    while read -r name; do
        [ "$(column 3 "$name" | grep -cE '^[0-9.]+(e[-+][0-9]+)?$')" -eq "$1" ] || fail "$name: not $1 numbers"
        column 3 "$name" | LC_ALL=C awk '!($1 > 0) { exit 1 }' || fail "$name is not above 0"
        paste <(column 3 "$name") <(column 4 "$name" | sed 's/\.\./ /') \
            | LC_ALL=C awk '!($2 <= $1 && $1 <= $3) { exit 1 }' || fail "$name: the median is not within the spread"
        count=$((count + 1))
    done
    figures=$((figures + count * $1))
}

figures=0
expect_figures 2 <<<"$file_figures"
if [ "$parts" = window ]; then
    expect_figures 1 <<<"$window_figures"
fi
# The head and the rule of each of the two tables are rows as well.
[ "$(grep -c '^|' "$work/out")" -eq $((figures + 4)) ] || fail "there are other figures than these"
[ "$(grep -cE '^(500|1000) sources$' "$work/out")" -eq 2 ] || fail "not one table a size"

run argument
[ "$status" -eq 2 ] && grep -qF 'takes no arguments' "$work/err" || fail "an argument is not refused"
rounds=none
run
[ "$status" -eq 2 ] && grep -qF 'BENCH_ROUNDS' "$work/err" || fail "a wrong number of rounds is not refused"
