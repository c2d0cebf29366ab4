#!/usr/bin/env python3
"""Formats and drawing templates of the sample project, by their sizes.

    tools/formats.py            write samples/gearbox/图框/ and samples/gearbox/工程图模板/
    tools/formats.py --check    compare, write nothing; the exit status is 1 if a file differs

Formats have the border of the national standard (a wider edge for the binding on the left) and a
title block of 180 x 56 in the lower right corner, put together from several tables. Templates have
one sheet with its format and views without a model, each with the room that it may take.
"""

import argparse
import sys
from pathlib import Path

HOME = Path(__file__).resolve().parent.parent / "samples" / "gearbox"
BINDING = 25
COMPANY = "岚枢示例"
# Width and height, and the edge that is not bound.
SIZES = {"A0": (1189, 841, 10), "A1": (841, 594, 10), "A2": (594, 420, 10),
         "A3": (420, 297, 5), "A4": (210, 297, 5), "A4H": (297, 210, 5)}
TITLE_WIDE, TITLE_HIGH = 180, 56


def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".")


def numbers(values):
    return "[" + ", ".join(number(value) for value in values) + "]"


def line(points, width):
    return (f"[[sheet.line]]\npoints = {numbers(points)}\n"
            + ("" if width == 0.25 else f"width = {number(width)}\n"))


def box(left, low, right, top, width):
    return line([left, low, right, low, right, top, left, top, left, low], width)


def border(wide, high, edge):
    """The sheet's edge, the border, and a mark in the middle of each of its sides."""
    left, low, right, top = BINDING, edge, wide - edge, high - edge
    text = box(0, 0, wide, high, 0.25) + box(left, low, right, top, 0.7)
    for points in ([0, high / 2, left + 5, high / 2], [wide, high / 2, right - 5, high / 2],
                   [wide / 2, 0, wide / 2, low + 5], [wide / 2, high, wide / 2, top - 5]):
        text += line(points, 0.5)
    return text


def table(number_, left, top, columns, heights, cells, text_height=3.5, sheet=1, rest=""):
    rows = ", ".join("[" + ", ".join(f'"{cell}"' for cell in row) + "]" for row in cells)
    return (f"\n[[table]]\nid = {number_}\nsheet = {sheet}\nat = {numbers([left, top])}\n"
            f"columns = {numbers(columns)}\nheights = {numbers(heights)}\ncells = [{rows}]\n"
            + ("" if text_height == 3.5 else f"text_height = {number(text_height)}\n") + rest)


def title_block(wide, edge, company, sheet=1, rest=""):
    """Changes and signatures on the left, material and scale in the middle, names on the right. On
    sheets of drawings there are lines more, the same for each table."""
    tables = [
        (0, 0, [16, 24, 20, 20], [8] * 7,
         [["标记", "处数", "更改文件号", "日期"], [], [], ["设计", "", "日期", ""],
          ["校核", "", "日期", ""], ["审核", "", "日期", ""], ["批准", "", "日期", ""]]),
        (80, 0, [50], [28], [["&材料"]], 5),
        (80, 28, [12.5] * 4, [8, 10],
         [["图幅", "重量", "比例", "单位"], ["&format", "&重量", "&scale", "mm"]]),
        (80, 46, [25, 25], [10], [["共 &total_sheets 张", "第 &current_sheet 张"]]),
        (130, 0, [50], [20, 18, 18], [["&名称"], ["&代号"], [company]], 5)]
    left, top = wide - edge - TITLE_WIDE, edge + TITLE_HIGH
    return "".join(
        table(len(tables) * (sheet - 1) + number_, left + x, top - y, *more, sheet=sheet, rest=rest)
        for number_, (x, y, *more) in enumerate(tables, 1))


def format_text(size, company, note):
    wide, high, edge = SIZES[size]
    return (f"# {note}\n# Written by tools/formats.py.\n[model]\ntype = \"format\"\n\n"
            f"[[sheet]]\nsize = \"{size}\"\n" + border(wide, high, edge)
            + title_block(wide, edge, company))


def views(size):
    """Where the views are in the border, and the room that each may take, as parts of it: main
    view, view from the left, view from above."""
    if size == "A4":
        return (0.36, 0.77, 0.60, 0.30), (0.84, 0.77, 0.28, 0.30), (0.36, 0.42, 0.60, 0.28)
    if size == "A4H":
        return (0.32, 0.64, 0.56, 0.60), (0.80, 0.64, 0.32, 0.60), None
    return (0.28, 0.70, 0.48, 0.46), (0.77, 0.70, 0.38, 0.46), (0.28, 0.24, 0.48, 0.36)


def view(number_, size, place, rest):
    wide, high, edge = SIZES[size]
    across, up = wide - BINDING - edge, high - 2 * edge
    x, y, room_wide, room_high = place
    return (f"\n[[view]]\nid = {number_}\n" + rest
            + f"at = {numbers([BINDING + x * across, edge + y * up])}\n"
            + ('sheet = 1\nturn = TURN\n' if number_ == 1 else "")
            + f'style = "no_hidden"\nroom = {numbers([room_wide * across, room_high * up])}\n')


def template_text(size, kind):
    """Turned parts have their axis along z and are drawn lying; assemblies are seen from the
    front."""
    main, left, above = views(size)
    text = (f"# {'组件' if kind == 'asm' else '零件'}工程图模板 {size}\n"
            "# Written by tools/formats.py.\n"
            "[model]\ntype = \"drawing\"\ntitle = \"工程图模板\"\n\n"
            f"[[sheet]]\nsize = \"{size}\"\nformat = \"{size.lower()}.frm\"\n\n"
            "[drawing]\nprojection = \"first-angle\"\n")
    text += view(1, size, main, 'model = ""\n').replace(
        "TURN", "[0, 90, 0]" if kind == "prt" else "[-90, 0, 0]")
    text += view(2, size, (left[0], main[1], *left[2:]), 'parent = 1\nside = "right"\n')
    if above:
        text += view(3, size, above, 'parent = 1\nside = "below"\n')
    return text


def files():
    wanted = {}
    for size in SIZES:
        wanted[f"图框/{size.lower()}.frm.1"] = format_text(size, COMPANY, f"图框 {size}")
        for kind in ("asm", "prt"):
            wanted[f"工程图模板/{size.lower()}_{kind}.drw.1"] = template_text(size, kind)
    # What a company changes to: in its third version, and kept elsewhere.
    wanted["图框/新图框/a3_new.frm.3"] = format_text("A3", "岚枢机械", "新图框 A3")
    return {HOME / name: text.encode("utf-8") for name, text in wanted.items()}


def main():
    parser = argparse.ArgumentParser(description="Writes the sample's formats and templates.")
    parser.add_argument("--check", action="store_true", help="compare, write nothing")
    options = parser.parse_args()
    wanted = files()
    if not options.check:
        for path, data in wanted.items():
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        print(f"wrote {len(wanted)} files below {HOME}")
        return 0
    found = {path for folder in ("图框", "工程图模板") for path in (HOME / folder).rglob("*")
             if path.is_file()}
    wrong = [path for path in sorted(wanted.keys() | found)
             if not path.is_file() or path.read_bytes() != wanted.get(path)]
    for path in wrong:
        print(f"{path}: differs, is missing or is too many", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
