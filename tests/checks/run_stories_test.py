#!/usr/bin/env python3
"""The comparison of the stories refuses every difference between the native driver and the component's border."""

import sys
import unittest
from pathlib import Path
from unittest import mock

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "windows"))
import run_stories  # noqa: E402

PLAYED = run_stories.Played(0, b"one\ntwo\n", "", {"a.pdf": b"paper"}, 0.1, "1 2 3")


class Stories(unittest.TestCase):
    def faults(self, **changes):
        return run_stories.compare("a.drive", PLAYED, PLAYED._replace(**changes))

    def test_what_is_equal_passes(self):
        self.assertEqual(self.faults(), [])
        self.assertEqual(self.faults(seconds=9.0, traffic="7 8 9"), [])

    def test_each_difference_is_told(self):
        self.assertEqual(self.faults(status=3), ["status 3, not 0"])
        self.assertEqual(self.faults(output=b"one\ntwu\n"), ["line 2\n      native: two\n      border: twu"])
        self.assertEqual(self.faults(output=b"one\n"), ["line 2\n      native: two\n      border: (nothing)"])
        self.assertEqual(self.faults(output=b"one\r\ntwo\n"), ["line ends"])
        self.assertEqual(self.faults(reason="a"), ["reason\n      native: \n      border: a"])
        self.assertEqual(self.faults(written={}), ["files [], not ['a.pdf']"])
        self.assertEqual(self.faults(written={"a.pdf": b"other"}), ["the content of a.pdf"])

    def test_a_listed_difference_is_the_only_one_let_through(self):
        with mock.patch.object(run_stories, "DIFFERENCES", [("a.drive", "two", "three", "a reason")]):
            self.assertEqual(self.faults(output=b"one\nthree\n"), [])
            self.assertEqual(self.faults(output=b"ONE\nthree\n"), ["line 1\n      native: one\n      border: ONE"])
            self.assertEqual(len(self.faults()), 1)


if __name__ == "__main__":
    unittest.main()
