"""The pictures of the samples."""

import math
import os
import random

import png
from png import Noise, cached, mix, normal_of, step

SIZE = 256


def tiles(folder):
    """Four stone tiles, two and two alike, with joints between them."""
    grain, veins = Noise(1, 8), Noise(2, 4, 4)

    def joint(x, y):
        edge = min(min(c % 128, 127 - c % 128) for c in (x, y))
        return 1 - step(0.5, 3.0, edge)

    def color(x, y):
        u, v = x / SIZE, y / SIZE
        dark = (x // 128 + y // 128) % 2
        stone = mix((0.62, 0.57, 0.49), (0.72, 0.68, 0.60), grain(u, v)) if not dark else \
            mix((0.36, 0.27, 0.22), (0.45, 0.35, 0.29), grain(u, v))
        vein = 1 - step(0.0, 0.05, abs(veins(u, v) - 0.5))
        stone = mix(stone, tuple(c * 0.82 for c in stone), vein)
        return quantized(mix(stone, (0.28, 0.26, 0.24), joint(x, y)))

    def surface(x, y):
        rough = 0.35 + 0.25 * grain(x / SIZE, y / SIZE)
        return (1.0 - 0.5 * joint(x, y), rough + (0.9 - rough) * joint(x, y), 0.0)

    png.write(os.path.join(folder, "tiles.png"), SIZE, color)
    png.write(os.path.join(folder, "tiles-surface.png"), SIZE, surface)
    height = cached(SIZE, lambda x, y: 0.15 * grain(x / SIZE, y / SIZE) - 1.5 * joint(x, y))
    png.write(os.path.join(folder, "tiles-normal.png"), SIZE, normal_of(height, SIZE, 0.7))


def bricks(folder):
    """Four courses of two bricks, each course half a brick further."""
    grain = Noise(3, 16)
    tints = random.Random(4)
    brick_tints = [tints.random() for _ in range(8)]

    def place(x, y):
        course = y // 64
        shifted = (x + 64 * (course % 2)) % SIZE
        edge = min(shifted % 128, 127 - shifted % 128, y % 64, 63 - y % 64)
        return 1 - step(1.5, 5.0, edge), course * 2 + shifted // 128

    def color(x, y):
        mortar, brick = place(x, y)
        g = grain(x / SIZE, y / SIZE)
        clay = mix((0.47, 0.25, 0.18), (0.66, 0.40, 0.29), 0.6 * brick_tints[brick] + 0.4 * g)
        return quantized(mix(clay, (0.55, 0.51, 0.46), mortar))

    png.write(os.path.join(folder, "bricks.png"), SIZE, color)
    height = cached(SIZE, lambda x, y: 0.5 * grain(x / SIZE, y / SIZE) - 2.0 * place(x, y)[0])
    png.write(os.path.join(folder, "bricks-normal.png"), SIZE, normal_of(height, SIZE, 0.6))


def marble(folder):
    warp, veins = Noise(5, 4, 4), Noise(6, 3, 4)

    def color(x, y):
        u, v = x / SIZE, y / SIZE
        bent = veins(u + 0.3 * warp(u, v), v + 0.3 * warp(v, u))
        vein = 1 - step(0.0, 0.04, abs(bent - 0.5))
        return quantized(mix((0.90, 0.88, 0.84), (0.68, 0.66, 0.63), 0.5 * vein + 0.3 * warp(u, v)))

    png.write(os.path.join(folder, "marble.png"), SIZE, color)


def wood(folder):
    fibre, bend = Noise(7, 4, 5), Noise(8, 2, 2)

    def color(x, y):
        u, v = x / SIZE, y / SIZE
        board = y // 64
        gap = 1 - step(0.5, 2.5, min(y % 64, 63 - y % 64))
        rings = 0.5 + 0.5 * math.sin(90 * (v + 0.05 * bend(u, v) + 0.37 * board))
        grain = 0.35 * rings + 0.65 * fibre(u, v)
        return quantized(mix(mix((0.40, 0.25, 0.14), (0.58, 0.39, 0.23), grain), (0.12, 0.07, 0.04), gap))

    png.write(os.path.join(folder, "wood.png"), SIZE, color)


def leaves(folder):
    """A fan of leaves that grow from the middle of the lower edge; there is nothing between them."""
    leaf_count, size = 9, 128

    def color(x, y):
        best = (0.10, 0.20, 0.05, 0.0)
        for i in range(leaf_count):
            angle = math.radians(-64 + 128 * i / (leaf_count - 1))
            length = 0.93 - 0.28 * abs(i / (leaf_count - 1) * 2 - 1)
            px, py = x / size - 0.5, 1 - y / size
            along = px * math.sin(angle) + py * math.cos(angle)
            across = px * math.cos(angle) - py * math.sin(angle)
            t = along / length
            if not 0 < t < 1:
                continue
            width = 0.075 * math.sin(math.pi * t ** 0.7)
            if abs(across) < width:
                rib = 1 - step(0.0, 0.006, abs(across))
                green = mix((0.13, 0.30, 0.07), (0.35, 0.55, 0.16), t)
                best = mix(green, (0.55, 0.66, 0.30), 0.6 * rib) + (1.0,)
        return best

    png.write(os.path.join(folder, "leaves.png"), size, color)


def checker(folder):
    """Squares in two grays with a coloured corner each, so that it is seen which way it lies."""
    def color(x, y):
        if x < 32 and y >= 96:
            return (0.85, 0.20, 0.15)
        if x >= 96 and y < 32:
            return (0.15, 0.35, 0.80)
        return (0.85, 0.85, 0.85) if (x // 16 + y // 16) % 2 else (0.30, 0.30, 0.30)

    png.write(os.path.join(folder, "checker.png"), 128, color)


def bumps(folder):
    """Round bumps, four and four."""
    def height(x, y):
        dx, dy = (x % 32 - 15.5) / 14, (y % 32 - 15.5) / 14
        return 10 * max(0.0, 1 - dx * dx - dy * dy) ** 1.5

    png.write(os.path.join(folder, "bumps-normal.png"), 128, normal_of(height, 128, 0.5))


def quantized(color, steps=64):
    """Files of less noise are smaller."""
    return tuple(round(c * steps) / steps for c in color)
