#!/bin/sh
# Makes the type libraries of the component from velmora.idl, for both sizes. Needs widl (mingw-w64-tools) and Wine's
# stdole2.tlb and idl files (libwine, libwine-dev); the results are committed, so that a build needs neither.
set -eu
cd "$(dirname "$0")/../src/velmora/apps/component_class"

includes=/usr/include/wine/wine/windows
libraries=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
for bits in 32 64; do
    widl "-m$bits" "--win$bits" -t -I "$includes" -L "$libraries" -o "velmora$bits.tlb" velmora.idl
done
