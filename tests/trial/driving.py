"""Scripts of velmora-drive made of bytes, how they ended, and the database file seen by another program."""

import re
import sqlite3
import subprocess

# A script that takes longer hangs.
PATIENCE_SECONDS = 120


def read_texts(path):
    """The texts of hostile_texts.txt, as bytes."""
    texts = []
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.startswith("# "):
            continue
        if line.startswith("repeat "):
            _, count, text = line.split(" ", 2)
            texts.append(int(count) * unescaped(text))
        else:
            texts.append(unescaped(line))
    return texts


def unescaped(line):
    parts = line.encode().split(b"\\")
    result, rest = parts[0], parts[1:]
    while rest:
        part = rest.pop(0)
        if part.startswith(b"x"):
            result += bytes([int(part[1:3], 16)]) + part[3:]
        else:
            result += b"\\" + rest.pop(0)
    return result


def printed(text):
    """How the driver prints the text of a row."""
    return quoted(text.encode("utf-8", "surrogateescape").replace(b"\r\n", b"\n").replace(b"\r", b"\n"))


def quoted(text):
    """A value of a script."""
    return b'"' + text.replace(b"\\", b"\\\\").replace(b'"', b'\\"').replace(b"\n", b"\\n") + b'"'


def number_of(output):
    """The number of the proposal that the form has shown last; 0 when it has none."""
    shown = re.findall(rb'^txtPesu\(3\) = "(\d*)"$', output, re.MULTILINE)
    return int(shown[-1] or 0) if shown else 0


class Ended:
    """How a script has ended: status 0 or 1 when it ran to its end, None when it did not end."""

    def __init__(self, status, output, errors):
        self.status, self.output, self.errors = status, output, errors

    @property
    def good(self):
        return self.status == 0

    def told(self):
        return (self.errors[-600:] + b"\n" + self.output[-600:]).decode("utf-8", "backslashreplace")

    def parts(self, *marks):
        """What lies between each mark and the next."""
        rest, found = self.output, []
        for mark in marks:
            part, _, rest = rest.partition(mark)
            found.append(part)
        return found[1:]


def play(driver, database, lines, papers=None, folder=None, seconds=PATIENCE_SECONDS, options=()):
    command = [driver, "--db", database, *(["--keep", papers] if papers else []), *options, "-"]
    try:
        ended = subprocess.run(command, input=b"\n".join(lines) + b"\n", capture_output=True, timeout=seconds,
                               cwd=folder, check=False)
    except subprocess.TimeoutExpired as late:
        return Ended(None, late.stdout or b"", late.stderr or b"")
    return Ended(ended.returncode, ended.stdout, ended.stderr)


def no_case(one, other):
    one, other = one.casefold(), other.casefold()
    return (one > other) - (one < other)


class Database:
    """The file as another program opens it: by the engine alone, without the program's types."""

    def __init__(self, driver, path, make=True):
        self.path = path
        if make:
            play(driver, path, [b"echo made"])

    def open(self, path=None):
        connection = sqlite3.connect(path or self.path, timeout=30, isolation_level=None)
        connection.text_factory = lambda value: value.decode("utf-8", "surrogateescape")
        connection.create_collation("Modern_Spanish_CI_AS", no_case)
        connection.create_function("getdate", 0, lambda: "2026-01-15 10:00:00.000")
        return connection

    def row(self, query, *values):
        connection = self.open()
        try:
            return connection.execute(query, values).fetchone()
        finally:
            connection.close()

    def is_whole(self):
        """But for texts that are longer than their columns, which other programs may have stored."""
        connection = self.open()
        told = [row[0] for row in connection.execute("pragma integrity_check")]
        connection.close()
        return all(line == "ok" or line.startswith("CHECK constraint failed") for line in told)

    def documents(self):
        return self.path.with_name("DOC" + self.path.name)

    def store(self, texts, columns, others, rng):
        """A proposal for each text, which is in all of its columns; and rows of other tables. Gives the proposals."""
        connection = self.open()
        connection.execute("pragma ignore_check_constraints = on")
        connection.execute("begin immediate")
        numbers = []
        source = connection.execute("select max(DPI_Id) from DPI where DPI_FAcepta is null").fetchone()[0]
        names = [row[1] for row in connection.execute("pragma table_info(DPI)") if row[1] != "DPI_Id"]
        for text in texts:
            values = ", ".join("cast(:text as text)" if name in columns else name for name in names)
            made = connection.execute(
                f"insert into DPI ({', '.join(names)}) select {values} from DPI where DPI_Id = :id",
                {"text": text, "id": source})
            numbers.append(made.lastrowid)
            for table, column, key in others:
                keys = [row[0] for row in connection.execute(f"select {key} from {table}")]
                connection.execute(f"update {table} set {column} = cast(? as text) where {key} = ?",
                                   (text, rng.choice(keys)))
        connection.execute("commit")
        connection.close()
        return numbers

    def names(self, numbers):
        connection = self.open()
        marks = ", ".join("?" * len(numbers))
        query = f"select DPI_Id, DPI_NomCliente from DPI where DPI_Id in ({marks})"
        rows = connection.execute(query, numbers).fetchall()
        connection.close()
        return rows

    def name_documents(self, texts):
        """Gives the texts to the documents as names. Gives the number of documents."""
        connection = self.open(self.documents())
        connection.execute("pragma ignore_check_constraints = on")
        keys = [row[0] for row in connection.execute("select Dex_Id from dex")]
        for text, key in zip(texts, keys):
            connection.execute("update dex set Dex_Fic = cast(:text as text), Dex_FicDes = cast(:text as text) "
                               "where Dex_Id = :key", {"text": text, "key": key})
        connection.close()
        return len(keys)
