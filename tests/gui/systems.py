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


LEAST = ("the X11 window manager, which drags here, does not learn from Wine of the least size that "
         "the program tells Windows")


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
