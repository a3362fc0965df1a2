"""Samples of one feature each."""

import math
import os

import glb
import textures
from document import X, Y, Z, Document, combined, light, turned

FLOOR = turned(X, -90)

TUBES = ((0.9, 4.0, 8.0), (8.0, 0.9, 3.6), (7.0, 4.2, 0.6))


def bloom(folder):
    """A bar at night: tubes and bulbs of several strengths, and things between them that do not glow."""
    d = Document([0.02, 0.025, 0.05, 1.0], pitch=-8.0, yaw=0.0)
    d.lit("floor", "Floor", (0.35, 0.35, 0.4), roughness=0.35)
    d.lit("wall", "Wall", (0.5, 0.42, 0.38), roughness=0.9)
    d.lit("plain", "Plain", (0.75, 0.75, 0.75), roughness=0.6)
    d.lit("pane", "Pane", (0.2, 0.5, 0.45, 0.4), "litBlend", roughness=0.2)
    d.add("ground", "Ground", turn=FLOOR, size=(5, 3, 1), mesh="plane", material="floor")
    d.add("wall", "Wall", at=(-0.6, 1.2, -2.0), size=(2.6, 1.2, 0.1), mesh="cube", material="wall")
    for i, color in enumerate(TUBES):
        d.lit("tube%d" % i, "Tube %d" % (i + 1), (0.05, 0.05, 0.05), emissiveColor=[*color, 1.0])
        d.add("tube%d" % i, "Tube %d" % (i + 1), at=(-2.1 + i * 1.5, 1.45, -1.8), turn=turned(Z, (35, -35, 90)[i]),
              size=(0.045, 0.62, 0.045), mesh="cylinder", material="tube%d" % i)
    # The last one against the background.
    for i, strength in enumerate((0.4, 0.9, 2.0, 6.0, 20.0)):
        d.lit("bulb%d" % i, "Bulb %d" % (i + 1), (0.05, 0.05, 0.05),
              emissiveColor=[strength, 0.8 * strength, 0.55 * strength, 1.0])
        d.add("bulb%d" % i, "Bulb %d" % (i + 1), at=(-1.3 + i * 0.72, 0.2, 1.2), size=(0.12, 0.12, 0.12), mesh="sphere",
              material="bulb%d" % i)
    d.add("far", "Far bulb", at=(3.2, 2.1, -3.0), size=(0.2, 0.2, 0.2), mesh="sphere", material="bulb3")
    d.add("box", "Box", at=(1.35, 0.35, -0.3), turn=turned(Y, 25), size=(0.35, 0.35, 0.35), mesh="cube", material="plain")
    d.add("ball", "Ball", at=(-1.6, 0.4, -0.3), size=(0.4, 0.4, 0.4), mesh="sphere", material="plain")
    d.add("pane", "Pane", at=(2.2, 0.7, 0.1), turn=turned(Y, -20), size=(0.5, 0.7, 1), mesh="plane", material="pane")
    d.add("lamp", "Lamp", at=(0.2, 2.6, 1.0), light=light("point", (1.0, 0.8, 0.6), 5.0))
    d.add("tubeLight", "Light of the tubes", at=(-0.6, 1.4, -1.3), light=light("point", (0.9, 0.6, 0.9), 2.0))
    d.camera((0.2, 1.35, 3.7), -8.0, 0.0)
    d.rendering["bloom"] = {"enabled": True, "passes": 5, "kernelSize": 9, "threshold": 1.0, "intensity": 0.4}
    d.write(os.path.join(folder, "project.json"))


PLACED = ("baseColorTexture", "normalTexture")


def placement(folder):
    """A picture that is moved, scaled, turned, mirrored and laid by other coordinates; and bumps that turn."""
    textures.checker(folder)
    textures.bumps(folder)
    d = Document([0.12, 0.13, 0.15, 1.0])
    vertices, triangles = glb.rectangle(2, 2, 1, 1)
    second = [(0.5 + 0.25 * uv[0], 0.25 * uv[1]) for _, _, uv in vertices]
    colors = [(1.0, 0.5, 0.4, 1.0), (0.5, 1.0, 0.5, 1.0), (0.4, 0.6, 1.0, 1.0), (1.0, 1.0, 0.4, 1.0)]
    glb.write(os.path.join(folder, "card.glb"), vertices, triangles, (1.0, 0.0, 0.0, 1.0), second)
    glb.write(os.path.join(folder, "colored.glb"), vertices, triangles, None, second, colors)
    d.mesh_file("card", "Card", "card.glb")
    d.mesh_file("colored", "Card with colours", "colored.glb")
    d.texture("checker", "Checker", "checker.png")
    d.texture("bumps", "Bumps", "bumps-normal.png", linear=True)
    for texture in PLACED:
        d.sections["shaders"]["lit"]["parameters"] += [
            {"name": texture + "Place", "type": "vector", "default": [0, 0, 1, 1]},
            {"name": texture + "Turn", "type": "vector", "default": [0, 0, 0, 0]}]
    ways = (("plain", {}), ("moved", {"Place": [0.25, 0.125, 1, 1]}), ("scaled", {"Place": [0, 0, 3, 2]}),
            ("turned", {"Turn": [round(math.radians(30), 5), 0, 0, 0]}),
            ("mirrored", {"Place": [0, 0, -1, 1]}), ("second", {"Turn": [0, 1, 0, 0]}))
    for row, (texture, image, color) in enumerate((("baseColorTexture", "checker", (1, 1, 1)),
                                                   ("normalTexture", "bumps", (0.7, 0.5, 0.35)))):
        for i, (way, values) in enumerate(ways):
            material = "%s%d" % (way, row)
            d.lit(material, "%s %d" % (way.capitalize(), row + 1), color, roughness=0.5,
                  **{texture: image}, **{texture + key: value for key, value in values.items()})
            d.add(material, material.capitalize(), at=((i - 2.5) * 1.05, 1.05 - row * 1.05, 0), size=(0.5, 0.5, 1),
                  mesh="card", material=material)
    d.lit("colors", "Colours", (1, 1, 1), roughness=0.9)
    d.add("colors", "Colours of vertices", at=(-2.1, -1.05, 0), size=(0.5, 0.5, 1), mesh="colored", material="colors")
    # A mirrored card and one in front of a mirrored parent.
    d.add("flipped", "Mirrored object", at=(-0.525, -1.05, 0), size=(-0.5, 0.5, 1), mesh="colored", material="turned0")
    d.add("mirror", "Mirrored parent", at=(1.05, -1.05, 0), size=(1, -1, 1))
    d.add("child", "Child", parent="mirror", turn=turned(Z, 20), size=(0.5, 0.35, 1), mesh="colored", material="turned1")
    d.add("egg", "Mirrored ball", at=(2.6, -1.05, 0.1), size=(0.45, -0.5, 0.45), mesh="sphere", material="scaled1")
    d.add("sun", "Sun", turn=combined(turned(Y, -40), turned(X, 40)), light=light("sun", (1, 1, 1), 2.8))
    d.camera((0, 0.0, 4.7), 0.0, 0.0)
    d.write(os.path.join(folder, "project.json"))
