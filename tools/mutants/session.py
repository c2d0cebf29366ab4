"""Tries all mutants of one source, and remembers what came of them."""

import concurrent.futures
import hashlib
import json
import os
import re
import tempfile
import time
from pathlib import Path

from equivalents import Result
from places import Finder
from trial import Trials, WORKERS
from workshop import RUNTIME, compile_alone, compile_schema, parser_arguments

ROOMS = ("frame", "frame/services", "display", "modeldata", "construct", "drawing", "export",
         "tables", "commands")


# In the place of the case that notices a mutant.
REJECTED = "rejected"


class Session:
    """One source. What was found out lies in the folder as JSON, with the hash of what it depends
    on and who noticed which mutant: after a change these are asked first. `names` are those of the
    programs if only some are run: what they do not notice others may, so theirs is a file of its
    own."""

    def __init__(self, root, build, folder, names=()):
        self.root, self.build = root, build
        self.file = str(build.source.relative_to(root))
        self.place = folder / self.file.replace("/", "_")
        self.memory = self.place / f"{' '.join(['result', *sorted(set(names))])}.json"
        self.contents = {}

    # --- Memory ---

    def remembered(self):
        try:
            return json.loads(self.memory.read_text(encoding="utf-8"))
        except (OSError, ValueError):
            return {}

    def read(self, path):
        """As it was at first: what is changed during a run does not count as tried."""
        if path not in self.contents:
            self.contents[path] = path.read_bytes()
        return self.contents[path]

    def key(self, programs):
        """Of the source and its includes, the sources of these programs' tests, the flags and this
        tool."""
        paths = list(Path(__file__).parent.glob("*.py")) + [RUNTIME]
        for folder in ["support"] + [name.removesuffix("_tests") for name in programs]:
            paths += sorted((self.root / "tests" / folder).glob("*.*"))
        paths += with_includes(self.root, self.build.source)
        digest = hashlib.sha256(json.dumps(self.build.compiler).encode())
        for path in paths:
            digest.update(f"\n{path.name}\n".encode() + self.read(path))
        return digest.hexdigest()

    # --- Work ---

    def result(self, equivalents, doubt=False):
        """`doubt`: those listed as equivalent are tried, too."""
        began = time.monotonic()
        mutants = Finder(self.build.source, parser_arguments(self.build.compiler)).mutants
        listed, complaints = equivalents.of(self.file, mutants)
        known = self.remembered()
        if known.get("key") != self.key(known.get("programs", [])):
            known = {"last": known.get("noticed", {})}
        tried = {name for kind in ("noticed", "rejected") for name in known.get(kind, ())}
        if not doubt:
            tried.update(known.get("survived", ()))
        left = [m for m in mutants if m.name not in tried and (doubt or m.number not in listed)]
        if left or "key" not in known:
            known = self.work(mutants, left, known)
        numbers = {m.name: m.number for m in mutants}
        noticed = {numbers[name]: case for name, (_, case) in known["noticed"].items()}
        complaints += [f"listed as equivalent but noticed by {noticed[m.number]}: {m.name}"
                       for m in mutants if m.number in listed and m.number in noticed]
        return Result(self.file, mutants, [m for m in mutants if m.name in known["rejected"]],
                      {n: r for n, r in listed.items() if n not in noticed}, noticed,
                      {numbers[name] for name in known["reached"]}, complaints,
                      time.monotonic() - began)

    def work(self, mutants, left, known):
        """Tries those that are left, and remembers what came of it. The programs, which are large,
        do not stay."""
        self.key(self.build.programs)  # reads everything
        self.place.mkdir(parents=True, exist_ok=True)
        with tempfile.TemporaryDirectory(dir=self.place, prefix="run ") as folder:
            self.build.keep_programs(Path(folder) / "programs")
            new = self.attempts(mutants, left, known, Path(folder))
        new["key"] = self.key(new["programs"])
        self.memory.write_text(json.dumps(new, indent=1, ensure_ascii=False), encoding="utf-8")
        return new

    def attempts(self, mutants, left, known, place):
        runtime = place / "runtime.cpp"
        if self.build.compile(RUNTIME.read_text(encoding="utf-8"), runtime):
            raise RuntimeError(f"{RUNTIME} does not compile")
        schema, odd = compile_schema(self.build, self.read(self.build.source), mutants,
                                     self.place / "together.cpp")
        objects = [f"{runtime}.o"]
        self.build.link([schema] + objects, place)
        trials = Trials(self.build, place)
        reach = trials.reach()
        anything = set().union(*reach.cases.values())
        # Those that have no schema leave no trace; any case that comes by the source may do.
        reach.cases.update((mutant.number, anything) for mutant in odd)
        last = known.get("last", known.get("noticed", {}))

        def attempt(mutant):
            first = tuple(last.get(mutant.name, ()))
            if mutant.apart or mutant in odd:
                return self.attempt_alone(trials, reach, mutant, first, objects)
            return trials.noticed_by(mutant.number, reach, first)

        new = {kind: known.get(kind, []) for kind in ("rejected", "survived")}
        new["noticed"] = known.get("noticed", {})
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            for mutant, verdict in zip(left, pool.map(attempt, left)):
                if mutant.name in new["survived"]:
                    new["survived"].remove(mutant.name)
                if verdict == REJECTED:
                    new["rejected"].append(mutant.name)
                elif verdict is None:
                    new["survived"].append(mutant.name)
                else:
                    new["noticed"][mutant.name] = verdict
        new["reached"] = [m.name for m in mutants if reach.cases.get(m.number)]
        new["programs"] = sorted({program for program, _ in anything})
        return new

    def attempt_alone(self, trials, reach, mutant, first, objects):
        """In a source of its own."""
        with tempfile.TemporaryDirectory(dir=trials.place, prefix="alone ") as folder:
            place = Path(folder)
            made = compile_alone(self.build, self.read(self.build.source), mutant,
                                 place / "alone.cpp")
            if made is None:
                return REJECTED
            programs = {program for program, _ in reach.cases.get(mutant.number, ())}
            self.build.link([made] + objects, place, programs)
            return trials.noticed_by(mutant.number, reach, first, place)


def with_includes(root, source):
    """The source and all headers of ours that it includes."""
    seen, waiting = set(), [source]
    while waiting:
        path = waiting.pop()
        if path in seen or not path.is_file():
            continue
        seen.add(path)
        names = re.findall(rb'^\s*#\s*include\s*"([^"]+)"', path.read_bytes(), re.MULTILINE)
        waiting += [root / os.fsdecode(name) for name in names]
    return sorted(seen)
