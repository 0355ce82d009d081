#!/usr/bin/env python3
"""Each rule of the conventions is broken once, in a tiny house of its own: the check must refuse it."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parent.parent.parent / "scripts" / "check_conventions.py"

HEADING = "| id | where | test | reason |\n|---|---|---|---|\n"
ROW = "| K-001 | src/velmora/estimate/rules.cpp | RulesTest.PiIsShort | stored so |\n"
TAGGED = "// Kept K-001: a short number; always; stored so.\n"
TEST = "TEST(RulesTest, PiIsShort) {}\n"

SOUND = {
    "src/velmora/estimate/rules.cpp": '#include "velmora/data/chains.h"\n#include <charconv>\n' + TAGGED,
    "src/velmora/tracking/list.cpp": '#include "velmora/proposal/form.h"\n',
    "src/velmora/adapters/sqlite/database.cpp": '#include <sqlite3.h>\n#include "velmora/platform/sql/value.h"\n',
    "src/velmora/apps/drive/main.cpp": '#include <iostream>\n#include "velmora/apps/drive/options.h"\n'
    '#include "velmora/apps/stand_ins/stand_ins.h"\n',
    "tests/estimate/rules_test.cpp": TEST,
    "docs/behaviour.md": HEADING + ROW,
}


class Conventions(unittest.TestCase):
    def check(self, changes):
        files = {**SOUND, **changes}
        with tempfile.TemporaryDirectory() as root:
            for name, content in files.items():
                if content is None:
                    continue
                path = Path(root) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(content, encoding="utf-8")
            run = subprocess.run(
                [sys.executable, str(SCRIPT), root], capture_output=True, text=True, encoding="utf-8", check=False
            )
        self.assertEqual(run.stderr, "")
        return run.returncode, run.stdout

    def assertRefused(self, changes, expected):
        status, output = self.check(changes)
        self.assertEqual(status, 1, output)
        self.assertEqual(len(output.splitlines()), 1, output)
        self.assertIn(expected, output)

    def assertSound(self, changes):
        status, output = self.check(changes)
        self.assertEqual((status, output), (0, ""))

    def test_a_sound_house_is_let_through(self):
        self.assertSound({})

    def test_an_index_of_the_main_form_has_a_name(self):
        for call in ("f_.Text1(15).text()", "f.txtPesu(rack ? 56 : 21)", "number(Text4(0))"):
            with self.subTest(call):
                self.assertRefused({"src/velmora/estimate/a.cpp": f"auto a = {call};\n"}, "name the field")
                self.assertRefused({"src/velmora/proposal/a.cpp": f"auto a = {call};\n"}, "name the field")
                self.assertSound({"src/velmora/proposal/form_layout.cpp": f"auto a = {call};\n"})
                self.assertSound({"src/velmora/reference/a.cpp": f"auto a = {call};\n"})
        self.assertSound({"src/velmora/estimate/a.cpp": "auto a = f_.Text1(measure::rim); // Text1(9)\n"})

    def test_the_proposal_on_the_form_is_asked_not_read(self):
        for field in ("proposal", "workOrder", "accepted"):
            with self.subTest(field):
                read = f"auto a = f_.txtPesu(money::{field}).text();\n"
                self.assertRefused({"src/velmora/estimate/a.cpp": read}, "ask velmora/estimate/shown_proposal.h")
                self.assertRefused({"src/velmora/proposal/a.cpp": read}, "ask velmora/estimate/shown_proposal.h")
                self.assertSound({"src/velmora/proposal/a.cpp": f"f_.txtPesu(money::{field}).setText(id);\n"})
        self.assertSound({"src/velmora/proposal/a.cpp": "auto a = f_.txtPesu(money::created).text();\n"})

    def test_a_formula_gives_the_same_on_every_system(self):
        for call in ("std::tan(angle)", "std::pow(a, 2)", "::atan2(a, b)", "std::log10(a)"):
            with self.subTest(call):
                formula = f"auto a = {call};\n"
                self.assertRefused({"src/velmora/estimate/a.cpp": formula}, "depends on the system")
        self.assertSound({"src/velmora/platform/toolkit/sketch_plan.cpp": formula})
        self.assertSound({"src/velmora/adapters/sqlite/a.cpp": formula})
        self.assertSound({"src/velmora/estimate/a.cpp": "auto a = std::sin(b) + std::sqrt(c); // std::tan(b)\n"})

    def test_a_path_on_windows_is_not_made_of_a_narrow_text(self):
        for made in (
            "std::filesystem::path file(text);",
            'fs::path file{"a"};',
            "auto file = std::filesystem::path(text);",
            "fs::path file = std::string(text);",
            "fs::path file = text;",
            'std::ifstream in("a.txt");',
            "std::string name;\nstd::ofstream out(name, std::ios::binary);",
            "std::ofstream out(name.c_str());",
            "#include <filesystem>\nauto a = file.string();",
        ):
            with self.subTest(made):
                expected = "a path is made of a text by system::filePath"
                self.assertRefused({"src/velmora/services/a.cpp": made + "\n"}, expected)
        self.assertRefused({"src/velmora/adapters/com/a.cpp": "fs::path file(text);\n"}, expected)
        self.assertSound({"src/velmora/platform/system/file_path.h": "auto a = std::filesystem::path(text);\n"})
        self.assertSound({"src/velmora/adapters/qt/a.cpp": "std::filesystem::path file(text);\n"})
        sound = {}
        for made in (
            "const fs::path file = filePath(text);",
            "fs::path newFolder(const fs::path& root, std::string_view prefix);",
            "fs::path folder_;\nstd::optional<fs::path> path();",
            "void f(const fs::path& file) {\n    std::ifstream in(file, std::ios::binary);\n}",
            "std::ofstream out(system::filePath(name), std::ios::binary);",
            "std::ifstream in;",
            "auto a = b.string();",
        ):
            sound[f"src/velmora/services/sound_{len(sound)}.cpp"] = made + "\n"
        self.assertSound(sound)

    def test_an_include_in_a_comment_does_not_count(self):
        self.assertSound({"src/velmora/data/a.h": '// #include "velmora/shell/vmora.h"\n/*\n#include <sqlite3.h>\n*/\n'})

    def test_the_core_includes_the_standard_library_alone(self):
        for header in ("sqlite3.h", "QString", "math.h", "unistd.h", "fmt/format.h", "windows.h"):
            with self.subTest(header):
                self.assertRefused({"src/velmora/data/a.cpp": f"#include <{header}>\n"}, "standard library alone")

    def test_an_own_header_is_named_by_its_room(self):
        self.assertRefused({"src/velmora/data/a.cpp": '#include "chains.h"\n'}, "named by its room")
        self.assertRefused({"src/velmora/data/a.cpp": "#include <velmora/data/chains.h>\n"}, "with quotes")

    def test_the_core_includes_nothing_that_follows_the_locale(self):
        for header in ("iostream", "sstream", "iomanip", "locale", "regex", "cctype", "clocale", "cstdio"):
            with self.subTest(header):
                self.assertRefused({"src/velmora/estimate/a.cpp": f"#include <{header}>\n"}, f"<{header}>")

    def test_locale_dependent_calls_are_refused_everywhere(self):
        calls = (
            "auto v = std::stod(text);",
            "auto v = strtod(text, nullptr);",
            "auto v = ::atof(text);",
            'std::printf("%f", v);',
            'snprintf(buffer, 10, "%g", v);',
            "c = std::tolower(c);",
            "c = toupper(c);",
            "if (isdigit(c)) {}",
            "if (std::isalpha(c)) {}",
            'setlocale(LC_ALL, "");',
            "std::locale here;",
            "std::regex pattern;",
        )
        for call in calls:
            with self.subTest(call):
                self.assertRefused({"src/velmora/adapters/qt/a.cpp": call + "\n"}, "follows the locale")

    def test_what_only_looks_like_such_a_call_is_let_through(self):
        self.assertSound(
            {
                "src/velmora/adapters/qt/a.cpp": 'auto a = text.isdigit(); auto b = runtime::toupper(x); // use strtod(x)\n'
                'auto c = "printf(x)"; auto d = R"(atof("x"))"; int e = 1\'000; auto f = toLower(x); char g = \'"\';\n'
            }
        )

    def test_to_string_takes_whole_numbers_only(self):
        self.assertSound({"src/velmora/data/a.cpp": "auto a = std::to_string(count) + std::to_string(12);\n"})
        self.assertSound({"src/velmora/data/a.cpp": "double v = 1;\nint w = 2;\nauto a = std::to_string(v.w) + to_string(w);\n"})
        self.assertSound({"src/velmora/data/a.cpp": "void f(double v);\nvoid g(int v) { to_string(v); }\n"})
        for call in ("std::to_string(1.5)", "std::to_string(static_cast<double>(n))"):
            self.assertRefused({"src/velmora/data/a.cpp": f"auto a = {call};\n"}, "to_string")
        self.assertRefused({"src/velmora/data/a.cpp": "double v = 1;\nauto a = std::to_string(2 * (v + 1));\n"}, "a.cpp:2:")

    def test_rules_round_by_name(self):
        for call in ("std::round(v)", "std::lround(v)", "std::nearbyint(v)", "std::rint(v)", "round(v)"):
            with self.subTest(call):
                self.assertRefused({"src/velmora/estimate/a.cpp": f"auto a = {call};\n"}, "says nothing of halves")
                self.assertSound({"src/velmora/platform/runtime/numbers.cpp": f"auto a = {call};\n"})
        self.assertSound({"src/velmora/estimate/a.cpp": "auto a = runtime::Round(v, 0);\n"})

    def test_a_tag_stands_in_the_register(self):
        for tag in ("Kept K-002", "Chosen C-002", "Differs D-002"):
            with self.subTest(tag):
                self.assertRefused({"src/velmora/data/a.cpp": f"// {tag}: so.\n"}, "does not stand in")

    def test_a_tag_has_the_letter_of_its_word_and_three_digits(self):
        for tag in ("Kept C-001", "Chosen K-001", "Differs K-001", "Kept K-01", "Kept K-0001"):
            with self.subTest(tag):
                self.assertRefused({"src/velmora/data/a.cpp": f"// {tag}: so.\n"}, "is no tag")

    def test_a_row_names_the_file_that_holds_its_tag(self):
        self.assertRefused({"src/velmora/data/a.cpp": TAGGED}, "names another file")
        row = ROW.replace("rules.cpp", "gone.cpp")
        status, output = self.check({"docs/behaviour.md": HEADING + row})
        self.assertEqual(status, 1)
        self.assertIn("there is no file src/velmora/estimate/gone.cpp", output)
        self.assertRefused({"src/velmora/estimate/rules.cpp": "\n"}, "does not hold its tag")

    def test_a_row_may_name_several_files_and_tests(self):
        row = "| K-001 | `src/velmora/estimate/rules.cpp`, `src/velmora/data/a.cpp` | `RulesTest.PiIsShort`, `pi.drive` | so |\n"
        self.assertSound(
            {
                "src/velmora/data/a.cpp": TAGGED,
                "tests/scenarios/pi.drive": "open propuestas\n",
                "docs/behaviour.md": HEADING + row,
            }
        )

    def test_the_test_of_a_row_exists(self):
        self.assertRefused({"tests/estimate/rules_test.cpp": "TEST(RulesTest, PiIsLong) {}\n"}, "there is no test")
        self.assertRefused({"tests/estimate/rules_test.cpp": "// " + TEST}, "there is no test")
        scenario = HEADING + ROW.replace("RulesTest.PiIsShort", "tests/scenarios/pi.drive")
        self.assertRefused({"docs/behaviour.md": scenario}, "there is no test")
        for kind in ("TEST_F", "TEST_P", "TYPED_TEST"):
            self.assertSound({"tests/estimate/rules_test.cpp": f"{kind}(RulesTest,\n    PiIsShort) {{}}\n"})

    def test_an_id_stands_once(self):
        self.assertRefused({"docs/behaviour.md": HEADING + ROW + ROW}, "stands twice")

    def test_a_row_is_complete(self):
        status, output = self.check({"docs/behaviour.md": HEADING + ROW.replace("stored so", "")})
        self.assertEqual(status, 1)
        self.assertIn("an id, a file, a test and a reason", output)

    def test_a_missing_register_refuses_every_tag(self):
        self.assertRefused({"docs/behaviour.md": None}, "does not stand in")

    def test_the_readme_shows_the_example_as_it_stands(self):
        example = {"examples/embedding/main.cpp": "int main() {}\n"}
        self.assertSound({**example, "README.md": "# A\n\n```cpp\nint main() {}\n```\n"})
        self.assertRefused({**example, "README.md": "# A\n\n```cpp\nint main();\n```\n"}, "does not show")

    def test_the_newest_release_bears_the_version_and_nothing_else_states_it(self):
        header = "".join(f"inline constexpr int {part} = {n};\n" for part, n in (("a", 3), ("b", 1), ("c", 4)))
        version = {"src/velmora/platform/version.h": header}
        self.assertSound({**version, "CHANGELOG.md": "## Unreleased\n\n## 3.1.4\n\n## 3.1.3\n"})
        refusal = "the newest release is not 3.1.4, the version in src/velmora/platform/version.h"
        self.assertRefused({**version, "CHANGELOG.md": "## Unreleased\n\n## 3.1.3\n"}, refusal)
        stated = {**version, "CHANGELOG.md": "## 3.1.4\n", "cmake/A.cmake": "set(version 3.1.4)\n"}
        self.assertRefused(stated, "the version stands in src/velmora/platform/version.h alone: 3.1.4")

    def test_file_names_are_ascii(self):
        self.assertRefused({"src/velmora/data/piñon.cpp": "\n"}, "file names are ASCII")

    def test_a_file_ends_its_last_line(self):
        self.assertRefused({"src/velmora/data/a.cpp": "int a;"}, "does not end")

    def test_a_tab_is_refused_in_sources(self):
        self.assertRefused({"src/velmora/data/a.cpp": "\tint a;\n"}, "a tab")
        self.assertSound({"tests/golden/table.tsv": "1\t2\n"})

    def test_banned_words_are_refused(self):
        for word in ("TO" + "DO", "FIX" + "ME", "GTEST" + "_SKIP", "DISABLED" + "_Slow"):
            with self.subTest(word):
                self.assertRefused({"tests/data/a_test.cpp": f"// {word} it\n"}, "is not committed")


if __name__ == "__main__":
    unittest.main()
