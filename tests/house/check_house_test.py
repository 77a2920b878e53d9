# SPDX-License-Identifier: MIT
"""Puts one offence of each kind into a small tree and sees that the check finds it."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path("scripts/check-house").resolve()
HEAD = "// SPDX-License-Identifier: MIT\n"

OFFENCES = {
    "an include upward": ("src/core/a.cpp", HEAD + '#include "display/view.h"\n', "may not include"),
    "an include sideways": ("src/media/a.cpp", HEAD + '#include "input/events.h"\n', "may not include"),
    "a driver that leans on the engine":
        ("driver/a.cpp", HEAD + '#include "core/list.h"\n', "only platform/"),
    "the module on its tests": ("src/host/a.cpp", HEAD + '#include "tests/a.h"\n', "may not include"),
    "no licence line": ("src/core/a.cpp", "int a;\n", "SPDX"),
    "a header without guard": ("src/core/a.h", HEAD + "int a();\n", "#pragma once"),
    "a system difference": ("src/media/a.cpp", HEAD + "#ifdef _WIN32\n#endif\n", "src/platform"),
    "white space": ("src/core/a.cpp", HEAD + "int a; \n", "white space"),
    "line ends": ("src/core/a.cpp", HEAD + "int a;\r\n", "line feeds"),
    "a plan": ("src/core/a.cpp", HEAD + "// TO" "DO later\n", "issue"),
    "a long file": ("src/core/a.cpp", HEAD + "int a;\n" * 501, "lines"),
    "a script without licence": ("scripts/a.sh", "#!/bin/sh\n", "SPDX"),
}


def check(name, text):
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder, name)
        path.parent.mkdir(parents=True)
        path.write_bytes(text.encode())
        result = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True,
                                check=False)
        return result.returncode, result.stdout


class CheckHouse(unittest.TestCase):
    def test_finds_each_offence(self):
        for title, (name, text, message) in OFFENCES.items():
            with self.subTest(title):
                status, output = check(name, text)
                self.assertEqual(status, 1)
                self.assertIn(message, output)

    def test_accepts_what_is_in_order(self):
        status, output = check("src/display/a.cpp", HEAD + '#include "core/list.h"\n')
        self.assertEqual((status, output.strip()), (0, "the house is in order"))

    def test_leaves_alone_what_was_made(self):
        status, output = check("build/release/a.cpp", "int a;\n")
        self.assertEqual((status, output), (0, "the house is in order\n"))


if __name__ == "__main__":
    unittest.main()
