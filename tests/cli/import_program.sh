#!/usr/bin/env bash
# The command import with tables as spreadsheets and people leave them: what it takes them for, what it refuses, and
# that nothing is written then.
# usage: import_program.sh PROGRAM EXAMPLES
set -euo pipefail

program=$1
examples=$2
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export XDG_STATE_HOME=$work/state
failures=0

# run STATUS ARGUMENT…: output in $work/out and $work/err.
run() {
    local expected=$1 status=0
    shift
    "$program" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
    if [ "$status" -ne "$expected" ]; then
        echo "status $status instead of $expected: $*" >&2
        cat "$work/out" "$work/err" >&2
        failures=$((failures + 1))
    fi
}
# says out|err TEXT
says() {
    if ! grep -qF -- "$2" "$work/$1"; then
        echo "not in $1: $2" >&2
        cat "$work/$1" >&2
        failures=$((failures + 1))
    fi
}
is_unchanged() {
    if ! (cd "$work/town" && sha256sum --quiet -c "$work/sums"); then
        echo "written in spite of: $1" >&2
        failures=$((failures + 1))
    fi
}

mkdir "$work/town"
cp "$examples"/{body,popis,prach}.txt "$work/town"
town=("$work/town/body.txt" "$work/town/popis.txt" "$work/town/prach.txt")
run 0 export "${town[@]}" --csv "$work/plain.csv"
run 0 import --csv "$work/plain.csv" "${town[@]}" --force
[ ! -s "$work/err" ] || {
    echo "something is said of a table as exported" >&2
    failures=$((failures + 1))
}
(cd "$work/town" && sha256sum ./*.txt >"$work/sums")

# A filter that left nothing does not empty the inventory.
head -n 1 "$work/plain.csv" >"$work/header.csv"
for accepted in --force --accept-losses; do
    run 2 import --csv "$work/header.csv" "${town[@]}" --force "$accepted"
    says err "nemá pod názvy sloupců žádný řádek"
    is_unchanged "no row"
done

# The table itself is no file of the inventory, by whatever name.
cp "$work/plain.csv" "$work/table.csv"
ln -s table.csv "$work/link.csv"
for target in table.csv ./table.csv link.csv; do
    run 2 import --csv "$work/table.csv" "$work/$target" "${town[@]:1}" --force
    says err "Výstup by přepsal vstup"
    cmp -- "$work/plain.csv" "$work/table.csv" || failures=$((failures + 1))
done

# As a Czech spreadsheet saves it. Within quotes (names, dust) commas and points stay as they are.
sed -E -e ':next; s/^(([^"]|"[^"]*")*),/\1;/; t next' -e 's/;([0-9]+)\.([0-9]+)/;\1,\2/g' \
    "$work/plain.csv" >"$work/sheet.csv"
grep -q ';3,119339;' "$work/sheet.csv"
iconv -f UTF-8 -t WINDOWS-1250 "$work/sheet.csv" >"$work/windows.csv"
run 0 import --csv "$work/sheet.csv" "${town[@]}" --force
says err 'sheet.csv: tabulka se čte takto: kódování UTF-8, oddělovač „;“, desetinná čárka'
is_unchanged "nothing (another form of the same table)"
run 0 import --lang en --csv "$work/windows.csv" "${town[@]}" --force
says err "windows.csv: the table is read as: encoding Windows-1250, separator \";\", decimal comma"
is_unchanged "nothing (another encoding of the same table)"

# refused NAME SCRIPT MESSAGE: the table changed by the script of sed is refused with the message.
refused() {
    sed -E "$2" "$work/plain.csv" >"$work/$1.csv"
    run 1 import --csv "$work/$1.csv" "${town[@]}" --force
    says out "$1.csv:$3"
    says err "Nic se nezapsalo."
    is_unchanged "$1"
}
refused thousands '2s/,0\.16,/,"1 000.16",/' '2:71: M_g_s: číslo nesmí mít oddělovače tisíců („1 000.16“)'
refused unknown '1s/Alfa/alfa/' '1:87: neznámý sloupec („alfa“)'
refused unknown '1s/Alfa/alfa/' '1:1: Alfa: sloupec chybí'
refused doubled-column '1s/Alfa/H_m/' '1:87: H_m: sloupec je tu podruhé'
refused type '2s/^1,1,/1,7,/' '2:3: typ: typ není 1, 2 ani 3 („7“)'
refused short '3s/^([^,]*,[^,]*),.*/\1/' '3:1: řádek má 2 pole, řádek s názvy 28'
refused number '3s/^2,/1,/' '3:1: cislo: dřívější zdroj má stejné číslo a jiný popis („1“)'

# What can be written all the same is, once it was asked for.
refused rounded '2s/,0\.16,/,0.160000001,/' '2:71: M_g_s: zapsalo by se zaokrouhlené: 0.16 („0.160000001“)'
says err "Se --accept-losses se zapíše i tak."
run 1 import --csv "$work/rounded.csv" "${town[@]}" --force --accept-losses
says out "Zapsané zdroje: 16"
is_unchanged "nothing (rounded to what was there)"
run 1 import --json --csv "$work/rounded.csv" "${town[@]}" --force
says out '"written": 0'
says out '"value": "0.160000001"'
run 1 import --json --csv "$work/rounded.csv" "${town[@]}" --force --accept-losses
says out '"written": 16'
says out '"acceptable": true'
refused alfa '2s/,0\.45,24,/,1.45,24,/' '2:101: Alfa: hodnota je mimo rozsah 0–1 („1.45“)'
run 1 import --csv "$work/alfa.csv" "${town[@]}" --force --accept-losses
says out "Alfa: hodnota je mimo rozsah 0–1"

run 1 import --csv "$work/number.csv" "${town[@]}" --force --accept-losses
says out "Zapsané zdroje: 16"
says err "zdroj 1 má stejné číslo jako dřívější zdroj a jiný popis"
run 2 import --csv "$work/plain.csv" "$work/town/body.txt" "$work/town/popis.txt" --force --accept-losses
says err "Tabulka má sloupec prach"
run 2 import --csv "$work/plain.csv" "${town[@]}" --force --without-dust
says err "Soubor s prachem je navíc"

run 2 import --csv "$work/plain.csv" "${town[@]}" --force --comment Ω
says err "Poznámku soupisu nelze zapsat"
run 2 import --csv "$work" "${town[@]}" --force
run 0 import --csv "$work/plain.csv" "${town[@]}" --force --comment 'Rok 2027'
grep -qa '^;Rok 2027' "$work/town/body.txt"

# Not more findings than wanted, and all of them counted.
sed -E '2,9s/^([0-9]+),/x\1,/' "$work/plain.csv" >"$work/many.csv"
run 1 import --csv "$work/many.csv" "${town[@]}" --force --max 3
says out "Nálezy: 8"
[ "$(grep -c 'není celé číslo' "$work/out")" -eq 3 ] || {
    echo "not 3 findings" >&2
    failures=$((failures + 1))
}
run 1 import --csv "$work/many.csv" "${town[@]}" --force --max 0
[ "$(grep -c 'není celé číslo' "$work/out")" -eq 8 ] || {
    echo "not all 8 findings" >&2
    failures=$((failures + 1))
}
run 2 import --csv "$work/many.csv" "${town[@]}" --force --max -1
says err 'Volba --max: nepřípustná hodnota „-1“'

[ "$failures" -eq 0 ]
