#!/bin/bash
# trial.sh HOURS [NAME…]: builds what ships and plays the long form of every trial, or of those that are named; the
# hours are shared among them. Prints one table of what was tried and what held, with version and commit, which goes to
# build/release/trial.md too; what each trial has said is in build/release/trial/. The status is not 0 when anything did
# not hold. Ctrl+C ends all that runs, and the table of what was done is printed.
set -euo pipefail
cd "$(dirname "$0")/.."

hours=${1:?"trial.sh HOURS [NAME…]"}
shift
scripts/build.sh release
exec python3 tests/trial/run_trials.py --build build/release --hours "$hours" --markdown build/release/trial.md "$@"
