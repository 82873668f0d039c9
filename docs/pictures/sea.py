#!/usr/bin/env python3
"""sea.py FILE: a picture for a cover, the sun above the sea, as a bitmap of 1000 x 1000 points."""
import struct
import sys

SIZE, HORIZON, SUN, RADIUS = 1000, 640, (500, 470), 150


def between(one, other, share):
    return [a + (b - a) * max(0.0, min(1.0, share)) for a, b in zip(one, other)]


def colour(x, y):
    """Red, green and blue of a point, y from the top."""
    away = ((x - SUN[0]) ** 2 + (y - SUN[1]) ** 2) ** 0.5
    if y < HORIZON:
        sky = between((34, 40, 92), (255, 150, 80), y / HORIZON)
        return between((255, 236, 180), sky, (away - RADIUS) / 3)
    depth = (y - HORIZON) / (SIZE - HORIZON)
    sea = between((176, 92, 92), (16, 22, 58), depth * 1.6)
    # The sun's way over the water: stripes that become longer and lie further apart.
    wave = (depth ** 0.6 * 14) % 1
    wide = RADIUS * (0.35 + 0.9 * depth)
    return between((255, 196, 120), sea, 0.35 + abs(x - SUN[0]) / wide - 0.6 * (wave < 0.45))


def main():
    rows = bytearray()
    for y in range(SIZE - 1, -1, -1):
        for x in range(SIZE):
            red, green, blue = colour(x, y)
            rows += bytes((int(blue), int(green), int(red)))
    with open(sys.argv[1], "wb") as file:
        file.write(struct.pack("<2sIHHI", b"BM", 54 + len(rows), 0, 0, 54))
        file.write(struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE, 1, 24, 0, len(rows), 11811, 11811, 0, 0))
        file.write(rows)


main()
