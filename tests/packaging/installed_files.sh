#!/usr/bin/env bash
# The files of the desktop and of the reader, as they were installed, under the tools that read them.
# installed_files.sh PART ROOT VERSION
set -euo pipefail

top=$(dirname -- "$(readlink -f -- "$0")")/../..
part=$1
root=$2
version=$3
share=$root/usr/share
documents=$share/doc/korvexzdr
work=$(mktemp -d "${TMPDIR:-/tmp}/korvex-installed.XXXXXX")
trap 'rm -rf -- "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# expect_silence COMMAND…: it succeeds and has nothing to say.
expect_silence() {
    local said
    said=$("$@" 2>&1) || fail "$1 ended with $?: $said"
    [ -z "$said" ] || fail "$1 says: $said"
}

# type_of NAME: what the desktop takes a file of that name for, with our types beside the common ones.
type_of() {
    printf ';\r\n1,1,10,1;Skupina\r\n' >"$work/$1"
    HOME=$work/home XDG_DATA_HOME=$work/home/share XDG_DATA_DIRS=$work/share \
        gio info --attributes=standard::content-type "$work/$1" | sed -n 's/^ *standard::content-type: //p'
}

# The cache of the types, without waiting until the disk has it.
update_types() {
    expect_silence env PKGSYSTEM_ENABLE_FSYNC=0 XDG_DATA_DIRS="$work/share" update-mime-database "$work/share/mime"
}

check_mime_type() {
    mkdir -p "$work/share/mime"
    cp -r /usr/share/mime/packages "$work/share/mime/"
    rm -f "$work/share/mime/packages/korvexzdr.xml"
    update_types
    local -r type=application/x-korvex-dust-groups
    [ "$(type_of skupiny.spr)" != "$type" ] || fail "the type is known without the package"
    rm "$work/skupiny.spr"
    cp "$share/mime/packages/korvexzdr.xml" "$work/share/mime/packages/"
    update_types
    [ "$(type_of skupiny.spr)" = "$type" ] || fail "a dust groups file has the type $(type_of skupiny.spr)"
    [ "$(type_of body.txt)" = text/plain ] || fail "a text file has the type $(type_of body.txt)"
    grep -qxF "$type text/plain" "$work/share/mime/subclasses" || fail "a text editor would not be offered"
}

check_icons() {
    local size
    for size in 16 24 32 48 64 128 256; do
        [ "$(identify -format '%m %wx%h' "$share/icons/hicolor/${size}x$size/apps/korvexzdr.png")" = \
            "PNG ${size}x$size" ] || fail "the icon of $size pixels has another size"
    done
    grep -q '<svg ' "$share/icons/hicolor/scalable/apps/korvexzdr.svg" || fail "the scalable icon is no SVG"
}

# check_manual_page PAGE WORD…: formatted without a warning, and the words stand in it.
check_manual_page() {
    local -r page=$1
    shift
    local text word
    LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings=w -E UTF-8 -l -Tutf8 -Z "$page" >"$work/formatted" \
        2>"$work/warnings" || fail "$page cannot be formatted"
    [ ! -s "$work/warnings" ] || fail "$page has faults: $(<"$work/warnings")"
    text=$(LC_ALL=C.UTF-8 MANWIDTH=80 man -E UTF-8 -l -P cat "$page")
    for word in "$@" "korvexzdr $version" /s /ini --help --version VstZdrojSkupTxt "${documents#"$root"}/examples/"; do
        grep -qF -- "$word" <<<"$text" || fail "$page does not say $word"
    done
    ! grep -n '@' <<<"$text" || fail "$page has a place that was not filled in"
}

case $part in
desktop_entry)
    expect_silence desktop-file-validate "$share/applications/korvexzdr.desktop"
    for key in Name GenericName Comment Keywords; do
        grep -q "^$key\[cs\]=." "$share/applications/korvexzdr.desktop" || fail "$key is not in Czech"
    done
    ;;
metainfo)
    metainfo=$share/metainfo/invalid.korvex.korvexzdr.metainfo.xml
    appstreamcli validate --no-net --no-color "$metainfo"
    grep -q "<release version=\"$version\"" "$metainfo" || fail "this version is not among the releases"
    ;;
mime_type) check_mime_type ;;
icons) check_icons ;;
manual_pages)
    check_manual_page "$share/man/man1/korvexzdr.1.gz" NAME 'points description'
    check_manual_page "$share/man/cs/man1/korvexzdr.1.gz" JMÉNO 'body popis'
    ;;
documents)
    changelog=$documents/changelog.gz
    zcat "$changelog" >"$work/changelog"
    # The newest entry is this version's; a line that is no changelog's would be complained about.
    found=$(dpkg-parsechangelog --file "$work/changelog" --show-field Version 2>&1)
    [ "$found" = "$version" ] || fail "the changelog begins with $found"
    cmp -- "$documents/file-formats.md" "$top/docs/file-formats.md"
    diff -r -- "$documents/examples" "$top/examples"
    ;;
*) fail "no such part: $part" ;;
esac
