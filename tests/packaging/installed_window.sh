#!/usr/bin/env bash
# The installed program in a real window with the installed example, opened and closed.
# installed_window.sh ROOT PICTURES
# shellcheck source-path=SCRIPTDIR/../e2e

here=$(dirname -- "$(readlink -f -- "$0")")/../e2e
. "$here/real_window.sh"

[ $# -eq 2 ] || fail "usage: installed_window.sh ROOT PICTURES"
root=$1
pictures=$2
program=$root/usr/bin/korvexzdr
readonly main_title='KORVEXv2001 - Zdroje'
readonly examples=$root/usr/share/doc/korvexzdr/examples

files_as_they_are() {
    (cd -- "$root" && find . -type f -exec sha256sum {} + | sort)
}

before=$(files_as_they_are)
start_display
start_editor "$examples"/{body.txt,popis.txt,prach.txt,skupiny.spr}
wait_for_window "$main_title"

# By this the desktop finds the entry of a window: its name and its picture.
window_class=$(sed -n 's/^StartupWMClass=//p' "$root/usr/share/applications/korvexzdr.desktop")
[ -n "$window_class" ] || fail "the desktop entry names no window class"
xdotool search --onlyvisible --class "^$window_class\$" >"$work/class.txt" ||
    fail "no window has the class $window_class"
grep -qxF "$(xdotool getactivewindow)" "$work/class.txt" || fail "the window has another class than $window_class"

# A message about the files would have the keys, and outlive the window's closing.
press KP_Add
mkdir -p -- "$pictures"
import -silent -window root "$pictures/installed.png"
[ -s "$pictures/installed.png" ] || fail "no picture"
press alt+F4
wait_for_end
grep -qxF "LastPathFile%3A1=$examples/body.txt" "$XDG_CONFIG_HOME/korvexzdr/korvexzdr.ini" ||
    fail "the example was not taken"
[ "$(files_as_they_are)" = "$before" ] || fail "installed files were changed"
