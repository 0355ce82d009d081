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

# A heading is followed by something on its page. The last line of each page is its number.
headings = {re.sub(r"[*`]", "", heading) for heading in re.findall(r"^#+ (.+)$", text, re.M)}
pages = [[line.strip() for line in page.splitlines() if line.strip()] for page in words.split("\f")]
pages = [page for page in pages if page]
assert len(pages) > 5 and [page[-1] for page in pages] == [str(i + 1) for i in range(len(pages))], pages
alone = [page[-2] for page in pages if len(page) > 1 and page[-2] in headings]
assert not alone, alone
listed = subprocess.run(["pdfimages", "-list", pdf], capture_output=True, text=True, check=True).stdout
assert sum(" image " in line for line in listed.splitlines()) >= len(named), listed
