#!/usr/bin/env bash
# The editor answers --version and --help on the terminal, without any display.
# terminal_answers.sh PROGRAM VERSION
set -euo pipefail

program=$1
version=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-terminal.XXXXXX")
trap 'rm -rf -- "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    cat -- "$work/out" "$work/err" >&2
    exit 1
}

# answer ARGUMENT: what it prints must be all that it does.
answer() {
    local status=0
    env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM HOME="$work/home" XDG_CONFIG_HOME="$work/home/config" \
        timeout 20 "$program" "$1" >"$work/out" 2>"$work/err" </dev/null || status=$?
    [ "$status" -eq 0 ] || fail "$1 ended with $status"
    [ ! -s "$work/err" ] || fail "$1 complained"
    [ ! -e "$work/home" ] || fail "$1 wrote files"
}

answer --version
[ "$(<"$work/out")" = "korvexzdr $version" ] || fail "--version does not say $version"

answer --help
for text in korvexzdr Použití BODY POPIS PRACH SKUPINY /s '/ini SOUBOR'; do
    grep -qF -- "$text" "$work/out" || fail "--help does not say $text"
done
