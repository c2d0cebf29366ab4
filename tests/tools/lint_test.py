#!/usr/bin/env python3
"""Tests of the house rules in tools/lint.py: each rule must find its fault in a small tree, and be
silent where the fault was mended."""

import contextlib
import importlib.util
import io
import tempfile
import unittest
import unittest.mock
from pathlib import Path

LINT = Path(__file__).resolve().parents[2] / "tools" / "lint.py"
_module = importlib.util.spec_from_file_location("lint", LINT)
lint = importlib.util.module_from_spec(_module)
_module.loader.exec_module(lint)

BANNER = "// What this file is for, in a sentence.\n"


class RuleTest(unittest.TestCase):
    """Each test writes a tree of its own and asks one rule."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="lint test ")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, path, text):
        place = self.root / path
        place.parent.mkdir(parents=True, exist_ok=True)
        place.write_bytes(text if isinstance(text, bytes) else text.encode())

    def found(self, rule):
        """The findings as "path:line"."""
        return sorted(f"{f.path}:{f.line}" for f in rule(lint.Tree(self.root)))

    def texts(self, rule):
        return [f.text for f in rule(lint.Tree(self.root))]

    def notes(self, rule):
        tree = lint.Tree(self.root)
        self.assertEqual(list(rule(tree)), [])
        return tree.notes


class StandardHeaders(RuleTest):
    def missing(self, text):
        self.write("simhost/core/x.cpp", BANNER + text)
        return self.texts(lint.sources_include_what_they_use)

    def test_what_is_used_is_included(self):
        self.assertEqual(self.missing("std::vector<int> x;\n"),
                         ["uses <vector> without including it (nobody else need)"])
        self.assertEqual(self.missing("#include <vector>\nstd::vector<int> x;\n"), [])

    def test_the_line_is_that_of_the_first_use(self):
        self.missing("\nint y;\nstd::vector<int> x;\n")
        self.assertEqual(self.found(lint.sources_include_what_they_use), ["simhost/core/x.cpp:4"])

    def test_a_header_of_ours_may_include_it(self):
        self.write("simhost/core/y.h", BANNER + "#include <vector>\n")
        self.write("simhost/core/x.h", BANNER + '#include "simhost/core/y.h"\n')
        self.assertEqual(self.missing('#include "simhost/core/x.h"\nstd::vector<int> x;\n'), [])
        self.assertEqual(self.missing('#include "x.h"\nstd::vector<int> x;\n'), [])

    def test_comments_and_texts_use_nothing(self):
        self.assertEqual(self.missing('// std::map\nconst char* x = "std::map";\n'), [])

    def test_a_name_that_only_begins_alike_is_another(self):
        self.assertEqual(self.missing("std::mapped x; std::find_in(y);\n"), [])

    def test_fmt_has_several_headers(self):
        self.assertEqual(len(self.missing("fmt::format();\n")), 1)
        for header in ("format", "core"):
            self.assertEqual(self.missing(f"#include <fmt/{header}.h>\nfmt::format();\n"), [])

    def test_a_source_is_not_included(self):
        self.assertEqual(self.missing('#include "simhost/core/y.cpp"\n'),
                         ['includes "simhost/core/y.cpp" (include its header)'])

    def test_a_declaration_may_be_enough(self):
        self.assertEqual(self.missing("#include <iosfwd>\nstd::ofstream* x;\n"), [])


class Includes(RuleTest):
    def verdict(self, path, include):
        self.write(path, f"{BANNER}#include {include}\n")
        return self.found(lint.includes_go_one_way) == []

    def test_a_room_includes_itself_the_services_the_door_and_the_standard_library(self):
        for include in ('"display/x.h"', '"frame/services.h"', '"hostapi/host.h"', "<string>",
                        '"hostapi/windows.h"', '"hostapi/wide.h"', '"hostapi/excel.h"',
                        '"hostapi/export.h"', "<cstdint>"):
            self.assertTrue(self.verdict("display/x.cpp", include), include)

    def test_a_room_includes_nothing_else(self):
        for include in ('"export/x.h"', '"simhost/host.h"', '"tests/x.h"', '"x.h"',
                        '"frame/menus.h"', '"frame/services/text.h"',
                        '"hostapi/host/model.h"', '"../simhost/host.h"',
                        '"display/../simhost/host.h"', "<fmt/format.h>", "<windows.h>",
                        "<string.h>", "<unistd.h>", "HEADER"):
            self.assertFalse(self.verdict("display/x.cpp", include), include)

    def test_only_the_command_table_sees_the_rooms(self):
        self.assertTrue(self.verdict("frame/command_table.cpp", '"tables/commands.h"'))
        self.assertFalse(self.verdict("frame/command_table.cpp", '"simhost/host.h"'))
        self.write("frame/command_table.cpp", BANNER)
        self.assertFalse(self.verdict("frame/menus.cpp", '"tables/commands.h"'))

    def test_the_services_stand_on_the_door_and_know_nobody_above(self):
        for path in ("frame/services/x.cpp", "frame/services.h"):
            for include in ('"frame/services/y.h"', '"hostapi/host.h"', "<string>"):
                self.assertTrue(self.verdict(path, include), include)
            for include in ('"frame/menus.h"', '"frame/services.h"', '"tables/commands.h"'):
                self.assertFalse(self.verdict(path, include), include)
            self.write(path, BANNER)

    def test_the_frame_stands_on_the_services(self):
        for include in ('"frame/services.h"', '"frame/services/text.h"', '"frame/entry.h"'):
            self.assertTrue(self.verdict("frame/menus.cpp", include), include)

    def test_the_door_includes_itself_and_the_standard_library(self):
        self.assertTrue(self.verdict("hostapi/x.h", '"hostapi/wide.h"'))
        self.assertFalse(self.verdict("hostapi/x.h", '"frame/text.h"'))
        self.assertFalse(self.verdict("hostapi/x.h", "<windows.h>"))
        self.write("hostapi/x.h", BANNER)
        self.assertTrue(self.verdict("hostapi/windows.h", "<windows.h>"))
        self.assertTrue(self.verdict("hostapi/vendor.h", "<anything.h>"))

    def test_the_simulated_host_takes_libraries_but_not_the_plug_in(self):
        self.assertTrue(self.verdict("simhost/a/x.cpp", "<fmt/format.h>"))
        self.assertFalse(self.verdict("simhost/a/x.cpp", '"frame/text.h"'))

    def test_tests_include_what_they_test(self):
        self.assertTrue(self.verdict("tests/simhost/x_test.cpp", '"frame/text.h"'))
        self.assertTrue(self.verdict("tests/simhost/x_test.cpp", "<gtest/gtest.h>"))

    def test_an_include_in_a_comment_does_not_count_and_the_line_is_right(self):
        self.write("frame/x.cpp", BANNER + '/*\n#include "tests/x.h"\n*/\n\n#include "tests/x.h"\n')
        self.assertEqual(self.found(lint.includes_go_one_way), ["frame/x.cpp:6"])



class Floors(RuleTest):
    def verdict(self, path, line):
        self.write(path, f"{BANNER}{line}\n")
        return self.found(lint.simhost_has_floors) == []

    def test_a_floor_includes_itself_and_what_is_below(self):
        for path, header in (("app/x.cpp", "door/x.h"), ("door/x.cpp", "app/x.h"),
                             ("trail/x.cpp", "host.h"), ("ui/x.cpp", "model/x.h"),
                             ("windows/x.cpp", "user/x.h"), ("user/x.cpp", "core/x.h"),
                             ("picture/x.cpp", "core/x.h"), ("host.cpp", "windows/x.h")):
            self.assertTrue(self.verdict(f"simhost/{path}", f'#include "simhost/{header}"'), path)

    def test_a_floor_includes_nothing_above(self):
        for path, header in (("core/x.cpp", "host.h"), ("core/x.h", "user/x.h"),
                             ("user/x.cpp", "windows/x.h"), ("ui/x.cpp", "trail/x.h"),
                             ("model/x.cpp", "host.h"), ("spreadsheet/x.cpp", "app/x.h"),
                             ("host.cpp", "app/x.h")):
            line = f'#include "simhost/{header}"'
            self.assertFalse(self.verdict(f"simhost/{path}", line), path)
            self.assertTrue(self.verdict(f"simhost/{path}", "// " + line), path)

    def test_only_doors_trails_and_the_program_ask_the_host(self):
        for path in ("door/x.cpp", "trail/x.cpp", "app/x.cpp", "host.cpp"):
            self.assertTrue(self.verdict(f"simhost/{path}", "int i = TheHost().number;"), path)
        for path in ("core/x.cpp", "user/x.cpp", "ui/x.cpp", "model/x.cpp", "windows/x.cpp"):
            self.assertFalse(self.verdict(f"simhost/{path}", "int i = TheHost().number;"), path)
            self.assertTrue(self.verdict(f"simhost/{path}", "// TheHost() is above."), path)

    def test_a_folder_without_a_floor_is_told(self):
        self.assertFalse(self.verdict("simhost/attic/x.cpp", "int i = 0;"))

    def test_an_exception_holds_for_its_file_alone_and_as_long_as_it_is_needed(self):
        rows = (("simhost/core/x.cpp", "simhost/host.h", "for now"),)
        with unittest.mock.patch.object(lint, "SIMHOST_EXCEPTIONS", rows):
            self.assertTrue(self.verdict("simhost/core/x.cpp", '#include "simhost/host.h"'))
            self.assertFalse(self.verdict("simhost/core/y.cpp", '#include "simhost/host.h"'))
            self.assertTrue(self.verdict("simhost/core/y.cpp", "int i = 0;"))
            self.assertFalse(self.verdict("simhost/core/x.cpp", "int i = 0;"))

class ConditionalCode(RuleTest):
    def test_each_form_is_found_in_the_plug_in(self):
        for form in ("#if X", "#ifdef X", "#ifndef X", "#elif X", "  #  if X"):
            self.write("drawing/x.cpp", f"{BANNER}{form}\n")
            self.assertEqual(self.found(lint.no_conditional_code), ["drawing/x.cpp:2"], form)

    def test_pragma_once_comments_and_other_folders_are_free(self):
        self.write("frame/x.h", BANNER + "#pragma once\n// #if in words\n#define A 1\n")
        self.write("simhost/x.h", BANNER + "#ifdef _WIN32\n#endif\n")
        self.assertEqual(self.found(lint.no_conditional_code), [])

    def test_of_the_door_only_its_own_headers_may_differ(self):
        for name in ("windows.h", "wide.h", "export.h", "host.h", "host/types.h"):
            self.write(f"hostapi/{name}", BANNER + "#ifdef _WIN32\n#endif\n")
        self.write("hostapi/host/model.h", BANNER + "#ifndef VX_HOST_SDK\n#endif\n")
        self.assertEqual(self.found(lint.no_conditional_code), ["hostapi/host/model.h:2"])


class WideLiterals(RuleTest):
    def test_each_form_is_found_in_the_plug_in(self):
        for form in ('L"a"', 'u"a"', 'U"a"', "L'a'", "u'a'", 'LR"(a)"', 'uR"x(a)x"'):
            self.write("frame/x.cpp", f"{BANNER}\nauto x = {form};\n")
            self.assertEqual(self.found(lint.wide_literals_have_one_form), ["frame/x.cpp:3"], form)

    def test_what_only_looks_like_one_is_free(self):
        self.write("frame/x.cpp", BANNER + "auto a = WIDE(\"a\"); // not L\"a\"\n"
                   "auto b = \"L\\\"a\"; auto c = R\"(u\"a\")\"; auto d = u8\"a\"; auto e = 'u';\n"
                   "auto f = FULL\"a\"; auto g = 1'000'000;\n")
        self.write("simhost/x.cpp", BANNER + 'auto x = u"a";\n')
        self.assertEqual(self.found(lint.wide_literals_have_one_form), [])


class Banners(RuleTest):
    def test_a_sentence_in_any_comment_is_enough(self):
        self.write("a.cpp", BANNER)
        self.write("b.h", "/* What this file is for,\n   in a sentence. */\n")
        self.write("c.py", '#!/usr/bin/env python3\n"""What this file is for. More."""\n')
        self.write("CMakeLists.txt", "# What this file is for,\n# in a sentence.\n")
        self.write("run", "#!/usr/bin/env bash\n# What this file is for: to run.\n")
        self.write("data.txt", "no source\n")
        self.assertEqual(self.found(lint.sources_open_with_a_banner), [])

    def test_no_comment_a_late_one_and_a_title_are_found(self):
        self.write("a.cpp", "int x;\n" + BANNER)
        self.write("b.h", "// Helpers.\n#pragma once\n")
        self.write("c.py", "#!/usr/bin/env python3\nimport os\n")
        self.write("x/CMakeLists.txt", "project(X)\n")
        self.write("run", "#!/usr/bin/env bash\nset -e\n")
        self.write("d.cpp", "// a comment that never comes to an end\n")
        self.assertEqual(self.found(lint.sources_open_with_a_banner),
                         ["a.cpp:1", "b.h:1", "c.py:1", "d.cpp:1", "run:1", "x/CMakeLists.txt:1"])


class Layout(RuleTest):
    def test_each_fault_is_found(self):
        self.write("long.cpp", "// " + "x" * 97 + "\n" + "// " + "x" * 98 + "\n")
        self.write("wide.cpp", "// " + "中" * 48 + "\n" + "// " + "中" * 49 + "\n")
        self.write("tab.py", "if x:\n\ty\n")
        self.write("blank.cpp", "int x; \n\nint y;\r\n")
        self.write("open.cpp", "int x;")
        self.write("double.cpp", "int x;\n\n")
        self.write("bytes.cpp", b"// \xd6\xd0\n")
        self.assertEqual(self.found(lint.lines_are_tidy),
                         ["blank.cpp:1", "blank.cpp:3", "bytes.cpp:1", "double.cpp:3",
                          "long.cpp:2", "open.cpp:1", "tab.py:2", "wide.cpp:2"])

    def test_a_fenced_table_may_be_wider_but_not_what_follows_it(self):
        row = "{" + "x" * 120 + "}\n"
        self.write("a.cpp", f"// clang-format off\n{row}// clang-format on\n{row}")
        self.assertEqual(self.found(lint.lines_are_tidy), ["a.cpp:4"])

    def test_files_that_are_no_sources_and_built_ones_are_free(self):
        for path in ("README.md", "text/a.txt", "build/a.cpp", "out/a.cpp", ".git/a.cpp"):
            self.write(path, "\t" * 200)
        self.assertEqual(self.found(lint.lines_are_tidy), [])

    def test_a_long_file_is_only_noted(self):
        self.write("a.cpp", "//\n" * 501)
        self.write("b.cpp", "//\n" * 500)
        notes = self.notes(lint.long_files_are_named)
        self.assertEqual(len(notes), 1)
        self.assertIn("a.cpp has 501 lines", notes[0])


class PlanningPapers(RuleTest):
    def test_they_are_found_in_sources_and_in_documents(self):
        for number, words in enumerate(("see spec" + ".md", "the speci" + "fication says",
                                        "Speci" + "fication", "Par" + "t 1.2")):
            self.write(f"{number}.md", f"line\n{words}\n")
            self.write(f"{number}.cpp", f"// {words}\n")
        self.assertEqual(self.found(lint.no_planning_papers),
                         sorted(f"{n}.{s}" for n in range(4) for s in ("md:2", "cpp:1")))

    def test_words_that_are_near_are_free(self):
        self.write("a.md", "a part 1.2 mm thick, a specific one, Part 1, special.md\n")
        self.assertEqual(self.found(lint.no_planning_papers), [])


class CommandTexts(RuleTest):
    def setUp(self):
        super().setUp()
        self.rows = [f"Vx{n}" for n in range(56)]
        self.keys = [key for name in self.rows for key in (name, f"{name}_Help")]
        self.keys += sorted(lint.MENU_KEYS_WITHOUT_ROW)

    def lay(self):
        table = "".join(f'    Row<"{name}">  (Command<{name}>, Always),\n' for name in self.rows)
        table += 'Row = Row<"VxOpenDrw">(Command<VxOpenDrw>, Always).MenuOnly().NoIcon();\n'
        self.write("frame/command_table.cpp", BANNER + table)
        menu = "".join(f"{key}\nEnglish\n中文\n#\n" for key in self.keys)
        self.write("text/vxMenu.txt", "\ufeff" + menu)

    def test_a_table_and_its_texts_agree(self):
        self.lay()
        self.assertEqual(self.found(lint.commands_have_their_texts), [])

    def test_a_missing_label_and_a_missing_help_are_found_at_their_row(self):
        self.keys.remove("Vx3")
        self.keys.remove("Vx5_Help")
        self.lay()
        self.assertEqual(self.found(lint.commands_have_their_texts),
                         ["frame/command_table.cpp:5", "frame/command_table.cpp:7"])

    def test_a_text_without_a_command_is_found(self):
        self.keys.insert(0, "Nobody")
        self.lay()
        self.assertEqual(self.found(lint.commands_have_their_texts), ["text/vxMenu.txt:1"])

    def test_the_menus_own_text_must_be_there(self):
        self.keys.remove("Menu")
        self.lay()
        self.assertEqual(len(self.found(lint.commands_have_their_texts)), 1)

    def test_a_lost_row_and_a_doubled_row_are_found(self):
        self.rows.pop()
        self.keys = [key for key in self.keys if not key.startswith("Vx55")]
        self.lay()
        self.assertIn("55 rows", self.texts(lint.commands_have_their_texts)[0])
        self.rows.append(self.rows[0])
        self.lay()
        self.assertEqual(self.found(lint.commands_have_their_texts),
                         ["frame/command_table.cpp:2", "frame/command_table.cpp:57"])

    def test_each_language_and_the_shape_of_a_message_are_asked_for(self):
        self.lay()
        good = (self.root / "text/vxMenu.txt").read_text(encoding="utf-8")
        for fault, line in (("Vx0\n\n中文\n#\n", 2), ("Vx0\nEnglish\nEnglish\n#\n", 3),
                            ("Vx0\nEnglish\n中文\n", 1)):
            self.write("text/vxMenu.txt", good.replace("Vx0\nEnglish\n中文\n#\n", fault))
            self.assertIn(f"text/vxMenu.txt:{line}", self.found(lint.commands_have_their_texts))
        self.write("text/vxMenu.txt", good + "Vx0\nEnglish\n中文\n#\n")
        self.assertIn("is there twice", "".join(self.texts(lint.commands_have_their_texts)))

    def test_nothing_to_check_is_said_and_only_while_both_are_absent(self):
        self.assertIn("nothing to check", self.notes(lint.commands_have_their_texts)[0])
        self.lay()
        (self.root / "text/vxMenu.txt").unlink()
        self.assertEqual(self.found(lint.commands_have_their_texts), ["text/vxMenu.txt:1"])
        self.lay()
        (self.root / "frame/command_table.cpp").unlink()
        self.assertEqual(self.found(lint.commands_have_their_texts), ["frame/command_table.cpp:1"])


class CommandRows(RuleTest):
    """Rows against the files of the rooms and against the README."""

    def setUp(self):
        super().setUp()
        self.table('    Row<"VxBom">   (Command<VxBom>, Always),\n'
                   '    Row<"VxIsolate">   (Command<VxIsolate>, Always)\n'
                   '        .Help("H").Icon("i.png"),\n'
                   '    Row<"Paint">   (Command<Paint>, Always).MenuOnly(),\n')
        self.write("tables/bom.cpp", "// VxBom: the list of all parts, in a table.\n")
        self.write("display/paint.cpp", "// Paint: a colour for each and every part.\n")
        self.write("display/isolate.cpp", "// VxIsolate: one component and nothing else.\n")
        self.readme("| `VxBom`, `Paint`, `VxIsolate` | three; `VxLater` is told elsewhere |\n")

    def table(self, rows):
        self.write("frame/command_table.cpp", BANNER + rows)

    def readme(self, rows):
        self.write("README.md", "# Product\n\n## What works today\n\n| Command | Does |\n"
                   f"|---|---|\n{rows}\n## Other commands\n\n| `vx` | builds |\n")

    def test_rows_files_and_readme_that_agree_are_free(self):
        for rule in (lint.rows_name_their_own_command, lint.commands_are_named_by_their_file,
                     lint.readme_tells_what_works):
            self.assertEqual(self.found(rule), [])

    def test_a_help_that_differs_is_asked_for_in_the_menu_texts(self):
        self.write("text/vxMenu.txt", "VxIsolate\nEnglish\n中文\n#\n")
        texts = "".join(self.texts(lint.commands_have_their_texts))
        self.assertIn('"H" is not in', texts)
        self.assertNotIn("VxIsolate_Help", texts)

    def test_a_row_that_runs_another_command_is_found(self):
        self.table('    Row<"VxBom">   (Command<Paint>, Always),\n')
        self.assertEqual(self.found(lint.rows_name_their_own_command),
                         ["frame/command_table.cpp:2"])

    def test_a_command_that_no_file_or_two_files_name_is_found(self):
        self.write("display/paint.cpp", "// Colours for each and every part.\n// Paint.\n")
        self.write("tables/bom_table.cpp", "// What the table of VxBom shows in its cells.\n")
        self.assertEqual(self.found(lint.commands_are_named_by_their_file),
                         ["frame/command_table.cpp:2", "frame/command_table.cpp:5"])
        self.assertIn("tables/bom.cpp, tables/bom_table.cpp",
                      self.texts(lint.commands_are_named_by_their_file)[0])

    def test_part_of_a_word_and_headers_do_not_name_a_command(self):
        self.write("display/other.cpp", "// VxBomb and Painter are other words of the language.\n")
        self.write("tables/commands.h", "// VxBom and all other commands of this very room.\n")
        self.assertEqual(self.found(lint.commands_are_named_by_their_file), [])

    def test_a_command_that_the_readme_forgets_is_found_at_its_row(self):
        self.readme("| `VxBom`, `VxIsolate` | both; `Paint` in another column does not count |\n")
        self.assertEqual(self.found(lint.readme_tells_what_works), ["frame/command_table.cpp:5"])

    def test_a_command_that_the_readme_promises_too_early_is_found_there(self):
        self.readme("| `VxBom`, `Paint`, `VxIsolate` | all |\n| `VxLater` | not yet |\n")
        self.assertEqual(self.found(lint.readme_tells_what_works), ["README.md:8"])

    def test_a_readme_without_the_table_is_found(self):
        self.write("README.md", "# Product\n")
        self.assertEqual(self.found(lint.readme_tells_what_works), ["README.md:1"])


class MessageTexts(RuleTest):
    TEXTS = "Pick (one): \nPick (one): \n请选择\n#\nDone:%0w\nDone:%0w\n完成：%0w\n#\n"

    def show(self, code, path="tables/x.cpp"):
        self.write("text/vxmsg_display.txt", self.TEXTS)
        self.write(path, BANNER + code)
        return self.found(lint.messages_have_their_texts)

    def test_a_known_key_is_found_in_every_form(self):
        for code in ('ProMessageDisplay(file, "Pick (one): ");\n',
                     'ProMessageDisplay(Wide("vxmsg_display.txt"), Text("Pick " "(one): "));\n',
                     'const char* kPick = "Pick (one): ";\nProMessageDisplay(kFile, kPick);\n',
                     'ProMessageDisplay(file,\n    "Done:%0w", name.data());\n',
                     '// ProMessageDisplay(file, "Nothing");\n'):
            self.assertEqual(self.show(code), [], code)

    def test_an_unknown_key_is_found_in_every_form(self):
        for code in ('ProMessageDisplay(file, "Pick (one):");\n',
                     'ProMessageDisplay(Wide("vxmsg_display.txt"), Text("Pick" "(one): "));\n',
                     'ProMessageDisplay(file, kPick);\nconst char kPick[] = "Pikc";\n'):
            self.assertEqual(self.show(code), ["tables/x.cpp:2"], code)

    def test_a_key_that_is_not_seen_needs_a_named_function(self):
        define = "void Show(const char* key) {\n    ProMessageDisplay(kFile, key);\n}\n"
        self.assertEqual(self.show(define, "frame/show.cpp"), ["frame/show.cpp:3"])
        lint.MESSAGE_WRAPPERS["frame/show.cpp"] = ("Show",)
        self.addCleanup(lint.MESSAGE_WRAPPERS.clear)
        self.assertEqual(self.show(define, "frame/show.cpp"), [])
        self.assertEqual(self.show('Show("Pick (one): ");\n'), [])
        self.assertEqual(self.show('Show("Pikc");\n'), ["tables/x.cpp:2"])

    def test_without_the_file_every_message_is_lost_and_without_both_it_is_said(self):
        self.assertIn("nothing to check", self.notes(lint.messages_have_their_texts)[0])
        self.write("frame/x.cpp", BANNER + 'ProMessageDisplay(file, "Pick");\n')
        self.assertEqual(self.found(lint.messages_have_their_texts), ["frame/x.cpp:2"])


class DialogTitles(RuleTest):
    def titled(self, name, title):
        self.write("text/vxMenu.txt", "VxBom\nBill\nBOM表\n#\nVxRelations\nR\n批量关系\n#\n")
        self.write(f"text/resource/{name}.res", f'(Dialog D\n (Resources\n  (.Label  "{title}")))')
        return self.found(lint.dialogs_bear_their_commands_label)

    def test_a_title_is_the_label_of_the_command(self):
        self.assertEqual(self.titled("VxBom", "BOM表"), [])
        self.assertEqual(self.titled("VxBom", "明细表"), ["text/resource/VxBom.res:3"])

    def test_a_dialog_may_lack_the_beginning_of_its_commands_name(self):
        self.assertEqual(self.titled("Relations", "关系"), ["text/resource/Relations.res:3"])

    def test_a_dialog_of_no_command_has_a_title_of_its_own(self):
        self.assertEqual(self.titled("VxInit", "欢迎"), [])


class Report(RuleTest):
    def report(self):
        with contextlib.redirect_stdout(io.StringIO()) as said:
            status = lint.check_rules(self.root)
        return status, said.getvalue()

    def test_a_finding_is_one_line_with_its_place_and_fails_the_run(self):
        self.write("frame/x.cpp", BANNER + "#ifdef X\n")
        status, said = self.report()
        self.assertEqual(status, 1)
        self.assertRegex(said, r"(?m)^frame/x\.cpp:2: #ifdef in the plug-in \(.+\)$")

    def test_a_hint_does_not_fail_the_run(self):
        self.write("frame/x.cpp", BANNER + "int x;\n" * 500)
        status, said = self.report()
        self.assertEqual(status, 0)
        self.assertIn("hint: frame/x.cpp has 501 lines", said)


if __name__ == "__main__":
    unittest.main()
