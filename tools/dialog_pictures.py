#!/usr/bin/env python3
"""Makes the pictures of the dialogs that tell about the plug-in: PNG files beside the resources.

    AboutVx.png     a block with a bore, seen from above a corner
    VxQQGroup.png   two speech bubbles

    tools/dialog_pictures.py [--check]

They are drawn here, so that no drawing library is needed and they come out the same everywhere.
--check only says whether the files are up to date.
"""
import argparse
import struct
import sys
import zlib
from pathlib import Path

SIZE = 96    # pixels, both ways
SAMPLES = 4  # for each pixel, both ways: edges are smooth
FOLDER = Path(__file__).resolve().parent.parent / "text/resource"


def polygon(*corners):
    """Whether a point lies inside a convex polygon whose corners go round clockwise on screen."""
    sides = list(zip(corners, corners[1:] + corners[:1]))

    def inside(x, y):
        return all((bx - ax) * (y - ay) >= (by - ay) * (x - ax) for (ax, ay), (bx, by) in sides)
    return inside


def ellipse(x0, y0, across, down):
    return lambda x, y: ((x - x0) / across) ** 2 + ((y - y0) / down) ** 2 <= 1


def either(*shapes):
    return lambda x, y: any(shape(x, y) for shape in shapes)


def both(*shapes):
    return lambda x, y: all(shape(x, y) for shape in shapes)


def bubble(left, top, right, bottom, tail):
    """A rounded box with a tail at its lower edge."""
    radius = 12
    round_ends = [ellipse(x, y, radius, radius) for x in (left + radius, right - radius)
                  for y in (top + radius, bottom - radius)]
    wide = polygon((left, top + radius), (right, top + radius), (right, bottom - radius),
                   (left, bottom - radius))
    high = polygon((left + radius, top), (right - radius, top), (right - radius, bottom),
                   (left + radius, bottom))
    return either(wide, high, polygon(*tail), *round_ends)


# A picture is shapes with their colours; the later ones cover the earlier.
TOP, LEFT, RIGHT, DARK = (150, 190, 230), (70, 120, 180), (40, 85, 140), (25, 50, 85)
GREEN, BLUE, WHITE = (90, 170, 110), (70, 120, 180), (255, 255, 255)
BORE = ellipse(48, 28, 21, 11)
PICTURES = {
    "AboutVx.png": [
        (polygon((48, 4), (90, 28), (48, 52), (6, 28)), TOP),
        (polygon((6, 28), (48, 52), (48, 92), (6, 68)), LEFT),
        (polygon((90, 28), (90, 68), (48, 92), (48, 52)), RIGHT),
        (BORE, DARK),
        (both(BORE, ellipse(48, 34, 21, 11)), LEFT),
    ],
    "VxQQGroup.png": [
        (bubble(30, 8, 92, 52, ((70, 48), (84, 48), (86, 64))), GREEN),
        (bubble(4, 32, 66, 76, ((12, 72), (28, 72), (10, 90))), BLUE),
        *((ellipse(x, 54, 4, 4), WHITE) for x in (20, 35, 50)),
    ],
}


def pixel(shapes, column, row):
    """Its colour and how much of it is covered, each 0 to 255."""
    red = green = blue = covered = 0
    for i in range(SAMPLES * SAMPLES):
        x = column + (i % SAMPLES + 0.5) / SAMPLES
        y = row + (i // SAMPLES + 0.5) / SAMPLES
        colour = next((colour for shape, colour in reversed(shapes) if shape(x, y)), None)
        if colour:
            red, green, blue = red + colour[0], green + colour[1], blue + colour[2]
            covered += 1
    if not covered:
        return bytes(4)
    return bytes([red // covered, green // covered, blue // covered,
                  covered * 255 // (SAMPLES * SAMPLES)])


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(shapes):
    rows = b"".join(b"\0" + b"".join(pixel(shapes, column, row) for column in range(SIZE))
                    for row in range(SIZE))
    head = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows, 9))
            + chunk(b"IEND", b""))


def unpacked(data):
    """The rows of such a file: compressed bytes differ between versions of the library."""
    at = data.find(b"IDAT")
    length = struct.unpack(">I", data[at - 4:at])[0]
    return data[:at - 4], zlib.decompress(data[at + 4:at + 4 + length])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="write nothing")
    check = parser.parse_args().check
    for name, shapes in PICTURES.items():
        file = FOLDER / name
        if not check:
            file.write_bytes(png(shapes))
        elif not file.is_file() or unpacked(file.read_bytes()) != unpacked(png(shapes)):
            sys.exit(f"{name} is not up to date: run tools/dialog_pictures.py")


if __name__ == "__main__":
    main()
