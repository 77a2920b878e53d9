#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes a monochrome cursor of 32 x 32 pixels, with its hot spot at (1, 1), from a drawing.

usage: make_cursor.py NAME.txt NAME.cur

A drawing has a line a row and a character a pixel: `#` black, `o` white, `.` clear.
"""

import struct
import sys
from pathlib import Path

SIZE = 32
HOT_SPOT = (1, 1)


def read_drawing(path):
    rows = path.read_text().splitlines()
    if len(rows) != SIZE or any(len(row) != SIZE or set(row) - set("#o.") for row in rows):
        sys.exit(f"{path}: {SIZE} rows of {SIZE} of the characters # o . are wanted")
    return rows


def plane(rows, character):
    """A bit a pixel, set where the drawing has the character; the bottom row first."""
    bits = ("".join("1" if pixel == character else "0" for pixel in row) for row in reversed(rows))
    return b"".join(int(row, 2).to_bytes(SIZE // 8, "big") for row in bits)


def cursor(rows):
    # The two planes stand one above the other, so the header tells twice the height.
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, 2 * SIZE, 1, 1, 0, 0, 0, 0, 2, 0)
    colours = struct.pack("<II", 0x000000, 0xFFFFFF)
    image = header + colours + plane(rows, "o") + plane(rows, ".")
    directory = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 2, 0, *HOT_SPOT, len(image), 6 + 16)
    return directory + entry + image


Path(sys.argv[2]).write_bytes(cursor(read_drawing(Path(sys.argv[1]))))
