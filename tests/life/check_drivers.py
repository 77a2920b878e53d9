#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs a host beside camera drivers that cannot be used, and reads what it is told about them.

usage: check_drivers.py --host FILE --library FILE --content DIR --lacking FILE --work DIR
                        [--runner COMMAND]

The host must run all the same. What it hears names the driver's file and says what to do.
"""

import argparse
import os
import shutil
import subprocess
import sys
from pathlib import Path

TIME_LIMIT_SECONDS = 100

# Where a program's file says what it was made for, by the file's first bytes.
ELF_CLASS_AT = 4
PE_HEADER_AT = 0x3C


def missing(_driver, place):
    place.unlink(missing_ok=True)


def garbage(_driver, place):
    place.write_bytes(b"This is no library.\n" * 100)


def lacking(driver, place):
    shutil.copy(driver, place)


def of_other_bits(driver, place):
    """The same library, marked as one for programs of 32 bits instead of 64, or the other way."""
    data = bytearray(driver.read_bytes())
    if data.startswith(b"\x7fELF"):
        data[ELF_CLASS_AT] ^= 3
    else:
        at = int.from_bytes(data[PE_HEADER_AT : PE_HEADER_AT + 4], "little") + 4
        data[at : at + 2] = (0x8664).to_bytes(2, "little")
    place.write_bytes(data)


CASES = {
    missing: ["is not there", "Put it beside the program"],
    garbage: ["cannot be used by this program", "Put one that fits in its place"],
    of_other_bits: ["cannot be used by this program", "Put one that fits in its place"],
    lacking: ["has no function Mvi", "Put the driver that came with the camera"],
}


def check(make, wanted, options):
    place = options.work / make.__name__
    shutil.rmtree(place, ignore_errors=True)
    place.mkdir(parents=True)
    # Our own Win32 names look for the driver beside their library, too.
    for file in [options.host, *options.library.parent.glob("libkez*.so*")]:
        shutil.copy(file, place)
    name = "qxdcdll.dll" if options.host.suffix == ".exe" else "libqxdcdll.so"
    make(options.lacking, place / name)
    done = subprocess.run(
        [*options.runner, place / options.host.name, "camera", options.library, options.content,
         place / "data"],
        capture_output=True, text=True, errors="replace", timeout=TIME_LIMIT_SECONDS, check=False,
        env=os.environ | {"LD_LIBRARY_PATH": str(place), "ALSOFT_DRIVERS": "null"})
    faults = [f"{make.__name__}: ended with {done.returncode}"] if done.returncode != 0 else []
    told = [line for line in done.stderr.splitlines() if line.startswith("Camera driver:")]
    if len(told) != 1 or not all(text in told[0] for text in [name, "no camera", *wanted]):
        faults.append(f"{make.__name__}: told {told} instead of {name}, {wanted}\n{done.stderr}")
    print(*told, sep="\n")
    return faults


def main():
    parser = argparse.ArgumentParser()
    for option in ("host", "library", "content", "lacking", "work"):
        parser.add_argument("--" + option, type=Path, required=True)
    parser.add_argument("--runner", type=Path, nargs="*", default=[])
    options = parser.parse_args()
    faults = [fault for make, wanted in CASES.items() for fault in check(make, wanted, options)]
    print(*faults, sep="\n", file=sys.stderr)
    return 1 if faults else 0


sys.exit(main())
