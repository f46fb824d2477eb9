#!/usr/bin/env bash
# What a screen reader is told while somebody goes through the source list by keys: the type, number and name of the
# current row, and whether it is marked.
# screen_reader.sh PROGRAM SCREEN_READER EXAMPLES

here=$(dirname -- "$(readlink -f -- "$0")")
. "$here/real_window.sh"

[ $# -eq 3 ] || fail "usage: screen_reader.sh PROGRAM SCREEN_READER EXAMPLES"
program=$1
reader=$2
examples=$3

readonly main_title='KORVEXv2001 - Zdroje'
heard=$work/heard.txt

# A session bus of our own: the registry of assistive technology is started on it, and ends with it.
start_bus() {
    dbus-daemon --session --nofork --print-address=4 --address="unix:path=$work/bus" 4>"$work/bus-address" \
        >"$work/bus.txt" 2>&1 &
    started+=($!)
    wait_until "the session bus" has_text "$work/bus-address"
    DBUS_SESSION_BUS_ADDRESS=$(<"$work/bus-address")
    export DBUS_SESSION_BUS_ADDRESS QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
}

start_reader() {
    mkfifo "$work/reader-input"
    LC_ALL=C.UTF-8 "$reader" <"$work/reader-input" >>"$heard" 2>"$work/reader-err.txt" &
    started+=($!)
    exec 5>"$work/reader-input"
    wait_until "the screen reader" grep -qx listening "$heard"
}

was_heard() {
    grep -qxF -- "$1" "$heard"
}

# expect_to_hear KEY LINE…: the key makes the screen reader hear each of the lines.
expect_to_hear() {
    local key=$1 line
    shift
    : >"$heard"
    press "$key"
    for line in "$@"; do
        wait_until "\"$line\" after $key" was_heard "$line"
    done
}

start_display
start_bus
start_reader
start_editor "$examples/body.txt" "$examples/popis.txt" "$examples/prach.txt"
wait_for_window "$main_title"
wait_until "the list" was_heard "focus: Seznam zdrojů | "

readonly kiln='Bodový zdroj, 000000002 | Cihelna Pod Hůrkou, tunelová pec č. 1'
expect_to_hear Down "focus: $kiln" "selected: $kiln"
expect_to_hear ctrl+space "unselected: $kiln"
expect_to_hear ctrl+space "selected: $kiln"
# Another control, and back: the row is told again, not only the list.
expect_to_hear Tab 'focus: Komentář (je uložen v hlavičce datového souboru) | '
expect_to_hear shift+Tab "focus: $kiln"
# An editor begins in the name, and its field is told by its label and by what the tool tip says.
expect_to_hear Return 'focus: Název zdroje | Orientační název zdroje'
expect_to_hear Escape "focus: $kiln"
