#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Sees that the objects compiled for one vector level define nothing that the linker may share.

A shared inline function in such an object could be the copy that every part of the program calls,
also on machines without that level. Takes the folder of the built layers.
"""

import subprocess
import sys
from pathlib import Path

objects = [path for path in Path(sys.argv[1]).rglob("*.o*")
           if any(f"_kernels_{level}.cpp.o" in path.name for level in ("sse2", "avx2", "avx512"))]
offences = []
for path in objects:
    listing = subprocess.run(["nm", "-C", path], capture_output=True, text=True, check=True)
    offences += [f"{path.name}: {line}" for line in listing.stdout.splitlines()
                 if line[16:19] in (" V ", " W ", " u ")]
print("\n".join(offences) or f"{len(objects)} objects keep to themselves")
sys.exit(1 if offences or not objects else 0)
