#!/usr/bin/env python3
"""Runs under Wine what is built for Windows, see scripts/test-wine.

    tests/wine/run.py --tests FOLDER --qt FOLDER --native FOLDER --packages FOLDER [--only PART]

FOLDER is, one by one, that of the test programs for Windows, of Qt for Windows, of this machine's
programs and tests, and of the Windows packages. Ends with 1 at the first thing that does not hold.
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile

import installed
import packages
import units
from windows import Failed, Windows

PARTS = ("units", "archive", "installer", "windows")
COMPILER = "x86_64-w64-mingw32-g++-posix"


def folder_of(library):
    """Where the compiler has one of its libraries."""
    answer = subprocess.run([COMPILER, f"-print-file-name={library}"], check=True,
                            capture_output=True, text=True)
    return pathlib.Path(answer.stdout.strip()).resolve().parent


def one(folder, pattern):
    found = list(folder.glob(pattern))
    if len(found) != 1:
        raise Failed(f"{folder} has {len(found)} files {pattern}")
    return found[0].resolve()


def check(arguments, windows):
    parts = [arguments.only] if arguments.only else PARTS
    if "units" in parts:
        folders = {folder_of(name) for name in ("libstdc++-6.dll", "libwinpthread-1.dll")}
        units.check(windows, arguments.tests, arguments.native,
                    units.environment(arguments.qt, sorted(folders)))
        if arguments.only:
            return
    archive = one(arguments.packages, "tovrel-*-windows-x64.zip")
    setup = one(arguments.packages, "tovrel-*-windows-x64-setup.exe")
    if "archive" in parts:
        packages.check_archive(windows, archive, arguments.native)
    if "installer" in parts:
        programs, command = packages.check_installer(windows, setup)
        packages.check_upgrade(windows, setup, programs)
        windows.end()
        folder = installed.run_installed(windows, programs, command, arguments.screenshot)
        windows.end()
        installed.check_removal(windows, programs, folder)
    if "windows" in parts:
        windows.end()
        unpacked = packages.unpack(archive, windows.root / "walk")
        walk = pathlib.Path(__file__).resolve().parent.parent / "gui/walk.py"
        # Its own desktop is told where Windows is.
        if subprocess.run([sys.executable, "-B", walk, unpacked, "--wine"], check=False,
                          env=windows.environment).returncode != 0:
            raise Failed("the walk through the windows")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name in ("tests", "qt", "native", "packages"):
        parser.add_argument(f"--{name}", type=lambda text: pathlib.Path(text).resolve(),
                            required=True)
    parser.add_argument("--only", default="", choices=PARTS)
    parser.add_argument("--screenshot", metavar="FILE", help="how the installed program looks")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="tovrel_wine_") as root:
        try:
            with Windows(pathlib.Path(root)) as windows:
                check(arguments, windows)
        except Failed as failure:
            print(f"FAILED  {failure}", file=sys.stderr)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
