"""The desktop program with a user before it (desk_user.cpp), on a screen of the toolkit's own or on a real one."""

import contextlib
import os
import re
import select
import shutil
import subprocess
import time

# For a window, on a machine that does other things too.
PATIENCE_SECONDS = 60


class Killed(Exception):
    """The program was killed at the moment that was chosen for it."""


class Ended(Exception):
    """The program has ended by itself, or does not answer."""


@contextlib.contextmanager
def display():
    """A real screen that nobody sees. None when this machine has none: then windows are on a screen of the toolkit."""
    if not shutil.which("Xvfb"):
        yield None
        return
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1920x1200x24", "-nolisten", "tcp"], pass_fds=[writing],
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as number:
        name = number.readline().strip()
    try:
        yield f":{name}" if name else None
    finally:
        server.kill()
        server.wait()


class Desk:
    """One run of the program. It is killed when `kill_at` (time.monotonic) has come, whatever it does."""

    def __init__(self, build, database, home, screen=None, pace=0, kill_at=None, options=()):
        reading, self._writing = os.pipe()
        self._tells = reading
        platform = {"DISPLAY": screen, "QT_QPA_PLATFORM": "xcb"} if screen else {"QT_QPA_PLATFORM": "offscreen"}
        surroundings = os.environ | platform | {
            "HOME": str(home), "XDG_CONFIG_HOME": str(home), "XDG_DATA_HOME": str(home), "LC_ALL": "es_ES.UTF-8",
            "LD_PRELOAD": str(build / "tests" / "desk_user.so"), "TRIAL_TELLS": str(self._writing),
            "TRIAL_PACE": str(pace)}
        self.errors = home / "errors"
        with self.errors.open("w") as errors:
            self.process = subprocess.Popen(
                [build / "bin" / "velmora", "--db", database, *options], stdin=subprocess.PIPE,
                stdout=subprocess.DEVNULL, stderr=errors, pass_fds=[self._writing], env=surroundings)
        os.close(self._writing)
        self.kill_at = kill_at
        self.killed_at = None
        self.deeds = []  #: what the status line has told
        self.boxes = []  #: the boxes that were seen
        self.fields = []
        self._rest = b""

    def press(self, keys):
        """Presses them; gives the window on top behind that: its kind, "form" or "box", and its title or text."""
        return self._ask("keys " + keys)

    def read_fields(self):
        """The texts of the fields of the window on top."""
        self.fields = []
        self._ask("fields")
        return self.fields

    def _ask(self, command):
        try:
            self.process.stdin.write(command.encode() + b"\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            pass  # told by what it says no more
        return self.top()

    def top(self):
        """The window on top when the last command is done. Errors: Killed; Ended."""
        patience = time.monotonic() + PATIENCE_SECONDS
        while True:
            while b"\n" in self._rest:
                line, self._rest = self._rest.split(b"\n", 1)
                found = self._heard(line.decode("utf-8", "replace"))
                if found:
                    return found
            until = min(patience, self.kill_at or patience)
            if select.select([self._tells], [], [], max(0, until - time.monotonic()))[0]:
                told = os.read(self._tells, 65536)
                if not told:
                    raise Killed if self.killed_at else Ended(self.told())
                self._rest += told
            elif self.kill_at and time.monotonic() >= self.kill_at:
                self.kill()
            elif time.monotonic() >= patience:
                self.kill()
                raise Ended(f"silent for {PATIENCE_SECONDS} seconds; {self.told()}")

    def wait(self, seconds):
        """Nothing is pressed meanwhile. Errors: Killed."""
        time.sleep(max(0, min(seconds, (self.kill_at or time.monotonic() + seconds) - time.monotonic())))
        if self.kill_at and time.monotonic() >= self.kill_at:
            self.kill()
            self.top()

    def _heard(self, line):
        what, _, text = line.partition(" ")
        if what == "deed":
            self.deeds.append(text)
        elif what == "field":
            self.fields.append(text)
        elif what == "top":
            kind, _, words = text.partition(" ")
            if kind == "box":
                self.boxes.append(words)
            return kind, words
        return None

    def kill(self):
        """What it has told before is still heard."""
        self.kill_at = None
        self.killed_at = time.monotonic()
        self.process.kill()

    def told(self):
        errors = self.errors.read_text(encoding="utf-8", errors="replace")
        return f"deeds {self.deeds[-5:]}, boxes {self.boxes[-5:]}, errors {errors[-1000:]}"

    def end(self):
        """Its status; it is killed when it has not ended."""
        self.process.stdin.close()
        if self.process.poll() is None and self.killed_at is None:
            self.kill()
        status = self.process.wait()
        os.close(self._tells)
        return status


def number_told(deed, participle):
    """The proposal of a deed such as "Propuesta 321 grabada a las 10:32"; None when it tells another."""
    found = re.match(rf"Propuesta (\d+) {participle}\b", deed)
    return int(found[1]) if found else None
