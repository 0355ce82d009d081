#!/usr/bin/env python3
"""The long forms of all trials, or of those that are named: shares the hours among them, and prints one table.

    run_trials.py --build DIR --hours H [--seed N] [--jobs N] [--markdown FILE] [--trials FILE] [NAME…]

Ends with status 1 when anything that was tried has not held, or a trial has not told its results. When it is
interrupted (Ctrl+C, or told to end), it ends the trials with all that they have started, tells the results of those
that were done, and ends with status 130.
"""

import argparse
import datetime
import json
import os
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
# What a trial may take beyond its time to end its last round.
GRACE_SECONDS = 600
# What a trial may take to tidy up when it is interrupted.
LAST_SECONDS = 10
LOOK_SECONDS = 0.1
INTERRUPTED = 130
COLUMNS = ("Trial", "Tried", "Held", "Not held", "Minutes", "Seed", "Counted")


def table(file):
    for line in file.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            name, program, _, share, _ = line.split()
            yield name, program, float(share)


def command(program, build):
    return [sys.executable, str(HERE / program)] if program.endswith(".py") else [str(build / "tests" / program)]


class Runs:
    """The trials that are running, each with all that it starts in a process group of its own."""

    def __init__(self):
        self._lock = threading.Lock()
        self._running = []
        self.interrupted = False

    def run(self, arguments, seconds, **surroundings):
        """The exit status; "timeout" or "interrupted" when it was ended."""
        with self._lock:
            if self.interrupted:
                return "interrupted"
            process = subprocess.Popen(arguments, start_new_session=True, **surroundings)
            self._running.append(process)
        in_time = self._ends_within(process, seconds)
        with self._lock:
            self._running.remove(process)
        # It, and what it has left running.
        self._signal(process, signal.SIGKILL)
        status = process.wait()
        if self.interrupted:
            return "interrupted"
        return status if in_time else "timeout"

    def interrupt(self, seconds):
        """Each may tidy up first, for so long. Nothing is started any more."""
        with self._lock:
            self.interrupted = True
            for process in self._running:
                self._signal(process, signal.SIGINT)
        until = time.monotonic() + seconds
        while self._running and time.monotonic() < until:
            time.sleep(LOOK_SECONDS)
        with self._lock:
            for process in self._running:
                self._signal(process, signal.SIGKILL)

    @staticmethod
    def _ends_within(process, seconds):
        """Its number stays its own until somebody waits for it, and with it that of its group."""
        until = time.monotonic() + seconds
        while os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOHANG | os.WNOWAIT) is None:
            if time.monotonic() >= until:
                return False
            time.sleep(LOOK_SECONDS)
        return True

    @staticmethod
    def _signal(process, number):
        try:
            os.killpg(process.pid, number)
        except ProcessLookupError:
            pass  # nobody is left in its group


def run(name, program, seconds, options, log, runs):
    """The line of results of one trial."""
    begun = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="velmora-trials-", ignore_cleanup_errors=True) as folder:
        results = Path(folder) / "results"
        arguments = ["--build", str(options.build), "--name", name, "--seed", str(options.seed)]
        arguments += ["--seconds", f"{seconds:.0f}", "--results", str(results)]
        # What it leaves in its folder for temporary files goes with this one.
        environment = os.environ | {"PYTHONDONTWRITEBYTECODE": "1", "QT_QPA_PLATFORM": "offscreen", "TMPDIR": folder}
        with (log / f"{name}.log").open("w", encoding="utf-8") as out:
            status = runs.run(command(program, options.build) + arguments, seconds + GRACE_SECONDS, stdout=out,
                              stderr=subprocess.STDOUT, env=environment)
        lines = results.read_text(encoding="utf-8").splitlines() if results.exists() else []
    line = json.loads(lines[-1]) if lines else {"tried": 0, "held": 0, "failed": 0, "notes": {}}
    line.setdefault("seconds", time.monotonic() - begun)
    line |= {"trial": name, "seed": options.seed, "good": status == 0 and bool(lines) and line["failed"] == 0}
    if not line["good"]:
        line["notes"] = line.get("notes", {}) | {f"status {status}": 1}
    return line


def run_all(trials, options, log, asked_to_end):
    """Several at a time, the longest first; each gets its share of the hours of all jobs. Their lines of results, and
    whether they were interrupted."""
    shares = sum(share for _, _, share in trials)
    all_seconds = options.hours * 3600 * options.jobs
    waiting = sorted(trials, key=lambda trial: -trial[2])
    done, lock, runs = {}, threading.Lock(), Runs()

    def work():
        while True:
            with lock:
                if not waiting or runs.interrupted:
                    return
                name, program, share = waiting.pop(0)
            line = run(name, program, all_seconds * share / shares, options, log, runs)
            with lock:
                done[name] = line
                print(f"{name}: {line['tried']} tried, {line['held']} held", flush=True)

    threads = [threading.Thread(target=work) for _ in range(options.jobs)]
    for thread in threads:
        thread.start()
    while any(thread.is_alive() for thread in threads) and not asked_to_end.wait(LOOK_SECONDS):
        pass
    if asked_to_end.is_set():
        runs.interrupt(options.last_seconds)
    for thread in threads:
        thread.join()
    return [done[name] for name, _, _ in trials if name in done], runs.interrupted


def what_was_tried(build):
    """The version of the program and the commit that it is built from, as far as they can be told."""
    def told(*arguments):
        try:
            return subprocess.run(arguments, capture_output=True, text=True, check=True, cwd=HERE).stdout.strip()
        except (OSError, subprocess.CalledProcessError):
            return ""

    version = told(str(build / "bin" / "velmora-drive"), "--version") or "of an unknown version"
    commit = told("git", "rev-parse", "--short", "HEAD") or "unknown"
    changed = " with changes" if told("git", "status", "--porcelain", "--untracked-files=no") else ""
    return f"{version}, commit {commit}{changed}"


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
    parser.add_argument("--last-seconds", type=float, default=LAST_SECONDS)
    parser.add_argument("--trials", type=Path, default=HERE / "trials.txt")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    options.build = options.build.resolve()
    trials = [trial for trial in table(options.trials) if not options.names or trial[0] in options.names]
    if not trials or set(options.names) - {name for name, _, _ in trials}:
        sys.exit("no such trial")
    log = options.build / "trial"
    log.mkdir(exist_ok=True)

    # Whoever ends it by its process id interrupts it, as Ctrl+C does.
    asked_to_end = threading.Event()
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda *_: asked_to_end.set())
    lines, interrupted = run_all(trials, options, log, asked_to_end)
    rows = [cells(line) for line in [*lines, total(lines)]]
    now = datetime.datetime.now().strftime("%Y-%m-%d %H:%M")
    head = f"{now}, {what_was_tried(options.build)}, {options.hours:g} hours, {options.jobs} at a time"
    print("\n".join([head + (", interrupted" if interrupted else ""), *plain(rows)]))
    if interrupted:
        return INTERRUPTED
    if options.markdown:
        options.markdown.write_text(f"{head}.\n\n" + "\n".join(markdown(rows)) + "\n", encoding="utf-8")
    return 0 if all(line["good"] for line in lines) else 1


if __name__ == "__main__":
    sys.exit(main())
