#!/usr/bin/env bash
# The program make_inventory: its help, what it refuses, and that its options arrive.
# make_inventory.sh PROGRAM
set -euo pipefail
export LC_ALL=C

program=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-make-inventory.XXXXXX")
trap 'rm -rf -- "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    cat -- "$work/out" "$work/err" >&2
    exit 1
}

run() {
    status=0
    timeout 20 "$program" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
}

# make NAME ARGUMENT…: an inventory of 2000 sources in the folder of that name.
make() {
    local name=$1
    shift
    run 2000 "$work/$name" "$@"
    [ "$status" -eq 0 ] || fail "$name ended with $status"
    [ ! -s "$work/out" ] && [ ! -s "$work/err" ] || fail "$name said something"
    [ "$(ls -A -- "$work/$name" | tr '\n' ' ')" = "body.txt popis.txt prach.txt " ] || fail "$name has other files"
}

# refuse STATUS WORDS ARGUMENT…: one line on the error output that has the words in it, and no file.
refuse() {
    local expected=$1 words=$2
    shift 2
    run "$@"
    [ "$status" -eq "$expected" ] || fail "$* ended with $status"
    [ ! -s "$work/out" ] || fail "$* printed something"
    [ "$(wc -l <"$work/err")" -eq 1 ] || fail "$* did not complain in one line"
    grep -qF -- "$words" "$work/err" || fail "$* does not complain about: $words"
    [ ! -e "$work/refused" ] || fail "$* made a folder"
}

records() {
    grep -av '^;' "$work/$1"
}

run --help
[ "$status" -eq 0 ] && [ ! -s "$work/err" ] || fail "--help ended with $status or complained"
for text in make_inventory COUNT FOLDER --seed --missing --duplicates --shuffle; do
    grep -qF -- "$text" "$work/out" || fail "--help does not say $text"
done

refuse 2 "one count and one folder"
refuse 2 "one count and one folder" 10
refuse 2 "one count and one folder" 10 "$work/refused" more
refuse 2 "no option --quick" 10 "$work/refused" --quick
refuse 2 "--seed without a number" 10 "$work/refused" --seed
refuse 2 "the seed is no whole number: x" 10 "$work/refused" --seed x
refuse 2 "the seed is no whole number: 99999999999999999999" 10 "$work/refused" --seed 99999999999999999999
refuse 2 "the count is no whole number: 1e3" 1e3 "$work/refused"
refuse 2 "no option -5" -5 "$work/refused"
refuse 2 "the count is not between" 0 "$work/refused"
refuse 2 "the count is not between" 10000001 "$work/refused"

touch "$work/file"
run 10 "$work/file"
[ "$status" -eq 1 ] && grep -qF -- "$work/file" "$work/err" || fail "a file in the folder's place is not refused"

make plain
[ "$(records plain/body.txt | wc -l)" -eq 2000 ] || fail "not 2000 sources"
cp -r -- "$work/plain" "$work/copy"
refuse 1 "$work/plain/body.txt is there already" 10 "$work/plain"
diff -r -- "$work/plain" "$work/copy" || fail "an inventory that was there is changed"

make again
diff -r -- "$work/plain" "$work/again" || fail "not the same bytes again"
make seeded --seed 1
diff -r -- "$work/plain" "$work/seeded" || fail "the seed is not 1 when none is given"
make other --seed 2
! cmp -s -- "$work/plain/body.txt" "$work/other/body.txt" || fail "the seed changes nothing"

make missing --missing
cmp -- "$work/plain/body.txt" "$work/missing/body.txt" || fail "--missing changes the points"
for name in popis.txt prach.txt; do
    [ "$(records "missing/$name" | wc -l)" -lt 2000 ] || fail "--missing leaves $name complete"
done

make duplicates --duplicates
[ -z "$(records plain/body.txt | cut -d , -f 1 | sort | uniq -d)" ] || fail "numbers are doubled without --duplicates"
[ -n "$(records duplicates/body.txt | cut -d , -f 1 | sort | uniq -d)" ] || fail "--duplicates doubles no number"

make shuffled --shuffle
for name in body.txt popis.txt prach.txt; do
    ! cmp -s -- "$work/plain/$name" "$work/shuffled/$name" || fail "--shuffle leaves the order of $name"
    cmp -- <(sort "$work/plain/$name") <(sort "$work/shuffled/$name") || fail "--shuffle changes lines of $name"
done
