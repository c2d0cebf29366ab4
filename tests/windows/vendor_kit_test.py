"""The way of a person who has the vendor's kit, walked with a stand-in for the kit.

    vendor_kit_test.py IMPORT_LIBRARY FOLDER

The stand-in has the headers that hostapi/vendor.h names and the simulated host's import library.
It is made twice: from our own declarations, and from others as a vendor may well have them. So it
shows that no source line but those of the door changes, that the sources hold for more than our
own guesses, and that the module is linked against what the kit's folder holds; what the vendor
really declares it cannot show. FOLDER keeps what was built.
"""

import pathlib
import shutil
import subprocess
import sys

import stand_in_kit

ROOT = stand_in_kit.ROOT
LIBRARIES = "x86e_win64/obj"


def make_kit(kit, import_library, others):
    stand_in_kit.make_headers(kit, others)
    objects = kit / LIBRARIES
    objects.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(import_library, objects / "protk_dllmd_NU.lib")
    for name in ("ucore.lib", "udata.lib"):
        (objects / name).write_bytes(b"!<arch>\n")


def run(*command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")


def build(folder, import_library, others):
    make_kit(folder / "kit", import_library, others)
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    run("cmake", "-S", ROOT, "-B", folder / "build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
        "--toolchain", ROOT / "cmake" / "toolchain-mingw.cmake",
        f"-DVX_HOST_SDK={folder / 'kit'}", *launcher)
    run("cmake", "--build", folder / "build", "-j2")
    run(sys.executable, ROOT / "tools" / "windows" / "check_module.py",
        folder / "build" / "vorlatix5.1.dll", "--host", "simhost.dll")
    if list((folder / "build").glob("simhost*")):
        sys.exit("the simulated host was built, too")


def main():
    import_library, folder = map(pathlib.Path, sys.argv[1:])
    build(folder / "ours", import_library, others=False)
    build(folder / "others", import_library, others=True)


if __name__ == "__main__":
    main()
