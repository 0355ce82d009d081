#!/usr/bin/env python3
"""package_test.py CPACK BUILD SOURCES WORK: makes the package of a build, installs it below WORK with dpkg, as a user
without rights can, looks at what is there, runs the programs from there, and removes it again."""
import os
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

CPACK, BUILD, SOURCES, WORK = sys.argv[1], *(Path(argument).resolve() for argument in sys.argv[2:5])
ROOT = WORK / "root"
USR = ROOT / "usr"
PROGRAMS = {"velmora": USR / "bin/velmora", "velmora-drive": USR / "bin/velmora-drive",
            "velmora-scan": USR / "libexec/velmora/velmora-scan"}

PIECE = """open propuestas
choose cboTipoPre 0
set Text1(0) "12,7"
set Text1(1) "38"
set Text1(8) "7,75"
set Text1(2) "8,51"
set txtPesu(11) "10"
leave
print txtPesu(12)
close
"""


def run(*command, environment=None, **options):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, check=False, timeout=120,
                          env={**os.environ, **(environment or {})}, **options)


def output(*command, **options):
    done = run(*command, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command} ended with {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def dpkg(*arguments):
    """dpkg with a database of its own, which knows no other package; without the rights of root it cannot give files
    away, and need not."""
    return output("dpkg", f"--root={ROOT}", "--force-not-root", "--force-depends", f"--log={WORK}/dpkg.log", *arguments,
                  environment={"PATH": os.environ["PATH"] + ":/usr/sbin:/sbin"})


def version():
    header = (SOURCES / "src/velmora/platform/version.h").read_text(encoding="utf-8")
    return ".".join(re.findall(r"constexpr int (?:majorVersion|minorVersion|revision) = (\d+);", header))


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    output(CPACK, "--config", BUILD / "CPackConfig.cmake", "-B", WORK)
    for folder in ("info", "updates", "triggers"):
        (ROOT / "var/lib/dpkg" / folder).mkdir(parents=True)
    (ROOT / "var/lib/dpkg/status").touch()
    dpkg("--install", package())


def package():
    found = list(WORK.glob("velmora_*.deb"))
    assert len(found) == 1, found
    return found[0]


def installed_files():
    return [path for path in sorted(USR.rglob("*")) if path.is_file()]


class Package(unittest.TestCase):
    def field(self, name):
        return output("dpkg-deb", "-f", package(), name).strip()

    def test_its_version_is_that_of_the_programs(self):
        self.assertEqual(self.field("Package"), "velmora")
        self.assertEqual(self.field("Version"), version())
        self.assertIn(version(), package().name)

    def test_it_depends_on_the_libraries_that_the_programs_load(self):
        needed = [name.split()[0] for name in self.field("Depends").split(", ")]
        for library in ("libqt6widgets6", "libsqlite3-0", "libodbc2", "libsane1", "libc6"):
            self.assertTrue(any(name.startswith(library) for name in needed), f"{library}: {needed}")
        self.assertFalse([name for name in needed if name.endswith("-dev")])

    def test_it_recommends_the_letters_of_windows_and_papers(self):
        self.assertIn("fonts-dejavu-core", self.field("Recommends"))

    def test_everything_in_it_belongs_to_root_and_only_programs_run(self):
        for line in output("dpkg-deb", "-c", package()).splitlines():
            mode, owner, *_, name = line.split()
            self.assertEqual(owner, "root/root", line)
            is_program = name.lstrip(".") in {str(path).removeprefix(str(ROOT)) for path in PROGRAMS.values()}
            self.assertEqual(mode, "drwxr-xr-x" if name.endswith("/") else "-rwxr-xr-x" if is_program else "-rw-r--r--",
                             line)


class Installation(unittest.TestCase):
    def test_dpkg_finds_every_file_as_it_was_packed(self):
        self.assertIn("install ok installed", dpkg("--status", "velmora"))
        self.assertEqual(dpkg("--verify", "velmora"), "")

    def test_nothing_names_the_folders_of_the_build(self):
        for path in installed_files():
            content = path.read_bytes()
            for folder in (SOURCES, BUILD):
                self.assertNotIn(str(folder).encode(), content, path)

    def test_programs_are_stripped_and_look_for_libraries_where_the_system_has_them(self):
        for path in PROGRAMS.values():
            sections = output("readelf", "-SdW", path)
            self.assertNotIn(".symtab", sections, path)
            self.assertNotIn(".debug_info", sections, path)
            self.assertNotRegex(sections, r"\((RPATH|RUNPATH)\)", str(path))

    def test_no_library_or_header_comes_with_the_programs(self):
        self.assertFalse([path for path in installed_files() if path.suffix in (".a", ".h", ".cmake")])

    def test_licences_and_changes_are_there(self):
        for name in ("copyright", "changelog.gz", "THIRD-PARTY.md", "driving.md", "guia.pdf"):
            self.assertGreater((USR / "share/doc/velmora" / name).stat().st_size, 100, name)
        copyright_text = (USR / "share/doc/velmora/copyright").read_text(encoding="utf-8")
        for line in (SOURCES / "LICENSE").read_text(encoding="utf-8").splitlines()[4:]:
            self.assertIn(line, copyright_text)

    def test_the_icon_is_there_in_every_size(self):
        theme = USR / "share/icons/hicolor"
        images = list(theme.glob("*x*/apps/velmora.png"))
        self.assertGreaterEqual(len(images), 8)
        for image in images:
            width, height = (int.from_bytes(image.read_bytes()[at:at + 4], "big") for at in (16, 20))
            self.assertEqual(f"{width}x{height}", image.parent.parent.name)
        self.assertIn("<svg", (theme / "scalable/apps/velmora.svg").read_text(encoding="utf-8"))

    def test_the_desktops_entry_starts_the_program_with_a_file(self):
        entry = USR / "share/applications/velmora.desktop"
        output("desktop-file-validate", entry)
        text = entry.read_text(encoding="utf-8")
        self.assertIn("\nExec=velmora %f\n", text)
        self.assertIn("\nIcon=velmora\n", text)

    def test_the_catalogue_of_programs_can_read_its_entry(self):
        (entry,) = (USR / "share/metainfo").iterdir()
        output("appstreamcli", "validate", "--no-net", entry)
        self.assertIn("<launchable type=\"desktop-id\">velmora.desktop</launchable>", entry.read_text(encoding="utf-8"))


class ManualPages(unittest.TestCase):
    def page(self, name):
        text = output("gzip", "-dc", USR / "share/man" / name).replace("\\-", "-")
        self.assertIn(f'"VELMORA {version()}"', text)
        return text

    def options(self, program):
        return set(re.findall(r"(?<![\w-])--[a-z-]+", output(PROGRAMS[program], "--help")))

    def test_every_option_is_told_and_no_other(self):
        for program, pages in (("velmora", ("man1/velmora.1.gz", "es/man1/velmora.1.gz")),
                               ("velmora-drive", ("man1/velmora-drive.1.gz",))):
            for name in pages:
                told = set(re.findall(r"(?<![\w-])--[a-z-]+", self.page(name)))
                self.assertEqual(told, self.options(program), name)

    def test_the_scanners_program_has_one(self):
        self.assertIn("velmora-scan list", self.page("man1/velmora-scan.1.gz"))


class Programs(unittest.TestCase):
    def test_each_says_the_version(self):
        for name, path in PROGRAMS.items():
            self.assertEqual(output(path, "--version"), f"{name} {version()}\n")

    def test_a_piece_is_priced(self):
        priced = output(PROGRAMS["velmora-drive"], input=PIECE)
        self.assertRegex(priced, r"^txtPesu\(12\) = \"?[1-9]")

    def test_the_desktop_makes_a_database_and_draws_its_windows(self):
        database, pictures = WORK / "taller.db", WORK / "pictures"
        output(PROGRAMS["velmora"], "--data", "demo", "--db", database, "--pictures", pictures,
               environment={"QT_QPA_PLATFORM": "offscreen", "HOME": str(WORK)})
        self.assertGreater(database.stat().st_size, 100_000)
        self.assertGreater((pictures / "propuesta_tipo_00.png").stat().st_size, 20_000)
        # The same file again, named alone.
        output(PROGRAMS["velmora"], database, "--pictures", pictures,
               environment={"QT_QPA_PLATFORM": "offscreen", "HOME": str(WORK)})


class Removal(unittest.TestCase):
    """The last in the alphabet of the classes, and so the last to run."""

    def test_nothing_stays(self):
        dpkg("--purge", "velmora")
        self.assertFalse(installed_files())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
