"""The list of mutants that are judged to change nothing that could be noticed."""

import dataclasses


class Equivalents:
    """One line each, `file: text of the mutant: reason`; `#` begins a remark."""

    def __init__(self, path):
        lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
        self.path = path
        self.lines = [(number, line) for number, line in enumerate(lines, 1)
                      if line.strip() and not line.startswith("#")]

    def of(self, file, mutants):
        """Those of the file's mutants that are listed, and a complaint for each line that fits
        none or gives no reason."""
        listed, complaints = {}, []
        for number, line in self.lines:
            if not line.startswith(f"{file}: "):
                continue
            fits = [m for m in mutants if line.startswith(f"{file}: {m.name}: ")]
            reason = line[len(f"{file}: {fits[0].name}: "):].strip() if fits else ""
            if reason:
                listed[fits[0].number] = reason
            else:
                complaints.append(f"{self.path.name}:{number}: " + (
                    "no reason is given" if fits else f"{file} has no such mutant (any more)"))
        return listed, complaints

    def files(self):
        """The files that lines are about, each once, in their order."""
        return list(dict.fromkeys(line.split(": ")[0] for _, line in self.lines))

    def lost(self, root):
        """A complaint for each line whose file is not there (any more)."""
        return [f"{self.path.name}:{number}: there is no file {line.split(': ')[0]}"
                for number, line in self.lines if not (root / line.split(": ")[0]).is_file()]


@dataclasses.dataclass
class Result:
    """What was found out about one source."""
    file: str
    mutants: list
    rejected: list     # which no compiler takes
    equivalent: dict   # number -> reason
    noticed: dict      # number -> the case that notices it
    reached: set       # numbers that some case comes by
    complaints: list
    seconds: float

    def survivors(self):
        gone = {m.number for m in self.rejected} | set(self.noticed) | set(self.equivalent)
        return [m for m in self.mutants if m.number not in gone]

    def is_good(self):
        return not self.survivors() and not self.complaints

    def report(self):
        survivors = self.survivors()
        lines = [f"{self.file}: {len(self.mutants) - len(self.rejected)} mutants, "
                 f"{len(self.noticed)} noticed, {len(self.equivalent)} equivalent, "
                 f"{len(survivors)} not noticed ({len(self.rejected)} more did not compile; "
                 f"{self.seconds:.0f} s)"]
        for mutant in survivors:
            unreached = "" if mutant.number in self.reached else " (no test comes by)"
            lines.append(f"  {self.file}:{mutant.line}: {mutant.name}{unreached}")
        return "\n".join(lines + [f"  {c}" for c in self.complaints])
