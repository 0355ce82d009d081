#!/bin/sh
# write_pictures.sh [FOLDER]: pictures of every form in native windows, at 100 % and 150 %, into FOLDER/100 and FOLDER/150
# (out/windows unless given). Uses the presets stories (the rows) and windows.
set -eu
cd "$(dirname "$0")/../../.."

folder=${1:-out/windows}
scripts/build.sh stories picture_rows
scripts/build.sh windows window_pictures
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
rows=$(mktemp)
trap 'rm -f "$rows"' EXIT
build/stories/tests/picture_rows "$rows"
for scale in 100 150; do
    tests/adapters/win32/with_display.sh scripts/wine.sh build/windows/tests/window_pictures.exe \
        "Z:$rows" "Z:$folder/$scale" $((scale * 96 / 100))
done
