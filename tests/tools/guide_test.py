#!/usr/bin/python3
"""Tests of tools/guide.py: what it takes from the product, and that nothing untold goes unseen."""

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))

import guide  # noqa: E402

TABLE = """
constexpr std::array<CommandRow, 3> kCommandTable = {{
    Row<"VxBom">      (Command<VxBom>,      AccessAssemblyOrMfg),
    Row<"BatchColor"> (Command<BatchColor>, AccessSolid)
        .Help("Color_Help").Icon("RandomColor.png"),
    Row<"VxLast">     (Command<VxLast>,     AccessAlways).MenuOnly(),
}};
"""
TEXTS = ("Menu\nV\n菜单\n#\nVxBom\nBill\nBOM表\n#\nVxBom_Help\nShow\n显示BOM表\n#\n"
         "BatchColor\nColour\n上色\n#\nColor_Help\nC\n给零件上色\n#\nVxLast\nL\n最后\n#\n"
         "VxLast_Help\nL\n最后一个\n#\n")
RESOURCE = """(Dialog VxBom (Components (Label Lab) (PushButton Load) (Table rows))
(Resources (Load.Label "载入")))"""
SOURCE = """// The command VxBom: a table.
#include "x.h"
void F() { ShowNotice(WIDE("\\t当前模型不是组件\\t")); Label(WIDE("数量")); }
"""
PAGE = """A table. `Load` `rows` `cols_…`

## 步骤
“当前模型不是…”
## 注意
## 示例
"""


class Made(unittest.TestCase):
    """A small product with a page for each command that works."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("frame/command_table.cpp", TABLE)
        self.write("text/vxMenu.txt", TEXTS)
        self.write("text/resource/VxBom.res", RESOURCE)
        self.write("tables/bom.cpp", SOURCE)
        self.write("VXconfig/VxBom.ini", "[cols_sum]\ncontent=a\n[7]\nvalue=1\n")
        self.pages = {"VxBom": PAGE, "BatchColor": "## 步骤\n## 注意\n## 示例\n",
                      "VxLast": "## 步骤\n## 注意\n## 示例\n"}

    def write(self, name, text, encoding="utf-8"):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding=encoding)


class Gaps(Made):
    def gaps(self):
        return list(guide.gaps(guide.Product(self.root), self.pages))

    def test_a_page_that_tells_everything_has_no_gap(self):
        self.assertEqual(self.gaps(), [])

    def test_help_and_access_come_from_the_row_or_follow_the_name(self):
        commands = guide.Product(self.root).commands
        self.assertEqual(commands["BatchColor"], ("Color_Help", "AccessSolid"))
        self.assertEqual(commands["VxBom"], ("VxBom_Help", "AccessAssemblyOrMfg"))
        self.assertEqual(commands["VxLast"], ("VxLast_Help", "AccessAlways"))

    def test_a_command_without_a_page_is_found(self):
        del self.pages["BatchColor"]
        self.assertEqual(self.gaps(), ["BatchColor works and has no page "
                                       "(docs/guide/commands/BatchColor.md)"])

    def test_a_page_of_no_command_is_found(self):
        self.pages["VxNever"] = ""
        self.assertEqual(self.gaps(), ["VxNever.md is a page of no command that works"])

    def test_a_component_without_a_line_is_found(self):
        self.pages["VxBom"] = PAGE.replace("`rows`", "")
        self.assertEqual(self.gaps(), ["VxBom.md has no line on `rows` of its dialog"])

    def test_a_message_without_a_line_is_found_and_labels_are_none(self):
        self.pages["VxBom"] = PAGE.replace("不是", "是")
        self.assertEqual(self.gaps(), ["VxBom.md has no line on the message “当前模型不是组件”"])

    def test_a_setting_that_no_page_names_is_found_and_palettes_are_none(self):
        self.write("VXconfig/VxBom.ini", "[other]\ncontent=a\n[7]\nvalue=1\n")
        self.assertEqual(self.gaps(), ["no page names the setting `other` of VxBom.ini"])

    def test_settings_are_read_in_each_encoding_that_windows_writes(self):
        for encoding in ("gbk", "utf-16", "utf-8-sig"):
            self.write("VXconfig/VxBom.ini", "; 列\n[cols_sum]\ncontent=名称\n", encoding)
            self.assertEqual(list(guide.Product(self.root).settings()),
                             [("VxBom.ini", "cols_sum")], encoding)

    def test_a_part_that_is_missing_is_found(self):
        self.pages["VxBom"] = PAGE.replace("## 注意", "")
        self.assertEqual(self.gaps(), ["VxBom.md has no part ## 注意"])

    def test_quotes_inside_quotes_are_one_message(self):
        self.assertEqual(guide.quotes_in("提示“参数“数量”失败”。“完”"), ["参数“数量”失败", "完"])


class WrittenGuide(Made):
    def made(self, example, program="#!/bin/sh\nexit 0\n"):
        self.write("simhost", program)
        (self.root / "simhost").chmod(0o755)
        self.write("pages/00-start.md", "# Start\n[bom](VxBom.html)\n")
        self.write("pages/commands/VxBom.md", PAGE + example)
        for command in ("BatchColor", "VxLast"):
            self.write(f"pages/commands/{command}.md", self.pages[command])
        made = guide.Guide(guide.Product(self.root), self.root / "pages", self.root / "simhost",
                           self.root / "out")
        made.write()
        return made.findings

    def test_links_to_what_is_not_there_are_found(self):
        self.assertEqual(self.made(""),
                         ["VxBom.html leads to dialogs/frames.js, which is not there",
                          "VxBom.html leads to dialogs/VxBom.html, which is not there"])

    def test_a_page_shows_the_dialog_that_the_program_writes(self):
        writing = ('#!/bin/sh\n[ "$1" = dialogs ] || exit 0\nmkdir -p "$3"\n'
                   'touch "$3/frames.js" "$3/VxBom.html"\n')
        self.assertEqual(self.made("", writing), [])
        text = (self.root / "out/VxBom.html").read_text(encoding="utf-8")
        self.assertIn('<a class="dialog" href="dialogs/VxBom.html">对话框 BOM表</a>', text)
        self.assertIn('<script src="dialogs/frames.js" defer></script>', text)
        other = (self.root / "out/VxLast.html").read_text(encoding="utf-8")
        self.assertNotIn("frames.js", other)

    def test_dialogs_that_cannot_be_written_are_found(self):
        failing = '#!/bin/sh\n[ "$1" = dialogs ] || exit 0\necho "no room" >&2\nexit 2\n'
        self.assertIn("the dialogs cannot be written: no room", self.made("", failing))

    def test_an_example_that_fails_is_found_with_what_went_wrong(self):
        failing = '#!/bin/sh\n[ "$1" = run ] || exit 0\necho "!! no box is open"\nexit 1\n'
        self.assertIn("the example of VxBom fails: !! no box is open",
                      self.made("```trail\n@ ok\n```\n", failing))

    def test_a_page_shows_where_the_command_is_and_when_it_can_be_had(self):
        self.made("")
        text = (self.root / "out/VxBom.html").read_text(encoding="utf-8")
        self.assertIn("菜单：菜单 → BOM表", text)
        self.assertIn("打开组件或制造模型时可用", text)
        self.assertIn('<a href="VxLast.html">最后</a>', text)


if __name__ == "__main__":
    unittest.main()
