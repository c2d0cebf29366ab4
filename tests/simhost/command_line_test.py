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

    def test_what_came_through_a_pipe_and_is_not_saved_is_told_at_its_end(self):
        lines = 'open housing.prt\nparameter housing.prt 备注 "x"\n'
        for text in (lines, lines + "quit\n"):
            done = run(text=text)
            self.assertIn("    changed and not saved: housing.prt\n", done.stdout)
            self.assertEqual(done.returncode, 0)
        self.assertNotIn("not saved", run(text="open housing.prt\n").stdout)

    def test_what_is_no_file_is_no_part_of_a_project(self):
        project = self.folder / "project"
        project.mkdir()
        (project / ".#gearbox").symlink_to("nobody@nowhere")
        done = run("run", self.script("@ wait 0"), "--project", str(project))
        self.assertEqual(done.returncode, 0, done.stderr)


class Expectations(Folder):
    def test_those_that_held_are_counted_at_the_end(self):
        done = run("run", self.script(
            "@ open gearbox.asm", "@ expect no box", "@ expect available BatchColor",
            "@ expect greyed BatchColor", "@ expect dialog none"))
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stdout.endswith("\n3 expectations held\n1 failed\n"), done.stdout)
        done = run("run", self.script("@ expect no box"))
        self.assertEqual(done.returncode, 0)
        self.assertTrue(done.stdout.endswith("\n1 expectation held\n"), done.stdout)

    def test_a_script_that_expects_nothing_is_not_praised_for_it(self):
        done = run("run", self.script("@ wait 0"))
        self.assertNotIn("held", done.stdout)


class Faults(Folder):
    """Calls that are made to fail."""

    def colours(self, *faults):
        """BatchColor on the gearbox, with these calls failing."""
        words = [word for fault in faults for word in ("--fail", fault)]
        return run("run", self.script("@ open gearbox.asm", "~ Command `BatchColor`"), *words,
                   "--journal", str(self.folder / "journal"))

    def calls(self, operation):
        journal = (self.folder / "journal").read_text(encoding="utf-8")
        return len(re.findall(rf"^ *{operation}\(", journal, re.MULTILINE))

    def refused(self, fault):
        done = self.colours(fault)
        self.assertEqual((done.returncode, done.stdout), (2, ""), done)
        begin = f"simhost: --fail {fault}: "
        self.assertTrue(done.stderr.startswith(begin), done.stderr)
        return done.stderr.removeprefix(begin).rstrip("\n")

    def test_an_operation_that_is_none_is_told_with_the_nearest(self):
        self.assertEqual(self.refused("ProMdlTypGet=-1"),
                         "there is no operation ProMdlTypGet; did you mean ProMdlTypeGet?")
        self.assertEqual(self.refused("Q=-1"), "there is no operation Q")

    def test_what_is_no_fault_is_told_with_how_one_is_written(self):
        for fault in ("ProMdlTypeGet", "=-1", ":1=-1", "ProMdlTypeGet=", "ProMdlTypeGet=x",
                      "ProMdlTypeGet=1.5", "ProMdlTypeGet=-1+dome", "ProMdlTypeGet=+done",
                      "ProMdlTypeGet:0=-1", "ProMdlTypeGet:x=-1", "ProMdlTypeGet:-1=-1"):
            self.assertTrue(self.refused(fault).startswith(
                "write OPERATION=STATUS or OPERATION:N=STATUS, such as ProMdlTypeGet:3=-1"), fault)

    def test_a_status_has_32_bits(self):
        for status in (2**31, -2**31 - 1):
            self.assertTrue(self.refused(f"ProMdlTypeGet={status}").endswith(
                "; a status is a whole number of 32 bits"), status)
        for status in (2**31 - 1, -2**31):
            self.assertEqual(self.colours(f"ProWindowRepaint={status}").returncode, 0, status)

    def test_a_call_that_is_never_made_is_a_failure_and_those_that_were_are_counted(self):
        done = self.colours("ProMdlTypeGet:9999=-1", "ProWindowRepaint:1=-1")
        self.assertEqual(done.returncode, 1)
        made = self.calls("ProMdlTypeGet")
        self.assertGreater(made, 1)
        self.assertTrue(done.stdout.endswith(
            "\n--fail ProMdlTypeGet: that call was never made; "
            f"there were {made} calls of it\n"), done.stdout)
        self.assertEqual(done.stdout.count("--fail"), 1)

    def test_a_call_fails_once_or_always_and_with_done_at_the_end_of_its_work(self):
        self.assertIn("changed: colours of 42 models\n", self.colours().stdout)
        colour = "prodb_set_surface_props"
        self.assertIn("changed: colours of 41 models\n", self.colours(colour + ":1=-1").stdout)
        self.assertNotIn("changed:", self.colours(colour + "=-1").stdout)
        done = self.colours(colour + "=-1+done")
        self.assertIn("changed: colours of 42 models\n", done.stdout)
        self.assertEqual(done.returncode, 0, done.stdout)


if __name__ == "__main__":
    unittest.main()
