#!/usr/bin/env python3
"""Two and four drivers on one file: all deeds at random on the same rows, a list held open meanwhile; first starts and
upgrades all at once.

Triggers of the file note every change of a row as it is made, so that what a client was told can be compared with what
was written, also when another client has written over it since. Held: a deed whose success was told is in the notes;
nobody's change was written over without the question whether to; what is accepted is neither changed nor deleted; no
number of an order and no place in a machine's queue is given twice; the open list stands still; each refusal is one of
the program's own texts; the database is whole. The options are those of trial.py.
"""

import random
import re
import shutil
import subprocess
import threading
import time

from driving import PATIENCE_SECONDS, Database, play
from trial import Trial

DEEDS_OF_A_CLIENT = 14
SHARED_PROPOSALS = 5
MACHINE = 131
PIECE = ['set Text1(0) "12,7"', 'set Text1(8) "7,75"', "set Text1(1) 77", 'set Text1(2) "7,75"', "set txtPesu(0) 1001",
         "set txtPesu(11) 3", "leave"]
NOTES = [
    "create table trial_note (seq integer primary key autoincrement, what text, id int, text text, before text, "
    "accepted text, number int)",
    "create trigger note_new after insert on DPI begin insert into trial_note (what, id, text) "
    "values ('new', new.DPI_Id, new.DPI_RefCli); end",
    "create trigger note_changed after update on DPI begin insert into trial_note (what, id, text, before, accepted, "
    "number) values ('changed', new.DPI_Id, new.DPI_RefCli, old.DPI_RefCli, old.DPI_FAcepta, new.DPI_Orden); end",
    "create trigger note_deleted after delete on DPI begin insert into trial_note (what, id, before, accepted) "
    "values ('deleted', old.DPI_Id, old.DPI_RefCli, old.DPI_FAcepta); end",
    "create trigger note_order after insert on ORDEN begin insert into trial_note (what, id, number) "
    "values ('order', new.ORDEN_IdDPI, new.ORDEN_NUM); end",
    "create trigger note_line after insert on MoDpi begin insert into trial_note (what, id, number) "
    "values ('line', new.MoDpi_Dpi, new.MoDpi_Minutos); end",
]
# What a client may be told, by how the text begins. The last is what the copy of a deleted proposal ends with.
KNOWN = (
    "Datos Grabados satisfactoriamente", "Presupuesto Aceptado, Orden de trabajo nº ", "Propuesta duplicada",
    "Seguro que desea duplicar", "realmente desea eliminar el presupuesto", "Realmente desea marcar como aceptado",
    "El Material para el ", "El presupuesto ya fue aceptado", "El presupuesto ya no existe",
    "El presupuesto ha sido modificado por otro usuario", "El presupuesto nº ", "La propuesta nº ",
    "La base de datos está ocupada por otro proceso", "Error, No es posible ", "Desea ", "¿Desea ",
    "Realmente desea cargar los datos",
    "El Presupuesto ", "Los datos ", "Error : ", "Error insertando el documento", "Este documento ya no existe",
    "No hay ninguna transacción abierta.",
)
# What stands above the reason of a save that failed.
ABOVE_A_REASON = re.compile(r"Error en la (actualizacion|grabacion) del registro:?\\n")
LOST_WITHOUT = "ha sido modificado por otro usuario desde que se cargó"


class Driver:
    """A driver that is asked line by line."""

    def __init__(self, trial, database):
        self.process = subprocess.Popen(
            [trial.driver, "--db", database.path, "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, cwd=database.path.parent, encoding="utf-8", errors="replace",
        )

    def ask(self, *lines):
        """What the lines print. Errors: EOFError when the driver has ended."""
        try:
            self.process.stdin.write("\n".join([*lines, "echo answered", ""]))
            self.process.stdin.flush()
        except BrokenPipeError as gone:
            raise EOFError(self.process.stdout.read()) from gone
        answer = ""
        for line in self.process.stdout:
            if line == "answered\n":
                return answer
            answer += line
        raise EOFError(answer)

    def end(self):
        self.process.stdin.close()
        return self.process.wait()


class Client(Driver):
    """A driver that does deeds one after the other, as fast as it can. Its thread runs work()."""

    def __init__(self, trial, database, name, shared, rng):
        super().__init__(trial, database)
        self.name, self.shared, self.rng = name, shared, rng
        self.files = database.path.parent
        self.deeds = []  # kind, own text, output
        self.status = None

    def work(self):
        try:
            for index in range(DEEDS_OF_A_CLIENT):
                kind = self.rng.choices(list(self.KINDS), list(self.KINDS.values()))[0]
                text = f"C-{self.name}-{index}"
                self.ask(*["answer " + self.rng.choice(["yes", "yes", "yes", "yes", "no"]) for _ in range(8)])
                self.deeds.append((kind, text, getattr(self, kind)(text)))
                self.leave()
            self.status = self.end()
        except EOFError as ended:
            self.deeds.append(("ended", "", str(ended)))
            self.status = self.process.wait()

    def leave(self):
        """Closes what is open, with No to all questions."""
        while "Propuestas de Piñones" not in (top := self.ask("print form")) and "Seguimiento" not in top:
            self.ask("answer no", "close")
        self.ask("answer no", "answer no", "close")

    def pause(self):
        """Lets the others change what has just been loaded."""
        time.sleep(self.rng.choice([0, 0.01, 0.05]))

    def load(self):
        """A proposal that all share, with its changes allowed, which loads it once more."""
        row = self.rng.randrange(SHARED_PROPOSALS)
        shown = self.ask("open propuestas", *PIECE, f"try row dbgDPI {row}", "try cell dbgDPI 0",
                         "try press cmdCambios", "echo loaded", "print txtPesu(3) txtPesu(2)")
        self.pause()
        return shown

    def save_new(self, text):
        return self.share(self.ask("open propuestas", *PIECE, f'set txtPesu(2) "{text}"', "try key F5",
                                   "print txtPesu(3)"))

    def share(self, output):
        """From here on the others know the proposal too."""
        number = value(output, "txtPesu(3)")
        if number and int(number) not in self.shared:
            self.shared.append(int(number))
        return output

    def save_changed(self, text):
        return self.load() + self.ask(f'try set txtPesu(2) "{text}"', "echo saving",
                                      "try key F5", "print txtPesu(3) txtPesu(2)")

    def duplicate(self, text):
        return self.share(self.load() + self.ask("try press cmdDuplicar", "print txtPesu(3)"))

    def delete(self, text):
        return self.load() + self.ask("echo deleting", "try key F9", "print txtPesu(3)")

    def accept(self, text):
        found = self.ask("open seguimiento", f"set txtCriterio(4) {self.rng.choice(self.shared[-SHARED_PROPOSALS:])}",
                         "try press cmdfiltro", "echo accepting")
        self.pause()
        return found + self.ask("try press XPButton1")

    def labour(self, text):
        output = self.load() + self.ask("key F1", "print form")
        if "Mano de Obra" not in output:
            return output
        output += self.ask("print fraAcciones", "try press cmdNuevaLinea", f"try set txtLinea(0) {MACHINE}",
                           f"try set txtLinea(6) {minutes_of(text)}", "echo lining", "try press cmdGrabarLinea",
                           "echo lined")
        return output + self.ask("try press cmdSalir")

    def document(self, text):
        (self.files / f"{text}.txt").write_text(text, encoding="utf-8")
        output = self.load() + self.ask("press cmdDoc", "print form")
        if "Documentos" not in output:
            return output
        return output + self.ask(f"file {text}.txt", "echo attaching", "try press Toolbar1(FICHERO)", "echo attached",
                                 "rows dbgPlanos")

    def look(self, text):
        return self.ask("open seguimiento", f"choose cboFiltroHistorico {self.rng.randrange(3)}", "press cmdfiltro",
                        "rows dbgDPI")

    KINDS = {"save_new": 2, "save_changed": 5, "duplicate": 2, "delete": 1, "accept": 4, "labour": 3, "document": 2,
             "look": 1}


class HeldList(Driver):
    """A driver whose list of all proposals stays open. Its rows are read when the others have written already."""

    def __init__(self, trial, database):
        super().__init__(trial, database)
        self.ask("open seguimiento", "choose cboFiltroHistorico 2", "press cmdfiltro")

    def rows(self):
        return self.ask("rows dbgDPI")

    def refreshed(self):
        return self.ask("press cmdfiltro", "rows dbgDPI")


def minutes_of(text):
    """A number of minutes that no other line of labour has."""
    _, client, deed = text.split("-")
    return int(client) * 1000 + int(deed) + 1


def value(output, name):
    found = re.findall(rf'^{re.escape(name)} = "(.*)"$', output, re.MULTILINE)
    return found[-1] if found else None


def behind(output, mark):
    return output.partition(mark + "\n")[2]


class Clients:
    def __init__(self, trial):
        self.trial = trial
        self.template = None

    def lay_out(self):
        """A workshop of its own with a few proposals that all share, noted from here on."""
        folder = self.trial.folder / "place"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        database = Database(self.trial.driver, folder / "taller.db", make=self.template is None)
        if self.template is None:
            lines = []
            for number in range(SHARED_PROPOSALS):
                lines += ["open propuestas", *PIECE, f'set txtPesu(2) "S-{number}"', "key F5", "answer no", "close"]
            made = play(self.trial.driver, database.path, [line.encode() for line in lines])
            if not made.good:
                raise RuntimeError(made.told())
            connection = database.open()
            for statement in NOTES:
                connection.execute(statement)
            self.shared = [row[0] for row in connection.execute(
                "select DPI_Id from DPI where DPI_RefCli like 'S-%' order by DPI_Id")]
            connection.execute("pragma wal_checkpoint(truncate)")
            connection.close()
            self.template = self.trial.folder / "template"
            shutil.copytree(folder, self.template)
        else:
            shutil.copytree(self.template, folder, dirs_exist_ok=True)
        return database

    def deeds(self, count, rng):
        database = self.lay_out()
        held, early = HeldList(self.trial, database), HeldList(self.trial, database)
        opened = early.rows()
        early.end()
        shared = list(self.shared)
        clients = [Client(self.trial, database, number, shared, random.Random(rng.random()))
                   for number in range(count)]
        threads = [threading.Thread(target=client.work) for client in clients]
        for thread in threads:
            thread.start()
        threads[0].join()
        self.trial.hold(held.rows() == opened, "the open list stands still")
        for thread in threads:
            thread.join()
        self.trial.hold(held.rows() == opened, "the open list stands still to the end")
        again = held.refreshed()
        status = held.end()
        self.expect(database, clients)
        listed = len(again.splitlines()) - 1
        stored = database.row("select count(*) from DPI")[0]
        self.trial.hold(status == 0 and listed == stored, "a list that is refreshed is that of the rows",
                        f"status {status}, {listed} listed, {stored} stored")

    def expect(self, database, clients):
        connection = database.open()
        notes = connection.execute("select what, id, text, before, accepted, number from trial_note").fetchall()
        orders = connection.execute("select ORDEN_NUM, ORDEN_IdDPI from ORDEN").fetchall()
        for client in clients:
            self.trial.hold(client.status == 0, f"client ended with status {client.status}", str(client.deeds[-1:]))
            for kind, text, output in client.deeds:
                self.expect_known(output)
                self.expect_told(kind, text, output, notes, orders)
                self.trial.note("deeds")
        self.expect_numbers(connection, notes)
        connection.close()
        self.expect_documents(database, clients)
        self.trial.hold(database.is_whole(), "the database is whole")

    def expect_known(self, output):
        told = re.findall(r'^message .*? text="(.*?)" buttons', output, re.MULTILINE)
        told += re.findall(r'^error number=.* description="(.*)"$', output, re.MULTILINE)
        for text in told:
            reason = ABOVE_A_REASON.sub("", text, count=1)
            self.trial.note("words of another user's deeds", "otro usuario" in reason or "ya fue aceptado" in reason)
            self.trial.hold(reason.startswith(KNOWN), f"a text that nobody knows: {text}", output[-1500:])

    def expect_told(self, kind, text, output, notes, orders):
        """What the user was told to be done is among the notes."""
        hold = self.trial.hold
        number = int(value(behind(output, "loaded") or output, "txtPesu(3)") or 0)
        if kind == "save_new" and "Datos Grabados" in output:
            hold(("new", text) in [(what, ref) for what, _, ref, *_ in notes], "a new proposal is stored", output)
            self.trial.note("new proposals")
        elif kind == "save_changed" and "Datos Grabados" in behind(output, "saving"):
            before = value(output.partition("saving\n")[0], "txtPesu(2)")
            changes = [note for note in notes if note[0] in ("changed", "new") and note[2] == text]
            if hold(bool(changes), "a changed proposal is stored", output):
                asked = LOST_WITHOUT in behind(output, "saving")
                what, _, _, old, _, _ = changes[0]
                hold(asked or what == "new" or old == before, "nobody is written over without a question",
                     f"{changes} {output}")
                self.trial.note("questions whether to write over" if asked else "changed proposals")
        elif kind == "duplicate" and "duplicada" in output:
            hold(("new", number) in [(what, key) for what, key, *_ in notes], "a copy is stored", output)
            self.trial.note("copies")
        elif kind == "delete" and "realmente desea eliminar" in output and number == 0 and "answer=no" not in output:
            loaded = int(value(output.partition("deleting\n")[0], "txtPesu(3)") or 0)
            hold(("deleted", loaded) in [(what, key) for what, key, *_ in notes], "a deletion is stored", output)
            self.trial.note("deletions")
        elif kind == "labour" and "lining\nlined\n" in output:
            lines = [note[5] for note in notes if note[0] == "line"]
            hold(minutes_of(text) in lines, "a line of labour is stored", output)
            self.trial.note("lines of labour")
        elif kind == "accept":
            for order in re.findall(r"Presupuesto Aceptado, Orden de trabajo nº (\d+)", output):
                hold(int(order) in [number for number, _ in orders], "an order is stored", output)
                self.trial.note("acceptances")

    def expect_numbers(self, connection, notes):
        def none(query, what):
            rows = connection.execute(query).fetchall()
            self.trial.hold(not rows, what, str(rows[:5]))

        none("select ORDEN_NUM from ORDEN group by ORDEN_NUM having count(*) > 1", "no order's number is given twice")
        none("select ORDEN_IdDPI from ORDEN where not ORDEN_IdDPI is null group by ORDEN_IdDPI having count(*) > 1",
             "no proposal has two orders")
        none("select RUT_Maq, RUT_Mpos from RUT group by RUT_Maq, RUT_Mpos having count(*) > 1",
             "no place in a machine's queue is given twice")
        none("select number, id from trial_note where what = 'order' and not exists "
             "(select 1 from DPI where DPI_Id = id and DPI_Orden = number)",
             "an order's proposal is there and knows it")
        for what, key, text, before, accepted, number in notes:
            self.trial.hold(what not in ("changed", "deleted") or accepted is None,
                            "what is accepted is neither changed nor deleted", f"{what} {key} {before} {text} {number}")

    def expect_documents(self, database, clients):
        """Each file is in the documents or still where it was; an attached one was told in the list."""
        if not database.documents().exists():
            return
        connection = database.open(database.documents())
        stored = dict(connection.execute("select Dex_Fic, Dex_Doc from dex").fetchall())
        connection.close()
        for client in clients:
            for kind, text, output in client.deeds:
                if kind != "document":
                    continue
                content = stored.get(f"{text}.txt")
                kept = content == text.encode() or (client.files / f"{text}.txt").exists()
                self.trial.hold(kept, "no file is lost", f"{text} {content} {output}")
                self.trial.note("documents attached", content is not None)

    def same_time(self, count, database, lines, what):
        """The same script in all drivers at once; gives what each has printed."""
        processes = [subprocess.Popen([self.trial.driver, "--db", database.path, "-"], stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) for _ in range(count)]
        for process in processes:
            process.stdin.write("\n".join(lines) + "\n")
            process.stdin.close()
            process.stdin = None
        for process in processes:
            output, errors = process.communicate(timeout=PATIENCE_SECONDS)
            self.trial.hold(process.returncode == 0 and "message" not in output and not errors,
                            f"{what}: status {process.returncode}", output + errors)
            yield output

    def first_starts(self, count):
        folder = self.trial.fresh_folder()
        self.template = None
        database = Database(self.trial.driver, folder / "taller.db", make=False)
        lines = ['query "select count(*) from DPI"', 'query "select count(*) from DOCVELMORA.dbo.dex"']
        outputs = set(self.same_time(count, database, lines, "first starts at once"))
        self.trial.hold(len(outputs) == 1, "every first start finds the same rows", str(outputs))
        # Connections that close at the same moment may leave their write-ahead files to the next one.
        left = sorted(path.name for path in folder.iterdir() if not path.name.endswith(("-wal", "-shm")))
        self.trial.hold(left == ["DOCtaller.db", "taller.db"], "nothing is left behind", str(left))
        self.trial.note("first starts", count)

    def upgrades(self, count):
        database = self.lay_out()
        connection = database.open()
        for column in ("Dpi_Modulo", "DPI_HERRAMIENTA", "Dpi_Acopla", "DPI_EXTRA", "DPI_ProTex"):
            connection.execute(f"alter table DPI drop column {column}")
        connection.execute("alter table PARDPI drop column PARDPI_CRE")
        connection.execute("drop table ENG")
        connection.close()
        lines = ["open propuestas", "close", 'query "select sum(Dpi_Modulo + Dpi_Acopla), max(DPI_EXTRA + DPI_ProTex + '
                 'DPI_HERRAMIENTA) from DPI"', 'query "select count(*) from PARDPI where PARDPI_CRE = 0"',
                 'query "select count(*) from ENG"']
        outputs = set(self.same_time(count, database, lines, "upgrades at once"))
        self.trial.hold(len(outputs) == 1, "every upgrade ends with the same columns", str(outputs))
        self.trial.note("upgrades", count)
        self.deeds_behind(database)

    def deeds_behind(self, database):
        saved = play(self.trial.driver, database.path, [line.encode() for line in (
            "open propuestas", *PIECE, "set txtExtra ñ", "key F5", "print txtPesu(3)", "answer no", "close")])
        self.trial.hold(saved.good and b"Datos Grabados" in saved.output, "an upgraded database takes a save",
                        saved.told())


def main():
    with Trial() as trial:
        clients = Clients(trial)
        for number, rng in trial.rounds():
            count = rng.choice([2, 4])
            if number % 4 == 2:
                clients.upgrades(count)
            elif number % 4 == 3:
                clients.first_starts(count)
            else:
                clients.deeds(count, rng)


if __name__ == "__main__":
    main()
