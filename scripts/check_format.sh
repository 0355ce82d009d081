#!/bin/sh
# Every source is formatted as clang-format 14 does it by .clang-format; other versions differ in places.
set -eu
cd "$(dirname "$0")/.."

formatter=$(command -v clang-format-14 || command -v clang-format || true)
case $("${formatter:-true}" --version) in
*"version 14."*) ;;
*)
    echo "There is no clang-format 14: scripts/install_packages.sh" >&2
    exit 1
    ;;
esac

find src tests bench examples '(' -name '*.h' -o -name '*.cpp' ')' -print0 |
    xargs -0 -n 50 -P "$(nproc)" "$formatter" --dry-run -Werror || {
    echo "These are not formatted: clang-format -i FILE" >&2
    exit 1
}
