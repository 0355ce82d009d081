#!/usr/bin/env python3
"""While a form is open, the database or its documents are moved, replaced, removed or closed to writing, or their folder
is moved. No success is told, the words say what it is, and when the files are back the next deed is done."""

import shutil

import deeds
import trouble
from deeds import DEEDS
from player import DATABASE, Player, state_of
from sitting import Sitting
from trial import Trial

AWAY = "otro sitio"
DOCUMENTS = "DOC" + DATABASE


def with_side_files(place, name):
    return [place / (name + ending) for ending in ("", "-wal", "-shm") if (place / (name + ending)).exists()]


class Moved:
    """The file, with those that the engine has beside it."""

    def __init__(self, name):
        self.name = name

    def do(self, place):
        self.away = place / AWAY
        self.away.mkdir()
        for file in with_side_files(place, self.name):
            file.rename(self.away / file.name)

    def undo(self, place):
        for file in with_side_files(place, self.name):
            file.unlink()
        for file in list(self.away.iterdir()):
            file.rename(place / file.name)
        self.away.rmdir()

    def rows(self, place):
        """Where the rows are meanwhile: every file in the place that it had."""
        whole = place.parent / "whole"
        shutil.rmtree(whole, ignore_errors=True)
        shutil.copytree(place, whole)
        for file in (whole / AWAY).iterdir():
            shutil.copy(file, whole / file.name)
        return whole


class Replaced(Moved):
    """Another file is there under its name."""

    def do(self, place):
        super().do(place)
        shutil.copy(self.away / self.name, place / self.name)


class FolderMoved:
    def do(self, place):
        self.away = place.with_name(AWAY)
        place.rename(self.away)

    def undo(self, place):
        self.away.rename(place)

    def rows(self, place):
        return self.away


TROUBLES = [
    ("database moved", lambda: Moved(DATABASE)),
    ("database replaced", lambda: Replaced(DATABASE)),
    ("documents moved", lambda: Moved(DOCUMENTS)),
    ("documents replaced", lambda: Replaced(DOCUMENTS)),
    ("folder moved", FolderMoved),
]


def play(player, deed, name, disturb):
    trial = player.trial
    what = f"{deed.name}, {name}"
    player.reference(deed)
    player.lay_out(deed)
    sitting = Sitting(player)
    sitting.say(deed.until_mark())
    sitting.hear(deeds.MARK)
    trouble_ = disturb()
    trouble_.do(player.place)
    sitting.say(deed.from_mark())
    heard = sitting.hear(deeds.TYPED_SHOWN)
    so_far = trouble.said(sitting)
    trial.hold(heard, f"{what}: silent", so_far.told())
    missed = not player.is_acknowledged(deed, so_far)
    done = player.hold_rows(deed, so_far, state_of(trouble_.rows(player.place)), what, refused=True)
    if missed and not done:
        trial.note("deeds that failed")
        trouble.hold_told(player, deed, so_far, "moved", what)
        trouble.hold_typed(player, deed, so_far, what)
    trouble_.undo(player.place)
    sitting.say(deed.once_more() if missed else "")
    sitting.say(deed.ending())
    outcome = sitting.end()
    trial.hold(outcome.status == 0, f"{what}: ended with status {outcome.status}", outcome.told())
    if missed and not done:
        trouble.hold_next(player, deed, outcome, what)
    wrong = player.reopened()
    trial.hold(not wrong, f"{what}: the database does not open whole", wrong)


def main():
    with Trial() as trial:
        player = Player(trial)
        for number, rng in trial.rounds():
            name, disturb = TROUBLES[number % len(TROUBLES)]
            play(player, DEEDS[number // len(TROUBLES) % len(DEEDS)], name, disturb)
        player.close()


if __name__ == "__main__":
    main()
