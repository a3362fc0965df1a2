"""Project documents, written as the editor writes them."""

import json
import math

LIT = [("baseColor", "color", [1, 1, 1, 1]), ("baseColorTexture", "texture", None), ("metalness", "float", 0),
       ("roughness", "float", 0.8), ("metallicRoughnessTexture", "texture", None), ("normalTexture", "texture", None),
       ("normalScale", "float", 1), ("occlusionTexture", "texture", None),
       ("emissiveColor", "color", [0, 0, 0, 1]), ("emissiveTexture", "texture", None), ("alphaCutoff", "float", 0.5)]
FLAT = [("color", "color", [1, 1, 1, 1]), ("colorTexture", "texture", None)]
VISUALIZER = [("color", "color", None), ("wireframeColor", "color", None)]


def shader(name, parameters, vertex="Dynamic.vert", stage="mesh", variant=1):
    entries = []
    for parameter, kind, default in parameters:
        entry = {"name": parameter, "type": kind}
        if default is not None:
            entry["default"] = default
        entries.append(entry)
    return {"name": name, "stage": stage, "variant": variant, "vertex": vertex, "fragment": name + ".frag",
            "parameters": entries}


def pipeline(name, shader_id, **flags):
    return {"name": name, "shader": shader_id, "features": [], **flags}


def turned(axis, degrees):
    half = math.radians(degrees) / 2
    return [round(c * math.sin(half), 7) for c in axis] + [round(math.cos(half), 7)]


def combined(a, b):
    """Rotation b, then a."""
    ax, ay, az, aw = a
    bx, by, bz, bw = b
    product = [aw * bx + ax * bw + ay * bz - az * by, aw * by - ax * bz + ay * bw + az * bx,
               aw * bz + ax * by - ay * bx + az * bw, aw * bw - ax * bx - ay * by - az * bz]
    return [round(c, 7) for c in product]


X, Y, Z = (1, 0, 0), (0, 1, 0), (0, 0, 1)


class Document:
    def __init__(self, clear_color, pitch=-25.0, yaw=45.0):
        self.sections = {name: {} for name in
                         ("objects", "meshes", "images", "textures", "shaders", "pipelines", "materials")}
        self.sections["shaders"] = {
            "lit": shader("Lit", LIT), "flat": shader("Flat", FLAT),
            "meshVisualizer": shader("MeshVisualizer", VISUALIZER, variant=0)}
        self.sections["pipelines"] = {
            "lit": pipeline("Lit", "lit"),
            "litMask": pipeline("Lit, with holes", "lit", doubleSided=True, alphaMask=True),
            "litBlend": pipeline("Lit, transparent", "lit", doubleSided=True, depthWrite=False, blend=True),
            "flat": pipeline("Flat", "flat"),
            "meshVisualizer": pipeline("MeshVisualizer", "meshVisualizer", doubleSided=True, blend=True)}
        for shape in ("cube", "sphere", "plane", "cylinder", "cone"):
            self.sections["meshes"][shape] = {"name": shape.capitalize(), "primitive": shape}
        self.rendering = {"clearColor": clear_color, "textureAtlasSize": [2048, 2048]}
        self.pitch, self.yaw = pitch, yaw

    def mesh_file(self, mesh, name, file):
        self.sections["meshes"][mesh] = {"name": name, "file": file}

    def texture(self, texture, name, file, linear=False, **sampling):
        """An image, and a texture of it of the same id."""
        if file:
            self.sections["images"][texture] = {"name": name, "file": file,
                                                "colorSpace": "linear" if linear else "srgb"}
        entry = {"name": name, "image": sampling.pop("image", texture)}
        entry.update(sampling)
        self.sections["textures"][texture] = entry

    def lit(self, material, name, color, pipeline="lit", **values):
        self.sections["materials"][material] = {
            "name": name, "pipeline": pipeline, "Lit": {"baseColor": list(color) + [1.0] * (4 - len(color)), **values}}

    def flat(self, material, name, color):
        self.sections["materials"][material] = {"name": name, "pipeline": "flat", "Flat": {"color": list(color) + [1.0]}}

    def add(self, object_id, name, parent="", at=(0, 0, 0), turn=None, size=(1, 1, 1), mesh=None, material=None,
            light=None, components=()):
        parts = []
        if mesh:
            parts.append({"type": "mesh", "active": True, "mesh": {"mesh": mesh, "material": material}})
        if light:
            parts.append({"type": "light", "active": True, "light": light})
        self.sections["objects"][object_id] = {
            "name": name, "parent": parent, "translation": [float(round(c, 5)) for c in at],
            "rotation": turn or [0.0, 0.0, 0.0, 1.0], "scaling": [float(c) for c in size],
            "components": parts + list(components)}
        return object_id

    def camera(self, at, pitch, yaw, fov=70.0):
        self.add("camera", "Camera", at=at, turn=combined(turned(Y, yaw), turned(X, pitch)), components=[
            {"type": "view", "active": True, "view": {"fov": fov, "near": 0.1, "far": 300.0}}])

    def write(self, path):
        document = {name: section for name, section in self.sections.items() if section}
        document["settings"] = {
            "rendering": self.rendering,
            "editor": {"camera": {"near": 0.05, "far": 500.0, "pitch": self.pitch, "yaw": self.yaw}}}
        with open(path, "w") as file:
            file.write(text(document, "") + "\n")


def light(kind, color, intensity, outer=0.0, inner=0.0, **shadows):
    """Shadows are off unless one of their values is said."""
    values = {"type": kind, "color": list(color), "intensity": intensity, "outerAngle": outer, "innerAngle": inner,
            "shadows": False, "shadowRange": 20.0, "shadowBias": 0.001, "shadowNormalBias": 0.02,
            "shadowTexelSize": 0.01, "cascadeCount": 3 if kind == "sun" else 0}
    if shadows:
        values["shadows"] = True
    values.update(("shadow" + key[0].upper() + key[1:] if key != "cascadeCount" else key, value)
                  for key, value in shadows.items())
    return values


def text(value, indentation):
    """A key a line, arrays of plain values on one."""
    inner = indentation + "  "
    if isinstance(value, dict) and value:
        lines = ["%s%s: %s" % (inner, json.dumps(key), text(child, inner)) for key, child in value.items()]
        return "{\n" + ",\n".join(lines) + "\n" + indentation + "}"
    if isinstance(value, list) and any(isinstance(child, (dict, list)) for child in value):
        return "[\n" + ",\n".join(inner + text(child, inner) for child in value) + "\n" + indentation + "]"
    return json.dumps(value)
