"""An installed program from its start out of the file manager to its removal."""

import contextlib
import re

from windows import expect
from desktop import SCREEN, Desktop, Rect, lasting, until
from program import AZIMUTHAL, Program

WORKED_DOT = b"\x00\x00\xff"  # blue, green, red
SETTINGS = "[Globals]\r\nMyCall=W1TVR\r\nLatitude=41.7\r\nLongitude=-72.7\r\n"
REFUSED = 3  # the installer's status
SAVE_MAP = ("f", "s")


class Installed(Program):
    """The installed program, started by the command that opens logs."""

    def __init__(self, desktop, folder, command):  # pylint: disable=super-init-not-called
        self.desktop = desktop
        self.folder = folder
        self._command = command
        self._made = contextlib.ExitStack()

    def __enter__(self):
        # Its folder stays: it is looked at after the end.
        with contextlib.ExitStack() as kept:
            self.desktop.point(300, 2)
            self.process = self.desktop.start(self._command, self._made)
            kept.callback(self._made.close)
            self.window = until("the main window", lambda: self.find(AZIMUTHAL))
            kept.pop_all()
        return self

    def dots(self):
        return sum(row[at:at + 3] == WORKED_DOT
                   for row in self.desktop.screen.rows(Rect(0, 0, *SCREEN))
                   for at in range(0, len(row), 4))


def check_refusals(windows, programs, setup):
    """Neither a new version nor the removal touches the program while it runs."""
    for what, tool, *arguments in (("the installer", setup, "/S"),
                                   # Without the folder it would go on in a copy and end at once.
                                   ("the removal", programs / "uninstall.exe", "/S",
                                    f"_?={windows.name(programs)}")):
        before = contents(programs)
        windows.run("wine", tool, *arguments, status=REFUSED)
        expect(f"{what} leaves a program that runs alone, and its status tells so",
               contents(programs) == before)


def contents(folder):
    return {path: path.stat().st_mtime_ns for path in folder.rglob("*")}


def run_installed(windows, programs, command, setup, screenshot=None):
    """@return the folder of the user's files"""
    folder = windows.user / "AppData/Roaming/Tovrel"
    folder.mkdir(parents=True)
    (folder / "Tovrel.ini").write_text(SETTINGS, encoding="utf-8", newline="")
    log = windows.user / "Журнал ä.adi"
    log.write_bytes((programs / "sample.adi").read_bytes())
    # As the file manager fills it in.
    inside = windows.name(log)
    arguments = ["wine", *(quoted or plain for quoted, plain in
                           re.findall(r'"([^"]*)"|(\S+)', command.replace("%1", inside)))]
    before = {path for path in programs.rglob("*")}
    with Desktop(windows.root / "desktop", windows.own_environment) as desktop:
        with Installed(desktop, folder, arguments) as program:
            until("the dots of the plot", lambda: program.dots() > 100, 60)
            program.wait_for_rest()
            if screenshot:
                desktop.ask("import", "-window", "root", screenshot)
            check_refusals(windows, programs, setup)
            program.menu(*SAVE_MAP)
            told = program.wait_for("Tovrel")
            desktop.activate(told)
            desktop.key("Return")
            until("the message's end", lambda: not program.find("Tovrel"))
            program.close()
            stored = (folder / "Tovrel.ini").read_bytes()
    expect("an installed program plots the log that it is opened with", True)
    expect("it remembers the log, and the settings are kept",
           "Latitude=41.7" in stored.decode(errors="replace") and
           f"adifile={inside}" in stored.decode(errors="replace"))
    pictures = list(folder.glob("*.bmp"))
    expect("the saved map lies in the user's folder",
           len(pictures) == 1 and pictures[0].stat().st_size > 100_000)
    expect("the map data are copied there", (folder / "mapper.pnt").exists())
    expect("the program's own folder is as it was installed", before == set(programs.rglob("*")))
    return folder


def check_removal(windows, programs, folder):
    kept = {path: path.read_bytes() for path in folder.rglob("*") if path.is_file()}
    windows.run("wine", programs / "uninstall.exe", "/S")
    # It goes on in a copy of its own.
    lasting("removed programs", lambda: not (programs / "tovrel.exe").exists() and
            not (programs / "uninstall.exe").exists())
    left = sorted(path.name for path in programs.rglob("*")) if programs.exists() else []
    expect(f"nothing is left of the removed programs but the user's own file: {left}",
           left in ([], ["mine.txt"]))
    left = [line for key in ("Software", r"Software\Microsoft\Windows\CurrentVersion\Uninstall",
                             r"Software\Classes\Applications", r"Software\Classes")
            for line in windows.run("wine", "reg", "query", rf"HKCU\{key}",
                                    status=None).decode().splitlines()
            if "tovrel" in line.lower() or line.lower().endswith((".adi", ".adif"))]
    expect(f"nothing is left in the registry: {left}", not left)
    links = [path for path in windows.user.rglob("Tovrel.lnk")]
    expect("the start menu is as before", not links)
    expect("settings, maps and pictures are kept",
           kept == {path: path.read_bytes() for path in folder.rglob("*") if path.is_file()})
