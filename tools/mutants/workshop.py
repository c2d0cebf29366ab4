"""Makes programs and modules out of a changed source: the build of the preset, with one object in
another's place."""

import dataclasses
import json
import re
import shlex
import shutil
import subprocess
from pathlib import Path

from places import HERE
from schema import Schema, alone

MODULE = "vorlatix5.1.so"
HOST = "libsimhost.so"
# The archive of a target's objects, where it does not have the target's name.
ARCHIVES = {"plugin_objects": "libvorlatix_static.a"}
RUNTIME = Path(__file__).with_name("runtime.cpp")
# A choice between two numbers is no constant: what is fine in braces for the one is narrowing then.
LENIENT = ["-w", "-Wno-narrowing", "-Wno-error"]
# What sanitizers would stop ends the program here too, without their libraries.
STRICT = ["-D_GLIBCXX_ASSERTIONS", "-fsanitize=undefined", "-fsanitize-undefined-trap-on-error"]


def run(command, folder):
    return subprocess.run(command, cwd=folder, capture_output=True, text=True)


def checked(command, folder):
    done = run(command, folder)
    if done.returncode:
        raise RuntimeError(f"{shlex.join(command)}\n{done.stderr}")
    return done.stdout


@dataclasses.dataclass
class Build:
    """What the build tells about one source: how it is compiled, and how what it is part of is
    linked. `links` has a name for each result, and a command with HERE for the results' folder and
    the list of objects; `programs` has the test programs by name. A linked module, library or
    program takes the place of the built one."""
    folder: Path
    source: Path
    compiler: list
    module: str
    links: dict
    programs: dict

    def compile(self, text, place):
        """The gcc errors as a list of (start, end) in the text's bytes, empty if it went well."""
        place.write_text(text, encoding="utf-8")
        done = run(self.compiler + LENIENT + STRICT + [
            "-fdiagnostics-format=json", "-c", str(place), "-o", f"{place}.o"], self.folder)
        return [] if done.returncode == 0 else list(errors(done.stderr, text, place))

    def link(self, objects, place, programs=None):
        """The module, the host's library and these programs (all if None) with these objects in
        the place of the source's own, into the folder."""
        place.mkdir(parents=True, exist_ok=True)
        for name, command in self.links.items():
            if programs is not None and name in set(self.programs) - set(programs):
                continue
            at = command.index("OBJECT")
            checked([w.replace(HERE, str(place)) for w in
                     command[:at] + [str(o) for o in objects] + command[at + 1:]], self.folder)

    def keep_programs(self, place):
        """From now on the programs as they are now: the build may go on meanwhile."""
        place.mkdir(parents=True, exist_ok=True)
        for name, program in self.programs.items():
            kept = place / name
            kept.unlink(missing_ok=True)
            shutil.copy(program, kept)
            self.programs[name] = kept

    def program(self, name, place):
        return place / name if name in self.links else self.programs[name]

    def environment(self, place):
        """What makes a program load what was linked into the folder."""
        variables = {"VX_MODULE_FILE": str(
            (place if self.module in self.links else self.folder) / self.module)}
        if HOST in self.links:
            variables["LD_LIBRARY_PATH"] = str(place)
        return variables


def errors(output, text, place):
    lines = text.encode().split(b"\n")
    starts = [0]
    for line in lines:
        starts.append(starts[-1] + len(line) + 1)

    def offset(point):
        return starts[point["line"] - 1] + point["byte-column"] - 1

    def spans(message):
        for location in message["locations"]:
            caret = location["caret"]
            if Path(caret["file"]) == place:
                yield (offset(location.get("start", caret)),
                       offset(location.get("finish", caret)) + 1, offset(caret))

    for message in json.loads(next(x for x in output.splitlines() if x.startswith("["))):
        if "error" in message["kind"]:
            own = list(spans(message))
            yield own or [s for child in message.get("children", ()) for s in spans(child)]


def compile_schema(build, source, mutants, place):
    """The object of all mutants that can live side by side, and those that the compiler rejects."""
    rejected = []
    for _ in range(40):
        kept = [m for m in mutants if m not in rejected]
        schema = Schema(source, kept)
        found = build.compile(schema.text, place)
        if not found:
            return Path(f"{place}.o"), rejected
        blamed = {}
        for spans in found:
            authors = [schema.author(caret) for _, _, caret in spans]
            # Errors often follow from earlier ones, so only the first one makes suspects.
            if not any(authors) and not blamed:
                authors = [m for start, end, _ in spans for m in schema.suspects(start, end)]
            blamed.update({m.number: m for m in authors if m})
        if not blamed:
            raise RuntimeError(f"{place} does not compile, and no mutant is to blame for it")
        rejected += blamed.values()
    raise RuntimeError(f"{place} does not compile")


def compile_alone(build, source, mutant, place):
    """Its object, or None if the compiler rejects it alone, too."""
    return None if build.compile(alone(source, mutant), place) else Path(f"{place}.o")


# --- The build of CMake ---------------------------------------------------------------------------

# Tests of the simulated host alone, and runs that take minutes, tell little about a single source.
LEFT_OUT = ("simhost_tests", "sweep_tests")


def test_programs(folder, names=()):
    """The test programs of the build: "export" is export_tests. Without names, those that tell
    something about a single source."""
    built = {p.name: p for p in sorted(folder.glob("tests/*_tests"))}
    if not names:
        return {name: path for name, path in built.items() if name not in LEFT_OUT}
    wanted = [f"{name}_tests" for name in names]
    for name in wanted:
        if name not in built:
            raise RuntimeError(f"{folder} has no program {name}")
    return {name: built[name] for name in wanted}


def cmake_build(folder, source, names=()):
    """What the build does with this source, and its test programs, or those of these names."""
    entries = json.loads((folder / "compile_commands.json").read_text(encoding="utf-8"))
    entry = next((e for e in entries if Path(e["file"]) == source), None)
    if entry is None:
        raise RuntimeError(f"{source} is no source of {folder}")
    words = shlex.split(entry["command"])
    own = words[words.index("-o") + 1]
    compiler = [w for w in words[:words.index("-o")] if w != "-Werror"]
    programs = test_programs(folder, names)
    targets = [MODULE, HOST, *(f"tests/{name}" for name in programs)]
    links = {Path(target).name: link_with(own, link_command(folder, target)) for target in targets}
    links = {name: command for name, command in links.items() if command}
    if not links:
        raise RuntimeError(f"no test program loads {source}")
    return Build(folder, source, compiler, MODULE, links, programs)


def link_command(folder, target):
    last = checked(["ninja", "-t", "commands", target], folder).splitlines()[-1]
    words = shlex.split(re.sub(r"^: && | && :$", "", last))
    at = words.index("-o") + 1
    words[at] = f"{HERE}/{Path(words[at]).name}"
    return words


def link_with(own, command):
    """The command with OBJECT in the place of the object `own`, or in front of the archive that
    holds it, which then is not asked for its own; None if it takes neither."""
    if own in command:
        return ["OBJECT" if w == own else w for w in command]
    target = re.match(r"CMakeFiles/([^/]+)\.dir/", own)
    archive = target and ARCHIVES.get(target[1], f"lib{target[1]}.a")
    if archive not in command:
        return None
    at = command.index(archive)
    return command[:at] + ["OBJECT"] + command[at:]


def parser_arguments(compiler):
    """What a parser must know of the compiler's arguments."""
    return [w for w in compiler if w.startswith(("-I", "-D", "-std="))]
