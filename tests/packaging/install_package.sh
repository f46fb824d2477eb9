#!/usr/bin/env bash
# Installs the package with dpkg into an empty tree: its dependencies are looked up among the packages of this system,
# and nothing of the system changes.
# install_package.sh DEB ROOT
set -euo pipefail

deb=$1
root=$2
database=$root.dpkg
log=$root.log

fail() {
    echo "FAILED: $*" >&2
    grep -v ^dpkg: -- "$log" >&2
    exit 1
}

rm -rf -- "$root" "$database"
mkdir -p -- "$root" "$database/info" "$database/updates" "$database/triggers"
# What this system has, but for this package itself. The lists of files stay behind: dpkg complains and goes on.
awk -v RS= -v ORS='\n\n' '!/^Package: korvexzdr\n/' /var/lib/dpkg/status >"$database/status"

# The triggers of other packages would start programs of the tree, and there are none. Systems in containers may be
# set up to leave documents out.
LC_ALL=C fakeroot dpkg --admindir="$database" --instdir="$root" --force-not-root --log="$root.dpkg.log" \
    --no-triggers --force-unsafe-io --path-include='/usr/share/*' \
    --install "$deb" >"$log" 2>&1 </dev/null || fail "dpkg ended with $?"
status=$(dpkg-query --admindir="$database" --showformat='${db:Status-Status}' --show korvexzdr)
[ "$status" = installed ] || fail "the package is $status"
(cd -- "$root" && md5sum --quiet --check "$database/info/korvexzdr.md5sums") || fail "files are not as packed"
rm -rf -- "$database"
