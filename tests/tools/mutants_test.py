#!/usr/bin/env python3
"""Tests of tools/mutants on a small source: what a test notices is told from what none does, and
results are kept until something changes."""

import argparse
import contextlib
import runpy
import stat
import sys
import tempfile
import textwrap
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "mutants"))
# pylint: disable=wrong-import-position
import trial  # noqa: E402
from equivalents import Equivalents  # noqa: E402
from places import HERE, Finder  # noqa: E402
from schema import Schema  # noqa: E402
from session import Session  # noqa: E402
from workshop import HOST, MODULE, Build, link_with, test_programs  # noqa: E402

SOURCE = """\
enum Colour { Red, Green };
constexpr int kTable[] = {3, 4};
static int steps[2];
void Step(int number) { steps[number] = steps[0] + steps[1] + 1; }
int Next(int number) { return steps[number] += 1; }
extern "C" {
int IsLess(int a, int b) { return a < b; }
int Row(int i) { return kTable[i]; }
int Sum(int n) {
    int sum = 0;
    while (n > 0) {
        sum += n;
        n = n - 1;
    }
    return sum;
}
int Order() {
    steps[0] = steps[1] = 0;
    Step(0);
    Step(1);
    return steps[1] * 10 + steps[0];
}
int Declared() {
    steps[0] = steps[1] = 0;
    const int a = Next(0);
    const int b = Next(0);
    return a * 10 + b;
}
int Letters() { return int(__builtin_strlen("abc")); }
int Paint(Colour colour) { return colour == Green ? 1 : 0; }
int Nobody(int x) { return x + 7; }
int Odd(const char (&text)[3]) { return text[0]; }
int Fixed() { return Odd("ab"); }
}
"""

# Behaves as a program of GoogleTest does.
PROGRAM = """\
#!/usr/bin/env python3
import ctypes, os, sys
CASES = {
    "IsLess": lambda m: m.IsLess(1, 2) == 1 and m.IsLess(2, 1) == 0,
    "Row": lambda m: m.Row(0) == 3,
    "Sum": lambda m: m.Sum(3) == 6,
    "Order": lambda m: m.Order() == 21,
    "Declared": lambda m: m.Declared() == 12,
    "Letters": lambda m: m.Letters() > 0,
    "Paint": lambda m: m.Paint(1) == 1 and m.Paint(0) == 0,
}
if "--gtest_list_tests" in sys.argv:
    print("Small.")
    for name in CASES:
        print("  " + name)
    sys.exit()
with open("RUNS", "a") as runs:
    runs.write("run\\n")
module = ctypes.CDLL(os.environ["VX_MODULE_FILE"])
chosen = next(a for a in sys.argv if a.startswith("--gtest_filter=")).split("=")[1]
for case in ["Small." + c for c in CASES] if chosen == "*" else chosen.split(":"):
    print("[ RUN      ] " + case, flush=True)
    if not CASES[case.split(".")[1]](module):
        sys.exit(1)
"""


class Mutants(unittest.TestCase):
    """One run over the source is what most tests look at."""

    @classmethod
    def setUpClass(cls):
        cls.rooms = contextlib.ExitStack()
        cls.root = Path(cls.rooms.enter_context(tempfile.TemporaryDirectory(prefix="mutants ")))
        cls.source = cls.root / "small.cpp"
        cls.source.write_text(SOURCE, encoding="utf-8")
        cls.program = cls.root / "small_tests"
        cls.program.write_text(PROGRAM.replace("RUNS", str(cls.root / "runs")), encoding="utf-8")
        cls.program.chmod(cls.program.stat().st_mode | stat.S_IXUSR)
        cls.test_source = cls.root / "tests/small/small_test.cpp"
        cls.test_source.parent.mkdir(parents=True)
        cls.test_source.write_text("// cases\n", encoding="utf-8")
        trial.SPARE_SECONDS, cls.spare = 1, trial.SPARE_SECONDS
        cls.first = cls.session().result(cls.equivalents(""))

    @classmethod
    def tearDownClass(cls):
        trial.SPARE_SECONDS = cls.spare
        cls.rooms.close()

    @classmethod
    def session(cls, program=None, names=()):
        compiler = ["g++", "-std=c++20", "-fPIC", "-O0"]
        links = {"small.so": ["g++", "-shared", "-o", f"{HERE}/small.so", "OBJECT"]}
        build = Build(cls.root, cls.source, compiler, "small.so", links,
                      {"small_tests": program or cls.program})
        return Session(cls.root, build, cls.root / "build", names)

    @classmethod
    def equivalents(cls, text):
        path = cls.root / "equivalents.txt"
        path.write_text(text, encoding="utf-8")
        return Equivalents(path)

    def runs(self):
        return (self.root / "runs").read_text(encoding="utf-8").count("run")

    def survivors(self, result=None):
        return [m.name for m in (result or self.first).survivors()]

    def assert_noticed(self, name):
        found = [m for m in self.first.mutants if m.name == name]
        self.assertEqual(len(found), 1, [m.name for m in self.first.mutants])
        self.assertIn(found[0].number, self.first.noticed, name)

    # --- Verdicts ---

    def test_what_a_test_sees_is_noticed(self):
        for name in ("IsLess: returns nothing for: a < b",
                     "3 -> 3 + 1, in constexpr int kTable[] = {3, 4};",
                     "Sum: left out: sum += n",
                     "Paint: == -> !=: colour == Green",
                     "Paint: Green -> Red, in int Paint(Colour colour) { return colour == Green ? "
                     "1 : 0; }",
                     "Order: swapped: Step(0); <-> Step(1);"):
            self.assert_noticed(name)

    def test_what_no_test_sees_is_listed(self):
        for name in ("IsLess: < -> <=: a < b",
                     "4 -> 4 + 1, in constexpr int kTable[] = {3, 4};",
                     'Letters: "abc" -> "abc~", in int Letters() { return '
                     'int(__builtin_strlen("abc")); }'):
            self.assertIn(name, self.survivors())

    def test_what_no_test_comes_by_is_listed_as_that(self):
        self.assertIn("small.cpp:31: Nobody: + -> -: x + 7 (no test comes by)",
                      self.first.report())
        self.assertIn("small.cpp:7: IsLess: < -> <=: a < b\n", self.first.report())

    def test_a_mutant_that_never_ends_is_noticed(self):
        self.assert_noticed("Sum: left out: n = n - 1")

    def test_neighbours_that_declare_something_are_compiled_apart(self):
        swapped = next(m for m in self.first.mutants if m.name.startswith("Declared: swapped"))
        self.assertTrue(swapped.apart)
        # Both are 1 and 2 in turn, whichever is first: a * 10 + b tells.
        self.assertEqual(self.first.noticed[swapped.number], "Small.Declared")

    def test_what_does_not_compile_is_dropped_and_counted(self):
        self.assertEqual([m.name for m in self.first.rejected],
                         ['Fixed: "ab" -> "ab~", in int Fixed() { return Odd("ab"); }'])
        self.assertIn("(1 more did not compile;", self.first.report())

    # --- What is known already ---

    def test_nothing_runs_again_until_something_changes(self):
        before = self.runs()
        again = self.session().result(self.equivalents(""))
        self.assertEqual(self.runs(), before)
        self.assertEqual(self.survivors(again), self.survivors())
        self.assertEqual(again.noticed, self.first.noticed)
        self.test_source.write_text("// other cases\n", encoding="utf-8")
        changed = self.session().result(self.equivalents(""))
        self.assertGreater(self.runs(), before)
        self.assertEqual(self.survivors(changed), self.survivors())

    # --- Some programs only ---

    def test_what_some_programs_do_not_notice_is_not_remembered_as_what_none_does(self):
        few = self.root / "few_tests"
        few.write_text("".join(line for line in self.program.read_text(encoding="utf-8")
                               .splitlines(keepends=True) if '"Sum"' not in line),
                       encoding="utf-8")
        few.chmod(self.program.stat().st_mode)
        name = "Sum: left out: sum += n"
        result = self.session(few, ["few"]).result(self.equivalents(""))
        self.assertIn(name, self.survivors(result))
        before = self.runs()
        self.assertNotIn(name, self.survivors(self.session().result(self.equivalents(""))))
        again = self.session(few, ["few"]).result(self.equivalents(""))
        self.assertIn(name, self.survivors(again))
        self.assertEqual(self.runs(), before)

    def test_programs_are_all_but_the_long_ones_or_those_of_the_names(self):
        tests = self.root / "programs" / "tests"
        tests.mkdir(parents=True)
        for name in ("export_tests", "unit_tests", "sweep_tests", "export_tests.json"):
            (tests / name).touch()
        self.assertEqual(list(test_programs(tests.parent)), ["export_tests", "unit_tests"])
        self.assertEqual(test_programs(tests.parent, ["unit", "sweep"]),
                         {"unit_tests": tests / "unit_tests", "sweep_tests": tests / "sweep_tests"})
        with self.assertRaisesRegex(RuntimeError, "has no program eksport_tests"):
            test_programs(tests.parent, ["eksport"])

    def test_an_object_takes_the_place_of_its_own_in_whatever_is_linked_with_it(self):
        page = "CMakeFiles/simhost_web.dir/simhost/web/server.cpp.o"
        room = "CMakeFiles/plugin_objects.dir/frame/access.cpp.o"
        self.assertEqual(link_with(room, ["g++", "a.o", room, "-o", "x"]),
                         ["g++", "a.o", "OBJECT", "-o", "x"])
        self.assertEqual(link_with(page, ["g++", "a.o", "libsimhost_web.a"]),
                         ["g++", "a.o", "OBJECT", "libsimhost_web.a"])
        self.assertEqual(link_with(room, ["g++", "libvorlatix_static.a"]),
                         ["g++", "OBJECT", "libvorlatix_static.a"])
        self.assertIsNone(link_with(page, ["g++", "a.o", room, "libvorlatix_static.a"]))

    def test_what_is_not_linked_anew_is_loaded_from_the_build(self):
        command = ["g++", "OBJECT"]
        build = Build(self.root, self.source, [], MODULE, {HOST: command}, {})
        self.assertEqual(build.environment(Path("/made")),
                         {"VX_MODULE_FILE": str(self.root / MODULE), "LD_LIBRARY_PATH": "/made"})
        build.links = {MODULE: command}
        self.assertEqual(build.environment(Path("/made")), {"VX_MODULE_FILE": f"/made/{MODULE}"})

    def test_names_of_programs_come_with_or_without_their_ending(self):
        tool = runpy.run_path(str(Path(trial.__file__).with_name("__main__.py")))
        self.assertEqual(tool["names_in"]("export, unit_tests,"), ["export", "unit"])
        self.assertRaises(argparse.ArgumentTypeError, tool["names_in"], ",")

    # --- Equivalents ---

    def test_an_equivalent_with_its_reason_is_no_survivor(self):
        name = "IsLess: < -> <=: a < b"
        result = self.session().result(self.equivalents(
            f"# a remark\nsmall.cpp: {name}: nobody asks for equal numbers\nother.cpp: x: y\n"))
        self.assertNotIn(name, self.survivors(result))
        self.assertEqual(list(result.equivalent.values()), ["nobody asks for equal numbers"])
        self.assertEqual(result.complaints, [])

    def test_an_equivalent_that_is_no_mutant_any_more_is_an_error(self):
        result = self.session().result(self.equivalents("small.cpp: IsLess: gone: because\n"))
        self.assertEqual(result.complaints,
                         ["equivalents.txt:1: small.cpp has no such mutant (any more)"])
        self.assertFalse(result.is_good())

    def test_an_equivalent_of_a_file_that_is_gone_is_an_error(self):
        listed = self.equivalents("small.cpp: a: b\n# other.cpp: a remark\nold.cpp: a: b\n"
                                  "small.cpp: c: d\n")
        self.assertEqual(listed.files(), ["small.cpp", "old.cpp"])
        self.assertEqual(listed.lost(self.root), ["equivalents.txt:3: there is no file old.cpp"])

    def test_an_equivalent_without_a_reason_is_an_error(self):
        result = self.session().result(self.equivalents("small.cpp: IsLess: < -> <=: a < b: \n"))
        self.assertEqual(result.complaints, ["equivalents.txt:1: no reason is given"])
        self.assertIn("IsLess: < -> <=: a < b", self.survivors(result))

    def test_an_equivalent_that_a_test_notices_is_an_error(self):
        result = self.session().result(self.equivalents(
            "small.cpp: Sum: left out: sum += n: nobody adds\n"))
        self.assertEqual(result.complaints, ["listed as equivalent but noticed by Small.Sum: "
                                             "Sum: left out: sum += n"])

    # --- Places ---

    def found(self, text):
        path = self.root / "places.cpp"
        path.write_text(textwrap.dedent(text), encoding="utf-8")
        return [m.name for m in Finder(path, ["-std=c++20"]).mutants]

    def test_conditions_returned_values_and_texts_are_found(self):
        self.assertEqual(self.found("""\
            bool Ask();
            bool F(bool a) {
                if (a) return Ask();
                return a && !Ask();
            }
            """), ["F: negated: a", "F: negated: Ask()", "F: && -> ||: a && !Ask()",
                   "F: negated: a (2)", "F: negated: !Ask()"])

    def test_places_for_an_answer_sizes_and_labels_stay(self):
        self.assertEqual(self.found("""\
            enum E { E_UNUSED, E_ONE };
            struct Item { E type; int id; };
            int F(int a) {
                Item item = {E_UNUSED, 0};
                int many[3];
                switch (a) {
                    case 4: break;
                }
                static_assert(sizeof many > 5);
                return item.id;
            }
            """), ["F: returns nothing for: item.id"])

    def test_a_returned_reference_stays(self):
        self.assertEqual(self.found("""\
            struct Item { int id; };
            const Item& F(const void* data) { return *static_cast<const Item*>(data); }
            int G(const void* data) { return F(data).id; }
            """), ["G: returns nothing for: F(data).id"])

    def test_a_text_keeps_the_sign_that_stands_for_the_number(self):
        path = self.root / "places.cpp"
        path.write_text('const char* F() { return "R@D"; }\n', encoding="utf-8")
        text = Schema(path.read_bytes(), Finder(path, ["-std=c++20"]).mutants).text
        self.assertIn('&("R@D~")[0] : &("R@D")[0]', text)


if __name__ == "__main__":
    unittest.main()
