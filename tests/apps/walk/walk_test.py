#!/usr/bin/env python3
"""walk_test.py PROGRAM STEPS FOLDER: plays the walk on a screen of 1280x720 and on one of 3840x2160 at 200 %, and looks
at what was written: a picture for each step that asks for one, of the size of the screen."""
import re
import shutil
import subprocess
import sys
from pathlib import Path

PROGRAM, STEPS, FOLDER = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])


def size_of(png):
    content = png.read_bytes()
    return tuple(int.from_bytes(content[at:at + 4], "big") for at in (16, 20))


def play(width, height, percent):
    folder = FOLDER / f"{width}x{height}"
    shutil.rmtree(folder, ignore_errors=True)
    subprocess.run([PROGRAM, f"{width}x{height}", str(percent), str(STEPS), str(folder)], check=True)
    text = STEPS.read_text(encoding="utf-8")
    for name in re.findall(r"^picture (\S+)$", text, re.M):
        assert size_of(folder / f"{name}.png") == (width, height), name
    for name in re.findall(r"^window (\S+)$", text, re.M):
        assert size_of(folder / f"{name}.png") < (width, height), name
    for name in re.findall(r"^paper (\S+)$", text, re.M):
        assert (folder / f"{name}.pdf").read_bytes().startswith(b"%PDF"), name


def mistaken_walk():
    """A walk that leaves a window open is refused."""
    steps = FOLDER / "open.txt"
    steps.write_text("keys {!D}{^N}\npicture open\n", encoding="utf-8")
    done = subprocess.run([PROGRAM, "1280x720", "100", str(steps), str(FOLDER / "open")], check=False,
                          capture_output=True, text=True)
    assert done.returncode == 1 and "still open" in done.stderr, done


FOLDER.mkdir(parents=True, exist_ok=True)
play(1280, 720, 100)
play(3840, 2160, 200)
mistaken_walk()
