#!/usr/bin/env bash
# A large inventory in a real window: opened, scrolled, marked, inverted, sorted, checked, cut down and saved; the files
# compared as bytes. Prints how long the window answered nobody in each step.
# large_inventory.sh COUNT PROGRAM MAKE_INVENTORY PICTURES
# PROGRAM is gaps_run: the editor with an object more that writes down its times.

here=$(dirname -- "$(readlink -f -- "$0")")
. "$here/real_window.sh"

[ $# -eq 4 ] || fail "usage: large_inventory.sh COUNT PROGRAM MAKE_INVENTORY PICTURES"
count=$1
program=$2
make_inventory=$3
pictures=$4

readonly main_title='KORVEXv2001 - Zdroje'
readonly inventory=$work/inventory
export KORVEX_EVENT_GAPS=$work/gaps

take_picture() {
    mkdir -p -- "$pictures"
    import -silent -window root "$pictures/$1.png"
    [ -s "$pictures/$1.png" ] || fail "no picture of $1"
}

# The window has done all it was given: what was pressed has had time to arrive, and then it answered again.
settle() {
    sleep 0.15
    local answers
    answers=$(wc -l <"$KORVEX_EVENT_GAPS")
    wait_until "an answer of the window" has_more_answers_than "$((answers + 2))"
}

has_more_answers_than() {
    [ "$(wc -l <"$KORVEX_EVENT_GAPS")" -gt "$1" ]
}

window_is_there() {
    xdotool search --onlyvisible --name "$main_title" >"$work/windows.txt" 2>&1
}

# step NAME KEYS…
step() {
    local name=$1
    shift
    : >"$KORVEX_EVENT_GAPS"
    [ $# -eq 0 ] || press "$@"
    settle
    report "$name"
}

report() {
    printf '%-28s longest without an answer: %5s ms\n' "$1" "$(sort -n "$KORVEX_EVENT_GAPS" | tail -n 1)"
}

# What the files hold once the area sources are gone: number, code and the rest are laid out as a save lays them out.
expect_without_areas() {
    LC_ALL=C awk -F', ' -v OFS=', ' '/^;/ || $5 != 2' "$inventory/body.txt" >"$work/expected/body.txt"
    local name
    for name in popis.txt prach.txt; do
        LC_ALL=C awk -F, 'NR == FNR { if (!/^;/) kept[$1] = 1; next } /^;/ || substr($0, 1, 9) in kept' \
            "$work/expected/body.txt" "$inventory/$name" >"$work/expected/$name"
    done
    # Headers tell where the files were saved.
    for name in body.txt popis.txt prach.txt; do
        LC_ALL=C sed -i "s|^\(;Soubor s [a-z]*: \)|\1$inventory/|" "$work/expected/$name"
        [ "$(wc -l <"$work/expected/$name")" -lt "$(wc -l <"$inventory/$name")" ] || fail "no area source in $name"
    done
}

files_are_replaced() {
    cmp -s -- "$work/expected/prach.txt" "$inventory/prach.txt"
}

mkdir "$work/expected"
"$make_inventory" "$count" "$inventory" >"$work/made.txt"
expect_without_areas
start_display
start_editor "$inventory/body.txt" "$inventory/popis.txt" "$inventory/prach.txt"
# The first thing to see is the inventory on its way in.
wait_until "the window" window_is_there
take_picture large-loading
wait_for_window "$main_title"
settle
report "open $count sources"
take_picture large-loaded

step "to the last source" End
step "a page up and down" Prior Prior Next Next
step "to the first source" Home
step "mark the line sources" alt+o l
step "mark the stacks" alt+o b
take_picture large-marked
step "invert" KP_Multiply
step "mark all" KP_Add
step "unmark all" KP_Subtract

# By a click on the headers of the columns; the list stands below the menu.
click_header() {
    : >"$KORVEX_EVENT_GAPS"
    xdotool mousemove --sync --window "$(xdotool getactivewindow)" "$1" 38 click 1
    settle
}
click_header 200
report "sort by name"
take_picture large-sorted
click_header 40
report "sort by number"

: >"$KORVEX_EVENT_GAPS"
press alt+v Up Return
wait_for_window 'Kontrola duplicit'
report "duplicate check"
take_picture large-duplicates
press Return
wait_for_window "$main_title"

press alt+o p
take_picture large-areas
step "delete the area sources" Delete
take_picture large-cut-down
: >"$KORVEX_EVENT_GAPS"
press alt+z Down Return
wait_for_window 'Uložení seznamu zdrojů'
press Return
wait_for_window "$main_title"
wait_until "the saved files" files_are_replaced
settle
report "save"
for name in body.txt popis.txt prach.txt; do
    expect_same "$work/expected/$name" "$inventory/$name"
done
press alt+F4
wait_for_end
