#!/usr/bin/env python3
"""Each deed is refused each of its statements, or loses the connection before or behind it, as a server can. Every
third round plays a scenario of the tests instead, which must come to its end whatever is refused."""

import random

import deeds
import trouble
from deeds import DEEDS
from player import Player, StatementFault
from trial import Trial

FAULTS = (("refused", "refuse"), ("lost", "lose-before"), ("lost", "lose-behind"))
# Statuses of a script that has come to its end, or was ended because an action or a question did not come about.
ENDED = range(4)
# No scenario has as many.
MOST_STATEMENTS = 400


def faults_of(player, deed):
    for number, _ in enumerate(player.reference(deed).operations):
        for word, kind in FAULTS:
            yield deed, word, StatementFault(kind, number, until=deeds.AGAIN)


def play_scenario(player, scenario, rng):
    files = scenario.with_suffix(".files")
    player.empty_place()
    for file in files.iterdir() if files.exists() else ():
        (player.place / file.name).write_bytes(file.read_bytes())
    word, kind = rng.choice(FAULTS)
    # Most scenarios have few: small numbers are drawn more often.
    number = int(MOST_STATEMENTS ** rng.random()) - 1
    outcome = player.run([player.driver, scenario], fault=StatementFault(kind, number))
    player.trial.hold(outcome.status in ENDED, f"{scenario.name}, {kind} {number}, {word}", outcome.told())


def main():
    with Trial() as trial:
        player = Player(trial, trial.program("faulty_drive"), StatementFault)
        faults = [fault for deed in DEEDS for fault in faults_of(player, deed)]
        random.Random(trial.options.seed).shuffle(faults)
        scenarios = sorted(deeds.SCENARIOS.glob("*.drive"))
        for number, rng in trial.rounds():
            if number % 3 == 2:
                play_scenario(player, rng.choice(scenarios), rng)
            else:
                trouble.play(player, *faults[(number - number // 3) % len(faults)])
        trial.note("statements", len(faults))
        player.close()


if __name__ == "__main__":
    main()
