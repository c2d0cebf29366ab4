"""The sample gearbox itself: its measures, its parts, and the assemblies that place them.

Frame of the gearbox: x runs from the input shaft to the output shaft, y along the shafts (the
motor is on the side of -y), z up. All shaft axes lie in the split plane z = 0. Lengths are in
mm. A gear has a tooth centred on its own +x axis. Bolt holes, and keyways in bores, are not cut.
"""

import math

from gearbox_modelling import (arc, assembly, box, cone, cylinder, gear, hexagon, keyed, models,
                               part, prism, slab, tube, use)

# Gearing: module, teeth of pinion and wheel, and the centre distances that follow.
M1, Z1, Z2 = 2.5, 22, 78
M2, Z3, Z4 = 4, 20, 60
X_MID = M1 * (Z1 + Z2) / 2
X_OUT = X_MID + M2 * (Z3 + Z4) / 2
Y1, Y2 = 40, -30                    # middle planes of the two stages

# Housing: outer ends, walls and bearing seats.
X_LEFT, X_RIGHT = -96, X_OUT + 150
WALL, SHELL = 12, 10
Y_IN, Y_WALL, Y_FACE = 80, 92, 120  # inside, outside of the wall, face of the bearing bosses
Y_BEARING = 88                      # inner face of every bearing
Z_FLOOR, Z_FOOT = -160, -180
BORE, BORE_OUT = 85, 120            # outer diameters of the bearings 6209 and 6213
BOSS, BOSS_OUT = 122, 160
SEATS = ((0, BORE, BOSS), (X_MID, BORE, BOSS), (X_OUT, BORE_OUT, BOSS_OUT))
PAD_X = ((-63, -80, -46), (62.5, 46, 79), (196.25, 180, 212), (367, 349, 385))
PAD_Z, FLANGE = 45, 15

# The lid follows a circle round the input shaft, a line, and a circle round the output wheel.
LID_IN, LID_OUT = 96, 150
LID_NORMAL = math.acos(-(LID_OUT - LID_IN) / X_OUT)     # direction of the line's normal
LID_SLOPE = math.degrees(LID_NORMAL) - 90

Z_BASE = -200                       # underside of the base plate
ALONG_Y = [-90, 0, 0]               # turns +z to +y
WALL_TURN = [90, 0, 0]              # sets an outline upright: its y becomes z, it extends to -y

CAST, STEEL, GROUND = (0.36, 0.47, 0.50), (0.72, 0.68, 0.58), (0.80, 0.81, 0.84)
BLACK, ZINC, DARK = (0.16, 0.16, 0.17), (0.62, 0.64, 0.66), (0.28, 0.30, 0.33)
BLUE, YELLOW, ORANGE = (0.13, 0.36, 0.62), (0.95, 0.76, 0.10), (0.90, 0.35, 0.10)
BRASS, GLASS, RUBBER = (0.80, 0.63, 0.25), (0.70, 0.85, 0.90), (0.10, 0.10, 0.10)


def standard_parts():
    """Screws, nuts and washers; origin under the head, shank along -z."""
    for size, length, flats, head in ((8, 25, 13, 5.3), (12, 50, 18, 7.5), (12, 110, 18, 7.5)):
        part(f"bolt_m{size}x{length}", f"Hexagon head bolt M{size} x {length}.",
             f"六角头螺栓 M{size}×{length}", BLACK,
             [cylinder(size, -length, 0), hexagon(flats, head, 0)], "917 917 914")
    wall = []
    outer, inner = arc(18 / math.sqrt(3), 0, 360, steps=6), arc(12 / math.sqrt(3), 0, 360, steps=6)
    for i in range(6):
        wall.append(prism([outer[i], outer[i + 1], inner[i + 1], inner[i]], 10.8))
    part("nut_m12", "Hexagon nut M12; six segments leave the thread's room free.",
         "六角螺母 M12", BLACK, wall, "917 911 914")
    part("washer_12", "Plain washer for M12.", "平垫圈 12", ZINC, [tube(24, 13, 0, 2.5)])
    part("pin_8x30", "Dowel pin that sets the lid on the housing.", "圆柱销 8×30", GROUND,
         [cylinder(8, -15, 15)], "917 914")


def lid_contour(less):
    """Outline of the lid from right to left, in x and z, moved inwards by `less`."""
    normal = math.degrees(LID_NORMAL)
    return (arc(LID_OUT - less, 0, normal, (X_OUT, 0)) + arc(LID_IN - less, normal, 180))


def half_bore(bore, x, start, end):
    """Half a bore as chords that stay outside the circle, so that the bearing has its room."""
    return arc(bore / 2 / math.cos(math.pi / 48), start, end, (x, 0))


def wall_edge(sign):
    """The edge at the split plane from left to right, with the half bores above or below it."""
    edge = []
    for x, bore, _ in SEATS:
        edge += half_bore(bore, x, 180, 180 - sign * 180)
    return edge


def joint_solids(sign):
    """Half bosses, bolt pads and flange on one side of the split plane (-1 below, 1 above)."""
    solids = []
    low, high = (0, FLANGE) if sign > 0 else (-FLANGE, 0)
    for y in (Y_FACE, -Y_WALL):
        for x, bore, boss in SEATS:
            outline = arc(boss / 2, 0, sign * 180, (x, 0)) + half_bore(bore, x, sign * 180, 0)
            solids.append(prism(outline, Y_FACE - Y_WALL, [0, y, 0], WALL_TURN))
        back = y - (Y_FACE - Y_WALL)
        for _, x0, x1 in PAD_X:
            solids.append(slab([x0, back, min(0, sign * PAD_Z)], [x1, y, max(0, sign * PAD_Z)]))
        for x0, x1 in ((X_LEFT - 30, -80), (385, X_RIGHT + 30)):
            solids.append(slab([x0, back, low], [x1, y, high]))
    for x in (X_LEFT - 30, X_RIGHT):
        solids.append(slab([x, -Y_WALL, low], [x + 30, Y_WALL, high]))
    return solids


def housing_parts():
    below = [[X_LEFT, 0]] + wall_edge(-1) + [[X_RIGHT, 0], [X_RIGHT, Z_FLOOR], [X_LEFT, Z_FLOOR]]
    solids = [prism(below, WALL, [0, y, 0], WALL_TURN) for y in (Y_WALL, -Y_IN)]
    for x in (X_LEFT, X_RIGHT - WALL):
        solids.append(slab([x, -Y_IN, Z_FLOOR], [x + WALL, Y_IN, 0]))
    solids.append(slab([X_LEFT + WALL, -Y_IN, Z_FLOOR],
                       [X_RIGHT - WALL, Y_IN, Z_FLOOR + 15]))
    solids.append(slab([X_LEFT - 30, -150, Z_FOOT], [X_RIGHT + 30, 150, Z_FLOOR]))
    for x, _, boss in SEATS:
        for y in (-Y_FACE, Y_WALL):
            solids.append(slab([x - 6, y, Z_FLOOR], [x + 6, y + Y_FACE - Y_WALL, 2 - boss / 2]))
    part("housing", "Lower half of the housing, split at the shaft axes.", "箱体", CAST,
         solids + joint_solids(-1), "917 916 911 911 913")

    above = wall_edge(1) + lid_contour(0)
    solids = [prism(above, WALL, [0, y, 0], WALL_TURN) for y in (Y_WALL, -Y_IN)]
    solids.append(prism(lid_contour(0) + lid_contour(SHELL)[::-1], 2 * Y_IN, [0, Y_IN, 0],
                        WALL_TURN))
    part("箱盖", "Upper half of the housing; transparent, so that the gears can be seen.", "箱盖",
         CAST, solids + joint_solids(1), "917 916 911 911 913", clear=0.6)


def housing_fittings():
    part("视孔盖", "Cover of the inspection opening.", "视孔盖", DARK,
         [box([110, 110, 8], [-55, -55, 0])], "917 911 913")
    part("breather", "Breather on the inspection cover.", "通气器", BRASS,
         [cylinder(14, 0, 10), hexagon(24, 8, 10), cylinder(22, 18, 36), cone(30, 18, 36, 44)],
         "917 917 911")
    part("油标", "Round oil sight glass.", "油标", GLASS,
         [tube(50, 34, 0, 10), cylinder(34, 0, 7)], "917 911", clear=0.3)
    part("oil_plug", "Drain plug M20.", "放油螺塞", BLACK,
         [cylinder(20, -18, 0), tube(32, 20, 0, 2), cylinder(20, 0, 2), hexagon(24, 12, 2)],
         "917 914")
    part("铭牌", "Name plate.", "铭牌", BRASS, [box([100, 60, 1])], "917 911")
    part("eyebolt_m12", "Lifting eye bolt M12.", "吊环螺钉 M12", ZINC,
         [cylinder(12, -22, 0), cylinder(30, 0, 8),
          {"shape": "tube", "outer": 54, "inner": 30, "length": 12, "at": [0, 6, 33],
           "turn": WALL_TURN}], "917 917 913")


def on_lid(x, y, z):
    """A point given in the frame of the lid's slope, its origin in the middle of the line."""
    s, c = -math.cos(LID_NORMAL), math.sin(LID_NORMAL)
    middle = [X_OUT / 2 - s * (LID_IN + LID_OUT) / 2, c * (LID_IN + LID_OUT) / 2]
    return [middle[0] + c * x - s * z, y, middle[1] + s * x + c * z]


def joint(x, y, half):
    """Bolt, two washers and nut through two flanges of the given thickness each."""
    bolt = "bolt_m12x110.prt" if half == PAD_Z else "bolt_m12x50.prt"
    return [use(bolt, [x, y, half + 2.5]), use("washer_12.prt", [x, y, half]),
            use("washer_12.prt", [x, y, -half - 2.5]), use("nut_m12.prt", [x, y, -half - 13.3])]


def housing_assembly():
    tilt = [0, -LID_SLOPE, 0]
    first_eye = on_lid(-X_OUT / 2 * math.sin(LID_NORMAL), 0, 0)
    rows = [use("housing.prt"), use("箱盖.prt"), use("视孔盖.prt", on_lid(0, 0, 0), tilt),
            use("breather.prt", on_lid(0, 0, 8), tilt)]
    rows += [use("bolt_m8x25.prt", on_lid(x, y, 8), tilt) for x in (-43, 43) for y in (-43, 43)]
    rows += [use("eyebolt_m12.prt", first_eye, tilt), use("eyebolt_m12.prt", [X_OUT, 0, LID_OUT]),
             use("油标.prt", [X_RIGHT, 30, -80], [0, 90, 0]),
             use("oil_plug.prt", [X_RIGHT, -40, -132], [0, 90, 0]),
             use("铭牌.prt", [158, -Y_WALL, -148], WALL_TURN, hidden=True),
             use("pin_8x30.prt", [X_LEFT - 15, 85, 0]),
             use("pin_8x30.prt", [X_RIGHT + 15, -85, 0])]
    for y in (-106, 106):
        for x, _, _ in PAD_X:
            rows += joint(x, y, PAD_Z)
    for x in (X_LEFT - 15, X_RIGHT + 15):
        for y in (-55, 55):
            rows += joint(x, y, FLANGE)
    assembly("箱体组件", "Housing with lid, fittings and the bolts of the split plane.",
             "箱体组件", rows)


def bearing_parts():
    for name, d, outer, b in (("6209", 45, BORE, 19), ("6213", 65, BORE_OUT, 23)):
        rim = (outer - d) / 2 * 0.25
        shields = [tube(outer - 2 * rim, d + 2 * rim, z, z + 1) for z in (1, b - 2)]
        part(f"轴承_{name}", f"Ball bearing {name}-2Z; the shields hide the balls.",
             f"深沟球轴承 {name}-2Z", GROUND,
             [tube(d + 2 * rim, d, 0, b), tube(outer, outer - 2 * rim, 0, b)] + shields,
             "917 913")
    # Covers and seals: origin at the bearing's inner face, so the boss ends at this height.
    face = Y_FACE - Y_BEARING
    part("闷盖_85", "Closed bearing cover with a groove for the O-ring.", "轴承闷盖", DARK,
         [tube(BORE, 66, 19, 23), tube(BORE - 7, 66, 23, 27), tube(BORE, 66, 27, face),
          cylinder(BOSS, face, face + 12)], "917 916 911 914")
    for bore, b, seal, shaft, boss in ((BORE, 19, 62, 42, BOSS), (BORE_OUT, 23, 85, 62, BOSS_OUT)):
        part(f"透盖_{bore}", "Open bearing cover with the seat of the shaft seal.", "轴承透盖",
             DARK, [tube(bore, bore - 18, b, face), tube(boss, seal, face, face + 9),
                    tube(boss, shaft, face + 9, face + 12)], "917 911 911 914")
        part(f"seal_{shaft - 2}x{seal}x8", "Rotary shaft seal.",
             f"骨架油封 {shaft - 2}×{seal}×8", RUBBER,
             [tube(seal, seal - 6, face + 1, face + 9),
              tube(seal - 6, shaft - 2, face + 7, face + 9)])
    part("o_ring_85", "O-ring of the closed cover.", "O形圈 85", RUBBER,
         [tube(BORE, BORE - 7, 23.2, 26.8)])


def bearing_units():
    face = Y_FACE - Y_BEARING + 12
    for name, bearing, seal, cover, title, count, circle in (
            ("bearing_unit_45", "轴承_6209", "o_ring_85", "闷盖_85", "轴承单元(闷盖)", 4, 104),
            ("轴承单元_45_透盖", "轴承_6209", "seal_40x62x8", "透盖_85", "轴承单元(透盖)", 4, 104),
            ("bearing_unit_65", "轴承_6213", "seal_60x85x8", "透盖_120", "输出轴承单元", 6, 140)):
        rows = [use(m + ".prt") for m in (bearing, seal, cover)]
        for x, y in arc(circle / 2, 180 / count, 360 - 180 / count, steps=count - 1):
            rows.append(use("bolt_m8x25.prt", [x, y, face]))
        assembly(name, "Bearing, seal and cover as one unit; origin at the bearing's inner face.",
                 title, rows)


def key_part(width, height, length):
    return part(f"键_{width}x{height}x{length}", "Parallel key; origin at the middle of its foot.",
                f"平键 {width}×{height}×{length}", GROUND,
                [box([height, width, length], [0, -width / 2, 0])], "917 913")


def shaft_parts():
    """Shafts lie along +z, with z = 0 in the middle of the housing."""
    part("输入轴", "Input shaft, cut in one piece with the pinion of the first stage.", "输入轴",
         GROUND, [cylinder(38, -200, -196), keyed(38, 10, 5, -196, -151), cylinder(38, -151, -135),
                  cylinder(40, -135, -108), cylinder(45, -108, -88), cylinder(54, -88, -78),
                  cylinder(48, -78, 78), cylinder(54, 78, 88), cylinder(45, 88, 108),
                  gear(M1, Z1, 50, 48, Y1 - 25)], "917 917 916 914 913")
    part("中间轴", "Intermediate shaft, cut in one piece with the pinion of the second stage.",
         "中间轴", GROUND, [cylinder(45, -108, -88), cylinder(54, -88, 5), cylinder(68, 5, 17.5),
                         cylinder(55, 17.5, 20), keyed(55, 16, 6, 20, 60), cylinder(55, 60, 61.5),
                         cylinder(45, 61.5, 108), gear(M2, Z3, 70, 54, Y2 - 35)],
         "917 917 916 914 913")
    part("输出轴", "Output shaft; the plain end is for a rotary encoder.", "输出轴", GROUND,
         [cylinder(60, -150, -111), cylinder(65, -111, -61.5), cylinder(75, -61.5, -58),
          keyed(75, 20, 7.5, -58, -2),
          cylinder(75, -2, 2.5), cylinder(90, 2.5, 17.5), cylinder(76, 17.5, 88),
          cylinder(65, 88, 111), cylinder(60, 111, 155), keyed(60, 18, 7, 155, 235),
          cylinder(60, 235, 240)], "917 916 916 914 913")
    for name, module, teeth, bore, width, y in (("大齿轮", M1, Z2, 55, 45, Y1),
                                                ("gear", M2, Z4, 75, 65, Y2)):
        part(f"{name}_z{teeth}",
             f"Spur wheel, module {module}, {teeth} teeth; z = 0 at mid width.",
             f"大齿轮 m={module} z={teeth}", STEEL, [gear(module, teeth, width, bore, -width / 2)],
             "917 916 911 914")
    part("sleeve_45", "Spacer between wheel and bearing.", "套筒 45", ZINC, [tube(60, 45, 0, 25.5)])
    part("sleeve_65", "Spacer between wheel and bearing.", "套筒 65", ZINC, [tube(82, 65, 0, 25.5)])
    for size in ((10, 8, 45), (16, 10, 40), (20, 12, 56), (18, 11, 80)):
        key_part(*size)


def shaft_assemblies():
    flip = [180, 0, 0]
    up, down = [0, 0, Y_BEARING], [0, 0, -Y_BEARING]
    assembly("输入轴组件", "Input shaft with its bearings.", "输入轴组件",
             [use("输入轴.prt"), use("键_10x8x45.prt", [14, 0, -196]),
              use("bearing_unit_45.asm", up), use("轴承单元_45_透盖.asm", down, flip)])
    # Half a pitch of turn puts a tooth space where the pinion's tooth is.
    assembly("中间轴组件", "Intermediate shaft with the first wheel and its bearings.",
             "中间轴组件", [use("中间轴.prt"), use("键_16x10x40.prt", [21.5, 0, 20]),
                       use("大齿轮_z78.prt", [0, 0, Y1], [0, 0, 180 / Z2]),
                       use("sleeve_45.prt", [0, 0, Y1 + 22.5]),
                       use("bearing_unit_45.asm", up), use("bearing_unit_45.asm", down, flip)])
    assembly("output_shaft", "Output shaft with the second wheel and its bearings.", "输出轴组件",
             [use("输出轴.prt"), use("键_20x12x56.prt", [30, 0, -58]),
              use("键_18x11x80.prt", [23, 0, 155]),
              use("gear_z60.prt", [0, 0, Y2], [0, 0, 180 / Z4]),
              use("sleeve_65.prt", [0, 0, -Y_BEARING]),
              use("bearing_unit_65.asm", up), use("bearing_unit_65.asm", down, flip)])


def drive_parts():
    """Motor and coupling; the drive's axis is +z, towards the gearbox, and +y points down."""
    fins = []
    for i in range(24):
        angle = math.radians(15 * i)
        at = [95 * math.cos(angle) + 2 * math.sin(angle),
              95 * math.sin(angle) - 2 * math.cos(angle), -300]
        fins.append(box([25, 4, 270], at, [0, 0, 15 * i]))
    feet = [slab([x, 117, z], [x + 56, 132, z + 60]) for x in (-136, 80) for z in (-270, -90)]
    legs = [slab([x, 60, z], [x + 20, 117, z + 60]) for x in (-110, 90) for z in (-270, -90)]
    part("motor", "Three-phase motor 5.5 kW, shaft height 132.", "电动机 5.5kW", BLUE,
         [cylinder(38, 0, 80), cylinder(130, -12, 0), cylinder(244, -30, -12),
          cylinder(200, -300, -30), cylinder(244, -320, -300), cylinder(252, -400, -320),
          slab([-55, -165, -200], [55, -95, -80])] + fins + feet + legs, "917 917 911 913")
    part("电机座", "Raises the motor to the height of the input shaft.", "电机座", DARK,
         [slab([x, 132, -300], [x + 70, 180, -60]) for x in (-143, 73)]
         + [slab([-73, 150, z], [73, 162, z + 40]) for z in (-280, -120)], "917 917 911")
    jaws = [prism(arc(47.5, a - 25, a + 25) + arc(24, a + 25, a - 25), 16, [0, 0, -16])
            for a in (0, 120, 240)]
    part("coupling_hub", "Half of the jaw coupling.", "联轴器半体", ZINC,
         [tube(95, 38, 0, 50)] + jaws, "917 916 911 914")
    lobes = [prism(arc(47, a - 4.5, a + 4.5, steps=4) + arc(22, a + 4.5, a - 4.5, steps=4), 16,
                   [0, 0, -8]) for a in range(30, 390, 60)]
    part("弹性块", "Elastic spider of the coupling.", "弹性块", ORANGE,
         [tube(44, 20, -8, 8)] + lobes)
    u = [[-95, -180], [-68, -180], [-68, 70], [68, 70], [68, -180], [95, -180], [95, -178],
         [70, -178], [70, 72], [-70, 72], [-70, -178], [-95, -178]]
    part("防护罩", "Sheet metal guard over the coupling, 2 mm; drawn half transparent.", "防护罩",
         YELLOW, [prism(u, 135, [0, 0, -78])], "917 916 911", clear=0.5, subtype="sheetmetal")
    # The profile as it is drawn has sharp corners; each bend takes its inner radius and the
    # thickness, 2 mm both, from the pieces that meet there.
    models["防护罩.prt"]["sheet"] = {"thickness": 2, "flats": [23, 244, 132, 244, 23],
                                     "radii": [2, 2, 2, 2]}


def drive_assemblies():
    up = [90, 0, 0]
    assembly("coupling", "Jaw coupling; origin in the middle of the spider.", "联轴器",
             [use("coupling_hub.prt", [0, 0, 9]),
              use("coupling_hub.prt", [0, 0, -9], [180, 0, 60]),
              use("弹性块.prt")])
    rows = [use("coupling.asm"), use("motor.prt", [0, 0, -89]), use("电机座.prt", [0, 0, -89]),
            use("防护罩.prt", [0, 0, 0], [0, 0, 180])]
    for x in (-123, 123):
        for z in (-329, -149):
            rows += [use("washer_12.prt", [x, 117, z], up),
                     use("bolt_m12x50.prt", [x, 114.5, z], up)]
    rows += [use("bolt_m8x25.prt", [x, 178, z], up) for x in (-83, 83) for z in (-60, 50)]
    assembly("motor_drive", "Motor, coupling and guard; origin in the middle of the coupling.",
             "电机驱动组件", rows)


def base_group():
    plate = [[-150, -650], [150, -650], [150, -190], [X_RIGHT + 50, -190], [X_RIGHT + 50, 190],
             [-150, 190]]
    part("底板", "Welded base plate, 20 mm.", "底板", DARK, [prism(plate, 20)], "917 911 911 914")
    section = [[0, 0], [100, 0], [100, 48], [91.5, 48], [91.5, 5.3], [8.5, 5.3], [8.5, 48],
               [0, 48]]
    part("channel_10", "Channel steel No. 10, length 500.", "槽钢 10 L=500", DARK,
         [prism(section, 500)], "917 914")
    part("脚垫", "Levelling foot; origin at its upper end.", "调整脚垫", RUBBER,
         [cylinder(16, -28, 0), hexagon(24, 8, -10), cone(70, 30, -34, -22),
          cylinder(76, -45, -34)], "917 917 913")
    rows = [use("底板.prt", [0, 0, Z_BASE]),
            use("channel_10.prt", [-80, -150, Z_BASE], [0, 90, 0]),
            use("channel_10.prt", [420, 150, Z_BASE], [180, 90, 0]),
            use("channel_10.prt", [130, -650, Z_BASE], [0, 90, 90]),
            use("channel_10.prt", [-130, -150, Z_BASE], [180, 90, 90])]
    rows += [use("脚垫.prt", [x, y, Z_BASE - 100]) for x, y in (
        (-55, -126), (395, -126), (-55, 126), (395, 126), (-106, -620), (106, -620))]
    for x in (-108, 170, 447):
        for y in (-132, 132):
            rows += [use("washer_12.prt", [x, y, Z_FLOOR]),
                     use("bolt_m12x50.prt", [x, y, Z_FLOOR + 2.5])]
    assembly("base_plate", "Base with channels, feet and the bolts of the gearbox.", "底座组件",
             rows)


def top_models():
    part("gearbox_skel", "Skeleton with the datums that all groups are placed by; no solids.",
         "减速箱骨架", None, [], "", skeleton=True)
    models["gearbox_skel.prt"]["features"] += [
        {"id": i, "type": 979, "name": name} for i, name in enumerate(
            ("CS_INPUT", "CS_MIDDLE", "CS_OUTPUT", "CS_MOTOR", "CS_BASE"), 5)]
    part("空间包络", "Room to keep free for service; invisible in the assembly.", "维护空间", GLASS,
         [slab([-250, -750, -350], [600, 350, 450])], clear=0.8)
    part("transport_lock", "Holds the output shaft on the way to the customer; suppressed.",
         "运输锁", ORANGE, [tube(90, 60, 0, 30), slab([-12, -180, 0], [12, -44, 12])],
         "917 917 911")
    assembly("gearbox", "Two-stage spur gear reducer with motor on a common base.",
             "二级减速箱", [
        use("gearbox_skel.prt"), use("base_plate.asm"), use("箱体组件.asm"),
        use("输入轴组件.asm", [0, 0, 0], ALONG_Y), use("中间轴组件.asm", [X_MID, 0, 0], ALONG_Y),
        use("output_shaft.asm", [X_OUT, 0, 0], ALONG_Y),
        use("motor_drive.asm", [0, -209, 0], ALONG_Y),
        use("transport_lock.prt", [X_OUT, 160, 0], [-90, 0, 0], status="suppressed"),
        use("空间包络.prt", visible=False)], extra=(1104, 1232))
    models["gearbox_mill.mfg"] = {"note": "Milling of the gearbox housing.", "title": "减速箱加工",
                                  "assembly": "gearbox.asm", "features": []}


def define_all():
    standard_parts()
    housing_parts()
    housing_fittings()
    housing_assembly()
    bearing_parts()
    bearing_units()
    shaft_parts()
    shaft_assemblies()
    drive_parts()
    drive_assemblies()
    base_group()
    top_models()
    for name, model in models.items():
        assert len(name.split(".")[0]) <= 31 and name == name.lower(), name
        ids = [row["id"] for row in model["features"]]
        assert len(ids) == len(set(ids)), name
        for row in model["features"]:
            assert "model" not in row or row["model"] in models, row
