"""The systems that the program is walked through on: this one, and Windows as Wine makes it."""

import os
import shutil


class ThisSystem:
    # Pixels by which a size with the frame may differ from what the program takes it for.
    frame_slack = 0
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

    def in_front(self, desktop):
        """The window that the program has brought to the front."""
        return desktop.active()


LEAST = ("the X11 window manager, which drags here, does not learn from Wine of the least size that "
         "the program tells Windows: its WM_NORMAL_HINTS have none")


class WindowsByWine:
    """Programs unpacked from the archive."""

    # The X11 window manager draws a frame other than the one of which Wine tells the program.
    frame_slack = 2
    # Checks of what differs there, and why.
    left_out = {
        "a start with GCHeight=1000000000 shows the whole window":
            "the program fits the frame of which Wine tells it between the edges of the screen; that "
            "of the X11 window manager, which comes around it, is then up to 5 pixels beyond one",
        "a narrow Miller window keeps its map": LEAST,
        "a narrow azimuthal window keeps its map": LEAST,
        "the statistics opened again have a close button alone":
            "asks for the kind of the window, and to X11 all of Wine's are of the kind \"normal\"",
    }

    def __init__(self, environment):
        """@param environment tells Wine its folder"""
        self.environment = environment

    def copy_program(self, programs, folder):
        # Whatever the program writes, it puts in the place of a file and not into it.
        shutil.copytree(programs, folder, copy_function=os.link)

    def command(self, folder):
        return ["wine", folder / "tovrel.exe"]

    def in_front(self, desktop):
        # The window manager does not learn from Wine which window has the keyboard.
        return desktop.topmost()
