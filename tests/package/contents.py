#!/usr/bin/env python3
"""Looks whether a Debian package holds what it has to: contents.py PACKAGE.deb

Paths, modes and links are read from the package; so are its dependencies and that it needs no
maintainer scripts. Ends with 1, and tells each fault, if it is not as it has to be.
"""

import pathlib
import re
import subprocess
import sys

DATA = pathlib.Path(__file__).resolve().parent.parent.parent / "data"
PROGRAM = "usr/libexec/tovrel"
FILES = {
    *(f"{PROGRAM}/{name}" for name in ("tovrel", "tovrel-batch")),
    *(f"{PROGRAM}/{path.name}" for kind in ("*.pnt", "*.txt", "*.png", "*.pdf", "*.adi")
      for path in DATA.glob(kind)),
    *(f"usr/share/icons/hicolor/{size}x{size}/apps/tovrel.png"
      for size in (16, 24, 32, 48, 64, 128, 256)),
    "usr/share/icons/hicolor/scalable/apps/tovrel.svg",
    "usr/share/applications/tovrel.desktop",
    "usr/share/doc/tovrel/changelog.gz",
    "usr/share/doc/tovrel/copyright",
    "usr/share/man/man1/tovrel.1.gz",
    "usr/share/man/man1/tovrel-batch.1.gz",
    "usr/share/metainfo/org.tovrel.tovrel.metainfo.xml",
    "usr/share/mime/packages/tovrel.xml",
}
LINKS = {
    "usr/bin/tovrel": "../libexec/tovrel/tovrel",
    "usr/bin/tovrel-batch": "../libexec/tovrel/tovrel-batch",
    "usr/share/doc/tovrel/Tovrel-Help.pdf": "../../../libexec/tovrel/Tovrel-Help.pdf",
}
DEPENDENCIES = {"fonts-liberation", "libc6", "libqt6core6", "libqt6gui6", "libqt6widgets6",
                "libstdc++6", "zlib1g"}
LINE = re.compile(r"^(?P<mode>\S{10}) (?P<owner>\S+) +\d+ \S+ \S+ \./(?P<path>.*?)"
                  r"(?: -> (?P<target>.*))?$")


def asked(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def faults(package):
    files, links = set(), {}
    for line in asked("dpkg-deb", "--contents", package).splitlines():
        entry = LINE.match(line)
        path, mode = entry["path"], entry["mode"]
        if entry["owner"] != "root/root":
            yield f"{path} belongs to {entry['owner']}"
        if mode[0] == "l":
            links[path] = entry["target"]
            continue
        program = path in (f"{PROGRAM}/tovrel", f"{PROGRAM}/tovrel-batch")
        expected = "drwxr-xr-x" if mode[0] == "d" else "-rwxr-xr-x" if program else "-rw-r--r--"
        if mode != expected:
            yield f"{path} has the mode {mode}"
        if mode[0] == "-":
            files.add(path)
    yield from (f"{path} is missing" for path in sorted(FILES - files))
    yield from (f"{path} is one too many" for path in sorted(files - FILES))
    if links != LINKS:
        yield f"the links are {links}"

    depends = asked("dpkg-deb", "--field", package, "Depends")
    named = {part.split()[0] for part in depends.split(",")}
    yield from (f"does not depend on {name}" for name in sorted(DEPENDENCIES - named))
    scripts = re.findall(r"\b(?:pre|post)(?:inst|rm)\b", asked("dpkg-deb", "--info", package))
    if scripts:
        yield f"has maintainer scripts: {scripts}"


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    found = list(faults(sys.argv[1]))
    for fault in found:
        print(f"contents: {fault}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
