#!/usr/bin/env python3
"""Runs under Wine what is built for Windows, see scripts/test-wine.

    tests/wine/run.py --tests FOLDER --qt FOLDER --native FOLDER --packages FOLDER [--only PART]

FOLDER is, one by one, that of the test programs for Windows, of Qt for Windows, of this machine's
programs and tests, and of the Windows packages. Ends with 1 at the first thing that does not hold.
"""

import argparse
import contextlib
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

import console
import installed
import packages
import units
from windows import Failed, Windows
# Found by what windows.py adds to the path.
from systems import WindowsByWine
from walk import walk_through

ARCHIVE = "tovrel-*-windows-x64.zip"
COMPILER = "x86_64-w64-mingw32-g++-posix"


def folder_of(library):
    """Where the compiler has one of its libraries."""
    answer = subprocess.run([COMPILER, f"-print-file-name={library}"], check=True,
                            capture_output=True, text=True)
    return pathlib.Path(answer.stdout.strip()).resolve().parent


class OutOfTime(Exception):
    """No Failed: nothing that goes on after a failure is to go on after this."""


@contextlib.contextmanager
def limited(part, seconds):
    def end(*_):
        raise OutOfTime(f"{part} takes more than {seconds} s")

    signal.signal(signal.SIGALRM, end)
    signal.alarm(seconds)
    try:
        yield
    finally:
        signal.alarm(0)


def one(folder, pattern):
    found = list(folder.glob(pattern))
    if len(found) != 1:
        raise Failed(f"{folder} has {len(found)} files {pattern}")
    return found[0].resolve()


def check_units(arguments, windows):
    folders = {folder_of(name) for name in ("libstdc++-6.dll", "libwinpthread-1.dll")}
    units.check(windows, arguments.tests, arguments.native,
                units.environment(arguments.qt, sorted(folders)))


def check_archive(arguments, windows):
    programs = packages.check_archive(windows, one(arguments.packages, ARCHIVE), arguments.native)
    console.check(windows, programs)


def check_installer(arguments, windows):
    setup = one(arguments.packages, "tovrel-*-windows-x64-setup.exe")
    programs, command = packages.check_installer(windows, setup)
    packages.check_upgrade(windows, setup, programs)
    windows.end()  # what is started next finds the screen that there is then
    folder = installed.run_installed(windows, programs, command, setup, arguments.screenshot)
    windows.end()
    installed.check_removal(windows, programs, folder)


def check_windows(arguments, windows):
    unpacked = packages.unpack(one(arguments.packages, ARCHIVE), windows.root / "walk")
    if not walk_through(unpacked, WindowsByWine(windows.own_environment)):
        raise Failed("the walk through the windows")


# And what each may take at the most, in seconds: several times what it needs.
PARTS = {"units": (check_units, 1200), "archive": (check_archive, 300),
         "installer": (check_installer, 600), "windows": (check_windows, 1200)}


def check(arguments):
    with (tempfile.TemporaryDirectory(prefix="tovrel_wine_") as root,
          Windows(pathlib.Path(root)) as windows):
        for part in [arguments.only] if arguments.only else PARTS:
            check_part, seconds = PARTS[part]
            start = time.monotonic()
            with limited(part, seconds):
                check_part(arguments, windows)
                windows.end()
            print(f"{part} held ({time.monotonic() - start:.0f} s)", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name in ("tests", "qt", "native", "packages"):
        parser.add_argument(f"--{name}", type=lambda text: pathlib.Path(text).resolve(),
                            required=True)
    parser.add_argument("--only", default="", choices=PARTS)
    parser.add_argument("--screenshot", metavar="FILE", help="how the installed program looks")
    arguments = parser.parse_args()
    # Whoever ends this ends what runs in the Windows of its own, too.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    try:
        check(arguments)
    except (Failed, OutOfTime) as failure:
        print(f"FAILED  {failure}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
