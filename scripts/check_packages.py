#!/usr/bin/env python3
"""check_packages.py [ROOT]: holds the lists of packages against the sources and, where dpkg is, against the packages.

Each package stands beside a file that it brings and a text of ours that needs that file: a package that nothing needs
any more is refused. Ends with 1 and a line for each finding.
"""
import shutil
import subprocess
import sys
from pathlib import Path

LISTS = ("scripts/packages.txt", "scripts/windows_packages.txt")


def rows(path):
    """(number of the line, its cells); a line that is a comment, or empty, is none."""
    lines = path.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 1):
        if line.strip() and not line.startswith("#"):
            yield number, [cell.strip() for cell in line.split("|", 2)]


def stands(root, where, text):
    """Whether a file, or a file below a folder, holds the text."""
    place = root / where
    files = [place] if place.is_file() else (file for file in place.rglob("*") if file.is_file())
    return any(text in file.read_text(encoding="utf-8", errors="replace") for file in files)


def files_of(package):
    """The files of an installed package; none when it is not installed or the system has no dpkg."""
    if shutil.which("dpkg-query") is None:
        return None
    run = subprocess.run(["dpkg-query", "-L", package], capture_output=True, text=True, check=False)
    return run.stdout.splitlines() if run.returncode == 0 else None


def fault(root, cells):
    if len(cells) != 3 or ": " not in cells[2]:
        return "is not: package | file | place: text"
    package, brings, (where, text) = cells[0], cells[1], cells[2].split(": ", 1)
    if not stands(root, where, text):
        return f"{package} is unused: {where} does not hold {text}"
    files = files_of(package)
    if brings != "-" and files is not None and not any(file.endswith("/" + brings) for file in files):
        return f"{package} does not bring {brings}"
    return None


def findings(root):
    lists = (name for name in LISTS if (root / name).is_file())
    faults = ((name, number, fault(root, cells)) for name in lists for number, cells in rows(root / name))
    return [f"{name}:{number}: {what}" for name, number, what in faults if what]


if __name__ == "__main__":
    found = findings(Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent)
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)
