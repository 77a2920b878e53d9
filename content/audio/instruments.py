# SPDX-License-Identifier: MIT
"""Instruments built from sines, each a function from a frequency and a length to a sound."""
import functools
import math

from sound_kit import RATE, fade

NAMES = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


def frequency(note):
    """Of a note such as A4, Bb3 or F#5, in Hz; A4 is 440."""
    step = NAMES[note[0]] + note.count("#") - note[1:].count("b") + 12 * (int(note[-1]) + 1)
    return 440 * 2 ** ((step - 69) / 12)


def partial(hertz, strength, half_life, count):
    """A sine that loses half its height in half_life seconds; a turning pointer, no sine calls."""
    turn = 2 * math.pi * hertz / RATE
    decay = 0.5 ** (1 / (half_life * RATE))
    c, s = decay * math.cos(turn), decay * math.sin(turn)
    x, y, out = strength, 0.0, []
    for _ in range(count):
        out.append(y)
        x, y = c * x - s * y, s * x + c * y
    return out


def together(parts):
    return [sum(values) for values in zip(*parts)]


@functools.lru_cache(maxsize=None)
def music_box(hertz, seconds):
    """A plucked tongue of steel: a bright start, a long soft tail."""
    count = int(seconds * RATE)
    tone = together([
        partial(hertz, 1.0, 0.34, count),
        partial(2.001 * hertz, 0.28, 0.20, count),
        partial(4.02 * hertz, 0.10, 0.05, count),
        partial(6.7 * hertz, 0.05, 0.02, count),
    ])
    return fade(tone, 0.003, 0.15)


@functools.lru_cache(maxsize=None)
def bass(hertz, seconds):
    count = int(seconds * RATE)
    tone = together([
        partial(hertz, 1.0, 0.6, count),
        partial(2 * hertz, 0.35, 0.3, count),
        partial(3 * hertz, 0.10, 0.15, count),
    ])
    return fade(tone, 0.02, 0.3)


@functools.lru_cache(maxsize=None)
def pad(hertz, seconds):
    """Two slightly different sines that beat slowly, swelling and dying away."""
    count = int(seconds * RATE)
    tone = together([
        partial(0.9985 * hertz, 0.5, 30, count),
        partial(1.0015 * hertz, 0.5, 30, count),
        partial(2 * hertz, 0.12, 30, count),
    ])
    return fade(tone, 0.45 * seconds, 0.5 * seconds)


def noise(count):
    """The same at every call: a shift register's bits as numbers."""
    state, out = 0x2545F491, []
    for _ in range(count):
        state ^= (state << 13) & 0xFFFFFFFF
        state ^= state >> 17
        state ^= (state << 5) & 0xFFFFFFFF
        out.append(state / 0x7FFFFFFF - 1)
    return out
