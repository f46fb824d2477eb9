#!/usr/bin/env bash
# What the package says of itself and what is in it: exactly the files that are listed, nobody's but root's.
# package_contents.sh DEB LIST VERSION
set -euo pipefail

deb=$1
list=$2
version=$3

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# expect_field NAME VALUE
expect_field() {
    local found
    found=$(dpkg-deb --field "$deb" "$1")
    [ "$found" = "$2" ] || fail "$1 is \"$found\" and not \"$2\""
}

expect_field Package korvexzdr
expect_field Version "$version"
expect_field Architecture "$(dpkg --print-architecture)"
expect_field Section science
expect_field Priority optional

# Computed from the program: with the versions that it needs.
depends=$(dpkg-deb --field "$deb" Depends)
for library in libc6 libicu[0-9]* libqt6core6 libqt6gui6 libqt6widgets6 libstdc++6; do
    grep -qE "(^|, )${library//+/\\+} \(>= [0-9][^)]*\)" <<<"$depends" || fail "no version of $library in: $depends"
done

description=$(dpkg-deb --field "$deb" Description)
grep -qE '^ Česky: ' <<<"$description" || fail "no Czech description in: $description"

# Where the list and the package differ, diff shows it.
diff <(grep -v '^#' "$list") \
    <(dpkg-deb --fsys-tarfile "$deb" | tar -tv --numeric-owner | awk '{ print $1, $2, $6 }' | LC_ALL=C sort -k 3) ||
    fail "the files in the package are not those of the list"
