#!/usr/bin/env bash
# The manual pages and the help agree: every command and option that the program knows stands in both pages, and the
# pages have no fault that the formatter would complain of.
# usage: manual.sh PROGRAM ENGLISH-PAGE CZECH-PAGE
set -euo pipefail

program=$1
shift
failures=0
fail() {
    echo "$*" >&2
    failures=$((failures + 1))
}

mapfile -t commands < <("$program" --help --lang en | sed -n '/^Commands:$/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "${#commands[@]}" -gt 1 ] || fail "the help lists no commands"

for page in "$@"; do
    # Hyphens are escaped in the source of a page.
    text=$(sed 's/\\-/-/g' "$page")
    checked=0
    for command in '' "${commands[@]}"; do
        if [ -n "$command" ] && ! grep -q "^\.SS $command " <<<"$text"; then
            fail "$page has no section on the command $command"
        fi
        while read -r option; do
            checked=$((checked + 1))
            grep -qE -- "$option([^a-z-]|$)" <<<"$text" || fail "$page does not tell of $option ($command)"
        done < <("$program" ${command:+"$command"} --help --lang en | grep -oE '^  (-[a-z],)?--[a-z-]+' | sed 's/.*--/--/')
    done
    [ "$checked" -gt 10 ] || fail "only $checked options were looked for in $page"
    if command -v groff >/dev/null && [ -n "$(groff -man -Tutf8 -K utf8 -ww -z "$page" 2>&1)" ]; then
        fail "groff complains of $page"
    fi
done

[ "$failures" -eq 0 ]
