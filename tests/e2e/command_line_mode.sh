#!/usr/bin/env bash
# The editor of a calling program in a real window, worked by keyboard; its files compared as bytes.
# command_line_mode.sh SCENARIO PROGRAM EXAMPLES PICTURES

here=$(dirname -- "$(readlink -f -- "$0")")
. "$here/real_window.sh"

[ $# -eq 4 ] || fail "usage: command_line_mode.sh SCENARIO PROGRAM EXAMPLES PICTURES"
scenario=$1
program=$2
examples=$3
pictures=$4

readonly main_title='KORVEXv2001 - Zdroje'
readonly question_title='KORVEX'
readonly inventory=$work/inventory
readonly caller_ini=$work/caller.ini
# The second row of the example.
readonly deleted=000000002

lay_out_files() {
    mkdir "$inventory" "$work/expected"
    cp -- "$examples"/body.txt "$examples"/popis.txt "$examples"/prach.txt "$inventory/"
    # As the caller wrote it: other lines, CR LF, and the keys in letters of another case.
    local -r above=$'; volaj\355c\355 program\r\n[Jine]\r\nVstZdrojBodTxt=zustane\r\n\r\n[GLOBAL]\r\nJazyk=cs\r\n'
    local -r below=$'\r\n[Konec]\r\nx=1\r\n'
    printf '%svstzdrojbodtxt=%s\r\nVSTZDROJPOPTXT = %s\r\n%s' \
        "$above" stary.txt 'stary popis.txt' "$below" >"$caller_ini"
    printf '%svstzdrojbodtxt=%s\r\nVSTZDROJPOPTXT =%s\r\nVstZdrojPrachTxt=%s\r\n%s' \
        "$above" "$inventory/body.txt" "$inventory/popis.txt" "$inventory/prach.txt" "$below" \
        >"$work/expected/caller.ini"
    local name
    for name in body.txt popis.txt prach.txt; do
        LC_ALL=C sed -e "s|^\(;Soubor s [a-z]*: \)|\1$inventory/|" -e "/^${deleted}[,\r]/d" "$examples/$name" \
            >"$work/expected/$name"
        # One line less, and the paths longer: else nothing would be compared that a save changes.
        [ "$(wc -l <"$work/expected/$name")" -eq $(($(wc -l <"$examples/$name") - 1)) ] || fail "no line of $deleted in $name"
        ! cmp -s -- "$examples/$name" "$work/expected/$name" || fail "$name has no header with paths"
    done
    # A write within the same second would not show in the time of the last change.
    touch -d '2001-02-03 04:05:06' "$inventory"/* "$caller_ini"
}

# All that shows whether the user's files were touched: names, bytes, times, places on the disk.
files_as_they_are() {
    ls -A -- "$inventory"
    sha256sum -- "$inventory"/* "$caller_ini"
    stat -c '%n %s %Y %i %a' -- "$inventory"/* "$caller_ini"
}

take_picture() {
    mkdir -p -- "$pictures"
    import -silent -window root "$pictures/$1.png"
    [ -s "$pictures/$1.png" ] || fail "no picture of $1"
}

open_example() {
    start_editor "$inventory/body.txt" "$inventory/popis.txt" "$inventory/prach.txt" /s /ini "$caller_ini"
    wait_for_window "$main_title"
}

delete_second_row() {
    press Home Down Delete
}

# The window manager asks the window to close, behind the keys pressed before.
close_window() {
    press alt+F4
}

expect_saved() {
    local name copy
    for name in body.txt popis.txt prach.txt; do
        expect_same "$work/expected/$name" "$inventory/$name"
        for copy in "$XDG_STATE_HOME"/korvexzdr/*/?-"$name"; do
            expect_same "$examples/$name" "$copy"
        done
    done
    expect_same "$work/expected/caller.ini" "$caller_ini"
    [ "$(ls -A -- "$inventory" | wc -l)" -eq 3 ] || fail "the folder of the inventory has other files as well"
    [ "$(stat -c %i -- "$inventory"/* "$caller_ini")" = "$inodes_before" ] || fail "a file was put in another's place"
}

expect_untouched() {
    [ "$(files_as_they_are)" = "$before" ] || fail "the files were touched: $(diff <(echo "$before") <(files_as_they_are))"
    [ ! -e "$XDG_STATE_HOME" ] || fail "copies were made, though nothing was saved"
}

# What the run leaves behind for the next one.
expect_remembered() {
    local -r settings=$XDG_CONFIG_HOME/korvexzdr/korvexzdr.ini
    local line
    for line in "LastPathFile%3A1=$inventory/body.txt" "LastPathFile%3A3=$inventory/prach.txt" NoPrach=1; do
        grep -qxF -- "$line" "$settings" || fail "the settings have no line $line"
    done
}

lay_out_files
before=$(files_as_they_are)
inodes_before=$(stat -c %i -- "$inventory"/* "$caller_ini")
start_display
open_example
case $scenario in
yes)
    take_picture main-window
    delete_second_row
    close_window
    wait_for_window "$question_title"
    take_picture save-question
    press Return
    wait_for_end
    expect_saved
    ;;
no)
    delete_second_row
    close_window
    wait_for_window "$question_title"
    press alt+n
    wait_for_end
    expect_untouched
    ;;
unchanged)
    press Home Down End
    close_window
    # A question would keep the program from ending.
    wait_for_end
    expect_untouched
    ;;
escape)
    delete_second_row
    close_window
    wait_for_window "$question_title"
    # Had Escape answered No, or put the question off, the Enter behind it would save nothing.
    press Escape Escape Return
    wait_for_end
    expect_saved
    ;;
*)
    fail "no such scenario: $scenario"
    ;;
esac
expect_remembered
