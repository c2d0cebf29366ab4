"""What the sample gearbox is described with: solids, parts, assemblies and their components.

Lengths are in mm, angles in degrees. A solid is a record with the keys that the model format has
for it. Parts and assemblies are kept in `models` and named by what part() and assembly() return.
"""

import math

models = {}                         # file name without version -> record, in order of definition


# ---- solids -------------------------------------------------------------------------------

def box(size, at=(0, 0, 0), turn=(0, 0, 0)):
    return {"shape": "box", "size": size, "at": at, "turn": turn}


def slab(low, high):
    """A box between two corners."""
    return box([b - a for a, b in zip(low, high)], low)


def cylinder(diameter, z0, z1, at=(0, 0), **more):
    return {"shape": "cylinder", "diameter": diameter, "length": z1 - z0,
            "at": [at[0], at[1], z0], **more}


def tube(outer, inner, z0, z1):
    return {"shape": "tube", "outer": outer, "inner": inner, "length": z1 - z0, "at": [0, 0, z0]}


def cone(diameter, top, z0, z1):
    return {"shape": "cone", "diameter": diameter, "top": top, "length": z1 - z0, "at": [0, 0, z0]}


def gear(module, teeth, width, bore, z0):
    return {"shape": "gear", "module": module, "teeth": teeth, "width": width, "bore": bore,
            "at": [0, 0, z0]}


def prism(outline, height, at=(0, 0, 0), turn=(0, 0, 0)):
    if area(outline) < 0:
        outline = outline[::-1]
    return {"shape": "prism", "outline": outline, "height": height, "at": at, "turn": turn}


def arc(radius, start, end, centre=(0, 0), steps=24):
    """Points on a circle, from one angle to the other, in degrees."""
    angles = [math.radians(start + (end - start) * i / steps) for i in range(steps + 1)]
    return [[centre[0] + radius * math.cos(a), centre[1] + radius * math.sin(a)] for a in angles]


def keyed(diameter, key_width, depth, z0, z1):
    """A length of shaft with a keyway at +x."""
    half = math.degrees(math.asin(key_width / diameter))
    floor = diameter / 2 - depth
    outline = arc(diameter / 2, half, 360 - half, steps=48)
    outline += [[floor, -key_width / 2], [floor, key_width / 2]]
    return prism(outline, z1 - z0, [0, 0, z0])


def hexagon(across_flats, height, z0):
    return prism(arc(across_flats / math.sqrt(3), 0, 300, steps=5), height, [0, 0, z0])


def area(outline):
    """Of an outline that runs anticlockwise."""
    return sum(p[0] * q[1] - q[0] * p[1]
               for p, q in zip(outline, outline[1:] + outline[:1])) / 2


def volume(solid):
    """In mm³. A gear counts as a ring up to its pitch circle: what its teeth have outside of it,
    their spaces lack inside."""
    shape = solid["shape"]
    if shape == "box":
        return math.prod(solid["size"])
    if shape == "prism":
        return area(solid["outline"]) * solid["height"]
    if shape == "gear":
        pitch = solid["module"] * solid["teeth"]
        return math.pi / 4 * (pitch ** 2 - solid["bore"] ** 2) * solid["width"]
    if shape == "tube":
        return math.pi / 4 * (solid["outer"] ** 2 - solid["inner"] ** 2) * solid["length"]
    low, top = solid["diameter"], solid.get("top", solid["diameter"])
    return math.pi / 12 * (low ** 2 + low * top + top ** 2) * solid["length"]


# ---- models -------------------------------------------------------------------------------

PART_FEATURES = {"917": "PROTRUSION", "916": "CUT", "911": "HOLE", "913": "ROUND",
                 "914": "CHAMFER"}


def part(name, note, title, colour, solids, features="917", clear=0, **flags):
    """Defines a part; `features` lists the feature types after the default datums."""
    rows = [(923, "RIGHT"), (923, "TOP"), (923, "FRONT"), (979, "PRT_CSYS_DEF")]
    rows += [(int(kind), f"{PART_FEATURES[kind]}_{i}")
             for i, kind in enumerate(features.split(), 1)]
    # Solids start at id 10, so that features and faces never share a number.
    assert len(rows) <= 9, name
    models[name + ".prt"] = {
        "note": note, "title": title, "flags": flags, "colour": colour, "clear": clear,
        "solids": solids, "features": [{"id": i, "type": kind, "name": text}
                                       for i, (kind, text) in enumerate(rows, 1)]}
    return name + ".prt"


def use(model, at=(0, 0, 0), turn=(0, 0, 0), **state):
    return {"model": model, "at": list(at), "turn": list(turn), **state}


def assembly(name, note, title, components, extra=()):
    """Defines an assembly; `extra` lists further feature types after the components."""
    rows = [{"id": 1, "type": 923, "name": "ASM_RIGHT"}, {"id": 3, "type": 923, "name": "ASM_TOP"},
            {"id": 5, "type": 923, "name": "ASM_FRONT"},
            {"id": 7, "type": 979, "name": "ASM_DEF_CSYS"}]
    rows += [{"id": 40 + i, "type": 1000, **c} for i, c in enumerate(components)]
    rows += [{"id": 40 + len(components) + i, "type": kind} for i, kind in enumerate(extra)]
    models[name + ".asm"] = {"note": note, "title": title, "features": rows}
    return name + ".asm"
