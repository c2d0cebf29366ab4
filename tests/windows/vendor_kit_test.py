"""The way of a person who has the vendor's kit, walked with a stand-in for the kit.

    vendor_kit_test.py IMPORT_LIBRARY FOLDER

The stand-in has the headers that hostapi/vendor.h names and the simulated host's import library.
It is made twice: from our own declarations, and from others as a vendor may well have them. So it
shows that no source line but those of the door changes, that the sources hold for more than our
own guesses, and that the module is linked against what the kit's folder holds; what the vendor
really declares it cannot show. FOLDER keeps what was built.
"""

import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARIES = "x86e_win64/obj"

# How a vendor may declare things in another way than we do: header, our words, theirs. Only the
# compiler sees them; what is linked stays.
OTHER_DECLARATIONS = [
    # Codes are enumerations, and nothing says of what size.
    ("dialog_table.h", "enum ProUIColorType : int {};",
     "typedef enum { PROUICOLOR_FIRST, PROUICOLOR_LAST = 40 } ProUIColorType;"),
    ("drawing_view.h", "enum ProTanedgeDisplay : int {};",
     "typedef enum { PROTANEDGE_FIRST, PROTANEDGE_LAST = 20 } ProTanedgeDisplay;"),
    ("drawing_view.h", "enum ProCableDisplay : int {};",
     "typedef enum { PROCABLE_FIRST, PROCABLE_LAST = 3 } ProCableDisplay;"),
    ("session.h", "enum ProNotifyType : int { PRO_POPUPMENU_CREATE_POST = 72 };",
     "typedef enum { PRO_FIRST_EVENT = 1, PRO_POPUPMENU_CREATE_POST = 72 } ProNotifyType;"),
    ("command.h", "typedef int uiCmdPriority;",
     "typedef enum { uiCmdFirst = 0, uiCmdLast = 999 } uiCmdPriority;"),
    ("command.h", "typedef int uiCmdAccessMode;",
     "typedef enum { uiCmdAccessFirst, uiCmdAccessLast } uiCmdAccessMode;"),
    # The owner of a parameter is one of several kinds of things.
    ("parameter.h", "    ProModelitem owner;\n} ProParameter;",
     "    struct {\n        int type;\n        union {\n            ProMdl model;\n"
     "            ProModelitem item;\n        } who;\n    } owner;\n} ProParameter;"),
    ("family_table.h", "    ProModelitem owner;\n    ProLine name;",
     "    ProParameter parameter;\n    ProLine name;"),
    # What a rule is handed last has a type.
    ("command.h", "                                                 void* selection);",
     "                                                 ProSelection* selection);"),
    # Arrays are longer and shorter than ours.
    ("types.h", "typedef WideChar ProFileName[PRO_PATH_SIZE];",
     "typedef WideChar ProFileName[80];"),
    ("types.h", "#define PRO_LINE_SIZE 81", "#define PRO_LINE_SIZE 256"),
    ("types.h", "typedef WideChar ProMacro[PRO_PATH_SIZE];", "typedef WideChar ProMacro[256];"),
    ("model.h", "    ProPath path;\n    ProName name;", "    WideChar host[128];\n"
     "    WideChar device[8];\n    ProPath path;\n    WideChar name[81];"),
    ("model.h", "#define PRO_TYPE_SIZE 4", "#define PRO_TYPE_SIZE 7"),
]


def write(path, text):
    """Leaves a file alone that is as it should be, so that nothing is compiled again for it."""
    if not path.is_file() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def our_headers():
    """Lines that include our own declarations."""
    return "".join(f'#include "hostapi/host/{each.name}"\n'
                   for each in sorted((ROOT / "hostapi" / "host").glob("*.h")))


def other_headers(includes):
    """The same of copies in the kit with OTHER_DECLARATIONS in them."""
    (includes / "other").mkdir(parents=True, exist_ok=True)
    lines = []
    for each in sorted((ROOT / "hostapi" / "host").glob("*.h")):
        if each.name == "appearance.h":
            continue  # ours in every build
        text = each.read_text(encoding="utf-8")
        for header, ours, theirs in OTHER_DECLARATIONS:
            if header == each.name:
                if ours not in text:
                    sys.exit(f"{header} does not say {ours}")
                text = text.replace(ours, theirs)
        text = text.replace("typedef enum : int {", "typedef enum {")
        if each.name == "command.h":
            text = text.replace("#pragma once\n", '#pragma once\n#include "other/selection.h"\n')
        write(includes / "other" / each.name, text.replace('"hostapi/host/', '"other/'))
        lines.append(f'#include "other/{each.name}"\n')
    return "".join(lines)


def make_kit(kit, import_library, others):
    vendor = (ROOT / "hostapi" / "vendor.h").read_text(encoding="utf-8")
    names = re.findall(r"^#include <(.*)>", vendor, re.M)
    (kit / "includes").mkdir(parents=True, exist_ok=True)
    for name in names:
        write(kit / "includes" / name, "#pragma once\n")
    lines = other_headers(kit / "includes") if others else our_headers()
    write(kit / "includes" / "ProToolkit.h",
          f"#pragma once\n#undef VX_HOST_SDK\n{lines}#define VX_HOST_SDK\n")
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
