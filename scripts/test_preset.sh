#!/bin/bash
# test_preset.sh PRESET: builds it and runs its tests; what ctest says goes to build/PRESET/ctest.log too.
set -uo pipefail
cd "$(dirname "$0")/.." || exit 1

echo "== $1"
mkdir -p "build/$1"
rm -f "build/$1/ctest.log"
scripts/build.sh "$1" && ctest --preset "$1" -j "$(nproc)" 2>&1 | tee "build/$1/ctest.log"
