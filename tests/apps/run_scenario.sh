#!/bin/sh
# Runs one scenario and compares its output and exit status with the expected ones.
#
#   run_scenario.sh [--write] DRIVER NAME.drive [EMPTY_SERVER]
#
# The scenario's first lines may be
#   # options: --data workshop.sql --now "2026-01-15 10:00:00"     read by the driver itself
#   # status: 2                                                    expected exit status; default 0
#   # read-only: plano.pdf                                         one of its files, made read-only
# With a folder NAME.files beside NAME.drive, the scenario runs in a copy of it, so that file dialogs can use its names.
# With NAME.expected beside NAME.drive, the whole output must be equal to it. --write writes that file again.
# With EMPTY_SERVER, the scenario runs on the server that VELMORA_TEST_DSN names, which that program empties first. The
# output must be equal but for the differences that server_differences.py lists.
set -u

write=no
if [ "$1" = --write ]; then
    write=yes
    shift
fi
here=$(cd "$(dirname "$0")" && pwd) || exit 1
absolute() { echo "$(cd "$(dirname "$1")" && pwd)/$(basename "$1")"; }
driver=$(absolute "$1") || exit 1
empty=${3:+$(absolute "$3")} || exit 1
cd "$(dirname "$2")" || exit 1
scenario=$(basename "$2")
expected=${scenario%.drive}.expected

header() { sed -n "1,/^[^#]/s/^# $1: //p" "$scenario" | head -n 1; }
status=$(header status)

if [ -n "$empty" ]; then
    "$empty" || exit 1
fi

work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
script=$PWD/$scenario
files=${scenario%.drive}.files
play() {
    if [ -d "$files" ]; then
        closed=$(header read-only)
        cp -R "$files" "$work/files" && cd "$work/files" || exit 1
        [ -z "$closed" ] || chmod a-w "$closed" || exit 1
    fi
    if [ -z "$empty" ]; then
        "$driver" "$script"
        return
    fi
    # A new embedded database has the demonstration rows unless told otherwise, a server's has none.
    case $(sed -n 's/^# options: //p' "$script") in
        *--data*) "$driver" --dsn "$VELMORA_TEST_DSN" "$script" ;;
        *) "$driver" --dsn "$VELMORA_TEST_DSN" --data demo "$script" ;;
    esac
}
(play) >"$work/out" 2>"$work/faults"
ended=$?

if [ -n "$empty" ] && [ -f "$expected" ]; then
    python3 "$here/server_differences.py" "$scenario" "$expected" "$work/out" || exit 1
fi
if [ "$write" = yes ]; then
    cp "$work/out" "$expected"
fi
failed=0
if [ "$ended" -ne "${status:-0}" ]; then
    echo "$scenario ended with status $ended, not ${status:-0}"
    failed=1
fi
if [ -f "$expected" ] && ! diff -u "$expected" "$work/out"; then
    failed=1
fi
if [ "$failed" -ne 0 ]; then
    [ -f "$expected" ] || cat "$work/out"
    cat "$work/faults"
fi
exit "$failed"
