#!/usr/bin/env python3
"""linked_libraries.py (--with|--without) LIBRARY PROGRAM… […]: holds what programs link against what they may.

A library is named by the beginning of its file ("libsane."), a program by its path. Ends with 1 and a line for each
program that is not as it is to be.
"""
import subprocess
import sys


def needed(program):
    """The shared libraries that the program names itself."""
    told = subprocess.run(["readelf", "-d", program], capture_output=True, text=True, check=True, env={"LC_ALL": "C"})
    lines = [line for line in told.stdout.splitlines() if "(NEEDED)" in line]
    return [line.rpartition("[")[2].rstrip("]") for line in lines]


def findings(arguments):
    found = []
    wanted, library = True, None
    words = iter(arguments)
    for word in words:
        if word in ("--with", "--without"):
            wanted, library = word == "--with", next(words)
            continue
        links = any(name.startswith(library) for name in needed(word))
        if links != wanted:
            found.append(f"{word}: {'links' if links else 'does not link'} {library}")
    return found


if __name__ == "__main__":
    refused = findings(sys.argv[1:])
    print("\n".join(refused), end="\n" if refused else "")
    sys.exit(1 if refused else 0)
