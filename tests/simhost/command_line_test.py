#!/usr/bin/env python3
"""The simulated host as a program: its command line, exit statuses and transcript."""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1) if len(sys.argv) > 1 else "build/quick/simhost"


def run(*words, text="", **more):
    return subprocess.run([PROGRAM, *words], input=text, capture_output=True, text=True,
                          check=False, timeout=120, **more)


class Folder(unittest.TestCase):
    def setUp(self):
        keeper = tempfile.TemporaryDirectory(prefix="command-line-")
        self.addCleanup(keeper.cleanup)
        self.folder = pathlib.Path(keeper.name)

    def script(self, *lines):
        file = self.folder / "story.trail"
        file.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return str(file)


class CommandLine(Folder):
    def refused(self, *words):
        done = run(*words)
        self.assertEqual(done.returncode, 2, done)
        self.assertEqual(done.stdout, "")
        return done.stderr.removeprefix("simhost: ").rstrip("\n")

    def test_a_wrong_command_or_option_is_told_with_the_nearest(self):
        self.assertEqual(self.refused("rnu", "x.trail"), "no command 'rnu'; did you mean 'run'?")
        self.assertEqual(self.refused("run", "x.trail", "--journl", "j"),
                         "no option '--journl'; did you mean '--journal'?")
        self.assertEqual(self.refused("dialogs", "x", "--out", "y"), "dialogs has no use for 'x'")

    def test_what_is_missing_is_named(self):
        self.assertEqual(self.refused("run"), "a script is missing")
        self.assertEqual(self.refused("dialogs"), "--out is missing")
        self.assertEqual(self.refused("dialogs", "--out"), "--out needs a value after it")
        self.assertEqual(self.refused("dialogs", "--out", ""), "--out needs the name of a folder")
        self.assertEqual(self.refused("--drive", ""), "--drive needs the name of a folder")

    def test_a_number_that_is_none_is_told_with_its_option(self):
        self.assertEqual(self.refused("generate", "--out", "x", "--occurrences", "abc"),
                         "--occurrences abc: a whole number from 0 to 10000000 belongs there")
        self.assertEqual(self.refused("generate", "--out", "x", "--models", "2147483647"),
                         "--models 2147483647: a whole number from 0 to 1000000 belongs there")

    def test_a_folder_that_cannot_be_made_is_told_with_its_option(self):
        taken = self.folder / "taken"
        taken.write_text("a file")
        for words in (["dialogs", "--out"], ["demo", "--out"], ["generate", "--out"], ["--drive"]):
            said = self.refused(*words, str(taken))
            self.assertEqual(said.split(":")[0], f"{words[-1]} {taken}")
            self.assertIn("cannot make this folder", said)

    def test_the_version_is_told(self):
        done = run("--version")
        self.assertEqual((done.returncode, done.stdout), (0, "simhost 5.1\n"))

    def test_help_is_no_failure(self):
        done = run("run", "--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("--journal", done.stdout)


class Transcript(Folder):
    def test_one_that_cannot_be_written_is_an_error(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run([PROGRAM, "run", self.script("@ wait 0")], stdout=full,
                                  stderr=subprocess.PIPE, text=True, check=False, timeout=60)
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr, "simhost: what is printed cannot be written: "
                                      "No space left on device\n")

    def test_a_second_start_is_told_and_changes_nothing(self):
        done = run("run", self.script("@ start", "@ open gearbox.asm",
                                      "@ setting VxRandomColorOpt value asUG",
                                      "~ Command `BatchColor`", "@ show colours"))
        self.assertEqual(done.returncode, 0, done.stdout)
        # Without its place the module would find no palette, and give every part the same black.
        self.assertGreater(len(set(re.findall(r"prt +([0-9.]+)", done.stdout))), 10)
        self.assertEqual(done.stdout.count("    the plug-in is loaded already\n"), 1)

    def test_a_second_stop_is_told(self):
        done = run("run", self.script("@ stop", "@ stop", "~ Command `BatchColor`"))
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.count("    the plug-in is not loaded\n"), 1)
        self.assertIn("the plug-in is not loaded: start loads it", done.stdout)

    def test_a_module_that_is_not_there_is_told_once(self):
        done = run("run", self.script("@ open gearbox.asm", "~ Command `BatchColor`"),
                   "--module", "nope.so")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.count("!!"), 1)
        self.assertIn("    !! the module nope.so cannot be loaded", done.stdout)

    def test_quit_ends_what_comes_through_a_pipe(self):
        done = run(text="quit\nnonsense\n")
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_what_is_no_file_is_no_part_of_a_project(self):
        project = self.folder / "project"
        project.mkdir()
        (project / ".#gearbox").symlink_to("nobody@nowhere")
        done = run("run", self.script("@ wait 0"), "--project", str(project))
        self.assertEqual(done.returncode, 0, done.stderr)


if __name__ == "__main__":
    unittest.main()
