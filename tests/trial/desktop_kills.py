#!/usr/bin/env python3
"""The desktop program in its windows is killed while a user types, saves and accepts, at a moment that nobody has
chosen, and started again on what it has left. The options are those of trial.py, and --screen: windows on a screen of
the toolkit's own ("offscreen"), or on a real one that nobody sees ("real", where Xvfb is there; the long form
alternates). A round is one start, what its user does, and the kill; behind the last round a user only looks and leaves.

Held: each start comes to its first window; what the user was told to be saved or accepted, by a box or by the status
line, is in the database, also behind each later kill; the database is whole; what was typed more than five seconds
before the kill and not saved comes back when the user chooses "Recuperar".
"""

import argparse
import contextlib
import datetime
import shutil
import time
from dataclasses import dataclass, field

from desk import Desk, Ended, Killed, display, number_told
from driving import Database
from trial import Trial

DATABASE = "taller.db"
CUSTOMER = 1001
PROMISED_SECONDS = 5
# What a kill is to hit, in turns: a save or an acceptance, so long after it was asked for; what was typed and not saved,
# so long behind the promised time; or anything, so long behind the start.
AIMS = ("save", "typing", "acceptance", "anything")
SECONDS_OF_DEED = 0.15
SECONDS_BEHIND_PROMISE = 1
LONGEST_SECONDS = 10
# How long a user looks at what he has typed.
PAUSES = (0, 0, 0.3, 1, 6)
# Times between two keys, in milliseconds.
PACES = (0, 5, 30)
SAVED = "Datos Grabados satisfactoriamente"
ACCEPTED = "Presupuesto Aceptado, Orden de trabajo nº "
RECOVERY = "Propuesta sin grabar"
START = "VELMORA "
# Behind the reference: type, pitch, teeth, width, roller, bore, keyway, set screws.
MEASURES = "⏎12,7⏎{teeth}⏎7,75⏎8,51⏎25⏎8⏎2⏎"


@dataclass
class Sheet:
    """A proposal on the form, known by its reference. `typed` are its numbers of pieces since it was saved or loaded
    last, with the moment of each; the last is on the form."""

    reference: str
    typed: list = field(default_factory=list)
    required: bool = False

    def note(self, pieces):
        self.typed.append((time.monotonic(), pieces))

    def left_behind(self, killed_at):
        """The same as the next start may find it."""
        old = [at for at, (moment, _) in enumerate(self.typed) if moment <= killed_at - PROMISED_SECONDS]
        return Sheet(self.reference, self.typed[old[-1] if old else 0:], bool(old))

    def allowed(self):
        return {pieces for _, pieces in self.typed}


class User:
    """What he does at one start, and what he was told."""

    def __init__(self, shop, desk, rng, aim=None):
        self.shop, self.desk, self.rng, self.aim = shop, desk, rng, aim
        self.sheet = None
        self.saving = None  #: the sheet whose save was asked for and not told yet, and its pieces

    # --- The start -----------------------------------------------------------------------------------------------

    def comes_in(self):
        """Recovers all that was left, up to the window of the start. False when that does not come."""
        kind, title = self.desk.top()
        while kind == "form" and title.startswith(RECOVERY):
            kind, title = self.recovers()
        for missing in [sheet for sheet in self.shop.left if sheet.required]:
            self.shop.trial.hold(False, "what was typed comes back", f"{missing} {self.desk.told()}")
        self.shop.left = []
        return self.shop.trial.hold(kind == "form" and title.startswith(START), "the start comes to its window",
                                    f"{kind} {title} {self.desk.told()}")

    def recovers(self):
        """The window behind it."""
        kind, _ = self.desk.press("{!R}")
        if kind == "box":
            self.desk.press("⏎")
        fields = self.desk.read_fields()
        found = [sheet for sheet in self.shop.left if sheet.reference in fields]
        for sheet in found:
            shown = {pieces for pieces in sheet.allowed() if f"{pieces},00" in fields}
            self.shop.trial.note("drafts recovered")
            self.shop.trial.note("entries older than five seconds", sheet.required)
            self.shop.trial.hold(shown or not sheet.required, "its last entries come back", f"{sheet} {fields}")
            self.shop.left.remove(sheet)
            self.sheet = sheet
            sheet.typed = [(0, pieces) for pieces in shown]
            if shown and self.rng.random() < 0.5:
                self.saves()
        return self.leaves_form()

    # --- What he does --------------------------------------------------------------------------------------------

    def works(self):
        """Until he is killed."""
        if self.aim == "acceptance":
            self.accepts()
        while True:
            self.rng.choice((self.makes_one, self.makes_one, self.accepts))()

    def is_aimed_at(self, aim, seconds):
        """The kill comes so long from now when it is to hit this."""
        if self.aim == aim:
            self.desk.kill_at = time.monotonic() + seconds

    def types(self, pieces):
        self.desk.press(f"{{F7}}{pieces}⏎")
        self.sheet.note(pieces)
        if self.aim == "typing" and len(self.sheet.typed) == 1:
            self.is_aimed_at("typing", PROMISED_SECONDS + self.rng.random() * SECONDS_BEHIND_PROMISE)

    def looks(self):
        """At what he has typed."""
        self.desk.wait(self.rng.choice(PAUSES))

    def makes_one(self):
        self.desk.press("{^N}")
        reference = self.shop.next_reference()
        self.desk.press(f"{CUSTOMER}⏎{reference}⏎" + MEASURES.format(teeth=self.rng.randint(17, 90)))
        self.sheet = Sheet(reference)
        for _ in range(self.rng.randint(1, 3)):
            for _ in range(self.rng.randint(1, 4)):
                self.types(self.rng.randint(100, 999))
                self.looks()
            if self.aim == "typing":
                self.desk.wait(2 * PROMISED_SECONDS)
            self.saves()
        if self.rng.random() < 0.4:
            self.types(self.rng.randint(100, 999))
            self.looks()
        self.leaves_form()

    def saves(self):
        self.saving = (self.sheet, self.sheet.typed[-1][1])
        self.is_aimed_at("save", self.rng.random() * SECONDS_OF_DEED)
        answer = self.desk.press("{F5}")
        if not self.shop.trial.hold(answer == ("box", SAVED), "a save is told", f"{answer} {self.desk.told()}"):
            raise Ended("no save")
        self.desk.press("⏎")
        self.hears()

    def leaves_form(self):
        """Without a save: what is not saved is given up, and may be offered by the next start."""
        if self.sheet and self.sheet.typed:
            self.shop.left.append(Sheet(self.sheet.reference, self.sheet.typed[-1:]))
        top = self.desk.press("{Esc}")
        self.sheet = None
        return top

    def accepts(self):
        self.desk.press("{F9}")
        self.desk.press(f"{CUSTOMER}⏎{{!E}}")
        day = datetime.date.today()
        delivery = day + datetime.timedelta(days=20)
        self.desk.press("↹" * 10 + f"PED-1⏎{day:%d%m%Y}⏎{delivery:%d%m%Y}⏎")
        self.is_aimed_at("acceptance", self.rng.random() * 4 * SECONDS_OF_DEED)
        kind, _ = self.desk.press("{!P}")
        while kind == "box":
            kind, _ = self.desk.press("⏎")
        self.hears()
        self.desk.press("{Esc}")

    # --- What he was told ----------------------------------------------------------------------------------------

    def hears(self):
        """Takes what the boxes and the status line have told since the last time."""
        for box in self.desk.boxes:
            if box == SAVED and self.saving:
                self.shop.told_saved(*self.saving)
                self.sheet.typed = []
                self.saving = None
            elif box.startswith(ACCEPTED):
                self.shop.told_accepted(int(box.removeprefix(ACCEPTED).split()[0]))
        for deed in self.desk.deeds:
            saved = number_told(deed, "grabada")
            if saved and self.sheet:
                self.shop.references[saved] = self.sheet.reference
            accepted = number_told(deed, "aceptada, orden")
            if accepted:
                self.shop.orders_of[accepted] = int(deed.partition("orden ")[2].split()[0])
        self.desk.boxes.clear()
        self.desk.deeds.clear()

    def is_killed(self):
        """What is left of him."""
        self.hears()
        if self.sheet and self.sheet.typed:
            self.shop.left.append(self.sheet.left_behind(self.desk.killed_at))
        if self.saving:
            self.shop.asked_to_save(*self.saving)


class Workshop:
    """The database with all that any user of it was told."""

    def __init__(self, trial):
        self.trial = trial
        self.home = trial.fresh_folder() / "home"
        self.home.mkdir()
        self.copy = trial.folder / "copy"
        self.path = self.home / DATABASE
        Database(trial.driver, self.path)
        self.left = []  #: sheets that the next start may offer
        self.pieces = {}  #: by reference: those that a user was told to be saved, or those of a save that was cut off
        self.references = {}  #: by number of the proposal
        self.orders = set()  #: orders that a user was told of
        self.orders_of = {}  #: by number of the proposal
        self.references_given = 0

    def next_reference(self):
        self.references_given += 1
        return f"R{self.references_given:06d}"

    def told_saved(self, sheet, pieces):
        self.pieces[sheet.reference] = {pieces}

    def asked_to_save(self, sheet, pieces):
        """It was killed at that: what was typed is in the row or in the draft."""
        if sheet.reference in self.pieces:
            self.pieces[sheet.reference].add(pieces)
        if pieces in self.rows_of(sheet.reference):
            for left in self.left:
                left.required = left.required and left.reference != sheet.reference

    def told_accepted(self, order):
        self.orders.add(order)

    def copied(self):
        """The files as they were left: the program, not the check, is to be the first that opens them again."""
        shutil.rmtree(self.copy, ignore_errors=True)
        self.copy.mkdir()
        for file in self.home.iterdir():
            if file.name.removeprefix("DOC").startswith(DATABASE) and not file.name.endswith("-shm"):
                shutil.copy(file, self.copy / file.name)
        return Database(None, self.copy / DATABASE, make=False)

    def rows_of(self, reference):
        """Their pieces: a draft whose proposal is accepted meanwhile becomes another one."""
        connection = self.copied().open()
        rows = connection.execute("select DPI_Unidades from DPI where DPI_RefCli = ?", (reference,)).fetchall()
        connection.close()
        return {pieces for (pieces,) in rows}

    def is_as_told(self):
        database = self.copied()
        self.trial.hold(database.is_whole(), "the database is whole")
        connection = database.open()
        rows = connection.execute("select DPI_Id, DPI_RefCli, DPI_Unidades, DPI_Orden, DPI_FAcepta from DPI").fetchall()
        orders = dict(connection.execute("select ORDEN_NUM, ORDEN_IdDPI from ORDEN"))
        connection.close()
        there = {(reference, pieces) for _, reference, pieces, _, _ in rows}
        wrong = [(reference, told) for reference, told in self.pieces.items()
                 if not any((reference, pieces) in there for pieces in told)]
        self.trial.hold(not wrong, "what was told to be saved is there", str(wrong))
        by_number = {number: rest for number, *rest in rows}
        wrong = [(number, reference, by_number.get(number)) for number, reference in self.references.items()
                 if by_number.get(number, [None])[0] != reference]
        self.trial.hold(not wrong, "it has the number that was told", str(wrong))
        wrong = [order for order in self.orders if order not in orders]
        wrong += [(number, order, orders.get(order), by_number.get(number)) for number, order in self.orders_of.items()
                  if orders.get(order) != number or by_number[number][2] != order or not by_number[number][3]]
        self.trial.hold(not wrong, "what was told to be accepted is there", str(wrong))


def play(shop, rng, screen, aim):
    # The copy of the day is made again in some rounds: it may be what is cut off.
    if rng.random() < 0.3:
        shutil.rmtree(shop.home / "copias", ignore_errors=True)
    desk = Desk(shop.trial.build, shop.path, shop.home, screen, rng.choice(PACES),
                time.monotonic() + rng.uniform(0.1, LONGEST_SECONDS) if aim == "anything" else None)
    user = User(shop, desk, rng, aim)
    try:
        if user.comes_in():
            user.works()
    except Killed:
        user.is_killed()
        shop.trial.note("kills")
    except Ended as ended:
        shop.trial.hold(False, "the program does not end by itself", str(ended))
    finally:
        desk.end()
    shop.is_as_told()
    shop.trial.notes["proposals told to be saved"] = len(shop.pieces)
    shop.trial.notes["told to be accepted"] = len(shop.orders)


def leave(shop, rng, screen):
    """A start that nobody disturbs."""
    desk = Desk(shop.trial.build, shop.path, shop.home, screen)
    user = User(shop, desk, rng)
    try:
        if user.comes_in():
            desk.press("{Esc}")
            shop.trial.hold(False, "Esc leaves the program", desk.told())
    except Ended:
        shop.trial.hold(desk.process.wait(60) == 0, "the program ends well", desk.told())
    finally:
        desk.end()
    shop.is_as_told()


def screen_of(options, number):
    if options.screen:
        return options.screen == "real"
    return options.seconds is not None and number // len(AIMS) % 2 == 0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--screen", choices=("offscreen", "real"))
    with Trial(parser) as trial, contextlib.ExitStack() as screens:
        shop = Workshop(trial)
        real = None
        for number, rng in trial.rounds():
            is_real = screen_of(trial.options, number)
            if is_real and not real:
                real = screens.enter_context(display())
            play(shop, rng, real if is_real else None, AIMS[number % len(AIMS)])
            trial.note("on a real screen", bool(is_real and real))
        leave(shop, rng, None)


if __name__ == "__main__":
    main()
