# SPDX-License-Identifier: MIT
"""How far two pictures differ for eyes of each kind, in the distances of CIELAB.

About 2 is the least difference that can be seen at all, side by side. The three kinds of colour
blindness are simulated as complete, by linear maps of linear light (Machado, Oliveira and Fernandes,
2009); most people who have one see more than that.
"""

from functools import lru_cache

EYES = {
    "full colour": ((1, 0, 0), (0, 1, 0), (0, 0, 1)),
    "red-blind": ((0.152286, 1.052583, -0.204868), (0.114503, 0.786281, 0.099216),
                  (-0.003882, -0.048116, 1.051998)),
    "green-blind": ((0.367322, 0.860646, -0.227968), (0.280085, 0.672501, 0.047413),
                    (-0.011820, 0.042940, 0.968881)),
    "blue-blind": ((1.255528, -0.076749, -0.178779), (-0.078411, 0.930809, 0.147602),
                   (0.004733, 0.691367, 0.303900)),
}
TO_XYZ = ((0.4124, 0.3576, 0.1805), (0.2126, 0.7152, 0.0722), (0.0193, 0.1192, 0.9505))
WHITE = (0.9505, 1.0, 1.089)


def transformed(matrix, values):
    return [sum(a * b for a, b in zip(row, values)) for row in matrix]


def linear(byte):
    value = byte / 255
    return value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4


def bent(value):
    return value ** (1 / 3) if value > 0.008856 else 7.787 * value + 16 / 116


@lru_cache(maxsize=None)
def perceived(eyes, colour):
    """Lightness and the two colour axes of a colour (red, green, blue bytes)."""
    light = transformed(EYES[eyes], [linear(byte) for byte in colour])
    xyz = transformed(TO_XYZ, [min(max(value, 0), 1) for value in light])
    x, y, z = (bent(value / white) for value, white in zip(xyz, WHITE))
    return 116 * y - 16, 500 * (x - y), 200 * (y - z)


@lru_cache(maxsize=None)
def distance(eyes, one, other):
    pairs = zip(perceived(eyes, one), perceived(eyes, other))
    return sum((a - b) ** 2 for a, b in pairs) ** 0.5


def distances(one, other, area):
    """The mean distance in an area (left, top, width, height) of two pictures, by kind of eyes."""
    left, top, width, height = area
    # Every other pixel each way tells as much.
    places = [(x, y) for y in range(top, top + height, 2) for x in range(left, left + width, 2)]
    pairs = [(one.pixel(x, y), other.pixel(x, y)) for x, y in places]
    return {eyes: sum(distance(eyes, *pair) for pair in pairs) / len(pairs) for eyes in EYES}
