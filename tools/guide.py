#!/usr/bin/python3
"""Makes the user's guide: one page for each command that works, in Chinese, as HTML files that need
no server.

    tools/guide.py --simhost PROGRAM [--out DIR]

What the product knows of itself is taken from it: place in the menu, help text, access rule, the
dialog as the workbench shows it. What only a person can write is in docs/guide/. The example of
each page is run. A command without a page, a component, setting or message without a line, a broken
link and an example that fails are findings; the exit status is then 1.
Its test is tests/tools/guide_test.py.
"""

import argparse
import html
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import markdown

ROOT = Path(__file__).resolve().parent.parent
ROOMS = ("display", "modeldata", "construct", "drawing", "export", "tables", "commands", "frame")

# What an access rule means to a designer.
ACCESS = {"AccessAlways": "随时可用",
          "AccessSolid": "打开零件或组件时可用",
          "AccessSolidOrMfg": "打开零件、组件或制造模型时可用",
          "AccessAssemblyOrMfg": "打开组件或制造模型时可用",
          "AccessDrawing": "打开工程图时可用"}

# Components of a dialog that a user works with; each needs a line.
WORKED_WITH = {"TextArea", "InputPanel", "RadioGroup", "OptionMenu", "CheckButton", "PushButton",
               "Table"}

# How a link to a dialog's file begins: a script beside the files shows the dialog above it.
DIALOG = '<a class="dialog"'

STYLE = """
body { margin: 0; display: flex; color: #222; background: #fff;
       font: 15px/1.7 "Microsoft YaHei", "WenQuanYi Zen Hei", sans-serif; }
nav { flex: 0 0 15em; padding: 1em; background: #f3f5f7; min-height: 100vh; font-size: 14px; }
nav a, nav span { display: block; text-decoration: none; color: #1d4f80; }
nav span { color: #999; }
main { padding: 1em 2.5em 4em; max-width: 56em; min-width: 0; }
h1 { border-bottom: 2px solid #1d4f80; } h2 { margin-top: 1.8em; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #cbd3da; padding: .3em .7em; text-align: left; vertical-align: top; }
th { background: #f3f5f7; }
code, pre { font: 13px/1.5 Consolas, "WenQuanYi Zen Hei Mono", monospace; background: #f3f5f7; }
pre { padding: .8em 1em; overflow-x: auto; }
img { max-width: 100%; border: 1px solid #dde3e8; }
@media print { nav { display: none; } main { padding: 0; } }
a.dialog { color: #1d4f80; font-size: 13px; }
.facts { color: #555; } .english { color: #888; font-weight: normal; font-size: 60%; }
"""


class Product:
    """What the sources of the product say: commands, texts, dialogs, settings and messages."""

    def __init__(self, root):
        self.root = Path(root)
        self.texts = self.read_texts()
        self.commands = self.read_commands()

    def read(self, path):
        data = (self.root / path).read_bytes()
        for encoding in ("utf-16",) if data[:2] in (b"\xff\xfe", b"\xfe\xff") else ("utf-8-sig",
                                                                                  "gbk"):
            try:
                return data.decode(encoding)
            except UnicodeDecodeError:
                pass
        raise SystemExit(f"{path}: no text that can be read")

    def read_texts(self):
        """(English, Chinese) by key."""
        lines = self.read("text/vxMenu.txt").splitlines()
        return {lines[i]: (lines[i + 1], lines[i + 2]) for i in range(0, len(lines) - 3, 4)}

    def read_commands(self):
        """(help key, access rule) by name, in the menu's order."""
        table = self.read("frame/command_table.cpp")
        commands = {}
        for row in re.finditer(r'^\s*Row<"(\w+)">\s*\((.*?)\)(?=,?\s*$|\s*\.)([^,]*)', table, re.M):
            name, given, more = row.groups()
            access = re.search(r"\bAccess\w+", given)
            if not access or name not in self.texts:
                continue
            own = re.search(r'\.Help\("(\w+)"\)', more)
            commands[name] = (own[1] if own else name + "_Help", access[0])
        return commands

    def dialog(self, command):
        """The resource of the command's dialog; empty if it has none."""
        for name in (command, command.removeprefix("Vx")):
            if (self.root / f"text/resource/{name}.res").is_file():
                return name
        return ""

    def components(self, dialog):
        """The names of what a user works with in a dialog."""
        declared = self.read(f"text/resource/{dialog}.res").partition("(Resources")[0]
        return [name for kind, name in re.findall(r"\((\w+)\s+(\w+)\)", declared)
                if kind in WORKED_WITH]

    def settings(self):
        """(file, section) of everything that a user can set; palettes are numbered colours."""
        for path in sorted((self.root / "VXconfig").glob("*.ini")):
            for section in re.findall(r"^\[(.+?)\]", self.read(path.relative_to(self.root)), re.M):
                if not section.isdigit():
                    yield path.name, section

    def messages(self, command):
        """The sentences that a command shows: texts with five Chinese characters and more in the
        sources whose opening comment names it."""
        for room in ROOMS:
            for path in sorted((self.root / room).glob("*.cpp")):
                text = self.read(path.relative_to(self.root))
                banner = re.match(r"(?://[^\n]*\n)*", text)[0]
                if not re.search(rf"\b{command}\b", banner):
                    continue
                for literals in re.findall(r'WIDE\(\s*((?:"(?:\\.|[^"\\])*"\s*)+)\)', text):
                    joined = "".join(re.findall(r'"((?:\\.|[^"\\])*)"', literals))
                    message = re.sub(r"\\[tn]", "", joined)
                    if len(re.findall("[\u4e00-\u9fff]", message)) >= 5:
                        yield message


def covers(pattern, text):
    """Whether a name or message in a page means this one; … in it matches anything."""
    return re.fullmatch(".*".join(map(re.escape, pattern.split("…"))), text) is not None


def names_in(page):
    return re.findall(r"`([^`\n]+)`", re.sub(r"```.*?```", "", page, flags=re.S))


def quotes_in(page):
    return re.findall(r"“((?:[^“”]|“[^“”]*”)+)”", page)


def gaps(product, pages):
    """What the pages do not tell; `pages` are the texts by the names of their commands."""
    for command in product.commands:
        if command not in pages:
            yield f"{command} works and has no page (docs/guide/commands/{command}.md)"
            continue
        page, names = pages[command], names_in(pages[command])
        for heading in ("## 步骤", "## 注意", "## 示例"):
            if heading not in page:
                yield f"{command}.md has no part {heading}"
        dialog = product.dialog(command)
        for component in product.components(dialog) if dialog else ():
            if not any(covers(name, component) for name in names):
                yield f"{command}.md has no line on `{component}` of its dialog"
        for message in product.messages(command):
            if not any(covers(quote, message) for quote in quotes_in(page)):
                yield f"{command}.md has no line on the message “{message}”"
    for command in pages.keys() - product.commands.keys():
        yield f"{command}.md is a page of no command that works"
    named = [name for page in pages.values() for name in names_in(page)]
    for file, section in product.settings():
        if not any(covers(name, section) for name in named):
            yield f"no page names the setting `{section}` of {file}"


def run_example(simhost, script, folder, label):
    """Runs an example in the folder, where its pictures stay. What went wrong, or nothing."""
    with tempfile.NamedTemporaryFile("w", suffix=".trail", encoding="utf-8") as file:
        file.write(script)
        file.flush()
        run = subprocess.run([str(simhost), "run", file.name], cwd=folder, text=True,
                             capture_output=True, stdin=subprocess.DEVNULL)
    if run.returncode == 0:
        return
    wrong = [line for line in (run.stdout + run.stderr).splitlines() if "!!" in line]
    yield f"the example of {label} fails: {' / '.join(wrong) or run.stderr.strip()}"


def page_html(title, english, body, navigation):
    head = html.escape(title)
    script = '<script src="dialogs/frames.js" defer></script>' if DIALOG in body else ""
    tail = f' <span class="english">{html.escape(english)}</span>' if english else ""
    return ('<!DOCTYPE html>\n<html lang="zh-CN"><head><meta charset="utf-8">'
            f"<title>{head} – Vorlatix 用户指南</title><style>{STYLE}</style>\n"
            f"{script}</head>\n"
            f"<body><nav>{navigation}</nav>\n<main><h1>{head}{tail}</h1>\n{body}\n"
            "</main></body></html>\n")


def to_html(text):
    return markdown.markdown(text, extensions=["tables", "fenced_code"])


class Guide:
    """Writes the guide into a folder and keeps what it finds wrong."""

    def __init__(self, product, texts, simhost, out):
        self.product, self.simhost, self.out = product, simhost, Path(out)
        self.texts, self.findings = Path(texts), []
        self.pages = {path.stem: path.read_text(encoding="utf-8")
                      for path in sorted((self.texts / "commands").glob("*.md"))}
        self.chapters = [path for path in sorted(self.texts.glob("*.md"))]

    def navigation(self):
        lines = [f'<a href="{self.chapter_file(path)}">{self.chapter_title(path)}</a>'
                 for path in self.chapters]
        lines.append("<hr>")
        for name in self.product.commands:
            label = html.escape(self.product.texts[name][1])
            lines.append(f'<a href="{name}.html">{label}</a>')
        return "\n".join(lines)

    def chapter_file(self, path):
        name = re.sub(r"^\d+-", "", path.stem)
        return ("index" if name == "start" else name) + ".html"

    def chapter_title(self, path):
        return path.read_text(encoding="utf-8").splitlines()[0].removeprefix("# ")

    def facts(self, command):
        help_key, access = self.product.commands[command]
        label, help_text = self.product.texts[command][1], self.product.texts[help_key][1]
        lines = [f"**{help_text}**", "",
                 f"菜单：{self.product.texts['Menu'][1]} → {label}（命令 `{command}`）；"
                 f"{ACCESS[access]}。"]
        dialog = self.product.dialog(command)
        if dialog:
            lines += ["", f'<p>{DIALOG} href="dialogs/{dialog}.html">'
                          f"对话框 {html.escape(label)}</a></p>"]
        return "\n".join(lines) + "\n\n"

    def example(self, command, page):
        """The page with its example run, and the pictures that it draws shown after it."""
        for script in re.findall(r"```trail\n(.*?)```", page, re.S):
            self.findings += run_example(self.simhost, script, self.out / "images", command)
            shown = "".join(f"\n![{command}](images/{name})\n"
                            for name in re.findall(r"^@ picture (\S+)", script, re.M))
            page = page.replace(f"```trail\n{script}```", f"```trail\n{script}```\n{shown}")
        return page

    def write(self):
        (self.out / "images").mkdir(parents=True, exist_ok=True)
        self.findings += gaps(self.product, self.pages)
        made = subprocess.run([str(self.simhost), "dialogs", "--out", str(self.out / "dialogs")],
                              capture_output=True, text=True)
        if made.returncode:
            self.findings.append(f"the dialogs cannot be written: {made.stderr.strip()}")
        navigation = self.navigation()
        for path in self.chapters:
            text = path.read_text(encoding="utf-8").partition("\n")[2]
            self.put(self.chapter_file(path),
                     page_html(self.chapter_title(path), "", to_html(text), navigation))
        for command, page in self.pages.items():
            if command in self.product.commands:
                body = to_html(self.facts(command) + self.example(command, page))
                english, label = self.product.texts[command]
                self.put(f"{command}.html", page_html(label, english, body, navigation))
        self.check_links()

    def put(self, name, text):
        (self.out / name).write_text(text, encoding="utf-8")

    def check_links(self):
        for page in sorted(self.out.glob("*.html")):
            for link in re.findall(r'(?:href|src)="([^"#]+)', page.read_text(encoding="utf-8")):
                if "://" not in link and not (self.out / link).is_file():
                    self.findings.append(f"{page.name} leads to {link}, which is not there")


def main():
    parser = argparse.ArgumentParser(description="Makes the user's guide.")
    parser.add_argument("--simhost", type=Path, required=True, help="the simulated host's program")
    parser.add_argument("--out", type=Path, default=ROOT / "out" / "guide")
    options = parser.parse_args()
    guide = Guide(Product(ROOT), ROOT / "docs" / "guide", options.simhost.resolve(), options.out)
    guide.write()
    for finding in guide.findings:
        print(finding)
    print(f"guide: {options.out / 'index.html'}, {len(guide.pages)} commands, "
          f"{len(guide.findings)} findings")
    return 1 if guide.findings else 0


if __name__ == "__main__":
    sys.exit(main())
