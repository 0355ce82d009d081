#!/usr/bin/env python3
"""First starts of a program on a database that is not there yet: killed at any moment, with a disk that is full, or
several at once. The next start must find a whole database or begin anew, and a start that ends well must have made one.

    first_starts.py DRIVER KILLS ROUNDS
"""

import random
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

WHOLE = "select count(*) from DPI"
SCRIPT = f'query "{WHOLE}"\nquery "select count(*) from DOCVELMORA.dbo.dex"\n'


def start(driver, database, **options):
    return subprocess.Popen(
        [driver, "--db", str(database), "-"],
        stdin=subprocess.PIPE,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        **options,
    )


def outcome(process):
    output, _ = process.communicate(SCRIPT)
    return process.returncode, output


class Trial:
    def __init__(self, driver):
        self.driver = driver
        self.folder = Path(tempfile.mkdtemp(prefix="velmora-first-starts-"))
        self.failures = 0
        begun = time.monotonic()
        status, self.whole = outcome(start(driver, self.folder / "reference.db"))
        self.seconds = time.monotonic() - begun
        if status != 0:
            sys.exit(f"the undisturbed start failed: {self.whole}")

    def fresh(self):
        shutil.rmtree(self.folder)
        self.folder.mkdir()
        return self.folder / "taller.db"

    def expect_whole(self, result, what):
        if result != (0, self.whole):
            self.failures += 1
            print(f"{what}: status {result[0]}\n{result[1]}")

    def kill(self, turns):
        left = 0
        for _ in range(turns):
            database = self.fresh()
            process = start(self.driver, database)
            time.sleep(random.uniform(0, self.seconds))
            process.send_signal(signal.SIGKILL)
            process.communicate()
            left += database.exists()
            self.expect_whole(outcome(start(self.driver, database)), "behind a kill")
            strange = sorted(p.name for p in self.folder.iterdir() if p.name.removeprefix("DOC") != "taller.db")
            if strange:
                self.failures += 1
                print(f"left behind: {strange}")
        print(f"{turns} kills, {left} of them behind the last step")

    def fill_disk(self):
        def limit(size):
            # Writing beyond the limit is an error of the file, as on a full disk, not a signal.
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

        refused = 0
        sizes = (0, 4096, 50_000, 200_000, 400_000, 1_000_000)
        for size in sizes:
            database = self.fresh()
            status, output = outcome(start(self.driver, database, preexec_fn=lambda size=size: limit(size)))
            refused += status != 0
            if status != 0 and database.exists():
                self.failures += 1
                print(f"a database is there although its start has failed: {output}")
            self.expect_whole(outcome(start(self.driver, database)), f"behind a disk full at {size} bytes")
        print(f"{len(sizes)} full disks, {refused} refused")

    def at_once(self, rounds):
        for _ in range(rounds):
            database = self.fresh()
            processes = [start(self.driver, database) for _ in range(4)]
            for process in processes:
                process.stdin.write(SCRIPT)
                process.stdin.close()
            for process in processes:
                output = process.stdout.read()
                self.expect_whole((process.wait(), output), "four at once")
        print(f"{rounds} times four at once")


def main(driver, kills, rounds):
    trial = Trial(driver)
    try:
        trial.kill(int(kills))
        trial.fill_disk()
        trial.at_once(int(rounds))
    finally:
        shutil.rmtree(trial.folder)
    print(f"{trial.failures} failures")
    return 1 if trial.failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
