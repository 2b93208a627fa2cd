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


# The frame is drawn by the X11 window manager; the program is told of a Windows one.
FRAME = ("compares sizes with the frame, and that of the X11 window manager is 2 pixels other than "
         "the one of which Wine tells the program")
LEAST = ("the X11 window manager, which drags here, does not learn from Wine of the least size that "
         "the program tells Windows")


class WindowsByWine:
    """Programs unpacked from the archive."""

    # Checks of what differs there, and why.
    left_out = {
        "the azimuthal window starts with the stored height and a square map": FRAME,
        "a right edge dragged by 20 pixels makes the azimuthal window larger by 20": FRAME,
        "a right edge dragged by 20 pixels keeps the Miller window two to one": FRAME,
        "a start with GCHeight=1000000000 shows the whole window": FRAME,
        "a start with MlWidth=1000000000 shows the whole window": FRAME,
        "a maximised window stores its free size": FRAME,
        "a narrow Miller window keeps its map": LEAST,
        "a narrow azimuthal window keeps its map": LEAST,
        "Your Information picked again keeps what was typed":
            "under Wine the dialog does not come to the front; of Windows that is not known",
        "the statistics opened again have a close button alone":
            "asks the X11 window manager for the kind of the window",
    }

    def __init__(self, environment):
        """@param environment tells Wine its folder"""
        self.environment = environment

    def copy_program(self, programs, folder):
        # Whatever the program writes, it puts in the place of a file and not into it.
        shutil.copytree(programs, folder, copy_function=os.link)

    def command(self, folder):
        return ["wine", folder / "tovrel.exe"]
