#!/usr/bin/env python3
"""Refuses what compiles but breaks the rules of the house.

    check_conventions.py [ROOT]

Prints one line per finding, `file:line: what is wrong`, and exits 1 when there is one.
"""

import os
import re
import sys
from pathlib import Path

# The folders below src/velmora that may lean on libraries and the system; all others are the core.
NOT_CORE = {"adapters", "apps"}

STANDARD_HEADERS = set(
    """
    algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts condition_variable
    coroutine deque exception execution filesystem format forward_list fstream functional future initializer_list
    iomanip ios iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers
    numeric optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex
    source_location span spanstream sstream stack stdexcept stop_token streambuf string string_view syncstream
    system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant
    vector version
    cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio
    cstdlib cstring ctime cuchar cwchar cwctype
    """.split()
)

# Standard, but they write and read numbers and letters by the locale of the process.
LOCALE_HEADERS = set(
    "iostream sstream iomanip istream ostream locale regex codecvt cctype cwctype clocale cstdio cwchar".split()
)

# A GUI library changes the locale of the process behind one's back: none of these means the same twice.
LOCALE_FUNCTIONS = """
    stod stof stold strtod strtof strtold atof
    printf fprintf sprintf snprintf vprintf vfprintf vsprintf vsnprintf wprintf swprintf fwprintf asprintf
    scanf sscanf fscanf
    tolower toupper isalpha isdigit isalnum isspace isupper islower ispunct isprint isgraph iscntrl isxdigit isblank
    towlower towupper iswalpha iswdigit iswspace
    setlocale localeconv strcoll strxfrm
""".split()
_LOCALE_CALL = re.compile(r"(?<![\w.>:])(?:std\s*::|::)?\s*(" + "|".join(LOCALE_FUNCTIONS) + r")\s*\(")
_LOCALE_TYPE = re.compile(r"\bstd\s*::\s*(locale|regex|wregex|basic_regex)\b")
_ROUND_CALL = re.compile(r"(?<![\w.>:])(?:std\s*::\s*|::\s*)?(l?l?round|nearbyint|l?l?rint)f?\s*\(")
_TO_STRING_CALL = re.compile(r"\bto_string\s*\(")

# Halved, so that this file does not hold them itself.
BANNED_WORDS = ["TO" + "DO", "FIX" + "ME", "GTEST" + "_SKIP", "DISABLED" + "_"]
_BANNED = re.compile(r"(?<![A-Za-z0-9])(" + "|".join(BANNED_WORDS) + r")")

TEXT_SUFFIXES = {".h", ".cpp", ".cmake", ".py", ".sh", ".md", ".part", ".yml", ".yaml", ".drive", ".sql", ".json", ".in"}
TEXT_NAMES = {"CMakeLists.txt", ".clang-format", ".clang-tidy", ".gitignore", "LICENSE", "run"}
TAB_SUFFIXES = {".h", ".cpp", ".cmake", ".py", ".sh", ".md"}
CODE_SUFFIXES = {".h", ".cpp", ".cmake", ".py", ".sh"}
SKIPPED_FOLDERS = {".git", "build", "out", "__pycache__"}

_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.MULTILINE)
_TAG = re.compile(r"\b(Kept|Chosen|Differs)\s+([A-Z])-(\d+)\b")
_LETTER = {"Kept": "K", "Chosen": "C", "Differs": "D"}
_ID = re.compile(r"^[KCD]-\d{3}$")
_TEST = re.compile(r"\b(?:TYPED_)?TEST(?:_F|_P)?\s*\(\s*(\w+)\s*,\s*(\w+)\s*\)")

REGISTER = "docs/behaviour.md"


_TOKEN = re.compile(
    r"""
    (?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
    |(?P<raw>\b(?:u8|u|U|L)?R"(?P<delimiter>[^\s()\\]{0,16})\(.*?\)(?P=delimiter)")
    |(?P<text>"(?:\\.|[^"\\\n])*")
    |(?P<letter>(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'|\b(?:u8|u|U|L)'(?:\\.|[^'\\\n])+')
    """,
    re.DOTALL | re.VERBOSE,
)


def code_alone(source):
    """The source with comments and the insides of literals blanked, line by line as it was."""
    return _TOKEN.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), source)


def without_comments(source):
    def blank(found):
        return re.sub(r"[^\n]", " ", found.group()) if found.group("comment") else found.group()

    return _TOKEN.sub(blank, source)


def line_of(source, position):
    return source.count("\n", 0, position) + 1


def argument_at(code, opening):
    """The text between the parenthesis at `opening` and its partner."""
    depth = 0
    for position in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[position], 0)
        if depth == 0:
            return code[opening + 1 : position]
    return code[opening + 1 :]


def is_floating(expression, before):
    """Whether an expression shows that it is a floating number, as far as its words and the declarations tell."""
    if re.search(r"\b(?:double|float)\b|\d\.|\.\d", expression):
        return True
    for name in re.findall(r"(?<![\w.>:])([a-z]\w*)\b(?!\s*(?:[.(\[]|->|::))", expression):
        declared = re.findall(rf"\b(\w+)\s*&?\s+{name}\b", before)
        types = [word for word in declared if word not in ("return", "else", "case")]
        if types and types[-1] in ("double", "float"):
            return True
    return False


class House:
    def __init__(self, root):
        self.root = Path(root)
        self.findings = []
        self.files = sorted(self._walk())

    def _walk(self):
        for folder, folders, names in os.walk(self.root):
            folders[:] = [name for name in folders if name not in SKIPPED_FOLDERS]
            for name in names:
                yield (Path(folder) / name).relative_to(self.root).as_posix()

    def read(self, name):
        return (self.root / name).read_text(encoding="utf-8", errors="replace")

    def sources(self, below):
        return [name for name in self.files if name.startswith(below) and name.endswith((".h", ".cpp"))]

    def refuse(self, name, line, what):
        self.findings.append(f"{name}:{line}: {what}")



SOURCES = "src/velmora/"


def room_of(name):
    """The room of a source below src/velmora/: the first folder."""
    return name.removeprefix(SOURCES).split("/")[0]


def is_core(name):
    return room_of(name) not in NOT_CORE


# Which room may include which is checked by the build itself, from the links of the rooms (cmake/check_picture.cmake).
def check_includes(house):
    for name in house.sources(SOURCES):
        source = without_comments(house.read(name))
        for found in _INCLUDE.finditer(source):
            mark, header = found.groups()
            line = line_of(source, found.start())
            if header.startswith("velmora/"):
                if mark != '"':
                    house.refuse(name, line, f'our own header is included with quotes: "{header}"')
                continue
            if not is_core(name):
                continue
            if mark == '"':
                house.refuse(name, line, f'an own header is named by its room, "velmora/{room_of(name)}/…": {header}')
            elif header not in STANDARD_HEADERS:
                house.refuse(name, line, f"the core stands on the C++ standard library alone: <{header}>")
            elif header in LOCALE_HEADERS:
                house.refuse(name, line, f"<{header}> follows the locale of the process: use velmora::runtime")


# The control arrays of the main form, and the files that may show their indexes as numbers.
FORM_ARRAYS = "Text1 Text3 Text4 txtPesu txtPDM txtTriple txtDCV txtCre Label1 D".split()
_LITERAL_INDEX = re.compile(r"\b(" + "|".join(FORM_ARRAYS) + r")\(([^()]*\b\d+\b[^()]*)\)")
FORM_ROOMS = ("src/velmora/estimate/", "src/velmora/proposal/")
NUMBERED = {"src/velmora/estimate/field_names.h", "src/velmora/proposal/form_layout.cpp"}


def check_indexes(house):
    for name in house.files:
        if not name.startswith(FORM_ROOMS) or name in NUMBERED or not name.endswith((".h", ".cpp")):
            continue
        code = code_alone(house.read(name))
        for found in _LITERAL_INDEX.finditer(code):
            house.refuse(
                name,
                line_of(code, found.start()),
                f"{found.group()}: name the field, velmora/estimate/field_names.h has its name",
            )


# The fields of the main form that say which proposal is on it and how far it has come: they are written by their
# names and read through ShownProposal.
_PROPOSAL_READ = re.compile(r"\btxtPesu\(money::(proposal|workOrder|accepted)\)\s*\.text\(\)")


def check_questions(house):
    for name in house.sources(SOURCES):
        if not name.startswith(FORM_ROOMS):
            continue
        code = code_alone(house.read(name))
        for found in _PROPOSAL_READ.finditer(code):
            house.refuse(
                name, line_of(code, found.start()), f"{found.group()}: ask velmora/estimate/shown_proposal.h instead"
            )


def check_locale(house):
    for name in house.sources(SOURCES):
        code = code_alone(house.read(name))
        for pattern in (_LOCALE_CALL, _LOCALE_TYPE):
            for found in pattern.finditer(code):
                house.refuse(
                    name, line_of(code, found.start(1)), f"{found.group(1)} follows the locale: use velmora::runtime"
                )
        for found in _TO_STRING_CALL.finditer(code):
            if is_floating(argument_at(code, found.end() - 1), code[: found.start()]):
                house.refuse(name, line_of(code, found.start()), "to_string of a floating number follows the locale")


def check_rounding(house):
    for name in house.sources(SOURCES):
        if not is_core(name) or name.startswith("src/velmora/platform/runtime/"):
            continue
        code = code_alone(house.read(name))
        for found in _ROUND_CALL.finditer(code):
            house.refuse(
                name,
                line_of(code, found.start(1)),
                f"{found.group(1)} says nothing of halves: use a rounding of velmora::runtime",
            )


# Functions whose last bit is not the same on every system; sin and cos, which the required formulas have, differ for few
# arguments, by less than what the formulas round away.
_LAST_BIT = re.compile(
    r"(?<![\w.>:])(?:std\s*::\s*|::\s*)"
    r"(tan|asin|acos|atan2?|sinh|cosh|tanh|exp2?|expm1|log(?:10|1p|2)?|pow|cbrt|hypot)f?\s*\("
)
# What they compute there is drawn and goes into no price.
DRAWN = {
    "src/velmora/estimate/drawing_parts.cpp",
    "src/velmora/platform/toolkit/dimension_texts.cpp",
    "src/velmora/platform/toolkit/pixel_geometry.h",
    "src/velmora/platform/toolkit/sketch_plan.cpp",
}


def check_formulas(house):
    for name in house.sources(SOURCES):
        if not is_core(name) or name in DRAWN:
            continue
        code = code_alone(house.read(name))
        for found in _LAST_BIT.finditer(code):
            house.refuse(
                name,
                line_of(code, found.start(1)),
                f"the last bit of {found.group(1)} depends on the system: a formula gives the same on all",
            )


# The rooms outside of the core that are built for Windows too, and the one header that may make a path of a text.
ON_WINDOWS = tuple(
    f"src/velmora/{folder}/"
    for folder in ("adapters/com", "adapters/host", "adapters/machine", "adapters/script", "adapters/session",
                   "adapters/win32", "apps/component", "apps/component_class")
)
FILE_PATH = "src/velmora/platform/system/file_path.h"
_PATH = r"\b(?:filesystem|fs)\s*::\s*path\b"
_PATH_MADE = re.compile(_PATH + r"(?P<name>\s+\w+)?\s*(?P<opening>[({])")
_PATH_SET = re.compile(_PATH + r"\s+\w+\s*=\s*(?:std\s*::\s*string\b|;|\w+(?:\.c_str\(\))?\s*;)")
_STREAM_MADE = re.compile(r"\b[io]?fstream\s+\w+\s*[({]\s*(?P<argument>[^,(){};]*)(?P<end>[,(){};])")
_NARROW = re.compile(r"\.\s*((?:generic_)?string)\s*\(\s*\)")


def inside(code, opening):
    """The text between a bracket and its partner, of either kind."""
    return argument_at(code.replace("{", "(").replace("}", ")"), opening)


def check_paths(house):
    """On Windows a path made of a narrow text is read in the code page of the machine, not as UTF-8."""
    what = f"a path is made of a text by system::filePath, and read by system::fileText ({FILE_PATH})"
    for name in house.sources(SOURCES):
        if name == FILE_PATH or not (is_core(name) or name.startswith(ON_WINDOWS)):
            continue
        code = code_alone(house.read(name))
        found = [match.start() for match in _PATH_SET.finditer(code)]
        for made in _PATH_MADE.finditer(code):
            argument = inside(code, made.start("opening"))
            # Parameters of a function that returns a path are pairs of type and name.
            is_function = made["name"] and re.search(r"[\w>&*]\s+\w|[\w>]\s*[&*]\s*\w", argument)
            if argument and not is_function and not argument.lstrip().startswith("u8"):
                found.append(made.start())
        for made in _STREAM_MADE.finditer(code):
            argument = made["argument"].strip()
            is_path = re.search(rf"\bpath\s*&?\s+{argument}\b", code[: made.start()]) if argument.isidentifier() else False
            if not (is_path or argument.endswith("filePath") or made[0].rstrip().endswith(("()", "{}"))):
                found.append(made.start())
        if "<filesystem>" in house.read(name):
            found.extend(match.start(1) for match in _NARROW.finditer(code))
        for position in sorted(found):
            house.refuse(name, line_of(code, position), what)


def check_files(house):
    for name in house.files:
        if not name.isascii():
            house.refuse(name, 1, "file names are ASCII")
        path = Path(name)
        if path.suffix not in TEXT_SUFFIXES and path.name not in TEXT_NAMES:
            continue
        content = house.read(name)
        if content and not content.endswith("\n"):
            house.refuse(name, content.count("\n") + 1, "the last line does not end")
        code = path.suffix in CODE_SUFFIXES or path.name in TEXT_NAMES
        for number, line in enumerate(content.splitlines(), 1):
            if "\t" in line and (path.suffix in TAB_SUFFIXES or path.name in TEXT_NAMES):
                house.refuse(name, number, "a tab")
            if found := _BANNED.search(line) if code else None:
                house.refuse(name, number, f"{found.group(1)} is not committed")


def cells(row):
    return [cell.strip().replace("`", "") for cell in row.strip().strip("|").split("|")]


def read_register(house):
    """Id to (line, files, tests); refuses rows that are not in the form."""
    rows = {}
    if REGISTER not in house.files:
        return rows
    for number, line in enumerate(house.read(REGISTER).splitlines(), 1):
        if not re.match(r"^\|\s*`?[A-Z]-\d+", line):
            continue
        row = cells(line)
        if len(row) < 4 or not all(row[:4]):
            house.refuse(REGISTER, number, "a row has an id, a file, a test and a reason")
            continue
        if not _ID.match(row[0]):
            house.refuse(REGISTER, number, f"{row[0]} is no id: K-, C- or D- and three digits")
            continue
        if row[0] in rows:
            house.refuse(REGISTER, number, f"{row[0]} stands twice")
            continue
        files, tests = (re.split(r"\s*,\s*", cell) for cell in row[1:3])
        rows[row[0]] = (number, files, tests)
    return rows


def tags_in_code(house):
    """Id to the files and lines that hold its tag; refuses tags that are not in the form."""
    tags = {}
    for name in house.sources(SOURCES):
        source = house.read(name)
        for found in _TAG.finditer(source):
            word, letter, digits = found.groups()
            line = line_of(source, found.start())
            if letter != _LETTER[word] or len(digits) != 3:
                house.refuse(name, line, f"{found.group()} is no tag: {word} {_LETTER[word]}-nnn")
                continue
            tags.setdefault(f"{letter}-{digits}", {}).setdefault(name, line)
    return tags


def tests_in(house):
    known = set()
    for name in house.files:
        if not name.startswith("tests/"):
            continue
        known.update((name, Path(name).name))
        if name.endswith(".cpp"):
            known.update(".".join(found) for found in _TEST.findall(without_comments(house.read(name))))
    return known


def check_register(house):
    rows = read_register(house)
    tags = tags_in_code(house)
    tests = tests_in(house)
    for tag, places in sorted(tags.items()):
        for name, line in places.items():
            if tag not in rows:
                house.refuse(name, line, f"{tag} does not stand in {REGISTER}")
            elif name not in rows[tag][1]:
                house.refuse(name, line, f"{tag} stands here, but its row in {REGISTER} names another file")
    for tag, (number, files, row_tests) in sorted(rows.items()):
        for name in files:
            if name not in house.files:
                house.refuse(REGISTER, number, f"{tag}: there is no file {name}")
            elif name not in tags.get(tag, {}):
                house.refuse(REGISTER, number, f"{tag}: {name} does not hold its tag")
        for test in row_tests:
            # An instantiation of a suite with parameters is named Instance/Suite.Test/parameter.
            plain = test.split("/")[1] if "/" in test and not test.startswith("tests/") else test
            if plain not in tests:
                house.refuse(REGISTER, number, f"{tag}: there is no test {test}")


README = "README.md"
EXAMPLE = "examples/embedding/main.cpp"


def check_example(house):
    """The readme shows the embedding example as it is built and run by the tests."""
    if README in house.files and EXAMPLE in house.files:
        if f"```cpp\n{house.read(EXAMPLE)}```\n" not in house.read(README):
            house.refuse(README, 1, f"does not show {EXAMPLE} as it stands")


VERSION = "src/velmora/platform/version.h"
CHANGELOG = "CHANGELOG.md"
_VERSION_PART = re.compile(r"inline constexpr int \w+ = (\d+);")
_RELEASE = re.compile(r"^## (\d+(?:\.\d+)+)", re.MULTILINE)


def check_version(house):
    """The build reads its version from the header; what was released last is the same one."""
    if VERSION not in house.files or CHANGELOG not in house.files:
        return
    version = ".".join(_VERSION_PART.findall(house.read(VERSION)))
    released = _RELEASE.search(house.read(CHANGELOG))
    if released is None or released.group(1) != version:
        house.refuse(CHANGELOG, 1, f"the newest release is not {version}, the version in {VERSION}")
    for name in house.files:
        if name.endswith((".cmake", ".sh", ".py")) or Path(name).name == "CMakeLists.txt":
            if version and version in house.read(name):
                house.refuse(name, 1, f"the version stands in {VERSION} alone: {version}")


CHECKS = (
    check_example,
    check_includes,
    check_indexes,
    check_questions,
    check_locale,
    check_rounding,
    check_formulas,
    check_paths,
    check_files,
    check_register,
    check_version,
)


def findings(root):
    house = House(root)
    for check in CHECKS:
        check(house)
    return house.findings


def main(arguments):
    root = arguments[1] if len(arguments) > 1 else Path(__file__).resolve().parent.parent
    found = findings(root)
    for finding in found:
        print(finding)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
