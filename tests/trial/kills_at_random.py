#!/usr/bin/env python3
"""Each deed is killed at a moment that nobody has chosen."""

import time

from deeds import DEEDS, MARK
from player import Outcome, Player, DATABASE, NOW
from trial import Trial


def kill(player, deed, rng):
    player.reference(deed)
    player.lay_out(deed)
    process = player.start([player.driver, "--db", player.place / DATABASE, "--now", NOW, "-"])
    process.stdin.write(deed.script())
    process.stdin.close()
    output = ""
    for line in process.stdout:
        output += line
        if line.rstrip("\n") == MARK:
            break
    # Most deeds take a few milliseconds; the end of the program, which writes too, some more.
    time.sleep(rng.choice((0.002, 0.01, 0.03)) * rng.random())
    process.kill()
    output += process.stdout.read()
    errors = process.stderr.read()
    status = process.wait()
    process.stdout.close()
    process.stderr.close()
    return Outcome(status, output, errors, [])


def main():
    with Trial() as trial:
        player = Player(trial)
        for number, rng in trial.rounds():
            deed = DEEDS[number % len(DEEDS)]
            outcome = kill(player, deed, rng)
            trial.note("kills", outcome.killed())
            player.hold_state(deed, outcome, deed.name)
        player.close()


if __name__ == "__main__":
    main()
