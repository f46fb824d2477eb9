#!/usr/bin/env bash
# All tests: installs what is missing, builds, runs ctest in four locales and closes with "N passed, N failed".
set -euo pipefail

top=$(dirname -- "$(readlink -f -- "$0")")
cd "$top"

if [ $# -gt 0 ]; then
    echo "test.sh takes no arguments; single tests: ctest --preset release -R NAME" >&2
    exit 2
fi

tools/install_packages.sh
# Fresh: what an earlier configuration left in the cache must not decide what is tested.
cmake --fresh --preset release
cmake --build --preset release -j2 -- --quiet

# Reals with a decimal comma, and letters whose case is another one. The locales need not be on the machine, and laying
# them down here needs no root.
export LOCPATH=$top/build/locales
mkdir -p "$LOCPATH"
for locale in cs_CZ de_DE tr_TR; do
    if [ "$(LC_ALL=$locale.UTF-8 locale decimal_point 2>/dev/null)" != , ]; then
        localedef -i "$locale" -f UTF-8 "$LOCPATH/$locale.UTF-8"
    fi
    if [ "$(LC_ALL=$locale.UTF-8 locale decimal_point 2>/dev/null)" != , ]; then
        echo "The locale $locale.UTF-8 could not be made." >&2
        exit 1
    fi
done

passed=0
failed=0

# Adds the figures of one run. Skipped tests count as neither; ctest would call them passed.
run_tests() {
    local output=$top/build/ctest-$1.txt status=0 summary run_failed=0 run_total=0 run_skipped=0
    echo "Tests with LC_ALL=$1"
    LC_ALL=$1 ctest --preset release -j2 --no-tests=error 2>&1 | tee "$output" || status=$?
    summary=$(grep -E '^[0-9]+% tests passed, [0-9]+ tests? failed out of [0-9]+$' "$output" | tail -n 1) || true
    if [ -n "$summary" ]; then
        read -r _ _ _ run_failed _ _ _ _ run_total <<<"$summary"
        run_skipped=$(sed -n '/^The following tests did not run:$/,/^$/p' "$output" | grep -c '(Skipped)$') || true
    fi
    # A ctest that broke down, or found nothing to run, is a failure that its summary does not tell.
    if [ "$run_failed" -eq 0 ] && { [ "$status" -ne 0 ] || [ "$run_total" -eq 0 ]; }; then
        echo "ctest ended with status $status after $run_total tests." >&2
        run_failed=1
        run_total=$((run_total + 1))
    fi
    passed=$((passed + run_total - run_failed - run_skipped))
    failed=$((failed + run_failed))
}

for locale in C cs_CZ.UTF-8 de_DE.UTF-8 tr_TR.UTF-8; do
    run_tests "$locale"
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
