#!/usr/bin/env python3
"""tidy.py [--build BUILD] [--analyze] [FOLDER…]: clang-tidy over src/velmora or some folders of it.

Many .cpp files are read as one unit, so that the headers which they include are parsed and checked once: one to two
seconds a file instead of six to nine. Two files may use one name in their unnamed namespaces; a file in which the
compiler therefore sees an error is read again, in a second unit with the other such files, in the end alone.

BUILD is a configured build folder, whose compile_commands.json has the flags; build/release if not given. --analyze
runs the static analyzer (clang-analyzer-*) too, for a third more time. TIDY_JOBS: how many processes; else one a
processor. Exit status: 0 nothing found; 1 findings, which are written to the output; 2 no such build or folder.
"""
import argparse
import concurrent.futures
import json
import os
import re
import resource
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCES = ROOT / "src" / "velmora"
UNIT_SIZE = 40  # files; more would leave a processor without work at the end
JOBS = int(os.environ.get("TIDY_JOBS", os.cpu_count()))
NOT_HERE = "-bugprone-suspicious-include"  # a unit is a list of includes of .cpp files
FINDING = re.compile(r"^(/\S+?):\d+:\d+: (?:warning|error): .*\[([^\]]+)\]$")
COMPILER_ERROR = "clang-diagnostic-error"


def units(build, wanted):
    """The .cpp files below the wanted folders of src/velmora, in parts of UNIT_SIZE that need the same flags."""
    seen, alike = set(), {}
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        for file in sources(Path(entry["directory"], entry["file"]).resolve()):
            if file not in seen and any(file.is_relative_to(SOURCES / folder) for folder in wanted):
                seen.add(file)
                alike.setdefault(tuple(clang_flags(entry["command"])), []).append(file)
    for flags, files in alike.items():
        for start in range(0, len(files), UNIT_SIZE):
            yield files[start : start + UNIT_SIZE], flags


def sources(compiled):
    """The file itself, or the sources that it includes where the build compiles several as one."""
    if compiled.parent.name != "Unity":
        return [compiled]
    return [Path(line) for line in re.findall(r'^#include "(.+\.cpp)"$', compiled.read_text(encoding="utf-8"), re.M)]


def clang_flags(command):
    """Where headers are, macros, the language; the rest is meant for another compiler."""
    words = iter(shlex.split(command)[1:])
    for word in words:
        if word in ("-isystem", "-I", "-D"):
            yield from (word, next(words))
        elif word.startswith(("-I", "-D", "-std=")):
            yield word


def read(unit, flags, checks):
    """What clang-tidy finds in our sources when it reads the unit: {(file, check, text)}."""
    run = subprocess.run(
        ["clang-tidy", "--quiet", f"--config-file={ROOT / '.clang-tidy'}", f"--checks={checks}",
         f"--header-filter=^{re.escape(str(SOURCES))}/", str(unit), "--"]
        + list(flags) + ["-ferror-limit=0", "-Wall", "-Wextra"],
        capture_output=True, text=True, check=False)  # fmt: skip
    found = []
    for line in run.stdout.splitlines():
        match = FINDING.match(line)
        if match:
            found.append([Path(match[1]), match[2], line])
        elif found:
            found[-1][2] += "\n" + line  # the source line, notes
    if run.returncode != 0 and not found:
        raise RuntimeError(f"clang-tidy: {unit}\n{run.stdout}{run.stderr}")
    return {tuple(finding) for finding in found}


def read_together(files, flags, checks, scratch):
    """The findings of the files; those in which the compiler sees an error are read again, apart from the others."""
    unit = files[0]
    if len(files) > 1:
        unit = scratch / f"{len(files)}_from_{unit.stem}.cpp"
        unit.write_text("".join(f'#include "{file}"\n' for file in files), encoding="utf-8")
    found = read(unit, flags, checks)
    errors = {file for file, check, _ in found if COMPILER_ERROR in check}
    if not errors or len(files) == 1:
        return found
    again = [file for file in files if file in errors]
    rest = [file for file in files if file not in errors]
    if not again or not rest:  # an error in a header: what causes it shows in a file alone
        return set().union(*(read_together([file], flags, checks, scratch) for file in files))
    if errors <= set(files):
        found = {finding for finding in found if finding[0] not in errors}
    else:  # one in a header as well, which one of these may cause
        found = read_together(rest, flags, checks, scratch)
    return found | read_together(again, flags, checks, scratch)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    parser.add_argument("--analyze", action="store_true")
    parser.add_argument("folders", nargs="*", metavar="FOLDER", default=["."], help="below src/velmora")
    options = parser.parse_args()
    checks = NOT_HERE if options.analyze else f"{NOT_HERE},-clang-analyzer-*"
    if not (options.build / "compile_commands.json").is_file():
        parser.error(f"{options.build} is not configured")
    wanted = list(units(options.build, options.folders))
    if not wanted:
        parser.error("no such folder")
    found = set()
    with tempfile.TemporaryDirectory() as scratch, concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        work = [pool.submit(read_together, *unit, checks, Path(scratch)) for unit in wanted]
        for done in concurrent.futures.as_completed(work):
            new = done.result() - found
            found |= new
            for _, _, text in sorted(new):
                print(text, flush=True)
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    files = sum(len(some) for some, _ in wanted)
    print(f"{len(found)} findings in {files} files; {used.ru_utime + used.ru_stime:.0f} s of processor time")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
