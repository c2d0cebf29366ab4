"""The test programs for another Windows computer: unpacked anywhere, they run without this one.

    carried_test.py BUILD RUNNER
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "packaging"))

import test_zip  # noqa: E402

# One loads the module and reads what lies beside the program; the other's texts are in the language
# of whoever runs it, if nobody names one.
FEW = {"frame_tests": "ShippedSettings.*:LastDirectory.IsWritten*",
       "simhost_tests": "Scripts.ByHandAStepThatEndsWithoutAWordIsConfirmed"}


def run(runner, folder, filters):
    """A script as run.cmd, of these programs only; its exit status and what it says."""
    (folder / "few.cmd").write_bytes(test_zip.script(filters))
    environment = {name: text for name, text in os.environ.items() if name != "VX_LANGUAGE"}
    done = subprocess.run([runner, folder / "few.cmd", "go"], cwd=folder.parent, env=environment,
                          capture_output=True, text=True, errors="replace", check=False)
    return done.returncode, done.stdout


def results(folder):
    return "".join(each.read_text(encoding="utf-8", errors="replace")
                   for each in sorted((folder / "results").iterdir()))



def main():
    build, runner = sys.argv[1:]
    with tempfile.TemporaryDirectory() as temporary:
        subprocess.run([sys.executable, ROOT / "packaging" / "test_zip.py", build, temporary],
                       check=True)
        place = pathlib.Path(temporary, "another computer")
        with zipfile.ZipFile(next(pathlib.Path(temporary).glob("*.zip"))) as archive:
            archive.extractall(place)
        folder = next(place.iterdir())
        script = (folder / "run.cmd").read_text(encoding="ascii")
        for program in folder.glob("*_tests.exe"):
            if f"\n{program.stem}.exe " not in script:
                sys.exit(f"run.cmd leaves out {program.name}")
        status, said = run(runner, folder, FEW)
        if status != 0 or "All passed." not in said:
            sys.exit(said + results(folder))
        if results(folder).count("[  PASSED  ]") != len(FEW):
            sys.exit("the results are not kept:\n" + results(folder))
        status, said = run(runner, folder, {**FEW, "nonexistent_tests": "*"})
        if status != 1 or "Failed: nonexistent_tests -" not in said:
            sys.exit("a program that does not run is not told:\n" + said)


if __name__ == "__main__":
    main()
