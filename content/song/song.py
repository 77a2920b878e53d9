#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plays the score on the instruments.

    song.py score.txt OUT.wav

The song is a ring: what still sounds at the end goes on at the beginning, so that it can be repeated
without a break. It is cut where the ring passes zero, which is also where the 4-bit code starts.
"""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "audio"))
import sound_kit
from instruments import bass, frequency, music_box, pad

LOUDNESS = -26  # LUFS: 8 below the voices.
BEATS = 4
CHORDS = {
    "F": ("F2", "F3", "A3", "C4"),
    "Dm": ("D2", "F3", "A3", "D4"),
    "Bb": ("Bb2", "F3", "Bb3", "D4"),
    "C": ("C2", "E3", "G3", "C4"),
    "Am": ("A2", "E3", "A3", "C4"),
    "Gm": ("G2", "G3", "Bb3", "D4"),
}


def read_score(path):
    """The beats a minute, and for each bar its chord and four lists of notes."""
    tempo, bars = 0, []
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if line.startswith("#") or not line.strip():
            continue
        if line.startswith("tempo"):
            tempo = int(line.split()[1])
            continue
        chord, *beats = (part.split() for part in line.split("|"))
        if len(chord) != 1 or chord[0] not in CHORDS or len(beats) != BEATS:
            sys.exit(f"{path}:{number}: a bar is a chord and {BEATS} beats, with | between them")
        bars.append((chord[0], beats))
    return tempo, bars


class Ring:
    def __init__(self, seconds):
        self.samples = [0.0] * round(seconds * sound_kit.RATE)

    def add(self, seconds, sound, strength):
        place, size = round(seconds * sound_kit.RATE), len(self.samples)
        done = 0
        while done < len(sound):
            start = (place + done) % size
            count = min(len(sound) - done, size - start)
            part = sound[done:done + count]
            here = self.samples[start:start + count]
            self.samples[start:start + count] = [a + strength * b for a, b in zip(here, part)]
            done += count


def play(tempo, bars):
    beat = 60 / tempo
    ring = Ring(len(bars) * BEATS * beat)
    for number, (chord, beats) in enumerate(bars):
        start = number * BEATS * beat
        root, *others = CHORDS[chord]
        ring.add(start, bass(frequency(root) * 2, 2.4 * beat), 0.42)
        ring.add(start + 2 * beat, bass(frequency(root) * 3, 2 * beat), 0.2)
        for note in others:
            ring.add(start - 0.8 * beat, pad(frequency(note), 5.6 * beat), 0.11)
        for place, note in enumerate([others[0], others[1], others[2], others[1]]):
            ring.add(start + (place + 0.5) * beat, music_box(2 * frequency(note), 1.6), 0.09)
        for place, notes in enumerate(beats):
            for i, note in enumerate(each for each in notes if each != "-"):
                at = start + (place + i / len(notes)) * beat
                ring.add(at, music_box(frequency(note), 2.6), 0.5)
                ring.add(at + 0.75 * beat, music_box(frequency(note), 2.6), 0.09)
    return ring.samples


def cut(ring):
    """Turns the ring so that it starts at a flat passage through zero, shortly before a bar."""
    reach = int(0.15 * sound_kit.RATE)
    worth = lambda i: abs(ring[i]) + abs(ring[i - 1]) + abs(ring[i + 1])
    start = min(range(-reach, -1), key=worth)
    return ring[start:] + ring[:start]


def main():
    tempo, bars = read_score(pathlib.Path(sys.argv[1]))
    ring = play(tempo, bars)
    gain = 10 ** ((LOUDNESS - sound_kit.loudness(ring)) / 20)
    sound_kit.write_wave(sys.argv[2], cut([gain * value for value in ring]))


if __name__ == "__main__":
    main()
