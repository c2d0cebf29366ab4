"""The tools around the Windows build: what they find, and what they say when something is
missing."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
TOOLS = ROOT / "tools" / "windows"
sys.path.insert(0, str(TOOLS))
sys.path.insert(0, str(ROOT / "packaging"))

import check_module  # noqa: E402
import package_test  # noqa: E402
import test_lists  # noqa: E402
import test_zip  # noqa: E402

LISTING = """
The Import Tables (interpreted .idata section contents)
\tDLL Name: KERNEL32.dll
\tvma:  Hint/Ord Member-Name Bound-To
\t7b2f8\t  281  CloseHandle

\tDLL Name: simhost.dll

The Export Tables (interpreted .edata section contents)

[Ordinal/Name Pointer] Table
\t[   0] user_initialize
\t[   1] user_terminate

The Function Table (interpreted .pdata section contents)
\t[   9] not_an_export
"""


class CheckModule(unittest.TestCase):
    def said(self, listing):
        return check_module.complaints(*check_module.tables(listing), "SimHost.dll")

    def test_a_sound_module(self):
        self.assertEqual(self.said(LISTING), [])

    def test_an_export_too_many(self):
        listing = LISTING.replace("user_terminate\n", "user_terminate\n\t[   2] BatchColor\n")
        self.assertEqual(self.said(listing), ["it exports BatchColor, which nobody may call"])

    def test_a_missing_entry_point(self):
        self.assertEqual(self.said(LISTING.replace("\t[   1] user_terminate\n", "")),
                         ["it does not export user_terminate"])

    def test_a_runtime_library(self):
        listing = LISTING.replace("KERNEL32.dll\n", "KERNEL32.dll\n\tDLL Name: libstdc++-6.dll\n")
        self.assertEqual(self.said(listing),
                         ["it needs libstdc++-6.dll, which is neither Windows' own nor the host's"])

    def test_a_module_for_another_system(self):
        self.assertEqual(len(self.said("file format elf64-x86-64")), 4)


class TestLists(unittest.TestCase):
    ROWS = [("frame", "Timers.*", "a reason"), ("unit", "Paths.One", "a reason")]

    def test_names_in_a_listing(self):
        listing = ("Running main() from gtest_main.cc\nTimers.\n  Fire\nTable/Ini.\n"
                   "  Reads/blank  # GetParam() = 1\n")
        self.assertEqual(test_lists.parse_tests(listing), {"Timers.Fire", "Table/Ini.Reads/blank"})

    def test_a_filter_has_the_tests_of_its_folder(self):
        self.assertEqual(test_lists.gtest_filter(self.ROWS, "frame"), "-Timers.*")
        self.assertEqual(test_lists.gtest_filter(self.ROWS, "display"), "*")

    def test_all_listed(self):
        self.assertEqual(
            test_lists.compare(self.ROWS, "frame", {"Timers.Fire", "A.B"}, {"A.B"}), [])

    def test_a_test_that_is_missing_without_a_line(self):
        self.assertEqual(test_lists.compare(self.ROWS, "frame", {"Timers.Fire", "A.B"}, set()),
                         ["frame: A.B is not in the Windows build; say why in the list"])

    def test_a_line_that_names_no_test(self):
        self.assertEqual(test_lists.compare(self.ROWS, "unit", {"A.B"}, {"A.B"}),
                         ["unit: no test is named Paths.One: take its line out"])

    def test_the_list_can_be_read(self):
        self.assertTrue(test_lists.read_lines(ROOT / "tests/windows/native_only.txt"))


class WatchedCalls(unittest.TestCase):
    """Journals and faults under Wine know every operation that the plug-in may call."""

    def test_every_operation_of_the_door_is_watched(self):
        door = (ROOT / "hostapi" / "windows.h").read_text(encoding="utf-8")
        watch = (ROOT / "simhost" / "windows_real" / "calls.cpp").read_text(encoding="utf-8")
        declared = set(re.findall(r"^HOST_API [^(]*?\b(\w+)\(", door, re.M))
        watched = set(re.findall(r'^ *\{"(\w+)", +Address\(', watch, re.M))
        self.assertIn("MessageBoxW", declared)
        self.assertEqual(declared, watched)


class WineRun(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name, "home")
        self.wine = pathlib.Path(folder.name, "wine64")
        self.wine.write_text("#!/bin/sh\necho 'wine-1.0 (Test)'\n")
        self.wine.chmod(0o755)

    def shared(self, version="wine-1.0", locale=True, windows=True):
        for folder, wanted in (("locales/zh_CN.UTF-8", locale),
                               ("prefix/drive_c/windows/system32", windows)):
            (self.home / folder).mkdir(parents=True)
            if wanted:
                for name in ("LC_CTYPE", "ntdll.dll"):
                    (self.home / folder / name).touch()
        (self.home / "version").write_text(version + "\n")

    def said(self, *arguments, wine=None):
        done = subprocess.run([TOOLS / "wine-run", *arguments], capture_output=True, text=True,
                              env={**os.environ, "VX_WINE": str(wine or self.wine),
                                   "VX_WINE_HOME": str(self.home)}, check=False)
        self.assertEqual(done.returncode, 127, done.stderr)
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        return done.stderr

    def test_no_wine(self):
        self.assertIn("Wine is missing; ./vx setup installs it",
                      self.said("a.exe", wine="/nonexistent/wine64"))

    def test_a_prefix_of_another_version(self):
        self.shared(version="wine-0.9")
        self.assertIn("was made by wine-0.9, but this is wine-1.0: remove it", self.said("a.exe"))

    def test_a_missing_locale(self):
        self.shared(locale=False)
        self.assertIn("has lost its locale zh_CN.UTF-8: remove it", self.said("a.exe"))

    def test_a_missing_windows_folder(self):
        self.shared(windows=False)
        self.assertIn("has lost its Windows folder: remove it", self.said("a.exe"))

    def test_a_missing_program(self):
        self.shared()
        self.assertIn("there is no program none.exe", self.said("none.exe"))


class Package(unittest.TestCase):
    """Both kinds of package; what is in the modules does not matter here."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_for_the_cad_system(self):
        package_test.check_for_the_cad_system(self.folder)

    def test_for_the_simulated_host(self):
        module = self.folder / "vorlatix5.1.dll"
        module.write_bytes(b"MZ simhost.dll\n")
        package_test.unpacked(module, self.folder)

    def test_no_module(self):
        with self.assertRaises(package_test.Wrong) as raised:
            package_test.make(self.folder / "nonexistent.dll", self.folder)
        self.assertIn("build it first", " ".join(str(raised.exception).split()))

    def test_no_test_programs(self):
        with self.assertRaises(SystemExit) as raised:
            test_zip.make(self.folder, self.folder)
        self.assertIn("build them with ./vx windows", str(raised.exception))


if __name__ == "__main__":
    unittest.main()
