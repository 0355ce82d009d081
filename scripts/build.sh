#!/bin/sh
# build.sh PRESET [TARGET…]: configures and builds one preset below build/, with ccache when it is there.
set -eu
cd "$(dirname "$0")/.."

preset=$1
shift

if command -v ccache >/dev/null 2>&1; then
    export CMAKE_CXX_COMPILER_LAUNCHER="${CMAKE_CXX_COMPILER_LAUNCHER-ccache}"
fi

cmake --preset "$preset" --log-level=NOTICE
if [ "$#" -gt 0 ]; then
    set -- --target "$@"
fi
cmake --build --preset "$preset" -j "$(nproc)" "$@"
