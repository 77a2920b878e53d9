#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Joins a sheet with the shared parts it uses, so that a renderer needs only one file.

usage: assemble.py SHEET.svg OUT.svg PART.svg...

A sheet says <use href="#toycam"/> for a thing drawn once in parts/. Renderers do not follow such
references from file to file, so everything the parts hold is put into the sheet as definitions.
"""

import re
import sys
from pathlib import Path

ROOT = re.compile(r"<svg\b[^>]*>")


def fail(file, text):
    sys.exit(f"{file}: {text}")


def inner(file):
    """What stands between a file's <svg ...> and </svg>."""
    text = Path(file).read_text(encoding="utf-8")
    start, end = ROOT.search(text), text.rfind("</svg>")
    if start is None or end < 0:
        fail(file, "not an SVG picture; save it as plain SVG")
    return text[start.end():end]


def check(sheet, text):
    """Every id once, every reference answered; a renderer would silently leave the thing out."""
    ids = re.findall(r'\bid="([^"]+)"', text)
    twice = sorted({name for name in ids if ids.count(name) > 1})
    if twice:
        fail(sheet, f"drawn twice under one name: {', '.join(twice)}; rename one of them")
    asked = re.findall(r'href="#([^"]+)"', text) + re.findall(r"url\(#([^)]+)\)", text)
    missing = sorted(set(asked) - set(ids))
    if missing:
        fail(sheet, f"uses what no part draws: {', '.join(missing)}; check the spelling")


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__)
    sheet, out, *parts = arguments
    head = ROOT.search(Path(sheet).read_text(encoding="utf-8"))
    body = inner(sheet)
    text = f"{head.group()}\n<defs>{''.join(inner(part) for part in parts)}</defs>\n{body}</svg>\n"
    check(sheet, text)
    Path(out).write_text(text, encoding="utf-8")


main(sys.argv[1:])
