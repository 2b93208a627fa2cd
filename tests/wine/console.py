"""The batch program in a console: what it writes there, and how it ends by Ctrl+C.

A console that is closed can't be tried: Wine's own process, which a terminal of Linux then ends, is that
of the program.
"""

import contextlib
import fcntl
import os
import pty
import re
import subprocess
import termios
import threading

from windows import expect
from desktop import until

FOLDER = "Größe Ж"
LOG = "Журнал ä.adi"
# What Windows says of a program that Ctrl+C has ended, as much of it as a status holds here.
CONTROL_C_EXIT = 0xC000013A & 0xFF
RECORDS = 200  # times those of the sample: some seconds of work
CTRL_C = b"\x03"


class Console:
    """A terminal of its own that a program runs in."""

    def __init__(self, windows, folder, *command):
        self._side, other = pty.openpty()
        self._shown = bytearray()

        def take_terminal():
            fcntl.ioctl(0, termios.TIOCSCTTY, 0)

        self.process = subprocess.Popen([str(part) for part in ("wine", *command)], cwd=folder,
                                        env={**windows.environment, "TERM": "xterm"}, stdin=other,
                                        stdout=other, stderr=other, start_new_session=True,
                                        preexec_fn=take_terminal)
        os.close(other)
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        # The end of the last program that has the terminal is an error here.
        with contextlib.suppress(OSError):
            while data := os.read(self._side, 65536):
                self._shown += data

    def press(self, keys):
        os.write(self._side, keys)

    def ended(self):
        """@return the status"""
        until("the end of a program in a console", lambda: self.process.poll() is not None)
        return self.process.returncode

    def shown(self):
        self._reader.join(5)
        return self._shown.decode(errors="replace")


def write_long_log(programs, path):
    sample = (programs / "sample.adi").read_bytes()
    head = re.search(rb"<eoh>", sample, re.IGNORECASE).end()
    path.write_bytes(sample[:head] + RECORDS * sample[head:])


def check_interruption(windows, batch, folder):
    before = set(folder.rglob("*"))
    console = Console(windows, folder, batch, "kmz", LOG)
    until("a file that is being made", lambda: console.process.poll() is not None or
          any(path.stat().st_size > 0 for path in folder.glob(".tovrel-*/*.kml")))
    expect("the run is in the midst of its work", console.process.poll() is None)
    console.press(CTRL_C)
    status = console.ended()
    expect(f"Ctrl+C ends the run, and its status tells so ({status})", status == CONTROL_C_EXIT)
    expect("the console has shown how far it was", " %" in console.shown())
    expect("nothing that was begun is left", before == set(folder.rglob("*")))


def check(windows, programs):
    folder = windows.root / "console" / FOLDER
    folder.mkdir(parents=True)
    batch = programs / "tovrel-batch.exe"
    console = Console(windows, folder, batch, "kmz", LOG)
    expect("a log that is not there is an error", console.ended() != 0)
    expect("a console shows its name, whatever its letters", LOG in console.shown())
    write_long_log(programs, folder / LOG)
    check_interruption(windows, batch, folder)
