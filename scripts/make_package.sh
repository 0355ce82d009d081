#!/bin/sh
# make_package.sh [FOLDER]: builds the programs as they ship and writes velmora_VERSION_ARCHITECTURE.deb into FOLDER,
# which is out/ unless another is named.
set -eu
cd "$(dirname "$0")/.."

folder=${1:-out}
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)

scripts/install_packages.sh
scripts/build.sh release velmora velmora-drive velmora-scan velmora_desktop_files
cpack --config build/release/CPackConfig.cmake -B "$folder" >"$folder/package.log" || { cat "$folder/package.log" >&2; exit 1; }
rm -rf "$folder/_CPack_Packages" "$folder/package.log"
ls "$folder"/velmora_*.deb
