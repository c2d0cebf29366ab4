"""Writes a source that has all its mutants in it, of which a number chooses the living one."""

import re

from places import HERE

PROLOGUE = """#include <type_traits>
bool VxMutant(int number);
bool VxMutantsLoaded();
"""
# Behind everything else: what was come by before belongs to the loading of the module.
EPILOGUE = "\nnamespace { [[maybe_unused]] const bool vxMutantsLoaded = VxMutantsLoaded(); }\n"


def blank_constexpr(text):
    """Whether a mutant lives is not known to the compiler, so nothing can be constexpr. Lengths
    stay, so that places stay."""
    text = re.sub(r"\bconstexpr(?= const\b)", " " * 9, text)
    return re.sub(r"\bconstexpr\b", "const    ", text)


class Schema:
    """The text, and where in it (in bytes) each mutant's schema is."""

    def __init__(self, source, mutants):
        self.source = source
        # Probes, then the outermost first.
        self.waiting = sorted(mutants, key=lambda m: (
            m.start, not m.apart, -m.end, -m.rank, -m.number))
        self.pieces, self.size = [], 0
        self.ranges = []  # (start, end, start of the inner text, its end, mutant)
        self.write(PROLOGUE)
        self.copy(0, len(source), 0)
        self.write(EPILOGUE)
        self.text = "".join(self.pieces)

    def write(self, text):
        self.pieces.append(text)
        self.size += len(text.encode())

    def copy(self, start, end, index):
        """From start to end with the schemata from index on that lie within; the next index."""
        at = start
        while index < len(self.waiting) and self.waiting[index].start < end:
            mutant = self.waiting[index]
            if mutant.apart:
                self.write(blank_constexpr(self.source[at:mutant.start].decode()))
                self.write(f"VxMutant({mutant.number}); ")
                at, index = mutant.start, index + 1
                continue
            if mutant.end > end or mutant.start < at:
                raise ValueError(f"{mutant.name} crosses another one")
            self.write(blank_constexpr(self.source[at:mutant.start].decode()))
            # A text of the source may have the same sign in it.
            probe = f"VxMutant({mutant.number})"
            before, after = mutant.schema.replace("VxMutant(@)", probe).split(HERE)
            begin = self.size
            self.write(before)
            inner = self.size
            index = self.copy(mutant.start, mutant.end, index + 1)
            inner_end = self.size
            self.write(after)
            self.ranges.append((begin, self.size, inner, inner_end, mutant))
            at = mutant.end
        self.write(blank_constexpr(self.source[at:end].decode()))
        return index

    def author(self, place):
        """The mutant of whose own words this place is one; else None."""
        around = [r for r in self.ranges if r[0] <= place < r[1]]
        innermost = min(around, key=lambda r: r[1] - r[0], default=None)
        is_own = innermost and not innermost[2] <= place < innermost[3]
        return innermost[4] if is_own else None

    def suspects(self, start, end):
        """Where nobody's own words are wrong: all mutants within the text that is, else the
        innermost around it, else all on its line."""
        around = [r for r in self.ranges if r[0] <= start < r[1]]
        within = [r[4] for r in self.ranges if start <= r[0] and r[1] <= end]
        return within or [r[4] for r in sorted(around, key=lambda r: r[1] - r[0])[:1]] or \
            self.on_line(start)

    def on_line(self, start):
        """What begins on the line of this place."""
        data = self.text.encode()
        first, last = data.rfind(b"\n", 0, start) + 1, data.find(b"\n", start)
        return [r[4] for r in self.ranges if first <= r[0] < last or first <= r[1] < last]


def alone(source, mutant):
    """The source with the one change and nothing else."""
    plain = mutant.plain.encode()
    return (source[:mutant.start] + plain + source[mutant.end:]).decode()
