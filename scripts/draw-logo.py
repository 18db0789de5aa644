#!/usr/bin/env python3
"""Draws the logo of the built-in letter template: a figure in motion on a teal disc.

Writes a PNG with an alpha channel, using nothing but the standard library:
    scripts/draw-logo.py src/resources/feedback-template/word/media/logo.png
"""
import math
import struct
import sys
import zlib

SIZE = 256
SAMPLES = 4
TEAL = (31, 122, 140)
WHITE = (255, 255, 255)


def distance_to_segment(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - (ax + t * dx), py - (ay + t * dy))


# the figure: limbs as thick strokes, in units of the image size
LIMBS = [
    ((0.50, 0.36), (0.46, 0.60)),  # trunk
    ((0.49, 0.42), (0.66, 0.50)),  # arm forward
    ((0.49, 0.42), (0.33, 0.36)),  # arm back
    ((0.46, 0.60), (0.60, 0.78)),  # leg forward
    ((0.46, 0.60), (0.36, 0.74)),  # thigh back
    ((0.36, 0.74), (0.27, 0.70)),  # shin back
]
HEAD = (0.53, 0.24, 0.075)
STROKE = 0.045


def colour_at(x, y):
    """Colour and coverage of one sample point (x, y in 0..1)."""
    if math.hypot(x - 0.5, y - 0.5) > 0.48:
        return None
    if math.hypot(x - HEAD[0], y - HEAD[1]) <= HEAD[2]:
        return WHITE
    for (ax, ay), (bx, by) in LIMBS:
        if distance_to_segment(x, y, ax, ay, bx, by) <= STROKE:
            return WHITE
    # a ground line under the figure
    if abs(y - 0.84) <= 0.012 and 0.22 <= x <= 0.78:
        return WHITE
    return TEAL


def pixel(ix, iy):
    red = green = blue = alpha = 0.0
    for sy in range(SAMPLES):
        for sx in range(SAMPLES):
            colour = colour_at((ix + (sx + 0.5) / SAMPLES) / SIZE, (iy + (sy + 0.5) / SAMPLES) / SIZE)
            if colour:
                red += colour[0]
                green += colour[1]
                blue += colour[2]
                alpha += 1
    if alpha == 0:
        return bytes((0, 0, 0, 0))
    return bytes((round(red / alpha), round(green / alpha), round(blue / alpha),
                  round(255 * alpha / SAMPLES ** 2)))


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)


def main(target):
    rows = b"".join(b"\x00" + b"".join(pixel(x, y) for x in range(SIZE)) for y in range(SIZE))
    png = (b"\x89PNG\r\n\x1a\n"
           + chunk(b"IHDR", struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0))
           + chunk(b"IDAT", zlib.compress(rows, 9))
           + chunk(b"IEND", b""))
    with open(target, "wb") as out:
        out.write(png)


if __name__ == "__main__":
    main(sys.argv[1])
