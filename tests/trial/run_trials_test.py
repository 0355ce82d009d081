#!/usr/bin/env python3
"""What run_trials.py tells of trials that hold, that fail and that say nothing, and what it leaves when it is ended."""

import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

RUNNER = Path(__file__).resolve().with_name("run_trials.py")
RESULTS = '{{"trial": "x", "tried": 1200, "held": {held}, "failed": {failed}, "seed": 1, "seconds": 60, "notes": {{"kills": 7}}}}'
# Takes its options as a trial does: the name of its file of results is the last of them.
TOLD = """#!/bin/sh
for last; do :; done
echo '{results}' >> "$last"
exit {status}
"""
# A trial that has started another program, and does not end when it is asked to.
STUBBORN = """#!/bin/sh
trap '' INT TERM
mktemp -d
sleep 600 &
echo $$ > {folder}/pids
echo $! >> {folder}/pids
touch {folder}/ready
while :; do sleep 1; done
"""


class RunTrials(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.table = self.folder / "trials.txt"
        for name in ("bin", "tests", "temporary"):
            (self.folder / name).mkdir()
        self.program("bin/velmora-drive", "#!/bin/sh\necho velmora-drive 1.2.3\n")

    def program(self, path, text):
        file = self.folder / path
        file.write_text(text, encoding="utf-8")
        file.chmod(0o755)

    def trial(self, name, text):
        self.program(f"tests/{name}", text)
        with self.table.open("a", encoding="utf-8") as table:
            table.write(f"{name} {name} 1 1 no\n")

    def start(self, *arguments):
        command = [sys.executable, str(RUNNER), "--build", self.folder, "--hours", "0.0003", "--trials", self.table]
        return subprocess.Popen(
            [*command, *arguments], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            env=os.environ | {"TMPDIR": str(self.folder / "temporary")})

    def told(self, process):
        said, _ = process.communicate(timeout=60)
        return process.returncode, said

    def test_what_holds_is_told_with_version_and_commit(self):
        self.trial("good", TOLD.format(results=RESULTS.format(held=1200, failed=0), status=0))
        page = self.folder / "page.md"
        status, said = self.told(self.start("--markdown", str(page)))
        self.assertEqual(status, 0, said)
        self.assertRegex(said, r"velmora-drive 1\.2\.3, commit ([0-9a-f]{7,}( with changes)?|unknown), 0\.0003 hours")
        self.assertRegex(said, r"good +1,200 +1,200 +0 +1\.0 +\d+ +7 kills")
        text = page.read_text(encoding="utf-8")
        self.assertIn("velmora-drive 1.2.3, commit ", text)
        self.assertIn("| good | 1,200 | 1,200 | 0 |", text)

    def test_a_failure_and_a_silent_trial_are_told_by_the_status(self):
        self.trial("good", TOLD.format(results=RESULTS.format(held=1200, failed=0), status=0))
        self.trial("bad", TOLD.format(results=RESULTS.format(held=1199, failed=1), status=1))
        status, said = self.told(self.start())
        self.assertEqual(status, 1, said)
        self.assertRegex(said, r"bad +1,200 +1,199 +1 ")
        self.assertEqual(self.told(self.start("good"))[0], 0)
        self.trial("silent", "#!/bin/sh\nexit 0\n")
        status, said = self.told(self.start("silent"))
        self.assertEqual(status, 1, said)
        self.assertIn("no result", said)

    def test_a_trial_that_is_not_there_is_refused(self):
        self.trial("good", TOLD.format(results=RESULTS.format(held=1200, failed=0), status=0))
        status, said = self.told(self.start("good", "other"))
        self.assertEqual((status, said), (1, "no such trial\n"))

    def test_nothing_is_left_when_it_is_ended(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number):
                self.table.unlink(missing_ok=True)
                self.trial("first", STUBBORN.format(folder=self.folder))
                self.trial("second", STUBBORN.format(folder=self.folder))
                process = self.start("--jobs", "1", "--last-seconds", "0.3")
                while not (self.folder / "ready").exists():
                    self.assertIsNone(process.poll())
                    time.sleep(0.05)
                (self.folder / "ready").unlink()
                process.send_signal(number)
                status, said = self.told(process)
                self.assertEqual(status, 130, said)
                self.assertIn("interrupted", said)
                self.assertNotIn("second", said)
                self.assertFalse((self.folder / "ready").exists(), "another one was started")
                for pid in (self.folder / "pids").read_text(encoding="utf-8").split():
                    self.assertFalse(is_running(pid), pid)
                self.assertEqual(list((self.folder / "temporary").rglob("*")), [], said)


def is_running(pid):
    try:
        state = Path(f"/proc/{pid}/stat").read_text(encoding="utf-8").rpartition(")")[2].split()[0]
    except OSError:
        return False
    return state != "Z"


if __name__ == "__main__":
    unittest.main()
