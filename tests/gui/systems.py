"""The systems that the program is walked through on: this one, and Windows as Wine makes it."""

import os
import shutil


class ThisSystem:
    environment = {"QT_QPA_PLATFORM": "xcb"}
    left_out = {}

    def copy_program(self, programs, folder):
        """The program with its data files in a folder of its own, where it keeps its settings."""
        folder.mkdir()
        shutil.copy(programs / "tovrel", folder)
        for pattern in ("*.pnt", "*.txt", "*.png", "sample.adi"):
            for file in programs.glob(pattern):
                shutil.copy(file, folder)

    def command(self, folder):
        return [folder / "tovrel"]


class WindowsByWine:
    """Programs unpacked from the archive; the environment that calls tells Wine its folder."""

    environment = {}
    # Checks of what differs there, and why.
    left_out = {
        "the statistics opened again have a close button alone":
            "asks the X11 window manager for the kind of the window; on Windows Qt gives a tool "
            "window",
    }

    def copy_program(self, programs, folder):
        # Whatever the program writes, it puts in the place of a file and not into it.
        shutil.copytree(programs, folder, copy_function=os.link)

    def command(self, folder):
        return ["wine", folder / "tovrel.exe"]
