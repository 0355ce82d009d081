#!/usr/bin/env python3
"""The check of the packages refuses what nothing needs, and what a package does not bring."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parent.parent.parent / "scripts" / "check_packages.py"


class Packages(unittest.TestCase):
    def check(self, row, name="scripts/packages.txt"):
        with tempfile.TemporaryDirectory() as root:
            for name, text in {name: f"# a comment\n\n{row}\n", "src/a.cpp": "#include <a.h>\n"}.items():
                path = Path(root) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            run = subprocess.run(
                [sys.executable, str(SCRIPT), root], capture_output=True, text=True, encoding="utf-8", check=False
            )
            self.assertEqual(run.returncode, 1 if run.stdout else 0, run.stderr)
            return run.stdout

    def test_a_package_that_is_needed_passes(self):
        self.assertEqual(self.check("some-package | a.h | src: #include <a.h>"), "")
        self.assertEqual(self.check("some-package | - | src/a.cpp: #include <a.h>"), "")

    def test_a_package_that_nothing_needs_is_refused(self):
        expected = "scripts/packages.txt:3: some-package is unused: src does not hold #include <b.h>\n"
        self.assertEqual(self.check("some-package | b.h | src: #include <b.h>"), expected)

    def test_every_list_is_read(self):
        expected = "scripts/windows_packages.txt:3: some-package is unused: src does not hold #include <b.h>\n"
        self.assertEqual(self.check("some-package | b.h | src: #include <b.h>", "scripts/windows_packages.txt"), expected)

    def test_a_package_without_the_file_is_refused(self):
        expected = "scripts/packages.txt:3: python3 does not bring a.h\n"
        self.assertEqual(self.check("python3 | a.h | src: #include <a.h>"), expected)

    def test_a_row_of_another_form_is_refused(self):
        expected = "scripts/packages.txt:3: is not: package | file | place: text\n"
        self.assertEqual(self.check("some-package"), expected)
        self.assertEqual(self.check("some-package | a.h | src"), expected)


if __name__ == "__main__":
    unittest.main()
