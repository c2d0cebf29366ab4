"""Makes a folder of test programs, and its zip, that can be carried to a Windows computer.

    test_zip.py BUILD FOLDER

BUILD is the folder of the Windows build. Writes FOLDER/vorlatix-5.1-windows-tests/ and its zip: the
test programs, what they need beside them, and run.cmd, which runs them all. Nothing in it names a
place of the computer that built it.
"""

import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
NAME = "vorlatix-5.1-windows-tests"
LIST = ROOT / "tests" / "windows" / "native_only.txt"

# The package's test needs a package, and Python to unpack it.
LEFT_OUT = {"package_tests.exe"}
DATA = ["VXconfig", "text", "tp", "samples", "tests/simhost/data"]

HEAD = r"""@echo off
rem Runs the tests of Vorlatix on a Windows computer that is only for tests.
echo These tests write to C:\ and to the registry, and remove what they find new on drive C.
echo Run them as administrator, on a computer or virtual machine that nobody needs.
if not "%1"=="go" pause
cd /d "%~dp0"
set VX_TEST_COMPUTER=1
set VX_LANGUAGE=C
set failed=
if not exist results mkdir results
"""
# A program that crashes leaves a negative number.
EACH = r"""echo {name}
{name}.exe --gtest_brief=1 "--gtest_filter={filter}" > results\{name}.txt 2>&1
if not "%errorlevel%"=="0" set failed=%failed% {name}
"""
TAIL = r"""if "%failed%"=="" echo All passed.
if not "%failed%"=="" echo Failed:%failed% - please send the folder results.
if not "%failed%"=="" exit /b 1
"""


def filter_of(program):
    folder = program.name[: -len("_tests.exe")]
    done = subprocess.run([sys.executable, ROOT / "tools" / "windows" / "test_lists.py", "--filter",
                           LIST, folder], capture_output=True, text=True, check=True)
    return done.stdout.strip()


def script(filters):
    """What runs these programs (name: filter) and tells which failed."""
    steps = [EACH.format(name=name, filter=each) for name, each in filters.items()]
    return (HEAD + "".join(steps) + TAIL).replace("\n", "\r\n").encode("ascii")


def check_places(folder):
    """A program that names a place of this computer would look for it on another."""
    place = str(ROOT).encode()
    for each in folder.rglob("*"):
        if each.is_file() and place in each.read_bytes():
            sys.exit(f"test_zip: {each.relative_to(folder)} names {ROOT}")


def make(build, out):
    programs = sorted(each for each in build.glob("*_tests.exe") if each.name not in LEFT_OUT)
    if not programs:
        sys.exit(f"test_zip: there are no test programs in {build}: build them with ./vx windows")
    folder = out / NAME
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for each in [*programs, build / "excel_server.exe", *build.glob("*.dll")]:
        shutil.copyfile(each, folder / each.name)
    for each in DATA:
        shutil.copytree(ROOT / each, folder / "source" / each)
    filters = {each.stem: filter_of(each) for each in programs}
    (folder / "run.cmd").write_bytes(script(filters))
    check_places(folder)
    return shutil.make_archive(folder, "zip", out, NAME)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    print(make(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])))


if __name__ == "__main__":
    main()
