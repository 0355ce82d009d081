#!/bin/bash
# Installs what is missing, builds the component for Windows, of 64 and of 32 bits, and runs its tests under Wine.
set -uo pipefail
cd "$(dirname "$0")/.." || exit 1

scripts/install_packages.sh || exit 1
scripts/install_packages.sh scripts/windows_packages.txt || exit 1
scripts/install_wine32.sh || exit 1
# The prefixes are made before anything is timed or runs in parallel. Nothing needs a display.
unset DISPLAY WAYLAND_DISPLAY
scripts/wine.sh cmd /c exit 0 || exit 1
scripts/wine.sh --32 cmd /c exit 0 || exit 1

presets=(windows windows32)
failed=0
for preset in "${presets[@]}"; do
    scripts/test_preset.sh "$preset" || failed=1
done
scripts/test_summary.sh "${presets[@]}"
exit "$failed"
