#!/usr/bin/env python3
"""Makes the projects Showcase, Lights, Shadows, Alpha, Textures, Environment and those of features.py with all of their
files, always the same.

    python3 tools/Samples/make_samples.py [folder of the projects]
"""

import math
import os
import sys

import features
import glb
import surroundings
import textures
from document import X, Y, Z, Document, combined, light, turned

FLOOR = turned(X, -90)


def showcase(folder):
    for make in (textures.tiles, textures.bricks, textures.marble, textures.wood, textures.leaves):
        make(folder)
    d = Document([0.42, 0.54, 0.70, 1.0], pitch=-14.0, yaw=21.5)
    for texture, name in (("tiles", "Floor tiles"), ("bricks", "Bricks"), ("marble", "Marble"), ("wood", "Wood")):
        d.texture(texture, name, texture + ".png")
    d.texture("leaves", "Leaves", "leaves.png", wrap="clamp")
    for texture, name in (("tiles-surface", "Floor tiles, surface"), ("tiles-normal", "Floor tiles, normals"),
                          ("bricks-normal", "Bricks, normals")):
        d.texture(texture, name, texture + ".png", linear=True)
    showcase_meshes(d, folder)
    showcase_materials(d)

    building(d)
    spheres(d)
    fountain(d)
    for i, (x, z) in enumerate([(-6.4, 6.5), (6.4, 6.5), (-6.4, 0.5), (6.4, 0.5), (-6.4, -5.5), (6.4, -5.5)]):
        lamp(d, i + 1, x, z)
    for i, (x, z) in enumerate([(-7.5, -8.8), (-1.5, -8.8), (1.5, -8.8), (7.5, -8.8), (-8.8, -2.5), (8.8, -2.5),
                                (-8.8, 3.5), (8.8, 3.5)]):
        plant(d, i + 1, x, z)
    crates(d)
    panes(d)
    d.add("sun", "Sun", at=(6, 12, 8), turn=combined(turned(Y, 35), turned(X, 48)),
          light=light("sun", (1.0, 0.87, 0.70), 3.2, range=60.0, texelSize=0.02))
    for i, (x, color) in enumerate([(-4.5, (1.0, 0.62, 0.35)), (0.0, (1.0, 0.93, 0.82)), (4.5, (0.45, 0.65, 1.0))]):
        d.add("spot%d" % (i + 1), "Spotlight %d" % (i + 1), at=(x, 6.2, 0.5),
              turn=combined(turned(Z, x * -5.0), turned(X, 42)), light=light("spot", color, 110.0, 24.0, 14.0))
    d.camera((0.0, 4.1, 13.8), -13.0, 0.0, 66.0)
    d.write(os.path.join(folder, "project.json"))


def showcase_meshes(d, folder):
    shaft = [(0.36, 0.0), (0.36, 0.06), (0.33, 0.12), (0.32, 1.0), (0.305, 2.0), (0.28, 2.88), (0.31, 2.94), (0.31, 3.0)]
    pot = [(0.0, 0.0), (0.24, 0.0), (0.30, 0.15), (0.36, 0.45), (0.37, 0.52), (0.41, 0.54), (0.41, 0.62), (0.35, 0.62),
           (0.33, 0.5), (0.0, 0.5)]
    basin = [(2.0, 0.0), (2.0, 0.12), (1.9, 0.16), (1.9, 0.5), (2.0, 0.55), (2.0, 0.66), (1.72, 0.66), (1.72, 0.1),
             (0.0, 0.1)]
    bowl = [(0.0, 0.0), (0.42, 0.0), (0.36, 0.12), (0.16, 0.25), (0.14, 0.9), (0.22, 1.05), (0.75, 1.32), (0.85, 1.45),
            (0.79, 1.45), (0.66, 1.32), (0.0, 1.2)]
    files = {
        "floor": ("Floor", glb.rectangle(26, 26, 13, 13)),
        "backWall": ("Back wall", glb.rectangle(24, 5.4, 12, 4)),
        "shaft": ("Column shaft", glb.lathe(sharpened(shaft), 60, 1.0, 2.0, flutes=20, depth=0.07)),
        "pot": ("Flower pot", glb.lathe(sharpened(pot), 32)),
        "basin": ("Basin", glb.lathe(sharpened(basin), 48, 6.0, 2.0)),
        "bowl": ("Fountain bowl", glb.lathe(bowl, 48, 2.0, 2.0)),
        "card": ("Leaf card", glb.rectangle(1.0, 1.0, 1, 1)),
    }
    for mesh, (name, shape) in files.items():
        glb.write(os.path.join(folder, mesh + ".glb"), *shape)
        d.mesh_file(mesh, name, mesh + ".glb")


def sharpened(profile):
    """Every corner twice, close together, so that normals do not run around it."""
    result = [profile[0]]
    for (r0, y0), (r1, y1) in zip(profile, profile[1:]):
        length = math.hypot(r1 - r0, y1 - y0)
        for t in (0.02 / length, 1 - 0.02 / length):
            if 0.0 < t < 1.0:
                result.append((r0 + (r1 - r0) * t, y0 + (y1 - y0) * t))
        result.append((r1, y1))
    return result


def showcase_materials(d):
    d.lit("tiles", "Floor tiles", (1, 1, 1), baseColorTexture="tiles", roughness=1.0, metalness=0.0,
          metallicRoughnessTexture="tiles-surface", occlusionTexture="tiles-surface", normalTexture="tiles-normal")
    d.lit("bricks", "Bricks", (1, 1, 1), baseColorTexture="bricks", roughness=0.92, normalTexture="bricks-normal")
    d.lit("marble", "Marble", (1, 1, 1), baseColorTexture="marble", roughness=0.35)
    d.lit("stone", "Sandstone", (0.62, 0.53, 0.41), roughness=0.9)
    d.lit("wood", "Wood", (1, 1, 1), baseColorTexture="wood", roughness=0.7)
    d.lit("roof", "Roof", (0.50, 0.22, 0.14), roughness=0.85)
    d.lit("clay", "Clay", (0.58, 0.28, 0.17), roughness=0.75)
    d.lit("leaves", "Leaves", (1, 1, 1), "litMask", baseColorTexture="leaves", roughness=0.6)
    d.lit("iron", "Iron", (0.10, 0.10, 0.11), metalness=0.6, roughness=0.5)
    d.lit("bulb", "Bulb", (1.0, 0.9, 0.7), roughness=1.0, emissiveColor=[1.6, 1.15, 0.6, 1.0])
    d.lit("water", "Water", (0.10, 0.32, 0.38, 0.55), "litBlend", roughness=0.05)
    for pane, color in (("red", (0.75, 0.08, 0.06)), ("amber", (0.85, 0.50, 0.05)), ("blue", (0.06, 0.18, 0.70))):
        d.lit(pane + "Glass", pane.capitalize() + " glass", color + (0.45,), "litBlend", roughness=0.08)
    for row, (name, color, metalness) in enumerate([("Gold", (1.0, 0.71, 0.29), 1.0), ("Steel", (0.62, 0.63, 0.65), 1.0),
                                                    ("Enamel", (0.60, 0.07, 0.09), 0.0)]):
        for column in range(7):
            d.lit("sphere%d%d" % (row, column), "%s, roughness %.2f" % (name, 0.08 + column * 0.15), color,
                  metalness=metalness, roughness=round(0.08 + column * 0.15, 2))


def building(d):
    d.add("ground", "Ground", at=(0, 0, 0), turn=FLOOR, mesh="floor", material="tiles")
    d.add("walls", "Walls")
    d.add("wallBack", "Back wall", "walls", (0, 2.7, -12), mesh="backWall", material="bricks")
    d.add("wallLeft", "Left wall", "walls", (-12, 2.7, 0), turned(Y, 90), mesh="backWall", material="bricks")
    d.add("wallRight", "Right wall", "walls", (12, 2.7, 0), turned(Y, -90), mesh="backWall", material="bricks")
    d.add("colonnade", "Colonnade")
    places = [(x, -9.5) for x in range(-9, 10, 3)] + [(side, z + 0.5) for z in range(-7, 9, 3) for side in (-9.5, 9.5)]
    for i, (x, z) in enumerate(places):
        column = d.add("column%d" % (i + 1), "Column %d" % (i + 1), "colonnade", (x, 0, z))
        d.add(column + "Base", "Base", column, (0, 0.15, 0), size=(0.48, 0.15, 0.48), mesh="cube", material="stone")
        d.add(column + "Shaft", "Shaft", column, (0, 0.3, 0), size=(1, 1.13, 1), mesh="shaft", material="marble")
        d.add(column + "Capital", "Capital", column, (0, 3.82, 0), size=(0.46, 0.13, 0.46), mesh="cube", material="stone")
    d.add("roofs", "Roofs")
    for name, at, size in (("Back beam", (0, 4.2, -9.5), (10.0, 0.26, 0.4)), ("Left beam", (-9.5, 4.2, -0.2), (0.4, 0.26, 9.7)),
                           ("Right beam", (9.5, 4.2, -0.2), (0.4, 0.26, 9.7))):
        d.add(name.lower().replace(" ", ""), name, "roofs", at, size=size, mesh="cube", material="stone")
    d.add("backroof", "Back roof", "roofs", (0, 4.95, -10.7), turned(X, 20), (12.0, 0.1, 1.75), "cube", "roof")
    d.add("leftroof", "Left roof", "roofs", (-10.7, 4.95, 0), turned(Z, 20), (1.75, 0.1, 11.5), "cube", "roof")
    d.add("rightroof", "Right roof", "roofs", (10.7, 4.95, 0), turned(Z, -20), (1.75, 0.1, 11.5), "cube", "roof")


def spheres(d):
    """Three steps with a sphere of each roughness."""
    stand = d.add("stand", "Spheres", at=(0, 0, -4.6))
    for row in range(3):
        height = 0.45 + 0.62 * (2 - row)
        d.add("step%d" % row, "Step %d" % (row + 1), stand, (0, height / 2, (row - 1) * 1.15),
              size=(4.5, height / 2, 0.575), mesh="cube", material="marble")
        for column in range(7):
            d.add("sphere%d%d" % (row, column), "Sphere %d.%d" % (row + 1, column + 1), stand,
                  ((column - 3) * 1.25, height + 0.45, (row - 1) * 1.15), size=(0.45, 0.45, 0.45), mesh="sphere",
                  material="sphere%d%d" % (row, column))


def fountain(d):
    d.add("fountain", "Fountain", at=(0, 0, 3.0))
    d.add("basin", "Basin", "fountain", mesh="basin", material="stone")
    d.add("bowl", "Bowl", "fountain", (0, 0.1, 0), mesh="bowl", material="marble")
    d.add("poolWater", "Water of the basin", "fountain", (0, 0.52, 0), size=(1.73, 0.005, 1.73), mesh="cylinder", material="water")
    d.add("bowlWater", "Water of the bowl", "fountain", (0, 1.5, 0), size=(0.74, 0.005, 0.74), mesh="cylinder", material="water")
    d.add("bowlBall", "Ball", "fountain", (0, 1.75, 0), size=(0.24, 0.24, 0.24), mesh="sphere", material="sphere00")


def lamp(d, number, x, z):
    lamp = d.add("lamp%d" % number, "Lamp %d" % number, at=(x, 0, z))
    d.add(lamp + "Foot", "Foot", lamp, (0, 0.08, 0), size=(0.2, 0.08, 0.2), mesh="cylinder", material="iron")
    d.add(lamp + "Post", "Post", lamp, (0, 1.3, 0), size=(0.045, 1.2, 0.045), mesh="cylinder", material="iron")
    d.add(lamp + "Bulb", "Bulb", lamp, (0, 2.66, 0), size=(0.17, 0.17, 0.17), mesh="sphere", material="bulb",
          light=light("point", (1.0, 0.66, 0.34), 9.0))
    d.add(lamp + "Cap", "Cap", lamp, (0, 2.93, 0), size=(0.24, 0.09, 0.24), mesh="cone", material="iron")


def plant(d, number, x, z):
    plant = d.add("plant%d" % number, "Plant %d" % number, at=(x, 0, z), turn=turned(Y, number * 37))
    d.add(plant + "Pot", "Pot", plant, mesh="pot", material="clay")
    for i in range(4):
        d.add("%sLeaves%d" % (plant, i + 1), "Leaves %d" % (i + 1), plant, (0, 1.1, 0), turned(Y, 45 * i),
              (1.3, 1.25, 1.0), "card", "leaves")


def crates(d):
    d.add("crates", "Crates", at=(-4.6, 0, 6.3), turn=turned(Y, 12))
    for i, (x, y, z, turn, size) in enumerate([(0, 0.4, 0, 0, 0.4), (0.95, 0.4, 0.1, 18, 0.4), (0.45, 1.12, 0.05, -25, 0.32),
                                               (-0.85, 0.3, 0.25, 40, 0.3), (0.3, 0.25, 0.95, 10, 0.25)]):
        d.add("crate%d" % (i + 1), "Crate %d" % (i + 1), "crates", (x, y, z), turned(Y, turn), (size, size, size), "cube",
              "wood")


def panes(d):
    d.add("panes", "Glass panes", at=(4.3, 0, 6.2), turn=turned(Y, -20))
    for i, color in enumerate(("red", "amber", "blue")):
        pane = d.add("pane%d" % (i + 1), "Pane %d" % (i + 1), "panes", ((i - 1) * 0.7, 0, (1 - i) * 0.6))
        d.add(pane + "Foot", "Foot", pane, (0, 0.06, 0), size=(0.55, 0.06, 0.14), mesh="cube", material="iron")
        d.add(pane + "Glass", "Glass", pane, (0, 0.92, 0), size=(0.5, 0.8, 0.02), mesh="cube", material=color + "Glass")


def lights(folder):
    """Three lights of a kind each, on a floor with a wall and some shapes."""
    d = Document([0.05, 0.05, 0.06, 1.0])
    d.lit("white", "White", (0.8, 0.8, 0.8), roughness=0.6)
    d.lit("shiny", "Shiny", (0.7, 0.7, 0.72), metalness=1.0, roughness=0.25)
    d.add("ground", "Ground", turn=FLOOR, size=(6, 6, 1), mesh="plane", material="white")
    d.add("wall", "Wall", at=(0, 2, -3.5), size=(6, 2, 1), mesh="plane", material="white")
    d.add("ball", "Ball", at=(-1.8, 0.7, -0.5), size=(0.7, 0.7, 0.7), mesh="sphere", material="white")
    d.add("mirrorBall", "Shiny ball", at=(0, 0.7, -0.5), size=(0.7, 0.7, 0.7), mesh="sphere", material="shiny")
    d.add("box", "Box", at=(1.8, 0.6, -0.5), turn=turned(Y, 30), size=(0.6, 0.6, 0.6), mesh="cube", material="white")
    d.add("point", "Point light", at=(-1.0, 1.9, 0.9), light=light("point", (1.0, 0.6, 0.3), 7.0))
    d.add("spot", "Spotlight", at=(0, 4.0, 1.5), turn=turned(X, 25), light=light("spot", (0.4, 0.7, 1.0), 60.0, 22.0, 16.0))
    d.add("sun", "Sun", at=(3, 5, 3), turn=turned(Z, -40), light=light("sun", (1.0, 0.95, 0.8), 2.0))
    d.camera((0, 3.0, 5.2), -24.0, 0.0)
    d.write(os.path.join(folder, "project.json"))


def shadows(folder):
    """A floor that runs far away, with things that throw shadows, a light of a kind each."""
    textures.leaves(folder)
    d = Document([0.45, 0.55, 0.68, 1.0])
    d.texture("leaves", "Leaves", "leaves.png", wrap="clamp")
    d.lit("floor", "Floor", (0.7, 0.66, 0.6), roughness=0.9)
    d.lit("stone", "Stone", (0.55, 0.5, 0.45), roughness=0.8)
    d.lit("red", "Red", (0.7, 0.15, 0.1), roughness=0.5)
    d.lit("leaves", "Leaves", (1, 1, 1), "litMask", baseColorTexture="leaves", roughness=0.6)
    d.lit("glass", "Glass", (0.2, 0.5, 0.8, 0.4), "litBlend", roughness=0.1)
    d.add("ground", "Ground", at=(0, 0, -25), turn=FLOOR, size=(30, 40, 1), mesh="plane", material="floor")
    d.add("ball", "Ball", at=(-1.5, 0.7, 0.6), size=(0.7, 0.7, 0.7), mesh="sphere", material="red")
    d.add("box", "Box", at=(0.5, 0.6, -0.4), turn=turned(Y, 30), size=(0.6, 0.6, 0.6), mesh="cube", material="stone")
    # Seen from one side only, and mirrored.
    for name, x, side in (("panel", 2.2, 1), ("mirroredPanel", 3.9, -1)):
        d.add(name, "Mirrored panel" if side < 0 else "Panel", at=(x, 0.75, -0.8), turn=turned(X, -30),
              size=(side * 0.6, 0.7, 1), mesh="plane", material="red")
    d.add("card", "Leaf card", at=(-3.2, 0.9, -0.2), turn=turned(Y, 25), size=(0.85, 0.85, 1), mesh="plane", material="leaves")
    d.add("pane", "Glass pane", at=(0.9, 0.7, 1.5), size=(0.6, 0.6, 1), mesh="plane", material="glass")
    for i in range(12):
        for side in (-1, 1):
            d.add("post%d%s" % (i + 1, "l" if side < 0 else "r"), "Post", at=(side * 5.5, 1.1, -3 - 4.5 * i),
                  size=(0.25, 1.1, 0.25), mesh="cylinder", material="stone")
    d.add("sun", "Sun", turn=combined(turned(Y, 35), turned(X, 48)),
          light=light("sun", (1.0, 0.93, 0.8), 3.0, range=60.0, bias=0.0, normalBias=0.0, texelSize=0.03, cascadeCount=4))
    d.add("spot", "Spotlight", at=(-2.5, 4.0, 3.0), turn=combined(turned(Y, -35), turned(X, 42)), light=light(
        "spot", (0.5, 0.75, 1.0), 90.0, 26.0, 18.0, range=12.0, bias=0.0, normalBias=0.0, texelSize=0.02))
    d.add("point", "Point light", at=(0.6, 1.9, 1.0), light=light(
        "point", (1.0, 0.7, 0.4), 9.0, range=10.0, bias=0.0, normalBias=0.0, texelSize=0.05))
    d.camera((0, 2.6, 6.2), -16.0, 0.0)
    d.write(os.path.join(folder, "project.json"))


def alpha(folder):
    """Opaque, with holes, and transparent panes in front of each other."""
    textures.leaves(folder)
    d = Document([0.30, 0.36, 0.42, 1.0])
    d.texture("leaves", "Leaves", "leaves.png", wrap="clamp")
    d.lit("opaque", "Opaque", (1, 1, 1), baseColorTexture="leaves")
    d.lit("mask", "With holes", (1, 1, 1), "litMask", baseColorTexture="leaves")
    d.lit("blend", "Transparent", (1, 1, 1, 0.7), "litBlend", baseColorTexture="leaves")
    d.lit("floor", "Floor", (0.6, 0.55, 0.5))
    d.add("ground", "Ground", turn=FLOOR, size=(4, 4, 1), mesh="plane", material="floor")
    d.add("post", "Post behind", at=(0, 0.5, -1.2), size=(3.4, 0.12, 0.12), mesh="cube", material="floor")
    for i, (material, name) in enumerate((("opaque", "Opaque"), ("mask", "With holes"), ("blend", "Transparent"))):
        d.add(material, name, at=((i - 1) * 1.9, 0.9, -0.5), size=(0.85, 0.85, 1), mesh="plane", material=material)
    for i, color in enumerate([(0.8, 0.1, 0.1), (0.1, 0.7, 0.1), (0.1, 0.2, 0.9)]):
        d.lit("pane%d" % i, "Pane %d" % (i + 1), color + (0.5,), "litBlend", roughness=0.3)
        # The farthest comes last in the document.
        d.add("pane%d" % i, "Pane %d" % (i + 1), at=((i - 1) * 0.45, 0.55 + 0.1 * i, 1.4 - 0.35 * i), size=(0.5, 0.45, 1),
              mesh="plane", material="pane%d" % i)
    d.add("sun", "Sun", turn=combined(turned(Y, 20), turned(X, 50)), light=light("sun", (1, 1, 1), 2.6))
    d.camera((0, 1.6, 4.2), -12.0, 0.0)
    d.write(os.path.join(folder, "project.json"))


def texture_samples(folder):
    """One picture, sampled in all ways; and normals on flat and round things."""
    textures.checker(folder)
    textures.bumps(folder)
    d = Document([0.12, 0.13, 0.15, 1.0])
    glb.write(os.path.join(folder, "panel.glb"), *glb.rectangle(2, 2, 3, 3, (-1, -1)))
    glb.write(os.path.join(folder, "runway.glb"), *glb.rectangle(2, 40, 2, 40))
    glb.write(os.path.join(folder, "plate.glb"), *glb.rectangle(2, 2, 1, 1), tangent=(1.0, 0.0, 0.0, 1.0))
    d.mesh_file("panel", "Panel", "panel.glb")
    d.mesh_file("plate", "Plate, with tangents", "plate.glb")
    d.mesh_file("runway", "Runway", "runway.glb")
    d.texture("repeat", "Repeats", "checker.png")
    for texture, name, sampling in (("mirror", "Mirrored", {"wrap": "mirror"}), ("clamp", "Clamped", {"wrap": "clamp"}),
                                    ("nearest", "Nearest", {"filter": "nearest", "mipmap": "none"}),
                                    ("noLevels", "Without levels", {"mipmap": "none"})):
        d.texture(texture, name, None, image="repeat", **sampling)
    d.texture("bumps", "Bumps", "bumps-normal.png", linear=True)
    for texture in ("repeat", "mirror", "clamp", "nearest", "noLevels"):
        d.sections["materials"][texture] = {"name": texture.capitalize(), "pipeline": "flat",
                                            "Flat": {"color": [1, 1, 1, 1], "colorTexture": texture}}
    d.lit("bumpy", "Bumpy", (0.75, 0.55, 0.35), roughness=0.4, normalTexture="bumps")
    d.lit("flatBumpy", "Less bumpy", (0.75, 0.55, 0.35), roughness=0.4, normalTexture="bumps", normalScale=0.25)
    for i, texture in enumerate(("repeat", "mirror", "clamp")):
        d.add(texture, texture.capitalize(), at=(i * 2.3 - 3.45, 2.3, 0), mesh="panel", material=texture)
    d.add("nearest", "Nearest", at=(3.45, 2.3, 0), size=(1, 1, 1), mesh="plane", material="nearest")
    for i, texture in enumerate(("repeat", "noLevels")):
        d.add(texture + "Runway", texture.capitalize() + " runway", at=(i * 2.4 - 3.4, -1.2, -17), turn=FLOOR, mesh="runway",
              material=texture)
    d.add("bumpyBall", "Bumpy ball", at=(2.0, 0.1, 0.0), size=(0.9, 0.9, 0.9), mesh="sphere", material="bumpy")
    d.add("bumpyPanel", "Bumpy panel", at=(4.0, 0.1, 0.0), turn=turned(Y, -25), size=(0.9, 0.9, 1), mesh="plate", material="bumpy")
    d.add("lessBumpyBall", "Less bumpy ball", at=(0.05, 0.1, 0.0), size=(0.9, 0.9, 0.9), mesh="sphere", material="flatBumpy")
    d.add("sun", "Sun", turn=combined(turned(Y, 40), turned(X, 45)), light=light("sun", (1, 1, 1), 2.8))
    d.camera((0, 1.2, 6.6), -2.0, 0.0)
    d.write(os.path.join(folder, "project.json"))


def environment(folder):
    """Metal and lacquer of all roughnesses, lit by nothing but what is around them."""
    surroundings.yard(folder)
    d = Document([0.1, 0.1, 0.12, 1.0], pitch=-8.0, yaw=0.0)
    d.sections["images"]["yard"] = {"name": "Yard", "file": "yard.hdr", "colorSpace": "linear"}
    d.rendering["environment"] = {"image": "yard", "intensity": 1.0, "rotation": 0.0, "background": True}
    for row, (name, color, metalness) in enumerate((("Chrome", (0.95, 0.95, 0.95), 1.0), ("Gold", (1.0, 0.71, 0.29), 1.0),
                                                    ("Lacquer", (0.55, 0.05, 0.07), 0.0))):
        for column in range(5):
            material = "%s%d" % (name.lower(), column)
            d.lit(material, "%s, roughness %.2f" % (name, column * 0.25), color, metalness=metalness, roughness=column * 0.25)
            d.add(material, "%s %d" % (name, column + 1), at=((column - 2) * 1.05, (1 - row) * 1.05, 0.0), size=(0.48, 0.48, 0.48),
                  mesh="sphere", material=material)
    d.lit("chalk", "Chalk", (0.8, 0.8, 0.8), roughness=1.0)
    d.add("table", "Table", at=(0, -1.75, 0), size=(3.2, 0.1, 1.2), mesh="cube", material="chalk")
    d.lit("glass", "Glass", (0.55, 0.75, 0.85, 0.3), "litBlend", roughness=0.05)
    d.add("pane", "Pane", at=(3.0, 0.0, 0.6), turn=turned(Y, -25), size=(0.45, 1.5, 0.02), mesh="cube", material="glass")
    d.camera((0, 0.3, 5.4), -3.0, 0.0, 60.0)
    d.write(os.path.join(folder, "project.json"))


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    projects = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "..", "projects")
    for name, make in (("Showcase", showcase), ("Lights", lights), ("Shadows", shadows), ("Alpha", alpha),
                       ("Textures", texture_samples), ("Environment", environment), ("Bloom", features.bloom),
                       ("Placement", features.placement)):
        folder = os.path.join(projects, name)
        os.makedirs(folder, exist_ok=True)
        make(folder)


if __name__ == "__main__":
    main()
