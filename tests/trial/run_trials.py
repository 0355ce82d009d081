#!/usr/bin/env python3
"""The long forms of all trials, or of those that are named: shares the hours among them, and prints one table.

    run_trials.py --build DIR --hours H [--seed N] [--jobs N] [--markdown FILE] [NAME…]

Ends with status 1 when anything that was tried has not held, or a trial has not told its results.
"""

import argparse
import datetime
import json
import os
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
# What a trial may take beyond its time to end its last round.
GRACE_SECONDS = 600
COLUMNS = ("Trial", "Tried", "Held", "Not held", "Minutes", "Seed", "Counted")


def table():
    for line in (HERE / "trials.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            name, program, _, share, _ = line.split()
            yield name, program, float(share)


def command(program, build):
    return [sys.executable, str(HERE / program)] if program.endswith(".py") else [str(build / "tests" / program)]


def run(name, program, seconds, options, log):
    """The line of results of one trial."""
    begun = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="velmora-trials-") as folder:
        results = Path(folder) / "results"
        arguments = ["--build", str(options.build), "--name", name, "--seed", str(options.seed)]
        arguments += ["--seconds", f"{seconds:.0f}", "--results", str(results)]
        with (log / f"{name}.log").open("w", encoding="utf-8") as out:
            environment = os.environ | {"PYTHONDONTWRITEBYTECODE": "1", "QT_QPA_PLATFORM": "offscreen"}
            try:
                status = subprocess.run(
                    command(program, options.build) + arguments,
                    stdout=out, stderr=subprocess.STDOUT, env=environment, timeout=seconds + GRACE_SECONDS, check=False,
                ).returncode
            except subprocess.TimeoutExpired:
                status = "timeout"
        lines = results.read_text(encoding="utf-8").splitlines() if results.exists() else []
    line = json.loads(lines[-1]) if lines else {"tried": 0, "held": 0, "failed": 0, "notes": {}}
    line.setdefault("seconds", time.monotonic() - begun)
    line |= {"trial": name, "seed": options.seed, "good": status == 0 and bool(lines) and line["failed"] == 0}
    if not line["good"]:
        line["notes"] = line.get("notes", {}) | {f"status {status}": 1}
    return line


def run_all(trials, options, log):
    """Several at a time, the longest first; each gets its share of the hours of all jobs."""
    shares = sum(share for _, _, share in trials)
    all_seconds = options.hours * 3600 * options.jobs
    waiting = sorted(trials, key=lambda trial: -trial[2])
    done, lock = {}, threading.Lock()

    def work():
        while True:
            with lock:
                if not waiting:
                    return
                name, program, share = waiting.pop(0)
            line = run(name, program, all_seconds * share / shares, options, log)
            with lock:
                done[name] = line
                print(f"{name}: {line['tried']} tried, {line['held']} held", flush=True)

    threads = [threading.Thread(target=work) for _ in range(options.jobs)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return [done[name] for name, _, _ in trials]


def grouped(number):
    return f"{number:,}"


def cells(line):
    notes = ", ".join(f"{grouped(count)} {what}" for what, count in line.get("notes", {}).items())
    missed = grouped(line["failed"]) if line["good"] or line["failed"] else "no result"
    return (line["trial"], grouped(line["tried"]), grouped(line["held"]), missed,
            f"{line['seconds'] / 60:.1f}", str(line["seed"]), notes)


def markdown(rows):
    yield "| " + " | ".join(COLUMNS) + " |"
    yield "|---|---:|---:|---:|---:|---:|---|"
    for row in rows:
        yield "| " + " | ".join(row) + " |"


def plain(rows):
    widths = [max(len(row[i]) for row in [COLUMNS, *rows]) for i in range(len(COLUMNS))]
    for row in [COLUMNS, *rows]:
        first, *numbers, last = (cell.ljust(width) if i in (0, len(COLUMNS) - 1) else cell.rjust(width)
                                 for i, (cell, width) in enumerate(zip(row, widths)))
        yield "  ".join([first, *numbers, last]).rstrip()


def total(lines):
    return {
        "trial": "all", "seed": "", "notes": {}, "good": all(line["good"] for line in lines),
        **{name: sum(line[name] for line in lines) for name in ("tried", "held", "failed", "seconds")},
    }


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--hours", type=float, required=True)
    parser.add_argument("--seed", type=int, default=int(time.time()))
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--markdown", type=Path)
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    options.build = options.build.resolve()
    trials = [trial for trial in table() if not options.names or trial[0] in options.names]
    if not trials or set(options.names) - {name for name, _, _ in trials}:
        sys.exit("no such trial")
    log = options.build / "trial"
    log.mkdir(exist_ok=True)

    lines = run_all(trials, options, log)
    rows = [cells(line) for line in [*lines, total(lines)]]
    print("\n".join(plain(rows)))
    if options.markdown:
        now = datetime.datetime.now().strftime("%Y-%m-%d %H:%M")
        options.markdown.write_text(
            f"{now}, {options.hours:g} hours, {options.jobs} at a time.\n\n" + "\n".join(markdown(rows)) + "\n",
            encoding="utf-8",
        )
    return 0 if all(line["good"] for line in lines) else 1


if __name__ == "__main__":
    sys.exit(main())
