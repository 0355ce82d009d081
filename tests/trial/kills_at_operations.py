#!/usr/bin/env python3
"""Each deed is killed at each of its operations on files: right before it, right behind it, and in the middle of what
it writes. What the user was told is there when the database is opened again, and nothing is half done."""

import random

from deeds import DEEDS
from player import CHANGING, Fault, Player
from trial import Trial


def kills_of(player, deed):
    for number, kind in enumerate(player.reference(deed).operations):
        if kind in CHANGING:
            yield deed, Fault("kill-before", number)
            yield deed, Fault("kill-behind", number)
        if kind == "write":
            yield deed, Fault("kill-torn", number)


def main():
    with Trial() as trial:
        player = Player(trial)
        kills = [kill for deed in DEEDS for kill in kills_of(player, deed)]
        random.Random(trial.options.seed).shuffle(kills)
        for number, _ in trial.rounds():
            deed, fault = kills[number % len(kills)]
            outcome = player.play(deed, fault)
            what = f"{deed.name}, {fault.kind} {fault.at}"
            # What a background thread has written shifts the numbers: the last ones may not be reached.
            trial.note("kills", outcome.killed())
            trial.hold(outcome.killed() or outcome.status == 0, f"{what}: ended by itself", outcome.told())
            player.hold_state(deed, outcome, what)
        trial.note("operations", len(kills))
        player.close()


if __name__ == "__main__":
    main()
