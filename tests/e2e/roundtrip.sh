#!/usr/bin/env bash
# The program roundtrip: what it prints, what it writes and how it ends.
# roundtrip.sh PROGRAM EXAMPLES
set -euo pipefail

program=$1
examples=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-roundtrip.XXXXXX")
trap 'rm -rf -- "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    cat -- "$work/out" "$work/err" >&2
    exit 1
}

readonly names='sources missing_description missing_dust duplicates load_ms check_ms save_ms peak_rss_kib'

# run POINTS DESCRIPTION DUST: the files written lie in $work/saved; sets status.
run() {
    rm -rf -- "$work/saved"
    mkdir "$work/saved"
    status=0
    timeout 20 "$program" "$@" "$work/saved" >"$work/out" 2>"$work/err" </dev/null || status=$?
}

value_of() {
    sed -n "s/^$1 //p" "$work/out"
}

expect_report() {
    [ "$status" -eq 0 ] || fail "ended with $status"
    [ ! -s "$work/err" ] || fail "complained"
    [ "$(cut -d ' ' -f 1 "$work/out" | sort)" = "$(tr ' ' '\n' <<<"$names" | sort)" ] || fail "not each name once"
    local name
    for name in $names; do
        # In the same form whatever the locale.
        grep -qE '^[0-9]+(\.[0-9]+)?$' <<<"$(value_of "$name")" || fail "$name is no number"
    done
    [ "$(value_of sources)" = "$(records "$examples/body.txt" | wc -l)" ] || fail "not all sources"
    [ "$(value_of missing_description)" = 0 ] || fail "descriptions are missing"
    [ "$(value_of duplicates)" = 0 ] || fail "duplicates in the example"
    [ "$(value_of peak_rss_kib)" -gt 0 ] || fail "no peak of memory"
}

# The lines that are no comment.
records() {
    LC_ALL=C grep -av '^;' "$1"
}

expect_same_records() {
    local name
    for name in "$@"; do
        cmp <(records "$examples/$name") <(records "$work/saved/$name") || fail "$name has other records"
    done
    [ "$(ls -A -- "$work/saved" | wc -l)" -eq $# ] || fail "not exactly the files that were asked for"
}

run "$examples/body.txt" "$examples/popis.txt" "$examples/prach.txt"
expect_report
[ "$(value_of missing_dust)" = 0 ] || fail "dust is missing"
expect_same_records body.txt popis.txt prach.txt

# Without a dust file.
run "$examples/body.txt" "$examples/popis.txt" -
expect_report
expect_same_records body.txt popis.txt

run "$examples/body.txt" "$examples/missing.txt" "$examples/prach.txt"
[ "$status" -eq 1 ] || fail "a missing file ended with $status"
[ "$(wc -l <"$work/err")" -eq 1 ] || fail "not one line about the missing file"
grep -qF -- "$examples/missing.txt" "$work/err" || fail "the line does not name the missing file"
[ ! -s "$work/out" ] || fail "a report in spite of the missing file"
[ -z "$(ls -A -- "$work/saved")" ] || fail "files in spite of the missing one"
