"""Pictures of any brightness, as Radiance HDR files."""

import math


def write(path, width, height, pixel):
    """pixel(x, y) gives three values from 0 on; row 0 is the highest. At least 8 pixels wide."""
    with open(path, "wb") as file:
        file.write(b"#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n\n-Y %d +X %d\n" % (height, width))
        for y in range(height):
            row = [shared_exponent(pixel(x, y)) for x in range(width)]
            file.write(bytes([2, 2, width >> 8, width & 255]))
            for channel in range(4):
                file.write(packed(bytes(texel[channel] for texel in row)))


def shared_exponent(color):
    largest = max(color)
    if largest < 1e-32:
        return (0, 0, 0, 0)
    mantissa, exponent = math.frexp(largest)
    scale = mantissa * 256.0 / largest
    return tuple(min(255, int(value * scale)) for value in color) + (exponent + 128,)


def packed(values):
    """Four equal bytes and more as their number, others as they are."""
    result, plain, i = bytearray(), bytearray(), 0
    while i < len(values):
        count = 1
        while i + count < len(values) and values[i + count] == values[i] and count < 127:
            count += 1
        if count >= 4:
            result += flushed(plain) + bytes([128 + count, values[i]])
        else:
            plain += values[i:i + count]
        i += count
    return bytes(result + flushed(plain))


def flushed(plain):
    result = bytearray()
    for i in range(0, len(plain), 128):
        piece = plain[i:i + 128]
        result += bytes([len(piece)]) + piece
    plain.clear()
    return result
