#!/usr/bin/env python3
"""Draws the lit lamp of the I/O line table: ledon.png and, for dense screens, ledon@2x.png.

Run it in this folder after a change of the drawing and commit the pictures. The dark lamp needs no
picture of its own: the style greys the lit one.
"""
import math
import struct
import zlib

SIZE = 16  # device-independent pixels
RADIUS = 6.75
RIM = 1.0
SAMPLES = 8  # per pixel and direction

RIM_COLOUR = (12, 104, 32)
LIGHT = (226, 255, 178)
BODY = (62, 226, 74)
SHADE = (16, 160, 44)


def mix(first, second, share):
    return tuple(a + (b - a) * share for a, b in zip(first, second))


def lamp_colour(x, y):
    """Colour and opacity of a point, in device-independent pixels off the centre."""
    distance = math.hypot(x, y)
    if distance > RADIUS:
        return None
    if distance > RADIUS - RIM:
        return RIM_COLOUR
    to_light = min(1.0, math.hypot(x + 1.8, y + 2.0) / RADIUS)
    if to_light < 0.5:
        return mix(LIGHT, BODY, to_light / 0.5)
    return mix(BODY, SHADE, (to_light - 0.5) / 0.5)


def pixel(column, row, scale):
    points = [
        lamp_colour((column + (i + 0.5) / SAMPLES) / scale - SIZE / 2,
                    (row + (j + 0.5) / SAMPLES) / scale - SIZE / 2)
        for i in range(SAMPLES) for j in range(SAMPLES)
    ]
    inside = [point for point in points if point]
    if not inside:
        return bytes(4)
    colour = (round(sum(channel) / len(inside)) for channel in zip(*inside))
    return bytes((*colour, round(255 * len(inside) / len(points))))


def chunk(kind, data):
    return (struct.pack(">I", len(data)) + kind + data +
            struct.pack(">I", zlib.crc32(kind + data)))


def write_png(path, scale):
    edge = SIZE * scale
    rows = b"".join(b"\0" + b"".join(pixel(x, y, scale) for x in range(edge))
                    for y in range(edge))
    header = struct.pack(">IIBBBBB", edge, edge, 8, 6, 0, 0, 0)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                   chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


if __name__ == "__main__":
    write_png("ledon.png", 1)
    write_png("ledon@2x.png", 2)
