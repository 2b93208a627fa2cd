#!/usr/bin/env python3
"""Looks whether the folder of the Windows packages holds what it has to: windows.py FOLDER

Every library that a program or library there wants is either there or part of Windows; the programs
have icon, version and manifest, and only one of them is a console program. Ends with 1, and tells each
fault, if it is not as it has to be.
"""

import pathlib
import re
import subprocess
import sys

DATA = pathlib.Path(__file__).resolve().parent.parent.parent / "data"
TOOLS = "x86_64-w64-mingw32-"
PROGRAMS = {"tovrel.exe": "Windows GUI", "tovrel-batch.exe": "Windows CUI"}
FILES = {
    *PROGRAMS,
    *(path.name for kind in ("*.pnt", "*.txt", "*.png", "*.pdf", "*.adi")
      for path in DATA.glob(kind)),
    "Qt6Core.dll", "Qt6Gui.dll", "Qt6Widgets.dll", "libgcc_s_seh-1.dll", "libstdc++-6.dll",
    "libwinpthread-1.dll", "zlib1.dll", "platforms/qwindows.dll", "platforms/qoffscreen.dll",
    "styles/qwindowsvistastyle.dll", "imageformats/qgif.dll",
    "imageformats/qico.dll", "imageformats/qjpeg.dll",
}
SYSTEM = {
    "advapi32", "authz", "comctl32", "comdlg32", "d3d11", "d3d9", "d2d1", "dwmapi", "dwrite", "dxgi",
    "gdi32", "imm32", "kernel32", "mpr", "msvcrt", "netapi32", "ntdll", "ole32", "oleaut32", "rpcrt4",
    "setupapi", "shcore", "shell32", "shlwapi", "user32", "userenv", "uxtheme", "version", "winmm",
    "winspool.drv", "ws2_32", "wtsapi32", "d3d12",
}
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)
MANIFEST = ("PerMonitorV2", "longPathAware", "activeCodePage", "asInvoker")


def asked(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True,
                          errors="replace").stdout


def faults(root):
    present = {path.relative_to(root).as_posix() for path in root.rglob("*") if path.is_file()}
    yield from (f"{name} is missing" for name in sorted(FILES - present))
    yield from (f"{name} is one too many" for name in sorted(present - FILES)
                if not name.startswith("licences/"))
    if "licences/README.txt" not in present:
        yield "nothing tells of the licences"
    elif "@" in (root / "licences/README.txt").read_text(encoding="utf-8"):
        yield "the text about the licences has gaps"
    beside = {name.lower() for name in present}
    for name in sorted(present):
        if not name.endswith((".exe", ".dll")):
            continue
        head = asked(TOOLS + "objdump", "-p", str(root / name))
        links = re.findall(r"DLL Name: (\S+)", head)
        if name == "tovrel-batch.exe" and "Qt6Widgets.dll" in links:
            yield f"{name} links Qt Widgets"
        for wanted in links:
            part = wanted.lower().removesuffix(".dll")
            of_system = part in SYSTEM or part.startswith("api-ms-win-core-")
            if wanted.lower() not in beside and not of_system:
                yield f"{name} wants {wanted}, which is neither here nor part of Windows"
        for trait in ("DYNAMIC_BASE", "NX_COMPAT"):
            if trait not in head:
                yield f"{name} lacks {trait}"
        if name in PROGRAMS:
            if PROGRAMS[name] not in head:
                yield f"{name} is no program of the kind {PROGRAMS[name]}"
            content = (root / name).read_bytes()
            yield from (f"the manifest of {name} has no {word}" for word in MANIFEST
                        if word.encode() not in content)
            carried = asked(TOOLS + "windres", "-J", "coff", "-O", "rc", str(root / name))
            if carried.count("/* RT_ICON */") != len(ICON_SIZES):
                yield f"{name} has not all sizes of its icon"
            if not re.search(r'VALUE "ProductVersion", *"\d+\.\d+\.\d+', carried):
                yield f"{name} tells no version"


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    found = list(faults(pathlib.Path(sys.argv[1])))
    for fault in found:
        print(f"windows: {fault}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
