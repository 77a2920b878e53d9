#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes one of the sounds of the screens.

    sounds.py tap|shutter|bad|trash OUT.wav
"""
import math
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "audio"))
from instruments import frequency, noise, partial, together
from sound_kit import RATE, biquad, fade, level, trim, write_wave


def placed(parts, seconds):
    """Sounds that begin at given seconds, on a strip of silence."""
    strip = [0.0] * int(seconds * RATE)
    for start, sound in parts:
        for i, value in enumerate(sound, int(start * RATE)):
            if i < len(strip):
                strip[i] += value
    return strip


def band(sound, hertz, q):
    """Keeps what lies about a frequency."""
    turn = 2 * math.pi * hertz / RATE
    alpha = math.sin(turn) / (2 * q)
    a0 = 1 + alpha
    return biquad(sound, (alpha / a0, 0, -alpha / a0), (-2 * math.cos(turn) / a0,
                                                        (1 - alpha) / a0))


def puff(hertz, q, seconds, half_life):
    """A short breath of noise."""
    count = int(seconds * RATE)
    dying = 0.5 ** (1 / (half_life * RATE))
    return [value * dying ** i for i, value in enumerate(band(noise(count), hertz, q))]


def knock(hertz, seconds, half_life):
    count = int(seconds * RATE)
    return together([partial(hertz, 1.0, half_life, count),
                     partial(2.76 * hertz, 0.3, half_life / 3, count)])


def tap():
    """A fingertip on a wooden toy."""
    return placed([(0, knock(620, 0.12, 0.012)), (0, puff(2500, 1, 0.02, 0.003))], 0.14)


def shutter():
    """Two clicks of a small camera, and a bell: the picture is there."""
    click = [0.9 * value for value in puff(3200, 0.8, 0.03, 0.005)]
    clack = puff(1900, 0.8, 0.05, 0.009)
    bell = [0.35 * value for value in knock(frequency("E6"), 0.5, 0.08)]
    return placed([(0, click), (0.075, clack), (0.16, bell)], 0.6)


def bad():
    """Two soft notes down: not now. Never a scolding buzz."""
    notes = [(0, "E4"), (0.17, "C4")]
    tone = lambda note: together([partial(frequency(note), 1.0, 0.09, int(0.4 * RATE)),
                                  partial(3 * frequency(note), 0.18, 0.03, int(0.4 * RATE))])
    return placed([(start, fade(tone(note), 0.006, 0.05)) for start, note in notes], 0.55)


def trash():
    """Paper is crumpled, flies and falls into the bin."""
    crumple = [(0.035 * i + 0.011 * (i * i % 3),
                [0.5 * value for value in puff(2600 + 450 * (i * 5 % 4), 1.2, 0.05, 0.008)])
               for i in range(8)]
    return placed([*crumple, (0.46, knock(190, 0.3, 0.035)),
                   (0.46, puff(900, 0.8, 0.1, 0.02))], 0.72)


SOUNDS = {"tap": (tap, -24), "shutter": (shutter, -20), "bad": (bad, -22), "trash": (trash, -22)}


def main():
    make, target = SOUNDS[sys.argv[1]]
    write_wave(sys.argv[2], level(trim(make(), before=0.002, after=0.03), target))


if __name__ == "__main__":
    main()
