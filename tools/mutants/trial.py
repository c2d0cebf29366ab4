"""Runs the test cases that reach a mutant until one of them notices it."""

import concurrent.futures
import dataclasses
import os
import re
import subprocess
import tempfile
import time
from pathlib import Path

WORKERS = os.cpu_count() or 1
# Added to ten times what the cases take by themselves, before a mutant counts as hanging.
SPARE_SECONDS = 20
# Tests write their drives: in memory that is several times as fast.
DRIVES = "/dev/shm" if os.path.isdir("/dev/shm") else None


@dataclasses.dataclass
class Reach:
    """Which cases come by which mutants, and how long each case takes."""
    cases: dict   # number -> {(program, case)}
    seconds: dict  # (program, case) -> time


def environment(drive, loaded, **more):
    return dict(os.environ, TMPDIR=drive, **loaded,
                **{key: str(value) for key, value in more.items()})


def cases_of(program):
    output = subprocess.run([str(program), "--gtest_list_tests"], capture_output=True, text=True,
                            check=True).stdout
    suite = ""
    for line in output.splitlines():
        if re.match(r"\S+\.\s*(#|$)", line):
            suite = line.split()[0]
        elif line.startswith("  ") and "DISABLED_" not in suite + line:
            yield suite + line.split()[0]


def failed_case(program, cases, limit, env):
    """The case that failed, crashed or took too long; None if all passed."""
    command = [str(program), f"--gtest_filter={':'.join(cases)}", "--gtest_fail_fast"]
    try:
        done = subprocess.run(command, env=env, timeout=limit, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        output, passed = done.stdout, done.returncode == 0
    except subprocess.TimeoutExpired as stopped:
        output, passed = stopped.stdout or b"", False
    begun = re.findall(rb"^\[ RUN      \] (\S+)", output, re.MULTILINE)
    return None if passed else begun[-1].decode() if begun else cases[0]


class Trials:
    """Runs of the programs of a build against what lies in a folder."""

    def __init__(self, build, place):
        self.build, self.place = build, place

    def run(self, program, cases, limit, place=None, **more):
        place = place or self.place
        with tempfile.TemporaryDirectory(dir=DRIVES, prefix="vx mutant ") as drive:
            env = environment(drive, self.build.environment(place), **more)
            return failed_case(self.build.program(program, place), cases, limit, env)

    # --- Which case comes by which mutant ---

    def reach(self):
        reach = Reach({}, {})
        loading = set()
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            # Most programs come by nothing, so each is run as a whole first.
            wholes = list(pool.map(self.look, [(name, "*") for name in self.build.programs]))
            cases = [(name, case) for (name, _), _, numbers in wholes
                     if any(number > 0 for number in numbers)
                     for case in cases_of(self.build.program(name, self.place))]
            for case, seconds, numbers in pool.map(self.look, cases):
                reach.seconds[case] = seconds
                loading |= {-n for n in numbers if n < 0}
                for number in numbers:
                    if number > 0:
                        reach.cases.setdefault(number, set()).add(case)
        # What loading the module comes by can matter to each case that does anything here.
        anything = set().union(*reach.cases.values())
        for number in loading:
            reach.cases[number] = reach.cases.get(number, set()) | anything
        return reach

    def look(self, case):
        began = time.monotonic()
        with tempfile.NamedTemporaryFile("r") as record:
            if self.run(case[0], [case[1]], 600, VX_MUTANTS_REACHED=record.name):
                raise RuntimeError(f"{case[0]} {case[1]} fails without any mutant")
            return case, time.monotonic() - began, {int(line) for line in record}

    # --- Who notices ---

    def noticed_by(self, number, reach, first=None, place=None):
        """Program and case that notice the mutant, or None. `first` is tried before all others."""
        cases = reach.cases.get(number, set())
        groups = [first] if first in cases else []
        groups = [(program, [case]) for program, case in groups]
        for program in sorted({program for program, _ in cases}):
            groups.append((program, [c for p, c in sorted(cases) if p == program]))
        for program, names in groups:
            limit = SPARE_SECONDS + 10 * sum(reach.seconds[program, name] for name in names)
            case = self.run(program, names, limit, place, VX_MUTANT=number)
            if case:
                return program, case
        return None
