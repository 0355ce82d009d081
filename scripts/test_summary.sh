#!/bin/bash
# test_summary.sh PRESET…: what ctest has found in each, from the logs of the last run.
cd "$(dirname "$0")/.." || exit 1

for preset in "$@"; do
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
