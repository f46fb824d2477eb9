#!/usr/bin/env bash
# The help in a real window: F1 in the main window and over an open editor, which keeps what was typed.
# help_run.sh PROGRAM PICTURES

here=$(dirname -- "$(readlink -f -- "$0")")
. "$here/real_window.sh"

[ $# -eq 2 ] || fail "usage: help_run.sh PROGRAM PICTURES"
program=$1
pictures=$2

readonly main_title='KORVEXv2001 - Zdroje'
readonly help_title='Nápověda – KORVEXv2001 - Zdroje'
readonly files=$work/files
mkdir "$files"

take_picture() {
    mkdir -p -- "$pictures"
    import -silent -window root "$pictures/$1.png"
    [ -s "$pictures/$1.png" ] || fail "no picture of $1"
}

type_text() {
    xdotool type --delay 5 -- "$1"
}

# By their full titles: what a search by title compares is not Czech in the C locale.
windows_titled() {
    local id
    for id in $(xdotool search --onlyvisible --class korvexzdr 2>"$work/xdotool.txt"); do
        if [ "$(xdotool getwindowname "$id")" = "$1" ]; then
            echo "$id"
        fi
    done
}

count_titled() {
    windows_titled "$1" | wc -l
}

is_gone() {
    [ "$(count_titled "$1")" -eq 0 ]
}

# The picture of a window is another one than it was.
looks_changed() {
    import -silent -window "$1" "$work/now.png"
    ! cmp -s -- "$2" "$work/now.png"
}

# expect_change KEYS: they change what the window shows.
expect_change() {
    local window
    window=$(xdotool getactivewindow)
    import -silent -window "$window" "$work/before.png"
    press "$1"
    wait_until "a change by $1" looks_changed "$window" "$work/before.png"
}

file_is_there() {
    [ -s "$1" ]
}

start_display
# shellcheck disable=SC2119  # Without files.
start_editor
wait_for_window "$main_title"

# In the main window: the key opens the help, Escape closes it, the list has the keys again.
press F1
wait_for_window "$help_title"
take_picture help-main
press Escape
wait_for_window "$main_title"
is_gone "$help_title" || fail 'the help is still there'

# From an open menu, with the key held down: one window, and the menu is gone.
press alt+s
xdotool keydown F1
wait_for_window "$help_title"
expect_change Next
xdotool keyup F1
[ "$(count_titled "$help_title")" -eq 1 ] || fail 'more than one help'
press Escape
wait_for_window "$main_title"

# Over an editor, which is modal to the main window.
press ctrl+1
wait_for_window 'Bodový zdroj'
type_text 'Kotelna'
press F1
wait_for_window "$help_title"
expect_change Next
expect_change alt+Home
press ctrl+f
type_text 'komin'
press Return
take_picture help-search
# The first one ends the search.
expect_change Escape
press Escape
wait_for_window 'Bodový zdroj'
is_gone "$help_title" || fail 'the help is still there'
# A field that gets the focus has its text selected.
press End
type_text ' u reky'

# Left open it survives the editor, and the program ends in spite of it.
press F1
wait_for_window "$help_title"
xdotool windowactivate "$(windows_titled 'Bodový zdroj')"
wait_for_window 'Bodový zdroj'
press alt+o
wait_for_window "$main_title"
[ "$(count_titled "$help_title")" -eq 1 ] || fail 'the help went with the editor'

# The editor kept what was typed before and after.
press alt+z Down Return
wait_for_window 'Uložení seznamu zdrojů'
press alt+b
type_text "$files/body.txt"
press alt+i
type_text "$files/popis.txt"
press Return
wait_for_window "$main_title"
wait_until 'the description file' file_is_there "$files/popis.txt"
grep -q ';Kotelna u reky' "$files/body.txt" || fail 'the name is not as typed'

press alt+F4
wait_for_end
