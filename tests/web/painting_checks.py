#!/usr/bin/python3
"""How the 3-D view paints what one can look through, and the coarser pictures while the model is
turned, by pixels in a real browser: painting_checks.py SIMHOST."""
import os
import sys
import tempfile

from page_support import Bench, console_errors, open_page, step, wait_for

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


def give(page, script, *arguments):
    return page.execute_script("return " + script, *arguments)


def show(page, line):
    """Does a step, and waits until what comes of it is painted."""
    assert step(page, line), line
    wait_for(page, "return window.vxView && window.vxView.ready;", "the view is ready")


def place_of(page, path):
    """The middle of a component in pixels of the page, whatever is before it."""
    place = give(page, "vxView.project(arguments[0])", path)
    return place["x"], place["y"]


def colours(page, name, x, y):
    """Of the picture at rest (`colourAt`), or of the one while turned (`colourWhileTurned`)."""
    return give(page, f"vxView.{name}(arguments[0], arguments[1])", x, y)


def differ(one, other):
    return max(abs(a - b) for a, b in zip(one, other))


def check_the_nearer_pane_is_painted_over_the_farther(page):
    for turn, nearer, farther in (("0 0 0", 0, 1), ("0 180 0", 1, 0), ("0 0 90", 0, 1)):
        show(page, f"@ turn {turn}")
        seen = colours(page, "colourAt", *place_of(page, "red"))
        # Each of the two faces of a pane lets half of the light through: a quarter is left.
        ratio = seen[farther] / seen[nearer]
        assert 0.2 < ratio < 0.3, f"turned by {turn}: {seen}"
        assert seen[2] < 10, "neither pane is blue"


def check_one_sees_through_panes_while_turning(page):
    show(page, "@ turn 0 0 0")
    red, green, blue, opacity = colours(page, "colourWhileTurned", *place_of(page, "red"))
    assert red > 20 and green > 20 and blue < 10, "both panes are seen"
    assert opacity > 200, "four faces, each of which lets half of the light through"


def check_pictures_while_turning_have_the_colours_of_rest(page):
    show(page, "@ turn -60 0 30")
    show(page, "@ select 箱体组件/housing")
    compared = set()
    for path in give(page, "vxView.paths"):
        spot = give(page, "vxView.spot(arguments[0])", path)
        if not spot or ":" in path:
            continue
        x, y = round(spot["x"]), round(spot["y"])
        rest = colours(page, "colourAt", x, y)
        around = [colours(page, "colourAt", x + dx, y + dy) for dx in (-2, 2) for dy in (-2, 2)]
        if any(differ(rest, each) > 12 for each in around):
            continue  # an edge lies there, and coarse pictures have none
        turned = colours(page, "colourWhileTurned", x, y)
        # The light is worked out at points and between them, in numbers of eight bits.
        assert differ(rest, turned) <= 8, f"{path}: {rest} at rest, {turned} while turned"
        compared.add(path)
    # Also a selected part, and one that one can look through.
    assert {"motor_drive/防护罩", "箱体组件/housing"} <= compared, compared
    assert len(compared) >= 10, compared


def look(checks, top, *project):
    bench = Bench(sys.argv[1], *project)
    page = open_page(bench, size="2400,1500")
    try:
        show(page, f"@ open {top}")
        for check in checks:
            check(page)
            print("ok", check.__name__)
        errors = console_errors(page)
    finally:
        page.quit()
        bench.close()
    assert not errors, errors


def main():
    with tempfile.TemporaryDirectory() as folder:
        write_panes(folder)
        look([check_the_nearer_pane_is_painted_over_the_farther,
              check_one_sees_through_panes_while_turning], "panes.asm", "--project", folder)
    look([check_pictures_while_turning_have_the_colours_of_rest], "gearbox.asm")


if __name__ == "__main__":
    main()
