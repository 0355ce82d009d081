#!/bin/bash
# Installs what is missing, builds, and opens the program. Where there is no display, the program writes the pictures
# of its windows, a new user's walk through them on screens of four sizes, and a proposal played without a screen from
# its entry to its work order, with paper and spreadsheet, to out/.
set -euo pipefail
cd "$(dirname "$0")"

scripts/install_packages.sh
scripts/build.sh release velmora velmora-drive velmora-scan velmora-walk velmora_guide
programs=build/release/bin

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$programs/velmora" "$@"
fi

mkdir -p out
QT_QPA_PLATFORM=offscreen "$programs/velmora" --pictures out
for screen in "1280x720 100" "1280x800 100" "1920x1080 100" "3840x2160 200"; do
    read -r size percent <<<"$screen"
    "$programs/velmora-walk" "$size" "$percent" docs/guia/walk.txt "out/paseo_${size}_$percent"
done
"$programs/velmora-drive" --keep out tests/scenarios/from_entry_to_order.drive >out/from_entry_to_order.txt

echo
echo "There is no display, so nothing was opened. Written instead, in $PWD/out:"
find out -type f | sort | sed 's/^/  /'
echo "The programs are in $PWD/$programs: velmora (with a display) and velmora-drive (plays scripts)."
