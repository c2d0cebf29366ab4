"""A kit is checked against our declarations before anything is built: with stand-ins made of those.

    kit_check_test.py COMPILER
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import stand_in_kit

ROOT = stand_in_kit.ROOT
DECLARATIONS = ROOT / "hostapi" / "host"
COMPILER = "c++"

# What a kit might say differently: (header, ours, theirs). None: not there at all.
DIFFERENCES = [
    ("session.h", "HOST_API ProError ProMacroLoad(WideChar* macro);", ""),
    ("solid.h", "HOST_API ProError ProSurfaceToGeomitem(ProSolid part, ProSurface surface,",
     "HOST_API ProError ProSurfaceToGeomitem(ProSolid part, int surface,"),
    ("model.h", "PRO_TYPE_SIZE 4", "PRO_TYPE_SIZE 8"),
    ("types.h", "    ProType type;\n    int id;\n    ProMdl owner;",
     "    ProMdl owner;\n    ProType type;\n    int id;"),
    ("types.h", "PRO_BODY = 176", "PRO_BODY_ = 177"),
    ("dialog_table.h", "enum ProUIColorType : int {};", "typedef int ProUIColorType;"),
]


# Of the stand-in with OTHER_DECLARATIONS: what differs, and all that is made of it. Codes that are
# enumerations of the same size in both are the same.
OTHER_NAMES = {
    "type uiCmdPriority", "type uiCmdAccessMode", "type uiCmdAccessFn", "operation ProCmdActionAdd",
    # the type of what a rule is handed last
    "type ProPopupmenuAccessFn", "operation ProPopupmenuButtonAdd",
    # the owner of a parameter, and a longer text in its value
    "type ProParameter", "field ProParameter.owner", "code PRO_LINE_SIZE", "type ProLine",
    "type ProParamvalueValue", "field ProParamvalueValue.s_val", "type ProParamvalue",
    "field ProParamvalue.value", "operation ProParameterInit", "operation ProParameterCreate",
    "operation ProParameterDelete", "operation ProParameterValueGet",
    "operation ProParameterValueSet", "operation ProDimensionTextGet",
    "operation ProDimensionTextSet",
    # a parameter in place of an owner
    "type ProFamtableItem", "field ProFamtableItem.owner", "field ProFamtableItem.name",
    "operation ProParameterToFamtableItem", "operation ProFamtableItemAdd",
    # lengths of names and types
    "type ProFileName", "type ProMacro", "code PRO_TYPE_SIZE", "type ProModel",
    "field ProModel.type", "operation ProDrawingFromTmpltCreate", "type ProMdldata",
    "field ProMdldata.device", "field ProMdldata.path", "field ProMdldata.name",
    "field ProMdldata.type", "field ProMdldata.version", "operation ProMdlDataGet",
    "operation ProMdlBackup",
}


def make_kit(kit, differences):
    """Our declarations in a folder of their own, included by the vendor's first header."""
    headers = kit / "includes"
    (headers / "kit").mkdir(parents=True)
    for name in stand_in_kit.vendor_headers():
        (headers / name).write_text("#pragma once\n", encoding="utf-8")
    texts = {each.name: each.read_text(encoding="utf-8") for each in DECLARATIONS.glob("*.h")}
    for name, ours, theirs in differences:
        assert texts[name].count(ours) == 1, f"{name} has no more {ours!r}"
        texts[name] = texts[name].replace(ours, theirs)
    for name, text in texts.items():
        text = text.replace('"hostapi/host/', '"kit/')
        (headers / "kit" / name).write_text(text, encoding="utf-8")
    # appearance.h stays ours, as with a real kit.
    ours = "".join(f'#include "kit/{name}"\n' for name in sorted(texts) if name != "appearance.h")
    (headers / "ProToolkit.h").write_text(
        f"#pragma once\n#ifndef PRO_MACHINE\n#error which machine?\n#endif\n"
        f"#undef VX_HOST_SDK\n{ours}#define VX_HOST_SDK\n", encoding="utf-8")


class KitCheck(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.kit = self.folder / "kit"

    def check(self, *arguments):
        return subprocess.run(["cmake", "-S", ROOT / "cmake" / "kit_check", "-B",
                               self.folder / "build", f"-DCMAKE_CXX_COMPILER={COMPILER}",
                               f"-DVX_HOST_SDK={self.kit}", *arguments],
                              capture_output=True, text=True, check=False)

    def table(self, differences):
        make_kit(self.kit, differences)
        return self.table_of_kit()

    def table_of_kit(self):
        done = self.check()
        self.assertEqual(done.returncode, 0, done.stderr)
        table = (self.folder / "build" / "kit.txt").read_text(encoding="utf-8")
        self.assertIn(table.strip(), done.stderr)
        return table.strip().split("\n")

    def test_our_own_declarations_are_the_same(self):
        lines = self.table([])
        self.assertEqual(len(lines), 1, lines)
        words = lines[0].split()
        self.assertEqual(words[0], words[2])
        declared = sum(each.read_text(encoding="utf-8").count("\nHOST_API ")
                       for each in DECLARATIONS.glob("*.h"))
        self.assertGreater(int(words[0]), declared)

    def test_each_difference_is_told(self):
        text = "\n".join(self.table(DIFFERENCES))
        self.assertIn("not there  operation ProMacroLoad\n", text)
        self.assertIn("not there  code PRO_BODY\n", text)
        self.assertIn("differs    operation ProSurfaceToGeomitem\n"
                      "             here: enum of 4 bytes (handle*, handle*, record of 16 bytes*)\n"
                      "             kit:  enum of 4 bytes (handle*, integer of 4 bytes, "
                      "record of 16 bytes*)\n", text)
        self.assertIn("differs    code PRO_TYPE_SIZE\n             here: 4\n             kit:  8\n",
                      text)
        self.assertIn("differs    field ProModelitem.owner\n"
                      "             here: void* at byte 8\n"
                      "             kit:  void* at byte 0\n", text)
        self.assertIn("differs    type ProUIColorType\n"
                      "             here: enum of 4 bytes\n"
                      "             kit:  integer of 4 bytes\n", text)
        self.assertNotIn("ProMdlCurrentGet", text)

    def test_of_a_kit_with_other_declarations_all_is_told_that_differs_and_nothing_else(self):
        stand_in_kit.make_headers(self.kit, others=True)
        text = "\n".join(self.table_of_kit())
        told = re.findall(r"^(?:not there|differs) +(.*)$", text, re.M)
        self.assertEqual(sorted(told), sorted(OTHER_NAMES))
        self.assertIn("not there  field ProFamtableItem.owner\n", text)
        self.assertIn("differs    type uiCmdAccessFn\n"
                      "             here: function enum of 4 bytes (integer of 4 bytes)\n"
                      "             kit:  function enum of 4 bytes (enum of 4 bytes)\n", text)
        self.assertIn("differs    type ProPopupmenuAccessFn\n"
                      "             here: function enum of 4 bytes (handle*, void*, void*)\n"
                      "             kit:  function enum of 4 bytes (handle*, void*, handle**)\n",
                      text)
        # A type, and a pointer or an item with its own owner: 4 + 4 (alignment) + 16.
        self.assertIn("differs    field ProParameter.owner\n"
                      "             here: record of 16 bytes at byte 72\n"
                      "             kit:  record of 24 bytes at byte 72\n", text)
        # Letters have two bytes: ours is after a device of 32 and a path of 260, the kit's after
        # 128 and 8 and the same path.
        self.assertIn("differs    field ProMdldata.name\n"
                      "             here: wide[32] at byte 584\n"
                      "             kit:  wide[81] at byte 792\n", text)

    def test_a_header_that_is_not_there_is_told_and_the_rest_compared(self):
        make_kit(self.kit, [])
        (self.kit / "includes" / "ProView.h").unlink()
        done = self.check()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("not there  header ProView.h", done.stderr)

    def test_headers_that_ask_for_other_defines_are_told_so(self):
        make_kit(self.kit, [])
        done = self.check("-DVX_HOST_DEFINES=PRO_USE_VAR_ARGS")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("VX_HOST_DEFINES", done.stderr)
        self.assertIn("which machine?", done.stderr)

    def test_a_folder_that_is_no_kit_is_told(self):
        done = self.check()
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("there is no includes/", " ".join(done.stderr.split()))


if __name__ == "__main__":
    COMPILER = sys.argv.pop(1) if len(sys.argv) > 1 else COMPILER
    unittest.main()
