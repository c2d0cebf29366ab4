#!/usr/bin/python3
"""Checks of the workbench's forms in Chromium: every dialog against what the host says of it, the
keys, the order of lines, long tables. Takes the simhost program; without it the quick build's."""
import subprocess
import tempfile

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

import ask_checks
from form_page import Page, run_checks

# The commands that open a dialog, with a model for which they can be pressed.
DIALOGS = {
    "gearbox.asm": ["AboutVx", "SetUnit", "TweViews", "VxBom", "VxConfig", "VxExIgs", "VxExport",
                    "VxParams", "VxQQGroup", "VxRelations", "VxRemoveCons", "VxRename"],
    "gearbox.drw": ["VxDimModify", "VxFrmReplace"],
}
STOPS = {"CheckButton", "InputPanel", "List", "OptionMenu", "PushButton", "RadioGroup", "Table",
         "TextArea"}


# --- What a form shows ------------------------------------------------------------------------

SHOWN = """
const part = document.querySelector(`.form-window.dialog [data-vx="${arguments[0]}"]`);
if (!part) return null;
const inside = part.querySelector('input') || part;
const radio = part.querySelector('input:checked');
const style = getComputedStyle(part);
return {text: part.textContent, space: style.whiteSpace, value: inside.value,
  checked: inside.checked, disabled: Boolean(inside.disabled), selected: radio ? radio.value : null,
  seen: style.visibility === 'visible', source: part.getAttribute('src'),
  labels: [...part.querySelectorAll(':scope > label')].map(each => each.textContent),
  options: [...(part.options || [])].map(each => each.textContent),
  legend: (part.querySelector(':scope > legend') || {}).textContent || '',
  heads: [...part.querySelectorAll('th')].map(each => each.textContent)};
"""


def placed(form):
    """The names of the components that the layouts hold."""
    def below(grid):
        if "component" in grid:
            return [grid["component"]]
        return [name for child in grid["children"] for name in below(child)]
    return {name for grid in [form["layout"], *form["layouts"].values()] for name in below(grid)}


def compare(page, component):
    shown = page.driver.execute_script(SHOWN, component["name"])
    name, kind = component["name"], component["kind"]
    assert shown, name + " is not there"
    pairs = [(shown["seen"], component["visible"])]
    if kind in ("Label", "PushButton", "CheckButton") and not component.get("picture"):
        pairs.append((shown["text"], component["label"]))
        pairs.append((shown["space"], "pre"))  # blanks of a text are seen
    if component.get("picture"):
        pairs.append((shown["source"], "/icons/" + component["picture"]))
    if kind in ("InputPanel", "TextArea", "OptionMenu"):
        pairs.append((shown["value"], component["value"]))
    if kind == "OptionMenu":
        pairs.append((shown["options"], component["labels"]))
    if kind == "CheckButton":
        pairs.append((shown["checked"], component["set"]))
    if kind == "RadioGroup":
        pairs.append((shown["selected"], component["selected"]))
        pairs.append((shown["labels"], component["labels"]))
    if kind == "Layout":
        pairs.append((shown["legend"], component["label"]))
    if kind == "Table":
        pairs.append((shown["heads"], [each["label"] for each in component["tableColumns"]]))
    if kind in STOPS - {"Table"}:
        pairs.append((shown["disabled"], not component["enabled"]))
    for found, wanted in pairs:
        assert found == wanted, "%s: %r, not %r" % (name, found, wanted)


CLIPPED = """
const form = document.querySelector('.form-window.dialog');
const problems = [];
const name = each => each.dataset.vx || each.className || each.tagName;
for (const each of [form, ...form.querySelectorAll('*')]) {
  if (each.closest('.vx-table') && !each.matches('td, th')) continue;
  if (each.matches('input, option')) continue;   // a text may be longer than its field
  if (each.clientWidth && each.scrollWidth > each.clientWidth) {
    problems.push(`${name(each)}: ${each.scrollWidth} in ${each.clientWidth}`);
  }
}
const box = form.getBoundingClientRect();
const margin = 7;
if (Math.min(box.left, box.top, innerWidth - box.right, innerHeight - box.bottom) < margin) {
  problems.push('the window is too near to the edges of the page');
}
const parts = [...form.querySelectorAll('.vx-part')].filter(each =>
  !each.classList.contains('vx-layout') && !each.closest('td'));
parts.forEach((one, at) => {
  const a = one.getBoundingClientRect();
  for (const other of parts.slice(at + 1)) {
    const b = other.getBoundingClientRect();
    if (Math.min(a.right, b.right) - Math.max(a.left, b.left) > 0.5 &&
        Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top) > 0.5) {
      problems.push(`${name(one)} lies over ${name(other)}`);
    }
  }
});
return problems;
"""


def check_room(page):
    for factor in (1, 1.5):
        page.zoom(factor)
        problems = page.driver.execute_script(CLIPPED)
        page.zoom(1)
        assert not problems, "at %d %%: %s" % (100 * factor, problems)


def tab_round(page, most):
    """The names that Tab goes through, up to the first again; cells of tables left out."""
    active = "const at = document.activeElement; return [at.closest('[data-vx]') ? " \
             "at.closest('[data-vx]').dataset.vx : at.tagName, Boolean(at.closest('td'))]"
    names = []
    for _ in range(most):
        name, in_cell = page.driver.execute_script(active)
        if names and name == names[0]:
            return names
        if not in_cell:
            names.append(name)
        page.keys(Keys.TAB)
    raise AssertionError("Tab finds no end: %s" % names)


def check_tab_order(page, form):
    there = placed(form)
    wanted = [each["name"] for each in form["components"]
              if each["kind"] in STOPS and each["name"] in there and each["visible"] and
              (each["enabled"] or each["kind"] == "Table")]
    found = tab_round(page, 400)
    assert found == wanted, "Tab goes %s, not %s" % (found, wanted)


def check_dialog(page, command):
    page.step("~ Command `%s`" % command)
    assert page.waiting() == "dialog", "%s opens no dialog but %s" % (command, page.waiting())
    form = page.get("/dialog")
    assert page.find(".form-window.dialog .form-title .text").text == form["title"]
    there = placed(form)
    for component in form["components"]:
        if component["name"] in there:
            compare(page, component)
    check_room(page)
    check_tab_order(page, form)
    default = [each.get_attribute("data-vx")
               for each in page.driver.find_elements(By.CSS_SELECTOR, ".form-body .default")]
    assert default == [form["defaultButton"]] or not default and not form["defaultButton"]
    check_escape(page, form)
    page.close_all()


def check_escape(page, form):
    before = page.recording()
    page.keys(Keys.ESCAPE)
    page.settle()
    said = page.recording()[len(before):]
    assert said == (["~ Close `%s`" % form["name"]] if form["closes"] else []), said
    if not form["closes"]:
        page.press(form["defaultButton"])


def check_every_dialog(page):
    for model, commands in DIALOGS.items():
        page.step("@ open " + model)
        for command in commands:
            try:
                check_dialog(page, command)
            except Exception as error:
                raise AssertionError("%s: %s" % (command, error)) from error


# --- What the user does -----------------------------------------------------------------------

def check_a_button_waits_for_the_text(page):
    page.step("~ Command `VxRelations`")
    before = len(page.recording())
    page.part("RelTxtarea").send_keys("试验 = 1\n路径 = \"a\\b\"")
    assert len(page.recording()) == before, "a line for each key"
    page.press("AddRels")
    assert page.waiting() == "box"
    assert page.recording()[before:] == [
        '~ Input `Relations` `RelTxtarea` `试验 = 1\\n路径 = "a\\\\b"`',
        "~ Activate `Relations` `AddRels`"], page.recording()[before:]
    page.keys(Keys.ENTER)
    assert page.waiting() == "dialog", "Enter answers the box"
    facts = page.get("/model")
    assert facts["relations"][-2:] == ["试验 = 1", '路径 = "a\\b"'], facts["relations"]
    page.close_all()


def check_enter_presses_the_default_button(page):
    page.step("~ Command `VxRelations`")
    before = len(page.recording())
    page.part("RelTxtarea").send_keys("a", Keys.ENTER)
    assert page.waiting() == "dialog", "a new line in a text of several lines"
    page.part("InputKeyWords").send_keys("bolt", Keys.ENTER)
    assert page.waiting() is None, "its default button closes it"
    assert page.recording()[before:] == ["~ Input `Relations` `RelTxtarea` `a\\n`",
                                         "~ Input `Relations` `InputKeyWords` `bolt`", "@ enter"]


def check_marks_and_menus(page):
    page.step("~ Command `VxBom`")
    before = len(page.recording())
    page.find('[data-vx="BomRadio"] input[value="SumBom"]').send_keys(Keys.ARROW_RIGHT)
    page.settle()
    menu = page.part("LevelOption")
    assert menu.is_enabled(), "the command lets go of the levels"
    menu.send_keys("2")
    page.keys(Keys.TAB)
    page.settle()
    assert page.recording()[before:] == ["~ Select `VxBom` `BomRadio` 1 `LevelBom`",
                                         "~ Select `VxBom` `LevelOption` 1 `2`"]
    page.close_all()
    page.step("~ Command `VxExport`")
    before = len(page.recording())
    check = page.driver.find_element(By.CSS_SELECTOR, ".form-window [data-kind=CheckButton]")
    was = check.find_element(By.TAG_NAME, "input").is_selected()
    check.click()
    page.settle()
    assert page.recording()[before:] == [
        "~ Activate `VxExport` `%s` %d" % (check.get_attribute("data-vx"), not was)]
    page.close_all()


def check_rows_are_selected(page):
    page.step("~ Command `VxExport`")
    before = len(page.recording())
    row = lambda name: page.find('.vx-table tr[data-row="%s"] td' % name)
    row(2).click()
    ActionChains(page.driver).key_down(Keys.CONTROL).click(row(5)).key_up(Keys.CONTROL).perform()
    ActionChains(page.driver).key_down(Keys.SHIFT).click(row(3)).key_up(Keys.SHIFT).perform()
    page.settle()
    assert page.recording()[before:] == [
        "~ Select `VxExport` `drw_list` 2 `2` `num`",
        "~ Select `VxExport` `drw_list` 4 `2` `num` `5` `num`",
        "~ Select `VxExport` `drw_list` 6 `3` `num` `4` `num` `5` `num`"], page.recording()[before:]
    table = next(each for each in page.get("/dialog")["components"] if each["name"] == "drw_list")
    assert table["selected"] == ["3", "4", "5"]
    page.close_all()


def check_a_double_click_is_one(page):
    page.step("~ Command `VxBom`")
    before = len(page.recording())
    cell = page.find('.vx-table tr[data-row="3"] td')
    ActionChains(page.driver).double_click(cell).perform()
    page.settle()
    assert page.recording()[before:] == [
        "~ Select `VxBom` `bom_list` 2 `3` `num`", "~ Activate `VxBom` `bom_list` 2 `3` `num`"], \
        page.recording()[before:]
    page.close_all()
    page.step("~ Command `VxRename`")
    before = len(page.recording())
    ActionChains(page.driver).double_click(
        page.find('.vx-table tr[data-row="4"] td')).perform()
    page.settle()
    assert page.recording()[before:] == [
        "~ Select `VxRename` `mdl_list` 2 `4` `num`", "~ Arm `VxRename` `mdl_list` 2 `4` `num`"], \
        "its second click picks nothing again: %s" % page.recording()[before:]
    page.close_all()


def check_cells_are_filled(page):
    page.step("~ Command `VxRename`")
    before = len(page.recording())
    cell = page.part("input3")
    cell.send_keys(Keys.CONTROL, "a")
    cell.send_keys("frame", Keys.ENTER)
    page.settle()
    page.keys("2")
    assert page.driver.execute_script("return document.activeElement.value") == "frame2", \
        "the caret stays where it is"
    page.find('.vx-table tr[data-row="5"] td').click()
    page.settle()
    assert page.recording()[before:] == [
        "~ Input `VxRename` `input3` `frame`", "~ Input `VxRename` `input3` `frame2`",
        "~ Select `VxRename` `mdl_list` 2 `5` `num`", "~ Arm `VxRename` `mdl_list` 2 `5` `num`"], \
        page.recording()[before:]
    page.close_all()


def check_a_box_is_answered_once(page):
    page.step("~ Command `VxRelations`")
    page.press("AddRels")
    before = len(page.recording())
    ActionChains(page.driver).double_click(page.find(".ask.box .default")).perform()
    page.settle()
    assert page.recording()[before:] == ["@ ok"], page.recording()[before:]
    page.close_all()


def check_a_file_is_chosen(page):
    page.step("~ Command `VxConfig`")
    page.press("SelA0Asm")
    assert page.waiting() == "prompt"
    page.find(".ask.file input").clear()
    page.find(".ask.file input").send_keys("nothing.drw", Keys.ENTER)
    assert page.waiting() == "prompt", "there is no such file"
    assert page.find(".ask.file input").get_attribute("value") == "nothing.drw", "to be mended"
    page.find(".ask.file input").clear()
    page.find(".ask.file input").send_keys("C:\\Work\\gearbox.drw", Keys.ENTER)
    assert page.waiting() == "dialog"
    assert page.part("A0Asmpath").get_attribute("value") == "C:\\Work\\gearbox.drw"
    page.press("SelA0Asm")
    page.keys(Keys.ESCAPE)
    assert page.waiting() == "dialog", "Escape leaves the file dialog only"
    page.close_all()


def check_a_file_is_chosen_from_the_list(page):
    page.step("@ open gearbox.drw")
    page.step("~ Command `VxFrmReplace`")
    page.press("VxFrmReplaceAct")
    before = len(page.recording())
    file = page.find(".ask.file option")
    name = file.text
    file.click()
    assert page.find(".ask.file input").get_attribute("value") == name
    ActionChains(page.driver).double_click(file).perform()
    page.settle()
    assert page.recording()[before:] == ['@ answer "%s"' % name], page.recording()[before:]
    page.close_all()


def check_a_popup_is_used(page):
    before = len(page.recording())
    # By its place, since the tree makes its rows anew.
    x, y = page.driver.execute_script(
        "const box = document.querySelector('#tree [data-path=base_plate]')"
        ".getBoundingClientRect(); return [Math.round(box.left) + 40, Math.round(box.top) + 8]")
    page.mouse(x, y).context_click().perform()
    page.until("document.querySelector('.form-popup')")
    page.settle()
    page.find('.form-popup [data-entry="隐藏"]').click()
    page.settle()
    assert page.recording()[before:] == ['@ select "base_plate"', "@ right-click",
                                         '@ choose "隐藏"'], page.recording()[before:]
    assert page.get("/tree")["rows"][1].get("hidden"), page.get("/tree")["rows"][1]
    assert not page.driver.find_elements(By.CSS_SELECTOR, ".form-popup")


def check_a_backtick_is_told(page):
    page.step("~ Command `VxRelations`")
    before = len(page.recording())
    page.part("InputKeyWords").send_keys("a`b")
    page.press("AddRels")
    assert page.recording()[before:] == [], "nothing is done with half of what was typed"
    assert "`" in page.find("#notice").text
    assert page.part("InputKeyWords").get_attribute("value") == "a`b"
    page.close_all()


def check_a_dialog_is_moved(page):
    page.step("~ Command `VxConfig`")
    window = lambda: page.driver.execute_script(
        "const box = document.querySelector('.form-window').getBoundingClientRect();"
        "return [box.left, box.top]")
    left, top = window()
    title = page.find(".form-title .text")
    ActionChains(page.driver).drag_and_drop_by_offset(title, -60, 25).perform()
    assert window() == [left - 60, top + 25], (left, top, window())
    ActionChains(page.driver).drag_and_drop_by_offset(title, -500, 0).perform()
    assert window()[0] >= 0, "it stays in sight"
    page.close_all()


def check_a_long_table(simhost):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([simhost, "generate", "--out", folder, "--occurrences", "3000",
                        "--models", "2500"], check=True, stdout=subprocess.DEVNULL)
        with Page(simhost, "--project", folder) as page:
            top = page.driver.execute_script("return window.vx.connection.state.openable")
            page.step("@ open " + next(each for each in top if each.endswith(".asm")))
            page.step("~ Command `VxBom`")
            scroll_through(page)


def scroll_through(page):
    form = page.get("/dialog")
    table = next(each for each in form["components"] if each["kind"] == "Table")
    count = table["first"]["count"]
    assert count > 2000, count
    for at in (count, count // 2, 0, count):
        page.driver.execute_script(
            "document.querySelector('.vx-table').scrollTop = arguments[0]", (at - 1) * 24)
        at = min(max(at, 1), count)
        wanted = page.get("/rows?dialog=%s&component=%s&from=%d&count=1"
                          % (form["name"], table["name"], at - 1))["rows"][0]
        row = "document.querySelector('.vx-table tr[data-row=\"%s\"]')" % wanted["name"]
        page.until(row)
        cells = page.run("return [...%s.cells].map(cell => cell.textContent);" % row)
        assert cells == [each.get("text", "") for each in wanted["cells"]], cells
        drawn = len(page.driver.find_elements(By.CSS_SELECTOR, ".vx-table tbody tr"))
        assert drawn < 60, "%d rows are elements" % drawn


CHECKS = [
    check_every_dialog,
    check_a_button_waits_for_the_text,
    check_enter_presses_the_default_button,
    check_marks_and_menus,
    check_rows_are_selected,
    check_a_double_click_is_one,
    check_cells_are_filled,
    check_a_box_is_answered_once,
    check_a_file_is_chosen,
    check_a_file_is_chosen_from_the_list,
    check_a_popup_is_used,
    check_a_backtick_is_told,
    check_a_dialog_is_moved,
    *ask_checks.CHECKS,
]
# With a workbench of their own.
ALONE = [*ask_checks.ALONE, check_a_long_table]


if __name__ == "__main__":
    run_checks(CHECKS, ALONE)
