#!/usr/bin/env bash
# Measures the program beside what wc and cat need for the same bytes and prints a table; docs/performance.md tells what
# the figures mean. Takes no arguments. Ends with 1 when a figure is above its limit.
# For the tests: BENCH_COUNT (sizes), BENCH_ROUNDS, and BENCH_BUILD, a build folder that is used as it is.
set -euo pipefail
export LC_ALL=C

top=$(dirname -- "$(readlink -f -- "$0")")
read -r -a sizes <<<"${BENCH_COUNT:-100000 1000000}"
rounds=${BENCH_ROUNDS:-7}
build=${BENCH_BUILD:-$top/build/release}
readonly list_repetitions=3 start_repetitions=3

fail() {
    printf '%s\n' "$@" >&2
    exit 2
}

[ $# -eq 0 ] || fail "bench.sh takes no arguments."
for number in "${sizes[@]}" "$rounds"; do
    [[ $number =~ ^[1-9][0-9]*$ ]] || fail "BENCH_COUNT and BENCH_ROUNDS have to be whole numbers above 0."
done

build_programs() {
    cd "$top"
    # A build folder that came along with a copied tree would go on building the tree it was made for.
    if [ ! -f "$build/build.ninja" ] || ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$top" "$build/CMakeCache.txt"; then
        cmake --fresh --preset release || return
    fi
    cmake --build --preset release --target make_inventory core_run list_run start_run bare_window
}

if [ -z "${BENCH_BUILD-}" ]; then
    "$top/tools/install_packages.sh"
    mkdir -p "$top/build"
    log=$top/build/bench-build.log
    build_programs >"$log" 2>&1 \
        || fail "$(tail -n 40 "$log")" "The programs could not be built; all of the output is in $log"
fi
bin=$build/bin
[ -x "$bin/core_run" ] || fail "There is no core_run in $bin."

# A build of the core alone has no window to measure.
has_window=no
if [ -x "$bin/list_run" ]; then
    has_window=yes
fi

# In memory where there is room: a disk's speed is not the program's.
needed_kib=2000000
if [ -z "${TMPDIR-}" ] && [ -w /dev/shm ] && [ "$(df -k --output=avail /dev/shm | tail -n 1)" -gt "$needed_kib" ]; then
    TMPDIR=/dev/shm
fi
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-bench.XXXXXX")
trap 'rm -rf -- "$work"' EXIT
trap 'exit 130' INT TERM HUP

# The user's settings have no part in it.
mkdir -m 700 "$work/home"
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME=$work/home XDG_STATE_HOME=$work/home XDG_RUNTIME_DIR=$work/home

readonly names=(body.txt popis.txt prach.txt)
figures=$work/figures  # lines of round, size, figure and value

figure() {
    printf '%s %s %s %s\n' "$round" "$1" "$2" "$3" >>"$figures"
}

# timed SIZE FIGURE COMMAND…: milliseconds from start to end.
timed() {
    local size=$1 name=$2 begin end
    shift 2
    begin=${EPOCHREALTIME/./}
    "$@" >/dev/null 2>"$work/err" || fail "$* failed:" "$(<"$work/err")"
    end=${EPOCHREALTIME/./}
    figure "$size" "$name" "$(((end - begin) / 1000)).$(printf '%03d' $(((end - begin) % 1000)))"
}

# told SIZE PREFIX COMMAND…: what the command prints are figures.
told() {
    local size=$1 prefix=$2 name value
    shift 2
    "$@" >"$work/out" 2>"$work/err" || fail "$* failed:" "$(<"$work/err")"
    while read -r name value; do
        figure "$size" "$prefix$name" "$value"
    done <"$work/out"
}

# The same work as a save: the bytes of three files in three new files, safely on the disk.
copy_files() {
    local name
    for name in "${names[@]}"; do
        cat "$1/$name" >"$2/$name" || return
    done
    sync -- "${names[@]/#/$2/}"
}

# The saved files are the loaded ones but for the paths in lines 3 and 4.
check_saved() {
    local name
    for name in "${names[@]}"; do
        cmp -- <(sed -e 3,4d "$1/$name") <(sed -e 3,4d "$2/$name") || fail "What was saved is not what was loaded."
    done
}

measure_files() {
    local size=$1 folder=$work/$1
    timed "$size" wc_ms wc -l "${names[@]/#/$folder/ordered/}"
    rm -rf -- "$folder/saved"
    mkdir "$folder/saved"
    told "$size" "" "$bin/core_run" "$folder/ordered" "$folder/saved"
    if [ "$round" -eq 1 ]; then
        check_saved "$folder/ordered" "$folder/saved"
    fi
    rm -rf -- "$folder/saved"
    mkdir "$folder/saved"
    timed "$size" cat_ms copy_files "$folder/ordered" "$folder/saved"
    told "$size" shuffled_ "$bin/core_run" "$folder/shuffled"
    grep -qx "sources $size" "$work/out" && grep -qx 'reported 0' "$work/out" \
        || fail "The shuffled files are not loaded whole."
}

measure_window() {
    local i
    told "$1" "list_" "$bin/list_run" "$work/$1/ordered" "$list_repetitions"
    for ((i = 0; i < start_repetitions; ++i)); do
        timed "$1" bare_ms "$bin/bare_window"
        timed "$1" start_ms "$bin/start_run"
    done
}

processor=$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)
printf '%s\n' "Processor: ${processor:-unknown}, $(nproc) cores" \
    "Load before the start: $(cut -d ' ' -f 1-3 /proc/loadavg)" \
    "Files in ${TMPDIR:-/tmp}; ${rounds} rounds"

for size in "${sizes[@]}"; do
    "$bin/make_inventory" "$size" "$work/$size/ordered"
    "$bin/make_inventory" "$size" "$work/$size/shuffled" --shuffle
done
largest=${sizes[-1]}
for ((round = 1; round <= rounds; ++round)); do
    for size in "${sizes[@]}"; do
        measure_files "$size"
    done
    if [ "$has_window" = yes ]; then
        measure_window "$largest"
    fi
done

# A row a line: figure, the figure that it is divided by (or -), goal, limit, what it is. Rows without a goal are for
# reading the others.
readonly file_rows='wc_ms - - - wc -l [ms]
cat_ms - - - cat into files [ms]
load_ms - - - load in number order [ms]
load_ms wc_ms 9 13 load in number order / wc
shuffled_load_ms - - - load in three random orders [ms]
shuffled_load_ms wc_ms 20 28 load in three random orders / wc
save_ms - - - save [ms]
save_ms cat_ms 4 6 save / cat
save_over_ms cat_ms - - save over the files that are there / cat
check_ms - - - duplicate check [ms]
check_ms wc_ms 1 2 duplicate check / wc
set_bytes_per_source - 130 200 memory of the loaded set [B a source]
peak_mb - - - peak of load, check and save without a window [MB]'
readonly window_rows='list_list_peak_mb - 200 300 peak of the whole program with the list shown [MB]
list_end_peak_mb - - - peak after all commands of the list [MB]
list_window_load_ms - - - load in the window [ms]
list_refill_ms - 25 60 refill [ms]
list_sort_number_ms - 60 120 sort by number [ms]
list_sort_name_ms - 350 1000 sort by name [ms]
list_mark_all_ms - 15 60 mark all [ms]
list_invert_ms - 15 60 invert the marks [ms]
list_mark_type_ms - 15 60 mark by type [ms]
list_unmark_all_ms - 15 60 unmark all [ms]
list_ctrl_a_ms - 100 250 Ctrl+A [ms]
list_shift_end_ms - 100 250 Shift+End [ms]
list_delete_third_ms - 100 250 delete every third source, with refill [ms]
list_paint_ms - 2 8 paint a screen [ms]
bare_ms - - - start of a bare window [ms]
start_ms - - - start of the program [ms]
start_ms bare_ms 1.2 1.6 start of the program / of a bare window'

# table SIZE ROWS: prints the rows of this size; fails when a figure is above its limit.
table() {
    printf '\n%s sources\n\n' "$1"
    printf '| %-52s | %8s | %17s | %5s | %5s | %-12s |\n' figure median "min..max" goal limit ""
    printf '|%s|%s:|%s:|%s:|%s:|%s|\n' \
        "$(dashes 54)" "$(dashes 9)" "$(dashes 18)" "$(dashes 6)" "$(dashes 6)" "$(dashes 14)"
    awk -v size="$1" '
        # The file of figures comes first. A figure may come several times in a round.
        NR == FNR {
            if ($2 == size) {
                n = ++count[$3]
                value[$3, n] = $4
            }
            next
        }
        {
            label = $5
            for (i = 6; i <= NF; ++i)
                label = label " " $i
            if (!($1 in count) || ($2 != "-" && count[$2] != count[$1])) {
                printf "the figure %s is missing\n", $1 >"/dev/stderr"
                failed = 2
                exit
            }
            n = count[$1]
            for (i = 1; i <= n; ++i) {
                one = value[$1, i] / ($2 == "-" ? 1 : value[$2, i])
                for (j = i; j > 1 && sorted[j - 1] > one; --j)
                    sorted[j] = sorted[j - 1]
                sorted[j] = one
            }
            median = n % 2 == 1 ? sorted[(n + 1) / 2] : (sorted[n / 2] + sorted[n / 2 + 1]) / 2
            verdict = ""
            if ($3 != "-" && size >= 100000) {
                verdict = median <= $3 ? "goal met" : median <= $4 ? "within limit" : "ABOVE LIMIT"
                if (median > $4)
                    failed = 1
            }
            printf "| %-52s | %8.4g | %17s | %5s | %5s | %-12s |\n", label, median,
                sprintf("%.4g..%.4g", sorted[1], sorted[n]), $3, $4, verdict
        }
        END { exit failed }
    ' "$figures" - <<<"$2"
}

dashes() {
    printf -- '-%.0s' $(seq "$1")
}

above=0
for size in "${sizes[@]}"; do
    rows=$file_rows
    if [ "$size" = "$largest" ] && [ "$has_window" = yes ]; then
        rows+=$'\n'$window_rows
    fi
    status=0
    table "$size" "$rows" || status=$?
    [ "$status" -le 1 ] || fail "The table could not be made."
    [ "$status" -eq 0 ] || above=1
done
exit "$above"
