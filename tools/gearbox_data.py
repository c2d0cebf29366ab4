"""What the models of the sample gearbox say about themselves: parameters, relations, a family
table, and drawings with the names of their models.
"""

from formats import COMPANY, SIZES, title_block
from gearbox_modelling import cylinder, hexagon, models, part, volume
from gearbox_models import BLACK

# Materials of parts by the beginning of their names; all others are of steel 45.
MATERIALS = {"bolt": "8.8", "nut": "8", "washer": "65Mn", "eyebolt": "20", "o_ring": "NBR",
             "seal": "NBR", "弹性块": "PU", "轴承": "GCr15", "视孔盖": "PMMA", "箱盖": "HT200",
             "housing": "HT200", "闷盖": "HT200", "透盖": "HT200", "gear": "40Cr", "大齿轮": "40Cr",
             "输": "40Cr", "中间轴": "40Cr", "铭牌": "H62", "breather": "H62", "oil_plug": "Q235A",
             "底板": "Q235A", "channel": "Q235A", "防护罩": "Q235A", "电机座": "Q235A",
             "sleeve": "Q235A", "脚垫": "Q235A", "transport": "Q235A", "油标": "PMMA",
             "motor": "外购件"}

# Densities in kg/mm³; all others are steels.
DENSITIES = {"HT200": 7.2e-6, "H62": 8.43e-6, "NBR": 1.3e-6, "PU": 1.2e-6, "PMMA": 1.18e-6}
STEEL = 7.85e-6

# What is bought has the mass of its maker's list, in kg: shields hide the balls, and a motor is not
# solid.
LISTED_MASSES = {"motor": 68, "轴承_6209": 0.41, "轴承_6213": 0.99}


def mass_of(name, material, solids):
    """In kg, to the gram; what solids overlap counts twice."""
    listed = LISTED_MASSES.get(name)
    mass = sum(map(volume, solids)) * DENSITIES.get(material, STEEL)
    return round(mass, 3) if listed is None else float(listed)


def parameters_of(name, number, model):
    """What every company writes into its models: number and name; of parts the material and, in kg,
    the mass. Room that is only kept free is of nothing."""
    rows = [("代号", f"JSQ-{number:03d}"), ("名称", model["title"])]
    if name.endswith(".prt") and model.get("solids") and name != "空间包络.prt":
        material = next((m for begin, m in MATERIALS.items() if name.startswith(begin)), "45")
        rows += [("材料", material),
                 ("重量", mass_of(name.removesuffix(".prt"), material, model["solids"]))]
    return rows


def set_by_relation(name, parameter, value=None):
    """Lets a relation decide the parameter, so that nobody else may change it; the value is the one
    that it has unless another is given."""
    rows = dict(models[name]["parameters"])
    rows[parameter] = rows.get(parameter) if value is None else value
    models[name]["parameters"] = list(rows.items())
    models[name]["relations"] = [f"{parameter} = {rows[parameter]:g}"]


def drawing(name, note, lines):
    models[name + ".drw"] = {"note": note, "title": "工程图", "features": [], "sheets": lines}


def view_lines(number, at, rest):
    return ["", "[[view]]", f"id = {number}", *rest, f"at = [{at[0]}, {at[1]}]",
            'style = "no_hidden"']


def sheets_with_formats(model, sheets):
    """Lines of sheets with their formats, title blocks about the model and views of it. A sheet is
    its size, its scale, and its main view's place, turn and projections: sides and places."""
    heads, tables, views = [], [], []
    for sheet, (size, scale, at, turn, projections) in enumerate(sheets, 1):
        heads += ["", "[[sheet]]", f'size = "{size}"', f"scale = {scale}",
                  f'format = "{size.lower()}.frm"', f'about = "{model}"']
        wide, _, edge = SIZES[size]
        marks = f'from_format = true\nabout = "{model}"\n'
        tables += title_block(wide, edge, COMPANY, sheet, marks).rstrip().splitlines()
        main = len(views) + 1
        views.append((at, [f'model = "{model}"', f"sheet = {sheet}", f"turn = {turn}"]))
        views += [(place, [f"parent = {main}", f'side = "{side}"'])
                  for side, place in projections]
    lines = heads + tables + ["", "[drawing]", 'projection = "first-angle"']
    for number, (at, rest) in enumerate(views, 1):
        lines += view_lines(number, at, rest)
    return lines


SHAFT_SHEETS = """
[[sheet]]
size = "A3"
scale = 0.75

[drawing]
projection = "first-angle"

[[view]]
id = 1
model = "输入轴.prt"
sheet = 1
at = [240, 195]
turn = [0, 90, 0]
style = "no_hidden"

[[view]]
id = 2
model = "输入轴.prt"
sheet = 1
at = [95, 85]
style = "no_hidden"
""".rstrip().splitlines()

GEAR_SHEETS = """
[sheets]
sizes = ["A3"]

[[table]]
id = 1
sheet = 1
at = [355, 292]
columns = [30, 30]
heights = [8, 8]
cells = [["模数", "4"], ["齿数", "60"]]

[drawing]
projection = "first-angle"

[[view]]
id = 1
model = "gear_z60.prt"
sheet = 1
at = [120, 180]
scale = 0.5
style = "no_hidden"

[[view]]
id = 2
parent = 1
side = "right"
at = [270, 180]
style = "no_hidden"
""".rstrip().splitlines()


def add_model_data():
    """Adds the data to the models that are defined already."""
    for number, (name, model) in enumerate(models.items(), 1):
        if name.endswith((".prt", ".asm")):
            model["parameters"] = parameters_of(name, number, model)
    part("bolt_m12", "Generic of the M12 bolts; the lengths are its instances.", "六角头螺栓 M12",
         BLACK, [cylinder(12, -50, 0), hexagon(18, 7.5, 0)], "917 917 914")
    generic = models["bolt_m12.prt"]
    generic["parameters"] = parameters_of("bolt_m12.prt", len(models), generic)
    for length in (50, 110):
        models[f"bolt_m12x{length}.prt"]["generic"] = "bolt_m12.prt"
    set_by_relation("housing.prt", "重量")
    set_by_relation("washer_12.prt", "数量", 34)
    front, lying, plan = "[-90, 0, 0]", "[0, 90, 0]", "[0, 0, 0]"
    drawing("gearbox", "General arrangement of the gearbox.", sheets_with_formats("gearbox.asm", [
        ("A0", 0.4, (253, 607), front, [("right", (670, 607)), ("below", (253, 322))])]))
    drawing("housing", "Housing: castings and machining.", sheets_with_formats("housing.prt", [
        ("A1", 0.5, (220, 460), front, [("right", (620, 460)), ("below", (220, 230))]),
        ("A3", 0.4, (90, 185), plan, [("right", (385, 185))])]))
    drawing("output_shaft", "Output shaft with its gear.", sheets_with_formats("output_shaft.asm", [
        ("A2", 0.5, (190, 260), lying, [("right", (430, 260))])]))
    drawing("gear_z60", "Wheel of the second stage; the scale of its views is not the sheet's.",
            GEAR_SHEETS)
    drawing("输入轴", "Input shaft from its side and from its end, without dimensions yet.",
            SHAFT_SHEETS)
