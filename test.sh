#!/bin/bash
# Installs what is missing, builds, and runs every test: as it ships, and under the sanitizers.
set -uo pipefail
cd "$(dirname "$0")" || exit 1

scripts/install_packages.sh || exit 1

presets=(release asan-ubsan)
failed=0

for preset in "${presets[@]}"; do
    echo "== $preset"
    mkdir -p "build/$preset"
    rm -f "build/$preset/ctest.log"
    scripts/build.sh "$preset" &&
        ctest --preset "$preset" -j "$(nproc)" 2>&1 | tee "build/$preset/ctest.log" || failed=1
done

for preset in "${presets[@]}"; do
    echo
    echo "== $preset"
    if [ -f "build/$preset/ctest.log" ]; then
        # From the count of passed tests on: the total time and, if any, the tests that failed.
        sed -n '/tests passed/,$p' "build/$preset/ctest.log"
        awk '/^\[ *PASSED *\] [0-9]+ tests?/ { cases += $4 } END { print cases + 0 " cases passed in the test programs" }' \
            "build/$preset/Testing/Temporary/LastTest.log"
        grep -hE '^(\[  FAILED  \] [A-Za-z])' "build/$preset/Testing/Temporary/LastTest.log" | sort -u
    else
        echo "did not build"
    fi
done
exit "$failed"
