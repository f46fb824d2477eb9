#!/usr/bin/env bash
# The completion of bash, asked as bash would ask it.
# usage: completion.sh PROGRAM COMPLETION
set -euo pipefail

program=$1
# shellcheck source=/dev/null
source "$2"
failures=0

# offers WORD WORDS…: the word is among what is offered behind the words, of which the last is being typed.
offers() {
    local wanted=$1 word
    shift
    COMP_WORDS=("$program" "$@")
    COMP_CWORD=$#
    word=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    _korvexzdr_cli "$program" "$word" "${COMP_WORDS[COMP_CWORD - 1]}"
    if ! printf '%s\n' "${COMPREPLY[@]}" | grep -qxF -- "$wanted"; then
        echo "$wanted is not offered behind: $*" >&2
        printf '  %s\n' "${COMPREPLY[@]}" >&2
        failures=$((failures + 1))
    fi
}

offers check ch
offers stat ''
offers check --lang en c
offers en --lang ''
offers --version --v
offers --groups check --g
offers --json check --j
offers --lang stat body.txt --l
offers all check --explain a
offers vs-mismatch check --explain v
offers vs-mismatch check --skip vs

work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
touch "$work/a file.txt"
offers "$work/a file.txt" check "$work/a"
offers "$work/a file.txt" check --groups "$work/a"

[ "$failures" -eq 0 ]
