#!/usr/bin/env python3
"""The check of includes against the picture of the rooms, on a tiny house of its own."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CMAKE = sys.argv.pop(1)
SCRIPT = Path(__file__).resolve().parent.parent.parent / "cmake" / "check_picture.cmake"

# estimate links data, data links platform; platform has two layers.
TABLE = """
list(APPEND folders "platform")
set("allowed platform" )
list(APPEND folders "data")
set("allowed data" platform)
list(APPEND folders "estimate")
set("allowed estimate" data;platform)
list(APPEND layers "platform/runtime")
set("allowed platform/runtime" )
list(APPEND layers "platform/sql")
set("allowed platform/sql" platform/runtime)
"""

SOUND = {
    "platform/runtime/numbers.h": "",
    "platform/sql/value.h": '#include "velmora/platform/runtime/numbers.h"\n',
    "data/schema.h": '#include "velmora/platform/sql/value.h"\n#include <string>\n',
    "estimate/rules.h": "",
    "estimate/rules.cpp": '#include "velmora/estimate/rules.h"\n#include "velmora/data/schema.h"\n',
}


class Picture(unittest.TestCase):
    def check(self, changes):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            table = root / "picture.cmake"
            table.write_text(TABLE, encoding="utf-8")
            for name, content in {**SOUND, **changes}.items():
                path = root / "velmora" / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(content, encoding="utf-8")
            run = subprocess.run(
                [CMAKE, f"-DTABLE={table}", f"-DROOT={root / 'velmora'}", "-P", str(SCRIPT)],
                capture_output=True, text=True, encoding="utf-8", check=False,
            )
        return run.returncode, run.stdout + run.stderr

    def assertRefused(self, name, header, expected):
        status, output = self.check({name: f'#include "{header}"\n'})
        self.assertNotEqual(status, 0, output)
        self.assertIn(name, output)
        self.assertIn(expected, output)

    def test_a_sound_house_is_let_through(self):
        status, output = self.check({})
        self.assertEqual(status, 0, output)

    def test_an_include_of_a_room_that_is_not_linked_is_refused(self):
        self.assertRefused("data/schema.cpp", "velmora/estimate/rules.h", "does not link that room")
        self.assertRefused("platform/sql/value.cpp", "velmora/data/schema.h", "does not link that room")

    def test_a_layer_does_not_include_what_stands_above_it(self):
        self.assertRefused("platform/runtime/numbers.cpp", "velmora/platform/sql/value.h", "stands below")

    def test_a_header_that_is_not_there_is_refused(self):
        self.assertRefused("data/schema.cpp", "velmora/cellar/wine.h", "no header")


if __name__ == "__main__":
    unittest.main()
