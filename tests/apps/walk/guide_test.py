#!/usr/bin/env python3
"""guide_test.py TEXT STEPS GUIDE: the guide as it was built: every picture that it names was made, every step of the walk
that makes one is used, its PDF holds its chapters, and every picture is in it."""
import re
import subprocess
import sys
from pathlib import Path

TEXT, STEPS, GUIDE = (Path(argument) for argument in sys.argv[1:4])

text = TEXT.read_text(encoding="utf-8")
named = re.findall(r"!\[[^\]]+\]\((imagenes/[^)]+)\)", text)
missing = [name for name in named if not (GUIDE / name).is_file()]
assert not missing, missing
assert len(named) == len(set(named)) and len(named) > 15, named

made = re.findall(r"^(?:window|picture|paper) (\S+)$", STEPS.read_text(encoding="utf-8"), re.M)
unused = [name for name in made if f"imagenes/{name}.png" not in named]
assert not unused, unused

pdf = GUIDE / "guia.pdf"
words = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True).stdout
for heading in re.findall(r"^## (.+)$", text, re.M):
    assert heading in words, heading
assert "@" not in words
listed = subprocess.run(["pdfimages", "-list", pdf], capture_output=True, text=True, check=True).stdout
assert sum(" image " in line for line in listed.splitlines()) >= len(named), listed
