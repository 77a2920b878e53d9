#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plays a scripted visit with the player and checks what it left behind.

usage: run_visit.py --player FILE --tool FILE --work DIR NAME.visit

Beside NAME.visit lies NAME.expect, a line for each thing that must hold afterwards. Words that
hold spaces stand in quotes; `#` starts a comment. Paths are below the data directory, pictures
(.png) are the visit's own shots.

    depths N...               play it at each of these depths (16 24 32), each in a fresh place
    options WORD...           more options for the player; {here} is the directory of the visits,
                              {work} the place of this play
    prepare WHAT [WORD...]    see PREPARATIONS
    exit N                    the player's exit status (0)
    guide CLIP...             all that the guide said, in this order (0: it was silenced)
    says TEXT                 standard error holds the text
    file PATH [BYTES]         the file exists (and has this size)
    no PATH                   no such file
    files DIRECTORY N         the directory holds N files
    equal PATH PATH           two files with the same bytes
    whole DIRECTORY           every picture in it can be read
    picture PATH W H          a picture of this size that the module reads
    colour PATH X Y R G B     a pixel of such a picture, top row first, within 24 a channel
    handed-back PATH          the handed-back picture is the one in this file; `none`: there is none
    pixel SHOT X Y R G B      a pixel of a shot, within 8 a channel
    same SHOT SHOT [X Y W H]  the shots show the same there
    differ SHOT SHOT [X Y W H]
    distinct SHOT SHOT X Y W H  they differ there at a glance, for colour-blind eyes too: on the mean
                              by DISTINCT

Shots taken at several depths must agree with each other as far as the depths can.
"""

import argparse
import os
import shlex
import shutil
import stat
import struct
import subprocess
import sys
from pathlib import Path

import colour_sight
import png_picture

TIME_LIMIT_SECONDS = 300
DISTINCT = 20 # in CIELAB, ten times what can just be seen
# For a player that root starts: with root's other rights, but nothing is open to it that is closed.
OWN_RIGHTS_ONLY = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search,-fowner"]


class Failure(Exception):
    pass


class Play:
    """One run of the player in a place of its own, and the checks on what it left."""

    def __init__(self, tools, work, visit, depth):
        self.tools = tools
        self.work = work
        self.visit = visit
        self.depth = depth
        self.data = work / "data"
        self.content = tools.content or tools.player.parent
        self.options = []
        self.rights = []
        self.shots = {}

    def prepare(self, what, *arguments):
        PREPARATIONS[what](self, *arguments)

    def play(self):
        command = [*self.rights, *self.tools.runner, self.tools.player, "--headless",
                   "--visit", self.visit, "--data", self.data, "--content", self.content,
                   "--depth", str(self.depth), "--verbose",
                   "--handed-back", self.work / "handed-back.png", "--log", self.work / "log.txt",
                   *self.options]
        done = subprocess.run(command, cwd=self.work, capture_output=True, text=True,
                              errors="replace", timeout=TIME_LIMIT_SECONDS, check=False,
                              env=without_display())
        self.status, self.errors = done.returncode, done.stderr
        (self.work / "stderr.txt").write_text(self.errors)

    def shot(self, name):
        if name not in self.shots:
            if not (self.work / name).is_file():
                raise Failure(f"there is no shot {name}")
            self.shots[name] = png_picture.read(self.work / name)
        return self.shots[name]

    def stored(self, path):
        """Width, height and bottom-up blue-green-red pixels of a picture in the store."""
        done = subprocess.run([self.tools.tool, "picture", "decode", self.data / path],
                              capture_output=True, check=False)
        if done.returncode != 0:
            raise Failure(f"{path} cannot be read: {done.stderr.decode().strip()}")
        width, height = map(int, done.stderr.split())
        return width, height, done.stdout

    # The checks, by the word that asks for them.

    def check_exit(self, status):
        if self.status != int(status):
            raise Failure(f"ended with {self.status} instead of {status}")

    def check_guide(self, *clips):
        events = [line.split()[1:] for line in (self.work / "log.txt").read_text().splitlines()]
        said = [event[1] for event in events if event[0] == "guide"]
        if said != list(clips):
            raise Failure(f"the guide said {' '.join(said)} instead of {' '.join(clips)}")

    def check_says(self, text):
        if text not in self.errors:
            raise Failure(f"standard error does not hold \"{text}\"")

    def check_file(self, path, size=None):
        if not (self.data / path).is_file():
            raise Failure(f"{path} is missing")
        found = (self.data / path).stat().st_size
        if size is not None and found != int(size):
            raise Failure(f"{path} has {found} bytes instead of {size}")

    def check_no(self, path):
        if (self.data / path).exists():
            raise Failure(f"{path} should not be there")

    def check_files(self, directory, count):
        place = self.data / directory
        names = sorted(os.listdir(place)) if place.is_dir() else []
        if len(names) != int(count):
            raise Failure(f"{directory} holds {names} instead of {count} files")

    def check_equal(self, one, other):
        if (self.data / one).read_bytes() != (self.data / other).read_bytes():
            raise Failure(f"{one} and {other} differ")

    def check_whole(self, directory):
        for file in sorted((self.data / directory).iterdir()):
            self.stored(file.relative_to(self.data))

    def check_picture(self, path, width, height):
        found = self.stored(path)[:2]
        if found != (int(width), int(height)):
            raise Failure(f"{path} measures {found}")

    def check_colour(self, path, x, y, *colour):
        width, height, pixels = self.stored(path)
        at = 3 * ((height - 1 - int(y)) * width + int(x))
        compare_colour(path, tuple(reversed(pixels[at : at + 3])), colour, 24)

    def check_handed_back(self, path):
        file = self.work / "handed-back.png"
        if path == "none":
            if file.exists():
                raise Failure("a picture was handed back")
            return
        if not file.exists():
            raise Failure("no picture was handed back")
        picture = png_picture.read(file)
        if (picture.width, picture.height, picture.bottom_up_bgr()) != self.stored(path):
            raise Failure(f"the handed-back picture is not {path}")

    def check_pixel(self, shot, x, y, *colour):
        compare_colour(shot, self.shot(shot).pixel(int(x), int(y)), colour, 8)

    def check_same(self, one, other, *area):
        if not self.agree(one, other, area):
            raise Failure(f"{one} and {other} differ")

    def check_differ(self, one, other, *area):
        if self.agree(one, other, area):
            raise Failure(f"{one} and {other} are the same")

    def check_distinct(self, one, other, *area):
        found = colour_sight.distances(self.shot(one), self.shot(other), tuple(map(int, area)))
        eyes = min(found, key=found.get)
        if found[eyes] < DISTINCT:
            raise Failure(f"{one} and {other} differ by {found[eyes]:.1f} for {eyes} eyes")

    def agree(self, one, other, area):
        place = tuple(map(int, area)) or None
        return self.shot(one).part(place) == self.shot(other).part(place)


def compare_colour(name, found, wanted, tolerance):
    wanted = tuple(map(int, wanted))
    if any(abs(a - b) > tolerance for a, b in zip(found, wanted, strict=True)):
        raise Failure(f"{name} has the colour {found} instead of {wanted}")


def without_display():
    hidden = {"DISPLAY", "WAYLAND_DISPLAY"}
    return {name: value for name, value in os.environ.items() if name not in hidden}


# Preparations: what is done to the place before the player starts.

def own_content(play):
    """A copy of the content that may be damaged."""
    place, play.content = play.content, play.work / "content"
    shutil.copytree(place / "data", play.content / "data")
    return play.content / "data" / "kez.wad"


def content_missing(play):
    own_content(play).unlink()


def content_cut(play):
    """The archive ends in the middle."""
    archive = own_content(play)
    os.truncate(archive, archive.stat().st_size // 2)


def content_garbled(play):
    """Bytes all over the archive are wrong."""
    archive = own_content(play)
    data = bytearray(archive.read_bytes())
    for at in range(1000, len(data), 997):
        data[at] ^= 0x55
    archive.write_bytes(data)


def data_is_file(play):
    play.data.write_text("not a directory\n")


def data_read_only(play):
    """A store that may be read only."""
    (play.data / "photo").mkdir(parents=True)
    (play.data / "photo" / "Photo  1.cam").write_bytes(b"kept")
    forbid_writing(play, "photo", ".")


def exports_read_only(play):
    """Two pictures, the first of them exported earlier, and an export folder that may only be
    read."""
    album(play, 2)
    place = play.data / "export"
    place.mkdir()
    (place / "Photo  1.JPG").write_bytes(b"kept")
    forbid_writing(play, "export")


def forbid_writing(play, *directories):
    if os.geteuid() == 0 and not play.tools.runner: # a runner takes root's rights away
        play.rights = OWN_RIGHTS_ONLY
    for directory in directories:
        (play.data / directory).chmod(stat.S_IRUSR | stat.S_IXUSR | stat.S_IRGRP | stat.S_IXGRP
                                      | stat.S_IROTH | stat.S_IXOTH)


def album(play, count):
    """Numbered pictures, each of a colour of its own."""
    for number in range(1, int(count) + 1):
        put_picture(play, f"Photo{number:3d}", colour_of(number))


def album_of(play, *names):
    for number, name in enumerate(names, 1):
        put_picture(play, name, colour_of(number))


def album_full(play):
    """As many numbered pictures as there can be, and five thousand with names."""
    album(play, 999)
    for number in range(5000):
        put_picture(play, f"n{number:04d}", colour_of(number))


def album_damaged(play):
    """Six pictures: 2's thumbnail is cut short, 3's picture is none, 4 lacks the thumbnail, 5 the
    picture, and 6's thumbnail is empty."""
    album(play, 6)
    clips, photos = play.data / "clipboard", play.data / "photo"
    os.truncate(clips / "Photo  2.clip", 8099)
    (photos / "Photo  3.cam").write_bytes(b"no picture")
    (clips / "Photo  4.clip").unlink()
    (photos / "Photo  5.cam").unlink()
    os.truncate(clips / "Photo  6.clip", 0)


def album_masked(play):
    """One picture of 16 x 12 pixels whose upper half is masked."""
    album(play, 1)
    mask = play.data / "mask"
    mask.mkdir()
    (mask / "Photo  1.mask").write_bytes(bytes(12) + b"\xff" * 12)


def album_read_only(play):
    album(play, 2)
    forbid_writing(play, "photo", "clipboard", ".")


def put_picture(play, name, colour):
    """A stored picture of 16 x 12 pixels of one colour, and its thumbnail."""
    photos, clips = play.data / "photo", play.data / "clipboard"
    for directory in (photos, clips):
        directory.mkdir(parents=True, exist_ok=True)
    head = bytes((0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 16, 0, 12, 0, 24, 0))
    pixel = bytes(reversed(colour))
    (photos / f"{name}.cam").write_bytes(head + pixel * (16 * 12))
    (clips / f"{name}.clip").write_bytes(pixel * (60 * 45))


def colour_of(number):
    return number * 40 % 200 + 20, number * 9 % 200 + 20, number * 77 % 200 + 20


def odd_exports(play):
    """Six files to import, the last one sound, between things that are no files or no pictures."""
    place = play.data / "export"
    place.mkdir(parents=True)
    pixels = (bytes((50, 100, 200)) * 5 + b"\0") * 3
    head = b"BM" + struct.pack("<IIIIiiHHIIiiII", 54 + len(pixels), 0, 54, 40, 5, 3, 1, 24, 0, 0, 0,
                               0, 0, 0)
    (place / "a lie.jpg").write_bytes(head + pixels)
    (place / "b cut.BMP").write_bytes((head + pixels)[:-9])
    (place / "c empty.bmp").write_bytes(b"")
    huge = head[:18] + struct.pack("<ii", 2**31 - 1, -(2**31)) + head[26:]
    (place / "d huge.bmp").write_bytes(huge + pixels)
    (place / "e text.JPG").write_text("no picture")
    (place / "f sound.Bmp").write_bytes(head + pixels)
    (place / "g text.txt").write_text("no picture")
    (place / "h directory.jpg").mkdir()
    (place / "i nowhere.jpg").symlink_to("nothing")
    if play.tools.runner: # another system, which does not know pipes among its files
        (place / "j pipe.bmp").mkdir()
    else:
        os.mkfifo(place / "j pipe.bmp")


def image_numbers_used(play):
    """No number is left for a picture that is imported."""
    photos = play.data / "photo"
    photos.mkdir(parents=True, exist_ok=True)
    for number in range(1, 1000):
        (photos / f"Image{number:3d}.cam").write_bytes(b"kept")


def folder_of_photographs(play):
    shutil.copytree(play.visit.parent / "photographs", play.work / "photographs")


PREPARATIONS = {
    "album": album,
    "album-damaged": album_damaged,
    "album-full": album_full,
    "album-masked": album_masked,
    "album-of": album_of,
    "album-read-only": album_read_only,
    "content-missing": content_missing,
    "content-cut": content_cut,
    "content-garbled": content_garbled,
    "data-is-file": data_is_file,
    "data-read-only": data_read_only,
    "exports-read-only": exports_read_only,
    "image-numbers-used": image_numbers_used,
    "odd-exports": odd_exports,
    "photographs": folder_of_photographs,
}


def read_expectations(file):
    """Lists of words with their line numbers."""
    for number, line in enumerate(file.read_text().splitlines(), 1):
        words = shlex.split(line, comments=True)
        if words:
            yield number, words


def check_all(play, expectations, file):
    """Every expectation, so that one look shows all that is wrong."""
    faults = []
    for number, (word, *rest) in expectations:
        try:
            getattr(play, "check_" + word.replace("-", "_"))(*rest)
        except (Failure, OSError, ValueError, TypeError, AttributeError) as error:
            faults.append(f"{file}:{number}: at {play.depth} bits: {error}")
    return faults


def reduced(picture):
    """What of a picture's bytes 16 bits can hold."""
    bits = (0xF8, 0xFC, 0xF8)
    return [bytes(value & bits[i % 3] for i, value in enumerate(row)) for row in picture.rows]


def compare_depths(plays):
    """24 bits show what 32 show; 16 show the same, reduced."""
    best = plays.get(32)
    for depth, play in plays.items():
        for file in sorted(play.work.glob("*.png")):
            if depth == 32 or file.name == "handed-back.png":
                continue
            one, other = play.shot(file.name), best.shot(file.name)
            same = (reduced(one) == reduced(other) if depth == 16 else one.rows == other.rows)
            if not same:
                yield f"{play.visit}: {file.name} differs between {depth} and 32 bits"


def open_up(folder):
    """What a visit has closed, so that anybody can remove it who may."""
    for place, _, _ in os.walk(folder):
        os.chmod(place, stat.S_IRWXU)


def start(tools, work, visit, depth, settings):
    play = Play(tools, work / str(depth), visit, depth)
    open_up(play.work)
    shutil.rmtree(play.work, ignore_errors=True)
    play.work.mkdir(parents=True)
    for word, *rest in settings:
        if word == "prepare":
            play.prepare(*rest)
        elif word == "options":
            play.options += [text.format(here=visit.parent, work=play.work) for text in rest]
    try:
        play.play()
    finally:
        open_up(play.work)
    return play


def run(tools, visit, work):
    file = visit.with_suffix(".expect")
    lines = list(read_expectations(file))
    settings = [words for _, words in lines if words[0] in ("prepare", "options", "depths")]
    checks = [line for line in lines if line[1][0] not in ("prepare", "options", "depths")]
    if not any(words[0] == "exit" for _, words in checks):
        checks.insert(0, (0, ["exit", "0"]))
    depths = [int(depth) for words in settings if words[0] == "depths" for depth in words[1:]]
    faults, plays = [], {}
    for depth in depths or [32]:
        plays[depth] = start(tools, work, visit, depth, settings)
        found = check_all(plays[depth], checks, file)
        faults += found
        if found:
            faults.append("standard error was:\n" + plays[depth].errors)
    if 32 in plays and not faults:
        faults += compare_depths(plays)
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--player", type=Path, required=True)
    parser.add_argument("--tool", type=Path, required=True, help="the command-line tool")
    parser.add_argument("--content", type=lambda word: Path(word).resolve(),
                        help="holds data and audio; else beside the player")
    parser.add_argument("--runner", type=lambda word: [Path(word).resolve()], default=[],
                        help="the program that runs the player")
    parser.add_argument("--work", type=Path, required=True, help="is emptied first")
    parser.add_argument("visit", type=Path)
    tools = parser.parse_args()
    tools.player, tools.tool = tools.player.resolve(), tools.tool.resolve()
    visit = tools.visit.resolve()
    faults = run(tools, visit, tools.work.resolve() / visit.stem)
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()
