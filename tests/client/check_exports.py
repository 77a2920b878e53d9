#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares what a library exports with the members of Kez, and the names with what compilers say.

usage: check_exports.py LIBRARY OBJECT...

The objects call every member; what they leave undefined is how their compilers name the members.
The library must export exactly these names, and they must be exactly the members in members.txt.
"""

import re
import subprocess
import sys
from pathlib import Path


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def exported(library):
    if library.suffix != ".dll":
        lines = output("nm", "--dynamic", "--defined-only", library).splitlines()
        return {line.split()[-1] for line in lines}
    table = output("i686-w64-mingw32-objdump", "-p", library).partition("[Ordinal/Name Pointer]")[2]
    return set(re.findall(r"^\s*\[\s*\d+\] (?:\+base\[\s*\d+\]\s+\S+ )?(\S+)$", table, re.M))


def named(path):
    """The members as this object's compiler names them."""
    nm = "nm" if path.suffix == ".o" else "i686-w64-mingw32-nm"
    names = (line.split()[-1] for line in output(nm, "--undefined-only", path).splitlines())
    names = (re.sub(r"^(__imp_)_?(?=[?_])", "", name) for name in names)
    return {name for name in names if re.match(r"_ZN3Kez|[?]\w+@Kez@@", name)}


def member(name):
    """initialize for _ZN3Kez10initializeE... and for ?initialize@Kez@@..."""
    length = re.match(r"_ZN3Kez(\d+)", name)
    if length:
        return name[length.end() : length.end() + int(length[1])]
    return re.match(r"[?](\w+)@Kez@@", name)[1]


def main():
    library, *objects = map(Path, sys.argv[1:])
    wanted = Path(__file__).with_name("members.txt").read_text().split()
    found = exported(library)
    faults, told = [], set()
    for path in objects:
        names = named(path)
        told |= names
        if sorted(map(member, names)) != wanted:
            faults.append(f"{path} names {sorted(map(member, names))}")
    faults += [f"{name} is not exported" for name in sorted(told - found)]
    faults += [f"{name} is exported and should not be" for name in sorted(found - told)]
    print("\n".join(faults) or f"{library.name}: {len(found)} names, as they should be")
    return 1 if faults else 0


sys.exit(main())
