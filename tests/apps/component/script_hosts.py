#!/usr/bin/env python3
"""script_hosts.py DLL TYPIST LEAVING BITS OBJDUMP FOLDER: velmora.dll in its hosts, from registration to removal.

The exports are four; registered, the class is created by name and every member called; unregistered, the registry is as
it was. TYPIST, a DLL with the same class and a program as its user, prices the piece of the example, which is compared
with its text in the document. LEAVING, a host that ends while it holds an instance, gets no release any more. Prints what
differs and exits 1.
"""

import contextlib
import re
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent
WINE = ROOT / "scripts" / "wine.sh"
EXAMPLE = ROOT / "examples" / "windows" / "price_a_piece.vbs"
DOCUMENT = ROOT / "docs" / "windows.md"

PRICED = "Proposal 321: 10 pieces at 19.69"

EXPORTS = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]

FINDINGS = """
create 0
jShow without session VELMORA 91
jShowParametros without session 91
jShowSeguimiento without session 91
jShowPropuesta without session 91
bExportReport -1 0
MyBd by Set 0
MyBd is given back True 7 0
jShow refused 1001
MyBd without Set 0
jShowSeguimiento refused 1002
jShowParametros refused 1002
jShowPropuesta refused 1002 5
jShowPropuesta 0 0
jPrintPropuesta 0 12 0
no number 13
an argument too few 450
no such member 438
no object 13
MyBd to Nothing 0
jShow without session again 91
the last one has gone 1004
the first one has gone 1005
end
""".strip().splitlines()


class Failure(Exception):
    pass


class Wine:
    def __init__(self, bits):
        self.start = [str(WINE)] + (["--32"] if bits == "32" else [])

    def start_of(self, arguments):
        return subprocess.run(self.start + list(arguments), capture_output=True, timeout=120, check=False)

    def succeeds(self, *arguments):
        return self.start_of(arguments).returncode == 0

    def run(self, *arguments):
        if not self.succeeds(*arguments):
            raise Failure("fails: " + " ".join(arguments))

    def said(self, *arguments):
        """What a program has written; its exit status does not tell whether a script has failed."""
        return self.start_of(arguments).stdout.decode("latin-1")


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def check_exports(objdump, dll):
    told = subprocess.run([objdump, "-p", dll], capture_output=True, text=True, check=True).stdout
    table = told[told.index("[Ordinal/Name Pointer] Table") :].split("\n\n")[0]
    names = sorted(re.findall(r"^\s+\[.*\]\s.*?(\w+)$", table, re.MULTILINE))
    if names != EXPORTS:
        raise Failure(f"exports: {names}")


def registry(wine, folder, name):
    """The classes of machine and user, as text. A user may have none."""
    text = ""
    for hive in ("HKLM", "HKCU"):
        if hive == "HKCU" and not wine.succeeds("reg", "query", hive + r"\Software\Classes"):
            continue
        file = folder / f"{name}_{hive}.reg"
        wine.run("reg", "export", hive + r"\Software\Classes", windows_path(file), "/y")
        text += file.read_bytes().decode("utf-16")
    return text


def differences(before, after):
    one, other = before.splitlines(), after.splitlines()
    return [f"- {line}" for line in sorted(set(one) - set(other))] + [f"+ {line}" for line in sorted(set(other) - set(one))]


def check_script(wine, folder):
    found = folder / "members.txt"
    found.unlink(missing_ok=True)
    wine.run("cscript", "//nologo", windows_path(HERE / "members.vbs"), windows_path(found))
    lines = found.read_text(encoding="latin-1").splitlines() if found.exists() else []
    for number in range(max(len(lines), len(FINDINGS))):
        found_line = lines[number] if number < len(lines) else "(nothing)"
        expected = FINDINGS[number] if number < len(FINDINGS) else "(nothing)"
        if found_line != expected:
            raise Failure(f"members.vbs: line {number + 1} is \"{found_line}\", not \"{expected}\"")


@contextlib.contextmanager
def registered(wine, dll):
    wine.run("regsvr32", "/s", windows_path(dll))
    try:
        yield
    finally:
        wine.run("regsvr32", "/s", "/u", windows_path(dll))


def check_example(wine, folder):
    """The example prices a piece on recorded rows, and the document shows it as it is."""
    if f"```vbscript\n{EXAMPLE.read_text(encoding='ascii')}```\n" not in DOCUMENT.read_text(encoding="utf-8"):
        raise Failure(f"{DOCUMENT.name} does not show {EXAMPLE.name} as it stands")
    rows = folder / "price_a_piece.rows"
    rows.write_text((HERE / "price_a_piece.rows").read_text(encoding="utf-8"), encoding="utf-16")
    host = folder / "host.vbs"
    host.write_bytes((HERE / "canned_session.vbs").read_bytes() + EXAMPLE.read_bytes())
    said = wine.said("cscript", "//nologo", windows_path(host), windows_path(rows))
    if said.strip().replace(",", ".") != PRICED:
        raise Failure(f"the example says \"{said.strip()}\", not \"{PRICED}\"")


def check_leaving(wine, leaving, dll):
    done = wine.start_of([windows_path(leaving), windows_path(dll)])
    if done.returncode != 0 or done.stdout.split() != [b"left"]:
        raise Failure(f"a host that leaves: {done.returncode} {done.stdout}")


def main(dll, typist, leaving, bits, objdump, folder):
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    wine = Wine(bits)
    check_exports(objdump, dll)
    check_leaving(wine, leaving, dll)
    wine.run("regsvr32", "/s", "/u", windows_path(dll))  # what an earlier run may have left
    nothing = folder / "nothing.vbs"
    nothing.write_text("")
    wine.run("cscript", "//nologo", windows_path(nothing))  # the host registers itself on its first run
    before = registry(wine, folder, "before")
    with registered(wine, dll):
        if registry(wine, folder, "registered") == before:
            raise Failure("registering changed nothing")
        check_script(wine, folder)
    left = differences(before, registry(wine, folder, "after"))
    if left:
        raise Failure("the registry is not as it was:\n" + "\n".join(left))
    with registered(wine, typist):
        check_example(wine, folder)


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        print(failure)
        sys.exit(1)
