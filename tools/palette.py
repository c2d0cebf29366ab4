#!/usr/bin/python3
"""Writes the two colour palettes from which batch colouring draws its colours.

VxUGColor.ini    217 colours: the 216 of the colour cube with six levels for each of
                 red, green and blue (blue runs fastest), and one neutral grey.
VxOptiColor.ini  201 colours that are easy to tell apart. They are chosen in CIELAB (D65):
                 from a grid of colours that a screen can show, without the very dark and the
                 very light ones, each next colour is the one farthest from all chosen so far.
                 They are then put in an order in which neighbouring sections differ strongly
                 too; the last section counts as a neighbour of the first.

Both files are ASCII with CRLF line ends. The same colours come out at every run.

    tools/palette.py            write both files into VXconfig/
    tools/palette.py --check    compare the files on disk and measure the distances on them;
                                exit status 1 when anything differs or is too close
"""

import argparse
import math
import re
import sys
from pathlib import Path

CUBE_LEVELS = (0, 51, 102, 153, 204, 255)
NEUTRAL_GREY = (128, 128, 128)
UG_COUNT = 217

OPTI_COUNT = 201
GRID_STEP = 15             # of 0..255, so 18 levels for each of red, green and blue
LEAST_LIGHTNESS = 25.0     # darker colours look black on a shaded model
GREATEST_LIGHTNESS = 93.0  # lighter ones vanish against a white background

# What the second palette guarantees, as Delta E (CIE 1976, distance in CIELAB).
LEAST_DISTANCE = 14.0      # between any two colours
LEAST_NEIGHBOUR = 100.0    # between the colours of neighbouring sections

FOLDER = Path(__file__).resolve().parent.parent / "VXconfig"
UG_FILE = "VxUGColor.ini"
OPTI_FILE = "VxOptiColor.ini"


def to_lab(colour):
    """Gives L, a, b of an sRGB colour with components 0 to 255."""
    linear = []
    for part in colour:
        c = part / 255.0
        linear.append(c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4)
    r, g, b = linear
    x = (0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / 0.95047
    y = 0.2126729 * r + 0.7151522 * g + 0.0721750 * b
    z = (0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / 1.08883

    def curve(t):
        return t ** (1.0 / 3.0) if t > 216.0 / 24389.0 else (24389.0 / 27.0 * t + 16.0) / 116.0

    fx, fy, fz = curve(x), curve(y), curve(z)
    return (116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz))


def cube_palette():
    """Gives the 217 colours of the first palette."""
    cube = [(r, g, b) for r in CUBE_LEVELS for g in CUBE_LEVELS for b in CUBE_LEVELS]
    return cube + [NEUTRAL_GREY]


def spread_colours():
    """Gives the 201 colours of the second palette, in the order of choice."""
    levels = range(0, 256, GRID_STEP)
    grid = [(r, g, b) for r in levels for g in levels for b in levels]
    labs = {c: to_lab(c) for c in grid}
    free = [c for c in grid if LEAST_LIGHTNESS <= labs[c][0] <= GREATEST_LIGHTNESS]
    # The first colour has the strongest chroma; a tie goes to the first in the grid.
    chosen = [max(free, key=lambda c: math.hypot(labs[c][1], labs[c][2]))]
    nearest = [math.inf] * len(free)
    while len(chosen) < OPTI_COUNT:
        last = labs[chosen[-1]]
        for i, colour in enumerate(free):
            nearest[i] = min(nearest[i], math.dist(last, labs[colour]))
        chosen.append(free[max(range(len(free)), key=nearest.__getitem__)])
    return chosen


def order_apart(colours):
    """Orders the colours in a ring whose closest neighbours are as far apart as it finds.

    Starts with the order of choice. Each step takes the closest pair of neighbours and reverses
    the stretch of the ring that gives the best pair of new neighbours (a 2-opt exchange), until
    no exchange makes the closest pair better.
    """
    labs = [to_lab(c) for c in colours]
    count = len(labs)
    apart = [[math.dist(p, q) for q in labs] for p in labs]
    ring = list(range(count))
    while True:
        gaps = [apart[ring[i]][ring[(i + 1) % count]] for i in range(count)]
        i = min(range(count), key=gaps.__getitem__)
        best, best_j = gaps[i], None
        for j in range(count):
            low, high = min(i, j), max(i, j)
            if high == low:
                continue
            after = min(apart[ring[low]][ring[high]],
                        apart[ring[low + 1]][ring[(high + 1) % count]])
            if after > best:
                best, best_j = after, j
        if best_j is None:
            return [colours[k] for k in ring]
        low, high = min(i, best_j), max(i, best_j)
        ring[low + 1:high + 1] = reversed(ring[low + 1:high + 1])


def file_bytes(colours):
    """Gives the INI file: one section for each colour, named by its number from 0."""
    sections = [f"[{i}]\r\nvalue={r}.{g}.{b}\r\n" for i, (r, g, b) in enumerate(colours)]
    return "".join(sections).encode("ascii")


def read_colours(data):
    """Gives the colours in an INI file's bytes, in the order of the file."""
    values = re.findall(rb"^value=(\d+)\.(\d+)\.(\d+)\r?$", data, re.MULTILINE)
    return [tuple(int(part) for part in value) for value in values]


def least_distances(colours):
    """Gives the least Delta E between any two colours, and between neighbours in the ring."""
    labs = [to_lab(c) for c in colours]
    pairs = (math.dist(p, q) for i, p in enumerate(labs) for q in labs[:i])
    return min(pairs), min(math.dist(p, labs[i - 1]) for i, p in enumerate(labs))


def check(wanted):
    """Compares the files on disk with the wanted bytes and measures them. Gives the faults."""
    faults = []
    for name, data in wanted.items():
        path = FOLDER / name
        on_disk = path.read_bytes() if path.exists() else b""
        if on_disk != data:
            faults.append(f"{name} differs from what this program writes")
        colours = read_colours(on_disk)
        count = UG_COUNT if name == UG_FILE else OPTI_COUNT
        if len(set(colours)) != count:
            faults.append(f"{name} holds {len(set(colours))} different colours, not {count}")
            continue
        any_two, neighbours = least_distances(colours)
        print(f"{name}: {count} colours, least Delta E between any two {any_two:.2f}, "
              f"between neighbours {neighbours:.2f}")
        if name == OPTI_FILE and any_two < LEAST_DISTANCE:
            faults.append(f"{name}: two colours are closer than {LEAST_DISTANCE}")
        if name == OPTI_FILE and neighbours < LEAST_NEIGHBOUR:
            faults.append(f"{name}: two neighbours are closer than {LEAST_NEIGHBOUR}")
    return faults


def main():
    parser = argparse.ArgumentParser(description="Writes the colour palettes.")
    parser.add_argument("--check", action="store_true", help="compare and measure, write nothing")
    options = parser.parse_args()
    wanted = {UG_FILE: file_bytes(cube_palette()),
              OPTI_FILE: file_bytes(order_apart(spread_colours()))}
    if options.check:
        faults = check(wanted)
        for fault in faults:
            print(fault, file=sys.stderr)
        return 1 if faults else 0
    FOLDER.mkdir(exist_ok=True)
    for name, data in wanted.items():
        (FOLDER / name).write_bytes(data)
        print(f"wrote {FOLDER / name}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
