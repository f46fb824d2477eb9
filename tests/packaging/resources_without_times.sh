#!/usr/bin/env bash
# What the program carries within it holds no times: the same sources give the same program whenever they are built.
# resources_without_times.sh BUILD
set -euo pipefail

mapfile -t resources < <(find "$1/src" -name 'qrc_*.cpp')
if [ ${#resources[@]} -lt 2 ]; then
    echo "FAILED: the icons and the translations are not in $1/src" >&2
    exit 1
fi
for file in "${resources[@]}"; do
    # Later formats of resources have them.
    if ! grep -q 'int version = 1;' "$file"; then
        echo "FAILED: $file has times in it; qt_add_resources wants OPTIONS --format-version 1" >&2
        exit 1
    fi
done
