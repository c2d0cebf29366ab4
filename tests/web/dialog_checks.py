#!/usr/bin/python3
"""Checks of the workbench's dialogs in Chromium: one over the other, and made larger. Takes the
simhost program; without it the quick build's."""
import subprocess
import tempfile

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

from ask_checks import METHOD
from form_page import Page, run_checks

def boxes_of(page, selector):
    """Left, top, width and height of each element in pixels of the page."""
    return page.driver.execute_script(
        "return [...document.querySelectorAll(arguments[0])].map(each => {"
        "const box = each.getBoundingClientRect();"
        "return [box.left, box.top, box.width, box.height].map(Math.round); });", selector)


def box_of(page, selector):
    found = boxes_of(page, selector)
    assert len(found) == 1, (selector, found)
    return found[0]


def is_usable(page, selector):
    """Whether a click in the middle of an element would reach it."""
    return page.driver.execute_script(
        "const at = document.querySelector(arguments[0]), box = at.getBoundingClientRect();"
        "const hit = document.elementFromPoint(box.left + box.width / 2, box.top + box.height / 2);"
        "return at.contains(hit) && !at.closest('[inert]');", selector)


# --- One over the other -----------------------------------------------------------------------

def check_a_dialog_stays_in_sight_below_another(page):
    page.step("@ select 箱体组件/breather")
    page.step("~`rmb_popup` `PopupMenu`",
              "~ Command `ProCmdReplComp@PopupMenuGraphicWinStack`")
    place = box_of(page, '[data-form="gen_repl_dlg"]')
    page.find(METHOD % "Unrelated Component").click()
    page.settle()  # before that there is nothing to choose
    page.press("PB_NewComp")
    forms = page.driver.execute_script(
        "return [...document.querySelectorAll('.form-window')].map(each => each.dataset.form)")
    assert forms == ["gen_repl_dlg", "file_open"], forms
    assert box_of(page, '[data-form="gen_repl_dlg"]') == place, "the lower one stays where it was"
    left, top, _, _ = box_of(page, '[data-form="file_open"]')
    assert [left, top] == [place[0] + 32, place[1] + 32], "its title can be read"
    labels = page.driver.execute_script(
        "return [...document.querySelectorAll('.form-body button')].map(each => each.textContent)")
    assert len(labels) == 6 and all(labels), labels
    assert page.driver.execute_script(
        "return document.querySelector('[data-form=gen_repl_dlg] .form-body').inert")
    assert not is_usable(page, '[data-form="gen_repl_dlg"] [data-vx="DoneBtn"]')
    assert is_usable(page, '[data-form="file_open"] [data-vx="Cancel"]')
    assert page.driver.execute_script(
        "return document.activeElement.closest('.form-window').dataset.form") == "file_open"
    page.keys(Keys.ESCAPE)
    page.settle()
    assert len(boxes_of(page, ".form-window")) == 1, "Escape leaves the upper one only"
    assert is_usable(page, '[data-form="gen_repl_dlg"] [data-vx="DoneBtn"]')
    page.press("CancelBtn")
    assert page.waiting() is None


# --- Made larger ------------------------------------------------------------------------------

def drag_corner(page, right, down):
    corner = page.find(".form-corner")
    ActionChains(page.driver).drag_and_drop_by_offset(corner, right, down).perform()
    # The table is told of its new size before the page is painted again.
    page.run("for (let i = 0; i < 3; ++i) await new Promise(requestAnimationFrame);")
    page.settle()


def check_a_larger_dialog_shows_more_rows(page):
    page.step("~ Command `VxBom`")
    window, table = box_of(page, ".form-window"), box_of(page, ".vx-table")
    button = box_of(page, '.form-window [data-vx="Close"]')
    rows = len(boxes_of(page, ".vx-table tr[data-row]"))
    drag_corner(page, 100, 96)
    larger = box_of(page, ".form-window")
    assert larger == [window[0], window[1], window[2] + 100, window[3] + 96], larger
    assert box_of(page, ".vx-table")[2:] == [table[2] + 100, table[3] + 96], "all goes to the table"
    assert len(boxes_of(page, ".vx-table tr[data-row]")) == rows + 4, "of 24 pixels each"
    assert box_of(page, '.form-window [data-vx="Close"]')[3] == button[3], "no button grows"
    drag_corner(page, -300, -300)
    assert box_of(page, ".form-window") == window, "never smaller than it is by itself"
    assert box_of(page, ".vx-table") == table
    drag_corner(page, 30, 48)
    page.close_all()
    page.step("~ Command `VxBom`")
    assert box_of(page, ".form-window")[2:] == [window[2] + 30, window[3] + 48], "as it was left"
    ActionChains(page.driver).double_click(page.find(".form-corner")).perform()
    assert box_of(page, ".form-window")[2:] == window[2:], "as it is by itself"
    assert box_of(page, ".vx-table")[2:] == table[2:]
    page.close_all()


def check_a_larger_dialog_has_room_for_text(page):
    page.step("~ Command `VxRelations`")
    page.part("RelTxtarea").send_keys("a=1")
    window, text = box_of(page, ".form-window"), box_of(page, ".form-window textarea")
    others = '.form-window [data-vx]:not(textarea, .grows)'
    sizes = [box[3] for box in boxes_of(page, others)]
    drag_corner(page, 60, 90)
    assert box_of(page, ".form-window")[2:] == [window[2] + 60, window[3] + 90]
    assert box_of(page, ".form-window textarea")[2:] == [text[2] + 60, text[3] + 90]
    assert [box[3] for box in boxes_of(page, others)] == sizes, "nothing else is higher"
    assert page.part("RelTxtarea").get_attribute("value") == "a=1"
    assert page.driver.execute_script("return document.activeElement.dataset.vx") == "RelTxtarea"
    page.close_all()


def check_what_cannot_grow_has_no_corner(page):
    page.step("~ Command `AboutVx`")
    assert boxes_of(page, ".form-window") and not boxes_of(page, ".form-corner")
    page.press("OK")
    page.close_all()  # the box that follows


def check_rows_far_down_come_into_a_larger_table(simhost):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([simhost, "generate", "--out", folder, "--occurrences", "600",
                        "--models", "500"], check=True, stdout=subprocess.DEVNULL)
        with Page(simhost, "--project", folder) as page:
            page.step("@ open large.asm")
            page.step("~ Command `VxBom`")
            page.driver.execute_script("document.querySelector('.vx-table').scrollTop = 24 * 300")
            drag_corner(page, 0, 96)
            page.run("while (document.querySelector('.vx-table .coming')) "
                          "await new Promise(resolve => setTimeout(resolve, 20));")
            seen = page.driver.execute_script(
                "const box = document.querySelector('.vx-table').getBoundingClientRect();"
                "return [box.top + 40, box.bottom - 40].map(y => document.elementFromPoint("
                "box.left + 10, y).closest('tr').cells[0].textContent)")
            assert 300 <= int(seen[0]) < int(seen[1]) <= 330, seen


CHECKS = [
    check_a_dialog_stays_in_sight_below_another,
    check_a_larger_dialog_shows_more_rows,
    check_a_larger_dialog_has_room_for_text,
    check_what_cannot_grow_has_no_corner,
]


if __name__ == "__main__":
    run_checks(CHECKS, alone=[check_rows_far_down_come_into_a_larger_table])
