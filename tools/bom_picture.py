#!/usr/bin/env python3
"""Makes text/resource/VxQQ2.gif, the small picture of the bill of materials: a sheet with lines.

    tools/bom_picture.py [--check]

The picture is drawn here and written as GIF by hand, so that it needs no drawing library and comes
out the same everywhere. --check only says whether the file is up to date.
"""
import argparse
import struct
import sys
from pathlib import Path

WIDTH, HEIGHT = 48, 32
PALETTE = [(255, 255, 255), (70, 90, 120), (204, 255, 204), (200, 205, 215)]
FRAME, MARK, LINE = 1, 2, 3
FILE = Path(__file__).resolve().parent.parent / "text/resource/VxQQ2.gif"


def pixels():
    """A table of four rows and three columns; its head and one row are filled."""
    picture = [[0] * WIDTH for _ in range(HEIGHT)]
    for y in range(HEIGHT):
        for x in range(WIDTH):
            if x in (0, WIDTH - 1) or y in (0, HEIGHT - 1):
                picture[y][x] = FRAME
            elif y < 8:
                picture[y][x] = FRAME if 2 <= y <= 5 and x % 16 in range(4, 13) else LINE
            elif y % 8 == 0 or x in (10, 34):
                picture[y][x] = LINE
            elif 9 <= y < 16:
                picture[y][x] = MARK
            elif y % 8 == 4 and x % 4 and x not in range(8, 13) and x not in range(32, 37):
                picture[y][x] = FRAME
    return picture


def packed_codes(picture):
    """Codes of the picture's pixels, each as it is: a clear code comes before the table of the
    reader could grow, so every code has one width."""
    size = 2  # bits of a colour
    clear, end, width = 1 << size, (1 << size) + 1, size + 1
    codes, run = [clear], 0
    for value in (value for row in picture for value in row):
        if run == 2:  # one more and the reader's codes would be wider
            codes.append(clear)
            run = 0
        codes.append(value)
        run += 1
    codes.append(end)
    bits = sum(code << (i * width) for i, code in enumerate(codes))
    return bits.to_bytes((len(codes) * width + 7) // 8, "little")


def gif():
    colours = b"".join(bytes(colour) for colour in PALETTE)
    head = b"GIF89a" + struct.pack("<HHBBB", WIDTH, HEIGHT, 0x80 | (2 - 1), 0, 0) + colours
    image = b"," + struct.pack("<HHHHB", 0, 0, WIDTH, HEIGHT, 0) + bytes([2])
    data = packed_codes(pixels())
    blocks = b"".join(bytes([len(data[i:i + 255])]) + data[i:i + 255]
                      for i in range(0, len(data), 255))
    return head + image + blocks + b"\0;"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="write nothing")
    if not parser.parse_args().check:
        FILE.write_bytes(gif())
    elif not FILE.is_file() or FILE.read_bytes() != gif():
        sys.exit(f"{FILE.name} is not up to date: run tools/bom_picture.py")


if __name__ == "__main__":
    main()
