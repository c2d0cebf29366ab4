#!/usr/bin/env python3
"""simhost import as it is typed: an exported assembly comes back and works, and a file that cannot
be read is refused with a sentence, a status, and nothing left."""
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = sys.argv.pop(1) if len(sys.argv) > 1 else "build/quick/simhost"
PATIENCE = 600  # seconds


def run(*words):
    return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True, check=False,
                          timeout=PATIENCE)


def play(drive, project, *lines):
    """A script on a project, which is copied to the drive, and all that it says."""
    drive.mkdir()
    script = drive / "story.trail"
    script.write_text("\n".join(lines) + "\n", encoding="utf-8")
    done = run("run", script, "--project", project, "--drive", drive)
    if done.returncode != 0:
        raise AssertionError(done.stdout + done.stderr)
    return done.stdout


def export(drive, project, model, file):
    play(drive, project, "@ make folder C:\\Out", f"@ open {model}",
         "@ setting VxExportStpDir value byUser", "~ Command `VxExportStp`", "@ answer C:\\Out")
    return drive / "Out" / file


def chain(folder, levels):
    """A project of assemblies that hold one another, a part in the last; the top is A1."""
    folder.mkdir()
    for level in range(1, levels + 1):
        below = f"a{level + 1}.asm" if level < levels else "pin.prt"
        (folder / f"a{level}.asm.1").write_text(
            f'[model]\ntype = "assembly"\n\n[[feature]]\nid = 1\ntype = 1000\nmodel = "{below}"\n',
            encoding="utf-8")
    (folder / "pin.prt.1").write_text(
        '[model]\ntype = "part"\n\n[[solid]]\nid = 10\nshape = "box"\nsize = [1, 2, 3]\n',
        encoding="utf-8")
    return folder


class Import(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        keeper = tempfile.TemporaryDirectory(prefix="import-")
        cls.addClassCleanup(keeper.cleanup)
        cls.folder = pathlib.Path(keeper.name)
        cls.gearbox = export(cls.folder / "first", "samples/gearbox", "gearbox.asm", "GEARBOX.stp")

    def refused(self, file, *words):
        out = self.folder / "refused"
        done = run("import", file, "--out", out, *words)
        self.assertEqual((done.returncode, done.stdout), (2, ""), done)
        self.assertFalse(out.exists())
        return done.stderr.removeprefix("simhost: ").rstrip("\n")

    def file(self, text):
        file = self.folder / "given.stp"
        file.write_text(text, encoding="utf-8")
        return file

    def test_the_gearbox_comes_back_whole_and_takes_colours(self):
        out = self.folder / "gearbox"
        done = run("import", self.gearbox, "--out", out)
        self.assertEqual(done.returncode, 0, done.stderr)
        made = re.search(r"written: gearbox\.asm with (\d+) parts and (\d+) assemblies\n"
                         r"open it with: simhost --project (.*)\n", done.stdout)
        self.assertEqual(made[3], str(out))
        names = {each.name for each in out.iterdir()}
        parts = {name for name in names if name.endswith(".prt.1")}
        self.assertEqual((len(parts), len(names - parts)), (int(made[1]), int(made[2])))
        self.assertIn("大齿轮_z78.prt.1", names)
        told = play(self.folder / "second", out, "@ open gearbox.asm", "~ Command `BatchColor`",
                    "@ save all", "@ expect file gearbox.asm.1")
        self.assertIn(f"changed: colours of {len(parts)} models\n", told)

    def test_an_empty_file_and_one_that_is_none_are_told(self):
        self.assertEqual(self.refused(self.folder / "none.stp"),
                         f"cannot read {self.folder / 'none.stp'}")
        for text in ("", "solid cube\nendsolid\n", "ISO-10303-21;\nHEADER;\n"):
            file = self.file(text)
            self.assertEqual(self.refused(file), f"{file}: it is no STEP file, or not all of one")
        file = self.file("ISO-10303-21;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n")
        self.assertIn(f"{file}: ", self.refused(file))

    def test_a_file_without_its_shapes_is_told_however_the_kernel_bears_it(self):
        text = self.gearbox.read_text(encoding="utf-8")
        file = self.file(re.sub(r"#\d+ = CARTESIAN_POINT\([^;]*;\n", "", text))
        self.assertRegex(self.refused(file), re.escape(str(file)) + "(: | broke off )")

    def test_two_hundred_levels_are_read_and_no_more(self):
        for levels in (200, 201):
            keep = self.folder / f"levels{levels}"
            file = export(self.folder / f"drive{levels}", chain(keep, levels), "a1.asm", "A1.stp")
            if levels == 200:
                done = run("import", file, "--out", self.folder / "deep")
                self.assertEqual(done.returncode, 0, done.stderr)
                self.assertIn("written: a1.asm with 1 part and 200 assemblies\n", done.stdout)
            else:
                self.assertEqual(self.refused(file), f"{file}: its assemblies are nested too deep")

    def test_what_takes_too_long_or_too_much_is_given_up(self):
        self.assertEqual(self.refused(self.gearbox, "--seconds", "0"),
                         f"reading {self.gearbox} takes more than 0 seconds")
        self.assertEqual(self.refused(self.gearbox, "--memory", "1"),
                         f"reading {self.gearbox} takes more than 1 MB of memory")

    def test_a_folder_that_holds_something_is_left_alone(self):
        out = self.folder / "taken"
        out.mkdir()
        (out / "mine.txt").write_text("mine", encoding="utf-8")
        done = run("import", self.gearbox, "--out", out)
        self.assertEqual((done.returncode, done.stderr), (2, f"simhost: {out} is not empty\n"))
        self.assertEqual([each.name for each in out.iterdir()], ["mine.txt"])

    def test_who_ends_it_ends_the_reading_and_leaves_nothing(self):
        out = self.folder / "ended"
        with subprocess.Popen([PROGRAM, "import", str(self.gearbox), "--out", str(out)]) as program:
            children = pathlib.Path(f"/proc/{program.pid}/task/{program.pid}/children")
            end = time.monotonic() + PATIENCE
            while not (child := children.read_text(encoding="ascii").split()):
                self.assertLess(time.monotonic(), end)
            program.send_signal(signal.SIGTERM)
            self.assertEqual(program.wait(PATIENCE), -signal.SIGTERM)
        while os.path.exists(f"/proc/{child[0]}"):
            self.assertLess(time.monotonic(), end)
        self.assertFalse(out.exists())


if __name__ == "__main__":
    unittest.main()
