#!/usr/bin/env bash
# The sessions of the tool's page, run as they are written: what a line behind "$ " prints must stand below it.
# usage: documented_commands.sh PROGRAM EXAMPLES PAGE
set -euo pipefail

program=$1
examples=$2
page=$3
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export XDG_STATE_HOME=$work/state
mkdir "$work/bin" "$work/town"
ln -s "$program" "$work/bin/korvexzdr-cli"
PATH=$work/bin:$PATH
cp "$examples"/*.txt "$work/town"
cd "$work/town"

# Only the blocks of sessions; they follow one another in one folder.
# shellcheck disable=SC2016 # the page's own marks
sed -n '/^```console$/,/^```$/p' "$page" | grep -v '^```' >"$work/written"
commands=0
: >"$work/happened"
while IFS= read -r line; do
    [[ $line == '$ '* ]] || continue
    commands=$((commands + 1))
    echo "$line" >>"$work/happened"
    # The page's own lines, parted at blanks as a shell would.
    status=0
    bash -c "${line#\$ }" >>"$work/happened" 2>&1 </dev/null || status=$?
    [ "$status" -eq 0 ] || echo "(konec $status)" >>"$work/happened"
done <"$work/written"

[ "$commands" -ge 10 ] || {
    echo "only $commands commands on the page" >&2
    exit 1
}
diff -u "$work/written" "$work/happened"
