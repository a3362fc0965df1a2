"""What is all around a scene: longitude over latitude, the middle in the direction of -z."""

import math
import os

import hdr
from png import mix, step

# Where the sun stands: to the right of the middle, as high as that.
SUN_LONGITUDE, SUN_LATITUDE, SUN_SIZE = 55.0, 32.0, 5.0
# Walls of a yard: from where to where around the middle, how high, and which colour.
WALLS = [(-62, -28, 21, (0.40, 0.10, 0.06)), (-20, 14, 12, (0.08, 0.16, 0.34)), (84, 128, 17, (0.62, 0.52, 0.30)),
         (-150, -104, 26, (0.24, 0.36, 0.18))]


def direction(longitude, latitude):
    longitude, latitude = math.radians(longitude), math.radians(latitude)
    return (math.sin(longitude) * math.cos(latitude), math.sin(latitude), -math.cos(longitude) * math.cos(latitude))


def yard(folder, width=512):
    """An afternoon sky over a yard with walls: small enough to be part of the repository."""
    height = width // 2
    sun = direction(SUN_LONGITUDE, SUN_LATITUDE)

    def color(x, y):
        longitude, latitude = (x + 0.5) / width * 360.0 - 180.0, 90.0 - (y + 0.5) / height * 180.0
        return light(longitude, latitude, sun)

    hdr.write(os.path.join(folder, "yard.hdr"), width, height, color)


def light(longitude, latitude, sun):
    for begin, end, top, paint in WALLS:
        if begin <= longitude <= end and -6.0 < latitude < top:
            return wall(longitude - begin, latitude, top, paint)
    if latitude < 0.0:
        paving = 0.85 if (math.floor(longitude / 12.0) + math.floor(latitude / 12.0)) % 2 else 1.0
        return tuple(value * paving for value in mix((0.24, 0.21, 0.18), (0.12, 0.11, 0.10), -latitude / 90.0))
    sky = mix((0.62, 0.60, 0.56), (0.10, 0.22, 0.55), step(-0.05, 0.75, latitude / 90.0))
    away = math.degrees(math.acos(max(-1.0, min(1.0, sum(a * b for a, b in zip(direction(longitude, latitude), sun))))))
    glow = 1.6 * math.exp(-away / 9.0)
    disc = 120.0 * (1.0 - step(SUN_SIZE * 0.5, SUN_SIZE, away))
    return tuple(value + (glow + disc) * warm for value, warm in zip(sky, (1.0, 0.84, 0.62)))


def wall(along, latitude, top, paint):
    # A window in every eight degrees, and a bright ledge.
    if latitude > top - 1.2:
        return tuple(min(1.0, value * 1.6) for value in paint)
    if 2.0 < along % 8.0 < 5.0 and 3.0 < latitude < 8.0:
        return (1.3, 1.0, 0.6)
    return paint
