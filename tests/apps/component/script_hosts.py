#!/usr/bin/env python3
"""script_hosts.py DLL BITS OBJDUMP FOLDER: velmora.dll in script hosts, from its registration to its removal.

The exports are four; registered, the class is created by name and every member called; unregistered, the registry is as
it was. Prints what differs and exits 1.
"""

import re
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
WINE = HERE.parent.parent.parent / "scripts" / "wine.sh"

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

    def succeeds(self, *arguments):
        done = subprocess.run(self.start + list(arguments), capture_output=True, timeout=120, check=False)
        return done.returncode == 0

    def run(self, *arguments):
        if not self.succeeds(*arguments):
            raise Failure("fails: " + " ".join(arguments))


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


def main(dll, bits, objdump, folder):
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    wine = Wine(bits)
    check_exports(objdump, dll)
    wine.run("regsvr32", "/s", "/u", windows_path(dll))  # what an earlier run may have left
    nothing = folder / "nothing.vbs"
    nothing.write_text("")
    wine.run("cscript", "//nologo", windows_path(nothing))  # the host registers itself on its first run
    before = registry(wine, folder, "before")
    wine.run("regsvr32", "/s", windows_path(dll))
    try:
        if registry(wine, folder, "registered") == before:
            raise Failure("registering changed nothing")
        check_script(wine, folder)
    finally:
        wine.run("regsvr32", "/s", "/u", windows_path(dll))
    left = differences(before, registry(wine, folder, "after"))
    if left:
        raise Failure("the registry is not as it was:\n" + "\n".join(left))


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        print(failure)
        sys.exit(1)
