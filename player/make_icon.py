#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Joins PNG pictures of one icon into an icon file for Windows.

usage: make_icon.py OUT.ico PICTURE.png ...
"""

import struct
import sys
from pathlib import Path


def size_of(png):
    """Width and height, from the header that every PNG file starts with."""
    if png[:8] != b"\x89PNG\r\n\x1a\n":
        sys.exit("make_icon.py: one of the pictures is no PNG file")
    return struct.unpack(">II", png[16:24])


def main():
    out, *pictures = map(Path, sys.argv[1:])
    pngs = [picture.read_bytes() for picture in pictures]
    offset = 6 + 16 * len(pngs)
    directory = struct.pack("<HHH", 0, 1, len(pngs))
    for png in pngs:
        width, height = size_of(png)
        # A side of 256 pixels is written as 0.
        directory += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(png), offset)
        offset += len(png)
    out.write_bytes(directory + b"".join(pngs))


if __name__ == "__main__":
    main()
