"""The frame of the trials: options, rounds, what was tried and what held, the line of results.

A trial is a program of this folder or of the build that takes

    --build DIR        where the programs under trial were built: DIR/bin/velmora-drive, DIR/tests/…
    --name NAME        its name in trials.txt
    --seed N           every round depends on this and on the round's number alone
    --count N          rounds of the short form, or
    --seconds N        rounds until this time is over
    --first N          number of the first round; with --count 1 one round is played again
    --results FILE     one line of JSON is appended: trial, tried, held, failed, seed, seconds, notes

and ends with status 0 when everything that was tried has held. A trial in Python uses the class below:

    with Trial() as trial:
        for round_, rng in trial.rounds():
            trial.hold(what_must_hold, "what it was", "details of a failure")
"""

import argparse
import contextlib
import json
import random
import shutil
import sys
import tempfile
import time
from pathlib import Path

# Failures that are told in full; the others are only counted.
MOST_TOLD = 20


def options(parser):
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--name", required=True)
    parser.add_argument("--seed", type=int, default=1)
    length = parser.add_mutually_exclusive_group(required=True)
    length.add_argument("--count", type=int)
    length.add_argument("--seconds", type=float)
    parser.add_argument("--first", type=int, default=0)
    parser.add_argument("--results", type=Path)
    return parser


class Trial:
    def __init__(self, parser=None):
        self.options = options(parser or argparse.ArgumentParser()).parse_args()
        self.build = self.options.build.resolve()
        self.driver = self.build / "bin" / "velmora-drive"
        self.folder = Path(tempfile.mkdtemp(prefix=f"velmora-trial-{self.options.name}-"))
        self.round = None
        self.tried = 0
        self.failed = 0
        self.notes = {}
        self._begun = time.monotonic()

    def program(self, name):
        """A program of the tests."""
        return self.build / "tests" / name

    def rounds(self):
        """Numbers of rounds and a source of random numbers for each, until the count or the time is over."""
        for number in range(self.options.first, sys.maxsize):
            done = number - self.options.first
            if self.options.count is not None and done >= self.options.count:
                return
            if self.options.seconds is not None and self.seconds() >= self.options.seconds:
                return
            self.round = number
            yield number, random.Random(f"{self.options.seed}/{number}")

    def seconds(self):
        return time.monotonic() - self._begun

    def hold(self, held, what, details=""):
        """Counts one thing that was tried; tells what did not hold. Gives whether it held."""
        self.tried += 1
        if not held:
            self.failed += 1
            if self.failed <= MOST_TOLD:
                print(f"round {self.round}, seed {self.options.seed}: {what}\n{details}".rstrip(), flush=True)
        return held

    def note(self, what, count=1):
        """Counts something that the table shows beside the results, such as the kills that hit."""
        self.notes[what] = self.notes.get(what, 0) + count

    def fresh_folder(self):
        """The trial's folder, emptied."""
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        return self.folder

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        shutil.rmtree(self.folder, ignore_errors=True)
        if kind is not None:
            return False
        line = {
            "trial": self.options.name,
            "tried": self.tried,
            "held": self.tried - self.failed,
            "failed": self.failed,
            "seed": self.options.seed,
            "seconds": round(self.seconds(), 1),
            "notes": self.notes,
        }
        text = json.dumps(line, ensure_ascii=False)
        print(text)
        if self.options.results:
            with contextlib.closing(self.options.results.open("a", encoding="utf-8")) as results:
                results.write(text + "\n")
        sys.exit(1 if self.failed or not self.tried else 0)
