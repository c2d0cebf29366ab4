#!/usr/bin/env python3
"""Makes the tables of docs/host-operations.md from what hostapi/ assumes of the host.

    tools/assumptions.py            writes them
    tools/assumptions.py --check    tells whether they are up to date

A comment before a declaration, or before an enumerator, reads

    // Assumed (TOPIC, SURE %): what is taken for granted, and what follows if it is not so;
    //   further lines are indented

TOPIC is one of those below, in the order in which a person with the kit looks at them.
"""

import argparse
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOC = "docs/host-operations.md"
BEGIN, END = "<!-- made by tools/assumptions.py -->", "<!-- end -->"

TOPICS = {
    "record": "Layouts of records",
    "codes": "Values of codes",
    "frees": "Who frees",
    "names": "Names that not every kit has",
    "length": "Names longer than 31 characters, and other lengths",
    "narrow": "Narrow texts",
    "parameters": "Lists of parameters",
    "behaviour": "What an operation does",
}
START = re.compile(r"\s*// Assumed \(([a-z]+), (\d+) %\): (.+)")
MORE = re.compile(r"\s*//   (\S.*)")


class Wrong(Exception):
    """An assumption that cannot be read."""


def declared_name(text):
    """The name that the declaration at the beginning of this text declares."""
    for pattern in (r"HOST_API\b[^(;]*[ *](\w+)\(", r"typedef [^({;]*?(\w+)(?:\[[^;]*\])?;",
                    r"typedef [^;{]*?\(\*(\w+)\)", r"typedef [^;]*?\{.*?\n\} ?(\w+)",
                    r"enum (\w+) : int \{\};", r" +(\w+) = "):
        match = re.match(pattern, text, re.S)
        if match:
            return match.group(1)
    return None


def assumptions(path):
    """[(topic, name, text, sure)] of a header."""
    lines = path.read_text(encoding="utf-8").split("\n")
    rows, at = [], 0
    while at < len(lines):
        start = START.fullmatch(lines[at])
        if not start:
            if "Assumed" in lines[at]:
                raise Wrong(f"{path.name}:{at + 1}: an assumption reads `Assumed (TOPIC, N %): …`")
            at += 1
            continue
        topic, sure, text = start.groups()
        at += 1
        while MORE.fullmatch(lines[at]):
            text += " " + MORE.fullmatch(lines[at]).group(1)
            at += 1
        rest = at
        while lines[rest].lstrip().startswith("//"):
            rest += 1
        name = declared_name("\n".join(lines[rest:]))
        if topic not in TOPICS or not name:
            raise Wrong(f"{path.name}:{at}: " + ("no declaration follows" if topic in TOPICS else
                                                 f"no topic {topic}; there are {list(TOPICS)}"))
        rows.append((topic, name, text, int(sure)))
    return rows


def tables(rows):
    """Topics in their order; in each, what is least sure comes first."""
    text = ""
    for topic, title in TOPICS.items():
        ours = sorted((row for row in rows if row[0] == topic), key=lambda row: (row[3], row[1]))
        if not ours:
            continue
        text += f"\n### {title}\n\n| Declaration | Assumed | Sure |\n|---|---|---|\n"
        for _, name, words, sure in ours:
            words = words.replace("|", "\\|").replace("*", "\\*")
            text += f"| `{name}` | {words} | {sure} % |\n"
    return text


def document(root):
    """The document as it is, and as it should be."""
    rows = [row for path in sorted((root / "hostapi").rglob("*.h")) for row in assumptions(path)]
    old = (root / DOC).read_text(encoding="utf-8")
    head, begin, rest = old.partition(BEGIN)
    _, end, tail = rest.partition(END)
    if not begin or not end:
        raise Wrong(f"{DOC} has no place for the tables: {BEGIN} … {END}")
    return old, head + BEGIN + "\n" + tables(rows) + "\n" + END + tail


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--root", type=pathlib.Path, default=ROOT)
    options = parser.parse_args()
    try:
        old, new = document(options.root)
    except Wrong as wrong:
        sys.exit(f"assumptions: {wrong}")
    if options.check and old != new:
        sys.exit(f"assumptions: {DOC} is out of date: run tools/assumptions.py")
    if not options.check and old != new:
        (options.root / DOC).write_text(new, encoding="utf-8")


if __name__ == "__main__":
    main()
