#!/usr/bin/python3
"""Writes the sample project: a two-stage spur gear reducer with motor, coupling and base.

Every model becomes one file of the simulated host's model format, and README.md gets the tree.

    tools/gearbox.py              write samples/gearbox/
    tools/gearbox.py --out DIR    write DIR
    tools/gearbox.py --check      compare the folder with what would be written, write nothing;
                                  exit status 1 when a file differs, is missing or is too many

gearbox_models.py describes the gearbox, gearbox_data.py what its models say about themselves; this
program turns the descriptions into files.
"""

import argparse
import sys
from pathlib import Path

from gearbox_data import add_model_data
from gearbox_modelling import models
from gearbox_models import M1, M2, X_MID, X_OUT, Z1, Z2, Z3, Z4, define_all


def toml(value):
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, str):
        return f'"{value}"'
    if isinstance(value, (list, tuple)):
        return "[" + ", ".join(toml(v) for v in value) + "]"
    if isinstance(value, int):
        return str(value)
    text = f"{value:.4f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def outline_text(points):
    """An outline, four points on a line."""
    rows = [", ".join(toml(p) for p in points[i:i + 4]) for i in range(0, len(points), 4)]
    return "[\n    " + ",\n    ".join(rows) + "\n]"


def solid_lines(solids):
    lines, number = [], 10
    for solid in solids:
        lines += ["", "[[solid]]", f"id = {number}"]
        for key, value in solid.items():
            if key != "turn" or any(value):
                text = outline_text(value) if key == "outline" else toml(value)
                lines.append(f"{key} = {text}")
        # Room for the numbers of the faces; a tooth has a handful of them.
        number += {"gear": max(200, 10 * solid.get("teeth", 0)), "prism": 200}.get(
            solid["shape"], 10)
    return lines


def data_lines(model):
    """Parameters, relations, family table and sheets, as far as the model has them."""
    lines = []
    for key, value in model.get("parameters", []):
        value = str(value) if isinstance(value, float) else toml(value)
        lines += ["", "[[parameter]]", f"name = {toml(key)}", f"value = {value}"]
    if "relations" in model:
        lines += ["", "[relations]", f"initial = {toml(model['relations'])}"]
    if "generic" in model:
        lines += ["", "[family]", f"generic = {toml(model['generic'])}"]
    lines += model.get("sheets", [])
    return lines


def sheet_lines(sheet):
    """What sheet metal has: thickness, the flat pieces of its profile, the bends between them."""
    lines = ["", "[sheet_metal]", f"thickness = {toml(sheet['thickness'])}",
             f"flats = {toml(sheet['flats'])}"]
    for radius in sheet["radii"]:
        lines += ["", "[[bend]]", f"radius = {toml(radius)}"]
    return lines


def model_text(name, model):
    kinds = {"prt": "part", "asm": "assembly", "mfg": "manufacturing", "drw": "drawing"}
    kind = kinds[name[-3:]]
    lines = ["# " + model["note"], "[model]", f'type = "{kind}"']
    lines += [f"{key} = {toml(value)}" for key, value in model.get("flags", {}).items()]
    lines.append(f'title = "{model["title"]}"')
    if "assembly" in model:
        lines += ["", "[manufacturing]", f'assembly = "{model["assembly"]}"']
    if model.get("colour"):
        lines += ["", "[appearance]",
                  "color = [" + ", ".join(f"{c:.2f}" for c in model["colour"]) + "]",
                  f"transparency = {model['clear']:.1f}"]
    lines += data_lines(model)
    lines += solid_lines(model.get("solids", []))
    if "sheet" in model:
        lines += sheet_lines(model["sheet"])
    for row in model["features"]:
        lines += ["", "[[feature]]"] + [f"{key} = {toml(value)}" for key, value in row.items()]
    return "\n".join(lines) + "\n"


def tree_lines(name, depth=0, count=1, marks=()):
    """The tree below a model: one line for each different model at its place."""
    text = f"{name} × {count}" if count > 1 else name
    lines = ["    " * depth + "  — ".join([text] + list(marks))]
    groups = {}
    for row in models[name]["features"]:
        if "model" in row:
            mark = ((row["status"],) if "status" in row else ("hidden",) if "hidden" in row
                    else () if row.get("visible", True) else ("invisible",))
            groups.setdefault((row["model"], mark), []).append(row)
    for (child, mark), rows in groups.items():
        lines += tree_lines(child, depth + 1, len(rows), mark)
    return lines


def occurrences(name):
    """Counts every model below an assembly, suppressed and hidden ones included."""
    total = {}
    for row in models[name]["features"]:
        if "model" in row:
            total[row["model"]] = total.get(row["model"], 0) + 1
            for child, count in occurrences(row["model"]).items():
                total[child] = total.get(child, 0) + count
    return total


README = """# Gearbox: a sample project

A two-stage spur gear reducer (二级减速箱) with motor, coupling and base plate, in true sizes (mm).
`tools/gearbox.py` writes this folder; change the program, not the files.

| | Module | Teeth | Ratio | Centre distance |
|---|---|---|---|---|
| First stage | {m1} | {z1} / {z2} | {i1:.3f} | {a1:g} mm |
| Second stage | {m2} | {z3} / {z4} | {i2:.3f} | {a2:g} mm |
| Together | | | {i:.2f} | |

The shafts lie along y in the split plane z = 0, the motor on the side of -y. A gear has a tooth
centred on its own +x axis; the wheels are turned by half a pitch, so that the teeth mesh.

## Tree

{files} model files: {asms} assemblies, {parts} parts, 1 manufacturing model, {drawings} drawings.
Below `gearbox.asm` are {places} components in {levels} levels, the top included.

```
{tree}
```

`gearbox_mill.mfg` is a manufacturing model of `gearbox.asm`.

## What is special

- Used many times:
  {often}.
- Sub-assemblies used more than once: `bearing_unit_45.asm` (three times, in two assemblies) and
  `bearing_unit_65.asm` (twice).
- Suppressed: `transport_lock.prt`. Invisible, and so left out of lists and sizes: `空间包络.prt`.
  Both are components of `gearbox.asm`. Hidden on the screen only: `铭牌.prt` in `箱体组件.asm`.
- Skeleton without solids: `gearbox_skel.prt`. Sheet metal: `防护罩.prt`.
- Files to choose: materials in `materials/` (one in pounds and inches), bend tables in
  `bend_tables/`. They are written by hand. No part has read a material yet, and the guard with its
  four bends has no bend table.
- Transparent: the lid `箱盖.prt` (0.6), the guard (0.5), the sight glass (0.3).
- Parameters: 代号 and 名称 everywhere, 材料 and 重量 (kg) on parts. Relations decide 重量 of
  `housing.prt` and 数量 of `washer_12.prt`, so nobody else can change these two.
- Family table: `bolt_m12.prt` is the generic of the two M12 bolts; it is in no assembly.
- Drawings of `gearbox.asm`, `housing.prt` (two sheets) and `output_shaft.asm` with formats and
  views, without dimensions yet. That of `gear_z60.prt` has views whose scale is not the sheet's;
  that of `输入轴.prt` has two views and no format.
- Formats in `图框/`, with one to change to in `图框/新图框/`, and templates for drawings in
  `工程图模板/`: six sizes for parts and for assemblies. `tools/formats.py` writes them.
  `settings.pro` has the plug-in's settings that name the templates.
- `gearbox.asm` ends with one feature of type 1104 and one of type 1232, which are no components.
- Names are partly Chinese, partly English, as they are in real projects.
- Not modelled: bolt holes, threads, keyways in bores (screws, plugs and keys overlap there) and
  balls.
"""


def readme_text():
    total = occurrences("gearbox.asm")
    tree = tree_lines("gearbox.asm")
    names = sorted((n for n in total if n.endswith(".prt")), key=lambda n: (-total[n], n))[:6]
    return README.format(
        m1=M1, z1=Z1, z2=Z2, i1=Z2 / Z1, a1=X_MID, m2=M2, z3=Z3, z4=Z4, i2=Z4 / Z3,
        a2=X_OUT - X_MID, i=Z2 / Z1 * Z4 / Z3, files=len(models),
        asms=sum(n.endswith(".asm") for n in models),
        parts=sum(n.endswith(".prt") for n in models),
        drawings=sum(n.endswith(".drw") for n in models),
        places=sum(total.values()), tree="\n".join(tree),
        levels=1 + max((len(t) - len(t.lstrip())) // 4 for t in tree),
        often=", ".join(f"`{n}` ({total[n]})" for n in names))


# The options that the host reads when it starts in the folder of the project. The templates lie in
# a folder of their own; they are written by hand.
CONFIG = """! Options of the host. A path that begins with .\\ lies below this folder.
pro_format_dir .\\图框
template_solidpart .\\起始 模板\\零件.prt
template_designasm .\\起始 模板\\组件.asm
template_sheetmetalpart .\\起始 模板\\钣金件.prt
"""


def settings_text():
    lines = ["! Settings of the plug-in: section and value. A path that begins with .\\ lies below",
             "! this folder."]
    for size in ("A0", "A1", "A2", "A3", "A4", "A4H"):
        for kind in ("Asm", "Prt"):
            file = f"{size.lower()}_{kind.lower()}.drw"
            lines.append(f"{size}{kind}path .\\工程图模板\\{file}")
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description="Writes the sample gearbox.")
    home = Path(__file__).resolve().parent.parent / "samples" / "gearbox"
    parser.add_argument("--out", type=Path, default=home, help="folder to write or to compare")
    parser.add_argument("--check", action="store_true", help="compare, write nothing")
    options = parser.parse_args()
    define_all()
    add_model_data()
    files = {f"{name}.1": model_text(name, model) for name, model in models.items()}
    files["README.md"] = readme_text()
    files["config.pro"] = CONFIG
    files["settings.pro"] = settings_text()
    wanted = {name: text.encode("utf-8") for name, text in files.items()}
    if options.check:
        found = {p.name: p.read_bytes() for p in options.out.glob("*") if p.is_file()}
        wrong = sorted(n for n in wanted.keys() | found.keys() if wanted.get(n) != found.get(n))
        for name in wrong:
            print(f"{options.out / name}: differs, is missing or is too many", file=sys.stderr)
        return 1 if wrong else 0
    options.out.mkdir(parents=True, exist_ok=True)
    for name, data in wanted.items():
        (options.out / name).write_bytes(data)
    print(f"wrote {len(wanted)} files into {options.out}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
