#!/usr/bin/env python3
"""One driver that does everything again and again: its memory, its descriptors and the engine's open statements stay
where they were. A round is a few hundred operations, all in the same process; behind each, the rows that it has added
are deleted, so that the database does not grow. The options are those of trial.py.
"""

import os
import struct
import subprocess

from driving import Database
from trial import Trial

CYCLES_A_ROUND = 8
# Until most caches are full.
WARM_ROUNDS = 4
# What the memory may grow by, in all and for each thousand operations: some caches fill late, in steps of 2 MB.
KILOBYTES = 6000
KILOBYTES_A_THOUSAND = 5
# A list that is open takes its connection along, and the statements after it run on a second one. Each keeps up to 256
# statements prepared and two of its own; the second fills slowly, since few statements are new to it.
STATEMENTS = 2 * (256 + 2)

PIECE = ['set Text1(0) "12,7"', 'set Text1(8) "7,75"', "set Text1(1) 77", 'set Text1(2) "7,75"', "set txtPesu(0) 1001",
         "set txtPesu(11) 3", "leave"]
SAVED = 'expect-message "Datos Grabados satisfactoriamente"'
# Each is one operation that a user asks for; a form that it opens is closed again.
OPERATIONS = {
    "a new proposal": ["open propuestas", *PIECE, "key F5", SAVED, "close"],
    "loaded, changed and saved": [
        "open propuestas", *PIECE, "answer yes", "cell dbgDPI 0", "press cmdCambios", "set txtExtra otra",
        "key F5", SAVED, "close"],
    "the history by its criteria": [
        "open propuestas", *PIECE, "set Text1(1) 17", "leave", "choose cboFiltroHistorico 1",
        "choose cboFiltroHistorico 0", "rows dbgDPI", "close"],
    "the list of all": ["open seguimiento", "choose cboFiltroHistorico 2", "press cmdfiltro", "rows dbgDPI", "close"],
    "the list by measures": ["open seguimiento", "set Text1(0) 38", "press XPButton4", "rows dbgDPI", "close"],
    "a consultation": ["open propuesta 17", "dump", "close"],
    "a copy": [
        "open propuestas", *PIECE, "answer yes", "cell dbgDPI 0", "press cmdCambios", "answer yes", "key F6",
        'expect-message "Propuesta duplicada satisfactoriamente"', "close"],
    "a line of labour": [
        "open propuestas", *PIECE, "answer yes", "cell dbgDPI 0", "press cmdCambios", "key F1", "press cmdNuevaLinea",
        "set txtLinea(0) 131", "set txtLinea(6) 30", "press cmdGrabarLinea", "press cmdSalir", "close"],
    "a document": [
        "open propuestas", *PIECE, "answer yes", "cell dbgDPI 0", "press cmdDoc", "file plano.txt",
        "press Toolbar1(FICHERO)", "press Toolbar1(3)", "answer yes", "press Toolbar1(5)", "close", "close"],
    "an acceptance": [
        "open seguimiento", "set txtCriterio(4) {pending}", "press cmdfiltro", "answer yes", "answer yes", "answer yes",
        "answer yes", "press XPButton1", "close"],
    "a paper": ["open seguimiento", "set txtCriterio(4) 17", "press cmdfiltro", "gridkey dbgDPI F8", "key F8", "close",
                "close"],
    "a sheet": ["open seguimiento", "choose cboFiltroHistorico 1", "press cmdfiltro", "press cmdExcel", "close"],
    "the materials": ["open parametros", "row dbgFco 3", "dump", "close"],
    "the chains": ["open propuestas", "press XPButton1", "choose cboDobles 2", "rows dbgRs", "close", "close"],
    "a refusal": ["open propuestas", "set Text1(0) abc", "key F5", 'expect-message "Error Falta Cliente"', "close"],
    "a deletion": ["open propuestas", *PIECE, "answer yes", "cell dbgDPI 0", "answer yes",
                   "key F9", "close"],
}
TIDYING = [
    'query "delete from DPI where DPI_Id > {last}"', 'query "delete from MoDpi where MoDpi_Dpi > {last}"',
    'query "update DPI set DPI_FAcepta = null, DPI_Orden = null where DPI_Id = {pending}"',
    'query "delete from ORDEN where ORDEN_IdDPI = {pending}"', 'query "delete from RUT"', 'query "delete from Mat"',
    'query "delete from OrdPiñones"',
]


class LongLife:
    def __init__(self, trial):
        self.trial = trial
        folder = trial.fresh_folder()
        self.database = Database(trial.driver, folder / "taller.db")
        self.papers = folder / "papers"
        self.counts = folder / "statements"
        self.document = folder / "plano.txt"
        self.last, self.pending = self.database.row(
            "select max(DPI_Id), max(case when DPI_FAcepta is null and DPI_Tipo = 0 then DPI_Id end) from DPI")
        self.operations = 0
        environment = os.environ | {"LD_PRELOAD": str(trial.program("statement_count.so")),
                                    "TRIAL_STATEMENTS": str(self.counts)}
        self.process = subprocess.Popen(
            [trial.driver, "--db", self.database.path, "--keep", self.papers, "-"], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", cwd=folder, env=environment,
        )

    def ask(self, lines):
        """What the lines print. Errors: EOFError when the driver has ended."""
        self.process.stdin.write("\n".join([*lines, "echo answered", ""]).format(last=self.last, pending=self.pending))
        self.process.stdin.flush()
        answer = ""
        for line in self.process.stdout:
            if line == "answered\n":
                return answer
            answer += line
        raise EOFError(answer[-2000:])

    def play(self, rng):
        # The first makes the proposal that most of the others load from the history, the last deletes one.
        first, *others, last = OPERATIONS
        for _ in range(CYCLES_A_ROUND):
            rng.shuffle(others)
            for name in [first, *others, last]:
                self.document.write_text("plano", encoding="utf-8")
                answer = self.ask(OPERATIONS[name])
                good = "failed line" not in answer and "error " not in answer
                self.trial.hold(good, f"{name} is done", answer[-1500:])
                self.operations += 1
            self.ask(TIDYING)
        for paper in self.papers.iterdir():
            paper.unlink()

    def measured(self):
        """Kilobytes of memory, descriptors, open statements."""
        status = open(f"/proc/{self.process.pid}/status", encoding="utf-8").read()
        memory = int(status.partition("VmRSS:")[2].split()[0])
        opened, self.prepared = struct.unpack("qq", self.counts.read_bytes())
        return memory, len(os.listdir(f"/proc/{self.process.pid}/fd")), opened

    def end(self):
        self.process.stdin.close()
        return self.process.wait()


def main():
    with Trial() as trial:
        life = LongLife(trial)
        marks = []
        for _, rng in trial.rounds():
            try:
                life.play(rng)
            except EOFError as ended:
                trial.hold(False, "the driver has ended", str(ended))
                return
            marks.append((life.operations, *life.measured()))
            _, first_memory, first_files, first_statements = marks[min(len(marks) - 1, WARM_ROUNDS)]
            done, memory, files, statements = marks[-1]
            since = done - marks[min(len(marks) - 1, WARM_ROUNDS)][0]
            told = f"behind {done} operations: {memory} kB, {files} descriptors, {statements} statements; {marks[::20]}"
            trial.hold(memory - first_memory <= KILOBYTES + KILOBYTES_A_THOUSAND * since / 1000, "memory grows", told)
            trial.hold(files <= first_files, "descriptors grow", told)
            trial.hold(statements <= max(first_statements, STATEMENTS), "open statements grow", told)
        # Most of them serve many operations.
        still_open = marks[-1][3]
        trial.hold(life.prepared >= still_open > 0, "statements are counted", f"{life.prepared}, open {still_open}")
        trial.hold(life.end() == 0, "the driver ends well")
        trial.note("operations", life.operations)
        trial.note("kB at the end", marks[-1][1])
        trial.note("kB when warm", marks[min(len(marks) - 1, WARM_ROUNDS)][1])
        trial.note("open statements", marks[-1][3])
        trial.note("descriptors", marks[-1][2])


if __name__ == "__main__":
    main()
