#!/usr/bin/env bash
# What the tool exports, opened by a mapping library of others: the number of sources, the types of the columns, the
# geometries, the coordinate system.
# usage: mapping_program.sh PROGRAM EXAMPLES
set -euo pipefail

program=$1
examples=$2
if ! command -v ogrinfo >/dev/null; then
    echo "SKIPPED: ogrinfo (Debian package gdal-bin) is not installed." >&2
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export XDG_STATE_HOME=$work/state
# Numbers of the library's own output must not depend on the locale.
export LC_ALL=C.UTF-8
failures=0

# says FILE TEXT
says() {
    if ! grep -qF -- "$2" "$work/$1"; then
        echo "not in $1: $2" >&2
        failures=$((failures + 1))
    fi
}
# counts FILE NUMBER PATTERN
counts() {
    local found
    found=$(grep -cE -- "$3" "$work/$1" || true)
    if [ "$found" -ne "$2" ]; then
        echo "$found instead of $2 in $1: $3" >&2
        failures=$((failures + 1))
    fi
}

"$program" export "$examples/body.txt" "$examples/popis.txt" "$examples/prach.txt" \
    --csv "$work/zdroje.csv" --geojson "$work/zdroje.json" --crs EPSG:5514 >/dev/null
ogrinfo -al "$work/zdroje.csv" >"$work/csv"
ogrinfo -al "$work/zdroje.json" >"$work/json"

for file in csv json; do
    says "$file" "Feature Count: 16"
    says "$file" "Extent: (640712.000000, 1077412.000000) - (643380.000000, 1079021.000000)"
    says "$file" "cislo: Integer"
    says "$file" "nazev: String"
    says "$file" "X_m: Integer"
    says "$file" "Vs_m3_s: Real"
    says "$file" "prach: String"
    counts "$file" 4 '^  POINT \('
    counts "$file" 12 '^  LINESTRING \('
    says "$file" "  POINT (641862 1078344)"
    says "$file" "  LINESTRING (640712 1077689,641033 1077830)"
    says "$file" "Vs_m3_s (Real) = 3.119339"
    says "$file" "ML_g_s_m (Real) = 1.4e-05"
    says "$file" "nazev (String) = Výtopna Brloždín, kotel na dřevní štěpku"
    says "$file" "prach (String) = 1800,0,4,2.5,0.3,5,0.4,10,0.2,20,0.1"
done
says json 'ID["EPSG",5514]'
says csv "(unknown)"

# Types come from the file beside the table: without it all columns would be text.
rm "$work/zdroje.csvt"
ogrinfo -al -so "$work/zdroje.csv" >"$work/untyped"
says untyped "cislo: String"

[ "$failures" -eq 0 ] || {
    cat "$work/csv" >&2
    exit 1
}
