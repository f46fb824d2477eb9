#!/usr/bin/env bash
# The commands check and stat as a user runs them: exit codes, languages, JSON, faults of the surroundings.
# usage: check_program.sh PROGRAM EXAMPLES FIXTURES
set -euo pipefail

program=$1
examples=$2
fixtures=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
failures=0

# run STATUS ARGUMENT…: output in $work/out and $work/err.
run() {
    local expected=$1 status=0
    shift
    "$program" "$@" >"$work/out" 2>"$work/err" || status=$?
    if [ "$status" -ne "$expected" ]; then
        echo "status $status instead of $expected: $*" >&2
        cat "$work/err" >&2
        failures=$((failures + 1))
    fi
}
# says FILE TEXT: the file of the last run holds the text.
says() {
    if ! grep -qF -- "$2" "$work/$1"; then
        echo "not in $1: $2" >&2
        cat "$work/$1" >&2
        failures=$((failures + 1))
    fi
}

inventory=("$examples/body.txt" "$examples/popis.txt" "$examples/prach.txt")
planted=("$fixtures/range-d/body.txt" "$fixtures/range-d/popis.txt" "$fixtures/range-d/prach.txt")

run 0 check "${inventory[@]}" --groups "$examples/skupiny.spr"
says out "Zdrojů: 16, nálezů: 0"
run 1 check "${planted[@]}"
says out "popis.txt:2:30: varování [range-d] zdroj 1: d = 0 m je mimo 0.02 až 90 m"
run 1 --lang en check "${planted[@]}" --max 1
says out "Only the first are listed: 1"
run 1 check "${planted[@]}" --json
says out '"rule": "diameter-height"'
says out '"line": 3'
run 0 check "${planted[@]}" --skip range-d,diameter-height
run 1 check --skip range-d "${planted[@]}"
says out "nálezů: 1"
run 1 check "${planted[@]}" --only range-d
says out "nálezů: 2"
run 0 check --explain range-d --lang en
says out "d (point source): 0.02 to 90 m"
run 0 check --explain range-d --json
says out '"value": "0.02 až 90 m"'

run 2 check "$work/none" "$examples/popis.txt"
says err "$work/none: Soubor nebo složka neexistuje."
run 2 --lang en check "$work/none" "$examples/popis.txt"
says err "$work/none: The file or folder does not exist."
run 2 --lang en check "$work" "$examples/popis.txt"
says err "$work: There is a folder in the place of the file."
run 1 check "$examples/popis.txt" "$examples/body.txt" --lang en
says out "body.txt:1:1: error [wrong-file] this looks like the points file, but should be the description file"
run 2 check "$examples/body.txt"
says err "Zadejte soubor s body a soubor s popisem."
run 2 check "${planted[@]}" --skip no-such-rule
says err "no-such-rule"
run 2 check "${planted[@]}" --pressure 3
run 2 check "${planted[@]}" --max -3
says err "--max"
run 2
says err "Chybí příkaz."
run 2 nonsense
run 2 --lang de check "${planted[@]}"

run 0 --help
says out "Použití: korvexzdr-cli"
run 0 --help --lang en
says out "Usage: korvexzdr-cli"
run 0 check --help
says out "Příklady:"
run 0 --version
says out "korvexzdr-cli "

# What a terminal would obey is shown instead.
mkdir "$work/escape"
cp "${inventory[@]}" "$work/escape"
escaped=("$work/escape/body.txt" "$work/escape/popis.txt" "$work/escape/prach.txt")
LC_ALL=C sed -i '0,/kotel/s//\x1b[2Jkotel\x90/' "${escaped[0]}"
run 1 diff "${inventory[@]}" "${escaped[@]}"
says out '\x1B[2Jkotel\x90'
if LC_ALL=C grep -q $'\x1b\|\xc2\x90' "$work/out"; then
    echo "diff prints control characters" >&2
    failures=$((failures + 1))
fi
run 1 check "${escaped[@]}" --only control-character
says out "bajt 1B (šestnáctkově) je řídicí znak"

run 0 stat "${inventory[@]}"
says out "Délka liniových zdrojů: 3532.575 m"
run 0 stat "${inventory[@]}" --json
says out '"sources": 16'
run 2 stat "$work/none" "$examples/popis.txt"

# A disk without room, and a reader that goes away, are told and not passed over.
status=0
"$program" check "${planted[@]}" >/dev/full 2>"$work/err" || status=$?
if [ "$status" -ne 2 ]; then
    echo "status $status instead of 2 on a full disk" >&2
    failures=$((failures + 1))
fi
says err "Výstup nelze zapsat."

[ "$failures" -eq 0 ]
