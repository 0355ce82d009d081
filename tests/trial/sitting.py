"""One run of the driver that is talked to line by line, so that something can happen between two of them."""

import select
import time

from player import DATABASE, NOW, Outcome

SECONDS = 60


class Sitting:
    def __init__(self, player, fault=None, mark=""):
        self.player = player
        player.log().unlink(missing_ok=True)
        arguments = [player.driver, "--db", player.place / DATABASE, "--now", NOW, "-"]
        self.process = player.start(arguments, fault, mark)
        self.output = ""
        self._rest = b""

    def say(self, script):
        try:
            self.process.stdin.write(script)
            self.process.stdin.flush()
        except BrokenPipeError:
            pass  # it has ended; the outcome tells why

    def hear(self, mark):
        """Reads what it says up to this line. False when it ended or fell silent before."""
        until = time.monotonic() + SECONDS
        stream = self.process.stdout
        while time.monotonic() < until:
            while b"\n" in self._rest:
                line, self._rest = self._rest.split(b"\n", 1)
                text = line.decode("utf-8", "replace")
                self.output += text + "\n"
                if text == mark:
                    return True
            if select.select([stream], [], [], 1)[0]:
                read = stream.buffer.raw.read(65536)
                if not read:
                    return False
                self._rest += read
        return False

    def end(self):
        """Lets it end, and gives all that it said."""
        try:
            self.process.stdin.close()
        except BrokenPipeError:
            pass
        self.hear(None)
        errors = self.process.stderr.read()
        try:
            status = self.process.wait(SECONDS)
        except Exception:
            self.process.kill()
            status = self.process.wait()
            errors += f"\nnot over after {SECONDS} seconds"
        self.process.stdout.close()
        self.process.stderr.close()
        log = self.player.log()
        lines = log.read_text(encoding="utf-8", errors="replace").splitlines() if log.exists() else []
        return Outcome(status, self.output, errors, lines)
