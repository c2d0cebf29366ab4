"""Changes sources one small thing at a time, and tells which changes no test notices.

    tools/mutants [--build DIR] [--programs NAME,...] [--doubt | --stale] [FILE...]

All mutants of a source are compiled into one module in which a number chooses; each is tried with
the test cases that reach it. Results stay in build/mutants until the source, what it includes,
its tests or the flags change. The exit status is 1 if a mutant is left that is neither noticed nor
listed as equivalent in tests/mutants_equivalent.txt, or if a line there fits none. Its test is
tests/tools/mutants_test.py.
"""

import argparse
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))
# pylint: disable=wrong-import-position
from equivalents import Equivalents  # noqa: E402
from places import Finder  # noqa: E402
from session import ROOMS, Session  # noqa: E402
from workshop import cmake_build, parser_arguments  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]


def names_in(text):
    """The programs of an argument, without the ending that all of them have."""
    names = [name.strip().removesuffix("_tests") for name in text.split(",") if name.strip()]
    if not names:
        raise argparse.ArgumentTypeError("names no program")
    return names


def sources(names):
    """The files that are meant: those named, or all of the plug-in."""
    if names:
        return [(Path.cwd() / name).resolve() for name in names]
    return sorted(p for room in ROOMS for p in (ROOT / room).glob("*.cpp"))


def stale(equivalents, build, names):
    """What is wrong with the lines about these files (all if none is named). Nothing is tried."""
    complaints = [] if names else equivalents.lost(ROOT)
    wanted = {str(path.relative_to(ROOT)) for path in sources(names)} if names else None
    for file in equivalents.files():
        if (ROOT / file).is_file() and (wanted is None or file in wanted):
            compiler = cmake_build(build, ROOT / file).compiler
            mutants = Finder(ROOT / file, parser_arguments(compiler)).mutants
            complaints += equivalents.of(file, mutants)[1]
    return complaints


def main():
    parser = argparse.ArgumentParser(prog="vx mutants", description=(
        "Changes sources by a little, and lists the changes that no test notices."))
    parser.add_argument("--build", default=ROOT / "build/quick", type=Path, metavar="DIR",
                        help="build to start from (build/quick)")
    parser.add_argument("--programs", default=[], type=names_in, metavar="NAME,...",
                        help="try these test programs only: export,unit for export_tests and "
                             "unit_tests")
    parser.add_argument("--doubt", action="store_true",
                        help="try those listed as equivalent, too, and tell which are noticed")
    parser.add_argument("--stale", action="store_true",
                        help="try none; tell which lines of the list of equivalents fit no mutant")
    parser.add_argument("files", nargs="*", metavar="FILE", help="sources (all of the plug-in)")
    arguments = parser.parse_args()
    equivalents = Equivalents(ROOT / "tests/mutants_equivalent.txt")
    if arguments.stale:
        complaints = stale(equivalents, arguments.build.resolve(), arguments.files)
        print("\n".join(complaints) or "every line fits a mutant")
        return 1 if complaints else 0
    lost = [] if arguments.files else equivalents.lost(ROOT)
    print("\n".join(lost), end="\n" if lost else "")
    left = bool(lost)
    for source in sources(arguments.files):
        build = cmake_build(arguments.build.resolve(), source, arguments.programs)
        session = Session(ROOT, build, arguments.build.resolve().parent / "mutants",
                          arguments.programs)
        result = session.result(equivalents, arguments.doubt)
        print(result.report(), flush=True)
        left = left or not result.is_good()
    return 1 if left else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except RuntimeError as error:
        sys.exit(f"mutants: {error}")
