#!/bin/sh
# embed.sh tree|install SOURCES BUILD WORK: configures, builds and runs examples/embedding, from the tree of the sources
# or from an installation of the build folder BUILD; WORK is emptied first.
set -eu
from=$1 sources=$2 build=$3 work=$4

rm -rf "$work"
mkdir -p "$work"
case $from in
tree)
    # The rooms are compiled anew, so without optimisation: that they build inside of another project is what counts;
    # and each source alone, which shows an include that it lacks.
    set -- "-DVELMORA_TREE=$sources" -DVELMORA_WERROR=ON -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 ;;
install)
    cmake --install "$build" --prefix "$work/installed" >"$work/install.log"
    # The headers must be the installed ones: nothing below the sources may be named.
    if grep -rn "$sources" "$work/installed/lib"*/cmake "$work/installed/lib"/*/cmake 2>/dev/null; then
        echo "the package names the folder of the sources" >&2
        exit 1
    fi
    set -- "-DCMAKE_PREFIX_PATH=$work/installed" -DCMAKE_BUILD_TYPE=Release ;;
esac
cmake -S "$sources/examples/embedding" -B "$work/build" -G Ninja "$@" >"$work/configure.log"
cmake --build "$work/build" --target embedding >"$work/build.log" || { cat "$work/build.log" >&2; exit 1; }
program=$(find "$work/build" -name embedding -type f -perm -u+x)
"$program" | tee "$work/out"
grep -Eq '^Total Pieza [0-9]+,[0-9]+, Importe Total [0-9]+(,[0-9]+)?$' "$work/out"
! grep -q 'Total Pieza 0,' "$work/out"
