#!/usr/bin/env bash
# Builds the program where that is needed and starts it with the arguments given; without any it opens the example.
# Where there is no display, the window opens on a virtual screen and build/korvexzdr.png shows what it looked like.
set -euo pipefail

top=$(dirname -- "$(readlink -f -- "$0")")
build=$top/build/release
program=$build/bin/korvexzdr
picture=$top/build/korvexzdr.png
log=$top/build/run-build.log

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}

build_program() {
    cd "$top"
    # A build folder that came along with a copied tree would go on building the tree it was made for.
    if [ ! -f "$build/build.ninja" ] || ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$top" "$build/CMakeCache.txt"; then
        cmake --fresh --preset release || return
    fi
    cmake --build --preset release --target korvexzdr
}

# What the picture run started and made, gone again whatever way the script ends.
clean_up() {
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    rm -rf -- "$scratch"
}

# wait_for SECONDS COMMAND…: until the command succeeds; fails when the time is up.
wait_for() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        [ $SECONDS -lt $deadline ] || return
        sleep 0.1
    done
}

# fail_with_log WORDS NAME: the words and the end of what the process of that name said.
fail_with_log() {
    fail "$1" "$(tail -n 20 -- "$scratch/$2.log")"
}

# Nobody need wait for the window of a program that has ended.
check_program() {
    kill -0 "$running" 2>/dev/null || fail_with_log "The program ended before its window was shown:" program
}

manager_is_there() {
    xdotool get_num_desktops >"$scratch/xdotool.log" 2>&1
}

window_is_there() {
    local windows
    check_program
    windows=$(xdotool search --onlyvisible --classname '^korvexzdr$' 2>/dev/null) || return
    window=${windows%%$'\n'*}
}

# Painted: more than a bare background, and nothing changes any more.
window_is_painted() {
    local before=$signature colours
    check_program
    import -silent -window "$window" "$scratch/window.png" 2>/dev/null || return
    read -r colours signature < <(identify -format '%k %#\n' "$scratch/window.png")
    [ "$colours" -gt 8 ] && [ "$signature" = "$before" ]
}

take_picture() {
    local display
    scratch=$(mktemp -d)
    started=()
    trap clean_up EXIT
    trap 'exit 130' INT TERM HUP

    exec {display_number}< <(exec Xvfb -displayfd 1 -screen 0 1280x800x24 -nolisten tcp 2>"$scratch/xvfb.log")
    started=($!)
    read -r -t 30 display <&"$display_number" || fail_with_log "The virtual screen could not be opened:" xvfb

    # The user's settings stay as they are, and nothing is left behind.
    mkdir -m 700 "$scratch/config" "$scratch/runtime"
    export DISPLAY=:$display XDG_CONFIG_HOME=$scratch/config XDG_RUNTIME_DIR=$scratch/runtime QT_QPA_PLATFORM=xcb
    openbox --sm-disable >"$scratch/openbox.log" 2>&1 &
    started=($! "${started[@]}")
    wait_for 30 manager_is_there || fail_with_log "The window manager did not start:" openbox

    "$program" "$@" >"$scratch/program.log" 2>&1 &
    running=$!
    started=("$running" "${started[@]}")
    wait_for 30 window_is_there || fail_with_log "The program's window did not appear:" program
    signature=none
    wait_for 30 window_is_painted || fail_with_log "The program's window stayed empty:" program

    import -silent -frame -window "$window" "$scratch/framed.png" || fail "The picture could not be taken."
    mv -- "$scratch/framed.png" "$picture"
    echo "There is no display here; a picture of the program's window is in $picture"
}

"$top/tools/install_packages.sh"
mkdir -p "$top/build"
if ! build_program >"$log" 2>&1; then
    fail "$(tail -n 40 "$log")" "The program could not be built; all of the output is in $log"
fi

if [ $# -eq 0 ]; then
    set -- "$top"/examples/{body.txt,popis.txt,prach.txt,skupiny.spr}
fi

case ${1-} in
    --help | --version) exec "$program" "$@" ;;  # answered on the terminal
esac
if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ]; then
    exec "$program" "$@"
fi
take_picture "$@"
