#!/usr/bin/env python3
"""run_stories.py NATIVE HOST MODULE [--walks N] [SCENARIO…]: plays scenarios natively and through the component's
border: those that are named, or all and N random walks (tests/apps/random_walks.py), 12 unless told.

NATIVE is velmora-drive, HOST the host under Wine, MODULE the module of the stories. Each scenario is played by both on
equal files; output, exit status, the reason of an early end, and the papers and spreadsheets must be equal, but for the
differences listed here, and those that no host can play. Prints a table: COM calls, statements, seconds of both. Ends with 1 when something differs.
"""
import argparse
import concurrent.futures
import os
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "apps"))
import random_walks  # noqa: E402

SCENARIOS = ROOT / "tests" / "scenarios"
WINE = ROOT / "scripts" / "wine.sh"
SECONDS = 120
ACTIONS = 150  # of a walk
WALKS = 12

# scenario, what stands in the native line, what the border has in its place, why
DIFFERENCES = []

# Scenario: why no host can play it.
NATIVE_ONLY = {
    "price_explained.drive": "prints by VELMORA.Hojas, which the desktop and the driver have and a host has not",
    "price_ladder.drive": "prints by VELMORA.Hojas, which the desktop and the driver have and a host has not",
}

# The part of a spreadsheet that holds the moment of its writing is not compared.
NOT_COMPARED = {"docProps/core.xml"}


class Played(NamedTuple):
    status: int
    output: bytes
    reason: str
    written: dict
    seconds: float
    traffic: str = ""


class Row(NamedTuple):
    name: str
    faults: list
    native: Played
    border: Played


def header(scenario, name):
    for line in scenario.read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            break
        if line.startswith(f"# {name}: "):
            return line.split(": ", 1)[1]
    return None


def stage(scenario, work):
    """The folder in which the scenario runs: a copy of its files, if it has some."""
    files = scenario.with_suffix(".files")
    if not files.is_dir():
        return SCENARIOS
    copy = work / "files"
    shutil.copytree(files, copy)
    closed = header(scenario, "read-only")
    if closed:
        (copy / closed).chmod(0o444)
    return copy


def content(path):
    """What a paper or spreadsheet says."""
    if path.suffix == ".xlsx":
        with zipfile.ZipFile(path) as book:
            return {name: book.read(name) for name in book.namelist() if name not in NOT_COMPARED}
    if path.suffix == ".pdf":
        run = subprocess.run(["pdftotext", "-layout", path, "-"], capture_output=True, check=False)
        if run.returncode == 0:
            return run.stdout
    return path.read_bytes()  # a user's document, whatever its name says


def contents(folder):
    return {path.name: content(path) for path in sorted(folder.iterdir())} if folder.is_dir() else {}


def play(command, scenario, work, environment):
    """The run, its standard output, its reason and seconds."""
    at = stage(scenario, work)
    begun = time.monotonic()
    run = subprocess.run(command, cwd=at, env=environment, capture_output=True, timeout=SECONDS, check=False)
    # The graphics library of both tells where it keeps its files.
    reasons = [line for line in run.stderr.decode(errors="replace").splitlines() if "QStandardPaths" not in line]
    return run, "\n".join(reasons), time.monotonic() - begun


def native(driver, scenario):
    with tempfile.TemporaryDirectory() as folder:
        work = Path(folder)
        command = [driver, "--keep", work / "written", scenario]
        run, reason, seconds = play(command, scenario, work, os.environ)
        return Played(run.returncode, run.stdout, reason, contents(work / "written"), seconds)


def border(host, module, scenario, programs):
    with tempfile.TemporaryDirectory() as folder:
        work = Path(folder)
        environment = {**os.environ, "VELMORA_PROGRAMS": str(programs), "VELMORA_WINE_NAME": "stories"}
        command = [WINE, host, f"Z:{module}", work, scenario]
        run, reason, seconds = play(command, scenario, work, environment)
        output = (work / "output").read_bytes() if (work / "output").exists() else b""
        traffic = (work / "traffic").read_text() if (work / "traffic").exists() else "- - -"
        return Played(run.returncode, output, reason, contents(work / "written"), seconds, traffic)


def settled(name, output):
    """The native output with the listed differences put in."""
    for scenario, ours, theirs, _ in DIFFERENCES:
        if scenario == name:
            output = output.replace(ours.encode(), theirs.encode())
    return output


def first_difference(ours, theirs):
    ours, theirs = ours.decode(errors="replace").splitlines(), theirs.decode(errors="replace").splitlines()
    for number in range(max(len(ours), len(theirs))):
        pair = [lines[number] if number < len(lines) else "(nothing)" for lines in (ours, theirs)]
        if pair[0] != pair[1]:
            return f"line {number + 1}\n      native: {pair[0]}\n      border: {pair[1]}"
    return "line ends"


def compare(name, ours, theirs):
    faults = []
    if ours.status != theirs.status:
        faults.append(f"status {theirs.status}, not {ours.status}")
    expected = settled(name, ours.output)
    if expected != theirs.output:
        faults.append(first_difference(expected, theirs.output))
    if ours.reason != theirs.reason:
        faults.append(f"reason\n      native: {ours.reason}\n      border: {theirs.reason}")
    if ours.written.keys() != theirs.written.keys():
        faults.append(f"files {sorted(theirs.written)}, not {sorted(ours.written)}")
    for file in ours.written.keys() & theirs.written.keys():
        if ours.written[file] != theirs.written[file]:
            faults.append(f"the content of {file}")
    return faults


def row_of(driver, host, module, scenario):
    ours = native(driver, scenario)
    try:
        theirs = border(host, module, scenario, driver.parent)
    except subprocess.TimeoutExpired:
        theirs = Played(-1, b"", f"no end after {SECONDS} s", {}, SECONDS, "- - -")
    return Row(scenario.stem, compare(scenario.name, ours, theirs), ours, theirs)


def write_walks(folder, count):
    """Random walks at a stopped clock, each of which prints its form at the end."""
    for seed in range(1, count + 1):
        *actions, close = random_walks.walk(seed, ACTIONS)
        lines = ['# options: --now "2026-01-15 10:00:00"', *actions, "dump", close]
        (folder / f"random_walk_{seed:02}.drive").write_text("\n".join(lines) + "\n", encoding="utf-8")
    return sorted(folder.glob("*.drive"))


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("driver", "host", "module"):
        parser.add_argument(name, type=Path)
    parser.add_argument("--walks", type=int, default=WALKS)
    parser.add_argument("scenarios", type=Path, nargs="*")
    given = parser.parse_args(arguments)
    named = [path.resolve() for path in given.scenarios]
    with tempfile.TemporaryDirectory() as folder:
        all_of_them = [path for path in sorted(SCENARIOS.glob("*.drive")) if path.name not in NATIVE_ONLY]
        scenarios = named or all_of_them + write_walks(Path(folder), given.walks)
        for name, reason in {} if named else NATIVE_ONLY.items():
            print(f"not played: {name}: {reason}")
        return play_all(given.driver.resolve(), given.host.resolve(), given.module.resolve(), scenarios)


def play_all(driver, host, module, scenarios):
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        rows = list(pool.map(lambda scenario: row_of(driver, host, module, scenario), scenarios))
    print(f"{'story':28} {'calls':>7} {'names':>7} {'stmts':>6} {'native s':>9} {'border s':>9}  result")
    for row in rows:
        calls, names, statements = row.border.traffic.split()
        result = "equal" if not row.faults else "DIFFERS: " + "; ".join(row.faults)
        if not row.faults and any(difference[0] == f"{row.name}.drive" for difference in DIFFERENCES):
            result = "equal but for what is listed"
        print(
            f"{row.name:28} {calls:>7} {names:>7} {statements:>6} {row.native.seconds:9.2f} {row.border.seconds:9.2f}"
            f"  {result}"
        )
    failed = [row for row in rows if row.faults]
    papers = sum(len(row.native.written) for row in rows)
    print(
        f"{len(rows) - len(failed)} of {len(rows)} stories equal, with {papers} files; seconds "
        f"{sum(row.native.seconds for row in rows):.1f} native, {sum(row.border.seconds for row in rows):.1f} border"
    )
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
