#!/usr/bin/env bash
# The commands that compare, change and convert, as a user runs them: what they write, when they refuse, how they end.
# usage: change_program.sh PROGRAM EXAMPLES GOLDEN
set -euo pipefail

program=$1
examples=$2
golden=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export XDG_STATE_HOME=$work/state
failures=0

fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}
# run STATUS ARGUMENT…: output in $work/out and $work/err.
run() {
    local expected=$1 status=0
    shift
    "$program" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
    if [ "$status" -ne "$expected" ]; then
        fail "status $status instead of $expected: $*"
        cat "$work/out" "$work/err" >&2
    fi
}
# says out|err TEXT
says() {
    if ! grep -qF -- "$2" "$work/$1"; then
        fail "not in $1: $2"
        cat "$work/$1" >&2
    fi
}
# files FOLDER: the three names of an inventory there, in names.
files() {
    names=("$1/body.txt" "$1/popis.txt" "$1/prach.txt")
}
fresh() {
    rm -rf "$work/new"
    mkdir "$work/new"
}
expect_empty() {
    [ -z "$(ls -A "$1")" ] || fail "$1 is not empty"
}

mkdir "$work/old" "$work/new"
cp "$examples"/{body,popis,prach}.txt "$work/old"
files "$work/old"
old=("${names[@]}")
files "$work/new"
new=("${names[@]}")
# With the paths of these files in their headers, as a save of the window leaves them.
run 0 renumber "${old[@]}" --from 1 --start 999 --force
run 0 renumber "${old[@]}" --from 999 --start 1 --force
sha256sum "${old[@]}" >"$work/sums"

# --- diff
run 0 diff "${old[@]}" "${old[@]}"
[ ! -s "$work/out" ] || fail "a difference of equal sets"
run 0 diff "${old[@]:0:2}" "${old[@]:0:2}"
run 0 diff --old "${old[@]}" --new "${old[@]}"
run 1 diff "${old[@]}" + "${old[@]:0:2}"
says out "prach: soubor má jen jedna strana"
run 0 diff --without-dust "${old[@]}" + "${old[@]:0:2}"
run 2 diff "${old[@]}" "${old[@]:0:2}"
says err "Uveďte 2 a 2 nebo 3 a 3 soubory"
run 2 diff "${old[@]}"
run 2 diff --old "${old[@]}"
sed 's/, 0\.16, 32, /, 0.17, 32, /' "$work/old/popis.txt" >"$work/new/popis.txt"
run 1 diff "${old[@]}" "$work/old/body.txt" "$work/new/popis.txt" "$work/old/prach.txt"
says out "    M_g_s: 0.16 -> 0.17"
[ "$(grep -c -- '->' "$work/out")" -eq 4 ] || fail "more than one value and three sums"
run 1 diff --json "${old[@]}" "$work/old/body.txt" "$work/new/popis.txt" "$work/old/prach.txt"
says out '"old": 0.16'

# --- extract and merge
fresh
mkdir "$work/a" "$work/b"
files "$work/a"
a=("${names[@]}")
files "$work/b"
b=("${names[@]}")
run 0 extract "${old[@]}" --numbers 1-203 -o "${a[@]}"
says out "Zapsané zdroje: 7"
run 0 extract "${old[@]}" --numbers 1-203 --invert -o "${b[@]}"
says out "Zapsané zdroje: 9"
run 0 merge "${a[@]}" "${b[@]}" -o "${new[@]}"
run 0 diff "${old[@]}" "${new[@]}"
# The whole comes back byte by byte when it goes to the same place.
run 0 merge "${a[@]}" + "${b[@]}" --force -o "${old[@]}"
sha256sum --quiet -c "$work/sums" || fail "two halves do not make the whole"
run 1 extract "${old[@]}" --name "není tu" -o "$work/none" "$work/none2" "$work/none3"
[ ! -e "$work/none" ] || fail "an empty part was written"
run 2 extract "${old[@]}" -o "$work/none" "$work/none2" "$work/none3"
says err "Uveďte aspoň jednu podmínku"
for wrong in --numbers=5-1 --type=stack --bbox=1,2,3; do
    run 2 extract "${old[@]}" "$wrong" -o "$work/none" "$work/none2" "$work/none3"
done

fresh
sed 's/, 0\.16, 32, /, 0.17, 32, /' "${a[1]}" >"$work/other.txt"
run 2 merge "${a[@]}" + "${a[0]}" "$work/other.txt" "${a[2]}" -o "${new[@]}"
says err "${a[0]}:5: zdroj 1 je v dřívějším soupisu jiný (${a[0]}:5)"
! grep -q "5)," "$work/err" || fail "something was done with a conflict"
expect_empty "$work/new"
run 0 merge "${a[@]}" + "${a[0]}" "$work/other.txt" "${a[2]}" --on-conflict keep -o "${new[@]}"
says err "zdroj 1 je v dřívějším soupisu jiný (${a[0]}:5), zůstává dřívější"
run 0 diff "${a[@]}" "${new[@]}"
fresh
run 0 merge "${a[@]}" + "${a[0]}" "$work/other.txt" "${a[2]}" --on-conflict replace -o "${new[@]}"
says err "zdroj 1 je v dřívějším soupisu jiný (${a[0]}:5), nahradil jej"
run 0 diff "${a[0]}" "$work/other.txt" "${a[2]}" "${new[@]}"
fresh
run 0 merge "${a[@]}" + "${a[0]}" "$work/other.txt" "${a[2]}" --on-conflict renumber -o "${new[@]}"
says err "zdroj 1 je v dřívějším soupisu jiný (${a[0]}:5), dostal číslo 204"
grep -q '^000000204,1800,' "$work/new/prach.txt" || fail "the dust does not go with its source"
fresh
# Two sources of one number are no conflict of their own, and none goes for which nothing comes.
mkdir "$work/twins"
files "$work/twins"
printf '%s\r\n' '000000001, 1, 2, 3, 1, 0, 0 ;Prvni' '000000001, 1, 2, 3, 2, 0, 0 ;Druhy' >"${names[0]}"
printf '000000001, 0.5, 30, 3, 100, 1, 8, 0.8, 24, 0\r\n' >"${names[1]}"
grep Prvni "${names[0]}" >"$work/one.txt"
run 0 merge "${names[@]:0:2}" + "$work/one.txt" "${names[1]}" --on-conflict replace -o "${new[@]:0:2}"
says out "Zapsané zdroje: 2"
grep -q Druhy "${new[0]}" || fail "a source vanished"

fresh
# Dust that comes into being is told.
run 0 extract "${b[@]}" --numbers 1- --without-dust -o "$work/b/bare.txt" "$work/b/bare2.txt"
run 1 merge "${a[@]}" + "$work/b/bare.txt" "$work/b/bare2.txt" -o "${new[@]}"
says err "$work/b/bare.txt: soupis nemá soubor s prachem, pro jeho zdroje platí 0,0,0"
fresh
run 0 merge "${a[@]}" + "$work/b/bare.txt" "$work/b/bare2.txt" --without-dust -o "${new[@]:0:2}"
fresh
# What is refused is told to programs as well.
run 2 --json merge "${a[@]}" + "${a[0]}" "$work/other.txt" "${a[2]}" -o "${new[@]}"
says out '"outcome": "refused"'
says out '"error": "Soupisy mají táž čísla;'

# --- renumber
fresh
run 0 renumber "${old[@]}" --from 201-212 --start 301 -o "${new[@]}"
for name in "${new[@]}"; do
    grep -q '^000000312' "$name" || fail "not renumbered: $name"
    ! grep -q '^0000002' "$name" || fail "an old number in $name"
done
fresh
run 2 renumber "${old[@]}" --from 201-212 --start 92 -o "${new[@]}"
says err "zdroj 210: číslo 101 už má jiný zdroj"
run 2 --json renumber "${old[@]}" --from 201-212 --start 92 -o "${new[@]}"
says out '"clashes"'
run 2 renumber "${old[@]}" --start 999999990 -o "${new[@]}"
says err "999999999"
run 2 renumber "${old[@]}" --start 1x -o "${new[@]}"
run 2 renumber "${old[@]}" --start 1 --step 0 -o "${new[@]}"
run 2 renumber "${old[@]}" --start 1
says err "Uveďte --output, nebo --force"
run 0 renumber "${old[@]}" --from 1 --start 1 --force
says out "Čísla zůstávají, jak jsou; nic se nezapsalo."
sha256sum --quiet -c "$work/sums" || fail "written though every number stayed"
run 1 renumber "${old[@]}" --from 900- --start 1 -o "${new[@]}"
says err "Žádný zdroj nemá uvedené číslo"
expect_empty "$work/new"

# --- writing only where it is allowed
run 2 extract "${old[@]}" --numbers 1 -o "${a[@]}"
says err "${a[0]}: už existuje"
run 2 extract "${old[@]}" --numbers 1 -o "${new[@]:0:2}"
says err "--without-dust"
run 2 extract "${old[@]:0:2}" --numbers 1 --without-dust -o "${new[@]}"
says err "Třetí výstupní soubor je navíc"
run 2 extract "${old[@]}" --numbers 1 --force -o "$work/new/b" "$work/new/p" "${old[0]}"
says err "přepsal vstup jiného druhu"
run 0 extract "${old[@]}" --numbers 1 --without-dust -o "${new[@]:0:2}"
fresh
for lost in missing-dust short-records; do
    run 0 extract "$golden/$lost/expected"/{body,popis,prach}.txt --numbers 1- -o "${new[@]}"
    fresh
done
printf '000000999, 1\r\n' | cat "$examples/popis.txt" - >"$work/more.txt"
run 2 extract "${old[0]}" "$work/more.txt" "${old[2]}" --numbers 1 -o "${new[@]}"
says err "záznam 000000999 nepatří žádnému zdroji"
expect_empty "$work/new"
run 1 extract "${old[0]}" "$work/more.txt" "${old[2]}" --numbers 1 --accept-losses -o "${new[@]}"
fresh
run 1 diff "${old[0]}" "$work/more.txt" "${old[2]}" "${old[@]}"
# Dust behind a number of ten characters would shift.
run 2 extract "$golden/negative-numbers/input"/{body,popis,prach}.txt --numbers=-10- -o "${new[@]}"
says err 'prach.txt:1: záznam -000000007, prach: „1800,1“ by se zapsalo jako „,1800,1“'
expect_empty "$work/new"

# --- export and import: the same bytes back
fresh
run 0 export "${old[@]}" --csv "$work/new/z.csv"
run 2 export "${old[@]}" --csv "$work/new/z.csv"
says err "z.csvt: už existuje"
run 0 import --csv "$work/new/z.csv" "${old[@]}" --force
sha256sum --quiet -c "$work/sums" || fail "CSV does not bring back the same bytes"
run 2 import --csv "$work/new/z.csv" "${old[@]}"
run 2 import --csv "$work/new/z.csv" "${new[@]:0:2}"
says err "--without-dust"
sed -i 's/641889/64188a/' "$work/new/z.csv"
run 1 import --csv "$work/new/z.csv" "${new[@]}"
says out "z.csv:9:113: X2el_m: není číslo s desetinnou tečkou ("
says out "Nálezy: 3"
run 1 import --json --csv "$work/new/z.csv" "${new[@]}"
says out '"line": 9'
[ ! -e "${new[0]}" ] || fail "written in spite of findings"
# Not over the inventory that is exported.
for into in "--csv ${old[0]}" "--geojson ${old[2]} --crs EPSG:5514"; do
    # shellcheck disable=SC2086  # an option with its value
    run 2 export "${old[@]}" $into --force
    says err "Výstup by přepsal vstup jiného druhu: "
done
ln -s "${old[1]}" "$work/z.csvt"
run 2 export "${old[@]}" --csv "$work/z.csv" --force
says err "Výstup by přepsal vstup jiného druhu: $work/z.csvt"
sha256sum --quiet -c "$work/sums" || fail "an export replaced its input"
run 2 import --csv "$work/none.csv" "${new[@]}"
run 2 export "${old[@]}"
for wrong in 5514 EPSG:0 EPSG:000; do
    run 2 export "${old[@]}" --geojson "$work/new/z.json" --crs "$wrong"
done
run 2 export "${old[@]}" --csv "$work/new/y.csv" --crs EPSG:5514
run 2 export "${old[@]}" --geojson "$work/new/z.json"
says err "Ke --geojson uveďte --crs"
[ ! -e "$work/new/z.json" ] || fail "GeoJSON of no system was written"
run 0 export "${old[@]}" --csv "$work/new/y.csv"
run 0 export "${old[@]}" --csv -
cmp -s "$work/out" "$work/new/y.csv" || fail "not the table on the standard output"
run 0 export --geojson - "${old[@]}" --crs EPSG:5514 --csv "$work/new/x.csv"
says out '"FeatureCollection"'
[ -e "$work/new/x.csvt" ] || fail "only one of two outputs was written"
run 2 export --json "${old[@]}" --csv -
says err "Na standardní výstup jde jen jedno"

# --- calc
run 0 calc vs "${old[@]}" --dry-run
says out "Vypočteno: 3, změněno: 0, nelze: 0"
run 0 calc vs "${old[@]}" --pressure 98000 --dry-run
says out "1 Vs_m3_s: 3.119339 -> 3.016977"
run 0 calc vs "${old[@]}" --pressure 98000 --dry-run --json
says out '"new": 3.016977'
sha256sum --quiet -c "$work/sums" || fail "a dry run wrote"
run 2 calc vs "${old[@]}"
for wrong in 0 -1 x 1e39 1013.25 9999 200001 nan ''; do
    run 2 calc vs "${old[@]}" --dry-run "--pressure=$wrong"
done
run 2 calc q "${old[@]}" --dry-run
fresh
sed 's/, 0\.8, 9\.5, 0\.45, /, 0.8, 0, 0.45, /' "${old[1]}" >"$work/still.txt"
run 1 calc d "${old[0]}" "$work/still.txt" "${old[2]}" -o "${new[@]}"
says err "zdroj 1: w0_m_s je 0, nelze jím dělit"
says out "Vypočteno: 2, změněno: 0, nelze: 1"
grep -q '^000000001, 0.16, 32, 3.119339, 145, 0.8, 0, ' "${new[1]}" || fail "the source was changed"
run 1 --lang en calc d "${old[0]}" "$work/still.txt" "${old[2]}" --dry-run
says err "source 1: w0_m_s is 0, there is no dividing by it"
fresh
run 0 calc vs "${old[0]}" "$work/still.txt" "${old[2]}" -o "${new[@]}"
says out "1 Vs_m3_s: 3.119339 -> 0"
run 1 calc vs "${old[@]}" --numbers 900 --dry-run
says err "Žádný zdroj k výpočtu"
fresh
sed 's/, 145, 0\.8, /, -273.15, 0.8, /' "${old[1]}" >"$work/cold.txt"
run 1 calc vs "${old[0]}" "$work/cold.txt" "${old[2]}" --numbers 1 -o "${new[@]}"
says err "zdroj 1: ts_C je -273.15, musí být větší než -273.15"
expect_empty "$work/new"

# --- in place, and back again
find "$work/state" | sort >"$work/copies"
run 0 calc vs "${old[@]}" --force
says out "Nic se nezapsalo."
sha256sum --quiet -c "$work/sums" || fail "written though nothing changed"
find "$work/state" | sort | cmp -s - "$work/copies" || fail "a copy though nothing changed"
run 0 calc vs "${old[@]}" --pressure 98000 --force
! sha256sum --status -c "$work/sums" || fail "nothing was written in place"
run 0 restore
says out "${old[1]}  $(stat -c %s "$work/still.txt" | awk '{print $1 + 2}') B"
run 2 restore latest
says err "už existuje"
run 0 restore latest --force
sha256sum --quiet -c "$work/sums" || fail "the safety copy did not come back"
run 0 restore latest --force
! sha256sum --status -c "$work/sums" || fail "what restore replaced was not kept"
run 2 restore 2000-01-01_00-00-00_00
for day in 01 02 03 04 05 06 07 08 09 10; do
    mkdir "$work/state/korvexzdr/2000-01-${day}_00-00-00_00"
    touch "$work/state/korvexzdr/2000-01-${day}_00-00-00_00/odkud.txt"
done
run 0 restore latest --force
says err "Nejstarší kopie ustoupila nové: 2000-01-01_00-00-00_00"
run 0 restore latest --force
run 2 restore ""
says err 'Taková kopie není: „“'
mkdir "$work/state/korvexzdr/2999-01-01_00-00-00_00"
run 0 restore
says err "2999-01-01_00-00-00_00/odkud.txt: kopii nelze číst, přeskočila se"
run 2 restore latest --force
says err "Poslední kopii nelze číst"
rmdir "$work/state/korvexzdr/2999-01-01_00-00-00_00"
mkdir "$work/gone"
cp "${old[@]}" "$work/gone"
files "$work/gone"
run 0 renumber "${names[@]}" --start 1 --force
rm -r "$work/gone"
run 2 restore latest
says err "Složka, kam se má vrátit, chybí: $work/gone"
run 0 restore --json
says out '"isThere": true'

# --- what loading reads leniently is not lost in silence
# refuses TEXT FILE SCRIPT: with the file of the inventory edited so, every command that writes refuses and says it.
refuses() {
    local text=$1 file=$2 script=$3
    rm -rf "$work/odd"
    mkdir "$work/odd"
    cp "${old[@]}" "$work/odd"
    sed -i "$script" "$work/odd/$file"
    files "$work/odd"
    for command in "extract --numbers 1-" "renumber --start 1" "calc vs" merge; do
        local before=("${names[@]}")
        [ "$command" = merge ] && before+=(+ "${a[@]}")
        # shellcheck disable=SC2086  # a command with its options
        run 2 $command "${before[@]}" -o "${new[@]}"
        says err "$text"
    done
    run 2 export "${names[@]}" --csv "$work/new/z.csv"
    says err "$text"
    run 2 --json export "${names[@]}" --csv "$work/new/z.csv"
    says out '"findings": ['
    says out '"error": "Uvedené údaje by se ztratily'
    expect_empty "$work/new"
    run 1 extract --numbers 1- "${names[@]}" --accept-losses -o "${new[@]}"
    says err "$text"
    fresh
}
fresh
refuses 'popis.txt:5: záznam 000000001, pole 2: „0.1600000001“ by se zapsalo jako „0.16“' popis.txt 's/, 0\.16, /, 0.1600000001, /'
refuses 'popis.txt:5: záznam 000000001, pole 11: navíc je „0“' popis.txt 's/, 0\.16, /, 0,16, /'
refuses 'popis.txt:5: záznam 000000001, pole 3: „32 m“ by se zapsalo jako „32“' popis.txt 's/, 32, /, 32 m, /'
refuses 'body.txt:5: záznam 000000001, název: „' body.txt '5s/$/; záložní/'
refuses 'prach.txt:5: záznam 1, prach: „' prach.txt '5s/^0*//'
# shellcheck disable=SC2016  # the last line, not a variable
refuses 'poznámka „ruční úprava“ by se ztratila' prach.txt '$s/$/\n; ru\xe8n\xed \xfaprava/'
# Only what the command itself writes counts.
cp "${old[@]}" "$work/odd"
sed -i '5s/^\([^,]*,[^,]*,[^,]*,[^,]*\)/\10001/' "$work/odd/popis.txt"
files "$work/odd"
run 2 extract --type point "${names[@]}" -o "${new[@]}"
run 0 extract --type line "${names[@]}" -o "${new[@]}"
fresh
run 0 calc vs "${names[@]}" -o "${new[@]}"
fresh
run 2 calc d "${names[@]}" -o "${new[@]}"
expect_empty "$work/new"
run 0 calc d "${names[@]}" --dry-run
run 0 stat "${names[@]}"
sed -i 's/^000000001/1/' "$work/odd/prach.txt"
cp "${old[1]}" "$work/odd/popis.txt"
run 2 extract --numbers 1- "${names[@]}" -o "${new[@]}"
run 0 extract --numbers 1- --without-dust "${names[@]}" -o "${new[@]:0:2}"
fresh

# --- a dust file that the headers name is not left behind in silence
for command in "renumber --start 1" "calc vs --pressure 98000" "extract --numbers 1-"; do
    # shellcheck disable=SC2086  # a command with its options
    run 2 $command "${old[@]:0:2}" --force -o "${old[@]:0:2}"
    says err "${old[0]}:4: k soupisu patří soubor s prachem, který nebyl uveden: ${old[2]}"
    [ "$(grep -c 'nebyl uveden' "$work/err")" -eq 1 ] || fail "said twice"
done
run 0 extract --numbers 1- "${old[@]:0:2}" --without-dust -o "${new[@]:0:2}"
run 0 renumber --start 1 "${new[@]:0:2}" --force
run 1 extract --numbers 1- "${old[@]:0:2}" --accept-losses --force -o "${new[@]:0:2}"
run 0 export "${old[@]:0:2}" --csv "$work/new/z.csv"
fresh

# --- UTF-8 is not taken for the code page
iconv -f WINDOWS-1250 -t UTF-8 "${old[0]}" >"$work/odd/body.txt"
for command in stat "diff ${old[*]}" "export --csv $work/new/z.csv" "calc vs --dry-run" \
    "extract --numbers 1 -o ${new[*]}"; do
    # shellcheck disable=SC2086  # a command with its options
    run 2 $command "$work/odd/body.txt" "${old[@]:1}"
    says err "body.txt:1: text je v UTF-8"
done
printf '\xEF\xBB\xBF' | cat - "${old[1]}" >"$work/odd/popis.txt"
run 2 stat "${old[0]}" "$work/odd/popis.txt"
says err "popis.txt:1: text je v UTF-8"
expect_empty "$work/new"
run 1 extract --numbers 1 --accept-losses "$work/odd/body.txt" "${old[@]:1}" -o "${new[@]}"
says err "body.txt:1: text je v UTF-8"
fresh

# --- the files to write may stand in front of the others
run 0 extract -o "${new[@]}" "${old[@]}" --numbers 1-
sha256sum "${new[@]}" >"$work/front"
fresh
run 0 extract --numbers 1- "${old[@]}" -o "${new[@]}"
sha256sum --quiet -c "$work/front" || fail "other files when --output stands in front"
fresh
run 0 extract --type line --without-dust -o "${new[@]:0:2}" "${old[@]}"
fresh
run 0 renumber -o "${new[@]:0:2}" "${old[@]:0:2}" --start 1 --without-dust
fresh
run 0 calc xy -o "${new[@]}" "${old[@]}"
fresh
run 0 merge -o "${new[@]}" "${a[@]}" + "${b[@]}" --sort
fresh
run 2 extract --type line -o "${new[@]:0:2}" "${old[@]}"
says err "Za --output mají stát 2 soubory, s prachem 3"
run 2 extract --type line "${old[@]}" -o "${new[@]}" "$work/other.txt"
says err "příliš mnoho souborů"
run 2 extract --type line -o "${new[@]}"
expect_empty "$work/new"

# --- stat says when it did not count all
sed '5s/, 1, 1, 1 ;/, 7, 1, 1 ;/' "${old[0]}" >"$work/odd/body.txt"
run 1 stat "$work/odd/body.txt" "${old[1]}"
says err "body.txt:5: zdroj 1 je neznámého typu a nečte se"
says out "Nezapočteno, bez popisu nebo neznámého typu: 1"
run 0 stat "${old[@]}"

# --- nothing is replaced without a copy
sha256sum "${new[@]}" "${old[@]}" >"$work/now" 2>/dev/null || true
echo file >"$work/no-folder"
for command in "renumber --start 1 ${old[*]}" "calc vs --pressure 99000 ${old[*]}" \
    "extract --numbers 1 ${old[*]} -o ${old[*]}" "export ${old[*]} --csv $work/other.txt"; do
    # shellcheck disable=SC2086  # a command with its options
    XDG_STATE_HOME=$work/no-folder run 2 $command --force
    says err "$work/no-folder/korvexzdr: Přepisované soubory nelze předem zkopírovat; nic se nezapsalo."
done
# shellcheck disable=SC2086
XDG_STATE_HOME=$work/no-folder run 2 --lang en renumber --start 1 "${old[@]}" --force
says err "The files to be replaced cannot be copied first; nothing was written."
sha256sum --quiet -c "$work/now" || fail "written without a copy"
[ ! -e "$work/other.csvt" ] || fail "a new file was left behind"
XDG_STATE_HOME=$work/no-folder run 0 extract --numbers 1 "${old[@]}" -o "${new[@]}"
fresh

# --- the system's errors in the language asked for
run 2 --lang en stat "$work/none" "${old[1]}"
says err "$work/none: The file or folder does not exist."
run 2 stat "$work/none" "${old[1]}"
says err "$work/none: Soubor nebo složka neexistuje."

# --- nothing can be written
run 2 extract "${old[@]}" --numbers 1 -o "$work/no/b" "$work/no/p" "$work/no/d"
if "$program" stat "${old[@]}" >/dev/full 2>"$work/err"; then
    fail "a full disk went unnoticed"
fi

fresh
if "$program" renumber "${old[@]}" --start 1 -o "${new[@]}" >/dev/full 2>"$work/err"; then
    fail "a full disk went unnoticed"
fi
says err "Výstup nelze zapsat; soubory se zapsaly."
fresh

# --- every command explains itself in both languages, with an example
for command in diff merge extract renumber export import calc restore; do
    run 0 "$command" --help
    says out "korvexzdr-cli $command "
    says out "Příklad"
    run 0 "$command" --help --lang en
    says out "Example"
    ! grep -q '[ěščřžýáíéůú]' "$work/out" || fail "Czech in the English help of $command"
done

[ "$failures" -eq 0 ] || exit 1
