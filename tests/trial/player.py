"""Plays deeds against the driver, with faults or without, and compares what is there afterwards."""

import errno
import os
import shutil
import signal
import sqlite3
import subprocess
from dataclasses import dataclass

import deeds

NOW = "2026-01-15 10:00:00"
DATABASE = "taller.db"
SECONDS = 120

# Kinds of operations that change a file; a kill between others finds the same files.
CHANGING = {"open-write", "write", "sync", "truncate", "allocate", "rename", "unlink", "mkdir"}
REFUSALS = {"full": errno.ENOSPC, "broken": errno.EIO, "no-right": errno.EACCES, "read-only": errno.EROFS,
            "unseen": errno.ESTALE}
# Which of them the system can answer to an operation.
APT = {
    "open-read": ("broken", "no-right"),
    "open-write": ("full", "broken", "no-right", "read-only"),
    "read": ("broken",),
    "write": ("full", "broken", "read-only"),
    "sync": ("full", "broken"),
    "truncate": ("broken", "read-only"),
    "allocate": ("full", "broken"),
    "rename": ("broken", "no-right", "read-only"),
    "unlink": ("broken", "no-right", "read-only"),
    "mkdir": ("full", "broken", "no-right", "read-only"),
    "map": ("broken",),
    "look": ("broken", "unseen"),
}


@dataclass
class Fault:
    """What is done at one operation, see file_faults.cpp."""

    kind: str
    at: int = 0
    error: int = 0
    until: str = ""

    def environment(self, player, mark):
        return {
            "LD_PRELOAD": str(player.trial.program("file_faults.so")), "TRIAL_FOLDER": str(player.place),
            "TRIAL_FAULT": self.kind, "TRIAL_AT": str(self.at), "TRIAL_MARK": mark, "TRIAL_ERROR": str(self.error),
            "TRIAL_UNTIL": self.until, "TRIAL_LOG": str(player.log()),
        }


@dataclass
class StatementFault(Fault):
    """What is done at one statement, see faulty_drive.cpp."""

    def environment(self, player, mark):
        return {
            "TRIAL_STATEMENT": self.kind, "TRIAL_AT": str(self.at), "TRIAL_MARK": mark, "TRIAL_UNTIL": self.until,
            "TRIAL_LOG": str(player.log()),
        }


@dataclass
class Outcome:
    status: int
    output: str
    errors: str
    log: list

    def killed(self):
        return self.status == -signal.SIGKILL

    def part(self, begin=deeds.MARK, end=deeds.DONE):
        """The lines between two marks; also when the second has not come."""
        lines = self.output.splitlines()
        start = lines.index(begin) + 1 if begin in lines else len(lines)
        stop = lines.index(end) if end in lines else len(lines)
        return lines[start:stop]

    def reached(self, mark):
        return mark in self.output.splitlines()

    def operations(self):
        """Kinds of the operations, in their order."""
        return [line.split(" ", 2)[1] for line in self.log if line[0].isdigit()]

    def descriptors(self):
        return [int(line.split()[1]) for line in self.log if line.startswith("descriptors")]

    def told(self):
        return f"status {self.status}\n{self.output[-3000:]}{self.errors[-2000:]}"


class Reference:
    """A deed that nothing disturbs."""

    def __init__(self, before, after, lines, outcome):
        self.before = before
        self.after = after
        self.lines = lines
        self.outcome = outcome
        self.operations = outcome.operations()


def rows_of(connection, table):
    cursor = connection.execute(f'select rowid, * from "{table}"')
    names = [column[0] for column in cursor.description[1:]]
    return {number: dict(zip(names, values)) for number, *values in cursor}


def read_rows(file):
    """The rows of every table of a file by their number in it."""
    connection = sqlite3.connect(file)
    connection.create_collation("Modern_Spanish_CI_AS", lambda a, b: (a > b) - (a < b))
    try:
        tables = [name for (name,) in connection.execute(
            "select name from sqlite_master where type = 'table' and name not like 'sqlite_%' order by name")]
        return {table: rows_of(connection, table) for table in tables}
    finally:
        connection.close()


def state_of(folder, database=DATABASE):
    return {**read_rows(folder / database), **read_rows(folder / ("DOC" + database))}


def changes(before, after):
    """By table, the changes of rows in the order of their numbers: number, new row."""
    found = {}
    for table in after:
        numbers = sorted(set(before[table]) | set(after[table]))
        rows = [(number, after[table].get(number)) for number in numbers
                if before[table].get(number) != after[table].get(number)]
        if rows:
            found[table] = rows
    return found


def applied(state, table, change):
    number, row = change
    rows = dict(state[table])
    rows.pop(number, None)
    if row is not None:
        rows[number] = row
    return {**state, table: rows}


def without_column(state, table, column):
    """The same with the column empty in the last row of the table."""
    last = max(state[table])
    row = state[table][last] | {column: None}
    return applied(state, table, (last, row))


def without_rows(state, table):
    return {name: rows for name, rows in state.items() if name != table}


def states_between(before, after, deed):
    """Every state that the order of writes permits, the first and the last included."""
    if deed.empty_first:
        return [before, without_column(after, *deed.empty_first), after]
    if not deed.steps:
        return [before, after]
    left = changes(before, after)
    states = [before]
    for table in deed.steps:
        states.append(applied(states[-1], table, left[table].pop(0)))
    if states[-1] != after:
        raise ValueError(f"the steps are not all: {[table for table in left if left[table]]}")
    return states


def difference(state, reference):
    """For a failure: the tables whose rows differ."""
    return ", ".join(f"{table}: {len(state.get(table, ()))} rows, expected {len(reference.get(table, ()))}"
                     for table in sorted(set(state) | set(reference)) if state.get(table) != reference.get(table))


class Player:
    def __init__(self, trial, driver=None, fault=Fault):
        self.trial = trial
        self.driver = driver or trial.driver
        self.fault = fault
        self.templates = trial.folder / "templates"
        self.place = trial.folder / "place"
        self._references = {}
        self._checker = None

    def close(self):
        if self._checker:
            self._checker.stdin.close()
            self._checker.wait()

    def environment(self, fault, mark):
        folder = self.place
        own = {"TMPDIR": str(folder), "SQLITE_TMPDIR": str(folder), "LC_ALL": "es_ES.UTF-8"}
        if fault:
            own |= fault.environment(self, mark)
        return os.environ | own

    def log(self):
        return self.trial.folder / "operations"

    def start(self, arguments, fault=None, mark="", place=None):
        return subprocess.Popen(
            [str(argument) for argument in arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, text=True, cwd=place or self.place, env=self.environment(fault, mark),
        )

    def run(self, arguments, script="", fault=None, mark=""):
        self.log().unlink(missing_ok=True)
        process = self.start(arguments, fault, mark)
        try:
            output, errors = process.communicate(script, timeout=SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            output, errors = process.communicate()
            errors += f"\nnot over after {SECONDS} seconds"
        log = self.log().read_text(encoding="utf-8", errors="replace").splitlines() if self.log().exists() else []
        return Outcome(process.returncode, output, errors, log)

    def drive(self, script, fault=None, mark="", data=None):
        arguments = [self.driver, "--db", self.place / DATABASE, "--now", NOW]
        return self.run(arguments + (["--data", data] if data else []) + ["-"], script, fault, mark)

    def empty_place(self):
        shutil.rmtree(self.place, ignore_errors=True)
        self.place.mkdir(parents=True)

    def lay_out(self, deed):
        """A folder with the deed's database and files as they were before everything."""
        template = self.templates / deed.rows
        if not template.exists():
            self.empty_place()
            made = self.drive("", data=deed.data())
            if made.status != 0:
                raise RuntimeError(f"the database was not made: {made.told()}")
            shutil.copytree(self.place, template)
        shutil.rmtree(self.place, ignore_errors=True)
        shutil.copytree(template, self.place)
        for name, content in deed.files.items():
            (self.place / name).write_bytes(content)

    def play(self, deed, fault=None):
        self.lay_out(deed)
        return self.drive(deed.script(), fault, deeds.MARK)

    def cut_off(self, deed):
        """The deed's preparation, killed before the deed begins."""
        self.lay_out(deed)
        arguments = [self.driver, "--db", self.place / DATABASE, "--now", NOW, "-"]
        process = self.start(arguments)
        process.stdin.write(f'{deed.opening}\necho "{deeds.MARK}"\n')
        process.stdin.flush()
        output = ""
        for line in process.stdout:
            output += line
            if line.rstrip("\n") == deeds.MARK:
                process.kill()
        errors = process.stderr.read()
        for stream in (process.stdin, process.stdout, process.stderr):
            stream.close()
        return Outcome(process.wait(), output, errors, [])

    def reference(self, deed):
        if deed.name not in self._references:
            self.lay_out(deed)
            # What a form writes when it is closed belongs to the deed.
            opened = self.cut_off(deed)
            opening = self.reopened()
            before = state_of(self.place)
            outcome = self.play(deed, self.fault("count"))
            after = state_of(self.place)
            if opening or not opened.killed() or outcome.status or before == after or not outcome.reached(deeds.END):
                raise RuntimeError(f"{deed.name} does not run undisturbed: {opened.told()}{outcome.told()}")
            states_between(before, after, deed)
            self._references[deed.name] = Reference(before, after, outcome.part(), outcome)
        return self._references[deed.name]

    def integrity(self, *files):
        """What the engine finds wrong in the files, with the program's own order of texts; empty when nothing."""
        if not self._checker:
            self._checker = subprocess.Popen([str(self.trial.program("trial_integrity"))], stdin=subprocess.PIPE,
                                             stdout=subprocess.PIPE, text=True)
        wrong = []
        for file in files:
            self._checker.stdin.write(f"{file}\n")
            self._checker.stdin.flush()
            answer = self._checker.stdout.readline().strip()
            if answer != "ok":
                wrong.append(f"{file}: {answer}")
        return "\n".join(wrong)

    def reopened(self):
        """What is wrong when the driver opens the database again; empty when nothing."""
        outcome = self.drive('query "select count(*) from DPI"\nquery "select count(*) from DOCVELMORA.dbo.dex"\n')
        if outcome.status != 0 or outcome.errors:
            return outcome.told()
        return self.integrity(self.place / DATABASE, self.place / ("DOC" + DATABASE))

    def hold_state(self, deed, outcome, what):
        """The database opens, is whole, and holds what the deed's order of writes permits; all of it when the user has
        been told so. Gives the state, none when it could not be read."""
        reference = self.reference(deed)
        wrong = self.reopened()
        if not self.trial.hold(not wrong, f"{what}: the database does not open whole", f"{wrong}\n{outcome.told()}"):
            return None
        state = state_of(self.place)
        self.hold_rows(deed, outcome, state, what)
        if state != reference.after:
            lost = [name for name, content in deed.files.items() if not self.is_kept(name, content, reference.before)]
            self.trial.hold(not lost, f"{what}: a file that was attached is gone", f"{lost}\n{outcome.told()}")
        return state

    def hold_rows(self, deed, outcome, state, what, refused=False):
        """These rows are what the deed's order of writes permits, when something of it was refused or cut off. Gives
        whether all is there that is acknowledged."""
        reference = self.reference(deed)
        permitted = states_between(reference.before, reference.after, deed)
        if refused and deed.may_miss:
            permitted = [without_rows(each, deed.may_miss) for each in permitted]
            state = without_rows(state, deed.may_miss)
        acknowledged = permitted[deed.acknowledged_steps:]
        if self.is_acknowledged(deed, outcome):
            self.trial.hold(state in acknowledged, f"{what}: acknowledged, and not there",
                            f"{difference(state, reference.after)}\n{outcome.told()}")
        else:
            self.trial.hold(state in permitted, f"{what}: neither before nor behind a step",
                            f"{difference(state, reference.before)}\n{outcome.told()}")
        return state in acknowledged

    def is_kept(self, name, content, state):
        """On the disk, or among the documents before the deed."""
        if any(row["Dex_Doc"] == content for row in state["dex"].values()):
            return True
        file = self.place / name
        return file.exists() and file.read_bytes() == content

    def is_acknowledged(self, deed, outcome):
        """The user has read that it is done, or has the form back without a word that it is not."""
        lines = outcome.part()
        if deed.success:
            return any(deed.success in line for line in lines)
        return outcome.reached(deeds.DONE) and lines == self.reference(deed).lines
