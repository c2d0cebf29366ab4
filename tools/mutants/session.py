"""Tries all mutants of one source, and remembers what came of them."""

import concurrent.futures
import hashlib
import json
import os
import re
import time
from pathlib import Path

from equivalents import Result
from places import Finder
from trial import Trials, WORKERS
from workshop import RUNTIME, compile_alone, compile_schema, parser_arguments

ROOMS = ("frame", "frame/services", "display", "modeldata", "construct", "drawing", "export",
         "tables", "commands")


class Session:
    """One source. What was found out lies in the folder as JSON, with the hash of what it depends
    on and who noticed which mutant: after a change these are asked first."""

    def __init__(self, root, build, folder):
        self.root, self.build = root, build
        self.file = str(build.source.relative_to(root))
        self.place = folder / self.file.replace("/", "_")
        self.memory = self.place / "result.json"

    # --- Memory ---

    def remembered(self):
        try:
            return json.loads(self.memory.read_text(encoding="utf-8"))
        except (OSError, ValueError):
            return {}

    def key(self, programs):
        """Of the source and its includes, the sources of these programs' tests, the flags and this
        tool."""
        paths = list(Path(__file__).parent.glob("*.py")) + [RUNTIME]
        for folder in ["support"] + [name.removesuffix("_tests") for name in programs]:
            paths += sorted((self.root / "tests" / folder).glob("*.*"))
        paths += with_includes(self.root, self.build.source)
        digest = hashlib.sha256(json.dumps(self.build.compiler).encode())
        for path in paths:
            digest.update(f"\n{path.name}\n".encode() + path.read_bytes())
        return digest.hexdigest()

    # --- Work ---

    def result(self, equivalents, doubt=False):
        began = time.monotonic()
        mutants = Finder(self.build.source, parser_arguments(self.build.compiler)).mutants
        listed, complaints = equivalents.of(self.file, mutants)
        old = self.remembered()
        names = {m.name: m for m in mutants}
        fresh = old.get("key") == self.key(old.get("programs", []))
        left = [] if fresh else mutants
        if fresh:  # what was listed then may not be listed any more
            known = set(old["noticed"]) | set(old["rejected"]) | set(old["survived"])
            left = [m for m in mutants if m.name not in known]
            left += [names[n] for n in old["survived"] if doubt and n in names]
        skipped = {} if doubt else listed
        left = [m for m in left if m.number not in skipped]
        if left or not fresh:
            old = self.work(mutants, left, old, fresh)
        seconds = time.monotonic() - began
        noticed = {names[n].number: c for n, (_, c) in old["noticed"].items() if n in names}
        complaints += [f"listed as equivalent but noticed by {noticed[n]}: {m.name}"
                       for m in mutants for n in [m.number] if n in listed and n in noticed]
        return Result(self.file, mutants, [names[n] for n in old["rejected"]],
                      {n: r for n, r in listed.items() if n not in noticed}, noticed,
                      {names[n].number for n in old["reached"]}, complaints, seconds)

    def work(self, mutants, left, old, fresh):
        self.place.mkdir(parents=True, exist_ok=True)
        self.build.keep_programs(self.place / "programs")
        source = self.build.source.read_bytes()
        runtime = self.place / "runtime.cpp"
        if self.build.compile(RUNTIME.read_text(encoding="utf-8"), runtime):
            raise RuntimeError(f"{RUNTIME} does not compile")
        together = self.place / "together.cpp"
        schema, odd = compile_schema(self.build, source, mutants, together)
        self.build.link([schema, f"{runtime}.o"], self.place)
        trials = Trials(self.build, self.place)
        reach = trials.reach()
        anything = set().union(*reach.cases.values())
        for mutant in odd:
            reach.cases[mutant.number] = anything
        jobs = [(m, tuple(old.get("noticed", {}).get(m.name, ())), m.apart or m in odd)
                for m in left]

        def attempt(job):
            mutant, first, alone = job
            cases = reach.cases.get(mutant.number, set())
            if not alone:
                return trials.noticed_by(mutant.number, cases, reach.seconds, first) \
                    if cases else None
            place = self.place / f"alone{mutant.number}"
            place.mkdir(exist_ok=True)
            made = compile_alone(self.build, source, mutant, place / "alone.cpp")
            if made is None:
                return False
            self.build.link([made, f"{runtime}.o"], place, {program for program, _ in cases})
            return trials.noticed_by(mutant.number, cases, reach.seconds, first, place)

        kept = old if fresh else {}
        new = {"noticed": dict(kept.get("noticed", {})), "rejected": kept.get("rejected", []),
               "survived": kept.get("survived", []),
               "reached": [m.name for m in mutants if reach.cases.get(m.number)],
               "programs": sorted({program for program, _ in anything})}
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            for (mutant, _, _), verdict in zip(jobs, pool.map(attempt, jobs)):
                lists = {False: "rejected", None: "survived"}
                if verdict in lists:
                    if mutant.name not in new[lists[verdict]]:
                        new[lists[verdict]].append(mutant.name)
                else:
                    new["noticed"][mutant.name] = verdict
                    if mutant.name in new["survived"]:
                        new["survived"].remove(mutant.name)
        new["key"] = self.key(new["programs"])
        self.memory.write_text(json.dumps(new, indent=1, ensure_ascii=False), encoding="utf-8")
        return new


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
