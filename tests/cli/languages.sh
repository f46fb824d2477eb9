#!/usr/bin/env bash
# Help and complaints in one language each: what the Czech and the English text have in common are names only (commands,
# options, values, files, symbols), so nothing is left of the argument library's own English.
# usage: languages.sh PROGRAM
set -euo pipefail

program=$1
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
failures=0
fail() {
    echo "$*" >&2
    failures=$((failures + 1))
}

# Words that both languages may hold: names of values and rules, quantities, coordinate systems, formats, placeholders.
cat >"$work/names" <<'E2'
korvexzdr
cli
csv
csvt
geojson
json
wkt
epsg
fail
keep
replace
renumber
point
area
line
all
latest
import
export
restore
rewritten
same
place
mismatch
nonsense
alfa
text
argument
soupis
E2
# words FILE: the words of a text, without options, paths and what stands in quotation marks.
words() {
    sed -E -e 's/„[^“]*“//g' -e 's/"[^"]*"//g' -e 's/(^|[ ,(])--?[a-z][a-z-]*/ /g' -e 's|[a-z/]*[a-z]\.[a-z]+||g' "$1" |
        grep -oE '[[:alpha:]]{3,}' | sort -u
}
# compare WHAT…: the words of $work/cs and $work/en.
compare() {
    local shared
    # Letters are told by the locale, words are sorted by bytes.
    shared=$(LC_ALL=C.UTF-8 comm -12 <(LC_ALL=C.UTF-8 words "$work/cs") <(LC_ALL=C.UTF-8 words "$work/en") |
        LC_ALL=C.UTF-8 grep -vxiFf "$work/names" || true)
    [ -z "$shared" ] || fail "in both languages ($*): ${shared//$'\n'/ }"
    ! LC_ALL=C.UTF-8 words "$work/en" | grep -q '[ěščřžýáíéůúťďňĚŠČŘŽÝÁÍÉŮÚ]' || fail "Czech in English ($*)"
}

mapfile -t commands < <("$program" --help --lang en | LC_ALL=C sed -n '/^Commands:$/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "${#commands[@]}" -ge 10 ] || fail "the help lists ${#commands[@]} commands"
printf '%s\n' "${commands[@]}" >>"$work/names"
for command in '' "${commands[@]}"; do
    "$program" ${command:+"$command"} --help >"$work/cs"
    "$program" ${command:+"$command"} --help --lang en >"$work/en"
    compare "help of $command"
    ! grep -q '[{}]' "$work/cs" || fail "a check's own description in the help of $command"
done

# complains MESSAGE ARGUMENT…: the Czech message is this, and the English one has no word of it.
complains() {
    local message=$1 language status
    shift
    for language in cs en; do
        status=0
        "$program" --lang "$language" "$@" >/dev/null 2>"$work/$language" </dev/null || status=$?
        [ "$status" -eq 2 ] || fail "status $status: $*"
    done
    grep -qxF "korvexzdr-cli: $message" "$work/cs" || fail "not \"$message\" but: $(head -n 1 "$work/cs")"
    compare "$*"
}

complains 'Chybí příkaz.'
complains 'Neznámý příkaz: „nonsense“' nonsense
complains 'Neznámý příkaz: „nonsense“' nonsense a b --foo
complains 'Neznámá volba: „--foo“' --foo
complains 'Neznámá volba: „--foo“' stat a b --foo
complains 'Neznámá volba: „-x“' check a b -x
complains 'Neznámá volba: „--foo=1“' check a b --foo=1
complains 'Neznámá volba: „--force“' stat --force
complains 'Neznámý příkaz: „x“' -- x
complains 'Nadbytečný argument: „d“' stat -- a b c d
complains 'Nadbytečný argument: „d“' stat a b c d e
complains 'Chybí volba --csv.' import a b
complains 'Chybí argument POPIS.' stat a
complains 'Volba --csv: chybí hodnota.' import a b --csv
complains 'Volba --csv: má mít 1 hodnotu, má jich 2.' import --csv x --csv y a b
complains 'Volba --output: má mít nejméně 2 hodnoty, má jich 1.' merge a b + c d -o x
complains 'Za --output stojí příliš mnoho souborů.' merge a b + c d -o x y z w
complains 'Volba --pressure: nepřípustná hodnota „3“; přípustné je 10000 až 200000.' check a b --pressure 3
complains 'Volba --max: nepřípustná hodnota „x“; přípustné je nejméně 0.' check a b --max x
complains 'Volba --max: nepřípustná hodnota „-1“; přípustné je nejméně 0.' import --csv x a b --max -1
complains 'Pravidlo „zz“ není; všechna vypíše --explain all.' check a b --skip zz
complains 'Volba --on-conflict: nepřípustná hodnota „x“; přípustné jsou: fail, keep, replace, renumber.' \
    merge a b + c d --on-conflict x -o e f
complains 'Argument VELIČINA: nepřípustná hodnota „q“; přípustné jsou: vs, d, w0, xy.' calc q a b
complains 'Volba --force: zadává se bez hodnoty.' restore --force=ano
complains 'Volba --json: zadává se bez hodnoty.' --json=ano stat a b

# Known before the arguments are read, in either form.
for given in --lang=en '--lang en'; do
    read -ra words <<<"$given"
    "$program" "${words[@]}" --help | grep -q '^Usage: ' || fail "no English with $given"
done

# The language itself, which the complaint is in all the same.
status=0
"$program" --lang de stat a b >/dev/null 2>"$work/cs" || status=$?
[ "$status" -eq 2 ] || fail "status $status for an unknown language"
grep -qF 'Volba --lang: nepřípustná hodnota „de“; přípustné jsou: cs, en.' "$work/cs" || fail "$(cat "$work/cs")"
grep -qF 'Nápověda: korvexzdr-cli stat --help' "$work/cs" || fail "the help to look at is not named"

[ "$failures" -eq 0 ]
