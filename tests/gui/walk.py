#!/usr/bin/env python3
"""A walk through the real windows, under a window manager, with keyboard and mouse.

    tests/gui/walk.py PROGRAMS [--only TEXT]

PROGRAMS is the folder that holds the built program and its data files. Each check starts a program
of its own. Ends with 1 if a check failed. For the program for Windows see tests/wine/run.py.
"""

import argparse
import pathlib
import sys
import tempfile
import time

import commands
import maximised
import sizes
from desktop import Desktop, Failed
from systems import ThisSystem


class Bench:
    """What all checks share."""

    def __init__(self, programs, system, shown_on, root):
        self.programs = programs
        self.system = system
        self.desktop = shown_on
        self.root = root
        self._folders = 0

    def new_folder(self):
        """A path for a folder that does not exist yet."""
        self._folders += 1
        return self.root / f"run{self._folders}"


def walk(bench, only):
    """Runs the checks and tells whether all held."""
    checks = [(name, check) for group in (sizes, maximised, commands)
              for name, check in group.CHECKS.items() if only in name]
    failed = tried = 0
    for name, check in checks:
        if reason := bench.system.left_out.get(name):
            print(f"left out {name}: {reason}")
            continue
        tried += 1
        start = time.monotonic()
        try:
            check(bench)
            outcome = f"ok      {name}"
        except Failed as failure:
            failed += 1
            outcome = f"FAILED  {name}: {failure}"
        print(f"{outcome} ({time.monotonic() - start:.1f} s)", flush=True)
    print(f"{tried - failed} of {tried} checks held")
    # Nothing tried is nothing proved.
    return tried > 0 and not failed


def walk_through(programs, system, only=""):
    """Runs the checks on a desktop of their own and tells whether all held."""
    with tempfile.TemporaryDirectory(prefix="tovrel_gui_") as folder:
        root = pathlib.Path(folder)
        with Desktop(root, system.environment) as shown_on:
            return walk(Bench(programs.resolve(), system, shown_on, root), only)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("programs", type=pathlib.Path)
    parser.add_argument("--only", default="", metavar="TEXT",
                        help="only the checks whose name holds a text")
    arguments = parser.parse_args()
    return 0 if walk_through(arguments.programs, ThisSystem(), arguments.only) else 1


if __name__ == "__main__":
    sys.exit(main())
