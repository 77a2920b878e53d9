#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Splits a language's lines into one text file a clip and a file of captions.

    split_lines.py en.txt FOLDER CAPTIONS

Files that would not change are left alone, so that only the clips of changed lines are spoken anew.
"""
import pathlib
import sys

IDS = [100, *range(1, 29)]  # In the order of the clips kez00 to kez28.


def read_lines(path):
    lines = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        head, tab, text = line.partition("\t")
        where = f"{path}:{number}"
        if not tab or not head.isdigit() or not text.strip():
            sys.exit(f"{where}: a line is a number, a tab and what is said")
        if int(head) not in IDS:
            sys.exit(f"{where}: there is no clip {head}; clips are 100 and 1 to 28")
        if int(head) in lines:
            sys.exit(f"{where}: clip {head} has a line already")
        lines[int(head)] = text.strip()
    missing = [str(each) for each in IDS if each not in lines]
    if missing:
        sys.exit(f"{path}: no line for clip {', '.join(missing)}")
    return lines


def write_if_changed(path, text):
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


def main():
    lines_file, folder, captions = (pathlib.Path(each) for each in sys.argv[1:4])
    lines = read_lines(lines_file)
    for place, clip in enumerate(IDS):
        write_if_changed(folder / f"kez{place:02}.txt", lines[clip] + "\n")
    write_if_changed(captions, "".join(f"{clip}\t{lines[clip]}\n" for clip in IDS))


if __name__ == "__main__":
    main()
