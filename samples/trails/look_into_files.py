#!/usr/bin/python3
"""Tells what stands in files for other programs, by reading their text and nothing else.

    look_into_files.py FOLDER
"""

import pathlib
import re
import sys


def step(text):
    """A STEP file: its schema, products, exact solids and placed components."""
    schema = re.search(r"FILE_SCHEMA\s*\(\s*\(\s*'(\w+)", text)
    if not schema:
        return "no STEP file: " + text.strip()[:60]
    count = lambda entity: len(re.findall(rf"\b{entity}\s*\(", text))
    return (f"{schema[1]}, {count('PRODUCT')} products, {count('MANIFOLD_SOLID_BREP')} solids, "
            f"{count('NEXT_ASSEMBLY_USAGE_OCCURRENCE')} components, "
            f"{count('CYLINDRICAL_SURFACE')} cylinders")


def iges(text):
    """An IGES file: how many lines each of its sections has, as its last line says."""
    last = text.rstrip().splitlines()[-1] if text.strip() else ""
    sections = re.match(r"S\s*(\d+)G\s*(\d+)D\s*(\d+)P\s*(\d+)", last)
    if not sections:
        return "no IGES file: " + text.strip()[:60]
    return f"{int(sections[3]) // 2} entities in {sections[4]} lines of parameters"


def pdf(text):
    """A PDF file: its version and the number of pages that its root counts."""
    version = re.match(r"%PDF-([\d.]+)", text)
    if not version:
        return "no PDF file: " + text.strip()[:60]
    pages = [int(count) for count in re.findall(r"/Count (\d+)", text)]
    return f"PDF {version[1]}" + (f", {max(pages)} pages" if pages else "")


READERS = {".stp": step, ".sat": step, ".igs": iges, ".pdf": pdf}


def main(folder):
    for path in sorted(pathlib.Path(folder).iterdir()):
        reader = READERS.get(path.suffix.lower())
        if reader:
            print(f"{path.name}: {reader(path.read_text(encoding='latin-1'))}")


main(sys.argv[1])
