#!/usr/bin/env bash
# An editing run in a real window, by keyboard alone: a new stack with its dust, and a dust group; files compared as
# bytes.
# editing_run.sh SCENARIO PROGRAM PICTURES

here=$(dirname -- "$(readlink -f -- "$0")")
. "$here/real_window.sh"

[ $# -eq 3 ] || fail "usage: editing_run.sh SCENARIO PROGRAM PICTURES"
scenario=$1
program=$2
pictures=$3

readonly main_title='KORVEXv2001 - Zdroje'
readonly files=$work/files
mkdir "$files" "$work/expected"

take_picture() {
    mkdir -p -- "$pictures"
    import -silent -window root "$pictures/$1.png"
    [ -s "$pictures/$1.png" ] || fail "no picture of $1"
}

type_text() {
    xdotool type --delay 5 -- "$1"
}

# type_fields TEXT…: into one field after the other; "-" leaves a field as it is.
type_fields() {
    local text
    for text in "$@"; do
        [ "$text" = - ] || type_text "$text"
        press Tab
    done
}

# Dust work is switched off when the program is new.
switch_dust_on() {
    mkdir -p "$XDG_CONFIG_HOME/korvexzdr"
    printf '[Ostatni]\nNoPrach=0\n' >"$XDG_CONFIG_HOME/korvexzdr/korvexzdr.ini"
}

# The toolkit knows the locale also where the system does not.
start_editor_in() {
    env LC_ALL="$1" "$program" >"$work/editor-out.txt" 2>"$work/editor-err.txt" &
    editor=$!
}

file_is_there() {
    [ -s "$1" ]
}

# new_stack COMMA: numbers are typed with the decimal point of the user's locale.
new_stack() {
    press ctrl+1
    wait_for_window 'Bodový zdroj'
    type_fields Kotelna 3 4 123 -456 250
    take_picture "$scenario-description"
    press ctrl+Next
    type_fields "1$1""5" 40 - 150 1 10 "0$1""5" 8
    # The first button behind the fields computes Vs.
    press space
    take_picture "$scenario-parameters"
    press ctrl+Next
    type_fields 2500 - - -
    type_fields 10
    type_text "0$1""6"
    press Return
    type_fields 50
    type_text "0$1""4"
    press Return
    take_picture "$scenario-dust"
    press alt+o
    wait_for_window "$main_title"
}

save_all() {
    press Tab
    type_text 'Zkouska'
    press shift+Tab alt+z Down Return
    wait_for_window 'Uložení seznamu zdrojů'
    # The dust file is not used at first: the inventory has no name for one yet.
    press alt+n
    press alt+b
    type_text "$files/body.txt"
    press alt+i
    type_text "$files/popis.txt"
    press alt+a
    type_text "$files/prach.txt"
    press Return
    wait_for_window "$main_title"
    wait_until 'the dust file' file_is_there "$files/prach.txt"
}

expect_stack_saved() {
    printf '%s\r\n' ';Zkouska' ';SOUBOR S BODY' ";Soubor s popisem: $files/popis.txt" \
        ";Soubor s prachem: $files/prach.txt" \
        '000050001, 0000123, -0000456, 0250, 1, 3, 4 ;Kotelna' >"$work/expected/body.txt"
    printf '%s\r\n' ';Zkouska' $';SOUBOR S POPISEM (bod\xf9)' ";Soubor s body: $files/body.txt" \
        ";Soubor s prachem: $files/prach.txt" \
        '000050001, 1.5, 40, 5.069869, 150, 1, 10, 0.5, 8, 0' >"$work/expected/popis.txt"
    printf '%s\r\n' ';Zkouska' ';SOUBOR S PRACHEM' ";Soubor s popisem: $files/popis.txt" \
        ";Soubor s body: $files/body.txt" \
        '000050001,2500,0,2,10,0.6,50,0.4' >"$work/expected/prach.txt"
    local name
    for name in body.txt popis.txt prach.txt; do
        expect_same "$work/expected/$name" "$files/$name"
    done
}

# Of two windows with one title the other one.
other_is_active() {
    local active
    active=$(xdotool getactivewindow 2>"$work/xdotool.txt") && [ "$active" != "$2" ] && is_active "$1"
}

# A second stack, typed and given up: nothing of it may reach the files, and nothing is left to ask about.
give_up_another_stack() {
    press ctrl+1
    wait_for_window 'Bodový zdroj'
    # The page of the dust was left last; the description follows it.
    press ctrl+Next
    type_fields Omyl 9
    local editor_window
    editor_window=$(xdotool getactivewindow)
    press Escape
    # The question has the title of the editor. Its second answer drops what was typed.
    wait_until 'the question' other_is_active 'Bodový zdroj' "$editor_window"
    take_picture "$scenario-escape"
    press alt+n
    wait_for_window "$main_title"
}

# Eight particles by keyboard: diameter, Tab, share, Enter, and again.
new_group() {
    press alt+s Down Return
    wait_for_window 'Skupiny prachu'
    # From the list of groups to the button that makes one.
    press Tab space
    type_text 'Popilek; jemny'
    # Behind the name and the particles, and behind the particle list.
    press Tab Tab
    local i
    for i in 1 2 3 4 5 6 7 8; do
        type_fields "$i$1""5"
        type_text "0$1""$i"
        press Return
    done
    take_picture "$scenario-editor"
    press alt+u
    wait_for_window 'Uložení skupin prachu'
    type_text "$files/a.spr"
    press Return
    wait_for_window 'Skupiny prachu'
    wait_until 'the groups file' file_is_there "$files/a.spr"
    press Escape
    wait_for_window "$main_title"
}

expect_group_saved() {
    # The semicolon is not taken: it would cut the name.
    printf '%s\r\n' ';' '1,8,1.5,0.1,2.5,0.2,3.5,0.3,4.5,0.4,5.5,0.5,6.5,0.6,7.5,0.7,8.5,0.8;Popilek jemny' \
        >"$work/expected/a.spr"
    expect_same "$work/expected/a.spr" "$files/a.spr"
}

start_display
switch_dust_on
case $scenario in
stack | stack-comma)
    comma=.
    locale=C
    if [ "$scenario" = stack-comma ]; then
        comma=,
        locale=cs_CZ.UTF-8
    fi
    # For the program alone: a shell complains when the system has no such locale.
    start_editor_in "$locale"
    wait_for_window "$main_title"
    new_stack "$comma"
    save_all
    expect_stack_saved
    give_up_another_stack
    press alt+F4
    wait_for_end
    expect_stack_saved
    ;;
groups)
    start_editor_in C
    wait_for_window "$main_title"
    new_group .
    press alt+F4
    wait_for_end
    expect_group_saved
    # It is the current file of the next run.
    grep -qxF "SouborSkupinPrachu=$files/a.spr" "$XDG_CONFIG_HOME/korvexzdr/korvexzdr.ini" || fail 'the file is not remembered'
    ;;
*)
    fail "no such scenario: $scenario"
    ;;
esac
