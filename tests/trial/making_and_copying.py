#!/usr/bin/env python3
"""The making of a database, the upgrade of an older one, an opening, a copy, its putting back, and a draft: killed at
each operation on files, and refused each. The next start finds a whole database or begins anew; what was told to be
done is there; what failed is told."""

import random
import re
import shutil

import trouble
from deeds import SCENARIOS
from player import APT, CHANGING, DATABASE, NOW, REFUSALS, Fault, Player, state_of
from trial import Trial

COUNTED = 'query "select count(*) from DPI"\nquery "select count(*) from DOCVELMORA.dbo.dex"\necho "-- opened"\n'
# What the engine says when it has tried a file again for reading alone, and of the file that its connections share.
OF_ENGINE = (
    r"|o su carpeta no existe|solo lectura|Error de lectura o escritura|Falta la tabla|está dañado"
    r"|No se puede abrir el fichero de la base de datos"
)
WORDS = {kind: words + OF_ENGINE for kind, words in trouble.WORDS.items()}
UPGRADED = "open propuestas\nclose\necho \"-- opened\"\n"
OLDER = ["DROP COLUMN DPI_EXTRA", "DROP COLUMN Dpi_Acopla"]


class Case:
    """What is done, in the player's folder; `prepare` lays it out, `check` looks at what is there afterwards."""

    done = "-- opened"
    script = COUNTED
    rows = None
    tells = True

    def __init__(self, player):
        self.player = player
        self.trial = player.trial
        self.prepared = self.trial.folder / "prepared" / type(self).__name__
        self._operations = None

    @property
    def database(self):
        return self.player.place / DATABASE

    def arguments(self):
        return [self.player.driver, "--db", self.database, "--now", NOW] + (["--data", self.rows] if self.rows else []) + ["-"]

    def run(self, fault=None):
        return self.player.run(self.arguments(), self.script, fault)

    def make_template(self):
        """What lies there before; nothing for a first start."""

    def lay_out(self):
        if not self.prepared.exists():
            self.player.empty_place()
            self.make_template()
            shutil.copytree(self.player.place, self.prepared)
        shutil.rmtree(self.player.place, ignore_errors=True)
        shutil.copytree(self.prepared, self.player.place)

    def operations(self):
        if self._operations is None:
            self.lay_out()
            outcome = self.run(Fault("count"))
            if outcome.status != 0 or not outcome.reached(self.done):
                raise RuntimeError(f"{type(self).__name__} does not run undisturbed: {outcome.told()}")
            self._operations = outcome.operations()
            self.undisturbed()
        return self._operations

    def undisturbed(self):
        self.after = state_of(self.player.place)

    def play(self, fault, kind):
        what = f"{type(self).__name__}, {fault.kind} {fault.at}, {kind}"
        self.lay_out()
        outcome = self.run(fault)
        self.trial.note("kills" if kind == "kill" else "refusals")
        if kind != "kill":
            self.trial.hold(outcome.status in (0, 2), f"{what}: ended with status {outcome.status}", outcome.told())
            if outcome.status == 2 and self.tells:
                said = outcome.output + outcome.errors
                self.trial.hold(re.search(WORDS[kind], said), f"{what}: the words do not say what it is", outcome.told())
        self.check(outcome, what)

    def check(self, outcome, what):
        """The next start ends well and finds the rows as they are undisturbed."""
        again = self.run()
        wrong = "" if again.status == 0 and again.reached(self.done) else again.told()
        wrong = wrong or self.player.integrity(self.database, self.player.place / ("DOC" + DATABASE))
        self.trial.hold(not wrong, f"{what}: the next start", f"{wrong}\n{outcome.told()}")
        if not wrong:
            self.trial.hold(state_of(self.player.place) == self.after, f"{what}: other rows", outcome.told())
        strange = sorted(file.name for file in self.player.place.iterdir()
                         if file.name.removeprefix("DOC") not in (DATABASE, DATABASE + "-wal", DATABASE + "-shm")
                         and file.name != "copias")
        self.trial.hold(not strange, f"{what}: left behind", f"{strange}\n{outcome.told()}")


class MakingEmpty(Case):
    rows = "none"


class MakingOfRows(Case):
    rows = SCENARIOS / "staffed_workshop.sql"

    def arguments(self):
        # The rows go into a new database only.
        return super().arguments() if not self.database.exists() else [
            self.player.driver, "--db", self.database, "--now", NOW, "-"]


class Opening(Case):
    def make_template(self):
        self.player.run([self.player.driver, "--db", self.database, "--data", SCENARIOS / "staffed_workshop.sql", "-"])


class Upgrade(Case):
    script = UPGRADED
    tells = False  # the words that are required name the table alone

    def make_template(self):
        lines = "".join(f'query "ALTER TABLE DPI {each}"\n' for each in OLDER)
        self.player.run([self.player.driver, "--db", self.database, "--data", SCENARIOS / "accept_workshop.sql", "-"], lines)


class Tool(Case):
    """A deed of trial_files on a database with rows."""

    deed = ""
    script = ""

    def make_template(self):
        self.player.run([self.player.driver, "--db", self.database, "--data", SCENARIOS / "staffed_workshop.sql", "-"])

    def arguments(self):
        return [self.trial.program("trial_files"), self.deed, self.database]

    def look(self):
        outcome = self.player.run([self.trial.program("trial_files"), "look", self.database])
        return outcome.output.splitlines()

    def copies(self):
        return [line.removeprefix("copy ").split("\t") for line in self.look() if line.startswith("copy ")]

    def rows_of_copies(self, what, told):
        states = []
        for file, damage in self.copies():
            self.trial.hold(not damage, f"{what}: a copy is not whole", f"{damage}\n{told}")
            folder, name = file.rsplit("/", 1)
            states.append(state_of(self.player.place / folder, name))
        return states


class Copying(Tool):
    deed = "copy"
    done = "made"

    def check(self, outcome, what):
        states = self.rows_of_copies(what, outcome.told())
        self.trial.hold(all(state == self.after for state in states), f"{what}: a copy has other rows", outcome.told())
        self.trial.hold(states or not outcome.reached(self.done), f"{what}: told, and not there", outcome.told())
        again = self.run()
        self.trial.hold(again.reached(self.done), f"{what}: the next copy", again.told())
        self.trial.hold(not self.player.reopened() and state_of(self.player.place) == self.after,
                        f"{what}: the database is not as it was", outcome.told())


class PuttingBack(Tool):
    deed = "restore"
    done = "restored"

    def make_template(self):
        super().make_template()
        self.player.run([self.trial.program("trial_files"), "copy", self.database])
        self.copied = state_of(self.player.place)
        self.player.drive('query "update CLI set CLI_NOM = \'OTRO\'"\n')
        self.changed = state_of(self.player.place)

    def check(self, outcome, what):
        """The documents are put back first; whoever is cut off between the two does it again."""
        wrong = self.player.reopened()
        if self.trial.hold(not wrong, f"{what}: the database does not open whole", f"{wrong}\n{outcome.told()}"):
            state = state_of(self.player.place)
            expected = [self.copied] if outcome.reached(self.done) else [self.copied, self.changed]
            self.trial.hold(state in expected, f"{what}: neither as it was nor as it was copied", outcome.told())
            kept = self.rows_of_copies(what, outcome.told())
            damaged = (self.player.place / "copias" / ("dañada " + DATABASE)).exists()
            self.trial.hold(state == self.changed or self.changed in kept or damaged, f"{what}: what was there is lost",
                            outcome.told())
        again = self.run()
        self.trial.hold(again.reached(self.done) and state_of(self.player.place) == self.copied,
                        f"{what}: the next time", again.told())


class Drafting(Tool):
    deed = "draft"
    done = "kept 2"
    tells = False  # a full disk must not stop the typing

    def play(self, fault, kind):
        self.may_fail = kind != "kill"
        super().play(fault, kind)

    def check(self, outcome, what):
        left = [line.removeprefix("draft ") for line in self.look() if line.startswith("draft ")]
        if self.may_fail:
            permitted = [[], ["1"], ["2"]]
        elif outcome.reached("kept 2"):
            permitted = [["2"]]
        elif outcome.reached("kept 1"):
            permitted = [["1"], ["2"]]
        else:
            permitted = [[], ["1"]]
        self.trial.hold(left in permitted, f"{what}: the draft", f"{left}\n{outcome.told()}")


CASES = [MakingEmpty, MakingOfRows, Opening, Upgrade, Copying, PuttingBack, Drafting]


def faults_of(case):
    for number, kind in enumerate(case.operations()):
        if kind in CHANGING:
            yield case, Fault("kill-before", number), "kill"
            yield case, Fault("kill-behind", number), "kill"
        if kind == "write":
            yield case, Fault("kill-torn", number), "kill"
        for word in APT[kind]:
            yield case, Fault("refuse", number, REFUSALS[word]), word
            yield case, Fault("refuse-from", number, REFUSALS[word]), word


def main():
    with Trial() as trial:
        player = Player(trial)
        # Each case has its turn, although the making of a database has many more operations than a draft.
        turns = []
        for case in CASES:
            faults = list(faults_of(case(player)))
            random.Random(trial.options.seed).shuffle(faults)
            turns.append(faults)
        for number, _ in trial.rounds():
            faults = turns[number % len(turns)]
            case, fault, kind = faults[number // len(turns) % len(faults)]
            case.play(fault, kind)
        trial.note("operations and faults", sum(len(faults) for faults in turns))
        player.close()


if __name__ == "__main__":
    main()
