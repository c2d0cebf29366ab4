#!/usr/bin/env python3
"""Checks the house rules that no compiler knows: one small function for each rule.

    tools/lint.py

Every finding is a line "file:line: what is wrong (why)". The exit status is 1 if there is any.
Each rule has its test in tests/tools/lint_test.py.
"""

import argparse
import collections
import functools
import os
import re
import sys
import unicodedata
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
import standard_headers

LANGUAGES = ("cpp", "python", "cmake", "bash")
ROOMS = ("display", "modeldata", "construct", "drawing", "export", "tables", "commands")
PLUGIN = ("frame",) + ROOMS

# The headers of the door that the plug-in includes; those below hostapi/host/ come with host.h.
DOOR = {f"hostapi/{name}.h" for name in ("host", "windows", "wide", "excel", "export")}

# What rooms stand on: the chief header alone, and the folder of its parts.
SERVICES, SERVICES_FOLDER = "frame/services.h", "frame/services/"

# Where the door meets the real Windows and the vendor's own headers.
SYSTEM_HEADERS_OF_THE_DOOR = {"hostapi/windows.h": {"windows.h", "commdlg.h", "shellapi.h",
                                                    "shlobj.h", "shlwapi.h", "wchar.h",
                                                    "locale.h"},
                              "hostapi/excel_com.cpp": {"windows.h", "oleauto.h"}}
VENDOR_DOOR = "hostapi/vendor.h"

# What differs between systems and kits, and nothing else does: the literal macro, the export
# markers, the real Windows, and the vendor's own headers in the place of ours.
CONDITIONAL_HEADERS = {f"hostapi/{name}.h" for name in ("wide", "export", "windows", "excel",
                                                        "host", "host/types")}

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv
    chrono cinttypes climits clocale cmath compare complex concepts condition_variable coroutine
    csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
    deque exception execution filesystem forward_list fstream functional future initializer_list
    iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
    memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex
    scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view strstream syncstream system_error thread tuple
    type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector
    version""".split())

COMMAND_TABLE = "frame/command_table.cpp"
MENU_TEXTS = "text/vxMenu.txt"
MESSAGE_TEXTS = "text/vxmsg_display.txt"
COMMAND_ROWS = 56
# Keys without a row: the menu itself, and the command that only the popup menu has.
MENU_KEYS_WITHOUT_ROW = {"Menu", "VxOpenDrw", "VxOpenDrw_Help"}

MAX_COLUMNS = 100
MAX_LINES_HINT = 500
SKIPPED_FOLDERS = {"build", "out", "__pycache__"}
BINARY = {".png", ".ico", ".jpg", ".gif", ".pdf", ".xls", ".xlsx", ".zip"}

Finding = collections.namedtuple("Finding", "path line text")

# --- The tree -------------------------------------------------------------------------------------

# Comments and literals of C++, so that a rule can look at the one without the other.
TOKEN = re.compile(r"""
      (?P<comment> //[^\n]* | /\*.*?\*/ )
    | (?P<raw> \bu?8?U?L?R"(?P<fence>[^\s()\\]{0,16})\(.*?\)(?P=fence)" )
    | (?P<text> "(?:\\.|[^"\\\n])*" )
    | (?P<char> (?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+' )""", re.VERBOSE | re.DOTALL)


def blanked(text):
    """The text with everything but its line ends turned into blanks, so that lines still count."""
    return re.sub(r"[^\n]", " ", text)


class Tree:
    """The project's files, each read once. Paths are relative, with slashes."""

    def __init__(self, root):
        self.root = Path(root)
        self.notes = []
        self.paths = []
        for folder, folders, names in os.walk(self.root):
            folders[:] = sorted(f for f in folders if f not in SKIPPED_FOLDERS
                                and (not f.startswith(".") or f == ".ci"))
            for name in sorted(names):
                path = Path(folder, name)
                if path.suffix not in BINARY and path.is_file():
                    self.paths.append(path.relative_to(self.root).as_posix())

    @functools.lru_cache(maxsize=None)
    def text(self, path):
        data = (self.root / path).read_bytes()
        return data.decode("utf-8", errors="replace").removeprefix("\ufeff")

    @functools.lru_cache(maxsize=None)
    def without_comments(self, path):
        return TOKEN.sub(lambda m: blanked(m[0]) if m["comment"] else m[0], self.text(path))

    def code(self, path):
        """The text with neither comments nor literals."""
        return TOKEN.sub(lambda m: blanked(m[0]), self.text(path))

    @functools.lru_cache(maxsize=None)
    def language(self, path):
        """cpp, python, cmake, bash, or nothing for what is not a source."""
        name = path.rsplit("/", 1)[-1]
        if path.endswith((".cpp", ".h")):
            return "cpp"
        if path.endswith(".py"):
            return "python"
        if name == "CMakeLists.txt" or path.endswith(".cmake"):
            return "cmake"
        first = self.text(path).split("\n", 1)[0]
        if first.startswith("#!"):
            return "python" if "python" in first else "bash"
        return "bash" if path.endswith(".sh") else ""

    def sources(self, *languages):
        """The sources in these languages, or in any."""
        return [p for p in self.paths if self.language(p) in (languages or LANGUAGES)]

    def plugin_sources(self):
        return [p for p in self.sources("cpp") if p.split("/")[0] in PLUGIN]


def numbered_lines(text):
    return enumerate(text.split("\n"), 1)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


# --- Who may include whom -------------------------------------------------------------------------

INCLUDE = re.compile(r"^[ \t]*#[ \t]*include[ \t]*(.*?)[ \t]*$", re.MULTILINE)


def may_include(path, header):
    """Whether the file may include a header of the project."""
    folder, target = path.split("/")[0], header.split("/")[0]
    if ".." in header.split("/"):
        return False
    if folder == "hostapi":
        return target == "hostapi"
    if folder == "simhost":
        return target in ("simhost", "hostapi")
    if folder in PLUGIN and header in DOOR:
        return True
    if path == SERVICES or path.startswith(SERVICES_FOLDER):
        return header.startswith(SERVICES_FOLDER)
    if folder == "frame":
        return target == "frame" or (path == COMMAND_TABLE and target in ROOMS)
    if folder in ROOMS:
        return target == folder or header == SERVICES
    return True


def may_include_system(path, header):
    """Whether the file may include a header of the system or of a library."""
    if header in STANDARD_HEADERS or path == VENDOR_DOOR:
        return True
    if path.split("/")[0] in PLUGIN:
        return False
    return not path.startswith("hostapi/") or header in SYSTEM_HEADERS_OF_THE_DOOR.get(path, ())


WHY_INCLUDE = {"hostapi": "the door declares the outside world and knows nobody",
               "simhost": "the simulated host meets the plug-in only by loading it",
               "frame": "the services are the ground floor; only the command table sees the rooms"}
WHY_ROOM = "a room builds on frame/services.h and the door; what two rooms share is a service"
WHY_SYSTEM = "the plug-in and the door need the C++ standard library and nothing else"


def includes_go_one_way(tree):
    """The plug-in is loaded into hosts that we do not build. What it includes it must bring along,
    so it takes the standard library and the door, and a room that reaches into its neighbour
    can no longer be changed alone."""
    for path in tree.sources("cpp"):
        why = WHY_INCLUDE.get(path.split("/")[0], WHY_ROOM)
        text = tree.without_comments(path)
        for match in INCLUDE.finditer(text):
            line, what = line_of(text, match.start()), match[1]
            if what.startswith('"') and not may_include(path, what.strip('"')):
                yield Finding(path, line, f"may not include {what} ({why})")
            elif what.startswith("<") and not may_include_system(path, what.strip("<>")):
                yield Finding(path, line, f"may not include {what} ({WHY_SYSTEM})")
            elif what[:1] not in ('"', "<") and path.split("/")[0] in PLUGIN:
                yield Finding(path, line, f"includes by a macro, {what} (nobody can follow it)")


def sources_include_what_they_use(tree):
    """See standard_headers.py. A source that includes another one would be compiled twice."""
    for path in tree.sources("cpp"):
        for match in INCLUDE.finditer(tree.without_comments(path)):
            if match[1].strip('<>"').endswith(".cpp"):
                yield Finding(path, line_of(tree.text(path), match.start()),
                              f"includes {match[1]} (include its header)")
    for path, line, header in standard_headers.missing(tree):
        yield Finding(path, line, f"uses <{header}> without including it (nobody else need)")


# The floors of the simulated host, from the ground up: a file includes its own and those below.
SIMHOST_FLOORS = (("core",), ("user",),
                  ("ui", "model", "system", "windows", "windows_real", "spreadsheet",
                   "picture", "kernel"),
                  ("host.h", "host.cpp"), ("app", "trail", "door", "web"))
# Those who may ask for the one host of the process.
ASK_THE_HOST = SIMHOST_FLOORS[-2] + SIMHOST_FLOORS[-1]
# Arrows that still go up, and files that still ask: file, what it names, why.
SIMHOST_EXCEPTIONS = ()


def simhost_floor(path):
    """The floor of a file of the simulated host; nothing for any other file."""
    folder = path.removeprefix("simhost/").split("/")[0]
    floors = [i for i, names in enumerate(SIMHOST_FLOORS) if folder in names]
    return floors[0] if path.startswith("simhost/") and floors else None


def simhost_has_floors(tree):
    """When everything below the doors could reach everything else through one global, 24 files had
    to be understood at once. What a floor needs from above is handed to it."""
    sources = [path for path in tree.sources("cpp") if path.startswith("simhost/")]
    needed = set()

    def found(path, line, what, why):
        rows = [row for row in SIMHOST_EXCEPTIONS if row[:2] == (path, what)]
        needed.update(rows)
        if not rows:
            yield Finding(path, line, why)

    for path in sources:
        text, own = tree.without_comments(path), simhost_floor(path)
        if own is None:
            yield Finding(path, 1, "in a folder that has no floor (name it in SIMHOST_FLOORS of "
                          "tools/lint.py)")
            continue
        for match in INCLUDE.finditer(text):
            header = match[1].strip('"')
            if (simhost_floor(header) or 0) > own:
                yield from found(path, line_of(text, match.start()), header,
                                 f'may not include "{header}" (it is built on this floor; what is '
                                 "needed from there is handed down)")
        asked = re.search(r"\bTheHost\b", text)
        if asked and path.split("/")[1] not in ASK_THE_HOST:
            yield from found(path, line_of(text, asked.start()), "TheHost",
                             "asks TheHost() (only door/, trail/ and app/ do; take a reference to "
                             "what is needed)")
    for row in SIMHOST_EXCEPTIONS:
        if row[0] in sources and row not in needed:
            yield Finding(row[0], 1, f"needs no exception for {row[1]} any more (strike it from "
                          "SIMHOST_EXCEPTIONS of tools/lint.py)")


def no_conditional_code(tree):
    """Who answers a call, the vendor's library or the simulated host, is decided by linking. The
    first #ifdef in a command would be the first line that its tests never see."""
    door = [p for p in tree.sources("cpp")
            if p.startswith("hostapi/") and p not in CONDITIONAL_HEADERS]
    for path in tree.plugin_sources() + door:
        place = "the plug-in" if path not in door else "a header of the door"
        for number, line in numbered_lines(tree.without_comments(path)):
            if re.match(r"\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b", line):
                yield Finding(path, number, f"{line.strip().split()[0]} in {place} "
                              "(what differs between systems belongs below the door)")


def wide_literals_have_one_form(tree):
    """Wide characters are wchar_t on Windows and char16_t elsewhere. A literal of one of the two
    compiles here and breaks the other build a week later."""
    for path in tree.plugin_sources():
        text = tree.text(path)
        for token in TOKEN.finditer(text):
            before = re.search(r"\b(?:L|u|U)R?$", text[max(0, token.start() - 3):token.start()])
            if before or re.match(r"(?:L|u|U)R", token[0]):
                yield Finding(path, line_of(text, token.start()),
                              'a wide literal is written WIDE("…") (its type differs by system)')


# --- How files look -------------------------------------------------------------------------------

def banner(text, language):
    """The words of the comment that a source opens with; empty if it opens with something else."""
    if text.startswith("#!"):
        text = text.partition("\n")[2]
    if language == "cpp":
        block = re.match(r"/\*(.*?)\*/", text, re.DOTALL)
        lines = re.match(r"(?://[^\n]*(?:\n|$))*", text)[0]
        return block[1] if block else re.sub(r"^//", "", lines, flags=re.MULTILINE)
    block = re.match(r'"""(.*?)"""', text, re.DOTALL) if language == "python" else None
    lines = re.match(r"(?:#[^\n]*(?:\n|$))*", text)[0]
    return block[1] if block else re.sub(r"^#", "", lines, flags=re.MULTILINE)


def sources_open_with_a_banner(tree):
    """Whoever opens a file wants to know first what it is for. A title such as "Helpers." tells
    nothing, so a whole sentence is asked for."""
    for path in tree.sources():
        words = banner(tree.text(path), tree.language(path))
        if not re.search(r"(?:\S+\s+){3,}\S*[.!?](?:\s|$)", words):
            yield Finding(path, 1, "does not open with a comment of at least one sentence "
                          "(it says what the file is for)")


def columns(line):
    """Columns on the screen: a Chinese character takes two, as in clang-format."""
    if line.isascii():
        return len(line)
    return sum(0 if unicodedata.combining(c) else 2 if unicodedata.east_asian_width(c) in "WF"
               else 1 for c in line)


def lines_are_tidy(tree):
    """Two files side by side fit a screen at 100 columns; a tab or a trailing blank makes a change
    that nobody sees. Tables that the formatter leaves alone may be wider."""
    for path in tree.sources():
        text, fenced = tree.text(path), False
        for number, line in numbered_lines(text):
            fence = re.match(r"\s*// clang-format (on|off)\b", line)
            fenced = fence[1] == "off" if fence else fenced
            if columns(line) > MAX_COLUMNS and not fenced:
                yield Finding(path, number, f"{columns(line)} columns (at most {MAX_COLUMNS}; "
                              "a Chinese character counts two)")
            if "\t" in line:
                yield Finding(path, number, "a tab (four blanks in its place)")
            if line != line.rstrip():
                yield Finding(path, number, "a blank or a carriage return at the end of the line")
            if "\ufffd" in line:
                yield Finding(path, number, "not UTF-8 (sources are UTF-8)")
        if not text.endswith("\n") or text.endswith("\n\n"):
            yield Finding(path, text.count("\n") + 1, "the file must end with one line end")


def long_files_are_named(tree):
    """A file is one topic. A long one may be a table; more often it is three topics. Only a hint,
    so it finds nothing and notes the file."""
    for path in tree.sources():
        count = tree.text(path).count("\n")
        if count > MAX_LINES_HINT:
            tree.notes.append(f"hint: {path} has {count} lines (one topic to a file?)")
    return ()


PLANNING_WORDS = re.compile(r"\bspec\.md\b|\b[Ss]pecification\b|\bPart [0-9]+\.[0-9]")


def no_planning_papers(tree):
    """The papers that the project was planned from do not come with it. A comment that points to
    them is a dead end, where the reason itself would have helped."""
    for path in tree.paths:
        for number, line in numbered_lines(tree.text(path)):
            match = PLANNING_WORDS.search(line)
            if match:
                yield Finding(path, number, f'"{match[0]}" points to a paper that the reader does '
                              "not have (write the reason instead)")


# --- Texts ----------------------------------------------------------------------------------------

CHINESE = re.compile("[\u4e00-\u9fff]")


def read_messages(tree, path):
    """The lines of a file's messages by their keys, and what is wrong with the file."""
    messages, problems = {}, []
    lines = tree.text(path).removesuffix("\n").split("\n")
    for start in range(0, len(lines), 4):
        block = lines[start:start + 4]
        if len(block) != 4 or block[3] != "#":
            problems.append(Finding(path, start + 1, "not a message of four lines: key, English, "
                                    "Chinese, # (the host loses count here)"))
            break
        key = block[0]
        if key in messages:
            problems.append(Finding(path, start + 1, f'"{key}" is there twice (only one is shown)'))
        if not block[1].strip():
            problems.append(Finding(path, start + 2, f'"{key}" has no English text'))
        if not CHINESE.search(block[2]):
            problems.append(Finding(path, start + 3, f'"{key}" has no Chinese text'))
        messages[key] = start + 1
    return messages, problems


# A row of the table: what follows from its name is written only where it differs.
ROW = re.compile(r'Row<"(?P<name>\w+)">\s*\((?P<action>Command<\w+>),\s*\w+\)'
                 r'(?P<differs>(?:\s*\.\w+\([^()]*\))*)')


def table_rows(code):
    """The rows of the menu; the command that only the popup menus have is none of them."""
    return [row for row in ROW.finditer(code) if row["name"] not in MENU_KEYS_WITHOUT_ROW]


def help_key(row):
    other = re.search(r'\.Help\("(\w+)"\)', row["differs"])
    return other[1] if other else row["name"] + "_Help"


def all_commands(code):
    """The names of all commands with their lines, that of the popup menus, too."""
    return {row["name"]: line_of(code, row.start()) for row in ROW.finditer(code)}


def commands_have_their_texts(tree):
    """A command without a text shows its bare key in the menu, in every language. Commands come and
    go in the table, so nobody but this rule would see it."""
    missing = [path for path in (COMMAND_TABLE, MENU_TEXTS) if path not in tree.paths]
    if len(missing) == 2:
        tree.notes.append("nothing to check yet: commands and their texts")
    elif missing:
        yield Finding(missing[0], 1, "missing (commands and their texts come together)")
    if missing:
        return
    code = tree.without_comments(COMMAND_TABLE)
    messages, problems = read_messages(tree, MENU_TEXTS)
    yield from problems
    rows, used = table_rows(code), set(MENU_KEYS_WITHOUT_ROW)
    if len(rows) != COMMAND_ROWS:
        yield Finding(COMMAND_TABLE, 1, f"{len(rows)} rows (the menu has {COMMAND_ROWS} commands)")
    names = collections.Counter(row["name"] for row in rows)
    for row in rows:
        line = line_of(code, row.start())
        if names[row["name"]] > 1:
            yield Finding(COMMAND_TABLE, line, f'"{row["name"]}" has more than one row')
        for key in (row["name"], help_key(row)):
            used.add(key)
            if key not in messages:
                yield Finding(COMMAND_TABLE, line, f'"{key}" is not in {MENU_TEXTS} '
                              "(the menu would show the bare key)")
    for key in MENU_KEYS_WITHOUT_ROW - set(messages):
        yield Finding(MENU_TEXTS, 1, f'"{key}" is missing (the menu would show the bare key)')
    for key, line in messages.items():
        if key not in used:
            yield Finding(MENU_TEXTS, line, f'no command uses "{key}"')


def rows_name_their_own_command(tree):
    """A row that presses its neighbour's function looks right in every list; only the designer who
    presses it sees the wrong dialog."""
    if COMMAND_TABLE not in tree.paths:
        return
    code = tree.without_comments(COMMAND_TABLE)
    for row in ROW.finditer(code):
        if row["action"] != f"Command<{row['name']}>":
            yield Finding(COMMAND_TABLE, line_of(code, row.start()),
                          f'"{row["name"]}" runs {row["action"]} (a row runs its own command)')


def commands_are_named_by_their_file(tree):
    """Whoever looks for a command looks at the first lines of the files. A command that none names
    is not found, and one that two name is found in the wrong one."""
    if COMMAND_TABLE not in tree.paths:
        return
    first = {path: tree.text(path).split("\n", 1)[0]
             for path in tree.plugin_sources() if path.endswith(".cpp")}
    for name, line in all_commands(tree.without_comments(COMMAND_TABLE)).items():
        files = [path for path, text in first.items() if re.search(rf"\b{name}\b", text)]
        if len(files) != 1:
            found = ", ".join(files) or "no file"
            yield Finding(COMMAND_TABLE, line, f'"{name}" is named by the first line of {found} '
                          "(one file opens with the command's name)")


README = "README.md"
WHAT_WORKS = "## What works today"


def readme_tells_what_works(tree):
    """A stranger believes the README. A command that is not told is never tried, and one that is
    told and not there is tried once."""
    if COMMAND_TABLE not in tree.paths or README not in tree.paths:
        return
    text = tree.text(README)
    start = text.find(WHAT_WORKS)
    if start < 0:
        yield Finding(README, 1, f'no heading "{WHAT_WORKS}" (all commands)')
        return
    section = text[start + len(WHAT_WORKS):].split("\n## ", 1)[0]
    told = {}
    for row in re.finditer(r"^\|([^|\n]*)\|", section, re.MULTILINE):
        for name in re.findall(r"`(\w+)`", row[1]):
            told[name] = line_of(text, start + len(WHAT_WORKS) + row.start())
    there = all_commands(tree.without_comments(COMMAND_TABLE))
    for name, line in there.items():
        if name not in told:
            yield Finding(COMMAND_TABLE, line, f'"{name}" is not in the table of {README} '
                          "(what works is told there)")
    for name, line in told.items():
        if name not in there:
            yield Finding(README, line, f'"{name}" is told to work, but the command table has no '
                          "row for it")


# Functions that hand a key on to ProMessageDisplay, by the file that defines them.
MESSAGE_WRAPPERS = {"frame/services/messages.cpp": ["ShowMessage"],
                    "commands/selected_model.cpp": ["SelectedModel"]}


def call_arguments(code, start):
    """The text between a call's parentheses; `start` is the place after the opening one."""
    depth = 1
    for match in re.compile(r'"(?:\\.|[^"\\\n])*"|[()]').finditer(code, start):
        depth += {"(": 1, ")": -1}.get(match[0], 0)
        if depth == 0:
            return code[start:match.start()]
    return code[start:]


LITERALS = r'((?:"(?:\\.|[^"\\\n])*"\s*)+)'  # one text, perhaps written in several pieces


def joined(literals):
    pieces = re.findall(r'"((?:\\.|[^"\\\n])*)"', literals)
    return "".join(pieces).replace('\\"', '"').replace("\\\\", "\\")


def message_keys(tree, path, constants):
    """The messages that a source shows: (line, key). A key is a literal or a named constant of any
    source; it is nothing where it comes in as a parameter."""
    code = tree.without_comments(path)
    wrappers = [name for names in MESSAGE_WRAPPERS.values() for name in names]
    for call in re.finditer(r"\b(%s)\s*\(" % "|".join(["ProMessageDisplay"] + wrappers), code):
        arguments = call_arguments(code, call.end())
        keys = [joined(text) for text in re.findall(LITERALS, arguments)]
        keys += [constants[word] for word in re.findall(r"\bk\w+", arguments) if word in constants]
        keys = [key for key in keys if key != MESSAGE_TEXTS.rsplit("/", 1)[-1]]
        if keys or (call[1] == "ProMessageDisplay" and path not in MESSAGE_WRAPPERS):
            yield line_of(code, call.start()), keys[0] if keys else None


def messages_have_their_texts(tree):
    """The keys of the message line are whole English sentences, two of them misspelt on purpose.
    Whoever mends the spelling in one place only takes the message away."""
    constants = {}
    for path in tree.plugin_sources():
        code = tree.without_comments(path)
        found = re.findall(r"\b(k\w+)(?:\[\])?\s*=\s*" + LITERALS + ";", code)
        constants.update((name, joined(literals)) for name, literals in found)
    messages = {}
    if MESSAGE_TEXTS in tree.paths:
        messages, problems = read_messages(tree, MESSAGE_TEXTS)
        yield from problems
    shown = [(path, line, key) for path in tree.plugin_sources()
             for line, key in message_keys(tree, path, constants)]
    for path, line, key in shown:
        if key is None:
            yield Finding(path, line, "shows a message whose key is not seen here (name the "
                          "function that hands it on in MESSAGE_WRAPPERS of tools/lint.py)")
        elif key not in messages:
            yield Finding(path, line, f'"{key}" is not in {MESSAGE_TEXTS} '
                          "(the user would see nothing)")
    if not messages and not shown:
        tree.notes.append("nothing to check yet: texts of the message line")


RESOURCES = "text/resource/"


def dialogs_bear_their_commands_label(tree):
    """A user looks for a dialog under the name that was pressed in the menu. Three words for one
    thing, in menu, title and help, were found by the first stranger who tried."""
    if MENU_TEXTS not in tree.paths:
        return
    lines = tree.text(MENU_TEXTS).split("\n")
    labels = {lines[i]: lines[i + 2] for i in range(0, len(lines) - 3, 4)}
    for path in tree.paths:
        if not (path.startswith(RESOURCES) and path.endswith(".res")):
            continue
        name = path[len(RESOURCES):-len(".res")]
        label = labels.get(name) or labels.get("Vx" + name)
        title = re.search(r'\(\.Label\s+"([^"]*)"\)', tree.text(path))
        if label and title and title[1] != label:
            yield Finding(path, line_of(tree.text(path), title.start()),
                          f'"{title[1]}" is the title of what the menu calls "{label}"')


RULES = (includes_go_one_way, sources_include_what_they_use, simhost_has_floors,
         no_conditional_code, wide_literals_have_one_form, sources_open_with_a_banner,
         lines_are_tidy, long_files_are_named, no_planning_papers, commands_have_their_texts,
         rows_name_their_own_command, commands_are_named_by_their_file, readme_tells_what_works,
         messages_have_their_texts, dialogs_bear_their_commands_label)


def check_rules(root):
    tree = Tree(root)
    findings = sorted(finding for rule in RULES for finding in rule(tree))
    for finding in findings:
        print(f"{finding.path}:{finding.line}: {finding.text}")
    for note in tree.notes:
        print(note)
    return 1 if findings else 0


def main():
    argparse.ArgumentParser(description="Checks the house rules of this project.").parse_args()
    return check_rules(Path(__file__).resolve().parent.parent)


if __name__ == "__main__":
    sys.exit(main())
