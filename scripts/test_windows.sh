#!/bin/bash
# Installs what is missing, builds the component for Windows, of 64 and of 32 bits, runs its tests under Wine, plays the
# scenarios through it, and writes pictures of its windows to out/windows.
set -uo pipefail
cd "$(dirname "$0")/.." || exit 1

scripts/install_packages.sh || exit 1
scripts/install_packages.sh scripts/windows_packages.txt || exit 1
scripts/install_wine32.sh || exit 1
# The prefixes are made before anything is timed or runs in parallel. Nothing needs a display.
unset DISPLAY WAYLAND_DISPLAY
for size in "" --32; do
    # shellcheck disable=SC2086
    said=$(scripts/wine.sh $size cmd /c 'echo said& exit 7')
    status=$?
    if [ "$status" -ne 7 ] || [ "${said%$'\r'}" != said ]; then
        echo "scripts/wine.sh $size hands on neither output nor exit status: $status, \"$said\"" >&2
        exit 1
    fi
done

presets=(windows windows32)
failed=0
for preset in "${presets[@]}"; do
    scripts/test_preset.sh "$preset" || failed=1
done

# The scenarios, played natively and across the component's border.
echo "== stories"
rm -f build/stories/stories.log
scripts/build.sh stories velmora-drive velmora-scan velmora-story-host &&
    tests/windows/run_stories.py build/stories/bin/velmora-drive build/stories/bin/velmora-story-host.exe.so \
        build/windows/tests/velmora_stories.dll 2>&1 | tee build/stories/stories.log || failed=1

# Every form as a person sees it, at both scales.
echo "== pictures"
tests/adapters/win32/write_pictures.sh out/windows || failed=1

scripts/test_summary.sh "${presets[@]}"
echo
echo "== stories"
tail -n 1 build/stories/stories.log || failed=1
echo "$(find out/windows -name '*.png' | wc -l) pictures in out/windows"
exit "$failed"
