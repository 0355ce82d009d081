#!/bin/sh
# links_no_windows.sh PROGRAM DESKTOP: fails when PROGRAM is linked to a library of windows or print dialogs. DESKTOP,
# which shows windows, proves that the search finds such a library.
set -eu

windows_of() {
    LC_ALL=C readelf -d "$1" | grep -E 'NEEDED.*\[libQt6(Widgets|PrintSupport)\.so'
}

if ! windows_of "$2" >/dev/null; then
    echo "nothing found in $2, which has windows: the search is wrong" >&2
    exit 1
fi
if windows_of "$1"; then
    echo "$1 links windows" >&2
    exit 1
fi
