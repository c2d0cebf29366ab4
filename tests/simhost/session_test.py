#!/usr/bin/env python3
"""The prompt at a terminal: the keys, Ctrl-C, and what a session leaves when it ends."""
import os
import pathlib
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = sys.argv.pop(1) if len(sys.argv) > 1 else "build/quick/simhost"
PATIENCE = 120  # seconds


class Terminal:
    """The program on a terminal of its own."""

    def __init__(self, folder, *words, **environment):
        self.screen, self.seen = "", 0
        self.process, self.handle = pty.fork()
        if self.process == 0:
            os.environ.pop("VX_LANGUAGE", None)  # the language comes from the locale
            os.environ.update(TMPDIR=str(folder), HOME=str(folder), TERM="xterm", LC_ALL="C")
            os.environ.update(environment)
            os.execv(PROGRAM, [PROGRAM, *words])

    def until(self, mark):
        """Waits for a text after what was waited for before."""
        end = time.monotonic() + PATIENCE
        while mark not in self.screen[self.seen:]:
            ready = select.select([self.handle], [], [], 0.1)[0]
            try:
                data = os.read(self.handle, 65536) if ready else b""
                self.screen += data.decode("utf-8", "replace")
            except OSError:
                break  # the program has ended
            if time.monotonic() > end:
                break
        at = self.screen.find(mark, self.seen)
        if at < 0:
            raise AssertionError(f"no {mark!r} in {self.screen[self.seen:]!r}")
        self.seen = at + len(mark)

    def type(self, keys):
        os.write(self.handle, keys.encode("utf-8"))

    def key(self, keys):
        self.until("vx> ")
        self.type(keys)

    def line(self, text):
        self.key(text + "\r")

    def end(self):
        """The rest of the screen, and the status as os.waitpid gives it. A program that does not
        end is ended, and its status tells."""
        begin = self.seen
        end = time.monotonic() + PATIENCE
        try:
            while time.monotonic() < end:
                if select.select([self.handle], [], [], 0.1)[0]:
                    data = os.read(self.handle, 65536)
                    self.screen += data.decode("utf-8", "replace")
            os.kill(self.process, signal.SIGKILL)
        except OSError:
            pass  # the program has ended
        status = os.waitpid(self.process, 0)[1]
        os.close(self.handle)
        return self.screen[begin:].replace("\r\n", "\n"), status


class Session(unittest.TestCase):
    def setUp(self):
        keeper = tempfile.TemporaryDirectory(prefix="session-")
        self.addCleanup(keeper.cleanup)
        self.folder = pathlib.Path(keeper.name)

    def drives(self):
        return sorted(each.name for each in self.folder.glob("vorlatix-*"))

    def test_a_line_is_completed_and_edited_in_chinese(self):
        terminal = Terminal(self.folder)
        terminal.line("open gearbox.a\t")
        terminal.line("select 箱体组x\x7f\thou\t")
        terminal.line("show sel\t")
        terminal.until("1 selected")
        terminal.line("quit")
        screen, status = terminal.end()
        self.assertEqual(status, 0, screen)

    def test_the_examples_of_help_work_on_the_gearbox(self):
        terminal = Terminal(self.folder)
        terminal.line("help")
        terminal.until("Type line by line:")
        terminal.until("vx> ")
        rows = re.findall(r"^      (\S.*?)   *\S.*\r$", terminal.screen, re.MULTILINE)
        self.assertGreater(len(rows), 12)
        played = [row for row in rows if not re.search(r"[A-Z]{4}|`|^ok$", row)]
        self.assertGreater(len(played), 9)
        for row in played:
            terminal.type(row + "\r")
            terminal.until("> ")
        terminal.type("quit\r")
        terminal.until("changed and not saved: ")  # the example saves one model of them
        terminal.line("quit")
        screen, status = terminal.end()
        self.assertEqual(status, 0, screen)
        self.assertNotIn("!!", terminal.screen)
        for wanted in ("colours of 42 models", "~ Command `BatchColor`", "motor_drive/motor",
                       "~ Activate `Relations` `Close`"):
            self.assertIn(wanted, terminal.screen)

    def test_prompt_and_help_follow_the_locale(self):
        terminal = Terminal(self.folder, LC_ALL="", LC_MESSAGES="zh_CN.UTF-8")
        terminal.until("结束时副本即删除")
        terminal.line("help")
        terminal.until("打开工作目录中的模型")
        terminal.line("open nowhere.asm")
        terminal.until("there is no nowhere.asm")
        terminal.line("open gearbox.asm")
        terminal.line("VxRelations")
        terminal.until("对话框 Relations> ")
        terminal.type("关闭\r")
        terminal.line("quit")
        screen, status = terminal.end()
        self.assertEqual(status, 0, screen)

    def test_the_history_is_kept_from_one_session_to_the_next(self):
        for keys, last in (("note first", True), ("\x1b[A", False)):
            terminal = Terminal(self.folder)
            terminal.line(keys)
            terminal.until("first\r\n    first" if not last else "    first")
            terminal.key("quit\r" if last else "\x04")
            terminal.end()
            history = self.folder / ".local/state/vorlatix/history"
            self.assertTrue(history.read_text(encoding="utf-8").startswith("note first\n"))
            history.write_text("note first\n", encoding="utf-8")

    def test_ctrl_c_throws_the_line_away(self):
        terminal = Terminal(self.folder)
        terminal.until("vx> ")
        terminal.type("note nonsense")
        terminal.until("nonsense")
        terminal.type("\x03")
        terminal.line("note sense")
        terminal.until("    sense")
        terminal.line("quit")
        screen, status = terminal.end()
        self.assertEqual(status, 0, screen)
        self.assertNotIn("    nonsense", terminal.screen)

    def test_ctrl_c_interrupts_a_picture_and_the_session_goes_on(self):
        large = self.folder / "large"
        subprocess.run([PROGRAM, "generate", "--out", str(large), "--occurrences", "20000",
                        "--models", "50"], check=True, stdout=subprocess.DEVNULL)
        terminal = Terminal(self.folder, "--project", str(large))
        terminal.line("open large.asm")
        terminal.line(f"picture {self.folder}/large.svg")
        terminal.until("%")  # it says how far it is
        terminal.type("\x03")
        terminal.until("!! interrupted")
        terminal.line("quit")
        screen, status = terminal.end()
        self.assertEqual(os.WTERMSIG(status) if os.WIFSIGNALED(status) else 0, 0, screen)
        self.assertFalse((self.folder / "large.svg").exists())

    def test_what_is_gone_and_what_is_not_saved_is_told(self):
        terminal = Terminal(self.folder)
        terminal.until("Works on a copy of ")
        terminal.until(" that is gone at the end; --drive DIR keeps it.")
        self.assertEqual(len(self.drives()), 1)
        terminal.line("open gearbox.asm")
        terminal.line("BatchColor")
        terminal.line("save housing.prt")
        terminal.line("quit")
        terminal.until("changed and not saved: ")
        terminal.until("; quit again ends all the same")
        terminal.line("quit")
        screen, status = terminal.end()
        self.assertEqual(status, 0)
        self.assertRegex(terminal.screen, r"not saved: (\S+, ){4}\S+ and 36 more; quit again")
        self.assertEqual(terminal.screen.count("not saved"), 1)
        self.assertIn("gone with the temporary drive: Work/housing.prt.2 (--drive DIR keeps it)\n",
                      screen)
        self.assertEqual(self.drives(), [])

    def test_whoever_leaves_by_the_key_is_told_too_and_can_still_save(self):
        drive = self.folder / "drive"
        terminal = Terminal(self.folder, "--drive", str(drive))
        terminal.line("open housing.prt")
        terminal.line('parameter housing.prt 备注 "new"')
        terminal.key("\x04")
        terminal.until("changed and not saved: housing.prt; save all saves them, quit again ends")
        terminal.line("save all")
        terminal.key("\x04")
        screen, status = terminal.end()
        self.assertEqual(status, 0, screen)
        self.assertNotIn("not saved", screen)
        self.assertIn("new", (drive / "Work/housing.prt.2").read_text(encoding="utf-8"))

    def test_a_drive_with_a_name_keeps_its_files(self):
        drive = self.folder / "drive"
        terminal = Terminal(self.folder, "--drive", str(drive))
        terminal.until(f"Works in {drive}, which stays.")
        terminal.line("open housing.prt")
        terminal.line("save")
        terminal.line("quit")
        screen, _ = terminal.end()
        self.assertIn(f"kept in {drive}: Work/housing.prt.2\n", screen)
        self.assertTrue((drive / "Work/housing.prt.2").exists())

    def test_a_signal_takes_the_temporary_drive_away(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            terminal = Terminal(self.folder)
            terminal.until("vx> ")
            self.assertEqual(len(self.drives()), 1)
            os.kill(terminal.process, number)
            _, status = terminal.end()
            self.assertEqual(os.WTERMSIG(status), number)
            self.assertEqual(self.drives(), [])

    def test_drives_of_dead_processes_go_at_the_next_start(self):
        with subprocess.Popen(["true"]) as dead:
            dead.wait()
        for name in (f"vorlatix-{dead.pid}-1", f"vorlatix-{os.getpid()}-1", f"vorlatix-{dead.pid}",
                     "vorlatix-mine-1"):
            (self.folder / name).mkdir()
            (self.folder / name / "file").write_text("x", encoding="ascii")
        terminal = Terminal(self.folder)
        terminal.line("quit")
        terminal.end()
        self.assertEqual(self.drives(), sorted([f"vorlatix-{os.getpid()}-1",
                                                f"vorlatix-{dead.pid}", "vorlatix-mine-1"]))


if __name__ == "__main__":
    unittest.main()
