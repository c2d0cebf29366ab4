"""The way of a person who has the vendor's kit, walked with a stand-in for the kit.

    vendor_kit_test.py IMPORT_LIBRARY FOLDER

The stand-in has the headers that hostapi/vendor.h names, with our own declarations in them, and the
simulated host's import library. So it shows that no source line but those of the door changes, and
that the module is linked against what the kit's folder holds; what the vendor really declares it
cannot show. FOLDER keeps what was built.
"""

import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARIES = "x86e_win64/obj"


def write(path, text):
    """Leaves a file alone that is as it should be, so that nothing is compiled again for it."""
    if not path.is_file() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def make_kit(kit, import_library):
    vendor = (ROOT / "hostapi" / "vendor.h").read_text(encoding="utf-8")
    names = re.findall(r"^#include <(.*)>", vendor, re.M)
    (kit / "includes").mkdir(parents=True, exist_ok=True)
    for name in names:
        write(kit / "includes" / name, "#pragma once\n")
    ours = "".join(f'#include "hostapi/host/{each.name}"\n'
                   for each in sorted((ROOT / "hostapi" / "host").glob("*.h")))
    write(kit / "includes" / "ProToolkit.h",
          f"#pragma once\n#undef VX_HOST_SDK\n{ours}#define VX_HOST_SDK\n")
    objects = kit / LIBRARIES
    objects.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(import_library, objects / "protk_dllmd_NU.lib")
    for name in ("ucore.lib", "udata.lib"):
        (objects / name).write_bytes(b"!<arch>\n")


def run(*command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")


def main():
    import_library, folder = map(pathlib.Path, sys.argv[1:])
    make_kit(folder / "kit", import_library)
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    run("cmake", "-S", ROOT, "-B", folder / "build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
        "--toolchain", ROOT / "cmake" / "toolchain-mingw.cmake",
        f"-DVX_HOST_SDK={folder / 'kit'}", *launcher)
    run("cmake", "--build", folder / "build", "-j2")
    run(sys.executable, ROOT / "tools" / "windows" / "check_module.py",
        folder / "build" / "vorlatix5.1.dll", "--host", "simhost.dll")
    if list((folder / "build").glob("simhost*")):
        sys.exit("the simulated host was built, too")


if __name__ == "__main__":
    main()
