#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plays one visit with the Windows player on a screen, and with the native one, and compares.

usage: compare_systems.py --windows FILE --native FILE --content DIR --runner COMMAND --work DIR
                          NAME.visit

The Windows player fills the screen, and shows a window, at each depth; its shots are what the
primary surface holds. The native player plays without a display, at the same depths. Where no text
is drawn the two must agree pixel for pixel. NAME.text has a line for each place with text: SHOT
LEFT TOP WIDTH HEIGHT. The systems' fonts differ, so there only the mean colour must agree.

Where the screen does not offer a depth the player must say so, and play off the screen.
"""

import argparse
import shutil
import subprocess
import sys
from pathlib import Path

import png_picture

TIME_LIMIT_SECONDS = 300
DEPTHS = (16, 24, 32)
PLACES = {"window": [], "screen": ["--fullscreen"]}
REFUSED = "offers no 640 x 480 at {} bits, so the picture stays off the screen"
REFUSED_DEPTHS = (24,) # by the screen that the tests have
# A desktop of the size that children had: the display modes below it can be set.
ON_A_SCREEN = ["explorer.exe", "/desktop=kez,640x480"]
FONTS_DIFFER_BY = 12 # of 255, of the mean of a place


def play(options, command, work, *words):
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    shutil.copytree(options.visit.parent / "photographs", work / "photographs")
    done = subprocess.run(
        [*command, *words, "--visit", options.visit, "--data", work / "data", "--content",
         options.content, "--camera", f"folder:{work}/photographs", "--log", work / "log.txt"],
        cwd=work, capture_output=True, text=True, errors="replace", timeout=TIME_LIMIT_SECONDS,
        check=False)
    return done.stdout + done.stderr


def mean(picture, area):
    data = picture.part(area)
    return [sum(data[channel::3]) / (len(data) // 3) for channel in range(3)]


def without(picture, areas):
    rows = [bytearray(row) for row in picture.rows]
    for left, top, width, height in areas:
        for row in rows[top : top + height]:
            row[3 * left : 3 * (left + width)] = bytes(3 * width)
    return rows


def first_difference(one, other):
    for y, (row, same) in enumerate(zip(one, other, strict=True)):
        if row != same:
            x = next(i for i, (a, b) in enumerate(zip(row, same, strict=True)) if a != b) // 3
            return x, y
    return None


def compare(name, wanted, found, areas):
    at = first_difference(without(wanted, areas), without(found, areas))
    if at is not None:
        yield f"{name} differs from the native one at {at}"
    for area in areas:
        pairs = zip(mean(wanted, area), mean(found, area), strict=True)
        if any(abs(a - b) > FONTS_DIFFER_BY for a, b in pairs):
            yield f"{name}: the text at {area} has another colour or weight than the native one"


def compare_all(name, native, windows, texts):
    shots = sorted(file.name for file in native.glob("*.png"))
    if not shots:
        yield f"the native visit left no shots in {native}"
    for shot in shots:
        if not (windows / shot).is_file():
            yield f"{name} left no {shot}"
            continue
        yield from compare(f"{name}: {shot}", png_picture.read(native / shot),
                           png_picture.read(windows / shot), texts.get(shot, []))


def read_texts(file):
    texts = {}
    for line in file.read_text().splitlines():
        if line and not line.startswith("#"):
            shot, *area = line.split()
            texts.setdefault(shot, []).append(tuple(map(int, area)))
    return texts


def check_depth(options, depth, texts):
    bits = ["--depth", str(depth)]
    native = options.work / f"native-{depth}"
    said = play(options, [options.native], native, "--headless", *bits)
    if said:
        yield f"the native player said at {depth} bits: {said}"
    for place, words in PLACES.items():
        name = f"{place}-{depth}"
        windows = options.work / name
        said = play(options, [*options.runner, *ON_A_SCREEN, options.windows], windows, *bits,
                    *words)
        if (REFUSED.format(depth) in said) != (depth in REFUSED_DEPTHS):
            yield f"{name}: the player said: {said}"
        yield from compare_all(name, native, windows, texts)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    for option in ("windows", "native", "content", "work"):
        parser.add_argument("--" + option, type=lambda word: Path(word).resolve(), required=True)
    parser.add_argument("--runner", nargs="+", required=True)
    parser.add_argument("visit", type=lambda word: Path(word).resolve())
    options = parser.parse_args()
    texts = read_texts(options.visit.with_suffix(".text"))
    faults = [fault for depth in DEPTHS for fault in check_depth(options, depth, texts)]
    print("\n".join(faults) or "the systems agree")
    return 1 if faults else 0


sys.exit(main())
