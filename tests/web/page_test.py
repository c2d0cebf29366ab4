#!/usr/bin/python3
"""The page at work in a browser: page_test.py SIMHOST [unittest arguments].

VX_SWEEP=full makes the random clicks last for five minutes in place of half a minute.
"""

import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time
import unittest

from selenium.webdriver.common.action_chains import ActionChains

sys.path.insert(0, os.path.dirname(__file__))
from page_support import (Bench, click, console_errors, get, get_json, open_page, settle, state,
                          step, wait_for)

SIMHOST = sys.argv.pop(1)
SECONDS_OF_CLICKS = 300 if os.environ.get("VX_SWEEP") == "full" else 30


class PageTest(unittest.TestCase):
    language = "zh-CN"

    def setUp(self):
        self.bench = Bench(SIMHOST)
        self.addCleanup(lambda: self.assertEqual(self.bench.close()[0], 0))
        self.page = open_page(self.bench, language=self.language)
        self.addCleanup(self.page.quit)

    def tearDown(self):
        self.assertEqual(console_errors(self.page), [])

    def texts(self, selector):
        return self.page.execute_script(
            "return [...document.querySelectorAll(arguments[0])].map(e => e.textContent);",
            selector)

    def open(self, file):
        click(self.page, "#open")
        click(self.page, f".dropdown [data-file='{file}']")

    def press(self, command):
        click(self.page, "#menus button")
        click(self.page, f".dropdown [data-command='{command}']")


class MainWindow(PageTest):
    def test_the_menu_shows_every_command_as_the_access_rules_say(self):
        click(self.page, "#menus button")
        shown = self.page.execute_script(
            "return [...document.querySelectorAll('.dropdown .command')]"
            ".map(b => [b.dataset.command, b.disabled]);")
        buttons = [b for m in state(self.page)["menus"] if m["onBar"] for b in m["buttons"]]
        self.assertEqual(sum(len(m["buttons"]) for m in state(self.page)["menus"]), 56)
        self.assertEqual(shown, [[b["command"], b["state"] != "available"] for b in buttons
                                 if b["state"] != "absent"])
        self.assertIn(["VxConfig", False], shown)
        self.assertIn("打开工作目录", self.texts(".dropdown .command"))
        # Nothing is open: what works on an assembly is greyed or away.
        self.assertNotIn(["BatchColor", False], shown)

    def test_a_model_is_opened_coloured_and_selected_by_clicks(self):
        self.open("gearbox.asm")
        self.assertEqual(state(self.page)["current"]["file"], "gearbox.asm")
        before = get_json(self.page, "/tree")["rows"]
        self.assertEqual(len(before), 177)
        self.press("BatchColor")
        after = get_json(self.page, "/tree")["rows"]
        self.assertNotEqual([r.get("colour") for r in after], [r.get("colour") for r in before])
        row = "#tree .row[data-path='base_plate/底板']"
        click(self.page, row)
        self.assertEqual(state(self.page)["selection"], ["base_plate/底板"])
        wait_for(self.page, f"return document.querySelector(\"{row}\").ariaSelected === 'true';",
                 "the row is marked")
        colour = next(r["colour"] for r in after if r["path"] == "base_plate/底板")
        rgb = tuple(int(colour[i:i + 2], 16) for i in (1, 3, 5))
        wait_for(self.page, f"return getComputedStyle(document.querySelector(\"{row} .dot\"))"
                 f".backgroundColor === 'rgb{rgb}';", "the dot has the part's colour")

    def test_what_is_typed_at_the_bottom_is_done(self):
        line = self.page.find_element("id", "line")
        line.send_keys("open 箱体组件.asm\n")
        wait_for(self.page, "return window.vx.connection.state.current;", "opened")
        self.assertEqual(state(self.page)["current"]["file"], "箱体组件.asm")
        self.assertIn("open 箱体组件.asm", self.texts("#transcript div"))

    def test_windows_are_changed_and_closed_by_their_tabs(self):
        self.open("housing.prt")
        self.open("gearbox.asm")
        self.page.find_element("css selector", "#windows .window:not(.current) button").click()
        wait_for(self.page, "return window.vx.connection.state.current.file === 'housing.prt';",
                 "changed")
        click(self.page, "#windows .close")
        wait_for(self.page, "return window.vx.connection.state.windows.length === 1;", "closed")

    def test_what_was_saved_can_be_kept_and_what_was_done_replayed(self):
        self.open("gearbox.asm")
        self.press("BatchColor")
        click(self.page, "#save-all")
        click(self.page, "[data-panel=files]")
        wait_for(self.page, "return document.querySelectorAll('#files .file a').length > 10;",
                 "the files are listed")
        link = self.page.execute_script(
            "return [...document.querySelectorAll('#files a')].find(a =>"
            " a.textContent.includes('housing.prt.2')).getAttribute('href');")
        self.assertTrue(get(self.page, link).startswith("[model]\ntype = \"part\"\n"))
        click(self.page, "[data-panel=recording]")
        wait_for(self.page, "return document.querySelector('#recording pre').textContent.includes"
                 "('~ Command `BatchColor`');", "the recording is shown")
        self.page.find_element("id", "replay").click()
        self.page.switch_to.alert.accept()
        wait_for(self.page, "return document.querySelector('#transcript').textContent.includes"
                 "('replayed: the same ');", "replayed")

    def test_the_calls_are_shown_while_somebody_looks(self):
        click(self.page, "[data-panel=journal]")
        click(self.page, "#calls-toggle")
        self.open("gearbox.asm")
        self.press("BatchColor")
        wait_for(self.page, "return document.querySelector('#journal pre').textContent.includes"
                 "('prodb_set_surface_props');", "the calls are listed")

    def test_no_line_gets_lost_between_two_pages(self):
        other = open_page(self.bench)
        self.addCleanup(other.quit)
        step(self.page, "@ note from the first")
        step(other, "@ note from the second")
        for page in (self.page, other):
            wait_for(page, "const t = document.querySelector('#transcript').textContent;"
                     "return t.includes('from the first') && t.includes('from the second');",
                     "both pages show both")
        self.assertEqual(console_errors(other), [])


class InEnglish(PageTest):
    language = "en-US"

    def test_commands_and_the_page_speak_english(self):
        self.assertEqual(self.texts("#open"), ["Open"])
        click(self.page, "#menus button")
        self.assertIn("Open Working Folder", self.texts(".dropdown .command"))
        click(self.page, ".dropdown .find")
        self.page.execute_script("localStorage.setItem('language', 'zh');")
        self.page.refresh()
        settle(self.page)
        self.assertEqual(self.texts("#open"), ["打开"])


class Drawings(PageTest):
    def click_sheet(self, x, y):
        """Clicks a point of the sheet, in its millimetres from the lower left corner."""
        settle(self.page)
        paper = self.page.find_element("css selector", ".paper")
        sheet = get_json(self.page, "/sheet")
        across = paper.size["width"] / sheet["width"]
        ActionChains(self.page).move_to_element_with_offset(
            paper, round((x - sheet["width"] / 2) * across),
            round((sheet["height"] / 2 - y) * across)).click().perform()
        settle(self.page)

    def test_a_shaft_is_dimensioned_by_clicks_on_its_sheet(self):
        self.open("输入轴.drw")
        wait_for(self.page, "return document.querySelector('#sheet svg');", "the sheet is shown")
        self.press("VxSingleDim")
        self.assertEqual(state(self.page)["wait"]["kind"], "pick")
        # 308 mm at 3:4 from x = 90: the rims of both ends, beside the axis.
        self.click_sheet(90, 203)
        self.click_sheet(90 + 308 * 0.75, 203)
        self.assertEqual(state(self.page)["wait"]["kind"], "click")
        self.click_sheet(205, 150)
        click(self.page, "#hint button:last-child")
        self.assertIsNone(state(self.page)["wait"])
        step(self.page, "@ expect dimension 1 308")
        self.assertEqual(get_json(self.page, "/faults")["failures"], [])
        item = get_json(self.page, "/sheet")["items"][0]
        self.assertEqual(item["path"], "dimension#1")
        click(self.page, ".paper .item[data-path='dimension#1']")
        self.assertEqual(state(self.page)["selection"], ["dimension#1"])
        self.assertIn("308", self.texts(".paper svg text"))


class EveryCommand(PageTest):
    """Each command is pressed, and whatever it asks is left, with the mouse alone."""

    def press_button_of_dialog(self, name):
        """Presses buttons of a dialog that has no other way out, the last one first."""
        buttons = self.page.execute_script(
            "return [...document.querySelectorAll('.form-window.dialog button[data-vx]')]"
            ".filter(b => !b.disabled && b.offsetParent).map(b => b.dataset.vx);")
        for button in reversed(buttons):
            click(self.page, f".form-window.dialog button[data-vx='{button}']")
            wait = state(self.page)["wait"]
            if not wait or wait.get("name") != name:
                return
        self.fail(f"nothing ends the dialog {name}")

    def leave(self, wait):
        kind = wait["kind"]
        if kind in ("pick", "click"):
            return click(self.page, "#hint button:last-child")
        if kind == "box":
            return click(self.page, ".ask.box [data-button=ok]")
        if kind == "question":
            return click(self.page, ".ask.question [data-button=no]")
        if kind in ("prompt", "file"):
            return click(self.page, f".ask.{'file' if wait['file'] else 'prompt'} "
                                    "[data-button=cancel]")
        closer = ".form-window.dialog .closer"
        if self.page.find_element("css selector", closer).is_displayed():
            click(self.page, closer)
            still = state(self.page)["wait"]
            if not still or still.get("name") != wait["name"]:
                return None
        return self.press_button_of_dialog(wait["name"])

    def available(self):
        return {b["command"] for m in state(self.page)["menus"] if m["onBar"]
                for b in m["buttons"] if b["state"] == "available"}

    def leave_all(self, command):
        for _ in range(40):
            wait = state(self.page)["wait"]
            if not wait:
                return
            self.leave(wait)
        self.fail(f"{command} asks for ever: {wait}")

    def test_is_pressed_and_ended_with_the_mouse(self):
        buttons = {b["command"] for m in state(self.page)["menus"] for b in m["buttons"]}
        self.assertEqual(len(buttons), 56)
        left = set(buttons)
        for model in (None, "gearbox.asm", "housing.prt", "防护罩.prt", "输入轴.drw"):
            for command in sorted(left):
                # What was pressed before may have opened another model.
                current = state(self.page)["current"]
                if model and (not current or current["file"] != model):
                    step(self.page, f"@ open {model}")
                if command not in self.available():
                    continue
                self.press(command)
                self.leave_all(command)
                self.assertEqual(get_json(self.page, "/faults")["complaints"], [], command)
                left.discard(command)
        self.assertEqual(left, set())


class Started(unittest.TestCase):
    def test_on_a_step_file_and_keeps_what_was_done(self):
        with tempfile.TemporaryDirectory() as folder:
            trail = os.path.join(folder, "export.trail")
            with open(trail, "w", encoding="utf-8") as lines:
                lines.write("@ open pin_8x30.prt\n~ Command `VxExportStp`\n")
            subprocess.run([SIMHOST, "run", trail, "--drive", folder], check=True,
                           stdout=subprocess.DEVNULL)
            exported = next(pathlib.Path(folder).rglob("*.stp"))
            recording = os.path.join(folder, "recording.trail")
            bench = Bench(SIMHOST, "--import", str(exported), "--recording", recording)
            page = open_page(bench)
            try:
                files = state(page)["openable"]
                self.assertEqual([f for f in files if f.endswith(".prt")], files)
                step(page, f"@ open {files[0]}")
                step(page, "~ Command `BatchColor`")
                self.assertEqual(console_errors(page), [])
            finally:
                page.quit()
                status, said = bench.close()
            self.assertEqual(status, 0)
            self.assertIn("changed and not saved: " + files[0], said)
            with open(recording, encoding="utf-8") as lines:
                self.assertRegex(lines.read(), rf"^@ open {files[0]}\n@ clock \d+\n"
                                               r"~ Command `BatchColor`\n$")


class RandomClicks(PageTest):
    """Half a minute of whatever can be clicked: nothing complains, and a replay does the same."""

    def candidates(self):
        return self.page.execute_script("""
            const visible = e => e.offsetParent !== null && !e.disabled;
            const all = selector => [...document.querySelectorAll(selector)].filter(visible);
            const modal = all('#layer button, #layer input, #layer select, #layer textarea, ' +
                              '#layer [role=radio], #layer td');
            return modal.length ? modal
                : all('#menus button, .dropdown .command, #tree .row, #hint button, ' +
                      '#windows button, #tabs button, #welcome .command, #save, .paper, ' +
                      '#sheet .item');
            """)

    def test_half_a_minute_of_them_is_borne_and_replayed(self):
        seed = int(os.environ.get("GTEST_RANDOM_SEED", "0")) or random.randrange(1, 99999)
        print(f"random clicks: seed {seed}", flush=True)
        dice = random.Random(seed)
        self.open("gearbox.asm")
        until = time.monotonic() + SECONDS_OF_CLICKS
        done = 0
        while time.monotonic() < until:
            settle(self.page)
            elements = self.candidates()
            if not elements:
                time.sleep(0.1)
                continue
            element = dice.choice(elements)
            try:
                if element.tag_name in ("input", "textarea") and dice.random() < 0.6:
                    element.send_keys(dice.choice(["12", "M8", "轴", "=1", "-0.5", "\n"]))
                else:
                    self.page.execute_script("arguments[0].click();", element)
                done += 1
            except Exception as error:  # it went while it was aimed at
                if "stale element" not in str(error) and "not interactable" not in str(error):
                    raise
            if dice.random() < 0.03:
                self.page.find_element("tag name", "body").send_keys("\ue00c")  # Escape
        settle(self.page)
        self.assertGreater(done, SECONDS_OF_CLICKS / 3)
        faults = get_json(self.page, "/faults")
        self.assertEqual(faults["complaints"], [], f"seed {seed}\n" + get(self.page, "/recording"))
        recording = get(self.page, "/recording")
        self.page.execute_script("window.vx.connection.restart(true);")
        found = wait_for(
            self.page, "const t = document.querySelector('#transcript').textContent;"
            "return (t.match(/replayed[^\\n]*?(as before|:)[^\\n]*/) || [null])[0];",
            "replayed", 120)
        self.assertIn("the same", found, f"seed {seed}\n{recording}")


if __name__ == "__main__":
    unittest.main(verbosity=1)
