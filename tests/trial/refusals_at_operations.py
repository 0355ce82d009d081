#!/usr/bin/env python3
"""Each deed is refused each of its operations on files: that one alone, or all from there on, as on a disk that is full
or has become read-only. The user is told what it is, nothing is said to be there that is not, the form keeps what was
typed, and the next deed behind the trouble is done."""

import random

import deeds
import trouble
from deeds import DEEDS
from player import APT, REFUSALS, Fault, Player
from trial import Trial


def refusals_of(player, deed):
    for number, kind in enumerate(player.reference(deed).operations):
        for word in APT[kind]:
            yield deed, word, Fault("refuse", number, REFUSALS[word], until=deeds.AGAIN)
            yield deed, word, Fault("refuse-from", number, REFUSALS[word], until=deeds.AGAIN)


def main():
    with Trial() as trial:
        player = Player(trial)
        refusals = [refusal for deed in DEEDS for refusal in refusals_of(player, deed)]
        random.Random(trial.options.seed).shuffle(refusals)
        for number, _ in trial.rounds():
            trouble.play(player, *refusals[number % len(refusals)])
        trial.note("refusals", len(refusals))
        player.close()


if __name__ == "__main__":
    main()
