#!/usr/bin/env python3
"""first_window.py [--turns N] COMMAND [-- COMMAND…]: from the start of a program to its first window on DISPLAY.

A window counts when it is mapped and most of it has been painted. Several commands take turns. Prints for each the mean
of the fastest tenth and the median in ms, and the processor time in ms that the program itself had used when that was
noticed, which beside busy programs holds some of what it does afterwards.
"""

import ctypes
import glob
import os
import select
import statistics
import subprocess
import sys
import tempfile
import time
import typing

SUBSTRUCTURE_NOTIFY = 1 << 19
MAP_NOTIFY = 19
DAMAGE_NOTIFY = 0  # counted from the extension's first event
RAW_RECTANGLES = 0
PAINTED = 0.5  # of the window: what is drawn around a window by its manager is less
LONGEST = 60  # seconds
REST = 0.1  # seconds between two starts, in which the windows of the former one go
TURNS = 20


class Start(typing.NamedTuple):
    elapsed: float  # seconds
    processor: float  # seconds that the program itself has run


class Rectangle(ctypes.Structure):
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort)]


class AnyEvent(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p)]


class MapEvent(AnyEvent):
    _fields_ = [("event", ctypes.c_ulong), ("window", ctypes.c_ulong)]


class DamageEvent(AnyEvent):
    _fields_ = [("drawable", ctypes.c_ulong), ("damage", ctypes.c_ulong), ("level", ctypes.c_int),
                ("more", ctypes.c_int), ("time", ctypes.c_ulong), ("area", Rectangle), ("geometry", Rectangle)]


class Event(ctypes.Union):
    _fields_ = [("any", AnyEvent), ("map", MapEvent), ("damage", DamageEvent), ("room", ctypes.c_long * 24)]


class Screen:
    """Tells when a window is shown by anyone, and when it has been painted."""

    def __init__(self):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(None))
        if not self.display:
            raise SystemExit("first_window.py: no display")
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.x.XSelectInput(self.display, root, ctypes.c_long(SUBSTRUCTURE_NOTIFY))
        damage = ctypes.CDLL("libXdamage.so.1")
        first, error = ctypes.c_int(), ctypes.c_int()
        if not damage.XDamageQueryExtension(self.display, ctypes.byref(first), ctypes.byref(error)):
            raise SystemExit("first_window.py: the display does not tell what is painted")
        damage.XDamageCreate(self.display, root, RAW_RECTANGLES)
        self.painted = first.value + DAMAGE_NOTIFY
        self.x.XSync(self.display, 0)

    def forget(self):
        """What has been told until now is of no program that is started from now on."""
        time.sleep(REST)
        self.x.XSync(self.display, 1)

    def area_of(self, window):
        root, x, y = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_int()
        width, height, border, depth = (ctypes.c_uint() for _ in range(4))
        answers = map(ctypes.byref, (root, x, y, width, height, border, depth))
        self.x.XGetGeometry(self.display, ctypes.c_ulong(window), *answers)
        return width.value * height.value

    def events(self):
        event = Event()
        end = time.monotonic() + LONGEST
        while time.monotonic() < end:
            while self.x.XPending(self.display):
                self.x.XNextEvent(self.display, ctypes.byref(event))
                yield event
            select.select([self.x.XConnectionNumber(self.display)], [], [], 0.05)
        raise SystemExit("first_window.py: no window came")

    def wait_for_window(self):
        whole, painted = 0, 0
        for event in self.events():
            if event.any.type == MAP_NOTIFY and not whole:
                whole = self.area_of(event.map.window)
            elif event.any.type == self.painted and whole:
                painted += event.damage.area.width * event.damage.area.height
                if painted >= PAINTED * whole:
                    return


def processor_time(process):
    """Seconds that the program's threads have run."""
    used = 0
    for path in glob.glob(f"/proc/{process}/task/*/schedstat"):
        with open(path, encoding="ascii") as file:
            used += int(file.read().split()[0])
    return used / 1e9


def start_of(command, screen):
    """One start. A home folder of its own: nothing of the user is read or written. No bus of the session is looked for,
    for which both programs would start another program where the desktop has not named it."""
    with tempfile.TemporaryDirectory() as home:
        screen.forget()
        surroundings = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home, XDG_DATA_HOME=home, QT_QPA_PLATFORM="xcb",
                            DBUS_SESSION_BUS_ADDRESS="unix:path=" + os.path.join(home, "none"))
        start = time.monotonic()
        program = subprocess.Popen(command, env=surroundings, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            screen.wait_for_window()
            elapsed = time.monotonic() - start
            return Start(elapsed, processor_time(program.pid))
        finally:
            program.kill()
            program.wait()


def starts_in_turns(commands, turns=TURNS):
    """For each command its starts. The first turn, which may read files from the disk, is not counted."""
    screen = Screen()
    for command in commands:
        start_of(command, screen)
    rounds = [[start_of(command, screen) for command in commands] for _ in range(turns)]
    return list(zip(*rounds))


def fastest_tenth(times):
    return statistics.mean(sorted(times)[:max(1, len(times) // 10)])


def commands_of(words):
    commands = [[]]
    for word in words:
        if word == "--":
            commands.append([])
        else:
            commands[-1].append(word)
    return commands


def main():
    words, turns = sys.argv[1:], TURNS
    if words[:1] == ["--turns"]:
        turns, words = int(words[1]), words[2:]
    commands = commands_of(words)
    print(f"{'fastest':>8}{'median':>8}{'own':>8}")
    for command, starts in zip(commands, starts_in_turns(commands, turns)):
        times = [start.elapsed for start in starts]
        own = fastest_tenth([start.processor for start in starts])
        print(f"{fastest_tenth(times) * 1e3:8.1f}{statistics.median(times) * 1e3:8.1f}{own * 1e3:8.1f}"
              f"  {' '.join(map(os.path.basename, command[:2]))}")


if __name__ == "__main__":
    main()
