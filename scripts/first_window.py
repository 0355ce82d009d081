#!/usr/bin/env python3
"""first_window.py COMMAND…: the seconds from the start of a program to its first window on the screen of DISPLAY."""

import ctypes
import os
import select
import subprocess
import sys
import tempfile
import time

SUBSTRUCTURE_NOTIFY = 1 << 19
MAP_NOTIFY = 19
LONGEST = 60  # seconds


class Screen:
    """Tells when a window is shown by anyone."""

    def __init__(self):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(None))
        if not self.display:
            raise SystemExit("first_window.py: no display")
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.x.XSelectInput(self.display, root, ctypes.c_long(SUBSTRUCTURE_NOTIFY))
        self.x.XSync(self.display, 0)

    def wait_for_window(self):
        event = (ctypes.c_long * 24)()
        end = time.monotonic() + LONGEST
        while time.monotonic() < end:
            while self.x.XPending(self.display):
                self.x.XNextEvent(self.display, event)
                if ctypes.cast(event, ctypes.POINTER(ctypes.c_int))[0] == MAP_NOTIFY:
                    return
            select.select([self.x.XConnectionNumber(self.display)], [], [], 0.05)
        raise SystemExit("first_window.py: no window came")


def seconds_to_window(command):
    """A home folder of its own, so that nothing of the user is read or written."""
    with tempfile.TemporaryDirectory() as home:
        screen = Screen()
        surroundings = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home, XDG_DATA_HOME=home, QT_QPA_PLATFORM="xcb")
        start = time.monotonic()
        program = subprocess.Popen(command, env=surroundings, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            screen.wait_for_window()
            return time.monotonic() - start
        finally:
            program.kill()
            program.wait()


if __name__ == "__main__":
    print(f"{seconds_to_window(sys.argv[1:]):.3f}")
