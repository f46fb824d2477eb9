# A display of its own with a window manager, the program in it, and waiting for conditions; for the end-to-end tests.
# Sourced by a script that sets here (its folder) and program. Everything it starts ends with the script.
# shellcheck shell=bash disable=SC2154

set -euo pipefail

# Where everything of one run lies: the inventory, the program's folders, what was printed.
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-e2e.XXXXXX")
started=()
editor=

end_everything() {
    local status=$? pid
    trap - EXIT
    for pid in $editor "${started[@]}"; do
        kill "$pid" 2>"$work/kill.txt" || true
    done
    wait
    rm -rf -- "$work"
    exit "$status"
}
trap end_everything EXIT
trap 'exit 1' HUP INT TERM

fail() {
    echo "FAILED: $*" >&2
    local file
    for file in "$work"/*.txt; do
        if [ -s "$file" ]; then
            echo "--- $(basename -- "$file")" >&2
            head -n 20 -- "$file" >&2
        fi
    done
    exit 1
}

readonly deadline_seconds=20

# wait_until WHAT COMMAND…: the command succeeds before the deadline.
wait_until() {
    local what=$1 end=$((SECONDS + deadline_seconds))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "waited in vain: $what"
        sleep 0.02
    done
}

has_text() {
    [ -s "$1" ]
}

manager_answers() {
    xdotool get_num_desktops >"$work/desktops.txt" 2>&1
}

start_display() {
    # The server itself looks for a free number: tests beside this one have theirs.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$work/display" >"$work/xvfb.txt" 2>&1 &
    started+=($!)
    wait_until "the display" has_text "$work/display"
    DISPLAY=:$(<"$work/display")
    export DISPLAY
    # No session bus: what a desktop would start on it is nobody's to end.
    export DBUS_SESSION_BUS_ADDRESS=unix:path=$work/no-bus
    export HOME=$work/home XDG_CONFIG_HOME=$work/config XDG_STATE_HOME=$work/state XDG_CACHE_HOME=$work/cache
    export XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=xcb
    unset WAYLAND_DISPLAY SESSION_MANAGER XMODIFIERS QT_IM_MODULE QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME \
        QT_SCALE_FACTOR QT_FONT_DPI XDG_CURRENT_DESKTOP DESKTOP_SESSION
    mkdir -m 700 "$HOME" "$XDG_RUNTIME_DIR"
    openbox --sm-disable --config-file "$here/openbox.xml" >"$work/openbox.txt" 2>&1 &
    started+=($!)
    wait_until "the window manager" manager_answers
}

# start_editor ARGUMENTS…
start_editor() {
    "$program" "$@" >"$work/editor-out.txt" 2>"$work/editor-err.txt" &
    editor=$!
}

is_active() {
    [ "$(xdotool getactivewindow getwindowname 2>"$work/xdotool.txt")" = "$1" ]
}

# wait_for_window TITLE: it is there and takes the keys.
wait_for_window() {
    wait_until "the window \"$1\"" is_active "$1"
}

# press KEYS…: one after the other, to the window that takes them.
press() {
    xdotool key --delay 5 "$@"
}

editor_has_ended() {
    local running
    running=$(jobs -rp)
    ! grep -qx -- "$editor" <<<"$running"
}

wait_for_end() {
    wait_until "the end of the program" editor_has_ended
    local status=0
    wait "$editor" || status=$?
    editor=
    [ "$status" -eq 0 ] || fail "the program ended with $status"
    # Under LC_ALL=C the toolkit says at its start, on five lines, that it takes UTF-8 instead.
    local complaints
    complaints=$(sed '/^Detected locale "C"/,/^to a different locale/d' "$work/editor-err.txt")
    [ -z "$complaints" ] || fail "the program complained"
}

# expect_same EXPECTED FOUND
expect_same() {
    cmp -- "$1" "$2" || fail "$(basename -- "$2") is not as expected"
}
