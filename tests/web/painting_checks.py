#!/usr/bin/python3
"""How the 3-D view paints what one can look through, and the coarser pictures while the model is
turned, by pixels in a real browser: painting_checks.py SIMHOST."""
import os
import tempfile

from form_page import run_checks
from view_page import ViewPage

PART = """[model]
type = "part"

[appearance]
color = {colour}
transparency = {transparency}

[[solid]]
id = 10
shape = "cylinder"
diameter = 100
length = 2
at = {at}
"""
# Two panes, one behind the other along z, and below them a disc that hides what is behind it.
PARTS = {
    "red": {"colour": [1.0, 0.0, 0.0], "transparency": 0.5, "at": [0, 0, 20]},
    "green": {"colour": [0.0, 1.0, 0.0], "transparency": 0.5, "at": [0, 0, -20]},
    "blue": {"colour": [0.0, 0.0, 1.0], "transparency": 0.0, "at": [0, -120, 0]},
}
COMPONENT = """
[[feature]]
id = {id}
type = 1000
model = "{name}.prt"
at = [0, 0, 0]
"""


def write_panes(folder):
    assembly = '[model]\ntype = "assembly"\n'
    for number, (name, values) in enumerate(PARTS.items(), 1):
        with open(os.path.join(folder, f"{name}.prt.1"), "w", encoding="utf-8") as part:
            part.write(PART.format(**values))
        assembly += COMPONENT.format(id=number, name=name)
    with open(os.path.join(folder, "panes.asm.1"), "w", encoding="utf-8") as top:
        top.write(assembly)


def place_of(page, path):
    """The middle of a component in pixels of the page, whatever is before it."""
    place = page.give("vxView.project(arguments[0])", path)
    return place["x"], place["y"]


def turned_colour(page, x, y):
    """Of the coarsest picture that is painted while the model is turned."""
    return page.give("vxView.colourWhileTurned(arguments[0], arguments[1])", x, y)


def differ(one, other):
    return max(abs(a - b) for a, b in zip(one, other))


def check_the_nearer_pane_is_painted_over_the_farther(page):
    for turn, nearer, farther in (("0 0 0", 0, 1), ("0 180 0", 1, 0), ("0 0 90", 0, 1)):
        page.step(f"@ turn {turn}")
        seen = page.colour(*place_of(page, "red"))
        # Each of the two faces of a pane lets half of the light through: a quarter is left.
        ratio = seen[farther] / seen[nearer]
        assert 0.2 < ratio < 0.3, f"turned by {turn}: {seen}"
        assert seen[2] < 10, "neither pane is blue"


def check_one_sees_through_panes_while_turning(page):
    page.step("@ turn 0 0 0")
    red, green, blue, opacity = turned_colour(page, *place_of(page, "red"))
    assert red > 20 and green > 20 and blue < 10, "both panes are seen"
    assert opacity > 200, "four faces, each of which lets half of the light through"


def check_pictures_while_turning_have_the_colours_of_rest(page):
    page.step("@ turn -60 0 30")
    selected, clear = "箱体组件/housing", "motor_drive/防护罩"
    page.step("@ select " + selected)
    compared = set()
    for path in [selected, clear, *page.give("vxView.paths")]:
        if len(compared) == 8:
            break
        spot = None if ":" in path else page.give("vxView.spot(arguments[0])", path)
        if not spot:
            continue
        x, y = round(spot["x"]), round(spot["y"])
        rest = page.colour(x, y)
        around = [page.colour(x + dx, y + dy) for dx in (-2, 2) for dy in (-2, 2)]
        if any(differ(rest, each) > 12 for each in around):
            continue  # an edge lies there, and coarse pictures have none
        turned = turned_colour(page, x, y)
        # The light is worked out at points and between them, in numbers of eight bits.
        assert differ(rest, turned) <= 8, f"{path}: {rest} at rest, {turned} while turned"
        compared.add(path)
    assert len(compared) == 8 and {selected, clear} <= compared, compared


def check_panes(simhost):
    with tempfile.TemporaryDirectory() as folder:
        write_panes(folder)
        with ViewPage(simhost, "--project", folder) as page:
            page.step("@ open panes.asm")
            check_the_nearer_pane_is_painted_over_the_farther(page)
            check_one_sees_through_panes_while_turning(page)


def check_pictures_while_turning(simhost):
    with ViewPage(simhost, size="2400,1500") as page:
        page.step("@ open gearbox.asm")
        check_pictures_while_turning_have_the_colours_of_rest(page)


if __name__ == "__main__":
    run_checks([], alone=[check_panes, check_pictures_while_turning])
