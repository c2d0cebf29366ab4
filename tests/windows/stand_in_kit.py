"""Stand-ins for the vendor's kit: its headers, made of our own declarations, as they are or as a
vendor may well have them."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

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
    ("model.h", "    ProName device;", "    WideChar host[128];\n    WideChar device[8];"),
    ("model.h", "    ProName name;\n    WideChar type[PRO_TYPE_SIZE];\n    int version;",
     "    WideChar name[81];\n    WideChar type[PRO_TYPE_SIZE];\n    int version;"),
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


def vendor_headers():
    """The headers that hostapi/vendor.h includes."""
    vendor = (ROOT / "hostapi" / "vendor.h").read_text(encoding="utf-8")
    return re.findall(r"^#include <(.*)>", vendor, re.M)


def make_headers(kit, others):
    """A kit's includes/: all declarations are in its first header."""
    (kit / "includes").mkdir(parents=True, exist_ok=True)
    for name in vendor_headers():
        write(kit / "includes" / name, "#pragma once\n")
    lines = other_headers(kit / "includes") if others else our_headers()
    write(kit / "includes" / "ProToolkit.h",
          f"#pragma once\n#undef VX_HOST_SDK\n{lines}#define VX_HOST_SDK\n")
