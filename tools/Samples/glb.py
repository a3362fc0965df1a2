"""Meshes as binary glTF files: positions, normals, texture coordinates, which start at the top, and maybe more."""

import json
import math
import struct


def write(path, vertices, triangles, tangent=None, second=None, colors=None):
    """vertices: (position, normal, uv); triangles: three indices each; the tangent is that of all vertices; second texture
    coordinates and colours are lists."""
    positions = [p for p, _, _ in vertices]
    views, accessors, data = [], [], b""

    def add(values, kind, component, code, bounds=False):
        nonlocal data
        packed = b"".join(struct.pack("<%d%s" % (len(value), code), *value) for value in values)
        views.append({"buffer": 0, "byteOffset": len(data), "byteLength": len(packed)})
        data += packed + b"\0" * (-len(packed) % 4)
        accessor = {"bufferView": len(views) - 1, "componentType": component, "count": len(values), "type": kind}
        if bounds:
            accessor["min"] = [min(v[i] for v in values) for i in range(3)]
            accessor["max"] = [max(v[i] for v in values) for i in range(3)]
        accessors.append(accessor)

    add(positions, "VEC3", 5126, "f", True)
    add([n for _, n, _ in vertices], "VEC3", 5126, "f")
    add([uv for _, _, uv in vertices], "VEC2", 5126, "f")
    attributes = {"POSITION": 0, "NORMAL": 1, "TEXCOORD_0": 2}
    if tangent:
        attributes["TANGENT"] = len(accessors)
        add([tangent] * len(vertices), "VEC4", 5126, "f")
    for name, kind, values in (("TEXCOORD_1", "VEC2", second), ("COLOR_0", "VEC4", colors)):
        if values:
            attributes[name] = len(accessors)
            add(values, kind, 5126, "f")
    add([(i,) for triangle in triangles for i in triangle], "SCALAR", 5123, "H")
    document = {
        "asset": {"version": "2.0"},
        "buffers": [{"byteLength": len(data)}],
        "bufferViews": views,
        "accessors": accessors,
        "meshes": [{"primitives": [{"attributes": attributes, "indices": len(accessors) - 1}]}],
    }
    text = json.dumps(document, separators=(",", ":")).encode()
    text += b" " * (-len(text) % 4)
    with open(path, "wb") as file:
        file.write(struct.pack("<4sII", b"glTF", 2, 28 + len(text) + len(data)))
        file.write(struct.pack("<I4s", len(text), b"JSON") + text + struct.pack("<I4s", len(data), b"BIN\0") + data)


def rectangle(width, height, repeat_x, repeat_y, first=(0.0, 0.0)):
    """Upright, around the origin, towards +z."""
    corners = [(0, 0), (1, 0), (1, 1), (0, 1)]
    vertices = [(((x - 0.5) * width, (y - 0.5) * height, 0.0), (0.0, 0.0, 1.0),
                 (first[0] + x * repeat_x, 1 - first[1] - y * repeat_y)) for x, y in corners]
    return vertices, [(0, 1, 2), (0, 2, 3)]


def lathe(profile, segments, repeat_around=1.0, repeat_up=1.0, flutes=0, depth=0.0):
    """A profile of (radius, y) from the bottom to the top, turned around the y axis; flutes are carved into it."""
    lengths = [0.0]
    for (r0, y0), (r1, y1) in zip(profile, profile[1:]):
        lengths.append(lengths[-1] + math.hypot(r1 - r0, y1 - y0))

    def point(i, angle):
        radius, y = profile[i]
        radius -= depth * radius * abs(math.sin(angle * flutes / 2)) if flutes else 0.0
        return (radius * math.sin(angle), y, radius * math.cos(angle))

    def difference(a, b):
        return tuple(x - y for x, y in zip(a, b))

    vertices = []
    for i in range(len(profile)):
        for s in range(segments + 1):
            angle = 2 * math.pi * s / segments
            below, above = point(max(i - 1, 0), angle), point(min(i + 1, len(profile) - 1), angle)
            left, right = point(i, angle - 0.01), point(i, angle + 0.01)
            if profile[i][0] == 0.0:
                right, left = (math.cos(angle), 0, -math.sin(angle)), (0, 0, 0)
            a, b = difference(right, left), difference(above, below)
            n = (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])
            length = math.sqrt(sum(c * c for c in n)) or 1.0
            vertices.append((point(i, angle), tuple(c / length for c in n),
                             (repeat_around * s / segments, 1 - repeat_up * lengths[i] / lengths[-1])))
    triangles, row = [], segments + 1
    for i in range(len(profile) - 1):
        for s in range(segments):
            a, b = i * row + s, (i + 1) * row + s
            triangles += [(a, a + 1, b + 1), (a, b + 1, b)]
    return vertices, triangles
