#!/usr/bin/env python3
"""Has clang look at what has changed since it was last found clean.

    tools/tidy.py DIR    over the compile_commands.json in the build folder DIR

clang-tidy tells the compiler's own warnings together with its findings. Tests are compiled for the
warnings alone: they are half of all sources, and clang-tidy is the slowest of the checks. Nothing
is linked and no code is made, so the folder need not be built.

Most of the time goes into the headers of libraries, so the sources of a folder of simhost/ or
tests/ are looked at eight together; where anything is found there, or names meet, each is looked at
once more alone, and what is said then counts.

Findings are shown as clang words them, each once. The exit status is 1 if there is any.
Its test is tests/tools/tidy_test.py.
"""

import argparse
import concurrent.futures
import functools
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
from pathlib import Path


TOGETHER = 8


def flags_of(compiler, source):
    """The flags of a command that compiles the source, without source and result."""
    flags, words = [], iter(compiler[1:])
    for word in words:
        if word in ("-o", "-MF", "-MT"):
            next(words)
        elif word not in ("-c", "-MD", source):
            flags.append(word)
    return tuple(flags)


class Tidy:
    """Looks at each source of ours, and remembers what was found clean: by the contents of the file
    and of all our headers that it includes, its compile command and the checks."""

    def __init__(self, root, folder):
        self.root, self.folder = Path(root).resolve(), Path(folder).resolve()
        self.cache = self.folder.parent / "lint-cache"
        version = subprocess.check_output(["clang-tidy", "--version"], text=True)
        self.base = version + (self.root / ".clang-tidy").read_text(encoding="utf-8")

    @functools.lru_cache(maxsize=None)
    def read(self, path):
        """Contents, and the files of ours that they include."""
        data = path.read_bytes()
        names = re.findall(rb'^\s*#\s*include\s*"([^"]+)"', data, re.MULTILINE)
        places = [base / os.fsdecode(name) for name in names for base in (self.root, path.parent)]
        return data, [place.resolve() for place in places if place.is_file()]

    def key(self, source, command):
        digest = hashlib.sha256((self.base + command).encode())
        seen, waiting = set(), [source]
        while waiting:
            path = waiting.pop()
            waiting += self.read(path)[1] if path not in seen else []
            seen.add(path)
        for path in sorted(seen):
            digest.update(f"\n{path}\n".encode() + self.read(path)[0])
        return digest.hexdigest()

    def jobs(self):
        """What has to be looked at, one by one: (source, command that looks, where, place to
        remember, the compiler's flags)."""
        entries = json.loads((self.folder / "compile_commands.json").read_text(encoding="utf-8"))
        for entry in {e["file"]: e for e in entries}.values():
            source = Path(entry["directory"], entry["file"]).resolve()
            if not source.is_relative_to(self.root) or source.is_relative_to(self.folder.parent):
                continue
            stamp = self.cache / self.key(source, entry["command"])
            if stamp.exists():
                continue
            compiler = shlex.split(entry["command"])
            if source.is_relative_to(self.root / "tests"):
                command, place = compiler + ["-fsyntax-only"], entry["directory"]
            else:
                command, place = ["clang-tidy", "--quiet", "-p", str(self.folder),
                                  str(source)], self.root
            yield source, command, place, stamp, flags_of(compiler, entry["file"])

    def batches(self, jobs):
        """The jobs, those of one folder and the same flags up to eight together."""
        groups = {}
        for job in jobs:
            source, flags = job[0], job[4]
            folder = source.parent.relative_to(self.root).as_posix()
            together = folder.startswith(("simhost/", "tests/")) and folder != "tests/unit"
            groups.setdefault((folder, flags) if together else source, []).append(job)
        for group in groups.values():
            for i in range(0, len(group), TOGETHER):
                yield group[i:i + TOGETHER]

    def look_together(self, batch):
        """What is found in a batch."""
        if len(batch) > 1:
            _, command, place, _, flags = batch[0]
            text = "".join(f'#include "{job[0]}"\n' for job in batch)
            name = hashlib.sha256(text.encode()).hexdigest()
            together = self.cache / f"{name}.cpp"
            together.write_text(text, encoding="utf-8")
            if command[0] == "clang-tidy":
                looks = ["clang-tidy", "--quiet", "--header-filter=.*",
                         "--checks=-bugprone-suspicious-include", str(together), "--", *flags]
            else:
                looks = [command[0], *flags, "-fsyntax-only", "-c", str(together)]
            run = subprocess.run(looks, capture_output=True, text=True, cwd=place)
            together.unlink()
            if run.returncode == 0:
                for job in batch:
                    job[3].touch()
                return ""
        return "".join(map(self.look, batch))

    def look(self, job):
        source, command, place, stamp, _ = job
        run = subprocess.run(command, capture_output=True, text=True, cwd=place)
        if run.returncode == 0:
            stamp.touch()
            return ""
        return run.stdout or run.stderr or f"{source}: {command[0]} ended with {run.returncode}"

    def run(self):
        self.cache.mkdir(parents=True, exist_ok=True)
        batches, shown = list(self.batches(self.jobs())), set()
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for output in pool.map(self.look_together, batches):
                blocks = re.split(r"^(?=/[^\n]*:\d+:\d+: (?:error|warning))", output, flags=re.M)
                # After an error of the compiler the rest is guesswork.
                broken = [block for block in blocks if "[clang-diagnostic-error]" in block]
                # A finding in a header comes once for every source that includes it.
                for block in broken or blocks:
                    if block.strip() and block not in shown:
                        shown.add(block)
                        print(block.replace(f"{self.root}/", "").rstrip())
        return 1 if shown else 0


def main():
    parser = argparse.ArgumentParser(description="Has clang look at what has changed.")
    parser.add_argument("folder", metavar="DIR", help="build folder with compile_commands.json")
    root = Path(__file__).resolve().parent.parent
    return Tidy(root, parser.parse_args().folder).run()


if __name__ == "__main__":
    sys.exit(main())
