#!/bin/sh
# install_packages.sh [LIST]: installs what building and testing need (scripts/packages.txt, unless another list is
# named) and is not there yet. Asks nothing; says nothing when all is there.
set -eu

# The list tells beside each what needs it.
packages=$(sed -n 's/^\([a-z0-9][^ |]*\) *|.*/\1/p' "${1:-$(dirname "$0")/packages.txt}")

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null 2>&1; then
        sudo -n env DEBIAN_FRONTEND=noninteractive "$@"
    else
        echo "Needs root, or sudo, to run: $*" >&2
        return 1
    fi
}

missing=""
for package in $packages; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    if [ "$status" != "install ok installed" ]; then
        missing="$missing $package"
    fi
done

if [ -n "$missing" ]; then
    echo "Installing:$missing"
    export DEBIAN_FRONTEND=noninteractive
    as_root apt-get update -qq
    # shellcheck disable=SC2086
    as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
fi

# The tests run under the locale of the workshop too.
if ! locale -a | grep -qi '^es_ES\.utf-\{0,1\}8$'; then
    echo "Generating the locale es_ES.UTF-8"
    as_root localedef -i es_ES -f UTF-8 es_ES.UTF-8
fi
