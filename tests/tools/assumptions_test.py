#!/usr/bin/env python3
"""Tests of tools/assumptions.py: which lines it takes, and what it says of those that it cannot."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "assumptions.py"
PAGE = "Head\n<!-- made by tools/assumptions.py -->\n<!-- end -->\nTail\n"


class Assumptions(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "docs").mkdir()
        (self.root / "hostapi").mkdir()
        self.page = self.root / "docs" / "host-operations.md"
        self.page.write_text(PAGE, encoding="utf-8")

    def run_on(self, header, *arguments):
        (self.root / "hostapi" / "a.h").write_text(header, encoding="utf-8")
        return subprocess.run([sys.executable, TOOL, "--root", self.root, *arguments],
                              capture_output=True, text=True, check=False)

    def rows(self, header):
        done = self.run_on(header)
        self.assertEqual(done.returncode, 0, done.stderr)
        lines = self.page.read_text(encoding="utf-8").split("\n")
        return [line for line in lines if line.startswith("| `")]

    def test_every_kind_of_declaration_gives_its_name(self):
        header = (
            "// Assumed (frees, 20 %): one, and\n//   more of it\n"
            "HOST_API ProError ProOne(char* a,\n                         int b);\n"
            "// Assumed (record, 30 %): two\n"
            "typedef struct VxTwo {\n    int a;\n    union {\n        int b;\n    } c;\n} ProTwo;\n"
            "// Assumed (codes, 40 %): three\ntypedef int ProThree;\n"
            "// Assumed (names, 50 %): four\ntypedef int (*ProFour)(int a);\n"
            "typedef enum {\n    // Assumed (codes, 60 %): five\n    PRO_FIVE = 5\n} ProE;\n")
        self.assertEqual(self.rows(header), [
            "| `ProTwo` | two | 30 % |", "| `ProThree` | three | 40 % |",
            "| `PRO_FIVE` | five | 60 % |", "| `ProOne` | one, and more of it | 20 % |",
            "| `ProFour` | four | 50 % |"])

    def test_what_is_least_sure_comes_first(self):
        header = ("// Assumed (frees, 70 %): a\ntypedef int A;\n"
                  "// Assumed (frees, 10 %): b\ntypedef int B;\n")
        self.assertEqual(self.rows(header), ["| `B` | b | 10 % |", "| `A` | a | 70 % |"])

    def test_a_line_that_cannot_be_read_is_told(self):
        for header in ("// Assumed: so\ntypedef int A;\n",
                       "// Assumed (weather, 10 %): so\ntypedef int A;\n",
                       "// Assumed (frees, 10 %): so\n\nint a;\n"):
            with self.subTest(header):
                done = self.run_on(header)
                self.assertNotEqual(done.returncode, 0)
                self.assertIn("a.h:", done.stderr)

    def test_a_page_that_is_out_of_date_is_told_and_left(self):
        header = "// Assumed (frees, 70 %): a\ntypedef int A;\n"
        done = self.run_on(header, "--check")
        self.assertNotEqual(done.returncode, 0)
        self.assertEqual(self.page.read_text(encoding="utf-8"), PAGE)
        self.rows(header)
        self.assertEqual(self.run_on(header, "--check").returncode, 0)
        text = self.page.read_text(encoding="utf-8")
        self.assertTrue(text.startswith("Head\n") and text.endswith("Tail\n"))


if __name__ == "__main__":
    unittest.main()
