#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Does what docs/content.md tells an artist to do, and looks at the screen that comes of it.

usage: content_document_test.py SOURCES BIN VISITS
"""

import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCES, BIN, VISITS = (Path(word).resolve() for word in sys.argv[1:4])
sys.path.insert(0, str(VISITS))
import png_picture  # noqa: E402


def example():
    """The indented lines of the worked example, a block a list."""
    page = (SOURCES / "docs/content.md").read_text(encoding="utf-8")
    section = page.split("## A worked example\n")[1].split("\n## ")[0]
    return [line.strip() for line in section.splitlines() if line.startswith("    ")]


class WorkedExample(unittest.TestCase):
    def setUp(self):
        self.place = Path(tempfile.mkdtemp(prefix="kez-"))
        self.addCleanup(shutil.rmtree, self.place)
        shutil.copytree(SOURCES / "docs/example-content", self.place / "docs/example-content")
        (self.place / "build/release").mkdir(parents=True)
        (self.place / "build/release/bin").symlink_to(BIN)

    def run_line(self, line):
        program, *words = shlex.split(line)
        return subprocess.run([BIN / program, *words], cwd=self.place, capture_output=True,
                              text=True, timeout=120, check=False)

    def test_gives_what_the_page_says(self):
        said = ""
        for line in example():
            if line.startswith("kez-player") and "--headless" not in line:
                continue  # opens a window
            if not line.startswith(("kez ", "kez-player ")):
                self.assertIn(line, said)
                continue
            done = self.run_line(line)
            self.assertEqual(done.returncode, 0, line + "\n" + done.stderr)
            said += done.stdout
        # Our guide's face is not laid over the artist's card.
        names = self.run_line("kez list mine/data/kez.wad").stdout
        self.assertIn("camBackBlink", names)
        self.assertNotIn("savePopBlink", names)
        picture = png_picture.read(self.place / "question.png")
        for (x, y), colour in {(320, 90): (0xFB, 0xE6, 0xB4), (250, 279): (0x8C, 0xC1, 0x52),
                               (390, 222): (0xFB, 0xE6, 0xB4)}.items():
            found = picture.pixel(x, y)
            self.assertLessEqual(max(abs(a - b) for a, b in zip(found, colour)), 12, (x, y, found))

    def test_keeps_our_guide_off_an_own_desk(self):
        data = self.place / "docs/example-content/data"
        data.mkdir()
        shutil.copy(BIN / "data/desk_glad.png", data)
        made = self.run_line("kez content docs/example-content mine --over build/release/bin")
        self.assertEqual(made.returncode, 0, made.stderr)
        found = {file.name for file in (self.place / "mine/data").glob("*_blink.png")}
        self.assertEqual(found, {"desk_waiting_blink.png"})

    def test_refuses_leaving_what_was_there(self):
        own = self.place / "docs/example-content"
        make = "kez content docs/example-content mine --over build/release/bin"
        self.assertEqual(self.run_line(make).returncode, 0)
        archive = (self.place / "mine/data/kez.wad").read_bytes()
        with (own / "manifest.txt").open("a") as manifest:
            manifest.write("sprite cursor colour=3\n")
        done = self.run_line(make)
        self.assertEqual(done.returncode, 1)
        self.assertIn('manifest.txt:6: unknown key "colour"', done.stderr)
        self.assertEqual((self.place / "mine/data/kez.wad").read_bytes(), archive)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
