"""The package as somebody unpacks it: into a folder with a Chinese name and blanks.

    package_test.py MODULE RUNNER PROGRAM

The program (tests/package) loads the module from there and presses a command.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = "岚枢 工具 (新)"
NEEDED = {"vorlatix5.1.dll", "protk.dat", "安装说明.txt", "VXconfig/VxConfig.ini",
          "text/vxMenu.txt", "text/vxmsg_display.txt", "text/resource/VxInit.res"}


def main():
    module, *command = sys.argv[1:]
    with tempfile.TemporaryDirectory() as temporary:
        out = pathlib.Path(temporary, "dist")
        subprocess.run([sys.executable, ROOT / "packaging" / "package.py", module, out],
                       check=True)
        place = pathlib.Path(temporary, FOLDER)
        with zipfile.ZipFile(out / "vorlatix-5.1.zip") as archive:
            archive.extractall(place)
        unpacked = place / "vorlatix-5.1"
        there = {str(each.relative_to(unpacked)) for each in unpacked.rglob("*")}
        if not NEEDED <= there:
            sys.exit(f"the package lacks {sorted(NEEDED - there)}")
        seen = "Z:" + str(unpacked).replace("/", "\\")
        done = subprocess.run(command, env={**os.environ, "VX_PACKAGE": seen}, check=False)
        sys.exit(done.returncode)


if __name__ == "__main__":
    main()
