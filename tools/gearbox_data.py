"""What the models of the sample gearbox say about themselves: parameters, relations, a family
table, and drawings with the names of their models.
"""

from gearbox_modelling import cylinder, hexagon, models, part
from gearbox_models import BLACK

# Materials of parts by the beginning of their names; all others are of steel 45.
MATERIALS = {"bolt": "8.8", "nut": "8", "washer": "65Mn", "o_ring": "NBR", "seal": "NBR",
             "弹性块": "PU", "轴承": "GCr15", "视孔盖": "PMMA", "箱盖": "HT200", "housing": "HT200",
             "gear": "40Cr", "大齿轮": "40Cr", "输": "40Cr", "中间轴": "40Cr", "铭牌": "铝",
             "底板": "Q235A", "channel": "Q235A", "防护罩": "Q235A", "电机座": "Q235A"}


def parameters_of(name, number, model):
    """What every company writes into its models: number, name, and the material of parts."""
    rows = [("代号", f"JSQ-{number:03d}"), ("名称", model["title"])]
    if name.endswith(".prt") and model.get("solids"):
        material = next((m for begin, m in MATERIALS.items() if name.startswith(begin)), "45")
        rows.append(("材料", material))
    return rows


def drawing(name, note, sizes):
    models[name + ".drw"] = {"note": note, "title": "工程图", "sizes": sizes, "features": []}


def add_model_data():
    """Adds the data to the models that are defined already."""
    for number, (name, model) in enumerate(models.items(), 1):
        if name.endswith((".prt", ".asm")):
            model["parameters"] = parameters_of(name, number, model)
    part("bolt_m12", "Generic of the M12 bolts; the lengths are its instances.", "六角头螺栓 M12",
         BLACK, [cylinder(12, -50, 0), hexagon(18, 7.5, 0)], "917 917 914")
    for length in (50, 110):
        models[f"bolt_m12x{length}.prt"]["generic"] = "bolt_m12.prt"
    # The mass follows from a relation, and so does a number that nobody else may change.
    models["housing.prt"]["parameters"].append(("重量", 48.5))
    models["housing.prt"]["relations"] = ["重量 = 48.5"]
    models["washer_12.prt"]["parameters"].append(("数量", 34))
    models["washer_12.prt"]["relations"] = ["数量 = 34"]
    drawing("gearbox", "General arrangement of the gearbox.", ["A0"])
    drawing("housing", "Housing: castings and machining.", ["A1", "A3"])
    drawing("output_shaft", "Output shaft with its gear.", ["A2"])
    drawing("gear_z60", "Wheel of the second stage.", ["A3"])
