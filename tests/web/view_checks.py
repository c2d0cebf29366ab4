#!/usr/bin/python3
"""The 3-D view of the workbench in a real browser: colours, hiding, clicks and turning, by pixels
and paths. Runs alone; each check takes a page on which the gearbox is open."""
import colorsys
import json

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

from form_page import run_checks
from view_page import ViewPage


def check_every_part_has_its_colour(page):
    page.step("~ Command `BatchColor`")
    page.leave_view()
    rows = {row["path"]: row for row in page.get("/tree")["rows"]}
    compared = 0
    for path, x, y in page.spots(12):
        code = rows[path]["colour"]
        wanted = [int(code[at:at + 2], 16) / 255 for at in (1, 3, 5)]
        red, green, blue, opacity = page.colour(x, y)
        assert opacity == 255, f"{path} is painted: {opacity}"
        hue, saturation, _ = colorsys.rgb_to_hsv(*wanted)
        seen = colorsys.rgb_to_hsv(red / 255, green / 255, blue / 255)
        if saturation < 0.3 or seen[1] < 0.15:
            continue  # too grey for a hue, or where the light is mirrored
        off = abs(seen[0] - hue)
        assert min(off, 1 - off) < 0.05, f"{path}: {code}, but {red} {green} {blue}"
        compared += 1
    assert compared >= 4, "enough colours were compared"


def check_a_click_selects(page):
    (one, x1, y1), (other, x2, y2) = page.spots(2)
    page.mouse(x1, y1).click().perform()
    page.until("vx.connection.state.selection.length === 1")
    page.settle()
    assert page.selection() == [one], page.selection()
    page.mouse(x2, y2).key_down(Keys.CONTROL).click().key_up(Keys.CONTROL).perform()
    page.until("vx.connection.state.selection.length === 2")
    page.settle()
    assert page.selection() == [one, other], page.selection()
    page.leave_view()
    _, green, blue, _ = page.colour(x2, y2)
    page.step("@ clear selection")
    _, usual_green, usual_blue, _ = page.colour(x2, y2)
    assert (green, blue) != (usual_green, usual_blue), "what is selected is seen"
    page.step(f'@ select "{one}"')
    box = page.give("document.querySelector('#view canvas').getBoundingClientRect()")
    page.mouse(box["x"] + 20, box["y"] + box["height"] / 2).click().perform()
    page.until("vx.connection.state.selection.length === 0")


def check_ctrl_sends_only_what_was_clicked(page):
    (one, x1, y1), (other, x2, y2) = page.spots(2)
    page.step(f'@ select "{one}"')
    for _ in range(2):
        page.mouse(x2, y2).key_down(Keys.CONTROL).click().key_up(Keys.CONTROL).perform()
    page.until("vx.connection.state.selection.length === 1 && "
               f"!vx.connection.state.selection.includes({json.dumps(other)})")
    page.settle()
    assert page.recording()[-2:] == [f'@ also "{other}"', f'@ deselect "{other}"'], "by its path"
    # Beside the model nothing is let go of.
    box = page.give("document.querySelector('#view canvas').getBoundingClientRect()")
    page.mouse(box["x"] + 20, box["y"] + box["height"] / 2)\
        .key_down(Keys.CONTROL).click().key_up(Keys.CONTROL).perform()
    row = page.driver.find_element("css selector", f'#tree [data-path="{one}"]')
    ActionChains(page.driver).key_down(Keys.CONTROL).click(row).key_up(Keys.CONTROL).perform()
    page.until("vx.connection.state.selection.length === 0")
    page.settle()
    assert page.recording()[-1] == f'@ deselect "{one}"', page.recording()[-3:]


def check_turning_reaches_the_host(page):
    page.settle()
    turns = sum(line.startswith("@ turn") for line in page.recording())
    before = page.give("vxView.view")
    (_, x, y), = page.spots(1)
    frames = page.give("vxView.frames")
    actions = page.mouse(x, y).click_and_hold()
    for step in range(1, 9):
        page.at(actions, x + 6 * step, y + 3 * step)
    actions.release().perform()
    page.until(f"vxView.frames > {frames}")
    page.settle()
    view = page.give("vxView.view")
    assert view["axes"] != before["axes"], "it has turned"
    lines = [line for line in page.recording() if line.startswith("@ turn")]
    assert len(lines) == turns + 1, f"one line for one turn: {lines}"
    matrix = page.scene()["screen"]["matrix"]
    for axis in range(3):
        for at in range(3):
            off = matrix[axis][at] - view["scale"] * view["axes"][axis][at]
            assert abs(off) < 1e-9, f"the host has the view that is seen: {matrix} {view}"
    page.leave_view()
    page.step("~ Command `VxNormalView`")
    straight = page.give("vxView.view")["axes"]
    assert all(min(abs(each), abs(abs(each) - 1)) < 1e-9 for axis in straight for each in axis), \
        f"a view that the host turns is seen: {straight}"


def check_a_pick_is_answered_by_click_and_by_rectangle(page):
    page.give("document.querySelector('[data-view=isometric]').click()")
    page.settle()
    page.step("~ Command `BoxSel`")
    page.until("vx.connection.state.wait && vx.connection.state.wait.kind === 'pick'")
    page.settle()
    (path, x, y), = page.spots(1)
    page.mouse(x, y).click().perform()
    page.until("!vx.connection.state.wait")
    assert page.recording()[-1] == f'@ pick "{path}"', page.recording()[-1]
    page.step("~ Command `BoxSel`")
    box = page.give("document.querySelector('#view canvas').getBoundingClientRect()")
    left, top = box["x"] + 3, box["y"] + 60
    actions = page.mouse(left, top).click_and_hold()
    page.at(actions, left + 50, top + 50)
    page.at(actions, box["x"] + box["width"] - 3, box["y"] + box["height"] - 3)
    actions.release().perform()
    page.until("!vx.connection.state.wait")
    assert page.recording()[-1].startswith("@ pick box "), page.recording()[-1]
    parts = set(page.give("vxView.paths"))
    assert set(page.selection()) == parts, "all that is seen lies in the box"
    page.step("@ clear selection", "~ Command `VxBoxSelSur`")
    page.settle()
    page.mouse(x, y).click().perform()
    page.until("!vx.connection.state.wait")
    assert page.recording()[-1].startswith(f'@ pick "{path}/surface#'), page.recording()[-1]
    page.step("@ clear selection")


def check_a_rectangle_selects_by_one_short_line(page):
    page.step("@ clear selection")
    box = page.give("document.querySelector('#view canvas').getBoundingClientRect()")
    parts = set(page.give("vxView.paths"))
    left, top = box["x"] + 3, box["y"] + 60
    right, bottom = box["x"] + box["width"] - 3, box["y"] + box["height"] - 3
    before = len(page.recording())
    actions = page.mouse(left, top).key_down(Keys.SHIFT).click_and_hold()
    page.at(actions, left + 50, top + 50)
    page.at(actions, right, bottom)
    actions.release().key_up(Keys.SHIFT).perform()
    page.until("vx.connection.state.selection.length > 0")
    page.settle()
    assert set(page.selection()) == parts, "all that is seen lies in the rectangle"
    line, = page.recording()[before:]
    assert line.startswith("@ rectangle "), line
    actions = page.mouse(left, top).key_down(Keys.SHIFT).click_and_hold()
    page.at(actions, left + 10, top + 10)
    actions.release().key_up(Keys.SHIFT).perform()
    page.until("vx.connection.state.selection.length === 0")
    page.settle()


def check_what_is_hidden_is_not_seen(page):
    (path, x, y), *others = page.spots(6)
    page.step(f'@ select "{path}"', "~ Command `VxIsolate`", "@ clear selection")
    page.leave_view()
    assert page.give("vxView.paths") == [path]
    assert page.colour(x, y)[3] == 255
    for other, at_x, at_y in others:
        if page.give("vxView.pathAt(arguments[0], arguments[1])", at_x, at_y) is None:
            assert page.colour(at_x, at_y)[3] == 0, f"{other} is hidden"
    page.step("~ Command `VxShowAllComp`")
    assert len(page.give("vxView.paths")) > 100
    assert page.colour(*others[0][1:])[3] == 255, "it is back"


CHECKS = [check_every_part_has_its_colour, check_a_click_selects,
          check_ctrl_sends_only_what_was_clicked, check_turning_reaches_the_host,
          check_a_pick_is_answered_by_click_and_by_rectangle,
          check_a_rectangle_selects_by_one_short_line, check_what_is_hidden_is_not_seen]


if __name__ == "__main__":
    run_checks(CHECKS, kind=ViewPage)
