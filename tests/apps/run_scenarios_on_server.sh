#!/bin/sh
# Plays all scenarios on the server that VELMORA_TEST_DSN names, one after the other; ends with 77 without a server.
#
#   run_scenarios_on_server.sh DRIVER EMPTY_SERVER [NAME.drive…]       without names: all of tests/scenarios
set -u

here=$(cd "$(dirname "$0")" && pwd) || exit 1
driver=$1
empty=$2
shift 2
[ "$#" -gt 0 ] || set -- "$here"/../scenarios/*.drive

if [ -z "${VELMORA_TEST_DSN:-}" ]; then
    echo "VELMORA_TEST_DSN names no server"
    exit 77
fi
failed=0
for scenario; do
    if ! "$here/run_scenario.sh" "$driver" "$scenario" "$empty"; then
        echo "FAILED: $(basename "$scenario")"
        failed=$((failed + 1))
    fi
done
echo "$(($# - failed)) of $# scenarios passed on the server"
[ "$failed" -eq 0 ]
