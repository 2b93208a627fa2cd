#!/usr/bin/env python3
"""Writes what the installer puts in place, and what is removed again: build_installer_files.py FOLDER

The output is an NSIS script with two macros. Each file is named, so that nothing else is ever removed.
"""

import pathlib
import sys


def quoted(text):
    return '"' + text.replace("$", "$$").replace('"', '$\\"') + '"'


def script(root):
    files = sorted(path for path in root.rglob("*") if path.is_file())
    folders = sorted({path.parent for path in files})

    def place(path):
        inner = str(path.relative_to(root)).replace("/", "\\")
        return "$INSTDIR" + ("" if inner == "." else "\\" + inner)

    yield "!macro InstallFiles"
    for folder in folders:
        yield f'SetOutPath "{place(folder)}"'
        yield from (f"File {quoted(str(path))}" for path in files if path.parent == folder)
    yield "!macroend"
    yield "!macro RemoveFiles"
    yield from (f'Delete "{place(path)}"' for path in files)
    # The inner ones first; one that holds more stays.
    yield from (f'RMDir "{place(folder)}"' for folder in reversed(folders) if folder != root)
    yield "!macroend"


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    print("\n".join(script(pathlib.Path(sys.argv[1]).resolve())))
    return 0


if __name__ == "__main__":
    sys.exit(main())
