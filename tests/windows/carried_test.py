"""The test programs for another Windows computer: unpacked anywhere, they run without this one.

    carried_test.py BUILD RUNNER
"""

import pathlib
import subprocess
import sys
import tempfile
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]


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
        # Loads the module and reads what lies beside the program.
        done = subprocess.run([runner, folder / "frame_tests.exe", "--gtest_brief=1",
                               "--gtest_filter=ShippedSettings.*:LastDirectory.IsWritten*"],
                              cwd=temporary, capture_output=True, text=True, check=False)
        if done.returncode != 0 or "[  PASSED  ]" not in done.stdout:
            sys.exit(done.stdout + done.stderr)


if __name__ == "__main__":
    main()
