"""Every deed of the program that writes, as lines for the driver, and what of it may be there when it is cut off."""

from dataclasses import dataclass, field
from pathlib import Path

SCENARIOS = Path(__file__).resolve().parent.parent / "scenarios"

# What the script prints around the deed. Everything before the first is preparation.
BEFORE = "-- what is typed"
MARK = "-- the deed"
DONE = "-- the deed is done"
TYPED_SHOWN = "-- what was typed"
AGAIN = "-- once more"
END = "-- descriptors at the end"


@dataclass
class Deed:
    """`opening` leads to the form on which `action` does it.

    `success` is what the user reads when it is done; empty when the form says nothing. `steps` names the tables of the
    rows that it writes in their order when it is not one transaction; each of them may be the last that is there.
    `empty_first` is a table and a column of the single row that it writes: the row comes without it, and then it comes.
    Of the steps so many are there when it is acknowledged, all unless told. `told_otherwise` is what the form is
    required to say of a failure although it does not name it.
    `may_miss` is a table whose refused rows are left out without a word, as is required.
    `typed` are the controls that must show the same when it has failed; `again` does it once more.
    """

    name: str
    rows: str
    opening: str
    action: str
    success: str = ""
    steps: tuple = ()
    typed: str = ""
    again: str = ""
    files: dict = field(default_factory=dict)
    empty_first: tuple = ()
    acknowledged_steps: int = -1
    told_otherwise: str = ""
    may_miss: str = ""

    def script(self):
        return self.until_done() + self.ending()

    def until_done(self):
        return self.until_mark() + self.from_mark()

    def _shown(self):
        return f"print {self.typed}\n" if self.typed else ""

    def until_mark(self):
        return f'{self.opening}\necho "{BEFORE}"\n{self._shown()}echo "{MARK}"\n'

    def from_mark(self):
        return f'{self.action}\necho "{DONE}"\n{self._shown()}echo "{TYPED_SHOWN}"\n'

    def once_more(self):
        return f'echo "{AGAIN}"\n{self.again or self.action}\n'

    @staticmethod
    def ending():
        # What a form asks on its way out: nothing is written any more.
        return f'echo "{END}"\n' + "answer no\n" * 8

    def data(self):
        return SCENARIOS / self.rows


TYPED = "Text1(0) Text1(8) Text1(1) Text1(2) txtPesu(0) txtPesu(2) txtPesu(11) txtExtra"

PROPOSAL = """open propuestas
set Text1(0) "12,7"
set Text1(8) "7,75"
set Text1(1) 38
set Text1(2) "7,75"
set txtPesu(0) 1001
set txtPesu(2) "REF ñ 7"
set txtPesu(11) 3
set txtExtra "lo tecleado"
leave"""

SAVED = PROPOSAL + "\nkey F5"

# A document's row holds its content: a longer one lies on pages of its own.
DOCUMENT = "plano ñ.pdf"
FILES = {DOCUMENT: b"plano" * 4000}

WITH_LABOUR = SAVED + """
key F1
press cmdNuevaLinea
set txtLinea(0) 10
set txtLinea(6) 90
leave"""

ACCEPTED = """open seguimiento
set txtCriterio(4) {number}
press cmdfiltro"""

ACCEPT = "answer yes\nanswer yes\nanswer yes\nanswer yes\npress XPButton1"

# What the acceptance is required to say behind the order's row: no transaction is open any more, and undoing what is not
# open is what fails last; a refused row of the sprocket has an error of its own.
WORDS_OF_ACCEPTANCE = "No hay ninguna transacción abierta|Error definido por la aplicación"

DEEDS = [
    Deed("save_new", "staffed_workshop.sql", PROPOSAL, "key F5", "Datos Grabados satisfactoriamente", typed=TYPED),
    Deed(
        "save_changed", "staffed_workshop.sql",
        SAVED + '\nset txtPesu(11) 5\nset txtExtra "cambiado después"\nset Text1(1) 40\nleave',
        "key F5", "Datos Grabados satisfactoriamente", typed=TYPED,
    ),
    Deed(
        "duplicate", "staffed_workshop.sql",
        WITH_LABOUR + "\npress cmdGrabarLinea\npress cmdSalir", "answer yes\nkey F6",
    ),
    Deed("delete", "staffed_workshop.sql", SAVED, "answer yes\nkey F9"),
    # The labour form writes the sum into the proposal when it is closed.
    Deed(
        "labour_line", "staffed_workshop.sql", WITH_LABOUR, "press cmdGrabarLinea", steps=("MoDpi", "DPI"),
        acknowledged_steps=1, typed="txtLinea(0) txtLinea(6)",
        # A line whose list could not be read again is stored, and its frame is closed.
        again="try press cmdGrabarLinea",
    ),
    Deed(
        "labour_line_deleted", "staffed_workshop.sql",
        WITH_LABOUR + "\npress cmdGrabarLinea\npress cmdSalir\nkey F1\nrow DataGrid1 0",
        "answer yes\npress cmdEliminarLinea", steps=("MoDpi", "DPI"), acknowledged_steps=1,
    ),
    Deed("labour_left", "staffed_workshop.sql", WITH_LABOUR + "\npress cmdGrabarLinea", "press cmdSalir", again="key F5"),
    Deed(
        "material_new", "values.sql",
        'open parametros\nkey F4\ntype Text1(1) "Disco ñ"\nkey ENTER\ntype Text1(2) "R-F114"\nkey ENTER\n'
        'set Text1(4) "Acero"\ncheck Check2 on\nleave',
        "key F5", "Datos Gabados satisfactoriamente", typed="Text1(1) Text1(2) Text1(4) Check2",
    ),
    Deed(
        "material_changed", "values.sql",
        'open parametros\nset Text1(0) "2"\nleave\nset Text1(1) "Cubo cambiado"\ncheck Check1 on\nleave',
        "press cmdGuardar", "Datos Gabados satisfactoriamente", typed="Text1(0) Text1(1) Check1",
    ),
    Deed(
        "gear_new", "values.sql",
        'open propuestas\nchoose cboTipoPre 8\npress cmdEng\nset Text1(0) "2,5"\nset Text1(1) "24"\nset Text1(11) "5,63"\n'
        'set Text1(6) "35"\nset Text1(7) "14"\nset Text1(8) "20"\nset Text1(9) "25"\nleave',
        "press cmdGrabar", typed="Text1(0) Text1(1) Text1(11) Text1(6) Text1(7) Text1(8)",
        again='try press cmdEng\nset Text1(0) "2,5"\nset Text1(1) "24"\nset Text1(11) "5,63"\nset Text1(6) "35"\n'
        'set Text1(7) "14"\nset Text1(8) "20"\nset Text1(9) "25"\npress cmdGrabar',
    ),
    Deed(
        "double_values_new", "values.sql",
        'open propuestas\nanswer no\npress XPButton1\nanswer yes\nchoose cboDobles "ISO 1/2\'\'"\ntype Text1(1) "12.7"\n'
        'type Text1(3) "7,75"\ntype Text1(2) "8,51"\ntype Text1(4) "7,2"\ntype Text1(5) "21,1"\nkey ENTER\n'
        'type Text1(0) "17"\nkey ENTER\nset Text1(10) "74,5"\nset Text1(8) "69,11"\nset Text1(7) "48"\n'
        'set Text1(6) "20"\nset Text1(12) "45"\nset Text1(13) "2,5"\nleave',
        "press cmdGrabar", "Datos grabados satisfactoriamente", typed="Text1(10) Text1(8) Text1(7) Text1(6) Text1(13)",
    ),
    Deed(
        "document_added", "staffed_workshop.sql", SAVED + "\npress cmdDoc",
        f'file "{DOCUMENT}"\npress Toolbar1(FICHERO)', files=FILES,
        empty_first=("dex", "Dex_Doc"), told_otherwise="Error añadiendo fichero",
    ),
    Deed(
        "document_deleted", "staffed_workshop.sql",
        SAVED + f'\npress cmdDoc\nfile "{DOCUMENT}"\npress Toolbar1(FICHERO)\nrow dbgPlanos 0',
        "answer yes\npress Toolbar1(5)", files=FILES,
    ),
    Deed(
        "accept_sprocket", "accept_workshop.sql", ACCEPTED.format(number=1), ACCEPT, "Presupuesto Aceptado",
        told_otherwise=WORDS_OF_ACCEPTANCE, may_miss="RUT", steps=("ORDEN", "DPI", "OrdPiñones", "Mat", "Mat", "RUT", "RUT", "RUT", "RUT"),
    ),
    Deed(
        "accept_rack", "accept_workshop.sql", ACCEPTED.format(number=4), ACCEPT, "Presupuesto Aceptado",
        told_otherwise=WORDS_OF_ACCEPTANCE, may_miss="RUT", steps=("ORDEN", "DPI", "Mat", "RUT"),
    ),
]
