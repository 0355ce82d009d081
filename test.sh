#!/bin/bash
# Installs what is missing, builds, and runs every test: as it ships, and under the sanitizers. The tests on Windows are
# scripts/test_windows.sh.
set -uo pipefail
cd "$(dirname "$0")" || exit 1

scripts/install_packages.sh || exit 1

presets=(release asan-ubsan)
failed=0
for preset in "${presets[@]}"; do
    scripts/test_preset.sh "$preset" || failed=1
done
scripts/test_summary.sh "${presets[@]}"
exit "$failed"
