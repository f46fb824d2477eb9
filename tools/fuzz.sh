#!/usr/bin/env bash
# Fuzzes every target for some minutes each (10 unless told) and closes with a line for each; needs clang.
# What was learnt stays in build/fuzz/corpus, what was found is left in build/fuzz/found.
set -euo pipefail

cd -- "$(dirname -- "$(readlink -f -- "$0")")/.."
minutes=${1:-10}
if ! [[ $minutes =~ ^[1-9][0-9]*$ ]] || [ $# -gt 2 ]; then
    echo "usage: tools/fuzz.sh [MINUTES [TARGET]]" >&2
    exit 2
fi

cmake --preset fuzz >/dev/null
mapfile -t targets < <(basename -a fuzz/corpus/*/)
cmake --build --preset fuzz -j2 --target "${targets[@]/%/_fuzz}" -- --quiet

# Locales to compare with, where the machine has none of its own.
export LOCPATH=$PWD/build/locales
mkdir -p "$LOCPATH" build/fuzz/found
for locale in cs_CZ tr_TR; do
    [ -d "$LOCPATH/$locale.UTF-8" ] || localedef -i "$locale" -f UTF-8 "$LOCPATH/$locale.UTF-8"
done
# Memory that was given back is forgotten soon: the buffers of files would fill the machine.
export ASAN_OPTIONS=quarantine_size_mb=4:max_malloc_fill_size=0

failed=0
for seeds in fuzz/corpus/*/; do
    target=$(basename "$seeds")
    [ -z "${2:-}" ] || [ "$target" = "$2" ] || continue
    learnt=build/fuzz/corpus/$target
    log=build/fuzz/found/$target.log
    mkdir -p "$learnt"
    status=0
    build/fuzz/bin/"$target"_fuzz -max_total_time=$((minutes * 60)) -timeout=5 -rss_limit_mb=1024 -max_len=16384 \
        -artifact_prefix="build/fuzz/found/$target-" "$learnt" "$seeds" >"$log" 2>&1 || status=$?
    runs=$(sed -n 's/^Done \([0-9]*\) runs.*/\1/p' "$log")
    if [ "$status" -ne 0 ]; then
        failed=1
        echo "$target: FOUND SOMETHING, see $log"
    else
        echo "$target: ${runs:-0} runs in $minutes minutes, clean; $(find "$learnt" -type f | wc -l) inputs learnt"
    fi
done
exit "$failed"
