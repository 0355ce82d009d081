#!/bin/sh
# with_display.sh COMMAND…: runs a program that shows windows, on a display of its own that nobody sees.
set -eu

number=$(mktemp)
Xvfb -displayfd 3 -screen 0 2000x1400x24 -nolisten tcp 3>"$number" >/dev/null 2>&1 &
server=$!
trap 'kill "$server" 2>/dev/null || true; rm -f "$number"' EXIT
tries=0
while [ ! -s "$number" ]; do
    tries=$((tries + 1))
    if [ "$tries" -gt 100 ]; then
        echo "No display: Xvfb did not start" >&2
        exit 1
    fi
    sleep 0.1
done
DISPLAY=":$(cat "$number")"
export DISPLAY
# A program asks Wine to do without a window manager (win32_hand.h), which holds from the next program on.
"$@" --gtest_list_tests >/dev/null 2>&1 || true
status=0
"$@" || status=$?
exit "$status"
