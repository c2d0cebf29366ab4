#!/usr/bin/env python3
"""The simulated host where the library around the geometry kernel cannot be loaded: it says so, in
the files and to the user, and all else goes on."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1) if len(sys.argv) > 1 else "build/quick/simhost"
LIBRARY, KERNEL = "libsimhost.so", "libsimhost_kernel.so"
TOLD = "files for other systems hold no shapes here: there is no geometry kernel"


class NoKernel(unittest.TestCase):
    def setUp(self):
        keeper = tempfile.TemporaryDirectory(prefix="no-kernel-")
        self.addCleanup(keeper.cleanup)
        self.folder = pathlib.Path(keeper.name)
        # The host's library looks for the kernel's beside itself: here it is alone.
        build = pathlib.Path(PROGRAM).resolve().parent
        self.assertTrue((build / KERNEL).exists())
        (self.folder / LIBRARY).symlink_to(build / LIBRARY)

    def run_host(self, *words):
        environment = dict(os.environ, LD_PRELOAD=str(self.folder / LIBRARY),
                           ASAN_OPTIONS="verify_asan_link_order=0")
        return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True,
                              check=False, timeout=120, env=environment)

    def export(self):
        script = self.folder / "story.trail"
        script.write_text("\n".join((
            "@ make folder C:\\Out", "@ open coupling.asm",
            "~ Command `VxExStp`", "@ answer C:\\Out", "@ ok",
            "~ Command `VxExIgs`", "~ Activate `VxExIgs` `VxExIgsAct`", "@ answer C:\\Out", "@ ok",
            "~ Close `VxExIgs`", "@ setting VxExportDwgDir value byUser", "@ open 输入轴.drw",
            "~ Command `VxExportDwg`", "@ answer C:\\Out")) + "\n", encoding="utf-8")
        done = self.run_host("run", script, "--drive", self.folder / "drive")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stdout, self.folder / "drive" / "Out"

    def expect_words_for_shapes(self):
        told, out = self.export()
        self.assertEqual(told.count(TOLD), 1, told)
        names = {"COUPLING": "coupling.asm", "COUPLING_HUB": "coupling_hub.prt",
                 "弹性块": "弹性块.prt"}
        for suffix, kind in ((".stp", "STEP"), (".igs", "IGES")):
            files = {each.stem: each.read_text(encoding="utf-8") for each in out.glob("*" + suffix)}
            self.assertEqual(files, {
                name: f"{kind} of {model}, without its shape: "
                      "no geometry kernel was there to write it\n"
                for name, model in names.items()})
        # A drawing needs no kernel.
        self.assertIn("\nENTITIES\n", (out / "输入轴.dwg").read_text(encoding="latin-1")
                      .replace("\r\n", "\n"))

    def test_exported_models_hold_words_and_the_user_is_told_once(self):
        self.expect_words_for_shapes()

    def test_a_library_that_cannot_be_loaded_is_none(self):
        (self.folder / KERNEL).write_text("no library")
        self.expect_words_for_shapes()

    def test_nothing_is_imported(self):
        file, out = self.folder / "given.stp", self.folder / "out"
        file.write_text("ISO-10303-21;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n")
        done = self.run_host("import", file, "--out", out)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (
            2, "", "simhost: no STEP file can be read: there is no geometry kernel\n"))
        self.assertFalse(out.exists())


if __name__ == "__main__":
    unittest.main()
