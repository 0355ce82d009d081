#!/bin/sh
# wine.sh [--32] PROGRAM [ARGUMENT…]: runs a Windows program under Wine, in an environment ("prefix") of our own below
# build/wine, which is made on first use. A path of a program tells by itself whether it is one of 32 bits; --32 tells
# it for a name that Wine finds (regsvr32). Needs no display; with DISPLAY set the program's windows are shown there.
# Exit status: the program's; 124 after VELMORA_WINE_SECONDS (590 unless set).
set -eu

here=$(cd "$(dirname "$0")/.." && pwd)
unpacked=${VELMORA_WINE32:-/var/tmp/velmora-wine32-$(id -u)}

# The field "machine" of the header of a Windows program, to which the number at 60 leads: 014c is i386. A Winelib
# program is an ELF file, and always one of 64 bits here.
bits_of() {
    if [ -f "$1" ] && [ "$(head -c 2 "$1")" = MZ ]; then
        header=$(od -An -tu4 -j60 -N4 "$1" | tr -d ' ')
        if [ "$(od -An -tx2 -j"$((header + 4))" -N2 "$1" | tr -d ' ')" = 014c ]; then
            echo 32
            return
        fi
    fi
    echo 64
}

if [ "$1" = --32 ]; then
    bits=32
    shift
else
    bits=$(bits_of "$1")
fi

if [ "$bits" = 32 ]; then
    loader=$unpacked/usr/lib/wine/wine
    export WINEARCH=win32 WINESERVER="$unpacked/usr/lib/wine/wineserver32"
    export LD_LIBRARY_PATH="$unpacked/lib/i386-linux-gnu:$unpacked/usr/lib/i386-linux-gnu"
    if [ ! -f "$unpacked/complete" ]; then
        echo "There is no Wine for 32 bits: scripts/install_wine32.sh" >&2
        exit 1
    fi
else
    loader=/usr/lib/wine/wine64
    export WINEARCH=win64 WINESERVER=/usr/lib/wine/wineserver64
    if [ ! -x "$loader" ]; then
        echo "There is no Wine: scripts/install_packages.sh scripts/windows_packages.txt" >&2
        exit 1
    fi
fi
export WINELOADER="$loader"
# Neither .NET nor HTML, which Wine would offer to download, and no entries in the user's menus.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"
export WINEDEBUG="${WINEDEBUG:--all,err+module}"

# Whether there is a display is decided when the first program of a prefix starts: there is one for each case,
# and one with a registry of its own for each VELMORA_WINE_NAME.
prefixes=$here/build/wine
plain=$prefixes/$bits
export WINEPREFIX="$plain${VELMORA_WINE_NAME:+-$VELMORA_WINE_NAME}${DISPLAY:+-display}"

# The lock is not handed on to Wine, whose server outlives the program for some seconds.
make_plain() {
    rm -rf "$plain"
    if ! env -u DISPLAY WINEPREFIX="$plain" timeout 180 "$loader" wineboot --init >"$plain.log" 2>&1 </dev/null 9>&-; then
        cat "$plain.log" >&2
        exit 1
    fi
    # The registry is written when the server ends.
    WINEPREFIX="$plain" timeout 60 "$WINESERVER" -w 9>&-
    : >"$plain/complete"
}
# The files of Wine itself are shared with the other prefixes: they are never written.
make_other() {
    rm -rf "$WINEPREFIX"
    cp -al "$plain" "$WINEPREFIX"
    for hive in "$plain"/*.reg; do
        cp --remove-destination "$hive" "$WINEPREFIX/"
    done
}
if [ ! -f "$WINEPREFIX/complete" ]; then
    mkdir -p "$prefixes"
    exec 9>"$prefixes/lock"
    flock 9
    [ -f "$plain/complete" ] || make_plain
    [ -f "$WINEPREFIX/complete" ] || make_other
    exec 9>&-
fi

# Files, because the server would keep a pipe open when the program has ended.
output=$(mktemp)
errors=$(mktemp)
trap 'rm -f "$output" "$errors"' EXIT
status=0
timeout -k 5 "${VELMORA_WINE_SECONDS:-590}" "$loader" "$@" >"$output" 2>"$errors" || status=$?
cat "$output"
cat "$errors" >&2
exit "$status"
