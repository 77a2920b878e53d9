# SPDX-License-Identifier: MIT
"""Reads the PNG files that the player writes: 8 bits a channel, red, green, blue, not interlaced."""

import struct
import zlib
from pathlib import Path


class Picture:
    """Rows of red, green, blue bytes, top row first."""

    def __init__(self, width, height, rows):
        self.width = width
        self.height = height
        self.rows = rows

    def pixel(self, x, y):
        return tuple(self.rows[y][3 * x : 3 * x + 3])

    def part(self, area):
        """The bytes of an area (left, top, width, height); of the whole picture for None."""
        left, top, width, height = area or (0, 0, self.width, self.height)
        return b"".join(bytes(row[3 * left : 3 * (left + width)])
                        for row in self.rows[top : top + height])

    def bottom_up_bgr(self):
        """The pixels as the photo store keeps them."""
        out = bytearray(3 * self.width * self.height)
        data = b"".join(bytes(row) for row in reversed(self.rows))
        out[0::3], out[1::3], out[2::3] = data[2::3], data[1::3], data[0::3]
        return bytes(out)


def chunks(data, name):
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError(f"{name} is no PNG file")
    at = 8
    while at < len(data):
        size, kind = struct.unpack(">I4s", data[at : at + 8])
        yield kind, data[at + 8 : at + 8 + size]
        at += size + 12


def paeth(left, above, corner):
    guess = left + above - corner
    distances = abs(guess - left), abs(guess - above), abs(guess - corner)
    return (left, above, corner)[distances.index(min(distances))]


def unfilter(kind, row, above):
    """Undoes one row's filter in place; three bytes a pixel."""
    for i in range(len(row)):
        left = row[i - 3] if i >= 3 else 0
        corner = above[i - 3] if i >= 3 else 0
        if kind == 1:
            row[i] = (row[i] + left) & 255
        elif kind == 2:
            row[i] = (row[i] + above[i]) & 255
        elif kind == 3:
            row[i] = (row[i] + (left + above[i]) // 2) & 255
        elif kind == 4:
            row[i] = (row[i] + paeth(left, above[i], corner)) & 255


def read(path):
    data = Path(path).read_bytes()
    header, packed = None, b""
    for kind, content in chunks(data, path):
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", content)
        elif kind == b"IDAT":
            packed += content
    width, height, *form = header
    if form != [8, 2, 0, 0, 0]:
        raise ValueError(f"{path} is not of the kind that the player writes")
    plain = zlib.decompress(packed)
    rows, above = [], bytearray(3 * width)
    for y in range(height):
        start = y * (3 * width + 1)
        row = bytearray(plain[start + 1 : start + 1 + 3 * width])
        unfilter(plain[start], row, above)
        rows.append(row)
        above = row
    return Picture(width, height, rows)
