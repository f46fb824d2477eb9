#!/usr/bin/env bash
# Installs what packages.txt lists and this machine lacks; says nothing when there is nothing to do.
set -euo pipefail

top=$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")
mapfile -t wanted < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$top/packages.txt")

if ! command -v dpkg-query >/dev/null; then
    printf '%s\n' "This is no Debian system. Install by hand what Debian 12 calls:" "${wanted[*]}" >&2
    exit 1
fi

# A package that dpkg never heard of has no line; one that was removed has another status than "installed".
installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null || true)
missing=()
for package in "${wanted[@]}"; do
    grep -qxF "installed $package" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
    as_root=()
elif sudo -n true 2>/dev/null; then
    as_root=(sudo -n)
else
    printf '%s\n' "These packages are missing: ${missing[*]}" "Install them with:" \
        "  sudo apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
fi

log=$(mktemp)
trap 'rm -f -- "$log"' EXIT
apt() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y -o DPkg::Lock::Timeout=300 "$@" </dev/null >>"$log" 2>&1
}

echo "Installing packages: ${missing[*]}"
# The lists may be old or absent. Where they cannot be fetched now, the ones at hand may still do.
apt update || true
if ! apt install --no-install-recommends "${missing[@]}"; then
    tail -n 30 -- "$log" >&2
    echo "The packages could not be installed." >&2
    exit 1
fi
