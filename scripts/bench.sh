#!/bin/sh
# bench.sh [SIZE] [--keep]: builds the release preset and runs all measures on a database of SIZE proposals (default
# 1310720; made below TMPDIR, some 550 bytes each, and deleted). Prints one table and compares it with the one kept in
# bench/kept.tsv; --keep writes it there. Takes ten minutes and more. The start is measured where DISPLAY is set.
set -eu
cd "$(dirname "$0")/.."

scripts/build.sh release velmora_bench velmora_bench_fill velmora_history_bench velmora_tracking_bench \
    velmora_finding_bench velmora_acceptance_bench velmora_export_bench velmora_clients_bench velmora_bare_window velmora
exec python3 scripts/bench_table.py build/release/bin bench/kept.tsv "$@"
