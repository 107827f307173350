#!/usr/bin/env python3
"""Draws the project's icon, a note before the lines of a list, as a file for Windows programs.

    scripts/make-icon.py FILE.ico
"""

import math
import struct
import sys
import zlib
from pathlib import Path

# The largest is a PNG inside the file, as Windows wants it; programs of old read the others.
SIZES = (16, 32, 48, 256)
PAPER = (250, 250, 245)
GROUND = (24, 84, 96)
NOTE = (250, 196, 72)


def rounded_box(x, y, left, top, right, bottom, radius):
    """How far a point lies outside of a box with round corners; less than 0 within."""
    dx = abs(x - (left + right) / 2) - (right - left) / 2 + radius
    dy = abs(y - (top + bottom) / 2) - (bottom - top) / 2 + radius
    return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius


def ellipse(x, y, middle_x, middle_y, width, height, turn):
    """The same of a turned ellipse, nearly."""
    dx, dy = x - middle_x, y - middle_y
    along = (dx * math.cos(turn) + dy * math.sin(turn)) / width
    across = (dy * math.cos(turn) - dx * math.sin(turn)) / height
    return (math.hypot(along, across) - 1) * min(width, height)


def ground(x, y):
    return rounded_box(x, y, 0.02, 0.02, 0.98, 0.98, 0.2)


def lines(x, y):
    return min(rounded_box(x, y, 0.14, top, right, top + 0.09, 0.045)
               for top, right in ((0.2, 0.56), (0.41, 0.56), (0.62, 0.44)))


def note(x, y):
    head = ellipse(x, y, 0.6, 0.74, 0.14, 0.105, -0.35)
    stem = rounded_box(x, y, 0.67, 0.2, 0.735, 0.72, 0.02)
    # The flag hangs from the stem, and becomes narrow.
    flag = max(rounded_box(x, y, 0.7, 0.2, 0.86, 0.52, 0.02),
               abs(y - 0.27 - 0.9 * (x - 0.7)) - 0.09 + 0.25 * (x - 0.7))
    return min(head, stem, flag)


# From the back to the front.
SHAPES = ((ground, GROUND), (lines, PAPER), (note, NOTE))


def pixel(column, row, size):
    """Red, green, blue and cover, each 0 to 255: a point counts as far as the shape covers it."""
    x, y = (column + 0.5) / size, (row + 0.5) / size
    color, cover = (0.0, 0.0, 0.0), 0.0
    for shape, paint in SHAPES:
        part = min(max(0.5 - shape(x, y) * size, 0.0), 1.0)
        whole = part + cover * (1 - part)
        if part > 0:
            color = tuple((new * part + old * cover * (1 - part)) / whole
                          for new, old in zip(paint, color))
        cover = whole
    return tuple(round(value) for value in (*color, cover * 255))


def rows_of(size):
    return [[pixel(column, row, size) for column in range(size)] for row in range(size)]


def bitmap(rows):
    """Bottom up, and behind it a mask of which nothing is used."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    points = b"".join(bytes((blue, green, red, cover))
                      for row in reversed(rows) for red, green, blue, cover in row)
    return header + points + bytes((size + 31) // 32 * 4 * size)


def chunk(name, content):
    return (struct.pack(">I", len(content)) + name + content +
            struct.pack(">I", zlib.crc32(name + content)))


def png(rows):
    size = len(rows)
    lines_ = b"".join(b"\0" + b"".join(bytes(point) for point in row) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" +
            chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(lines_, 9)) + chunk(b"IEND", b""))


def icon():
    images = [(png if size == 256 else bitmap)(rows_of(size)) for size in SIZES]
    place = 6 + 16 * len(SIZES)
    entries = b""
    for size, image in zip(SIZES, images):
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), place)
        place += len(image)
    return struct.pack("<HHH", 0, 1, len(SIZES)) + entries + b"".join(images)


if __name__ == "__main__":
    Path(sys.argv[1]).write_bytes(icon())
