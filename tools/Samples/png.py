"""Pictures, computed pixel by pixel, as PNG files."""

import math
import random
import struct
import zlib


def write(path, size, pixel):
    """pixel(x, y) gives 3 or 4 values from 0 to 1; row 0 is the highest."""
    rows, channels = [], len(pixel(0, 0))
    for y in range(size):
        row = bytearray([0])
        for x in range(size):
            row += bytes(min(255, max(0, int(value * 255 + 0.5))) for value in pixel(x, y))
        rows.append(row)
    # Each row as the difference to the one above: smooth pictures get small.
    for y in range(size - 1, 0, -1):
        rows[y] = bytearray([2]) + bytes((a - b) & 255 for a, b in zip(rows[y][1:], rows[y - 1][1:]))
    header = struct.pack(">IIBBBBB", size, size, 8, 6 if channels == 4 else 2, 0, 0, 0)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                   chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b""))


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


class Noise:
    """Smooth noise from 0 to 1 that repeats after 1 along both axes."""

    def __init__(self, seed, cells, octaves=3):
        generator = random.Random(seed)
        self.octaves = []
        for i in range(octaves):
            count = cells << i
            self.octaves.append((count, [generator.random() for _ in range(count * count)]))

    def __call__(self, u, v):
        total = weights = 0.0
        for i, (count, values) in enumerate(self.octaves):
            x, y = u * count, v * count
            x0, y0 = math.floor(x), math.floor(y)
            fx, fy = smooth(x - x0), smooth(y - y0)

            def at(i, j):
                return values[(y0 + j) % count * count + (x0 + i) % count]

            low = at(0, 0) + (at(1, 0) - at(0, 0)) * fx
            high = at(0, 1) + (at(1, 1) - at(0, 1)) * fx
            weight = 0.5 ** i
            total += weight * (low + (high - low) * fy)
            weights += weight
        return total / weights


def smooth(t):
    return t * t * (3 - 2 * t)


def mix(a, b, t):
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def step(low, high, value):
    return smooth(min(1.0, max(0.0, (value - low) / (high - low))))


def normal_of(height, size, strength):
    """A pixel function of the normals of a height map that repeats: x to the right, y upwards."""
    def pixel(x, y):
        dx = height((x + 1) % size, y) - height((x - 1) % size, y)
        dy = height(x, (y - 1) % size) - height(x, (y + 1) % size)
        n = (-dx * strength, -dy * strength, 1.0)
        length = math.sqrt(sum(c * c for c in n))
        return tuple(c / length * 0.5 + 0.5 for c in n)
    return pixel


def cached(size, function):
    """The values of a function of pixels, computed once."""
    values = [function(i % size, i // size) for i in range(size * size)]
    return lambda x, y: values[y * size + x]
