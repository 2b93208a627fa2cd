"""The program on a desktop: started in a folder of its own, acted on, looked at, ended."""

import configparser
import contextlib
import pathlib
import shutil

from desktop import Failed, Rect, lasting, until

AZIMUTHAL = "Tovrel - Azimuthal Equidistant Projection"
MILLER = "Tovrel - Miller Cylindrical Projection"
TWIPS = 15  # a pixel in the unit of the settings

# The pointer is part of the screen's pixels: beside a free window, on the title bar of a large one.
POINTER_AWAY = (300, 2)


class Program:
    """A run of the program. As a context it ends the run, if nobody has."""

    def __init__(self, bench, settings="", log=None):
        """
        @param settings lines for the section [Globals]
        @param log a log in place of the sample
        """
        self.desktop = bench.desktop
        self.system = bench.system
        self.folder = bench.new_folder()
        bench.system.copy_program(bench.programs, self.folder)
        (self.folder / "Tovrel.ini").write_text(
            f"[Globals]\nMyCall=W1TVR\nLatitude=41.7\nLongitude=-72.7\n{settings}\n"
            f"[Log]\nadifile={log or self.folder / 'sample.adi'}\n"
            "[GCMapOptions]\nCall=1\nLatLong=1\nCountry=1\n", encoding="utf-8")
        self._made = contextlib.ExitStack()

    def __enter__(self):
        self.desktop.point(*POINTER_AWAY)
        self._made.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.process = self.desktop.start(self.system.command(self.folder), self._made)
        with contextlib.ExitStack() as unless_started:
            unless_started.callback(self._made.close)
            self.window = until("the main window", lambda: self.find(AZIMUTHAL) or
                                self.find(MILLER))
            self.wait_for_rest()
            unless_started.pop_all()
        return self

    def __exit__(self, *_):
        self._made.close()

    def wait_for_rest(self):
        """Waits until the windows no longer move nor change."""
        before = None

        def same():
            nonlocal before
            seen, before = before, (self.frame(), self.desktop.screen.picture(self.client()))
            return seen == before and not self.desktop.popups(self.process.pid)
        lasting("a window at rest", same)

    def find(self, title):
        """The number of the window with a title, 0 if there is none."""
        if self.process.poll() is not None:
            raise Failed(f"the program has ended with status {self.process.returncode}")
        shown = self.desktop.windows(self.process.pid)
        return next((window for window, name in shown.items() if name == title), 0)

    def wait_for(self, title):
        return until(f"a window called \"{title}\"", lambda: self.find(title))

    def frame(self):
        return self.desktop.frame(self.window)

    def client(self):
        return self.desktop.client(self.window)

    def fits(self, seen, wanted):
        """Whether a width or height with the frame is what the program was to make it."""
        return abs(seen - wanted) <= self.system.frame_slack

    def menu(self, *letters):
        """Picks a menu item by the underlined letters of its path."""
        self.desktop.activate(self.window)
        # A tip that still stands goes away at the first key.
        before = self.desktop.popups(self.process.pid)
        self.desktop.key("alt+" + letters[0])
        for number, letter in enumerate(letters[1:], 1):
            until(f"the menu behind {'-'.join(letters[:number])}", lambda wanted=number:
                  len(self.desktop.popups(self.process.pid) - before) >= wanted)
            self.desktop.key(letter)

    def close(self):
        """Closes the main window as its button does, and waits for the program's end."""
        self.ask_to_close()
        self.expect_end()

    def ask_to_close(self):
        self.desktop.ask("wmctrl", "-i", "-c", hex(self.window))

    def expect_end(self):
        until("the program's end", lambda: self.process.poll() is not None)
        if self.process.returncode != 0:
            raise Failed(f"the program ended with status {self.process.returncode}")

    def stored(self, section, key):
        """What the settings file holds."""
        settings = configparser.RawConfigParser(strict=False)
        settings.read(self.folder / "Tovrel.ini", encoding="latin-1")
        return settings.get(section, key, fallback=None)

    def read_so_far(self, path):
        """How many bytes of a file the program has read; None where it has not opened it."""
        folder = pathlib.Path(f"/proc/{self.process.pid}")
        # A file may be closed, and the program may end, between two looks.
        with contextlib.suppress(FileNotFoundError, ProcessLookupError):
            for link in (folder / "fd").iterdir():
                if link.resolve() == path:
                    position = (folder / "fdinfo" / link.name).read_text(encoding="ascii")
                    return int(position.split()[1])
        return None

    def stores_size(self, key, pixels):
        """Fails where the settings hold another size with the frame."""
        stored = self.stored("Globals", key)
        if not self.fits(int(stored) / TWIPS, pixels):
            raise Failed(f"{key}={stored} is stored, the window has {pixels * TWIPS}")

    def menu_height(self):
        """The height of the menu bar: one colour at its left edge, and a line at its end."""
        x, y, _, h = self.client()
        column = self.desktop.screen.rows(Rect(x + 1, y, 1, h))
        return next((row for row, pixel in enumerate(column) if pixel != column[0]), h - 1) + 1

    def map_area(self, menu):
        """The client area below the menu bar."""
        x, y, w, h = self.client()
        return Rect(x, y + menu, w, h - menu)

    def map_place(self, menu):
        """Where the map lies within the client area below the menu, by what differs there from the
        colour beside it."""
        rows = self.desktop.screen.rows(self.map_area(menu))
        beside = self.desktop.screen.picture(Rect(self.client().x + 2, self.client().y + 1, 1, 1))
        drawn = [number for number, row in enumerate(rows) if row.replace(beside, b"")]
        if not drawn:
            return Rect(0, 0, 0, 0)
        columns = [number for number in range(len(rows[0]) // 4) if
                   any(row[4 * number:4 * number + 4] != beside for row in rows)]
        return Rect(columns[0], drawn[0], columns[-1] + 1 - columns[0], drawn[-1] + 1 - drawn[0])

    def picture(self, menu):
        return self.desktop.screen.picture(self.map_area(menu))
