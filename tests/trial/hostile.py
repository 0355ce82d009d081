#!/usr/bin/env python3
"""Every text of hostile_texts.txt, typed into every field and stored behind the program's back by another program.

Held: the driver ends by itself with the status of a script that ran; what was saved comes back as it was shown; nothing
is written outside the folder of the trial's papers; every exported sheet is a well-formed file that another library
reads, and no text in it is a formula. The options are those of trial.py; a round takes sixty of the texts through
every part below: each eleventh, so that every kind of text is among them.
"""

import subprocess
import zipfile
from pathlib import Path
from xml.etree import ElementTree

try:
    import openpyxl
except ImportError:  # the interpreter that is found first may not be the distribution's
    openpyxl = None

from driving import Database, number_of, play, printed, quoted, read_texts
from trial import Trial

TEXTS_A_ROUND = 60
# In the short form only some of the texts go into each field.
SHORT_SHARE = 0.1
PIECE = [
    b'set Text1(0) "12,7"', b'set Text1(8) "7,75"', b"set Text1(1) 38", b'set Text1(2) "7,75"',
    b"set txtPesu(0) 1001", b"set txtPesu(11) 3",
]
# Fields of each form, and what opens and closes it.
MAIN_FIELDS = (
    [b"Text1(%d)" % i for i in range(26)] + [b"Text3(%d)" % i for i in range(7)]
    + [b"Text4(%d)" % i for i in (*range(8), 50, 51, 52, 53)]
    + [b"txtPesu(%d)" % i for i in (*range(18), *range(20, 26), *range(50, 58))]
    + [b"txtPDM(%d)" % i for i in range(9)] + [b"txtTriple(%d)" % i for i in range(11)]
    + [b"txtDCV(%d)" % i for i in range(7)] + [b"txtCre(%d)" % i for i in range(6)]
    + [b"txtModulo", b"txtExtra", b"txtObservaciones", b"txtCPro"]
)
FORMS = {
    "the main form": ([b"open propuestas"], MAIN_FIELDS, b"leave"),
    "the tracking form": (
        [b"open seguimiento"],
        [b"txtCriterio(%d)" % i for i in range(6)] + [b"Text1(%d)" % i for i in (0, 1, 2, 3, 7, 8)]
        + [b"txtPesu(%d)" % i for i in range(13)],
        b"leave",
    ),
    "the materials": ([b"open parametros"], [b"Text1(%d)" % i for i in range(5)], b"leave"),
    "the chains": ([b"open propuestas", b"press XPButton1"], [b"Text1(%d)" % i for i in range(14)], b"leave"),
    "the gears": ([b"open propuestas", b"choose cboTipoPre 8", b"press cmdEng"], [b"Text1(%d)" % i for i in range(13)],
                  b"leave"),
    "the labour": (
        [b"open propuestas", *PIECE, b"key F5", b"key F1", b"press cmdNuevaLinea"],
        [b"txtLinea(%d)" % i for i in range(9)],
        b"try press cmdGrabarLinea",
    ),
}
# The desktop's tables, and which of their fields take a text.
TABLES = {"clientes": (0, 1, 2, 3, 5), "precios_de_corte": (0, 1), "articulos": (0, 1, 3, 4, 5, 6),
          "materiales": (0, 1, 2), "secciones": (0, 1), "maquinas": (0, 1, 2), "operarios": (0, 1, 2, 3),
          "tarifas": (0, 1, 2), "constantes": (1, 2, 3)}
for _table, _fields in TABLES.items():
    FORMS[f"the table {_table}"] = (
        [b"open tabla " + _table.encode(), b"press cmdNuevo"],
        [b"txtCampo(%d)" % i for i in _fields] + [b"txtBuscar"], b"try press cmdGrabar",
    )
# What is typed into these comes back: field of the form, column of the row.
SAVED_FIELDS = {b"txtPesu(2)": "DPI_RefCli", b"txtExtra": "DPI_EXTRA", b"txtObservaciones": "DPI_Obser",
                b"txtCPro": "DPI_ProTex"}
# Texts of rows that other programs have written.
FOREIGN_TEXTS = [
    ("CLI", "CLI_NOM", "CLI_ID"), ("CLI", "CLI_COMER", "CLI_ID"), ("ART", "ART_COD", "ART_ID"),
    ("ART", "ART_DES", "ART_ID"), ("PARDPI", "PARDPI_NOM", "PARDPI_ID"), ("PARDPI", "PARDPI_MATP", "PARDPI_ID"),
    ("RSEC", "RSEC_NOM", "RSEC_ID"), ("MAQ", "MAQ_NOM", "MAQ_ID"), ("OPE", "OPE_NOM", "OPE_ID"),
    ("PDM", "PDM_Titulo", "PDM_ID"),
]
FOREIGN_COLUMNS = ("DPI_NomCliente", "DPI_RefCli", "DPI_PedCliente", "DPI_Obser", "DPI_PDM_Texto", "DPI_HERRAMIENTA",
                   "DPI_EXTRA", "DPI_ProTex")
ANSWERS = [b"answer no"] * 200 + [b"pick none"] * 50


class Hostile:
    def __init__(self, trial):
        self.trial = trial
        self.texts = read_texts(Path(__file__).with_name("hostile_texts.txt"))

    def begin(self):
        """A new database, and beside its folder nothing else."""
        folder = self.trial.fresh_folder()
        self.inside = folder / "a" / "b" / "inside"
        self.papers = self.inside / "papers"
        self.papers.mkdir(parents=True)
        self.database = Database(self.trial.driver, self.inside / "taller.db")
        ended = self.play(["open propuestas", *PIECE, "key F5", "close"])
        self.trial.hold(ended.good, "the undisturbed save", ended.told())

    def play(self, lines, **options):
        lines = [line if isinstance(line, bytes) else line.encode() for line in lines]
        return play(self.trial.driver, self.database.path, lines, papers=self.papers, folder=self.inside, **options)

    def ends(self, ended, what, texts):
        shown = " ".join(repr(text[:40]) for text in texts)
        return self.trial.hold(ended.good, f"{what}: status {ended.status}", f"{shown}\n{ended.told()}")

    def typed(self, texts, rng):
        """Each text into each field of each form."""
        share = SHORT_SHARE if self.trial.options.count else 1
        for name, (opening, fields, behind) in FORMS.items():
            lines = list(ANSWERS) + opening
            count = 0
            for text in texts:
                chosen = [field for field in fields if rng.random() < share]
                for field in chosen:
                    kind = b"set" if rng.random() < 0.8 or len(text) > 300 else rng.choice([b"type", b"paste"])
                    lines += [b"try " + kind + b" " + field + b" " + quoted(text)]
                count += len(chosen)
                lines += [behind, b"answer no", b"answer no"] + [b"pick none"] * 3
            self.ends(self.play(lines + [b"try close"]), f"typed into {name}", texts)
            self.trial.note("texts typed", count)

    def saved(self, texts):
        """A proposal for each text: what the form shows behind the save is what the row holds and a load shows."""
        fields = [b"print " + field for field in SAVED_FIELDS]
        lines = []
        for index, text in enumerate(texts):
            lines += [b"open propuestas", *PIECE]
            lines += [b"set %s %s" % (field, quoted(text)) for field in SAVED_FIELDS] + [b"leave"]
            lines += [b"echo typed %d" % index, *fields, b"key F5", b"print txtPesu(3)"]
            lines += [b"echo saved %d" % index, *fields, b"answer no", b"close", b"echo closed %d" % index]
        ended = self.play(lines)
        if not self.ends(ended, "saved", texts):
            return
        saved = []
        for index, text in enumerate(texts):
            saving, shown = ended.parts(b"typed %d\n" % index, b"saved %d\n" % index, b"closed %d\n" % index)
            number = number_of(saving)
            if number:
                saved.append((text, number, shown))
            else:
                self.refused(text, saving)
        self.came_back(saved, fields)

    def refused(self, text, saving):
        told = b"\nmessage icon" in saving or b"\nerror number" in saving
        self.trial.hold(told and b"Datos Grabados" not in saving, "a save that is refused says so",
                        f"{text[:80]!r}\n{saving[-300:]!r}")
        self.trial.note("saves refused with words")

    def came_back(self, saved, fields):
        lines = []
        for _, number, _ in saved:
            lines += [b"open propuesta %d" % number, b"echo loaded %d" % number, *fields, b"echo read %d" % number,
                      b"close"]
        loaded = self.play(lines)
        self.ends(loaded, "loaded again", [text for text, _, _ in saved])
        for text, number, shown in saved:
            again = loaded.parts(b"loaded %d\n" % number, b"read %d\n" % number)[0]
            self.trial.hold(again == shown, "what was saved is loaded", f"{text!r}\n{shown!r}\n{again!r}")
            row = self.database.row("select " + ", ".join(SAVED_FIELDS.values()) + " from DPI where DPI_Id = ?", number)
            written = b"".join(b"%s = %s\n" % (field, printed(value)) for field, value in zip(SAVED_FIELDS, row))
            self.trial.hold(written == shown, "the row holds what the form shows", f"{text!r}\n{shown!r}\n{written!r}")
            self.trial.hold(self.is_kept(text, row), "what was typed is in the row", f"{text!r}\n{row!r}")

    @staticmethod
    def is_kept(text, row):
        """The text itself, as far as its field goes; the remarks lose their line breaks when they are saved."""
        typed = text.replace(b"\r\n", b"\n").replace(b"\n", b"\r\n").decode("utf-8", "surrogateescape")
        return all(value is not None and (value == typed or value == typed.replace("\r\n", ""))
                   or len(typed) > len(value) for value in row)

    def searched(self, texts):
        """Each text as a filter, a search and a measure; a list that is exported has rows of some other text."""
        lines = list(ANSWERS)
        for text in texts:
            lines += [b"open seguimiento"]
            for criterion in range(6):
                lines += [b"set txtCriterio(%d) %s" % (criterion, quoted(text)), b"press cmdfiltro",
                          b'set txtCriterio(%d) ""' % criterion]
            for measure in (0, 1, 2, 3, 7, 8):
                lines += [b"set Text1(%d) %s" % (measure, quoted(text)), b"press XPButton4",
                          b'set Text1(%d) ""' % measure]
            lines += [b"close", b"open propuestas", b"set txtPesu(1) " + quoted(text), b"pick none", b"pick none",
                      b"answer yes", b"key F2", b"answer no", b"close"]
        self.ends(self.play(lines), "searched for", texts)

    def stored_by_others(self, texts, rng):
        """The texts in rows of every table, as they are or as bytes; then every form, paper and sheet."""
        numbers = self.database.store(texts, FOREIGN_COLUMNS, FOREIGN_TEXTS, rng)
        lines = list(ANSWERS)
        for number in numbers:
            lines += [b"open propuesta %d" % number, b"dump", b"rows dbgDPI", b"close",
                      b"call jPrintPropuesta %d on" % number]
            # On paper, as the proposal's own form prints it.
            lines += [b"open seguimiento", b"set txtCriterio(4) %d" % number, b"press cmdfiltro", b"gridkey dbgDPI F8",
                      b"try key F8", b"close", b"try close"]
        lines += [b"open parametros", b"rows dbgFco", b"dump", b"close"]
        for table in TABLES:
            lines += [b"open tabla " + table.encode(), b"rows dbgFilas", b"dump"]
            lines += [b"try row dbgFilas %d" % row for row in range(6)] + [b"close"]
        lines += [b"open propuestas", b"answer yes", b"pick 3", b"key F2", b"answer no", b"pick 2", b"key F2",
                  b"press XPButton1", b"choose cboDobles 1", b"rows dbgRs", b"close", b"try close"]
        self.ends(self.play(lines, seconds=300), "rows of other programs", texts)
        # A customer's name that has no room in a proposal is refused: then there is no labour to open.
        lines = [*ANSWERS, b"open propuestas", *PIECE, b"key F5", b"key F1", b"try press cmdNuevaLinea"]
        lines += [b"try set txtLinea(0) 131", b"leave", b"dump", b"pick 1", b"try press cmdBuscarMaquina"]
        ended = self.play(lines)
        self.trial.hold(ended.good or b"no open form has" in ended.errors, "labour over rows of others", ended.told())
        self.printed(rng)
        self.exported(numbers)

    def printed(self, rng):
        """Some of the papers, read by another program."""
        papers = sorted(self.papers.rglob("*.pdf"))
        self.trial.hold(len(papers) > 1, "papers are printed", str(len(papers)))
        for paper in rng.sample(papers, min(len(papers), 5)):
            read = subprocess.run(["pdftotext", paper, "-"], capture_output=True, check=False)
            self.trial.hold(read.returncode == 0 and len(read.stdout) > 200, "a paper is read", f"{paper} {read}")

    def exported(self, numbers):
        """The whole list as a sheet: every text that the format has a place for is in it."""
        for sheet in self.papers.rglob("*.xlsx"):
            sheet.unlink()
        ended = self.play([b"open seguimiento", b"choose cboFiltroHistorico 2", b"press cmdfiltro", b"rows dbgDPI",
                           b"press cmdExcel", b"close"])
        sheets = list(self.papers.rglob("*.xlsx"))
        if not self.trial.hold(ended.good and len(sheets) == 1, "the list is exported", ended.told()):
            return
        try:
            texts = sheet_texts(sheets[0])
        except (ElementTree.ParseError, zipfile.BadZipFile, ValueError) as failure:
            self.trial.hold(False, f"the sheet is read: {failure}")
            return
        self.trial.hold(len(texts) > len(numbers), "the sheet has the list's rows", str(len(texts)))
        if openpyxl:
            cells = openpyxl.load_workbook(sheets[0], read_only=True).active
            kinds = {cell.data_type for row in cells.iter_rows() for cell in row}
            self.trial.hold(kinds <= {"s", "n", "d", "inlineStr"}, "another library reads the sheet", str(kinds))
            self.trial.note("sheets read by another library")
        for number, name in self.database.names(numbers):
            if name is not None and is_plain(name):
                self.trial.hold(name in texts, "a name is in the sheet as it is", f"{number} {name!r}")

    def attached(self, texts):
        """Files of hostile names, as documents, viewed again; and documents whose names other programs have stored."""
        lines = [b"open propuesta 321", b"press cmdDoc"]
        for index, text in enumerate(texts):
            name = self.inside / f"x{index}"
            named = bytes(self.inside) + b"/" + text
            try:
                if b"/" not in text:
                    with open(named, "xb") as made:
                        made.write(b"x")
            except (OSError, ValueError):
                pass  # no file can bear this name, or one does
            if not text.startswith((b"/", b"~")):
                lines += [b"file " + quoted(named), b"try press Toolbar1(FICHERO)"]
            name.write_bytes(b"y")
            lines += [b"file " + quoted(bytes(name)), b"try press Toolbar1(FICHERO)"]
        lines += [b"rows dbgPlanos", b"try press Toolbar1(3)", b"close", b"close"]
        self.ends(self.play(lines), "attached", texts)
        rows = self.database.name_documents(texts)
        lines = [b"open propuesta 321", b"press cmdDoc", b"rows dbgPlanos"]
        for row in range(rows):
            lines += [b"try row dbgPlanos %d" % row, b"try press Toolbar1(3)"]
        self.ends(self.play(lines + [b"close", b"close"]), "documents of other programs", texts)

    def expect_nothing_outside(self, texts):
        top = self.trial.folder
        strange = [path for path in top.rglob("*") if self.inside not in (path, *path.parents)
                   and path not in self.inside.parents]
        strange += [path for path in (Path("/tmp/fuera.txt"), Path("/tmp/velmora_fuera.txt")) if path.exists()]
        strange += [path for path in self.inside.glob("fuera*") if b"fuera.txt:flujo" not in bytes(path)]
        self.trial.hold(not strange, "nothing is written outside the folder", f"{strange} {texts!r}")
        self.trial.hold(self.database.is_whole(), "the database is whole")


def is_plain(text):
    """Whether a sheet has a place for every character of the text."""
    return len(text) < 30000 and all(
        (c in "\t\n" or ord(c) >= 32) and not 0x7F <= ord(c) < 0xA0 and not 0xD800 <= ord(c) < 0xE000
        and ord(c) & 0xFFFE != 0xFFFE and not 0xFDD0 <= ord(c) < 0xFDF0 and ord(c) not in (0x2028, 0x2029, 0xFFFD)
        for c in text
    )


def sheet_texts(path):
    """The texts of all cells. Errors: a part that is not well-formed; ValueError for a cell that is a formula."""
    space = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
    texts = set()
    with zipfile.ZipFile(path) as parts:
        if parts.testzip():
            raise ValueError("a part is damaged")
        trees = {name: ElementTree.fromstring(parts.read(name)) for name in parts.namelist()}
    for name, tree in trees.items():
        if tree.find(f".//{space}f") is not None:
            raise ValueError("a cell is a formula")
        for item in [*tree.iter(f"{space}is"), *tree.iter(f"{space}si")]:
            texts.add("".join(part.text or "" for part in item.iter(f"{space}t")))
    return texts


def main():
    with Trial() as trial:
        hostile = Hostile(trial)
        for number, rng in trial.rounds():
            step = len(hostile.texts) // TEXTS_A_ROUND
            texts = hostile.texts[number % step::step]
            hostile.begin()
            hostile.typed(texts, rng)
            hostile.saved(texts)
            hostile.searched(texts)
            hostile.stored_by_others(texts, rng)
            hostile.attached(texts)
            hostile.expect_nothing_outside(texts)
            trial.note("texts", len(texts))


if __name__ == "__main__":
    main()
