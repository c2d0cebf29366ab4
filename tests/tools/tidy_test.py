#!/usr/bin/env python3
"""Tests of tools/tidy.py: only what has changed is looked at again, tests by the compiler alone,
and each finding is shown once."""

import contextlib
import importlib.util
import io
import json
import os
import stat
import tempfile
import unittest
from pathlib import Path

TIDY = Path(__file__).resolve().parents[2] / "tools" / "tidy.py"
_module = importlib.util.spec_from_file_location("tidy", TIDY)
tidy = importlib.util.module_from_spec(_module)
_module.loader.exec_module(tidy)


class ClangTidyRuns(unittest.TestCase):
    """Stand-ins for clang-tidy and the compiler note their runs, so that what is skipped can be
    told."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tidy test ")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("bin/clang-tidy", f"""#!/bin/sh
case "$*" in *--version*) echo 14; exit;; esac
for last; do :; done
echo "$last" >> "{self.root}/runs"
grep -q BAD "$last" && echo "{self.root}/frame/b.h:1:1: error: bad" && status=1
grep -q BROKEN "$last" && echo "$last:1:1: error: bad [clang-diagnostic-error]" && status=1
grep -q CRASH "$last" && status=139
exit ${{status:-0}}
""")
        self.write("bin/c++", f"""#!/bin/sh
echo "$PWD: $*" >> "{self.root}/compiled"
grep -q BAD "$2" && echo "$2:1:1: error: unused [-Werror,-Wunused]" >&2 && exit 1
exit 0
""")
        for name in ("clang-tidy", "c++"):
            tool = self.root / "bin" / name
            tool.chmod(tool.stat().st_mode | stat.S_IXUSR)
        path = os.environ["PATH"]
        self.addCleanup(os.environ.__setitem__, "PATH", path)
        os.environ["PATH"] = f"{self.root}/bin:{path}"
        self.write(".clang-tidy", "Checks: x\n")
        self.write("frame/a.cpp", '#include "frame/a.h"\n')
        self.write("frame/a.h", '#include "b.h"\n')
        self.write("frame/b.h", "int x;\n")
        self.write("frame/c.cpp", "int y;\n")
        files = [self.root / "frame/a.cpp", self.root / "frame/c.cpp", "/usr/include/z.cpp",
                 self.root / "build/clang/generated.cpp"]
        self.write("build/clang/generated.cpp", "")
        self.write_commands(files)

    def write_commands(self, files):
        self.write("build/clang/compile_commands.json", json.dumps(
            [{"directory": "/", "file": str(f), "command": f"c++ -c '{f}'"} for f in files]))

    def write(self, path, text):
        place = self.root / path
        place.parent.mkdir(parents=True, exist_ok=True)
        place.write_text(text, encoding="utf-8")

    def looked_at(self):
        """Exit status, and the sources that were looked at; self.said is what was printed."""
        runs = self.root / "runs"
        runs.unlink(missing_ok=True)
        with contextlib.redirect_stdout(io.StringIO()) as said:
            status = tidy.Tidy(self.root, self.root / "build/clang").run()
        self.said = said.getvalue()
        names = runs.read_text(encoding="utf-8").split("\n") if runs.exists() else []
        return status, sorted(Path(name).name for name in names if name)

    def test_only_ours_and_only_what_has_changed_is_looked_at(self):
        self.assertEqual(self.looked_at(), (0, ["a.cpp", "c.cpp"]))
        self.assertEqual(self.looked_at(), (0, []))
        self.write("frame/b.h", "int z;\n")
        self.assertEqual(self.looked_at(), (0, ["a.cpp"]))
        self.write(".clang-tidy", "Checks: y\n")
        self.assertEqual(self.looked_at(), (0, ["a.cpp", "c.cpp"]))

    def test_what_was_found_faulty_is_looked_at_again(self):
        self.write("frame/c.cpp", "BAD\n")
        self.assertEqual(self.looked_at(), (1, ["a.cpp", "c.cpp"]))
        self.assertEqual(self.looked_at(), (1, ["c.cpp"]))
        self.write("frame/c.cpp", "GOOD\n")
        self.assertEqual(self.looked_at(), (0, ["c.cpp"]))

    def test_a_finding_in_a_header_is_shown_once(self):
        self.write("frame/a.cpp", "BAD\n")
        self.write("frame/c.cpp", "BAD\n")
        self.assertEqual(self.looked_at(), (1, ["a.cpp", "c.cpp"]))
        self.assertEqual(self.said, "frame/b.h:1:1: error: bad\n")

    def test_behind_an_error_of_the_compiler_nothing_else_is_shown(self):
        self.write("frame/c.cpp", "BAD BROKEN\n")
        self.assertEqual(self.looked_at()[0], 1)
        self.assertEqual(self.said, "frame/c.cpp:1:1: error: bad [clang-diagnostic-error]\n")

    def compiled(self):
        """What the compiler was told since the last question."""
        place = self.root / "compiled"
        said = place.read_text(encoding="utf-8") if place.exists() else ""
        place.unlink(missing_ok=True)
        return said

    def test_tests_are_only_compiled_and_no_code_is_made(self):
        test = self.root / "tests/frame/a_test.cpp"
        self.write("tests/frame/a_test.cpp", "int z;\n")
        self.write_commands([test])
        self.assertEqual(self.looked_at(), (0, []))
        self.assertEqual(self.compiled(), f"/: -c {test} -fsyntax-only\n")
        self.assertEqual((self.looked_at(), self.compiled()), ((0, []), ""))

    def test_a_warning_in_a_test_is_a_finding(self):
        test = self.root / "tests/frame/a_test.cpp"
        self.write("tests/frame/a_test.cpp", "BAD\n")
        self.write_commands([test])
        for _ in range(2):  # what was found is not remembered as clean
            self.assertEqual(self.looked_at(), (1, []))
            self.assertEqual(self.said,
                             "tests/frame/a_test.cpp:1:1: error: unused [-Werror,-Wunused]\n")
        self.write("tests/frame/a_test.cpp", "GOOD\n")
        self.assertEqual(self.looked_at(), (0, []))

    def write_folder(self, **texts):
        """A folder whose sources are looked at together."""
        for name, text in texts.items():
            self.write(f"simhost/ui/{name}.cpp", text)
        self.write_commands([self.root / f"simhost/ui/{name}.cpp" for name in texts])
        # The stand-in sees through the one file that includes the others, and knows a name twice.
        self.write("bin/clang-tidy", f"""#!/bin/sh
case "$*" in *--version*) echo 14; exit;; esac
for each; do case "$each" in *.cpp) file=$each;; esac; done
echo "$file" >> "{self.root}/runs"
IFS='
'
all=$(cat "$file" $(sed -n 's/#include "\\(.*\\)"/\\1/p' "$file"))
case "$all" in
    *BAD*) echo "$file:1:1: error: bad"; exit 1;;
    *NAME*NAME*) echo "$file:1:1: error: redefinition [clang-diagnostic-error]"; exit 1;;
esac
""")
        (self.root / "bin/clang-tidy").chmod(0o755)

    def test_the_sources_of_a_folder_are_looked_at_together(self):
        self.write_folder(a="int a;\n", b="int b;\n", c="int c;\n")
        status, names = self.looked_at()
        self.assertEqual((status, len(names)), (0, 1))
        self.assertEqual(self.looked_at(), (0, []))
        self.write("simhost/ui/b.cpp", "int d;\n")
        self.assertEqual(self.looked_at(), (0, ["b.cpp"]))

    def test_eight_are_together_at_most(self):
        self.write_folder(**{f"x{i}": "int x;\n" for i in range(17)})
        self.assertEqual(len(self.looked_at()[1]), 3)

    def test_where_something_is_found_each_is_looked_at_alone(self):
        self.write_folder(a="int a;\n", b="BAD\n", c="int c;\n")
        status, names = self.looked_at()
        self.assertEqual((status, len(names)), (1, 4))
        self.assertEqual(self.said, "simhost/ui/b.cpp:1:1: error: bad\n")
        self.assertEqual(self.looked_at(), (1, ["b.cpp"]))

    def test_names_that_meet_are_no_finding(self):
        self.write_folder(a="NAME\n", b="NAME\n")
        self.assertEqual(self.looked_at()[0], 0)
        self.assertEqual(self.said, "")
        self.assertEqual(self.looked_at(), (0, []))

    def test_tests_are_compiled_together(self):
        tests = [self.root / f"tests/frame/{name}_test.cpp" for name in "ab"]
        for test in tests:
            self.write(test, "int z;\n")
        self.write_commands(tests)
        self.assertEqual(self.looked_at(), (0, []))
        self.assertRegex(self.compiled(), r"^/: -fsyntax-only -c .*lint-cache/\w+\.cpp\n$")

    def test_a_crash_without_a_word_is_a_finding(self):
        self.write("frame/c.cpp", "CRASH\n")
        self.assertEqual(self.looked_at()[0], 1)
        self.assertEqual(self.said, "frame/c.cpp: clang-tidy ended with 139\n")


if __name__ == "__main__":
    unittest.main()
