#!/usr/bin/env python3
"""The settings files as they are shipped, and as they come out of Git."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
MARK = b"\xff\xfe"
WORDS = "text eol=crlf working-tree-encoding=UTF-16LE-BOM"


def shipped():
    return sorted((ROOT / "VXconfig").glob("*.ini"))


def git(folder, *words):
    done = subprocess.run(["git", "-c", "user.name=test", "-c", "user.email=test@localhost",
                           *words], cwd=folder, capture_output=True, check=False)
    if done.returncode != 0:
        raise AssertionError(done.stderr.decode())
    return done.stdout


class ShippedSettings(unittest.TestCase):
    def test_are_ascii_or_marked_utf_16(self):
        for file in shipped():
            with self.subTest(file.name):
                data = file.read_bytes()
                if not data.isascii():
                    self.assertEqual(data[:2], MARK)
                    data = data[2:].decode("utf-16-le").encode()
                self.assertEqual(data.count(b"\n"), data.count(b"\r\n"))
                self.assertGreater(data.count(b"\n"), 3)

    def test_attributes_name_those_with_a_mark_and_no_others(self):
        lines = (ROOT / ".gitattributes").read_text(encoding="utf-8").splitlines()
        named = [line.split(" ", 1)[0] for line in lines if line.endswith(" " + WORDS)]
        marked = [f"VXconfig/{each.name}" for each in shipped()
                  if each.read_bytes()[:2] == MARK]
        self.assertEqual(sorted(named), marked)
        self.assertEqual(len(marked), 5)

    def test_a_fresh_clone_has_the_same_bytes_and_a_text_that_can_be_compared(self):
        with tempfile.TemporaryDirectory() as temporary:
            first, second = pathlib.Path(temporary, "first"), pathlib.Path(temporary, "second")
            shutil.copytree(ROOT / "VXconfig", first / "VXconfig")
            shutil.copyfile(ROOT / ".gitattributes", first / ".gitattributes")
            git(first, "init", "-q")
            git(first, "add", ".")
            git(first, "commit", "-qm", "settings")
            git(temporary, "clone", "-q", first, second)
            for file in shipped():
                with self.subTest(file.name):
                    clone = second / "VXconfig" / file.name
                    self.assertEqual(clone.read_bytes(), file.read_bytes())
            kept = git(first, "show", "HEAD:VXconfig/VxBom.ini").decode("utf-8")
            self.assertIn("content=代号,名称,模型名称", kept)


if __name__ == "__main__":
    unittest.main()
