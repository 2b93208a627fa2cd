#!/usr/bin/env python3
"""Puts PNG pictures of one icon in several sizes into one file: build_ico.py ICON.ico PNG...

Windows reads such icons since Vista; the pictures stay as they are.
"""

import pathlib
import struct
import sys


def icon(pictures):
    head = struct.pack("<3H", 0, 1, len(pictures))
    at = len(head) + 16 * len(pictures)
    entries = b""
    for picture in pictures:
        width, height = struct.unpack(">2I", picture[16:24])
        if not picture.startswith(b"\x89PNG") or max(width, height) > 256:
            raise ValueError("no PNG picture of 256 pixels at most")
        # A size of 256 is written as 0.
        entries += struct.pack("<4B2H2I", width % 256, height % 256, 0, 0, 1, 32, len(picture), at)
        at += len(picture)
    return head + entries + b"".join(pictures)


def main():
    if len(sys.argv) < 3:
        print(__doc__, file=sys.stderr)
        return 2
    target, *names = map(pathlib.Path, sys.argv[1:])
    target.write_bytes(icon([name.read_bytes() for name in names]))
    return 0


if __name__ == "__main__":
    sys.exit(main())
