#!/usr/bin/env bash
# Makes the package twice and leaves it for the tests behind this one: both are the same bytes.
# make_package.sh CPACK CONFIG DEB
set -euo pipefail

cpack=$1
config=$2
deb=$3
folder=$(dirname -- "$deb")
rm -rf -- "$folder"
mkdir -p -- "$folder"

fail() {
    echo "FAILED: $*" >&2
    cat -- "$folder"/*.log >&2
    exit 1
}

make() {
    "$cpack" --config "$config" -B "$folder/$1" >"$folder/$1.log" 2>&1 || fail "cpack ended with $?"
    mapfile -t found < <(find "$folder/$1" -maxdepth 1 -name '*.deb')
    [ ${#found[@]} -eq 1 ] || fail "not one package"
}

make first
mv -- "${found[0]}" "$deb"
# A clock that has gone on must not show.
sleep 1.1
make second
cmp -- "$deb" "${found[0]}" || fail "the second package is another one"
# The times of the files are those of the commit, not those of the build.
times=$(dpkg-deb --fsys-tarfile "$deb" | TZ=UTC tar -tv --full-time | awk '{ print $4, $5 }' | sort -u)
[ "$(wc -l <<<"$times")" -eq 1 ] || fail "the files have several times: $times"
rm -rf -- "$folder/first" "$folder/second"
